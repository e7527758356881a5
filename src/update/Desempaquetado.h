#pragma once

#include <QString>

// Unpacks every entry of a zip archive into `carpeta` (made when missing). An entry whose
// name would land outside the folder (an absolute path, a ".." step) refuses the whole
// archive before anything is written; entries stored with the run bit keep it. Returns the
// empty text on success, otherwise what went wrong.
QString Desempaquetar(const QString& archivo, const QString& carpeta);
