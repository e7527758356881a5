#include "orders/FormPedidoNuevo.h"

#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "orders/VistaPedido.h"
#include "platform/CajaMensajes.h"
#include "platform/Controles_ui.h"
#include "platform/EjecucionProtegida.h"
#include "platform/ListaInforme_ui.h"
#include "platform/Temporizador.h"
#include "printing/RutasImpresion.h"
#include "sound/AlertaSonora.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

struct Par {
    const char* cabecera;
    const char* valor;
    const char* texto;
};

// Top to bottom as the window shows them, below the product list.
const Par kPares[] = {
    {"LabCabNPedido", "LabNPedido", "Nº Pedido:"},
    {"LabCabImporteEnvio", "LabImporteEnvio", "Importe envío:"},
    {"LabCabComisionPaypal", "LabComisionPaypal", "Comisión Paypal:"},
    {"LabCabDescuento", "LabDescuento", "Descuento:"},
    {"LabCabPromocion", "LabPromocion", "Promoción:"},
    {"LabCabTotal", "LabTotal", "Total:"},
    {"labCabTotalBruto", "labTotalBruto", "Total bruto:"},
    {"LabCabOrigen", "LabOrigen", "Origen:"},
    {"LabCabCliente", "LabCliente", "Cliente:"},
    {"LabCabTelefono", "LabTelefono", "Teléfono:"},
    {"LabCabFormaEnvio", "LabFormaEnvio", "Forma envío:"},
    {"LabCabDireccion", "TxtDireccion", "Dirección:"},
    {"LabCabRealizadoEl", "LabRealizadoEl", "Realizado el:"},
    {"LabCabPedAnteriores", "LabPedAnteriores", "Ped. anteriores:"},
    {"LabCabPara", "labPara", "Para:"},
    {"LabCabEstadoPago", "LabEstadoPago", "Estado pago:"},
    {"LabCabMetodoPago", "LabMetodoPago", "Método de pago:"},
    {"LabCabCambio", "LabCambio", "Cambio:"},
    {"LabCabComentarios", "TxtComentarios", "Comentarios:"},
    {"LabCabEstado", "LabEstado", "Estado:"},
    {"LabCabTiempoEstMotivo", "LabTiempoEstMotivo", "Tiempo Est.:"},
};

template <typename T> T* con_nombre(T* w, const char* nombre) {
    w->setObjectName(QLatin1String(nombre));
    return w;
}

} // namespace

FormPedidoNuevo::FormPedidoNuevo(ModuloPrincipal& m, QWidget* padre)
    : QWidget(padre, Qt::Window), m_(m), timerColorFondo_(new Temporizador(this)),
      timerSilenciar_(new Temporizador(this)) {
    setObjectName(QStringLiteral("FormPedidoNuevo"));
    setWindowTitle(Titulo);
    timerColorFondo_->setObjectName(QStringLiteral("TimerColorFondo"));
    timerSilenciar_->setObjectName(QStringLiteral("TimerSilenciar"));
    construir();

    connect(timerColorFondo_, &Temporizador::tick, this,
            [this] { protegido([this] { tickColorFondo(); }); });
    connect(timerSilenciar_, &Temporizador::tick, this,
            [this] { protegido([this] { tickSilenciar(); }); });
    // Load: the minute of silence starts switched off.
    timerSilenciar_->setEnabled(false);
}

FormPedidoNuevo::~FormPedidoNuevo() = default;

