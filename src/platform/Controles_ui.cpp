#include "platform/Controles_ui.h"

#include <QLineEdit>
#include <QPalette>
#include <QString>
#include <QWidget>

QColor ColorVB(unsigned valor) {
    return QColor(static_cast<int>(valor & 0xFF), static_cast<int>((valor >> 8) & 0xFF),
                  static_cast<int>((valor >> 16) & 0xFF));
}

unsigned ColorVBDeTexto(const QString& texto) {
    QString digitos = texto;
    if (digitos.startsWith(QLatin1String("&h"), Qt::CaseInsensitive)) {
        digitos = digitos.mid(2);
    }
    bool ok = false;
    const unsigned v = digitos.toUInt(&ok, 16);
    return ok ? v : 0;
}

namespace {
QPalette::ColorRole rolFondo(const QWidget* control) {
    // Text boxes paint their Base; labels, buttons and windows their Window.
    return qobject_cast<const QLineEdit*>(control) != nullptr ? QPalette::Base : QPalette::Window;
}
} // namespace

void PonerFondo(QWidget* control, const QColor& color) {
    QPalette p = control->palette();
    p.setColor(rolFondo(control), color);
    control->setPalette(p);
    control->setAutoFillBackground(true);
}

QColor Fondo(const QWidget* control) {
    return control->palette().color(rolFondo(control));
}

void PonerColorTexto(QWidget* control, const QColor& color) {
    QPalette p = control->palette();
    p.setColor(QPalette::WindowText, color);
    p.setColor(QPalette::Text, color);
    p.setColor(QPalette::ButtonText, color);
    control->setPalette(p);
}

QColor ColorTexto(const QWidget* control) {
    const QPalette::ColorRole rol =
        qobject_cast<const QLineEdit*>(control) != nullptr ? QPalette::Text : QPalette::WindowText;
    return control->palette().color(rol);
}

void ColocarVentana(QWidget* ventana, bool encima) {
    const bool yaEncima = ventana->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
    if (yaEncima != encima) {
        // Changing the flags of a shown window hides it; show it again, without activating.
        ventana->setWindowFlag(Qt::WindowStaysOnTopHint, encima);
    }
    ventana->setAttribute(Qt::WA_ShowWithoutActivating, true);
    ventana->show();
    ventana->setAttribute(Qt::WA_ShowWithoutActivating, false);
}
