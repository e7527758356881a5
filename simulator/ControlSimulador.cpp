#include "ControlSimulador.h"

#include "Respuestas.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace simulador {

namespace {

using json = nlohmann::ordered_json;

Respuesta Hecho() {
    return RespuestaJson(json{{"ok", true}});
}

json PedidoAJson(const ServicioSimulado::PedidoGuardado& guardado) {
    const auto& p = guardado.Pedido;
    json respuestas = json::array();
    for (const auto& r : guardado.Respuestas) {
        respuestas.push_back({{"ak", r.Ak}, {"m", r.M}, {"consulta", r.Consulta}, {"ms", r.Ms}});
    }
    const bool aceptado = p.Estado == "Aceptado";
    const bool rechazado = p.Estado == "Rechazado";
    return {{"numero", p.NumPedido},
            {"estado", p.Estado},
            {"minutos", aceptado ? p.TiempoOMotivo : ""},
            {"motivo", rechazado ? p.TiempoOMotivo : ""},
            {"formaEntrega", p.FormaEntrega},
            {"linea", LineaPedido(p)},
            {"respuestas", respuestas}};
}

Respuesta Configurar(ServicioSimulado& servicio, const json& cuerpo) {
    auto configuracion = servicio.ConfiguracionActual();
    if (cuerpo.contains("idEstablecimiento")) {
        configuracion.Id = ComoTexto(cuerpo["idEstablecimiento"]);
    }
    if (cuerpo.contains("passwordconfig")) {
        configuracion.Password = ComoTexto(cuerpo["passwordconfig"]);
    }
    if (cuerpo.contains("numconfig")) {
        configuracion.NumConfig = ComoTexto(cuerpo["numconfig"]);
    }
    if (cuerpo.contains("documentoTexto")) {
        if (!cuerpo["documentoTexto"].is_string()) {
            return RespuestaTexto(400, "documentoTexto debe ser texto");
        }
        configuracion.Documento = cuerpo["documentoTexto"].get<std::string>();
    } else if (cuerpo.contains("documento")) {
        configuracion.Documento = cuerpo["documento"].dump();
    }
    servicio.Configurar(configuracion);
    return Hecho();
}

Respuesta AnadirFallo(ServicioSimulado& servicio, const json& cuerpo) {
    ServicioSimulado::Fallo fallo;
    fallo.Tipo = cuerpo.value("tipo", "");
    if (!ServicioSimulado::TipoDeFalloValido(fallo.Tipo)) {
        return RespuestaTexto(400, "tipo de fallo desconocido: " + fallo.Tipo);
    }
    // A day is plenty for any hang, and keeps clock arithmetic in range.
    fallo.Segundos = std::clamp(cuerpo.value("segundos", 0.0), 0.0, 86400.0);
    fallo.Veces =
        cuerpo.contains("veces") && !cuerpo["veces"].is_null() ? cuerpo["veces"].get<int>() : -1;
    fallo.Ruta = cuerpo.contains("ruta") && cuerpo["ruta"].is_string()
                     ? cuerpo["ruta"].get<std::string>()
                     : "";
    servicio.AnadirFallo(fallo);
    return Hecho();
}

Respuesta GenerarPedidos(ServicioSimulado& servicio, const json& cuerpo) {
    ClasePedido clase = ClasePedido::Mezcla;
    if (!LeerClasePedido(cuerpo.value("clase", "mezcla"), clase)) {
        return RespuestaTexto(400, "clase de pedido desconocida");
    }
    const int cantidad = cuerpo.value("cantidad", 1);
    if (cantidad < 0 || cantidad > 10000) {
        return RespuestaTexto(400, "cantidad fuera de límites");
    }
    const auto nuevos = servicio.GenerarPedidos(cantidad, cuerpo.value("semilla", 1ULL), clase,
                                                cuerpo.value("productos", 0));
    json lista = json::array();
    for (const auto& p : nuevos) {
        lista.push_back(PedidoAJson(p));
    }
    return RespuestaJson(lista);
}

Respuesta Encolar(ServicioSimulado& servicio, const json& cuerpo) {
    if (!cuerpo.contains("ruta") || !cuerpo["ruta"].is_string() || !cuerpo.contains("cuerpos") ||
        !cuerpo["cuerpos"].is_array()) {
        return RespuestaTexto(400, "se esperan ruta y cuerpos");
    }
    servicio.Encolar(cuerpo["ruta"].get<std::string>(),
                     cuerpo["cuerpos"].get<std::vector<std::string>>());
    return Hecho();
}

} // namespace

