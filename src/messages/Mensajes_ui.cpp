#include "messages/Mensajes_ui.h"

#include "base/CaminoPedido.h"
#include "base/Conversiones.h"
#include "base/ModuloPrincipal.h"
#include "messages/FormMensajeNuevo.h"
#include "messages/Mensaje.h"
#include "orders/FormRechazarPedido.h"
#include "orders/RegistroPedido.h"
#include "orders/RespuestasPedido_ui.h"
#include "platform/CajaMensajes.h"
#include "platform/Controles_ui.h"
#include "platform/EjecucionProtegida.h"
#include "platform/Temporizador.h"
#include "sound/AlertaSonora.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {
void Mostrar(QWidget* w) {
    w->setWindowState(w->windowState() & ~Qt::WindowMinimized);
    w->show();
    ColocarVentana(w, true);
}
} // namespace

Mensajes::Mensajes(ModuloPrincipal& m, RespuestasPedido& respuestas, Escritorio escritorio,
                   QWidget* padre)
    : QObject(padre), m_(m), respuestas_(respuestas), escritorio_(std::move(escritorio)),
      padre_(padre) {}

void Mensajes::protegido(const std::function<void()>& manejador) {
    EjecutarProtegido(m_.cajas(), manejador);
}

FormMensajeNuevo& Mensajes::formMensajeNuevo() {
    if (nuevo_ == nullptr) {
        nuevo_ = new FormMensajeNuevo(m_, padre_);
        connect(nuevo_, &FormMensajeNuevo::responderPulsado, this,
                [this] { protegido([this] { PulsarResponder(); }); });
        connect(nuevo_, &FormMensajeNuevo::vistoPulsado, this,
                [this] { protegido([this] { PulsarVisto(); }); });
        connect(nuevo_, &FormMensajeNuevo::cancelarPedPulsado, this,
                [this] { protegido([this] { PulsarCancelarPed(); }); });
        connect(nuevo_, &FormMensajeNuevo::noCancelarPedPulsado, this,
                [this] { protegido([this] { PulsarNoCancelarPed(); }); });
        connect(nuevo_, &FormMensajeBase::verPedidoPulsado, this,
                [this] { protegido([this] { PulsarVerPedido(); }); });
    }
    return *nuevo_;
}

FormMensajeAnterior& Mensajes::formMensajeAnterior() {
    if (anterior_ == nullptr) {
        anterior_ = new FormMensajeAnterior(padre_);
        connect(anterior_, &FormMensajeBase::verPedidoPulsado, this,
                [this] { protegido([this] { PulsarVerPedido(); }); });
    }
    return *anterior_;
}

FormNoCancelarPed& Mensajes::formNoCancelarPed() {
    if (noCancelar_ == nullptr) {
        noCancelar_ = new FormNoCancelarPed(padre_);
        connect(noCancelar_, &FormNoCancelarPed::negativaPulsada, this,
                [this](int i) { protegido([this, i] { PulsarNegativa(i); }); });
        connect(noCancelar_, &FormNoCancelarPed::atrasPulsado, this,
                [this] { protegido([this] { PulsarAtrasNegativa(); }); });
    }
    return *noCancelar_;
}

void Mensajes::RecibirMensaje(const QString& respuesta) {
    if (!mensaje::LeerMensaje(m_, respuesta)) {
        // Nothing to show or to answer: taking it would leave the desk waiting for ever.
        Q_EMIT m_.textoInfo(mensaje::MensajeIlegible);
        return;
    }
    m_.MensajeNuevoPendiente = true;
    escritorio_.detenerSondeo();
    FormMensajeNuevo& v = formMensajeNuevo();
    // A failure while filling is reported, and the window still comes up: only an answer
    // starts the polling again.
    protegido([this] { CargarMensajeNuevo(); });
    m_.sonido().ReproducirSonido();
    Mostrar(&v);
    v.activateWindow();
    v.TextRespuesta->setFocus();
    escritorio_.vigilar();
}

bool Mensajes::cargarComun(FormMensajeBase& v) {
    v.labAsunto->setText(mensaje::Campo(m_, QStringLiteral("asunto")));
    v.TextMensaje->setPlainText(mensaje::Campo(m_, QStringLiteral("mensaje")));
    if (!mensaje::LeerPedidoDelMensaje(m_)) {
        v.frmPedido->hide();
        return false;
    }
    const Pedido& p = m_.PedidoActual;
    v.frmPedido->show();
    v.frmPedido->setTitle(mensaje::TituloPedido(p));
    v.LabCliente->setText(p.Cliente);
    v.LabTelefono->setText(p.Telefono);
    v.TxtDireccion->setText(p.FormaEntrega);
    v.TxtDireccion->setCursorPosition(0);
    v.LabTotal->setText(p.TotalPedido);
    v.LabMetodoPago->setText(p.FormaPago);
    v.LabRealizadoEl->setText(p.RealizadoEl);
    return true;
}