void FormPedidoNuevo::construir() {
    auto* lista = con_nombre(new QTreeWidget(this), "ListViewProductos");
    PrepararListaInforme(lista);
    // The list takes what the details and the buttons leave of the screen, and scrolls: a
    // few rows at least, so that a large font on a small screen still shows the answers.
    lista->setMinimumHeight(90);

    auto* rejilla = new QGridLayout;
    rejilla->setHorizontalSpacing(12);
    rejilla->setVerticalSpacing(3);
    int fila = 0;
    for (const Par& par : kPares) {
        auto* cab = con_nombre(new QLabel(QString::fromUtf8(par.texto), this), par.cabecera);
        QFont negrita = cab->font();
        negrita.setBold(true);
        cab->setFont(negrita);
        QWidget* valor = nullptr;
        const QByteArray nombre(par.valor);
        if (nombre == "TxtDireccion") {
            auto* e = new QLineEdit(this);
            e->setReadOnly(true);
            valor = e;
        } else if (nombre == "TxtComentarios") {
            auto* t = new QPlainTextEdit(this);
            t->setReadOnly(true);
            t->setMaximumHeight(70);
            valor = t;
        } else {
            auto* l = new QLabel(this);
            l->setTextInteractionFlags(Qt::TextSelectableByMouse);
            // One line each: a long text is cut at the window's edge instead of widening it
            // (and no height-for-width layout runs at every order).
            if (nombre != "labPara") {
                l->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
            }
            valor = l;
        }
        valor->setObjectName(QLatin1String(par.valor));
        rejilla->addWidget(cab, fila, 0, Qt::AlignTop);
        if (nombre == "labPara") {
            rejilla->addWidget(valor, fila, 1, Qt::AlignLeft);
        } else {
            rejilla->addWidget(valor, fila, 1);
        }
        ++fila;
    }
    rejilla->setColumnStretch(1, 1);
    auto* total = findChild<QLabel*>(QStringLiteral("LabTotal"));
    QFont fTotal = total->font();
    fTotal.setBold(true);
    total->setFont(fTotal);

    auto* aceptar = con_nombre(new QPushButton(QStringLiteral("Aceptar Pedido"), this), "Aceptar");
    auto* rechazar = con_nombre(new QPushButton(QStringLiteral("Rechazar"), this), "Rechazar");
    auto* imprimir = con_nombre(new QPushButton(QStringLiteral("Imprimir"), this), "Imprimir");
    auto* silenciar =
        con_nombre(new QPushButton(QStringLiteral("Silenciar 1 min."), this), "Silenciar");
    auto* botones = new QHBoxLayout;
    for (QPushButton* b : {aceptar, rechazar, imprimir, silenciar}) {
        b->setMinimumHeight(40);
        botones->addWidget(b);
    }

    auto* columna = new QVBoxLayout(this);
    columna->addWidget(lista, 1);
    columna->addLayout(rejilla);
    columna->addLayout(botones);
    resize(640, 820);

    connect(aceptar, &QPushButton::clicked, this, &FormPedidoNuevo::aceptarPulsado);
    connect(rechazar, &QPushButton::clicked, this, &FormPedidoNuevo::rechazarPulsado);
    connect(silenciar, &QPushButton::clicked, this,
            [this] { protegido([this] { pulsarSilenciar(); }); });
    connect(imprimir, &QPushButton::clicked, this,
            [this] { protegido([this] { pulsarImprimir(); }); });
}

void FormPedidoNuevo::protegido(const std::function<void()>& manejador) {
    EjecutarProtegido(m_.cajas(), manejador);
}

void FormPedidoNuevo::IniciarParpadeo() {
    if (!m_.ParpadeoPedNuevo) {
        return;
    }
    fase_ = true;
    timerColorFondo_->setInterval(1000);
    timerColorFondo_->setEnabled(true);
}

void FormPedidoNuevo::tickColorFondo() {
    if (fase_) {
        const unsigned color = vista::ColorParpadeo(m_.IntensidadParpadeo);
        PonerFondo(this, ColorVB(color));
        fase_ = false;
    } else {
        PonerFondo(this, Qt::white);
        fase_ = true;
    }
}

void FormPedidoNuevo::SilenciarPedidoNuevo() {
    m_.sonido().DetenerSonido();
    timerSilenciar_->setInterval(60000);
    // Off and on again: the minute counts from now.
    timerSilenciar_->setEnabled(false);
    timerSilenciar_->setEnabled(true);
    if (m_.ParpadeoPedNuevo) {
        timerColorFondo_->setEnabled(false);
        PonerFondo(this, Qt::white);
    }
}

void FormPedidoNuevo::tickSilenciar() {
    if (!m_.PedidoNuevoPendiente) {
        timerSilenciar_->setEnabled(false);
        return;
    }
    m_.sonido().ReproducirSonido();
    IniciarParpadeo();
    timerSilenciar_->setEnabled(false);
    setWindowState(windowState() & ~Qt::WindowMinimized);
    if (isVisible()) {
        showNormal();
    }
}

void FormPedidoNuevo::CubrirDatosPersonales() {
    findChild<QLabel*>(QStringLiteral("LabCliente"))->setText(vista::TextoCubierto);
    findChild<QLineEdit*>(QStringLiteral("TxtDireccion"))->setText(vista::TextoCubierto);
    findChild<QLabel*>(QStringLiteral("LabTelefono"))->setText(vista::TextoCubierto);
}

void FormPedidoNuevo::pulsarSilenciar() {
    if (m_.OcultarDatosPerson) {
        const Pedido& p = m_.PedidoActual;
        findChild<QLabel*>(QStringLiteral("LabCliente"))->setText(p.Cliente);
        auto* direccion = findChild<QLineEdit*>(QStringLiteral("TxtDireccion"));
        direccion->setText(p.FormaEntrega);
        direccion->setCursorPosition(0);
        findChild<QLabel*>(QStringLiteral("LabTelefono"))->setText(p.Telefono);
    }
    SilenciarPedidoNuevo();
}

void FormPedidoNuevo::pulsarImprimir() {
    // One copy on slot 1, else slot 2, else the box.
    ImprimirPedidoNuevo(m_);
}

void FormPedidoNuevo::closeEvent(QCloseEvent* e) {
    // A new order cannot be dismissed without an answer: it comes back after a minute.
    e->ignore();
    protegido([this] {
        showMinimized();
        SilenciarPedidoNuevo();
    });
}

void FormPedidoNuevo::changeEvent(QEvent* e) {
    QWidget::changeEvent(e);
    if (e->type() == QEvent::WindowStateChange && (windowState() & Qt::WindowMinimized)) {
        protegido([this] { SilenciarPedidoNuevo(); });
    }
}
