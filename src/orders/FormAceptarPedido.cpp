#include "orders/FormAceptarPedido.h"

#include "orders/RespuestaPedido.h"
#include "platform/Controles_ui.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
QPushButton* boton(QWidget* padre, const QString& texto, const char* nombre) {
    auto* b = new QPushButton(texto, padre);
    b->setObjectName(QLatin1String(nombre));
    b->setMinimumHeight(40);
    return b;
}
} // namespace

FormAceptarPedido::FormAceptarPedido(QWidget* padre) : QWidget(padre, Qt::Window) {
    setObjectName(QStringLiteral("FormAceptarPedido"));
    setWindowTitle(QStringLiteral("Aceptar Pedido"));
    auto* rejilla = new QGridLayout;
    for (int i = 0; i < respuesta_pedido::NumBotonesMinutos; ++i) {
        auto* b = boton(this, respuesta_pedido::TextoBotonMinutos(i), "AceptarMinutos");
        b->setProperty("Index", i);
        rejilla->addWidget(b, i / 3, i % 3);
        minutos_.append(b);
        connect(b, &QPushButton::clicked, this, [this, i] { Q_EMIT minutosPulsado(i); });
    }
    minutos_.at(16)->setVisible(false);
    auto* atras = boton(this, QStringLiteral("<< Atrás"), "butCancelarAceptar");
    connect(atras, &QPushButton::clicked, this, &FormAceptarPedido::atrasPulsado);
    auto* columna = new QVBoxLayout(this);
    columna->addLayout(rejilla);
    columna->addWidget(atras);
}

void FormAceptarPedido::MostrarSinTiempo(bool mostrar) {
    minutos_.at(16)->setVisible(mostrar);
}

FormAceptarPedidoProg::FormAceptarPedidoProg(QWidget* padre) : QWidget(padre, Qt::Window) {
    setObjectName(QStringLiteral("FormAceptarPedidoProg"));
    setWindowTitle(QStringLiteral("Aceptar Pedido"));
    auto* label1 = new QLabel(QStringLiteral("Programado para:"), this);
    label1->setObjectName(QStringLiteral("Label1"));
    labelParaProg_ = new QLabel(this);
    labelParaProg_->setObjectName(QStringLiteral("LabelParaProg"));
    labelParaProg_->setAutoFillBackground(true);
    PonerFondo(labelParaProg_, ColorVB(0x00DF8E28));
    PonerColorTexto(labelParaProg_, Qt::white);
    auto* aceptar = boton(this, QStringLiteral("Aceptar"), "AceptarProgramado");
    auto* atras = boton(this, QStringLiteral("<< Atrás"), "butCancelarAceptar");
    connect(aceptar, &QPushButton::clicked, this, &FormAceptarPedidoProg::aceptarPulsado);
    connect(atras, &QPushButton::clicked, this, &FormAceptarPedidoProg::atrasPulsado);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(label1);
    columna->addWidget(labelParaProg_);
    columna->addWidget(aceptar);
    columna->addWidget(atras);
}
