#pragma once

#include <QList>
#include <QPair>
#include <QString>

// The character tables of raw ticket printing. Every text byte goes out through
// Windows-1252, so ConvertirPC858 works by putting the character whose Windows-1252 byte
// is the PC858 code.
using TablaReemplazos = QList<QPair<QString, QString>>;

// For each pair in table order, every occurrence of the first text becomes the second
// (case-sensitive). A replacement's result is never replaced again by the same pair.
QString ReemplazarLista(const QString& texto, const TablaReemplazos& tabla);

// Accented and special characters to the bytes of code page PC858.
QString ConvertirPC858(const QString& texto);

// Accented and special characters to plain ones; "€", "º" and "°" fall away.
QString QuitarCaracEsp(const QString& texto);

const TablaReemplazos& TablaPC858();
const TablaReemplazos& TablaCaracEsp();
