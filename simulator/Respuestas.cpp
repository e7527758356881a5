#include "Respuestas.h"

#include <cstdio>
#include <ctime>

namespace simulador {

Respuesta RespuestaJson(const nlohmann::ordered_json& valor, int estado) {
    Respuesta r;
    r.Estado = estado;
    r.Tipo = "application/json; charset=utf-8";
    r.Cuerpo = valor.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
    return r;
}

Respuesta RespuestaTexto(int estado, std::string cuerpo) {
    Respuesta r;
    r.Estado = estado;
    r.Cuerpo = std::move(cuerpo);
    return r;
}

std::string FechaHoraServicio(std::chrono::system_clock::time_point momento) {
    const std::time_t t = std::chrono::system_clock::to_time_t(momento);
    std::tm local{};
    localtime_r(&t, &local);
    char texto[64];
    std::snprintf(texto, sizeof texto, "%02d/%02d/%04d %d:%02d:%02d", local.tm_mday,
                  local.tm_mon + 1, local.tm_year + 1900, local.tm_hour, local.tm_min,
                  local.tm_sec);
    return texto;
}

std::string Recortar(const std::string& texto) {
    const auto inicio = texto.find_first_not_of(" \t");
    if (inicio == std::string::npos) {
        return {};
    }
    return texto.substr(inicio, texto.find_last_not_of(" \t") - inicio + 1);
}

std::string ComoTexto(const nlohmann::ordered_json& valor) {
    return valor.is_string() ? valor.get<std::string>() : valor.dump();
}

} // namespace simulador
