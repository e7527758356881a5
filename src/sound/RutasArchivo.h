#pragma once

#include <QString>

// File checks the melody choice relies on, with the classic attribute rules.
namespace rutas {

// Attribute bits of the classic file system.
constexpr int SoloLectura = 1;
constexpr int Oculto = 2;
constexpr int Directorio = 16;
constexpr int Archivo = 32;

// The attributes of a path, or -1 when they cannot be read (nothing there, broken link).
// A regular file carries Archivo; a folder Directorio; a name that starts with "." is
// Oculto; a path the user cannot write is SoloLectura.
int Atributos(const QString& ruta);

// True when the path has some attribute other than Directorio: so a plain folder counts
// as absent, while a hidden or read-only folder counts as present.
bool ExisteArchivo(const QString& ruta);

// The form of the path that can go into a command without quoting. There is no shorter
// form here: the path itself when it exists, the empty text when it does not.
QString RutaCorta(const QString& ruta);

} // namespace rutas
