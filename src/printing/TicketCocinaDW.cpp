#include "printing/TicketCocinaDW.h"

#include "base/Conversiones.h"
#include "base/ModuloPrincipal.h"
#include "base/Pedido.h"
#include "printing/DestinoCocina.h"
#include "printing/EscritorTicketDW.h"
#include "printing/EscritorTicketEP.h"
#include "printing/ImpresoraDW.h"
#include "printing/PrimitivasTicket.h"

namespace {

const QString Recogen = QStringLiteral("Recogen");

void cabecera(ModuloPrincipal& m, EscritorTicketDW& t, const ClassConfigImpresora& imp) {
    const Pedido& p = m.PedidoActual;
    t.prepararPagina();
    if (imp.MostrarNombreImpresora) {
        if (imp.NombreImpresoraGrande) {
            t.grande();
        }
        t.imprimir(imp.NombreImpresora);
    }
    t.pequenna();
    t.fechaYHora();
    t.grande();
    if (!EsParaAhora(p)) {
        t.separador();
        t.partir(p.Para);
        if (!p.ParaDia.isEmpty()) {
            t.partir(p.ParaDia);
        }
        t.separador();
    }
    t.imprimir(QStringLiteral("Ped. Nº: ") + p.NumPedido);
    t.pequenna();
    t.imprimir(p.FormaEntrega == Recogen ? Recogen : QStringLiteral("Envío a domicilio"));
    t.hueco();
    t.pequenna();
}

void pie(ModuloPrincipal& m, EscritorTicketDW& t, const ClassConfigImpresora& imp) {
    const Pedido& p = m.PedidoActual;
    if (!p.Comentarios.isEmpty()) {
        t.comentarios(p.Comentarios);
    }
    if (imp.DatosClienteCocina) {
        t.separador();
        t.grandeSi(imp.DatosClienteYEnvioGrande);
        t.partir(QStringLiteral("Cliente: \r\n") + p.Cliente);
        t.partir(QStringLiteral("Teléfono: ") + p.Telefono);
        t.partir(p.FormaEntrega);
    }
    if (imp.NumPedidoYFormaEnvFinal > 0) {
        t.separador();
        t.pequenna();
        for (int i = 0; i < imp.NumPedidoYFormaEnvFinal; ++i) {
            t.imprimir(QString());
        }
        t.grande();
        t.partir(p.NumPedido + u' ' +
                 (p.FormaEntrega == Recogen ? Recogen : QStringLiteral("Envío a Dom.")));
    }
    if (imp.MostrarHoraEntrega && !p.TiempoEstimado.isEmpty() &&
        clasico::IsNumeric(p.TiempoEstimado) &&
        clasico::Valor(p.TiempoEstimado).value_or(0.0) > 0.0) {
        t.separador();
        t.grande();
        t.partir(HoraEntregaEstimada(p));
        t.pequenna();
    }
    t.lineasFinales();
    t.fin();
}

} // namespace

void ImprimirTicketCocinaDW(ModuloPrincipal& m, ImpresoraDW& impresora,
                            const ClassConfigImpresora& imp) {
    const Pedido& p = m.PedidoActual;
    if (!destino_cocina::AdmiteFormaEntrega(imp.FormaEnvio, p.FormaEntrega)) {
        return;
    }
    const auto categorias = destino_cocina::LeerLista(imp.CategoriasIds);
    EscritorTicketDW t(m, impresora, imp);
    bool cabeceraHecha = false;
    for (const ProductoPedido& prod : p.Productos) {
        if (!destino_cocina::PerteneceCategoria(prod.IdCategoria, categorias)) {
            continue;
        }
        if (!cabeceraHecha) {
            cabecera(m, t, imp);
            cabeceraHecha = true;
        }
        if (imp.ProductosYComentariosGrande) {
            t.grande();
        }
        const QString texto = t.textoProducto(prod, imp.MostrarPreciosProdCocina);
        if (imp.MostrarSeparadorProductos) {
            t.separador();
        }
        t.imprimir(texto);
    }
    if (cabeceraHecha) {
        pie(m, t, imp);
    }
}
