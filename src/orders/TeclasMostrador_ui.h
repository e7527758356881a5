#pragma once

#include <QList>
#include <QString>
#include <functional>

class QAbstractButton;
class QWidget;

// Keys at the counter, for hands that are busy or greasy. Enter presses the button that has
// the focus, or else the window's button named `principal`; Escape presses the one named
// `escape`. A name matches the first visible, enabled button of the window with that
// object name; an empty name leaves the key alone. Each time the window comes up the focus
// starts on the control named `inicial` (by default `principal`; with neither, on no button).
void TeclasMostrador(QWidget* ventana, const QString& principal, const QString& escape,
                     const QString& inicial = QString());

// Digits typed on the window make one of `valores` (a digit that leads to none of them, or a
// pause of two seconds, starts another number); when `boton` has a button for the number
// typed, that button takes the focus, so Enter presses it.
void MinutosATeclado(QWidget* ventana, const QList<int>& valores,
                     std::function<QAbstractButton*(int minutos)> boton);
