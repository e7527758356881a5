#pragma once

#include <QWidget>
#include <functional>
#include <optional>

class ModuloPrincipal;
class QButtonGroup;
class QCheckBox;
class QDateEdit;
class QGroupBox;
class QLabel;
class QListWidget;
class QRadioButton;

// The order history: the filters go to the service, which selects and sums; the answer is a
// plain list with three totals, from which an order is opened or printed again. Every change
// of a filter searches at once.
class FormPedidosAnteriores : public QWidget {
    Q_OBJECT
public:
    // `abrirPedido` opens one past order by its number.
    FormPedidosAnteriores(ModuloPrincipal& m, std::function<void(const QString&)> abrirPedido,
                          QWidget* padre = nullptr);

    // The search, from the controls as they stand.
    void BuscarPedidos();
    // Opens the selected row's order.
    void VerPedidoSeleccionado();

    // Handlers, public so that tests press them as a person would.
    void PulsarImprimir();
    void PulsarImprimirCocina();
    void PulsarImprimirCompleto();

    QListWidget* lista() const { return lista_; }

private:
    void construir();
    void protegido(const std::function<void()>& manejador);
    void pulsarCasilla(QCheckBox* pulsada, QCheckBox* pareja, const QString& aviso);
    void fechaCambiada();
    // The selected row's order in PedidoActual; false (after its box) when no order is selected.
    bool obtenerSeleccionado();
    std::optional<QString> numeroSeleccionado();

    ModuloPrincipal& m_;
    std::function<void(const QString&)> abrirPedido_;
    QButtonGroup* periodo_;
    QButtonGroup* formaPago_;
    QButtonGroup* formaEnvio_;
    QCheckBox* aceptados_;
    QCheckBox* rechazados_;
    QCheckBox* oriTarvimenta_;
    QCheckBox* oriWeb_;
    QGroupBox* frameOrigen_;
    QDateEdit* desde_;
    QDateEdit* hasta_;
    QListWidget* lista_;
    QLabel* numPedidos_;
    QLabel* importeTotal_;
    QLabel* importeBruto_;
    QLabel* mensaje_;
};
