// The update side of the stand-in service: the newest version, the update descriptor, and
// the files a descriptor points at (served below "descargas/"), with a fault that cuts a
// download part way through. Thread-safe on its own.
#pragma once

#include "Peticiones.h"

#include <map>
#include <mutex>
#include <nlohmann/json_fwd.hpp>
#include <string>

namespace simulador {

class ActualizacionesSimuladas {
public:
    static constexpr const char* RutaVersion = "pedidosgprs/obtenerUltimaVersionVB";
    static constexpr const char* RutaDescriptor = "pedidosGPRS/obtenerDatosActualizacionVB";
    static constexpr const char* PrefijoDescargas = "descargas/";

    // True when `ruta` is one of its paths; then `r` holds the answer.
    bool Atender(const std::string& ruta, Respuesta& r);

    // The control request: {"version", "descriptor", "ficheros": {name: path of a local file
    // to serve}, "cortar": {"fraccion", "veces", "segundos"}}; absent keys keep what was set.
    bool Configurar(const nlohmann::json& cuerpo, std::string& error);

    void PonerVersion(std::string version);
    void PonerDescriptor(std::string descriptor);
    void PonerFichero(const std::string& nombre, std::string contenido);
    // The next `veces` downloads send only `fraccion` of their body (the full length still
    // announced), stay silent for `segundos`, and then reset the connection.
    void CortarDescargas(double fraccion, int veces, double segundos = 0);

private:
    std::mutex mutex_;
    std::string version_ = "1.6.2";
    std::string descriptor_;
    std::map<std::string, std::string> ficheros_;
    double fraccion_ = 1.0;
    int cortes_ = 0;
    double pausa_ = 0;
};

} // namespace simulador
