#include "shell/FormCerrarEstablec.h"

#include "shell/CierreEstablecimiento.h"

#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

FormCerrarEstablec::FormCerrarEstablec(QWidget* padre) : QWidget(padre, Qt::Window) {
    setObjectName(QStringLiteral("FormCerrarEstablec"));
    setWindowTitle(QStringLiteral("Cerrar Establecimiento"));
    auto* rejilla = new QGridLayout;
    for (int i = 0; i < static_cast<int>(cierre::Tiempos().size()); ++i) {
        auto* b = new QPushButton(cierre::Tiempos().at(static_cast<size_t>(i)).texto, this);
        b->setObjectName(QStringLiteral("TiempoCerrar"));
        b->setProperty("Index", i);
        b->setMinimumHeight(40);
        connect(b, &QPushButton::clicked, this, [this, i] { Q_EMIT tiempoPulsado(i); });
        rejilla->addWidget(b, i / 2, i % 2);
    }
    auto* atras = new QPushButton(QStringLiteral("<< Atrás"), this);
    atras->setObjectName(QStringLiteral("butCancelarCerrar"));
    connect(atras, &QPushButton::clicked, this, &QWidget::hide);
    auto* columna = new QVBoxLayout(this);
    columna->addLayout(rejilla);
    columna->addWidget(atras);
}

QPushButton* FormCerrarEstablec::TiempoCerrar(int indice) const {
    for (QPushButton* b : findChildren<QPushButton*>(QStringLiteral("TiempoCerrar"))) {
        if (b->property("Index").toInt() == indice) {
            return b;
        }
    }
    return nullptr;
}
