#pragma once

#include <QObject>
#include <QString>
#include <functional>

class ModuloPrincipal;
class QWidget;
class RespuestasPedido;
class FormMensajeBase;
class FormMensajeNuevo;
class FormMensajeAnterior;
class FormNoCancelarPed;

// The message flow: a message from the poll goes on screen like an order (sound, top-most,
// no polling) until it is answered with a text, a bare "Visto", a cancellation of its order
// or a refusal. The windows are made on first use, owned by `padre`, hidden rather than closed.
class Mensajes : public QObject {
    Q_OBJECT
public:
    // What the main window does for the flow.
    struct Escritorio {
        std::function<void()> detenerSondeo;  // TimerPedidos off
        std::function<void()> reanudarSondeo; // TimerPedidos on
        std::function<void()> vigilar;        // the status watch armed, as for an order
        std::function<void()> minimizar;      // the main window minimised
    };

    Mensajes(ModuloPrincipal& m, RespuestasPedido& respuestas, Escritorio escritorio,
             QWidget* padre);

    FormMensajeNuevo& formMensajeNuevo();
    FormMensajeAnterior& formMensajeAnterior();
    FormNoCancelarPed& formNoCancelarPed();

    // The poll's reply that holds a message: it goes on screen.
    void RecibirMensaje(const QString& respuesta);
    void CargarMensajeNuevo();
    void CargarMensajeAnterior();
    // Answers the message on screen; true when the service took the answer.
    bool ResponderMensaje(const QString& texto);
    bool ResponderMensajeServicio(const QString& id, const QString& texto);

    // Handlers, public so that tests can press them as a person would.
    void PulsarResponder();
    void PulsarVisto();
    void PulsarCancelarPed();
    void PulsarNoCancelarPed();
    void PulsarNegativa(int indice);
    void PulsarAtrasNegativa();
    void PulsarVerPedido();
    void PulsarUltimoMensaje();

    // Plug point of the past-order window: shows the order just read into PedidoActual, with
    // the summary of it. While unset, "Ver Pedido" reads the order and shows nothing more.
    std::function<void(const QString& resumen)> MostrarPedidoAnterior;

private:
    void protegido(const std::function<void()>& manejador);
    // Subject, text and the order frame; false when the message shows no order.
    bool cargarComun(FormMensajeBase& v);

    ModuloPrincipal& m_;
    RespuestasPedido& respuestas_;
    Escritorio escritorio_;
    QWidget* padre_;
    FormMensajeNuevo* nuevo_ = nullptr;
    FormMensajeAnterior* anterior_ = nullptr;
    FormNoCancelarPed* noCancelar_ = nullptr;
};
