#include "history/FormPedidosAnteriores.h"

#include "base/ModuloPrincipal.h"
#include "history/BusquedaPedidos.h"
#include "history/ResumenVentas.h"
#include "orders/RegistroPedido.h"
#include "platform/CajaMensajes.h"
#include "platform/EjecucionProtegida.h"
#include "platform/Reloj.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

template <typename T> T* con_nombre(T* w, const QString& nombre) {
    w->setObjectName(nombre);
    return w;
}

// An option array: each button named after the array and carrying its index.
QButtonGroup* opciones(QGroupBox* marco, QBoxLayout* caja, const char* nombre,
                       const QStringList& textos) {
    auto* grupo = new QButtonGroup(marco);
    grupo->setObjectName(QLatin1String(nombre));
    for (int i = 0; i < textos.size(); ++i) {
        auto* b = con_nombre(new QRadioButton(textos[i], marco),
                             QLatin1String(nombre) + QString::number(i));
        b->setProperty("Index", i);
        grupo->addButton(b, i);
        caja->addWidget(b);
    }
    grupo->button(0)->setChecked(true);
    return grupo;
}

QDateEdit* fecha(QWidget* padre, const char* nombre, const QDate& d) {
    auto* e = con_nombre(new QDateEdit(d, padre), QLatin1String(nombre));
    e->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    e->setCalendarPopup(true);
    return e;
}

} // namespace

FormPedidosAnteriores::FormPedidosAnteriores(ModuloPrincipal& m,
                                             std::function<void(const QString&)> abrirPedido,
                                             QWidget* padre)
    : QWidget(padre, Qt::Window), m_(m), abrirPedido_(std::move(abrirPedido)) {
    setObjectName(QStringLiteral("FormPedidosAnteriores"));
    setWindowTitle(QStringLiteral("Pedidos Anteriores"));
    construir();
}

