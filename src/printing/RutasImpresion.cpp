#include "printing/RutasImpresion.h"

#include "base/ClassConfigImpresora.h"
#include "base/Diario.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "base/Pedido.h"
#include "platform/CajaMensajes.h"
#include "platform/EjecucionProtegida.h"
#include "platform/Reloj.h"
#include "printing/ImpresoraDW.h"
#include "printing/TicketClienteDW.h"
#include "printing/TicketClienteEP.h"
#include "printing/TicketCocinaDW.h"
#include "printing/TicketCocinaEP.h"
#include "printing/TicketsSinImprimir.h"

QString TextoSinImpresora() {
    return QStringLiteral("Debe seleccionar una impresora en configuración de impresoras");
}

int CopiasSegunEstado(const ClassConfigImpresora& imp, const QString& est,
                      const QString& formaEntrega) {
    const bool aceptado = estado::esAceptado(est);
    if (aceptado && formaEntrega == u"Recogen" && imp.NumeroCopiasAceptadoRecoger >= 0) {
        return imp.NumeroCopiasAceptadoRecoger;
    }
    if (aceptado && imp.NumeroCopiasAceptado > 0) {
        return imp.NumeroCopiasAceptado;
    }
    if (est == estado::Rechazado && imp.NumeroCopiasRechazado > 0) {
        return imp.NumeroCopiasRechazado;
    }
    return 0;
}

bool Diferido(const QString& paraDia, bool automatico, bool imprimirEnCocina) {
    return !paraDia.isEmpty() && automatico && !imprimirEnCocina;
}

namespace {

// The copies of this printer that did not come out go to the list of tickets to print again.
void anotarSinImprimir(ModuloPrincipal& m, const ClassConfigImpresora& imp, int copias,
                       const QString& error) {
    int hueco = 0;
    for (int n = 1; n <= 10 && hueco == 0; ++n) {
        if (&m.Impresora(n) == &imp) {
            hueco = n;
        }
    }
    for (int n = 1; n <= 10 && hueco == 0; ++n) {
        if (m.Impresora(n).NombreImpresora == imp.NombreImpresora) {
            hueco = n;
        }
    }
    if (hueco == 0) {
        return; // a printer of no slot (a test page): nothing to print again
    }
    for (int i = 0; i < copias; ++i) {
        m.ticketsSinImprimir().anotar(
            {m.PedidoActual, hueco, imp.NombreImpresora, m.reloj().ahora(), error});
    }
}

} // namespace

CopiasSinImprimir ImprimirEnImpresoraDW(ModuloPrincipal& m, const ClassConfigImpresora& imp,
                                        int copias,
                                        const std::function<void(ImpresoraDW&)>& copia) {
    ImpresorasDW& impresoras = m.impresorasDW();
    HacerActualPorNombre(impresoras, imp.NombreImpresora);
    ImpresoraDW* impresora = nullptr;
    int impresas = 0;
    try {
        for (int i = 0; i < copias; ++i, ++impresas) {
            impresora = &impresoras.Printer();
            copia(*impresora);
            qCInfo(diarioImpresion).noquote()
                << ('"' + imp.NombreImpresora + '"') << "copia" << i + 1 << "impresa";
        }
    } catch (const ErrorEjecucion& e) {
        if (impresora != nullptr) {
            impresora->KillDoc();
        }
        qCWarning(diarioImpresion).noquote()
            << ('"' + imp.NombreImpresora + '"') << "copia NO impresa del pedido"
            << m.PedidoActual.NumPedido << ":" << e.descripcion();
        m.cajas().critico(TextoFalloImpresoraDW(e, imp.NombreImpresora, m.PedidoActual.NumPedido));
        // The copy that failed and the ones not tried after it.
        return {copias - impresas, e.textoInforme()};
    }
    return {};
}

void ImprimirPedido(ModuloPrincipal& m, const ClassConfigImpresora& imp, int copias) {
    qCInfo(diarioImpresion).noquote()
        << "pedido" << m.PedidoActual.NumPedido << (m.PedidoActual.Estado + u':') << copias
        << (copias == 1 ? "copia para" : "copias para") << imp.TipoImpresion
        << ('"' + imp.NombreImpresora + '"') << (imp.Cocina ? "(cocina)" : "(cliente)");
    if (imp.TipoImpresion == u"DW") {
        const CopiasSinImprimir fallidas =
            ImprimirEnImpresoraDW(m, imp, copias, [&](ImpresoraDW& impresora) {
                if (imp.Cocina) {
                    ImprimirTicketCocinaDW(m, impresora, imp);
                } else {
                    ImprimirTicketDW(m, impresora, imp);
                }
            });
        anotarSinImprimir(m, imp, fallidas.copias, fallidas.error);
    } else if (imp.TipoImpresion == u"EP") {
        for (int i = 0; i < copias; ++i) {
            const QString error =
                imp.Cocina ? ImprimirTicketCocinaEP(m, imp) : ImprimirTicketEP(m, imp);
            if (!error.isEmpty()) {
                anotarSinImprimir(m, imp, 1, error);
            }
        }
    }
}

QString TextoFalloImpresoraDW(const ErrorEjecucion& e, const QString& nombreImpresora,
                              const QString& numPedido) {
    QString texto = e.textoInforme() + QStringLiteral("\n\nLa impresora \"") + nombreImpresora +
                    QStringLiteral("\" no ha podido imprimir");
    if (!numPedido.isEmpty()) {
        texto += QStringLiteral(" el pedido ") + numPedido;
    }
    return texto + QStringLiteral(". Compruebe que está encendida, conectada y con papel, o "
                                  "elija otra en Configuración de Impresoras. Las demás "
                                  "impresoras han impreso sus copias.");
}

void ImprimirPedidoSegunEstado(ModuloPrincipal& m, const QString& est, const QString& formaEntrega,
                               bool automatico, bool soloCocina) {
    // Every printer gets its turn before any printer's box is shown: a box waits for a person,
    // and the kitchen must not wait for the counter's printer to be mended.
    const AplazarCajas aplazadas(m);
    for (int n = 1; n <= 10; ++n) {
        const ClassConfigImpresora& imp = m.Impresora(n);
        const Pedido& p = m.PedidoActual;
        const bool diferido = Diferido(p.ParaDia, automatico, p.ImprimirEnCocina);
        if (soloCocina && !imp.Cocina) {
            continue;
        }
        if (imp.Cocina && diferido) {
            continue;
        }
        const int copias = CopiasSegunEstado(imp, est, formaEntrega);
        if (copias > 0) {
            // A failure that no ticket caught costs this printer's copies, not the others'.
            EjecutarProtegido(m.cajas(), [&] { ImprimirPedido(m, imp, copias); });
        }
    }
}

int ImprimirPedidoNuevo(ModuloPrincipal& m) {
    for (int n = 1; n <= 2; ++n) {
        if (!m.Impresora(n).NombreImpresora.isEmpty()) {
            ImprimirPedido(m, m.Impresora(n), 1);
            return n;
        }
    }
    m.cajas().mostrar(TextoSinImpresora());
    return 0;
}
