#include "settings/ControlesAjustes_ui.h"

#include "server/TextoServidor.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>

namespace controles_ajustes {

namespace {

class FiltroTeclas : public QObject {
public:
    FiltroTeclas(QLineEdit* campo, Teclas teclas)
        : QObject(campo), campo_(campo), teclas_(teclas) {}

protected:
    bool eventFilter(QObject* objeto, QEvent* e) override {
        if (objeto != campo_ || e->type() != QEvent::KeyPress) {
            return false;
        }
        const auto* tecla = static_cast<QKeyEvent*>(e);
        if (tecla->key() == Qt::Key_Backspace) {
            return false;
        }
        const QString texto = tecla->text();
        // Keys that type nothing (arrows, Tab, Enter, Escape, shortcuts) are not key presses
        // of the field: they move, save or close as everywhere else.
        if (texto.isEmpty() || texto.at(0).unicode() < 32 ||
            (tecla->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0) {
            return false;
        }
        const int codigo = texto.at(0).unicode();
        const int paso = teclas_ == Teclas::DecimalConComa ? SoloDecimal(codigo, campo_->text())
                                                           : SoloDigitos(codigo);
        if (paso == 0) {
            if (teclas_ == Teclas::DigitosConPitido) {
                QApplication::beep();
            }
            return true;
        }
        if (paso != codigo) {
            campo_->insert(QString(QChar(paso)));
            return true;
        }
        return false;
    }

private:
    QLineEdit* campo_;
    Teclas teclas_;
};

class Teclado : public QObject {
public:
    Teclado(QWidget* ventana, QPushButton* guardar, std::function<void()> cerrar)
        : QObject(ventana), guardar_(guardar), cerrar_(std::move(cerrar)) {}

protected:
    bool eventFilter(QObject* /*objeto*/, QEvent* e) override {
        if (e->type() != QEvent::KeyPress) {
            return false;
        }
        const int tecla = static_cast<QKeyEvent*>(e)->key();
        if (tecla == Qt::Key_Escape && cerrar_) {
            cerrar_();
            return true;
        }
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            auto* enfocado = qobject_cast<QPushButton*>(QApplication::focusWidget());
            QPushButton* boton = enfocado != nullptr ? enfocado : guardar_;
            if (boton != nullptr && boton->isEnabled() && boton->isVisible()) {
                boton->click();
                return true;
            }
        }
        return false;
    }

private:
    QPushButton* guardar_;
    std::function<void()> cerrar_;
};

} // namespace

void FiltrarTeclas(QLineEdit* campo, Teclas teclas) {
    campo->installEventFilter(new FiltroTeclas(campo, teclas));
}

void InstalarTeclado(QWidget* ventana, QPushButton* guardar, std::function<void()> cerrar) {
    ventana->installEventFilter(new Teclado(ventana, guardar, std::move(cerrar)));
}

} // namespace controles_ajustes
