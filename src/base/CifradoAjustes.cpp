#include "base/CifradoAjustes.h"

#include "base/ErrorEjecucion.h"
#include "base/Windows1252.h"

#include <array>
#include <utility>

namespace {

constexpr int kDivisionPorCero = 11;

int Mezclar(int k, int c) {
    return k == c ? c : (k ^ c);
}

int valorHex(QChar c) {
    const char16_t u = c.unicode();
    if (u >= u'0' && u <= u'9') {
        return u - u'0';
    }
    if (u >= u'A' && u <= u'F') {
        return u - u'A' + 10;
    }
    if (u >= u'a' && u <= u'f') {
        return u - u'a' + 10;
    }
    return -1;
}

} // namespace

QString TransformarRC4(const QString& texto, const QString& clave) {
    if (clave.isEmpty()) {
        throw ErrorEjecucion(kDivisionPorCero);
    }
    std::array<int, 256> s{};
    std::array<int, 256> k{};
    for (int i = 0; i < 256; ++i) {
        s[static_cast<size_t>(i)] = i;
        k[static_cast<size_t>(i)] = cp1252::asc(clave[i % clave.size()]);
    }
    int j = 0;
    for (size_t i = 0; i < 256; ++i) {
        j = (j + s[i] + k[i]) % 256;
        std::swap(s[i], s[static_cast<size_t>(j)]);
    }
    QString r;
    r.reserve(texto.size());
    size_t i = 0;
    j = 0;
    for (QChar ch : texto) {
        i = (i + 1) % 256;
        j = (j + s[i]) % 256;
        std::swap(s[i], s[static_cast<size_t>(j)]);
        const int flujo = s[static_cast<size_t>((s[i] + s[static_cast<size_t>(j)]) % 256)];
        r.append(cp1252::chr(Mezclar(flujo, cp1252::asc(ch))));
    }
    return r;
}

QString CifrarAjuste(const QString& texto, const QString& clave) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    const QString cifrado = TransformarRC4(texto, clave);
    QString r;
    r.reserve(cifrado.size() * 2);
    for (QChar c : cifrado) {
        const int codigo = cp1252::asc(c);
        r.append(QLatin1Char(kHex[codigo >> 4]));
        r.append(QLatin1Char(kHex[codigo & 15]));
    }
    return r;
}

QString DescifrarAjuste(const QString& texto, const QString& clave) {
    if (texto.isEmpty()) {
        return QString();
    }
    QString bytes;
    bytes.reserve(texto.size() / 2 + 1);
    for (qsizetype p = 0; p < texto.size(); p += 2) {
        const int alto = valorHex(texto[p]);
        const int bajo = p + 1 < texto.size() ? valorHex(texto[p + 1]) : 0;
        if (alto < 0 || bajo < 0) {
            throw ErrorEjecucion(ErrorEjecucion::NoCoincidenLosTipos);
        }
        bytes.append(cp1252::chr(p + 1 < texto.size() ? alto * 16 + bajo : alto));
    }
    return TransformarRC4(bytes, clave);
}
