#include "printing/ColasImpresion.h"

#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "platform/EjecucionProtegida.h"
#include "printing/RutasImpresion.h"

#include <QTimer>
#include <utility>

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
