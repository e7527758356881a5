#pragma once

#include <QMargins>
#include <QObject>
#include <QRect>
#include <QSize>

class QWidget;

// Where a window of `tamanno` (its frame `marco` around it) goes inside `area`, the part of
// its screen that windows may use: as large as asked but no larger than the area, never
// smaller than `minimo`, centred. When even the minimum does not fit, the top-left corner
// stays in the area so that the window's top (and its title bar) can be reached.
QRect GeometriaEncajada(const QRect& area, QSize tamanno, QSize minimo, const QMargins& marco);

// Puts a top-level window whole and centred on the screen it shows on.
void EncajarEnPantalla(QWidget* ventana);

// Watches every window of the application: at its first show it opens centred on its screen,
// and at any later show it is brought back whole if it would reach past the screen's edge
// (a font made larger, a screen made smaller). Install once on the application.
class EncajeVentanas : public QObject {
public:
    explicit EncajeVentanas(QObject* padre = nullptr);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
};
