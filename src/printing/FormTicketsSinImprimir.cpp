#include "printing/FormTicketsSinImprimir.h"

#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "platform/Controles_ui.h"
#include "platform/EjecucionProtegida.h"
#include "printing/TicketsSinImprimir.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

QString FormTicketsSinImprimir::TextoBoton(qsizetype cantidad) {
    const QString texto = QStringLiteral("Tickets sin imprimir");
    return cantidad > 0 ? texto + QStringLiteral(" (") + QString::number(cantidad) + u')' : texto;
}

void FormTicketsSinImprimir::PrepararBoton(ModuloPrincipal& m, QPushButton* boton) {
    const auto ponerTexto = [&m, boton] {
        const qsizetype n = m.ticketsSinImprimir().cantidad();
        boton->setText(TextoBoton(n));
        // Back to the style's own colour once the list is empty (the button's palette is red).
        PonerColorTexto(boton, n > 0 ? QColor(Qt::red)
                                     : QApplication::palette(boton).color(QPalette::ButtonText));
    };
    ponerTexto();
    connect(&m.ticketsSinImprimir(), &TicketsSinImprimir::cambiada, boton, ponerTexto);
    connect(boton, &QPushButton::clicked, boton, [&m, boton] {
        QWidget* dueno = boton->window();
        auto* ventana =
            dueno->findChild<FormTicketsSinImprimir*>(QStringLiteral("FormTicketsSinImprimir"));
        if (ventana == nullptr) {
            ventana = new FormTicketsSinImprimir(m, dueno);
        }
        ventana->show();
        ventana->raise();
        ventana->activateWindow();
    });
}

FormTicketsSinImprimir::FormTicketsSinImprimir(ModuloPrincipal& m, QWidget* padre)
    : QWidget(padre, Qt::Window), m_(m) {
    setObjectName(QStringLiteral("FormTicketsSinImprimir"));
    setWindowTitle(QStringLiteral("Tickets sin imprimir"));

    auto* explicacion = new QLabel(
        QStringLiteral("Estas copias no se pudieron imprimir. Cuando la impresora vuelva a "
                       "estar lista, imprímalas de nuevo."),
        this);
    explicacion->setWordWrap(true);
    lista_ = new QTableWidget(0, 4, this);
    lista_->setObjectName(QStringLiteral("ListaTicketsSinImprimir"));
    lista_->setHorizontalHeaderLabels({QStringLiteral("Pedido"), QStringLiteral("Impresora"),
                                       QStringLiteral("Hora"), QStringLiteral("Error")});
    lista_->setSelectionBehavior(QAbstractItemView::SelectRows);
    lista_->setSelectionMode(QAbstractItemView::SingleSelection);
    lista_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lista_->setWordWrap(true);
    lista_->verticalHeader()->hide();
    lista_->horizontalHeader()->setStretchLastSection(true);
    aviso_ = new QLabel(this);
    aviso_->setObjectName(QStringLiteral("LabelAviso"));
    aviso_->setWordWrap(true);
    PonerColorTexto(aviso_, Qt::darkRed);

    imprimir_ = new QPushButton(QStringLiteral("Imprimir de nuevo"), this);
    imprimir_->setObjectName(QStringLiteral("butImprimirDeNuevo"));
    todos_ = new QPushButton(QStringLiteral("Imprimir todos"), this);
    todos_->setObjectName(QStringLiteral("butImprimirTodos"));
    quitar_ = new QPushButton(QStringLiteral("Quitar de la lista"), this);
    quitar_->setObjectName(QStringLiteral("butQuitar"));
    auto* cerrar = new QPushButton(QStringLiteral("Cerrar"), this);
    cerrar->setObjectName(QStringLiteral("butCerrar"));

    connect(imprimir_, &QPushButton::clicked, this, [this] {
        EjecutarProtegido(m_.cajas(), [this] {
            if (const int i = elegido(); i >= 0) {
                ReimprimirTicket(m_, i);
            }
        });
    });
    connect(todos_, &QPushButton::clicked, this,
            [this] { EjecutarProtegido(m_.cajas(), [this] { ReimprimirTodos(m_); }); });
    connect(quitar_, &QPushButton::clicked, this,
            [this] { EjecutarProtegido(m_.cajas(), [this] { quitarElegido(); }); });
    connect(cerrar, &QPushButton::clicked, this, &QWidget::hide);
    connect(&m_.ticketsSinImprimir(), &TicketsSinImprimir::cambiada, this,
            &FormTicketsSinImprimir::rellenar);
    connect(lista_, &QTableWidget::itemSelectionChanged, this, [this] {
        imprimir_->setEnabled(elegido() >= 0);
        quitar_->setEnabled(elegido() >= 0);
    });

    auto* botones = new QHBoxLayout;
    botones->addWidget(imprimir_);
    botones->addWidget(todos_);
    botones->addWidget(quitar_);
    botones->addStretch();
    botones->addWidget(cerrar);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(explicacion);
    columna->addWidget(lista_, 1);
    columna->addWidget(aviso_);
    columna->addLayout(botones);
    resize(760, 420);
    rellenar();
}

void FormTicketsSinImprimir::rellenar() {
    const TicketsSinImprimir& t = m_.ticketsSinImprimir();
    const int antes = elegido();
    lista_->setRowCount(static_cast<int>(t.cantidad()));
    for (int i = 0; i < t.cantidad(); ++i) {
        const TicketSinImprimir& c = t.lista().at(i);
        const QString celdas[] = {c.pedido.NumPedido, c.impresora,
                                  c.hora.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss")), c.error};
        for (int col = 0; col < 4; ++col) {
            lista_->setItem(i, col, new QTableWidgetItem(celdas[col]));
        }
        // A printer's error is often longer than the column: the whole text under the pointer.
        lista_->item(i, 3)->setToolTip(c.error);
    }
    lista_->resizeColumnsToContents();
    lista_->horizontalHeader()->setStretchLastSection(true);
    lista_->resizeRowsToContents();
    if (t.cantidad() > 0) {
        lista_->selectRow(std::clamp(antes, 0, static_cast<int>(t.cantidad()) - 1));
    }
    aviso_->setText(t.errorGuardado().isEmpty()
                        ? QString()
                        : QStringLiteral("No se ha podido guardar la lista en ") + t.ruta() +
                              QStringLiteral(": ") + t.errorGuardado() +
                              QStringLiteral(". Si cierra el programa se perderá."));
    aviso_->setVisible(!aviso_->text().isEmpty());
    imprimir_->setEnabled(elegido() >= 0);
    quitar_->setEnabled(elegido() >= 0);
    todos_->setEnabled(t.cantidad() > 0);
}

int FormTicketsSinImprimir::elegido() const {
    const auto filas = lista_->selectionModel()->selectedRows();
    return filas.isEmpty() ? -1 : filas.first().row();
}

void FormTicketsSinImprimir::quitarElegido() {
    const int i = elegido();
    if (i < 0) {
        return;
    }
    const TicketSinImprimir& c = m_.ticketsSinImprimir().lista().at(i);
    if (m_.cajas().preguntarSiNo(QStringLiteral("¿Quitar de la lista el ticket del pedido ") +
                                 c.pedido.NumPedido + QStringLiteral(" para la impresora ") +
                                 c.impresora + QStringLiteral("? No se imprimirá."))) {
        m_.ticketsSinImprimir().quitar(i);
    }
}
