#include "MensajesSimulados.h"

#include <array>

namespace simulador {

namespace {

std::string Texto(const nlohmann::json& cuerpo, const char* clave, const std::string& defecto) {
    if (!cuerpo.contains(clave) || cuerpo[clave].is_null()) {
        return defecto;
    }
    const auto& v = cuerpo[clave];
    return v.is_string() ? v.get<std::string>() : v.dump();
}

} // namespace

bool MensajesSimulados::Crear(const nlohmann::json& cuerpo, Mensaje& creado, std::string& error) {
    Mensaje m;
    m.Asunto = Texto(cuerpo, "asunto", "Consulta");
    m.Texto = Texto(cuerpo, "mensaje", "");
    m.NumPedido = Texto(cuerpo, "pedido", "");
    m.QuienEnvia = Texto(cuerpo, "quienenvia", "US");
    if (cuerpo.contains("tipo") && !cuerpo["tipo"].is_number_integer()) {
        error = "tipo debe ser un número entero";
        return false;
    }
    m.Tipo = cuerpo.value("tipo", 1);
    creado = guardar(std::move(m));
    return true;
}

MensajesSimulados::Mensaje MensajesSimulados::CrearDeMuestra(std::uint64_t semilla,
                                                             const std::string& numero) {
    struct Muestra {
        const char* asunto;
        const char* texto;
        int tipo;
        const char* quien;
        bool conPedido;
    };
    static constexpr std::array<Muestra, 4> muestras = {{
        {"Timbre", "El timbre no funciona, por favor llamad al móvil al llegar.", 1, "US", true},
        {"Cancelar pedido", "Me he equivocado de dirección, ¿podéis cancelarlo?", 2, "US", true},
        {"Horario de Navidad", "Recordad indicar vuestro horario del 24 y el 31 en el panel.", 1,
         "TV", false},
        {"Alérgenos", "¿La pizza de la casa lleva frutos secos?", 1, "RE", false},
    }};
    std::size_t i = semilla % muestras.size();
    if (muestras[i].tipo == 2 && numero.empty()) {
        i = (i + 1) % muestras.size(); // no accepted order to cancel yet
    }
    const Muestra& s = muestras[i];
    Mensaje m;
    m.Asunto = s.asunto;
    m.Texto = s.texto;
    m.Tipo = s.tipo;
    m.QuienEnvia = s.quien;
    m.NumPedido = s.conPedido ? numero : "";
    return guardar(std::move(m));
}

MensajesSimulados::Mensaje MensajesSimulados::guardar(Mensaje m) {
    std::lock_guard bloqueo(mutex_);
    m.Id = siguienteId_++;
    mensajes_.push_back(m);
    return m;
}

std::string MensajesSimulados::Cuerpo(const Mensaje& m) {
    const nlohmann::ordered_json cuerpo = {{"mensajeestablec", 1},
                                           {"id", m.Id},
                                           {"asunto", m.Asunto},
                                           {"mensaje", m.Texto},
                                           {"numeropedidoest", m.NumPedido},
                                           {"tipo", m.Tipo},
                                           {"quienenvia", m.QuienEnvia}};
    return cuerpo.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

nlohmann::json MensajesSimulados::AJson(const Mensaje& m) {
    nlohmann::json respuestas = nlohmann::json::array();
    for (const auto& r : m.Respuestas) {
        respuestas.push_back({{"mr", r.Mr}, {"consulta", r.Consulta}, {"ms", r.Ms}});
    }
    return {{"id", m.Id},
            {"asunto", m.Asunto},
            {"mensaje", m.Texto},
            {"pedido", m.NumPedido},
            {"tipo", m.Tipo},
            {"quienenvia", m.QuienEnvia},
            {"respuestas", respuestas}};
}

nlohmann::json MensajesSimulados::Lista() const {
    std::lock_guard bloqueo(mutex_);
    nlohmann::json lista = nlohmann::json::array();
    for (const auto& m : mensajes_) {
        lista.push_back(AJson(m));
    }
    return lista;
}

bool MensajesSimulados::Buscar(long id, Mensaje& copia) const {
    std::lock_guard bloqueo(mutex_);
    for (const auto& m : mensajes_) {
        if (m.Id == id) {
            copia = m;
            return true;
        }
    }
    return false;
}

bool MensajesSimulados::Atender(const std::string& ruta, const std::string& consulta, long long ms,
                                Respuesta& r) {
    if (ruta != RutaRespuesta) {
        return false;
    }
    r.Cuerpo = "OK";
    const auto im = Parametro(consulta, "im").value_or("");
    std::lock_guard bloqueo(mutex_);
    for (auto& m : mensajes_) {
        if (std::to_string(m.Id) == im) {
            m.Respuestas.push_back({TextoRespuestaMensaje(consulta), consulta, ms});
        }
    }
    return true;
}

std::string TextoRespuestaMensaje(const std::string& consulta) {
    const std::string marca = "&mr=";
    const auto inicio = consulta.find(marca);
    if (inicio == std::string::npos) {
        return {};
    }
    const auto desde = inicio + marca.size();
    auto fin = consulta.rfind("&p=");
    if (fin == std::string::npos || fin < desde) {
        fin = consulta.size();
    }
    return Decodificar(std::string_view(consulta).substr(desde, fin - desde));
}

} // namespace simulador