Respuesta AtenderControl(ServicioSimulado& servicio, const Peticion& peticion) {
    std::string ruta;
    std::string consulta;
    PartirObjetivo(peticion.Objetivo, ruta, consulta);
    const std::string recurso = ruta.substr(kPrefijoControl.size());
    const std::string& metodo = peticion.Metodo;

    json cuerpo = json::object();
    if (metodo == "POST" || metodo == "PUT") {
        cuerpo = json::parse(peticion.Cuerpo, nullptr, false);
        if (!cuerpo.is_object()) {
            return RespuestaTexto(400, "el cuerpo debe ser un objeto JSON");
        }
    }
    try {
        if (auto r = AtenderControlImpresion(servicio, metodo, recurso, cuerpo)) {
            return *r;
        }
        if (recurso == "registro" && metodo == "GET") {
            json lista = json::array();
            for (const auto& e : servicio.Registro()) {
                json entrada = {{"n", e.N},
                                {"esquema", e.Esquema},
                                {"ruta", e.Ruta},
                                {"consulta", e.Consulta},
                                {"ms", e.Ms}};
                if (e.Reenvio) {
                    entrada["reenvio"] = true;
                }
                if (!e.Fallo.empty()) {
                    entrada["fallo"] = e.Fallo;
                }
                if (e.Pedido != 0) {
                    entrada["pedido"] = std::to_string(e.Pedido);
                }
                lista.push_back(entrada);
            }
            return RespuestaJson(lista);
        }
        if (recurso == "registro" && metodo == "DELETE") {
            servicio.LimpiarRegistro();
            return Hecho();
        }
        if (recurso == "respuestas" && metodo == "POST") {
            return Encolar(servicio, cuerpo);
        }
        if (recurso == "respuestas" && metodo == "DELETE") {
            servicio.VaciarColas();
            return Hecho();
        }
        if (recurso == "fallos" && metodo == "POST") {
            return AnadirFallo(servicio, cuerpo);
        }
        if (recurso == "azar") {
            return AtenderAzar(servicio.Azar(), metodo, cuerpo);
        }
        if (recurso == "fallos" && metodo == "DELETE") {
            servicio.QuitarFallos();
            return Hecho();
        }
        if (recurso == "configuracion" && metodo == "PUT") {
            return Configurar(servicio, cuerpo);
        }
        if (recurso == "configuracion" && metodo == "GET") {
            const auto c = servicio.ConfiguracionActual();
            return RespuestaJson({{"idEstablecimiento", c.Id},
                                  {"passwordconfig", c.Password},
                                  {"numconfig", c.NumConfig},
                                  {"documentoTexto", c.Documento}});
        }
        if (recurso == "actualizacion" && metodo == "PUT") {
            std::string error;
            return servicio.Actualizaciones().Configurar(cuerpo, error)
                       ? Hecho()
                       : RespuestaTexto(400, error);
        }
        if (recurso == "categorias" && metodo == "PUT") {
            json categorias;
            if (!LeerCategoriasDeControl(cuerpo, categorias)) {
                return RespuestaTexto(400, "se espera categorias: una lista");
            }
            servicio.PonerCategorias(std::move(categorias));
            return Hecho();
        }
        if (recurso == "carta" && metodo == "PUT") {
            return servicio.PonerCarta(cuerpo.value("documento", json()))
                       ? Hecho()
                       : RespuestaTexto(400, "la carta debe ser un objeto con \"categorias\"");
        }
        if (recurso == "mensajes" && metodo == "POST") {
            MensajesSimulados::Mensaje creado;
            std::string error;
            if (!servicio.Mensajes().Crear(cuerpo, creado, error)) {
                return RespuestaTexto(400, error);
            }
            // "ruta": the poll that carries it (a print-and-messages desk asks another one).
            servicio.Encolar(cuerpo.value("ruta", std::string("pedidosgprs/pedidosnuevos")),
                             {MensajesSimulados::Cuerpo(creado)});
            return RespuestaJson(MensajesSimulados::AJson(creado));
        }
        if (recurso == "mensajes" && metodo == "GET") {
            return RespuestaJson(servicio.Mensajes().Lista());
        }
        if (recurso == "pedidos" && metodo == "POST") {
            return GenerarPedidos(servicio, cuerpo);
        }
        if (recurso == "pedidos" && metodo == "GET") {
            json lista = json::array();
            for (const auto& p : servicio.Pedidos()) {
                lista.push_back(PedidoAJson(p));
            }
            return RespuestaJson(lista);
        }
    } catch (const json::exception& e) {
        // A value of the wrong type in the body.
        return RespuestaTexto(400, e.what());
    }
    return RespuestaTexto(404, "control desconocido: " + metodo + " " + ruta);
}

} // namespace simulador
