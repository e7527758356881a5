#pragma once

#include <QWidget>
#include <functional>

class ModuloPrincipal;
class Temporizador;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QVBoxLayout;

// What both message windows show: subject, text, the heading, the answer and the frame of the
// order the message is about, with its "Ver Pedido" button.
class FormMensajeBase : public QWidget {
    Q_OBJECT
public:
    QLabel* labAsunto;
    QPlainTextEdit* TextMensaje;
    QLabel* labCabInfoMensaje;
    QPlainTextEdit* TextRespuesta;
    QGroupBox* frmPedido;
    QLabel* LabCliente;
    QLabel* LabTelefono;
    QLineEdit* TxtDireccion;
    QLabel* LabTotal;
    QLabel* LabMetodoPago;
    QLabel* LabRealizadoEl;
    QPushButton* butVerPedido;

Q_SIGNALS:
    void verPedidoPulsado();

protected:
    FormMensajeBase(const char* nombre, const QString& titulo, QWidget* padre);
    // Where each window puts what is its own: below the message, and at the bottom.
    QVBoxLayout* columna_;
};

// A new message of the service, in front of everything until it is answered. The close box
// and minimising only silence it for a minute; the answer flow hides it.
class FormMensajeNuevo : public FormMensajeBase {
    Q_OBJECT
public:
    FormMensajeNuevo(ModuloPrincipal& m, QWidget* padre = nullptr);

    QLabel* labInfoMensaje;
    QPushButton* butResponder;
    QPushButton* butVisto;
    QPushButton* butCancelarPed;
    QPushButton* butNoCancelarPed;
    QPushButton* Silenciar;

    // Stops the sound and lets it come back after a minute if nobody has answered.
    void SilenciarMensaje();
    Temporizador& TimerSilenciarMensaje() { return *timerSilenciar_; }

Q_SIGNALS:
    void responderPulsado();
    void vistoPulsado();
    void cancelarPedPulsado();
    void noCancelarPedPulsado();

protected:
    void closeEvent(QCloseEvent* e) override;
    void changeEvent(QEvent* e) override;

private:
    void cambioRespuesta();
    void tickSilenciar();
    void protegido(const std::function<void()>& manejador);

    ModuloPrincipal& m_;
    Temporizador* timerSilenciar_;
};

// The last message of the session and what was answered to it.
class FormMensajeAnterior : public FormMensajeBase {
    Q_OBJECT
public:
    explicit FormMensajeAnterior(QWidget* padre = nullptr);
    QPushButton* butCerrar;
};

// The fixed refusals of a cancellation request, and the way back to the message.
class FormNoCancelarPed : public QWidget {
    Q_OBJECT
public:
    explicit FormNoCancelarPed(QWidget* padre = nullptr);

Q_SIGNALS:
    // `indice` into mensaje::Negativas.
    void negativaPulsada(int indice);
    void atrasPulsado();
};
