#pragma once

#include <QString>
#include <QStringList>

// Cuts `texto` into lines for a list column of `ancho` characters, breaking after the last
// blank of each full-width piece. The cut has its classic quirks, which the product list
// shows as they are: a text of one character or none gives no line at all; when a cut
// ends exactly one character before the end, that last character is dropped.
// A word wider than the column with no earlier cut to fall back on would never advance:
// that is a run-time error (ErrorEjecucion) instead of a loop without end.
QStringList PartirEnLineas(const QString& texto, int ancho);
