#include "base/Windows1252.h"

#include <array>

namespace cp1252 {
namespace {

// Code points of bytes 0x80..0x9F.
constexpr std::array<char16_t, 32> kAltos = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

QChar chr(int n) {
    n &= 0xFF;
    if (n >= 0x80 && n <= 0x9F) {
        return QChar(kAltos[static_cast<size_t>(n - 0x80)]);
    }
    return QChar(static_cast<char16_t>(n));
}

int asc(QChar c) {
    const char16_t u = c.unicode();
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF)) {
        return u;
    }
    for (size_t i = 0; i < kAltos.size(); ++i) {
        if (kAltos[i] == u) {
            return static_cast<int>(0x80 + i);
        }
    }
    return '?';
}

QString aTexto(const char* datos, qsizetype n) {
    QString r(n, Qt::Uninitialized);
    QChar* d = r.data();
    for (qsizetype i = 0; i < n; ++i) {
        const auto b = static_cast<unsigned char>(datos[i]);
        d[i] = b < 0x80 ? QChar(static_cast<char16_t>(b)) : chr(b);
    }
    return r;
}

QString aTexto(const QByteArray& bytes) {
    return aTexto(bytes.constData(), bytes.size());
}

QByteArray aBytes(const QString& texto) {
    QByteArray r(texto.size(), Qt::Uninitialized);
    char* d = r.data();
    const QChar* s = texto.constData();
    for (qsizetype i = 0; i < texto.size(); ++i) {
        const char16_t u = s[i].unicode();
        d[i] = static_cast<char>(u < 0x80 ? u : asc(s[i]));
    }
    return r;
}

} // namespace cp1252
