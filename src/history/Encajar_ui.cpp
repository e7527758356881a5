#include "history/Encajar_ui.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

void EncajarEnPantalla(QWidget* ventana) {
    const QScreen* pantalla =
        ventana->screen() ? ventana->screen() : QGuiApplication::primaryScreen();
    if (pantalla == nullptr) {
        return;
    }
    const QRect libre = pantalla->availableGeometry();
    // The title bar and borders the window manager adds, as far as they are known yet.
    QSize marco = ventana->frameGeometry().size() - ventana->geometry().size();
    if (marco.isEmpty()) {
        marco = QSize(8, 32); // not shown yet: a usual title bar and borders
    }
    const QSize cabe = libre.size() - marco;
    ventana->resize(ventana->size().boundedTo(cabe));
    const QSize total = ventana->size() + marco;
    ventana->move(libre.x() + (libre.width() - total.width()) / 2,
                  libre.y() + (libre.height() - total.height()) / 2);
}
