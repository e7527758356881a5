#include "messages/FormMensajeNuevo.h"

#include "base/Conversiones.h"
#include "base/ModuloPrincipal.h"
#include "messages/Mensaje.h"
#include "platform/EjecucionProtegida.h"
#include "platform/Temporizador.h"
#include "sound/AlertaSonora.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

template <typename T> T* con_nombre(T* w, const char* nombre) {
    w->setObjectName(QLatin1String(nombre));
    return w;
}

QLabel* etiqueta(QWidget* padre, const char* nombre, const QString& texto, bool negrita = false) {
    auto* l = con_nombre(new QLabel(texto, padre), nombre);
    if (negrita) {
        QFont f = l->font();
        f.setBold(true);
        l->setFont(f);
    }
    return l;
}

QLabel* valor(QWidget* padre, const char* nombre) {
    auto* l = con_nombre(new QLabel(padre), nombre);
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A long value is cut at the frame's edge rather than widening the window.
    l->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return l;
}

} // namespace

FormMensajeBase::FormMensajeBase(const char* nombre, const QString& titulo, QWidget* padre)
    : QWidget(padre, Qt::Window) {
    setObjectName(QLatin1String(nombre));
    setWindowTitle(titulo);

    labAsunto = valor(this, "labAsunto");
    QFont grande = labAsunto->font();
    grande.setBold(true);
    grande.setPointSize(grande.pointSize() + 2);
    labAsunto->setFont(grande);
    TextMensaje = con_nombre(new QPlainTextEdit(this), "TextMensaje");
    TextMensaje->setReadOnly(true);
    labCabInfoMensaje = etiqueta(this, "labCabInfoMensaje", QString(), true);
    TextRespuesta = con_nombre(new QPlainTextEdit(this), "TextRespuesta");
    TextRespuesta->setTabChangesFocus(true);
    TextRespuesta->setMaximumHeight(90);

    frmPedido = con_nombre(new QGroupBox(this), "frmPedido");
    LabCliente = valor(frmPedido, "LabCliente");
    LabTelefono = valor(frmPedido, "LabTelefono");
    TxtDireccion = con_nombre(new QLineEdit(frmPedido), "TxtDireccion");
    TxtDireccion->setReadOnly(true);
    LabTotal = valor(frmPedido, "LabTotal");
    LabMetodoPago = valor(frmPedido, "LabMetodoPago");
    LabRealizadoEl = valor(frmPedido, "LabRealizadoEl");
    butVerPedido =
        con_nombre(new QPushButton(QStringLiteral("Ver Pedido"), frmPedido), "butVerPedido");
    auto* datos = new QFormLayout;
    datos->setVerticalSpacing(2);
    datos->addRow(QStringLiteral("Cliente:"), LabCliente);
    datos->addRow(QStringLiteral("Teléfono:"), LabTelefono);
    datos->addRow(QStringLiteral("Entrega:"), TxtDireccion);
    datos->addRow(QStringLiteral("Total:"), LabTotal);
    datos->addRow(QStringLiteral("Pago:"), LabMetodoPago);
    datos->addRow(QStringLiteral("Realizado el:"), LabRealizadoEl);
    auto* marco = new QHBoxLayout(frmPedido);
    marco->addLayout(datos, 1);
    marco->addWidget(butVerPedido, 0, Qt::AlignBottom);
    connect(butVerPedido, &QPushButton::clicked, this, &FormMensajeBase::verPedidoPulsado);

    auto* asunto = new QHBoxLayout;
    asunto->addWidget(etiqueta(this, "Label3", QStringLiteral("Asunto:"), true));
    asunto->addWidget(labAsunto, 1);
    columna_ = new QVBoxLayout(this);
    columna_->addLayout(asunto);
    columna_->addWidget(etiqueta(this, "LabMensaje", QStringLiteral("Mensaje:"), true));
    columna_->addWidget(TextMensaje, 1);
    columna_->addWidget(frmPedido);
    columna_->addWidget(labCabInfoMensaje);
}