void Mensajes::CargarMensajeNuevo() {
    FormMensajeNuevo& v = formMensajeNuevo();
    // Without its order on screen a message is answered as a plain one: the cancel buttons
    // would act on whatever order the desk read last.
    const bool cancelacion = cargarComun(v) && mensaje::EsCancelacion(m_);
    if (cancelacion && !estado::esAceptado(m_.PedidoActual.Estado)) {
        v.butCancelarPed->hide();
        v.TextRespuesta->setPlainText(mensaje::YaRechazado);
        return;
    }
    v.butResponder->setVisible(!cancelacion);
    v.butVisto->setVisible(!cancelacion);
    v.butCancelarPed->setVisible(cancelacion);
    v.butNoCancelarPed->setVisible(cancelacion);
    v.butResponder->setEnabled(cancelacion);
    if (const auto cabecera = mensaje::CabeceraDe(m_, cancelacion)) {
        v.labCabInfoMensaje->setText(cabecera->titulo);
        v.labInfoMensaje->setText(cabecera->info);
    }
}

void Mensajes::CargarMensajeAnterior() {
    FormMensajeAnterior& v = formMensajeAnterior();
    // Reading the message's order must not take the place of an order on screen, whose
    // answer prints PedidoActual.
    const Pedido enCurso = m_.PedidoActual;
    cargarComun(v);
    m_.PedidoActual = enCurso;
    if (const auto cabecera = mensaje::CabeceraDe(m_, false)) {
        v.labCabInfoMensaje->setText(cabecera->titulo);
    }
    v.TextRespuesta->setPlainText(mensaje::Campo(m_, QStringLiteral("respuesta")));
}

bool Mensajes::ResponderMensajeServicio(const QString& id, const QString& texto) {
    if (!mensaje::EnviarRespuesta(m_, id, texto)) {
        return false;
    }
    m_.MensajeNuevoPendiente = false;
    formMensajeNuevo().hide();
    if (m_.MinimizarTrasResp && escritorio_.minimizar) {
        escritorio_.minimizar();
    }
    return true;
}

bool Mensajes::ResponderMensaje(const QString& texto) {
    // The answer's box runs its own event loop: no order or message is taken meanwhile.
    const OcupacionCamino ocupado(m_);
    if (!ResponderMensajeServicio(mensaje::Campo(m_, QStringLiteral("id")), texto)) {
        return false;
    }
    FormMensajeNuevo& v = formMensajeNuevo();
    m_.sonido().DetenerSonido();
    v.TimerSilenciarMensaje().setEnabled(false);
    escritorio_.reanudarSondeo();
    mensaje::GuardarRespuesta(m_, texto);
    v.TextRespuesta->clear();
    v.butResponder->setEnabled(false);
    v.butVisto->setEnabled(true);
    return true;
}

void Mensajes::PulsarResponder() {
    ResponderMensaje(formMensajeNuevo().TextRespuesta->toPlainText());
}

void Mensajes::PulsarVisto() {
    ResponderMensaje(QString());
}

void Mensajes::PulsarCancelarPed() {
    FormMensajeNuevo& v = formMensajeNuevo();
    v.SilenciarMensaje();
    m_.UltimoIdPedido = m_.PedidoActual.NumPedido;
    FormRechazarPedido& r = respuestas_.formRechazarPedido();
    // Shown, hidden and shown again: the window names itself after the order's state as it
    // comes up ("Cancelar Pedido" for an accepted one).
    Mostrar(&r);
    r.hide();
    Mostrar(&r);
    r.txtMasInfoRechazo()->setFocus();
    r.comMotivoRechazo()->setCurrentIndex(9);
    ColocarVentana(&r, true);
    r.txtMasInfoRechazo()->setText(v.TextRespuesta->toPlainText());
    r.labInfoRechazoPago()->setVisible(m_.PedidoActual.EstadoPago != QLatin1String("NO Pagado"));
}

void Mensajes::PulsarNoCancelarPed() {
    FormMensajeNuevo& v = formMensajeNuevo();
    const QString texto = v.TextRespuesta->toPlainText();
    if (!clasico::Trim(texto).isEmpty()) {
        ResponderMensaje(texto);
        return;
    }
    v.hide();
    Mostrar(&formNoCancelarPed());
}

void Mensajes::PulsarNegativa(int indice) {
    formNoCancelarPed().hide();
    const auto i = static_cast<size_t>(indice);
    if (i >= std::size(mensaje::Negativas)) {
        return;
    }
    if (!ResponderMensaje(mensaje::Negativas[i].texto)) {
        // The message is still unanswered: it comes back rather than ringing with no window.
        Mostrar(&formMensajeNuevo());
    }
}

void Mensajes::PulsarAtrasNegativa() {
    formNoCancelarPed().hide();
    Mostrar(&formMensajeNuevo());
}

void Mensajes::PulsarVerPedido() {
    QString resumen;
    ObtenerPedido(m_, mensaje::Campo(m_, QStringLiteral("numeropedidoest")), &resumen);
    if (MostrarPedidoAnterior) {
        MostrarPedidoAnterior(resumen);
    }
}

void Mensajes::PulsarUltimoMensaje() {
    if (!m_.MensajeActual) {
        m_.cajas().informacion(mensaje::SinMensajeReciente);
        return;
    }
    FormMensajeAnterior& v = formMensajeAnterior();
    Mostrar(&v);
    CargarMensajeAnterior();
}
