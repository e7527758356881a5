#include "printing/AvisoCancelacion.h"

#include "base/ClassConfigImpresora.h"
#include "base/Diario.h"
#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "platform/EjecucionProtegida.h"
#include "printing/DestinoCocina.h"
#include "printing/EscritorTicketDW.h"
#include "printing/EscritorTicketEP.h"
#include "printing/ImpresoraDW.h"
#include "printing/MarcoTicketEP.h"
#include "printing/RutasImpresion.h"

namespace {

QString TextoAviso(const ModuloPrincipal& m) {
    return QStringLiteral("ATENCIÓN: SE HA CANCELADO EL PEDIDO ") + m.PedidoActual.NumPedido;
}

} // namespace

void ImprimirCancelacion(ModuloPrincipal& m) {
    const AplazarCajas aplazadas(m);
    for (int n = 1; n <= 10; ++n) {
        const ClassConfigImpresora& imp = m.Impresora(n);
        EjecutarProtegido(m.cajas(), [&] { ImprimirCancelacionEnImpresora(m, imp); });
    }
}

void ImprimirCancelacionEnImpresora(ModuloPrincipal& m, const ClassConfigImpresora& imp) {
    if (imp.TipoImpresion == u"DW" && !imp.Cocina) {
        // The printer is made current all the same, as for any driver printer of a round.
        HacerActualPorNombre(m.impresorasDW(), imp.NombreImpresora);
        return;
    }
    if (!imp.Cocina) {
        return;
    }
    if (imp.TipoImpresion == u"DW") {
        qCInfo(diarioImpresion).noquote()
            << "aviso de cancelación del pedido" << m.PedidoActual.NumPedido << "para DW"
            << ('"' + imp.NombreImpresora + '"');
        ImprimirEnImpresoraDW(
            m, imp, 1, [&](ImpresoraDW& impresora) { ImprimirCancelacionDW(m, impresora, imp); });
    } else if (imp.TipoImpresion == u"EP") {
        qCInfo(diarioImpresion).noquote()
            << "aviso de cancelación del pedido" << m.PedidoActual.NumPedido << "para EP"
            << ('"' + imp.NombreImpresora + '"');
        ImprimirCancelacionEP(m, imp);
    }
}

void ImprimirCancelacionEP(ModuloPrincipal& m, const ClassConfigImpresora& impresora) {
    ClassConfigImpresora imp = impresora;
    EjecutarMarcoEP(m, imp.NombreImpresora, [&](CanalEP& canal) {
        if (!destino_cocina::ConcierneEP(m.PedidoActual, imp)) {
            return;
        }
        EscritorTicketEP t(m, canal, imp);
        t.principio();
        t.fechaYHora();
        t.grande();
        t.lineaTexto(TextoAviso(m));
        t.normal();
        t.pie();
    });
}

void ImprimirCancelacionDW(ModuloPrincipal& m, ImpresoraDW& impresora,
                           const ClassConfigImpresora& imp) {
    if (!destino_cocina::ConcierneDW(m.PedidoActual, imp)) {
        return;
    }
    EscritorTicketDW t(m, impresora, imp);
    // The blank head lines go at the small size.
    t.pequenna();
    t.prepararPagina();
    t.pequenna();
    t.fechaYHora();
    t.hueco();
    t.grande();
    t.partir(TextoAviso(m));
    t.pequenna();
    t.lineasFinales();
    t.fin();
}
