#pragma once

#include <QString>
#include <ostream>

// GoogleTest shows a QString that differs as its text (UTF-8), not as raw code units.
inline void PrintTo(const QString& texto, std::ostream* salida) {
    *salida << '"' << texto.toUtf8().toStdString() << '"';
}
