#include "printing/TicketClienteDW.h"

#include "base/Conversiones.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "base/Pedido.h"
#include "printing/EscritorTicketDW.h"
#include "printing/EscritorTicketEP.h"
#include "printing/ImpresoraDW.h"
#include "printing/PrimitivasTicket.h"

namespace {

// The state lines, each after a gap. Returns whether the delivery time may still follow.
bool bloqueEstado(EscritorTicketDW& t, const Pedido& p, bool mostrarHora) {
    auto linea = [&t](const QString& texto) {
        t.hueco();
        t.partir(texto);
    };
    if (estado::esAceptado(p.Estado)) {
        if (!EsParaAhora(p)) {
            linea(p.Estado);
            return false;
        }
        if (!mostrarHora) {
            linea(p.Estado);
            linea(p.TiempoEstimado + QStringLiteral(" Minutos"));
            return false;
        }
        const auto minutos = clasico::Valor(p.TiempoEstimado);
        if (!minutos) {
            throw ErrorEjecucion(ErrorEjecucion::NoCoincidenLosTipos);
        }
        if (*minutos == 0.0) {
            linea(p.Estado + QStringLiteral(": No especificado"));
            return false;
        }
        linea(p.Estado + QStringLiteral(": ") + p.TiempoEstimado + QStringLiteral(" Minutos"));
        return true;
    }
    if (p.Estado == estado::Rechazado) {
        linea(p.Estado);
        linea(p.MotivoRechazo);
    }
    return mostrarHora;
}

} // namespace

void ImprimirTicketDW(ModuloPrincipal& m, ImpresoraDW& impresora, const ClassConfigImpresora& imp) {
    const Pedido& p = m.PedidoActual;
    EscritorTicketDW t(m, impresora, imp);

    t.prepararPagina();
    t.grande();
    t.partir(m.NombreEstablecimiento);
    t.separador();
    t.hueco();
    t.pequenna();
    t.fechaYHora();
    t.hueco();
    t.grande();
    t.partir(m.TextoCabecera);
    t.separador();
    t.hueco();
    t.grande();
    t.imprimir(QStringLiteral("Ped. Nº: ") + p.NumPedido);
    t.hueco();
    t.grandeSi(imp.ProductosYComentariosGrande);

    for (const ProductoPedido& prod : p.Productos) {
        if (imp.MostrarSeparadorProductos) {
            t.separador();
        }
        t.imprimir(t.textoProducto(prod, true));
    }

    if (!p.Comentarios.isEmpty()) {
        t.comentarios(p.Comentarios);
    }
    t.pequenna();
    t.separador();
    t.hueco();
    t.partir(QStringLiteral("Importe envío: ") + p.ImporteEnvio);
    if (imp.MostrarTotalBruto) {
        t.hueco();
        t.partir(QStringLiteral("Total Bruto: ") + p.TotalBruto);
    }
    if (clasico::IsNumeric(p.ComisionPaypal) &&
        clasico::Valor(QString(p.ComisionPaypal).remove(u'€')).value_or(0.0) > 0.0) {
        t.hueco();
        t.partir(QStringLiteral("Comisión Paypal: ") + p.ComisionPaypal);
    }
    t.hueco();
    t.partir(QStringLiteral("Descuento: ") + p.ImporteDescuento);
    if (!p.CodigoPromocion.isEmpty() && m.MostrarCprTic) {
        t.hueco();
        t.partir(QStringLiteral("Promoción: ") + p.CodigoPromocion);
    }
    t.hueco();
    t.grande();
    {
        const int w = CaracteresPorLineaDW(impresora, imp.AnchoPapel, imp.FactorFuente);
        t.partir(QStringLiteral("Total: ") +
                 Espacios(w - 7 - static_cast<int>(p.TotalPedido.size())) + p.TotalPedido);
    }
    t.separador();

    t.grandeSi(imp.DatosClienteYEnvioGrande);
    t.hueco();
    t.partir(QStringLiteral("Cliente: \r\n") + p.Cliente);
    t.partir(QStringLiteral("Teléfono: ") + p.Telefono);
    t.partir(p.FormaEntrega);
    t.separador();
    t.hueco();
    t.pequenna();
    t.partir(QStringLiteral("Realizado el:"));
    t.pequenna();
    t.imprimir(p.RealizadoEl);
    t.hueco();
    t.pequenna();
    if (!EsParaAhora(p)) {
        t.grande();
    }
    t.partir(p.Para);
    if (!p.ParaDia.isEmpty()) {
        t.partir(p.ParaDia);
    }
    t.pequenna();
    t.partir(QStringLiteral("Pedidos anteriores: ") + p.PedidosAnteriores);
    t.hueco();
    t.grande();
    t.partir(p.EstadoPago);
    t.pequenna();
    t.partir(QStringLiteral("Método de pago: ") + p.FormaPago);
    if (!p.Cambio.isEmpty()) {
        t.partir(QStringLiteral("Cambio: ") + p.Cambio);
    }
    t.separador();

    const bool mostrarHora = bloqueEstado(t, p, imp.MostrarHoraEntrega);

    t.grande();
    if (mostrarHora && estado::esAceptado(p.Estado) && !p.TiempoEstimado.isEmpty() &&
        clasico::IsNumeric(p.TiempoEstimado)) {
        t.grande();
        t.partir(HoraEntregaEstimada(p));
    }
    t.pequenna();
    t.separador();
    t.partir(m.TextoPiePagina);
    t.lineasFinales();
    t.fin();
}
