// The main window's status watch (TimerPedActualizado): while an order or a message waits on
// screen, it asks the service whether it was settled elsewhere and, if so, takes it down.
#include "base/CaminoPedido.h"
#include "base/Diario.h"
#include "base/ModuloPrincipal.h"
#include "orders/FormPedidoNuevo.h"
#include "orders/VigilanciaEstado.h"
#include "platform/Temporizador.h"
#include "server/ValorJson.h"
#include "shell/Form1.h"
#include "sound/AlertaSonora.h"

#include <QApplication>

namespace {

void Ocultar(std::initializer_list<const char*> nombres) {
    for (QWidget* w : QApplication::topLevelWidgets()) {
        for (const char* nombre : nombres) {
            if (w->objectName() == QLatin1String(nombre) && w->isVisible()) {
                w->hide();
            }
        }
    }
}

} // namespace

void Form1::tickPedActualizado() {
    // An order on screen comes before a message.
    if (m_.PedidoNuevoPendiente) {
        vigilarPedido();
    } else if (m_.MensajeNuevoPendiente) {
        vigilarMensaje();
    }
}

void Form1::vigilarPedido() {
    const QString numero = m_.PedidoActual.NumPedido;
    const QString respuesta = m_.ConsultarServidor(vigilancia::RutaEstadoPedido(m_));
    // The reply comes back through the event queue: an answer started here meanwhile, or
    // another order on screen, has the last word.
    if (!vigilancia::PedidoResuelto(respuesta) || !m_.PedidoNuevoPendiente || !CaminoLibre(m_) ||
        m_.PedidoActual.NumPedido != numero) {
        return;
    }
    m_.sonido().DetenerSonido();
    if (formPedidoNuevo_ != nullptr) {
        formPedidoNuevo_->TimerSilenciar().setEnabled(false);
    }
    Ocultar({"FormAceptarPedido", "FormAceptarPedidoProg", "FormRechazarPedido",
             "FormProductosRechazarIngredientesPedido", "FormPedidoNuevo"});
    m_.PedidoNuevoPendiente = false;
    timerPedidos_->setEnabled(true);
    timerPedActualizado_->setEnabled(false);
    qCInfo(diarioPedidos).noquote() << "pedido" << numero << "respondido en otro sitio";
}

void Form1::vigilarMensaje() {
    const auto mensaje = m_.MensajeActual;
    const QString respuesta = m_.ConsultarServidor(vigilancia::RutaEstadoMensaje(m_));
    const std::optional<QString> contestado = vigilancia::MensajeResuelto(respuesta);
    if (!contestado || !m_.MensajeNuevoPendiente || !CaminoLibre(m_) ||
        m_.MensajeActual != mensaje || !mensaje) {
        return;
    }
    // What "Último mensaje" shows: the answer given elsewhere.
    mensaje->Item(QStringLiteral("respuesta")) = ValorJson(*contestado);
    m_.sonido().DetenerSonido();
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->objectName() == QLatin1String("FormMensajeNuevo")) {
            if (auto* t = w->findChild<Temporizador*>(QStringLiteral("TimerSilenciarMensaje"))) {
                t->setEnabled(false);
            }
        }
    }
    Ocultar({"FormNoCancelarPed", "FormRechazarPedido", "FormProductosRechazarIngredientesPedido",
             "FormMensajeNuevo"});
    m_.MensajeNuevoPendiente = false;
    timerPedidos_->setEnabled(true);
    timerPedActualizado_->setEnabled(false);
    qCInfo(diarioPedidos).noquote() << "mensaje respondido en otro sitio";
}
