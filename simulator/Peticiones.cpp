#include "Peticiones.h"

#include <array>

namespace simulador {

void PartirObjetivo(std::string_view objetivo, std::string& ruta, std::string& consulta) {
    const auto pregunta = objetivo.find('?');
    if (pregunta == std::string_view::npos) {
        ruta = objetivo;
        consulta.clear();
    } else {
        ruta = objetivo.substr(0, pregunta);
        consulta = objetivo.substr(pregunta + 1);
    }
}

namespace {

int ValorHex(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    return -1;
}

} // namespace

std::string Decodificar(std::string_view valor) {
    std::string bytes;
    for (std::size_t i = 0; i < valor.size(); ++i) {
        const char c = valor[i];
        if (c == '+') {
            bytes += ' ';
        } else if (c == '%' && i + 2 < valor.size() && ValorHex(valor[i + 1]) >= 0 &&
                   ValorHex(valor[i + 2]) >= 0) {
            bytes += static_cast<char>(ValorHex(valor[i + 1]) * 16 + ValorHex(valor[i + 2]));
            i += 2;
        } else {
            bytes += c;
        }
    }
    return EsUtf8(bytes) ? bytes : Windows1252AUtf8(bytes);
}

std::vector<std::pair<std::string, std::string>> Parametros(std::string_view consulta) {
    std::vector<std::pair<std::string, std::string>> lista;
    std::size_t inicio = 0;
    while (inicio < consulta.size()) {
        auto fin = consulta.find('&', inicio);
        if (fin == std::string_view::npos) {
            fin = consulta.size();
        }
        const auto par = consulta.substr(inicio, fin - inicio);
        const auto igual = par.find('=');
        if (!par.empty()) {
            lista.emplace_back(std::string(par.substr(0, igual)),
                               igual == std::string_view::npos
                                   ? std::string()
                                   : std::string(par.substr(igual + 1)));
        }
        inicio = fin + 1;
    }
    return lista;
}

std::optional<std::string> Parametro(std::string_view consulta, std::string_view nombre) {
    std::size_t inicio = 0;
    while (inicio <= consulta.size()) {
        auto fin = consulta.find('&', inicio);
        if (fin == std::string_view::npos) {
            fin = consulta.size();
        }
        const auto par = consulta.substr(inicio, fin - inicio);
        const auto igual = par.find('=');
        const auto clave = par.substr(0, igual);
        if (clave == nombre) {
            return igual == std::string_view::npos ? std::string()
                                                   : Decodificar(par.substr(igual + 1));
        }
        inicio = fin + 1;
    }
    return std::nullopt;
}

bool EsUtf8(std::string_view texto) {
    std::size_t i = 0;
    while (i < texto.size()) {
        const auto c = static_cast<unsigned char>(texto[i]);
        int siguen = 0;
        unsigned minimo = 0;
        unsigned punto = 0;
        if (c < 0x80) {
            ++i;
            continue;
        } else if (c >= 0xC2 && c <= 0xDF) {
            siguen = 1;
            minimo = 0x80;
            punto = c & 0x1F;
        } else if (c >= 0xE0 && c <= 0xEF) {
            siguen = 2;
            minimo = 0x800;
            punto = c & 0x0F;
        } else if (c >= 0xF0 && c <= 0xF4) {
            siguen = 3;
            minimo = 0x10000;
            punto = c & 0x07;
        } else {
            return false;
        }
        if (i + siguen >= texto.size()) {
            return false;
        }
        for (int k = 1; k <= siguen; ++k) {
            const auto d = static_cast<unsigned char>(texto[i + k]);
            if ((d & 0xC0) != 0x80) {
                return false;
            }
            punto = (punto << 6) | (d & 0x3F);
        }
        if (punto < minimo || punto > 0x10FFFF || (punto >= 0xD800 && punto <= 0xDFFF)) {
            return false;
        }
        i += siguen + 1;
    }
    return true;
}

std::string Windows1252AUtf8(std::string_view bytes) {
    // 0x80-0x9F of Windows-1252; the five unassigned bytes keep their own code point.
    static constexpr std::array<char16_t, 32> tabla = {
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    std::string salida;
    for (const char b : bytes) {
        const auto c = static_cast<unsigned char>(b);
        const unsigned punto = (c >= 0x80 && c <= 0x9F) ? tabla[c - 0x80] : c;
        if (punto < 0x80) {
            salida += static_cast<char>(punto);
        } else if (punto < 0x800) {
            salida += static_cast<char>(0xC0 | (punto >> 6));
            salida += static_cast<char>(0x80 | (punto & 0x3F));
        } else {
            salida += static_cast<char>(0xE0 | (punto >> 12));
            salida += static_cast<char>(0x80 | ((punto >> 6) & 0x3F));
            salida += static_cast<char>(0x80 | (punto & 0x3F));
        }
    }
    return salida;
}

} // namespace simulador
