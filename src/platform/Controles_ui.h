#pragma once

#include <QColor>

class QWidget;

// The classic colour value: red in the low byte, then green, then blue.
QColor ColorVB(unsigned valor);
// Reads a classic colour value from a hexadecimal text such as "&H00DF8E28" or "&h006400".
unsigned ColorVBDeTexto(const QString& texto);

// Background of a text box, label or window.
void PonerFondo(QWidget* control, const QColor& color);
QColor Fondo(const QWidget* control);
void PonerColorTexto(QWidget* control, const QColor& color);
QColor ColorTexto(const QWidget* control);

// Puts a window in or out of the always-on-top band, showing it without activating it.
void ColocarVentana(QWidget* ventana, bool encima);
