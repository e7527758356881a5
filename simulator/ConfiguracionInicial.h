// The establishment that the stand-in serves when nobody configures another: the demo's
// restaurant, with every configuration key and four printers (a driver customer printer,
// a raw customer printer and two raw kitchen printers routed by category).
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace simulador {

struct DestinosImpresoras {
    std::string CarpetaEp;       // raw printers write cliente.bin, cocina1.bin, cocina2.bin here
    std::vector<int> PuertosTcp; // or to 127.0.0.1:<port>, in that order
};

nlohmann::ordered_json DocumentoPorDefecto(const DestinosImpresoras& destinos);

// A printer element with every key, as a new printer gets it.
nlohmann::ordered_json ImpresoraNueva(int numero);

} // namespace simulador
