// Faults at random, for soaks: each request to the service (never an https attempt, never a
// client's resend) fails with a given proportion, its kind drawn evenly from a list. A fixed
// fault that matches still comes first. Counts the requests by path and the faults by kind
// from the setting on (a proportion of 0 just counts), so a soak can follow and report.
// Thread-safe on its own.
#pragma once

#include "Peticiones.h"

#include <cstdint>
#include <map>
#include <mutex>
#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <vector>

namespace simulador {

class FallosAlAzar {
public:
    // {"proporcion" 0..1, "tipos":[...] (default: every kind), "segundos", "semilla", "ruta"}.
    // False with `error` for a body it cannot take; the previous setting then stays.
    bool Configurar(const nlohmann::json& cuerpo, std::string& error);
    void Parar();

    // One draw for a request to `ruta`: true with the kind and its seconds when it fails.
    bool Sortear(const std::string& ruta, std::string& tipo, double& segundos);

    // {"proporcion","peticiones","porRuta":{path: n},"fallos":{kind: n}} since the setting.
    nlohmann::ordered_json Estado() const;

    // The reply `cuerpo` would have been, cut in its middle: the length of the whole body is
    // announced, half of it sent, then the connection is reset.
    static Respuesta Cortada(const std::string& cuerpo);
    // An order line to cut when nothing is queued on the path.
    static const std::string& LineaDeMuestra();

private:
    mutable std::mutex mutex_;
    bool activo_ = false;
    double proporcion_ = 0;
    double segundos_ = 0;
    std::vector<std::string> tipos_;
    std::string ruta_;
    std::mt19937_64 motor_{1};
    long peticiones_ = 0;
    std::map<std::string, long> porRuta_;
    std::map<std::string, long> fallos_;
};

// The control resource "azar": PUT sets, GET reads the counts, DELETE stops (counts stay).
Respuesta AtenderAzar(FallosAlAzar& azar, const std::string& metodo,
                      const nlohmann::ordered_json& cuerpo);

} // namespace simulador
