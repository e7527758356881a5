#pragma once

#include <QWidget>
#include <functional>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

// The reason window of a rejection (new order) or a cancellation (accepted order). It names
// itself after the state the order has when it is shown.
class FormRechazarPedido : public QWidget {
    Q_OBJECT
public:
    explicit FormRechazarPedido(QWidget* padre = nullptr);

    // The placeholder first, then the service's reasons in their order.
    void RellenarMotivos(const QStringList& motivos);
    // Caption, button and refund text for an order in state `estado`.
    void NombrarSegunEstado(const QString& estado);

    QComboBox* comMotivoRechazo() const { return motivo_; }
    QLineEdit* txtMasInfoRechazo() const { return masInfo_; }
    QLabel* labInfoRechazoPago() const { return infoPago_; }
    QPushButton* butRechazar() const { return rechazar_; }

    // Where the state is read at each activation (the order record, kept by the desk).
    void setEstado(std::function<QString()> estado) { estado_ = std::move(estado); }

Q_SIGNALS:
    void rechazarPulsado();
    void atrasPulsado();

protected:
    bool event(QEvent* e) override;

private:
    QComboBox* motivo_;
    QLineEdit* masInfo_;
    QLabel* infoPago_;
    QPushButton* rechazar_;
    std::function<QString()> estado_;
};
