#include "orders/FormRechazarPedido.h"

#include "orders/RespuestaPedido.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
template <typename T> T* con_nombre(T* w, const char* nombre) {
    w->setObjectName(QLatin1String(nombre));
    return w;
}
} // namespace

FormRechazarPedido::FormRechazarPedido(QWidget* padre) : QWidget(padre, Qt::Window) {
    setObjectName(QStringLiteral("FormRechazarPedido"));
    setWindowTitle(QStringLiteral("Rechazar Pedido"));
    auto* labMotivo = con_nombre(new QLabel(QStringLiteral("Motivo:"), this), "LabMotivo");
    motivo_ = con_nombre(new QComboBox(this), "comMotivoRechazo");
    motivo_->setEditable(false);
    RellenarMotivos({});
    auto* labMasInfo = con_nombre(new QLabel(QStringLiteral("Más información (opcional):"), this),
                                  "labMasInfoRechazo");
    masInfo_ = con_nombre(new QLineEdit(this), "txtMasInfoRechazo");
    infoPago_ = con_nombre(new QLabel(this), "labInfoRechazoPago");
    infoPago_->setWordWrap(true);
    rechazar_ = con_nombre(new QPushButton(QStringLiteral("Rechazar"), this), "butRechazar");
    auto* atras =
        con_nombre(new QPushButton(QStringLiteral("<< Atrás"), this), "butCancelarRechazar");
    connect(rechazar_, &QPushButton::clicked, this, &FormRechazarPedido::rechazarPulsado);
    connect(atras, &QPushButton::clicked, this, &FormRechazarPedido::atrasPulsado);

    auto* botones = new QHBoxLayout;
    botones->addWidget(atras);
    botones->addWidget(rechazar_);
    auto* columna = new QVBoxLayout(this);
    for (QWidget* w :
         std::initializer_list<QWidget*>{labMotivo, motivo_, labMasInfo, masInfo_, infoPago_}) {
        columna->addWidget(w);
    }
    columna->addLayout(botones);
    NombrarSegunEstado(QString());
}

void FormRechazarPedido::RellenarMotivos(const QStringList& motivos) {
    motivo_->clear();
    motivo_->addItem(respuesta_pedido::SinMotivo);
    motivo_->addItems(motivos);
}

void FormRechazarPedido::NombrarSegunEstado(const QString& estado) {
    const respuesta_pedido::TextosRechazo t = respuesta_pedido::TextosRechazoSegunEstado(estado);
    setWindowTitle(t.titulo);
    rechazar_->setText(t.boton);
    infoPago_->setText(t.infoPago);
}

bool FormRechazarPedido::event(QEvent* e) {
    if ((e->type() == QEvent::WindowActivate || e->type() == QEvent::Show) && estado_) {
        NombrarSegunEstado(estado_());
    }
    return QWidget::event(e);
}
