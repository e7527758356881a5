#include "Actualizaciones.h"

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

namespace simulador {

bool ActualizacionesSimuladas::Atender(const std::string& ruta, Respuesta& r) {
    std::lock_guard bloqueo(mutex_);
    if (ruta == RutaVersion) {
        r.Cuerpo = version_;
        return true;
    }
    if (ruta == RutaDescriptor) {
        r.Cuerpo = descriptor_;
        return true;
    }
    if (!ruta.starts_with(PrefijoDescargas)) {
        return false;
    }
    const auto f = ficheros_.find(ruta.substr(std::string_view(PrefijoDescargas).size()));
    if (f == ficheros_.end()) {
        r.Estado = 404;
        r.Cuerpo = "no existe";
        return true;
    }
    r.Tipo = "application/octet-stream";
    r.Cuerpo = f->second;
    if (cortes_ > 0) {
        --cortes_;
        r.CortarTras = static_cast<std::size_t>(static_cast<double>(r.Cuerpo.size()) * fraccion_);
        r.Segundos = pausa_;
    }
    return true;
}

bool ActualizacionesSimuladas::Configurar(const nlohmann::json& cuerpo, std::string& error) {
    if (cuerpo.contains("ficheros")) {
        for (const auto& [nombre, ruta] : cuerpo["ficheros"].items()) {
            std::ifstream f(ruta.get<std::string>(), std::ios::binary);
            if (!f) {
                error = "no se puede leer " + ruta.get<std::string>();
                return false;
            }
            std::ostringstream contenido;
            contenido << f.rdbuf();
            PonerFichero(nombre, contenido.str());
        }
    }
    if (cuerpo.contains("version")) {
        PonerVersion(cuerpo["version"].get<std::string>());
    }
    if (cuerpo.contains("descriptor")) {
        PonerDescriptor(cuerpo["descriptor"].get<std::string>());
    }
    if (cuerpo.contains("cortar")) {
        const auto& c = cuerpo["cortar"];
        CortarDescargas(c.value("fraccion", 0.5), c.value("veces", 1), c.value("segundos", 0.0));
    }
    return true;
}

void ActualizacionesSimuladas::PonerVersion(std::string version) {
    std::lock_guard bloqueo(mutex_);
    version_ = std::move(version);
}

void ActualizacionesSimuladas::PonerDescriptor(std::string descriptor) {
    std::lock_guard bloqueo(mutex_);
    descriptor_ = std::move(descriptor);
}

void ActualizacionesSimuladas::PonerFichero(const std::string& nombre, std::string contenido) {
    std::lock_guard bloqueo(mutex_);
    ficheros_[nombre] = std::move(contenido);
}

void ActualizacionesSimuladas::CortarDescargas(double fraccion, int veces, double segundos) {
    std::lock_guard bloqueo(mutex_);
    pausa_ = std::clamp(segundos, 0.0, 3600.0);
    fraccion_ = std::clamp(fraccion, 0.0, 1.0);
    cortes_ = std::max(veces, 0);
}

} // namespace simulador
