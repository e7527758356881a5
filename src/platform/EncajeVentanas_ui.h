#pragma once

#include <QMargins>
#include <QObject>
#include <QRect>
#include <QSize>

class QWidget;

// The frame's width on each side of a window, from the two rectangles the windowing system
// gives; none (a null QMargins) while the frame does not surround the window, as when the
// window manager has just made it and not yet sized it.
QMargins MargenesMarco(const QRect& marco, const QRect& ventana);

// Where a window of `tamanno` (its frame `marco` around it) goes inside `area`, the part of
// its screen that windows may use: as large as asked but no larger than the area, never
// smaller than `minimo`, centred. When even the minimum does not fit, the top-left corner
// stays in the area so that the window's top (and its title bar) can be reached. A side of
// the frame given as negative counts as none.
QRect GeometriaEncajada(const QRect& area, QSize tamanno, QSize minimo, const QMargins& marco);

// Puts a top-level window whole and centred on the screen it shows on.
void EncajarEnPantalla(QWidget* ventana);

// Watches every window of the application: at its first show it opens centred on its screen,
// and at any later show it is brought back whole if it would reach past the screen's edge
// (a font made larger, a screen made smaller). For a moment after each show, once the window
// manager has framed the window, it is placed again if it does not lie whole on the screen.
// Install once on the application.
class EncajeVentanas : public QObject {
public:
    explicit EncajeVentanas(QObject* padre = nullptr);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
};
