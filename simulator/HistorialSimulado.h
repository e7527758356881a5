// The history and the sales totals of the orders the service has answered: what
// `pedidosgprs/obtenerPedidos` lists and `pedidosgprs/obtenerTotales` sums. Everything the
// stand-in service answered belongs to today's one session, which started with the service.
#pragma once

#include "GeneradorPedidos.h"

#include <string>
#include <string_view>
#include <vector>

namespace simulador {

struct DiaHistorial {
    std::string Fecha;        // "23/11/2026": today, as the service shows it
    std::string Ayer;         // "22/11/2026"
    std::string InicioSesion; // "23/11/2026 9:00:00": when the service started
};

// `respondidos`: the answered orders, oldest answer first. Rows are "number - time -
// customer - delivery - amount - state", newest first, joined by "#".
std::string RespuestaObtenerPedidos(const std::vector<PedidoGenerado>& respondidos,
                                    std::string_view consulta, const DiaHistorial& dia);

// The accepted orders' counts and sums, split by payment and delivery, and the period.
std::string RespuestaObtenerTotales(const std::vector<PedidoGenerado>& respondidos,
                                    std::string_view consulta, const DiaHistorial& dia);

} // namespace simulador