void FormPedidosAnteriores::construir() {
    const QDate hoy = m_.reloj().ahora().date();

    auto* frame1 = con_nombre(new QGroupBox(QStringLiteral("Fecha"), this), "Frame1");
    auto* cajaFecha = new QVBoxLayout(frame1);
    periodo_ =
        opciones(frame1, cajaFecha, "OptBuscarPedidos",
                 {QStringLiteral("Hoy"), QStringLiteral("Ayer"), QStringLiteral("Por fecha:"),
                  QStringLiteral("Últimos ") + QString::number(m_.NumeroPedidosHistorico)});
    desde_ = fecha(frame1, "DTDesde", hoy.addDays(-7));
    hasta_ = fecha(frame1, "DTHasta", hoy);
    auto* fechas = new QGridLayout;
    fechas->addWidget(con_nombre(new QLabel(QStringLiteral("Desde"), frame1), "labDesde"), 0, 0);
    fechas->addWidget(desde_, 0, 1);
    fechas->addWidget(con_nombre(new QLabel(QStringLiteral("Hasta"), frame1), "labHasta"), 1, 0);
    fechas->addWidget(hasta_, 1, 1);
    // Between "Por fecha:" and "Últimos".
    cajaFecha->insertLayout(3, fechas);
    auto* aplicar =
        con_nombre(new QPushButton(QStringLiteral("Aplicar"), frame1), "botBuscarPedidos");
    cajaFecha->addWidget(aplicar);

    auto* frame2 = con_nombre(new QGroupBox(QStringLiteral("Forma de Pago"), this), "Frame2");
    formaPago_ = opciones(
        frame2, new QVBoxLayout(frame2), "OptFormaPago",
        {QStringLiteral("Todas"), QStringLiteral("Efectivo"), QStringLiteral("Pago online")});

    auto* frame3 = con_nombre(new QGroupBox(QStringLiteral("Estado"), this), "Frame3");
    auto* cajaEstado = new QVBoxLayout(frame3);
    aceptados_ =
        con_nombre(new QCheckBox(QStringLiteral("Aceptados"), frame3), "CheckEstAceptados");
    rechazados_ =
        con_nombre(new QCheckBox(QStringLiteral("Rechazados"), frame3), "CheckEstRechazados");

    auto* frame4 = con_nombre(new QGroupBox(QStringLiteral("Forma de envío"), this), "Frame4");
    formaEnvio_ = opciones(
        frame4, new QVBoxLayout(frame4), "OptFormaEnvio",
        {QStringLiteral("Todas"), QStringLiteral("Envío a domicilio"), QStringLiteral("Recogen")});

    frameOrigen_ = con_nombre(new QGroupBox(QStringLiteral("Origen"), this), "FrameOrigen");
    auto* cajaOrigen = new QVBoxLayout(frameOrigen_);
    oriTarvimenta_ =
        con_nombre(new QCheckBox(QStringLiteral("Tarvimenta"), frameOrigen_), "CheckOriTarvimenta");
    oriWeb_ = con_nombre(new QCheckBox(QStringLiteral("Web particular"), frameOrigen_),
                         "CheckOriWebParticular");
    for (QCheckBox* c : {aceptados_, rechazados_, oriTarvimenta_, oriWeb_}) {
        c->setChecked(true);
    }
    cajaEstado->addWidget(aceptados_);
    cajaEstado->addWidget(rechazados_);
    cajaOrigen->addWidget(oriTarvimenta_);
    cajaOrigen->addWidget(oriWeb_);
    frameOrigen_->setVisible(m_.WebParticular);

    lista_ = con_nombre(new QListWidget(this), "ListPedidosAnteriores");
    lista_->setUniformItemSizes(true);
    numPedidos_ = con_nombre(new QLabel(QStringLiteral("0"), this), "labnumpedidos");
    importeTotal_ = con_nombre(new QLabel(this), "labimportetotal");
    importeBruto_ = con_nombre(new QLabel(this), "labimportetotalbruto");
    mensaje_ = con_nombre(new QLabel(this), "labMsgEstadoBuscarPed");
    mensaje_->setWordWrap(true);
    auto* totales = new QHBoxLayout;
    totales->addWidget(
        con_nombre(new QLabel(QStringLiteral("Pedidos:"), this), "labCabNumPedidos"));
    totales->addWidget(numPedidos_);
    totales->addSpacing(16);
    totales->addWidget(
        con_nombre(new QLabel(QStringLiteral("Importe Total:"), this), "labCabImporteTotal"));
    totales->addWidget(importeTotal_);
    totales->addSpacing(16);
    totales->addWidget(
        con_nombre(new QLabel(QStringLiteral("Importe Total Bruto:"), this), "Label3"));
    totales->addWidget(importeBruto_);
    totales->addStretch(1);

    auto* ver = con_nombre(new QPushButton(QStringLiteral("Ver Pedido"), this), "butVerPedido");
    auto* imprimir =
        con_nombre(new QPushButton(QStringLiteral("Imprimir Ticket"), this), "butImprimirPedAnt");
    auto* cocina = con_nombre(new QPushButton(QStringLiteral("Imprimir Cocina"), this),
                              "butImprimirPedAntCocina");
    auto* completo = con_nombre(new QPushButton(QStringLiteral("Imprimir Completo"), this),
                                "butImprimirPedAntCompleto");
    auto* cerrar = con_nombre(new QPushButton(QStringLiteral("Cerrar"), this), "butCerrar");
    auto* botones = new QHBoxLayout;
    for (QPushButton* b : {ver, imprimir, cocina, completo, cerrar}) {
        b->setMinimumHeight(36);
        botones->addWidget(b);
    }

    // Filters in a row above the list, so the window fits a 1024x768 screen.
    auto* filtros = new QHBoxLayout;
    for (QGroupBox* g : {frame1, frame2, frame3, frame4, frameOrigen_}) {
        filtros->addWidget(g, 0, Qt::AlignTop);
    }
    filtros->addStretch(1);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(filtros);
    todo->addWidget(lista_, 1);
    todo->addLayout(totales);
    todo->addWidget(mensaje_);
    todo->addLayout(botones);
    resize(980, 660);

    const auto buscar = [this] { protegido([this] { BuscarPedidos(); }); };
    for (QButtonGroup* g : {periodo_, formaPago_, formaEnvio_}) {
        connect(g, &QButtonGroup::buttonClicked, this, buscar);
    }
    connect(aplicar, &QPushButton::clicked, this, [this] {
        protegido([this] {
            periodo_->button(2)->setChecked(true);
            BuscarPedidos();
        });
    });
    connect(desde_, &QDateEdit::dateChanged, this,
            [this] { protegido([this] { fechaCambiada(); }); });
    connect(hasta_, &QDateEdit::dateChanged, this,
            [this] { protegido([this] { fechaCambiada(); }); });
    const QString sinEstado = QStringLiteral("Debe seleccionar al menos un estado");
    const QString sinOrigen = QStringLiteral("Debe seleccionar al menos un origen");
    connect(aceptados_, &QCheckBox::clicked, this, [=, this] {
        protegido([=, this] { pulsarCasilla(aceptados_, rechazados_, sinEstado); });
    });
    connect(rechazados_, &QCheckBox::clicked, this, [=, this] {
        protegido([=, this] { pulsarCasilla(rechazados_, aceptados_, sinEstado); });
    });
    connect(oriTarvimenta_, &QCheckBox::clicked, this, [=, this] {
        protegido([=, this] { pulsarCasilla(oriTarvimenta_, oriWeb_, sinOrigen); });
    });
    connect(oriWeb_, &QCheckBox::clicked, this, [=, this] {
        protegido([=, this] { pulsarCasilla(oriWeb_, oriTarvimenta_, sinOrigen); });
    });
    connect(ver, &QPushButton::clicked, this,
            [this] { protegido([this] { VerPedidoSeleccionado(); }); });
    connect(lista_, &QListWidget::itemDoubleClicked, this,
            [this] { protegido([this] { VerPedidoSeleccionado(); }); });
    connect(imprimir, &QPushButton::clicked, this,
            [this] { protegido([this] { PulsarImprimir(); }); });
    connect(cocina, &QPushButton::clicked, this,
            [this] { protegido([this] { PulsarImprimirCocina(); }); });
    connect(completo, &QPushButton::clicked, this,
            [this] { protegido([this] { PulsarImprimirCompleto(); }); });
    connect(cerrar, &QPushButton::clicked, this, &QWidget::hide);
}

