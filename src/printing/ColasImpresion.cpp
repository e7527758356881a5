#include "printing/ColasImpresion.h"

#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "platform/EjecucionProtegida.h"
#include "printing/RutasImpresion.h"

#include <QTimer>
#include <cups/cups.h>
#include <utility>

namespace {

// Gives up a request that waits longer than its time-out.
int noEsperarMas(http_t* /*http*/, void* /*datos*/) {
    return 0;
}

} // namespace

int CancelarTrabajosPendientes(int limiteMs) {
    int cancelado = 0;
    http_t* http = httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                                limiteMs, nullptr);
    if (http == nullptr) {
        return -1;
    }
    httpSetTimeout(http, limiteMs / 1000.0, noEsperarMas, nullptr);
    cups_job_t* trabajos = nullptr;
    const int n = cupsGetJobs2(http, &trabajos, nullptr, 0, CUPS_WHICHJOBS_ACTIVE);
    if (n < 0) {
        httpClose(http);
        return -1;
    }
    for (int i = 0; i < n; ++i) {
        if (cupsCancelJob2(http, trabajos[i].dest, trabajos[i].id, 0) == IPP_STATUS_OK) {
            ++cancelado;
        }
    }
    cupsFreeJobs(n, trabajos);
    httpClose(http);
    return cancelado;
}

QString TextoPreguntaLimpiarColas() {
    return QStringLiteral("¿Esta seguro que desea limpiar las colas de impresión?");
}

bool ReiniciarImpresoras(ModuloPrincipal& m, const std::function<int()>& vaciarColas,
                         int esperaMs) {
    if (!m.cajas().preguntarSiNo(TextoPreguntaLimpiarColas())) {
        return false;
    }
    // A queue that can't be emptied is dropped silently, as a spool folder in use was.
    vaciarColas();
    if (m.PedidoActual.NumPedido.isEmpty()) {
        return true;
    }
    // The order of this moment is the one reprinted, and no order is taken while the queues
    // come back: the road stays busy until the reprint is out (the count comes down by hand,
    // since the wait outlives this call).
    ++m.CaminoOcupado;
    QTimer::singleShot(esperaMs, &m, [&m, pedido = m.PedidoActual] {
        Pedido actual = std::exchange(m.PedidoActual, pedido);
        EjecutarProtegido(m.cajas(), [&] {
            ImprimirPedidoSegunEstado(m, pedido.Estado, pedido.FormaEntrega, false, false);
        });
        m.PedidoActual = std::move(actual);
        --m.CaminoOcupado;
    });
    return true;
}
