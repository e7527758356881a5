#include "PaginasCodigos.h"

#include <array>
#include <cerrno>
#include <iconv.h>
#include <map>

namespace {

using Altos = std::array<char16_t, 128>;

struct Pagina {
    const char* nombre; // as the printer's manual calls it
    const char* iconv;  // as the C library's converter does
};

const std::map<int, Pagina>& Paginas() {
    static const std::map<int, Pagina> paginas = {
        {0, {"PC437", "CP437"}},     {2, {"PC850", "CP850"}},     {3, {"PC860", "CP860"}},
        {4, {"PC863", "CP863"}},     {5, {"PC865", "CP865"}},     {13, {"PC857", "CP857"}},
        {14, {"PC737", "CP737"}},    {16, {"WPC1252", "CP1252"}}, {17, {"PC866", "CP866"}},
        {18, {"PC852", "CP852"}},    {19, {"PC858", "CP858"}},    {50, {"WPC1256", "CP1256"}},
        {51, {"WPC1257", "CP1257"}}, {52, {"WPC1258", "CP1258"}},
    };
    return paginas;
}

// Bytes 0x80..0xFF of one page through the C library's converter, one byte at a time, so a
// byte the page leaves undefined costs only itself.
Altos Tabla(const char* nombre) {
    Altos altos{};
    iconv_t cd = iconv_open("UTF-16LE", nombre);
    for (int b = 0x80; b <= 0xFF; ++b) {
        altos[static_cast<size_t>(b - 0x80)] = static_cast<char16_t>(b);
        if (cd == reinterpret_cast<iconv_t>(-1)) {
            continue;
        }
        char entrada = static_cast<char>(b);
        char salida[8] = {};
        char* pe = &entrada;
        char* ps = salida;
        size_t quedan = 1;
        size_t libres = sizeof salida;
        iconv(cd, nullptr, nullptr, nullptr, nullptr);
        if (iconv(cd, &pe, &quedan, &ps, &libres) != static_cast<size_t>(-1) &&
            sizeof salida - libres == 2) {
            altos[static_cast<size_t>(b - 0x80)] =
                static_cast<char16_t>(static_cast<unsigned char>(salida[0]) |
                                      (static_cast<unsigned char>(salida[1]) << 8));
        }
    }
    if (cd != reinterpret_cast<iconv_t>(-1)) {
        iconv_close(cd);
    }
    return altos;
}

const Altos& TablaDe(int codigo) {
    static const std::map<int, Altos> tablas = [] {
        std::map<int, Altos> t;
        for (const auto& [n, pagina] : Paginas()) {
            t.emplace(n, Tabla(pagina.iconv));
        }
        return t;
    }();
    const auto it = tablas.find(codigo);
    return it != tablas.end() ? it->second : tablas.at(kCodigoPC858);
}

} // namespace

bool PaginaConocida(int codigo) {
    return Paginas().count(codigo) != 0;
}

QString NombrePagina(int codigo) {
    const auto it = Paginas().find(codigo);
    return it != Paginas().end() ? QString::fromLatin1(it->second.nombre)
                                 : QStringLiteral("desconocida");
}

QChar CaracterDe(unsigned char byte, int codigo) {
    if (byte < 0x80) {
        return QChar(static_cast<char16_t>(byte));
    }
    return QChar(TablaDe(codigo)[byte - 0x80]);
}
