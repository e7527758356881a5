// One request as the front read it off the wire, and what the front must do with it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace simulador {

struct Peticion {
    bool Https = false;   // a TLS handshake arrived instead of a request
    std::string Metodo;   // "GET", "POST", ...
    std::string Objetivo; // request target exactly as on the request line
    std::string Cuerpo;
};

struct Respuesta {
    enum class Accion { Responder, Cerrar, Colgar };
    Accion Que = Accion::Responder;
    int Estado = 200;
    std::string Tipo = "text/plain; charset=utf-8";
    std::string Cuerpo;
    double Segundos = 0; // Colgar: how long to hold the connection silent
    bool Falla = false;  // the answer comes from a fault
    // Bytes of the body sent before the connection is reset (a download cut half way),
    // after holding it silent for `Segundos`.
    std::size_t CortarTras = std::string::npos;
};

// Splits a target into path and raw query (what follows the first '?', untouched).
void PartirObjetivo(std::string_view objetivo, std::string& ruta, std::string& consulta);

// Value of the first parameter of that name in a raw query, decoded as a form value
// ("+" is a blank, "%XX" a byte). Bytes that are not UTF-8 are read as Windows-1252, which
// is how the desk writes its query values. Missing parameter: nullopt.
std::optional<std::string> Parametro(std::string_view consulta, std::string_view nombre);

// A query value decoded the same way.
std::string Decodificar(std::string_view valor);

// Every parameter of a raw query in order, name and value both still raw.
std::vector<std::pair<std::string, std::string>> Parametros(std::string_view consulta);

bool EsUtf8(std::string_view texto);
std::string Windows1252AUtf8(std::string_view bytes);

} // namespace simulador
