#pragma once

#include <QChar>

// The two code pages a ticket is read in: PC858 (also taken for PC437/PC850, which differ
// from it only in symbols a ticket doesn't carry) and Windows-1252.
enum class PaginaCodigos { PC858, Windows1252 };

QChar CaracterDe(unsigned char byte, PaginaCodigos pagina);
