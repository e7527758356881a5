#include "platform/EncajeVentanas_ui.h"

#include <QApplication>
#include <QEvent>
#include <QLoggingCategory>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <optional>

namespace {

// Where windows went and why, for support: QT_LOGGING_RULES="tarvimenta.ventanas.debug=true".
Q_LOGGING_CATEGORY(diarioVentanas, "tarvimenta.ventanas", QtInfoMsg)

const char* const kYaColocada = "tarvimentaColocada";
// 50 ms apart: a busy machine's window manager gets two seconds to frame the window.
constexpr int kRevisiones = 40;

QMargins margenes(const QWidget* w) {
    return MargenesMarco(w->frameGeometry(), w->geometry());
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

bool enteraEnPantalla(const QWidget* ventana, const QMargins& marco) {
    const QScreen* pantalla = ventana->screen();
    return pantalla == nullptr ||
           pantalla->availableGeometry().contains(ventana->geometry().marginsAdded(marco));
}

// The window manager frames a shown window and may place it again a moment after the show,
// and while it does, the frame read back can be one it has not sized yet. Once the frame is
// known, the window is placed again when it no longer lies whole on its screen, or when we
// placed it with a frame guessed (`supuesto`) that turns out different. Checked a few
// times, then left alone (the staff may move it afterwards).
void revisarMarco(QWidget* ventana, std::optional<QMargins> supuesto, int intentos) {
    QTimer::singleShot(50, ventana, [ventana, supuesto, intentos] {
        if (!ventana->isVisible()) {
            return;
        }
        const QMargins real = margenes(ventana);
        if (real.isNull()) {
            if (ventana->frameGeometry() != ventana->geometry()) {
                qCDebug(diarioVentanas)
                    << ventana->objectName() << "marco aún sin medir" << ventana->frameGeometry()
                    << "alrededor de" << ventana->geometry();
            }
            if (intentos > 1) {
                revisarMarco(ventana, supuesto, intentos - 1);
            }
            return;
        }
        if ((!supuesto || real == *supuesto) && enteraEnPantalla(ventana, real)) {
            return;
        }
        const QRect antes = ventana->frameGeometry();
        EncajarEnPantalla(ventana);
        qCDebug(diarioVentanas) << ventana->objectName() << "colocada de nuevo: marco" << real
                                << "en" << antes << "->" << ventana->geometry();
        // The window manager answers the new place with a move of its own: looked at again.
        if (intentos > 1) {
            revisarMarco(ventana, real, intentos - 1);
        }
    });
}

} // namespace

QMargins MargenesMarco(const QRect& marco, const QRect& ventana) {
    const QMargins m(ventana.left() - marco.left(), ventana.top() - marco.top(),
                     marco.right() - ventana.right(), marco.bottom() - ventana.bottom());
    const bool rodea = m.left() >= 0 && m.top() >= 0 && m.right() >= 0 && m.bottom() >= 0;
    return rodea ? m : QMargins();
}

QRect GeometriaEncajada(const QRect& area, QSize tamanno, QSize minimo, const QMargins& dado) {
    const QMargins marco(std::max(0, dado.left()), std::max(0, dado.top()),
                         std::max(0, dado.right()), std::max(0, dado.bottom()));
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
    std::optional<QMargins> supuesto;
    if (primera || !pantalla->availableGeometry().contains(conMarco)) {
        ventana->setProperty(kYaColocada, true);
        EncajarEnPantalla(ventana);
        supuesto = marcoDe(ventana);
    }
    // Every show, the first and the later ones: the window manager maps the window again
    // and may put it elsewhere.
    revisarMarco(ventana, supuesto, kRevisiones);
    return false;
}
