#pragma once

#include <QWidget>
#include <functional>

class ModuloPrincipal;
class RespuestasPedido;
class QPushButton;
class QPlainTextEdit;

// One order already dealt with, painted like the new-order window: reprints, and the
// cancellation of an accepted order when the configuration allows it. No sound, no flash,
// no timers; it closes freely.
class FormPedidoAnterior : public QWidget {
    Q_OBJECT
public:
    FormPedidoAnterior(ModuloPrincipal& m, RespuestasPedido& respuestas, QWidget* padre = nullptr);

    // Fetches order `numero`, paints it and shows the window; on top of the others when it is
    // opened from a message window.
    void Abrir(const QString& numero, bool encima);
    // Shows the order already read into PedidoActual, with its summary.
    void Mostrar(const QString& resumen, bool encima);

    QPushButton* Rechazar() const { return rechazar_; }

    // Handlers, public so that tests press them as a person would.
    void PulsarRechazar();
    void PulsarImprimir();
    void PulsarImprimirCocina();
    void PulsarImprimirCompleto();

protected:
    bool event(QEvent* e) override;

private:
    void protegido(const std::function<void()>& manejador);
    void colorRechazar();

    ModuloPrincipal& m_;
    RespuestasPedido& respuestas_;
    QPushButton* rechazar_;
    QPlainTextEdit* txtPedidoAnt_;
};
