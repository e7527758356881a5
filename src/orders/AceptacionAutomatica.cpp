#include "orders/AceptacionAutomatica.h"

#include "base/ModuloPrincipal.h"
#include "platform/Reloj.h"

std::optional<int> DecidirAceptacionAutomatica(ModuloPrincipal& m) {
    const bool recogen = m.PedidoActual.FormaEntrega == QLatin1String("Recogen");
    qint16& ajuste = recogen ? m.AceptarAutoRecoger : m.AceptarAutoDomicilio;
    int minutos = ajuste;
    if (minutos <= 0 && minutos != -1) {
        return std::nullopt;
    }
    if (minutos == -1) {
        // One order only: the setting stays at 0 until the configuration brings it back.
        minutos = 0;
        ajuste = 0;
    }
    m.PedidoActual.TiempoEstimado = QString::number(minutos);
    m.PedidoActual.HoraAceptacion = m.reloj().ahora();
    return minutos;
}
