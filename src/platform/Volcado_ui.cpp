#include "platform/Volcado_ui.h"

#include "platform/Controles_ui.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QSaveFile>
#include <QWidget>

namespace {

QString textoDe(const QWidget* w) {
    if (const auto* t = qobject_cast<const QLineEdit*>(w)) {
        return t->text();
    }
    if (const auto* l = qobject_cast<const QLabel*>(w)) {
        return l->text();
    }
    if (const auto* b = qobject_cast<const QAbstractButton*>(w)) {
        return b->text();
    }
    return w->windowTitle();
}

QString linea(const QWidget* w, bool visible) {
    QString texto = textoDe(w);
    texto.replace(QLatin1Char('\t'), QLatin1Char(' '))
        .replace(QLatin1Char('\n'), QLatin1String("\\n"));
    return w->objectName() + QLatin1Char('\t') + texto + QLatin1Char('\t') +
           QLatin1Char(visible ? '1' : '0') + QLatin1Char('\t') +
           QLatin1Char(w->isEnabled() ? '1' : '0') + QLatin1Char('\t') + Fondo(w).name() +
           QLatin1Char('\n');
}

} // namespace

void VolcarVentana(const QWidget* ventana, const QString& fichero) {
    QString contenido = linea(ventana, ventana->isVisible());
    for (const QWidget* w : ventana->findChildren<QWidget*>()) {
        if (!w->objectName().isEmpty() && !w->objectName().startsWith(QLatin1String("qt_"))) {
            // Visible as designed: shown unless hidden itself (the window may be minimised).
            contenido += linea(w, !w->isHidden());
        }
    }
    QSaveFile f(fichero);
    if (f.open(QIODevice::WriteOnly)) {
        f.write(contenido.toUtf8());
        f.commit();
    }
}
