#include "orders/TeclasMostrador_ui.h"

#include <QAbstractButton>
#include <QEvent>
#include <QKeySequence>
#include <QShortcut>
#include <QTimer>
#include <QWidget>
#include <algorithm>

namespace {

QAbstractButton* botonLlamado(QWidget* ventana, const QString& nombre) {
    if (nombre.isEmpty()) {
        return nullptr;
    }
    for (QAbstractButton* b : ventana->findChildren<QAbstractButton*>(nombre)) {
        if (b->isVisible() && b->isEnabled()) {
            return b;
        }
    }
    return nullptr;
}

void atajo(QWidget* ventana, int tecla, const std::function<void()>& hacer) {
    auto* s = new QShortcut(QKeySequence(tecla), ventana);
    s->setContext(Qt::WindowShortcut);
    s->setAutoRepeat(false); // a key held down answers once
    QObject::connect(s, &QShortcut::activated, ventana, hacer);
}

// Each time the window comes up, the focus starts on its first control (or on no button), so
// Enter never presses what was focused for the previous order.
class FocoAlMostrar : public QObject {
public:
    FocoAlMostrar(QWidget* ventana, QString inicial)
        : QObject(ventana), ventana_(ventana), inicial_(std::move(inicial)) {
        ventana->installEventFilter(this);
    }
    bool eventFilter(QObject* objeto, QEvent* e) override {
        if (objeto == ventana_ && e->type() == QEvent::Show) {
            QWidget* control =
                inicial_.isEmpty() ? nullptr : ventana_->findChild<QWidget*>(inicial_);
            (control != nullptr ? control : ventana_)->setFocus(Qt::OtherFocusReason);
        }
        return false;
    }

private:
    QWidget* ventana_;
    QString inicial_;
};

// The number being typed: a digit that leads to no value starts a new number, and the
// number is forgotten after a pause or when the window comes up again.
class Tecleo : public QObject {
public:
    Tecleo(QWidget* ventana, QList<int> valores)
        : QObject(ventana), valores_(std::move(valores)), olvido_(new QTimer(this)) {
        olvido_->setSingleShot(true);
        olvido_->setInterval(2000);
        connect(olvido_, &QTimer::timeout, this, [this] { cifras_.clear(); });
        ventana->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* e) override {
        if (e->type() == QEvent::Show) {
            cifras_.clear();
        }
        return false;
    }
    int anadir(int cifra) {
        const QString sola(QChar(u'0' + cifra));
        cifras_ = llevaAAlguno(cifras_ + sola) ? cifras_ + sola
                  : llevaAAlguno(sola)         ? sola
                                               : QString();
        olvido_->start();
        return cifras_.isEmpty() ? -1 : cifras_.toInt();
    }

private:
    bool llevaAAlguno(const QString& cifras) const {
        return std::any_of(valores_.begin(), valores_.end(),
                           [&](int v) { return QString::number(v).startsWith(cifras); });
    }

    QList<int> valores_;
    QTimer* olvido_;
    QString cifras_;
};

} // namespace

void TeclasMostrador(QWidget* ventana, const QString& principal, const QString& escape,
                     const QString& inicial) {
    ventana->setFocusPolicy(Qt::StrongFocus); // the window itself may hold the focus
    new FocoAlMostrar(ventana, inicial.isEmpty() ? principal : inicial);
    auto intro = [ventana, principal] {
        auto* enfocado = qobject_cast<QAbstractButton*>(ventana->focusWidget());
        if (enfocado != nullptr && enfocado->isVisible() && enfocado->isEnabled()) {
            enfocado->click();
        } else if (QAbstractButton* b = botonLlamado(ventana, principal)) {
            b->click();
        }
    };
    atajo(ventana, Qt::Key_Return, intro);
    atajo(ventana, Qt::Key_Enter, intro);
    if (!escape.isEmpty()) {
        atajo(ventana, Qt::Key_Escape, [ventana, escape] {
            if (QAbstractButton* b = botonLlamado(ventana, escape)) {
                b->click();
            }
        });
    }
}

void MinutosATeclado(QWidget* ventana, const QList<int>& valores,
                     std::function<QAbstractButton*(int minutos)> boton) {
    auto* tecleo = new Tecleo(ventana, valores);
    for (int cifra = 0; cifra <= 9; ++cifra) {
        atajo(ventana, Qt::Key_0 + cifra, [tecleo, cifra, boton] {
            QAbstractButton* b = boton(tecleo->anadir(cifra));
            if (b != nullptr && b->isVisible() && b->isEnabled()) {
                b->setFocus(Qt::ShortcutFocusReason);
            }
        });
    }
}
