// The pieces every part of the stand-in service answers with: bodies, the service's way of
// writing a moment, and the trimming of a field.
#pragma once

#include "Peticiones.h"

#include <chrono>
#include <nlohmann/json.hpp>
#include <string>

namespace simulador {

// A JSON body. Bytes that are not UTF-8 (a raw query can hold anything) become U+FFFD rather
// than failing the whole answer.
Respuesta RespuestaJson(const nlohmann::ordered_json& valor, int estado = 200);
// A plain-text body with its status.
Respuesta RespuestaTexto(int estado, std::string cuerpo);
// Spanish date and time as the service writes it, in local time: "22/11/2026 9:05:07".
std::string FechaHoraServicio(std::chrono::system_clock::time_point momento);
// The text without the spaces and tabs at either end.
std::string Recortar(const std::string& texto);
// Ids and passwords may come as JSON numbers or texts; the service compares texts.
std::string ComoTexto(const nlohmann::ordered_json& valor);

} // namespace simulador
