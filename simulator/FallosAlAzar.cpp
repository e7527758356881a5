#include "FallosAlAzar.h"

#include "GeneradorPedidos.h"
#include "Respuestas.h"
#include "ServicioSimulado.h"

#include <algorithm>

namespace simulador {

namespace {

constexpr const char* kTodos[] = {"rechazar",  "colgar",    "error",   "vacio",  "basura",
                                  "status500", "titulo502", "http500", "cortado"};

} // namespace

bool FallosAlAzar::Configurar(const nlohmann::json& cuerpo, std::string& error) {
    const double proporcion = cuerpo.value("proporcion", 0.0);
    if (!(proporcion >= 0.0 && proporcion <= 1.0)) {
        error = "proporcion entre 0 y 1";
        return false;
    }
    std::vector<std::string> tipos(std::begin(kTodos), std::end(kTodos));
    if (cuerpo.contains("tipos")) {
        if (!cuerpo["tipos"].is_array() || cuerpo["tipos"].empty()) {
            error = "tipos: una lista no vacía";
            return false;
        }
        tipos.clear();
        for (const auto& t : cuerpo["tipos"]) {
            if (!t.is_string() || !ServicioSimulado::TipoDeFalloValido(t.get<std::string>())) {
                error = "tipo de fallo desconocido: " + t.dump();
                return false;
            }
            tipos.push_back(t.get<std::string>());
        }
    }
    std::lock_guard bloqueo(mutex_);
    activo_ = true;
    proporcion_ = proporcion;
    tipos_ = std::move(tipos);
    // A day is plenty for any hang, and keeps clock arithmetic in range.
    segundos_ = std::clamp(cuerpo.value("segundos", 0.0), 0.0, 86400.0);
    ruta_ = cuerpo.contains("ruta") && cuerpo["ruta"].is_string()
                ? cuerpo["ruta"].get<std::string>()
                : "";
    motor_.seed(cuerpo.value("semilla", std::uint64_t{1}));
    peticiones_ = 0;
    porRuta_.clear();
    fallos_.clear();
    return true;
}

void FallosAlAzar::Parar() {
    std::lock_guard bloqueo(mutex_);
    activo_ = false;
}

bool FallosAlAzar::Sortear(const std::string& ruta, std::string& tipo, double& segundos) {
    std::lock_guard bloqueo(mutex_);
    if (!activo_ || (!ruta_.empty() && ruta_ != ruta)) {
        return false;
    }
    ++peticiones_;
    ++porRuta_[ruta];
    if (proporcion_ <= 0 ||
        std::uniform_real_distribution<double>(0.0, 1.0)(motor_) >= proporcion_) {
        return false;
    }
    tipo = tipos_[std::uniform_int_distribution<std::size_t>(0, tipos_.size() - 1)(motor_)];
    segundos = segundos_;
    ++fallos_[tipo];
    return true;
}

nlohmann::ordered_json FallosAlAzar::Estado() const {
    std::lock_guard bloqueo(mutex_);
    nlohmann::ordered_json rutas = nlohmann::ordered_json::object();
    for (const auto& [ruta, n] : porRuta_) {
        rutas[ruta] = n;
    }
    nlohmann::ordered_json fallos = nlohmann::ordered_json::object();
    for (const auto& [tipo, n] : fallos_) {
        fallos[tipo] = n;
    }
    return {{"activo", activo_},
            {"proporcion", proporcion_},
            {"peticiones", peticiones_},
            {"porRuta", rutas},
            {"fallos", fallos}};
}

Respuesta FallosAlAzar::Cortada(const std::string& cuerpo) {
    Respuesta r;
    r.Falla = true;
    r.Cuerpo = cuerpo;
    r.CortarTras = cuerpo.size() / 2;
    return r;
}

const std::string& FallosAlAzar::LineaDeMuestra() {
    static const std::string linea = LineaPedido(GenerarPedido(99, ClasePedido::Domicilio, 3));
    return linea;
}

Respuesta AtenderAzar(FallosAlAzar& azar, const std::string& metodo,
                      const nlohmann::ordered_json& cuerpo) {
    if (metodo == "PUT") {
        std::string error;
        if (!azar.Configurar(nlohmann::json::parse(cuerpo.dump()), error)) {
            Respuesta r;
            r.Estado = 400;
            r.Cuerpo = error;
            return r;
        }
        return RespuestaJson(azar.Estado());
    }
    if (metodo == "DELETE") {
        azar.Parar();
        return RespuestaJson(azar.Estado());
    }
    if (metodo == "GET") {
        return RespuestaJson(azar.Estado());
    }
    return RespuestaJson({{"error", "método no admitido"}}, 405);
}

} // namespace simulador
