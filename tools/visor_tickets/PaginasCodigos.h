#pragma once

#include <QChar>
#include <QString>

// The code pages of the printer the viewer stands for, by the number that ESC t selects: the
// usual numbering of receipt printers, for the pages a Spanish ticket may be tried in (the
// printer test tries every number from 0 to 10, 16 to 32 and 50 to 96). A number that isn't
// here is one this printer doesn't know: the page stays what it was, as on paper.
inline constexpr int kCodigoPC858 = 19;

// Whether the printer knows code page `codigo`, and the name it goes by.
bool PaginaConocida(int codigo);
QString NombrePagina(int codigo);

// The character that byte `byte` prints in code page `codigo` (a known one); bytes below 0x80
// are ASCII in all of them, and a byte the page leaves undefined prints as itself.
QChar CaracterDe(unsigned char byte, int codigo);
