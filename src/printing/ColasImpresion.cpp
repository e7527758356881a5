#include "printing/ColasImpresion.h"

#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "printing/RutasImpresion.h"

#include <QTimer>

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
    QTimer::singleShot(esperaMs, &m, [&m] {
        if (!m.PedidoActual.NumPedido.isEmpty()) {
            ImprimirPedidoSegunEstado(m, m.PedidoActual.Estado, m.PedidoActual.FormaEntrega, false,
                                      false);
        }
    });
    return true;
}
