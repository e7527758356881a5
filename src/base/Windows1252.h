#pragma once

#include <QByteArray>
#include <QChar>
#include <QString>

// The desk's "ANSI code page": Windows-1252 in both directions. Bytes 0x81, 0x8D, 0x8F,
// 0x90 and 0x9D, undefined in that page, map to the code points of the same value so that
// every byte has exactly one character and back.
namespace cp1252 {

// One character per byte.
QString aTexto(const QByteArray& bytes);
QString aTexto(const char* datos, qsizetype n);

// One byte per character; a character outside the page becomes '?'.
QByteArray aBytes(const QString& texto);

// asc(x): the code of a character in the page ('?' = 63 when it has none).
int asc(QChar c);

// chr(n): the character of code n (0..255) in the page.
QChar chr(int n);

} // namespace cp1252
