#pragma once

#include <QObject>
#include <QString>
#include <functional>

class ModuloPrincipal;
class QWidget;
class FormPedidoNuevo;
class FormAceptarPedido;
class FormAceptarPedidoProg;
class FormRechazarPedido;
class FormProductosRechazarIngredientesPedido;

// The answer flow of an order: from the Aceptar/Rechazar buttons of the new-order window
// through the small windows to the one call that answers the service. The windows are made
// on first use, owned by `padre` and hidden rather than closed.
class RespuestasPedido : public QObject {
    Q_OBJECT
public:
    // What the main window does for the flow.
    struct Escritorio {
        std::function<void()> reanudarSondeo; // TimerPedidos on
        std::function<void()> minimizar;      // the main window minimised
    };

    RespuestasPedido(ModuloPrincipal& m, FormPedidoNuevo& nuevo, Escritorio escritorio,
                     QWidget* padre);

    FormAceptarPedido& formAceptarPedido();
    FormAceptarPedidoProg& formAceptarPedidoProg();
    FormRechazarPedido& formRechazarPedido();
    FormProductosRechazarIngredientesPedido& formProductosRechazar();

    // The reasons list, refreshed at each configuration reading, and the "No especificar"
    // button.
    void RellenarMotivosRechazo();

    bool AceptarPedido();
    // The acceptance of an order that never went on screen (or of the one whose automatic
    // acceptance the service did not take): no box when it fails.
    bool AceptarAutomaticamente();
    bool RechazarPedido();
    bool CancelarPedido();

    // Handlers, public so that tests can press them as a person would.
    void PulsarAceptar();
    void PulsarRechazar();
    void PulsarMinutos(int indice);
    void PulsarAceptarProgramado();
    void PulsarAtrasAceptar(QWidget* ventana);
    void PulsarRechazarMotivo();
    void PulsarCancelarRechazar();
    void PulsarHecho();
    void PulsarCerrarLista();

    // Prints the cancellation notice of an accepted order on the kitchens concerned; tests
    // may put their own in its place.
    std::function<void()> ImprimirCancelacion;
    // Plug point of the message flow; while unset it does nothing.
    // Answers a waiting customer message with `texto`.
    std::function<void(const QString& texto)> ResponderMensaje;

private:
    void protegido(const std::function<void()>& manejador);
    void responderConMinutos(QWidget* ventana, bool& respondiendo, const QString& minutos);

    ModuloPrincipal& m_;
    FormPedidoNuevo& nuevo_;
    Escritorio escritorio_;
    QWidget* padre_;
    FormAceptarPedido* aceptar_ = nullptr;
    FormAceptarPedidoProg* aceptarProg_ = nullptr;
    FormRechazarPedido* rechazar_ = nullptr;
    FormProductosRechazarIngredientesPedido* lista_ = nullptr;
};
