#include "platform/EncajeVentanas_ui.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QWidget>
#include <algorithm>

namespace {

const char* const kYaColocada = "tarvimentaColocada";

QMargins margenes(const QWidget* w) {
    const QRect f = w->frameGeometry();
    const QRect g = w->geometry();
    return {g.left() - f.left(), g.top() - f.top(), f.right() - g.right(), f.bottom() - g.bottom()};
}

// The frame the window manager puts around a window: the one it has, or the one another
// window of the application already wears, or a title bar and a thin border as a guess
// before anything has been shown.
QMargins marcoDe(const QWidget* ventana) {
    if (ventana->isVisible()) {
        const QMargins m = margenes(ventana);
        if (!m.isNull()) {
            return m;
        }
    }
    for (const QWidget* otra : QApplication::topLevelWidgets()) {
        if (otra != ventana && otra->isVisible()) {
            const QMargins m = margenes(otra);
            if (!m.isNull()) {
                return m;
            }
        }
    }
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        return {};
    }
    const int titulo = ventana->style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return {4, titulo + 4, 4, 4};
}

QSize minimoDe(const QWidget* ventana) {
    return ventana->minimumSize().expandedTo(ventana->minimumSizeHint());
}

// The window manager frames a new window a moment after it is shown: when the frame it
// gives differs from the one guessed, the window is placed again. Checked a few times, then
// left alone.
void revisarMarco(QWidget* ventana, QMargins supuesto, int intentos) {
    QTimer::singleShot(50, ventana, [ventana, supuesto, intentos] {
        if (!ventana->isVisible()) {
            return;
        }
        const QMargins real = margenes(ventana);
        if (real.isNull()) {
            if (intentos > 1) {
                revisarMarco(ventana, supuesto, intentos - 1);
            }
            return;
        }
        if (real != supuesto) {
            EncajarEnPantalla(ventana);
        }
    });
}

} // namespace

QRect GeometriaEncajada(const QRect& area, QSize tamanno, QSize minimo, const QMargins& marco) {
    const QSize cabe(std::max(1, area.width() - marco.left() - marco.right()),
                     std::max(1, area.height() - marco.top() - marco.bottom()));
    const QSize t = tamanno.boundedTo(cabe).expandedTo(minimo);
    const int anchoTotal = t.width() + marco.left() + marco.right();
    const int altoTotal = t.height() + marco.top() + marco.bottom();
    const int x = area.left() + std::max(0, (area.width() - anchoTotal) / 2);
    const int y = area.top() + std::max(0, (area.height() - altoTotal) / 2);
    return {QPoint(x + marco.left(), y + marco.top()), t};
}

void EncajarEnPantalla(QWidget* ventana) {
    const QScreen* pantalla = ventana->screen();
    if (pantalla == nullptr) {
        return;
    }
    const QMargins marco = marcoDe(ventana);
    const QSize deseado = ventana->isVisible() || ventana->testAttribute(Qt::WA_Resized)
                              ? ventana->size()
                              : ventana->sizeHint();
    ventana->setGeometry(
        GeometriaEncajada(pantalla->availableGeometry(), deseado, minimoDe(ventana), marco));
}

EncajeVentanas::EncajeVentanas(QObject* padre) : QObject(padre) {}

bool EncajeVentanas::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() != QEvent::Show || !objeto->isWidgetType()) {
        return false;
    }
    auto* ventana = static_cast<QWidget*>(objeto);
    if (!ventana->isWindow() || ventana->windowType() == Qt::Popup ||
        ventana->windowType() == Qt::ToolTip || ventana->windowType() == Qt::SplashScreen) {
        return false;
    }
    const QScreen* pantalla = ventana->screen();
    if (pantalla == nullptr) {
        return false;
    }
    const bool primera = !ventana->property(kYaColocada).toBool();
    const QRect conMarco = ventana->geometry().marginsAdded(marcoDe(ventana));
    if (primera || !pantalla->availableGeometry().contains(conMarco)) {
        ventana->setProperty(kYaColocada, true);
        EncajarEnPantalla(ventana);
        if (margenes(ventana).isNull()) {
            revisarMarco(ventana, marcoDe(ventana), 20);
        }
    }
    return false;
}
