#pragma once

#include <QWidget>
#include <functional>

class ModuloPrincipal;
class Temporizador;
class QTreeWidget;
class QVBoxLayout;

// The order controls that RellenarVentanaPedido paints (the product list and the labels under
// their names), made on `ventana` and laid in `columna`; both order windows carry them.
void ConstruirControlesPedido(QWidget* ventana, QVBoxLayout* columna);

// The window of a new order: it puts the order in front of the staff, loud and flashing,
// and keeps coming back until the order is answered. The close box and minimising only
// silence it for a minute; the answer flows hide it. Its controls carry the names that
// RellenarVentanaPedido paints (shared with the past-order window).
class FormPedidoNuevo : public QWidget {
    Q_OBJECT
public:
    static inline const QString Titulo = QStringLiteral("¡NUEVO PEDIDO!");

    explicit FormPedidoNuevo(ModuloPrincipal& m, QWidget* padre = nullptr);
    ~FormPedidoNuevo() override;

    // Starts the flashing (when ParpadeoPedNuevo is on).
    void IniciarParpadeo();
    // Stops sound and flashing for a minute.
    void SilenciarPedidoNuevo();
    // Puts "Pulse Silenciar 1 min. para ver" over the customer's name, address and
    // telephone; the Silenciar button uncovers them.
    void CubrirDatosPersonales();

    Temporizador& TimerColorFondo() { return *timerColorFondo_; }
    Temporizador& TimerSilenciar() { return *timerSilenciar_; }
    // The flash phase: true means the next tick paints the flash colour.
    bool faseParpadeo() const { return fase_; }

Q_SIGNALS:
    // The answer buttons; the answer windows take over from here.
    void aceptarPulsado();
    void rechazarPulsado();

protected:
    void closeEvent(QCloseEvent* e) override;
    void changeEvent(QEvent* e) override;

private:
    void construir();
    void tickColorFondo();
    void tickSilenciar();
    void pulsarSilenciar();
    void pulsarImprimir();
    void protegido(const std::function<void()>& manejador);

    ModuloPrincipal& m_;
    Temporizador* timerColorFondo_;
    Temporizador* timerSilenciar_;
    bool fase_ = false;
};
