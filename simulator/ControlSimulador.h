// The control interface under /__control/: tests and the demo read the record and set
// replies, faults, configuration and orders. JSON in and out.
#pragma once

#include "Peticiones.h"
#include "ServicioSimulado.h"

namespace simulador {

inline constexpr std::string_view kPrefijoControl = "/__control/";

Respuesta AtenderControl(ServicioSimulado& servicio, const Peticion& peticion);

} // namespace simulador
