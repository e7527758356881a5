#pragma once

#include <QString>

class QWidget;

// Writes what a window shows, one control a line: name, text, visible (1/0), enabled
// (1/0), background as #rrggbb, separated by tabs. A desk started with --volcado=FILE
// keeps such a file current, so that a test driving the real program (or a person on a
// machine without a screen) can read the window.
void VolcarVentana(const QWidget* ventana, const QString& fichero);
