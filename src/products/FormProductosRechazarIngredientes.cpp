#include "products/FormProductosRechazarIngredientes.h"

#include "base/ModuloPrincipal.h"
#include "platform/EjecucionProtegida.h"
#include "products/Carta.h"
#include "products/ListaProductos_ui.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString kPrecio = QStringLiteral("Precio(€)");

QPushButton* Boton(QWidget* padre, const char* nombre, const QString& texto) {
    auto* b = new QPushButton(texto, padre);
    b->setObjectName(QLatin1String(nombre));
    return b;
}

// The lists' font follows the configuration's size for check lists.
void AplicarFuente(const ModuloPrincipal& m, QWidget* lista) {
    if (m.TamannoFuenteListasCheck > 0) {
        QFont f = lista->font();
        f.setPointSize(m.TamannoFuenteListasCheck);
        lista->setFont(f);
    }
}

} // namespace

FormProductosRechazarIngredientes::FormProductosRechazarIngredientes(ModuloPrincipal& m,
                                                                     QWidget* padre)
    : QWidget(padre, Qt::Window), m_(m), lista_(new ListaProductos(m, kPrecio, this)) {
    setObjectName(QStringLiteral("FormProductosRechazarIngredientes"));
    setWindowTitle(QStringLiteral("Productos - Selección Agotados"));
    auto* hecho = Boton(this, "CommandHecho", QStringLiteral("Hecho"));
    connect(hecho, &QPushButton::clicked, this, &QWidget::hide);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(lista_, 1);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(hecho);
    columna->addLayout(botones);
    resize(500, 460);
}

void FormProductosRechazarIngredientes::CargarListaProductos() {
    AplicarFuente(m_, lista_);
    lista_->Rellenar(m_.carta().CargarListaProductos(Carta::ListaCarta));
}

bool FormProductosRechazarIngredientes::event(QEvent* e) {
    if (e->type() == QEvent::WindowActivate) {
        EjecutarProtegido(m_.cajas(), [this] {
            lista_->MarcandoProducto = false;
            CargarListaProductos();
        });
    }
    return QWidget::event(e);
}

FormProductosRechazarIngredientesPedido::FormProductosRechazarIngredientesPedido(ModuloPrincipal& m,
                                                                                 QWidget* padre)
    : QWidget(padre, Qt::Window), m_(m), lista_(new ListaProductos(m, kPrecio, this)) {
    setObjectName(QStringLiteral("FormProductosRechazarIngredientesPedido"));
    setWindowTitle(QStringLiteral("Productos Pedido - Selección Agotados"));
    auto* label2 = new QLabel(
        QStringLiteral("Indique que productos del pedido están agotados por favor:"), this);
    label2->setObjectName(QStringLiteral("Label2"));
    auto* hecho = Boton(this, "CommandHecho", QStringLiteral("Hecho"));
    auto* cerrar = Boton(this, "butCerrar", QStringLiteral("Cancelar"));
    connect(hecho, &QPushButton::clicked, this,
            &FormProductosRechazarIngredientesPedido::hechoPulsado);
    connect(cerrar, &QPushButton::clicked, this,
            &FormProductosRechazarIngredientesPedido::cerrarPulsado);
    auto* botones = new QHBoxLayout;
    botones->addWidget(cerrar);
    botones->addStretch(1);
    botones->addWidget(hecho);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(label2);
    columna->addWidget(lista_, 1);
    columna->addLayout(botones);
    resize(500, 400);
}

void FormProductosRechazarIngredientesPedido::CargarListaProductos() {
    AplicarFuente(m_, lista_);
    lista_->Rellenar(m_.carta().CargarListaProductos(Carta::ListaPedido));
}

bool FormProductosRechazarIngredientesPedido::event(QEvent* e) {
    if (e->type() == QEvent::WindowActivate) {
        lista_->MarcandoProducto = false;
    }
    return QWidget::event(e);
}