void FormPedidosAnteriores::protegido(const std::function<void()>& manejador) {
    EjecutarProtegido(m_.cajas(), manejador);
}

void FormPedidosAnteriores::pulsarCasilla(QCheckBox* pulsada, QCheckBox* pareja,
                                          const QString& aviso) {
    if (!pulsada->isChecked() && !pareja->isChecked()) {
        pulsada->setChecked(true);
        m_.cajas().exclamacion(aviso);
        return;
    }
    BuscarPedidos();
}

void FormPedidosAnteriores::fechaCambiada() {
    // A date only picks "Por fecha:"; the search runs when that is a change of period.
    if (!periodo_->button(2)->isChecked()) {
        periodo_->button(2)->setChecked(true);
        BuscarPedidos();
    }
}

void FormPedidosAnteriores::BuscarPedidos() {
    mensaje_->clear();
    if (periodo_->checkedId() == 2 && desde_->date() > hasta_->date()) {
        m_.cajas().exclamacion(resumen::TextoFechasInvertidas());
        return;
    }
    lista_->clear();
    lista_->addItem(historial::Cargando);
    numPedidos_->setText(QStringLiteral("0"));
    importeTotal_->setText(QStringLiteral("0.00€"));
    // The call blocks: the list says so before it starts.
    lista_->viewport()->repaint();

    historial::Filtros f;
    f.periodo = periodo_->checkedId();
    f.formaPago = formaPago_->checkedId();
    f.formaEnvio = formaEnvio_->checkedId();
    f.aceptados = aceptados_->isChecked();
    f.rechazados = rechazados_->isChecked();
    f.origenTarvimenta = oriTarvimenta_->isChecked();
    f.origenWeb = oriWeb_->isChecked();
    f.desde = desde_->date();
    f.hasta = hasta_->date();
    const auto r =
        historial::LeerResultado(m_.ConsultarServidor(historial::RutaObtenerPedidos(m_, f)));
    if (!r) {
        return;
    }
    numPedidos_->setText(r->numPedidos);
    importeTotal_->setText(r->importeTotal);
    importeBruto_->setText(r->importeBruto);
    lista_->setUpdatesEnabled(false);
    lista_->clear();
    lista_->addItems(r->filas);
    lista_->setUpdatesEnabled(true);
    if (!r->mensaje.isEmpty()) {
        mensaje_->setText(r->mensaje);
    }
}

std::optional<QString> FormPedidosAnteriores::numeroSeleccionado() {
    const int fila = lista_->currentRow();
    std::optional<QString> numero;
    if (fila >= 0 && lista_->item(fila)->isSelected()) {
        numero = historial::NumeroDeFila(lista_->item(fila)->text());
    }
    if (!numero) {
        m_.cajas().mostrar(historial::TextoSinSeleccion());
    }
    return numero;
}

bool FormPedidosAnteriores::obtenerSeleccionado() {
    const auto numero = numeroSeleccionado();
    return numero && ObtenerPedido(m_, *numero);
}

void FormPedidosAnteriores::VerPedidoSeleccionado() {
    if (const auto numero = numeroSeleccionado(); numero && abrirPedido_) {
        abrirPedido_(*numero);
    }
}

void FormPedidosAnteriores::PulsarImprimir() {
    if (obtenerSeleccionado()) {
        historial::ReimprimirTicket(m_);
    }
}

void FormPedidosAnteriores::PulsarImprimirCocina() {
    if (obtenerSeleccionado()) {
        historial::ReimprimirSegunEstado(m_, true);
    }
}

void FormPedidosAnteriores::PulsarImprimirCompleto() {
    if (obtenerSeleccionado()) {
        historial::ReimprimirSegunEstado(m_, false);
    }
}