FormMensajeNuevo::FormMensajeNuevo(ModuloPrincipal& m, QWidget* padre)
    : FormMensajeBase("FormMensajeNuevo", QStringLiteral("MENSAJE NUEVO"), padre), m_(m),
      timerSilenciar_(new Temporizador(this)) {
    timerSilenciar_->setObjectName(QStringLiteral("TimerSilenciarMensaje"));
    labInfoMensaje = etiqueta(this, "labInfoMensaje", QString());
    labInfoMensaje->setWordWrap(true);
    butResponder = con_nombre(new QPushButton(QStringLiteral("Responder"), this), "butResponder");
    butVisto = con_nombre(new QPushButton(QStringLiteral("Visto"), this), "butVisto");
    butCancelarPed =
        con_nombre(new QPushButton(QStringLiteral("Cancelar Pedido"), this), "butCancelarPed");
    butNoCancelarPed =
        con_nombre(new QPushButton(QStringLiteral("NO Cancelar Pedido"), this), "butNoCancelarPed");
    Silenciar = con_nombre(new QPushButton(QStringLiteral("Silenciar 1 min."), this), "Silenciar");
    // As designed: a plain message, nothing written yet.
    butResponder->setEnabled(false);
    butCancelarPed->hide();
    butNoCancelarPed->hide();

    columna_->addWidget(labInfoMensaje);
    columna_->addWidget(etiqueta(this, "Label1", QStringLiteral("TU RESPUESTA:"), true));
    columna_->addWidget(TextRespuesta);
    auto* botones = new QHBoxLayout;
    for (QPushButton* b : {butResponder, butVisto, butCancelarPed, butNoCancelarPed, Silenciar}) {
        b->setMinimumHeight(36);
        botones->addWidget(b);
    }
    columna_->addLayout(botones);
    resize(620, 600);

    connect(butResponder, &QPushButton::clicked, this, &FormMensajeNuevo::responderPulsado);
    connect(butVisto, &QPushButton::clicked, this, &FormMensajeNuevo::vistoPulsado);
    connect(butCancelarPed, &QPushButton::clicked, this, &FormMensajeNuevo::cancelarPedPulsado);
    connect(butNoCancelarPed, &QPushButton::clicked, this, &FormMensajeNuevo::noCancelarPedPulsado);
    connect(Silenciar, &QPushButton::clicked, this,
            [this] { protegido([this] { SilenciarMensaje(); }); });
    connect(TextRespuesta, &QPlainTextEdit::textChanged, this,
            [this] { protegido([this] { cambioRespuesta(); }); });
    connect(timerSilenciar_, &Temporizador::tick, this,
            [this] { protegido([this] { tickSilenciar(); }); });
}

void FormMensajeNuevo::protegido(const std::function<void()>& manejador) {
    EjecutarProtegido(m_.cajas(), manejador);
}

void FormMensajeNuevo::cambioRespuesta() {
    if (!clasico::Trim(TextRespuesta->toPlainText()).isEmpty()) {
        butResponder->setEnabled(true);
        butVisto->setEnabled(false);
    } else if (!mensaje::EsCancelacion(m_)) {
        butResponder->setEnabled(false);
        butVisto->setEnabled(true);
    }
}

void FormMensajeNuevo::SilenciarMensaje() {
    m_.sonido().DetenerSonido();
    timerSilenciar_->setInterval(60000);
    // Off and on again: the minute counts from now.
    timerSilenciar_->setEnabled(false);
    timerSilenciar_->setEnabled(true);
}

void FormMensajeNuevo::tickSilenciar() {
    timerSilenciar_->setEnabled(false);
    if (!m_.MensajeNuevoPendiente) {
        return;
    }
    m_.sonido().ReproducirSonido();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    if (isVisible()) {
        showNormal();
    }
}

void FormMensajeNuevo::closeEvent(QCloseEvent* e) {
    // A message cannot be dismissed without an answer: it comes back after a minute.
    e->ignore();
    protegido([this] {
        showMinimized();
        SilenciarMensaje();
    });
}

void FormMensajeNuevo::changeEvent(QEvent* e) {
    QWidget::changeEvent(e);
    if (e->type() == QEvent::WindowStateChange && (windowState() & Qt::WindowMinimized)) {
        protegido([this] { SilenciarMensaje(); });
    }
}

FormMensajeAnterior::FormMensajeAnterior(QWidget* padre)
    : FormMensajeBase("FormMensajeAnterior", QStringLiteral("Último Mensaje"), padre) {
    TextRespuesta->setReadOnly(true);
    butCerrar = con_nombre(new QPushButton(QStringLiteral("Cerrar"), this), "butCerrar");
    columna_->addWidget(etiqueta(this, "Label1", QStringLiteral("TU RESPUESTA:"), true));
    columna_->addWidget(TextRespuesta);
    columna_->addWidget(butCerrar, 0, Qt::AlignRight);
    connect(butCerrar, &QPushButton::clicked, this, &QWidget::hide);
    resize(620, 560);
}

FormNoCancelarPed::FormNoCancelarPed(QWidget* padre) : QWidget(padre, Qt::Window) {
    setObjectName(QStringLiteral("FormNoCancelarPed"));
    setWindowTitle(QStringLiteral("NO Cancelar Pedido"));
    auto* columna = new QVBoxLayout(this);
    int indice = 0;
    for (const mensaje::Negativa& n : mensaje::Negativas) {
        auto* b = con_nombre(new QPushButton(n.caption, this), n.boton);
        b->setMinimumHeight(40);
        columna->addWidget(b);
        connect(b, &QPushButton::clicked, this, [this, indice] { Q_EMIT negativaPulsada(indice); });
        ++indice;
    }
    auto* atras =
        con_nombre(new QPushButton(QStringLiteral("<< Atrás"), this), "butCancelarAceptar");
    columna->addWidget(atras);
    connect(atras, &QPushButton::clicked, this, &FormNoCancelarPed::atrasPulsado);
    resize(360, 220);
}
