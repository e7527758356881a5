#include "history/FormPedidoAnterior.h"

#include "base/ModuloPrincipal.h"
#include "history/BusquedaPedidos.h"
#include "orders/FormPedidoNuevo.h"
#include "orders/FormRechazarPedido.h"
#include "orders/RegistroPedido.h"
#include "orders/RespuestasPedido_ui.h"
#include "orders/VentanaPedido_ui.h"
#include "platform/Controles_ui.h"
#include "platform/EjecucionProtegida.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QPushButton* boton(QWidget* padre, const char* nombre, const QString& texto) {
    auto* b = new QPushButton(texto, padre);
    b->setObjectName(QLatin1String(nombre));
    b->setMinimumHeight(36);
    return b;
}

// A waiting customer message turns the cancel button orange: cancelling here answers it.
const QColor kGris(192, 192, 192);
const QColor kNaranja(255, 153, 51);

} // namespace

FormPedidoAnterior::FormPedidoAnterior(ModuloPrincipal& m, RespuestasPedido& respuestas,
                                       QWidget* padre)
    : QWidget(padre, Qt::Window), m_(m), respuestas_(respuestas) {
    setObjectName(QStringLiteral("FormPedidoAnterior"));
    setWindowTitle(QStringLiteral("Pedido"));
    auto* columna = new QVBoxLayout(this);
    ConstruirControlesPedido(this, columna);

    // The order's summary text; kept for whoever reads the window, not shown.
    txtPedidoAnt_ = new QPlainTextEdit(this);
    txtPedidoAnt_->setObjectName(QStringLiteral("txtPedidoAnt"));
    txtPedidoAnt_->setReadOnly(true);
    txtPedidoAnt_->hide();

    auto* imprimir = boton(this, "butImprimirPedAnt", QStringLiteral("Imprimir Ticket"));
    auto* cocina = boton(this, "butImprimirPedAntCocina", QStringLiteral("Imprimir Cocina"));
    auto* completo = boton(this, "butImprimirPedAntCompleto", QStringLiteral("Imprimir Completo"));
    rechazar_ = boton(this, "Rechazar", QStringLiteral("Cancelar Pedido"));
    auto* cerrar = boton(this, "butCerrarPedAnt", QStringLiteral("Cerrar"));
    auto* botones = new QHBoxLayout;
    for (QPushButton* b : {imprimir, cocina, completo, rechazar_, cerrar}) {
        botones->addWidget(b);
    }
    columna->addLayout(botones);
    PonerFondo(rechazar_, kGris);
    resize(640, 720);

    connect(imprimir, &QPushButton::clicked, this,
            [this] { protegido([this] { PulsarImprimir(); }); });
    connect(cocina, &QPushButton::clicked, this,
            [this] { protegido([this] { PulsarImprimirCocina(); }); });
    connect(completo, &QPushButton::clicked, this,
            [this] { protegido([this] { PulsarImprimirCompleto(); }); });
    connect(rechazar_, &QPushButton::clicked, this,
            [this] { protegido([this] { PulsarRechazar(); }); });
    connect(cerrar, &QPushButton::clicked, this, &QWidget::hide);
}

void FormPedidoAnterior::protegido(const std::function<void()>& manejador) {
    EjecutarProtegido(m_.cajas(), manejador);
}

void FormPedidoAnterior::Abrir(const QString& numero, bool encima) {
    QString resumen;
    if (ObtenerPedido(m_, numero, &resumen)) {
        Mostrar(resumen, encima);
    }
}

void FormPedidoAnterior::Mostrar(const QString& resumen, bool encima) {
    txtPedidoAnt_->setPlainText(resumen);
    // A painting that fails part way still shows the window with what it got, as the
    // new-order window does.
    EjecutarProtegido(m_.cajas(), [this] { RellenarVentanaPedido(m_, this); });
    show();
    ColocarVentana(this, encima);
    raise();
    rechazar_->setVisible(historial::CancelacionPermitida(m_.PedidoActual, m_.RechazarAceptado));
    colorRechazar();
}

void FormPedidoAnterior::colorRechazar() {
    PonerFondo(rechazar_, m_.MensajeNuevoPendiente ? kNaranja : kGris);
}

bool FormPedidoAnterior::event(QEvent* e) {
    if (e->type() == QEvent::WindowActivate) {
        colorRechazar();
    }
    return QWidget::event(e);
}

void FormPedidoAnterior::PulsarRechazar() {
    // The answer is sent for UltimoIdPedido.
    m_.UltimoIdPedido = m_.PedidoActual.NumPedido;
    FormRechazarPedido& v = respuestas_.formRechazarPedido();
    v.show();
    v.txtMasInfoRechazo()->setFocus();
    v.comMotivoRechazo()->setCurrentIndex(0);
    v.txtMasInfoRechazo()->clear();
    ColocarVentana(&v, true);
    v.labInfoRechazoPago()->setVisible(m_.PedidoActual.EstadoPago != QLatin1String("NO Pagado"));
}

void FormPedidoAnterior::PulsarImprimir() {
    historial::ReimprimirTicket(m_);
}

void FormPedidoAnterior::PulsarImprimirCocina() {
    historial::ReimprimirSegunEstado(m_, true);
}

void FormPedidoAnterior::PulsarImprimirCompleto() {
    historial::ReimprimirSegunEstado(m_, false);
}
