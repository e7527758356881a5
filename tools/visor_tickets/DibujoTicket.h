#pragma once

#include "InterpreteEscPos.h"

#include <QImage>
#include <QString>

// The ticket on white paper, `columnas` characters wide, large print drawn large and each cut
// as a dashed line with scissors.
QImage DibujarTicket(const TicketLeido& ticket, int columnas);

// The same for a terminal: double-width letters spaced out, a double-height row followed by
// an empty one, the paper's edges drawn.
QString TextoTicket(const TicketLeido& ticket, int columnas);
