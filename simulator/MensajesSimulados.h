// The messages of the stand-in service: a customer's ("US", "RE") or the operator's ("TV"),
// plain (tipo 1) or asking to cancel an order (tipo 2), about an order or none. Each one goes
// out on the next poll as a JSON object; the desk's answers (respuestamensajes) are kept with
// the message they answer. Thread-safe on its own.
#pragma once

#include "Peticiones.h"

#include <cstdint>
#include <mutex>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace simulador {

class MensajesSimulados {
public:
    static constexpr const char* RutaRespuesta = "pedidosgprs/respuestamensajes";

    struct RespuestaMensaje {
        std::string Mr;       // the answer as the service reads it ("" for "Visto")
        std::string Consulta; // the query as it came
        long long Ms = 0;
    };
    struct Mensaje {
        long Id = 0;
        std::string Asunto;
        std::string Texto;
        std::string NumPedido; // "" when about no order
        int Tipo = 1;          // 2: cancel the order
        std::string QuienEnvia = "US";
        std::vector<RespuestaMensaje> Respuestas;
    };

    // A message from a control body {"asunto","mensaje","pedido","tipo","quienenvia"}
    // (absent keys take a customer's plain message about no order); false with `error` for a
    // body it cannot take.
    bool Crear(const nlohmann::json& cuerpo, Mensaje& creado, std::string& error);
    // One of a few usual messages, for the demo: about order `numero` ("" for none).
    Mensaje CrearDeMuestra(std::uint64_t semilla, const std::string& numero);

    // The poll's reply that carries the message.
    static std::string Cuerpo(const Mensaje& m);
    static nlohmann::json AJson(const Mensaje& m);
    nlohmann::json Lista() const;
    // A copy of message `id` with its answers; false when there is none.
    bool Buscar(long id, Mensaje& copia) const;

    // True when `ruta` is the answer's path; then `r` holds the reply ("OK").
    bool Atender(const std::string& ruta, const std::string& consulta, long long ms, Respuesta& r);

private:
    Mensaje guardar(Mensaje m);

    mutable std::mutex mutex_;
    std::vector<Mensaje> mensajes_;
    long siguienteId_ = 501;
};

// The answer text in a query: between "&mr=" and the last "&p=", so that an answer holding
// "&" or "=" is read whole; decoded like any value.
std::string TextoRespuestaMensaje(const std::string& consulta);

} // namespace simulador
