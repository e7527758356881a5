#pragma once

#include <optional>

class ModuloPrincipal;

// Whether the order in PedidoActual is accepted without going on screen, and with how many
// minutes. The setting of its way of delivery decides ("Recogen": AceptarAutoRecoger,
// anything else: AceptarAutoDomicilio): above 0 accepts with that many minutes, 0 accepts
// nothing, -1 accepts this one order with 0 minutes and drops the setting to 0 until the
// next configuration reading. When the answer is yes, TiempoEstimado and HoraAceptacion
// (now) are set in the record, ready for the acceptance to be sent.
std::optional<int> DecidirAceptacionAutomatica(ModuloPrincipal& m);
