#include "orders/RespuestasPedido_ui.h"

#include "base/CaminoPedido.h"
#include "base/ModuloPrincipal.h"
#include "orders/FormAceptarPedido.h"
#include "orders/FormPedidoNuevo.h"
#include "orders/FormRechazarPedido.h"
#include "orders/RespuestaPedido.h"
#include "orders/TeclasMostrador_ui.h"
#include "platform/CajaMensajes.h"
#include "platform/Controles_ui.h"
#include "platform/EjecucionProtegida.h"
#include "platform/Reloj.h"
#include "platform/Temporizador.h"
#include "printing/AvisoCancelacion.h"
#include "products/FormProductosRechazarIngredientes.h"
#include "sound/AlertaSonora.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace rp = respuesta_pedido;

namespace {
void OcultarPorNombre(const char* nombre) {
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->objectName() == QLatin1String(nombre) && w->isVisible()) {
            w->hide();
        }
    }
}
void Mostrar(QWidget* w) {
    w->setWindowState(w->windowState() & ~Qt::WindowMinimized);
    w->show();
    ColocarVentana(w, true);
}
} // namespace

RespuestasPedido::RespuestasPedido(ModuloPrincipal& m, FormPedidoNuevo& nuevo,
                                   Escritorio escritorio, QWidget* padre)
    : QObject(padre), m_(m), nuevo_(nuevo), escritorio_(std::move(escritorio)), padre_(padre) {
    ImprimirCancelacion = [&m] { ::ImprimirCancelacion(m); };
    connect(&nuevo_, &FormPedidoNuevo::aceptarPulsado, this,
            [this] { protegido([this] { PulsarAceptar(); }); });
    connect(&nuevo_, &FormPedidoNuevo::rechazarPulsado, this,
            [this] { protegido([this] { PulsarRechazar(); }); });
    TeclasMostrador(&nuevo_, QStringLiteral("Aceptar"), QStringLiteral("Silenciar"));
}

void RespuestasPedido::protegido(const std::function<void()>& manejador) {
    EjecutarProtegido(m_.cajas(), manejador);
}

FormAceptarPedido& RespuestasPedido::formAceptarPedido() {
    if (aceptar_ == nullptr) {
        aceptar_ = new FormAceptarPedido(padre_);
        aceptar_->MostrarSinTiempo(m_.MostrarSinTiempo);
        connect(aceptar_, &FormAceptarPedido::minutosPulsado, this,
                [this](int i) { protegido([this, i] { PulsarMinutos(i); }); });
        connect(aceptar_, &FormAceptarPedido::atrasPulsado, this,
                [this] { protegido([this] { PulsarAtrasAceptar(aceptar_); }); });
        TeclasMostrador(aceptar_, QString(), QStringLiteral("butCancelarAceptar"));
        QList<int> valores;
        for (int i = 0; i < respuesta_pedido::NumBotonesMinutos - 1; ++i) {
            valores.append(respuesta_pedido::MinutosDeBoton(i));
        }
        MinutosATeclado(aceptar_, valores, [this](int minutos) -> QAbstractButton* {
            for (auto* b :
                 aceptar_->findChildren<QAbstractButton*>(QStringLiteral("AceptarMinutos"))) {
                const int i = b->property("Index").toInt();
                if (i < respuesta_pedido::NumBotonesMinutos - 1 &&
                    respuesta_pedido::MinutosDeBoton(i) == minutos) {
                    return b;
                }
            }
            return nullptr;
        });
    }
    return *aceptar_;
}

FormAceptarPedidoProg& RespuestasPedido::formAceptarPedidoProg() {
    if (aceptarProg_ == nullptr) {
        aceptarProg_ = new FormAceptarPedidoProg(padre_);
        connect(aceptarProg_, &FormAceptarPedidoProg::aceptarPulsado, this,
                [this] { protegido([this] { PulsarAceptarProgramado(); }); });
        connect(aceptarProg_, &FormAceptarPedidoProg::atrasPulsado, this,
                [this] { protegido([this] { PulsarAtrasAceptar(aceptarProg_); }); });
        TeclasMostrador(aceptarProg_, QStringLiteral("AceptarProgramado"),
                        QStringLiteral("butCancelarAceptar"));
    }
    return *aceptarProg_;
}

FormRechazarPedido& RespuestasPedido::formRechazarPedido() {
    if (rechazar_ == nullptr) {
        rechazar_ = new FormRechazarPedido(padre_);
        rechazar_->RellenarMotivos(m_.MotivosRechazo);
        rechazar_->setEstado([this] { return m_.PedidoActual.Estado; });
        connect(rechazar_, &FormRechazarPedido::rechazarPulsado, this,
                [this] { protegido([this] { PulsarRechazarMotivo(); }); });
        connect(rechazar_, &FormRechazarPedido::atrasPulsado, this,
                [this] { protegido([this] { PulsarCancelarRechazar(); }); });
        TeclasMostrador(rechazar_, QStringLiteral("butRechazar"),
                        QStringLiteral("butCancelarRechazar"));
    }
    return *rechazar_;
}

FormProductosRechazarIngredientesPedido& RespuestasPedido::formProductosRechazar() {
    if (lista_ == nullptr) {
        lista_ = new FormProductosRechazarIngredientesPedido(m_, padre_);
        connect(lista_, &FormProductosRechazarIngredientesPedido::hechoPulsado, this,
                [this] { protegido([this] { PulsarHecho(); }); });
        connect(lista_, &FormProductosRechazarIngredientesPedido::cerrarPulsado, this,
                [this] { protegido([this] { PulsarCerrarLista(); }); });
        TeclasMostrador(lista_, QStringLiteral("CommandHecho"), QStringLiteral("butCerrar"),
                        QStringLiteral("ListViewProductosNoIngredientes"));
    }
    return *lista_;
}

void RespuestasPedido::RellenarMotivosRechazo() {
    formRechazarPedido().RellenarMotivos(m_.MotivosRechazo);
    formAceptarPedido().MostrarSinTiempo(m_.MostrarSinTiempo);
}

void RespuestasPedido::PulsarAceptar() {
    nuevo_.SilenciarPedidoNuevo();
    formRechazarPedido().hide();
    nuevo_.hide();
    const auto* labPara = nuevo_.findChild<QLabel*>(QStringLiteral("labPara"));
    const QString para = labPara != nullptr ? labPara->text() : QString();
    if (m_.PedidoActual.Para == QLatin1String("Para: Ahora")) {
        FormAceptarPedido& v = formAceptarPedido();
        Mostrar(&v);
        v.Respondiendo = false;
    } else {
        FormAceptarPedidoProg& v = formAceptarPedidoProg();
        v.LabelParaProg()->setText(para);
        Mostrar(&v);
        v.Respondiendo = false;
    }
}

void RespuestasPedido::responderConMinutos(QWidget* ventana, bool& respondiendo,
                                           const QString& minutos) {
    if (respondiendo) {
        return;
    }
    respondiendo = true;
    m_.PedidoActual.TiempoEstimado = minutos;
    m_.PedidoActual.HoraAceptacion = m_.reloj().ahora();
    bool hecho = false;
    // The guard comes down even when the send or the print fails on the way.
    protegido([&] { hecho = AceptarPedido(); });
    if (hecho) {
        m_.sonido().DetenerSonido();
        nuevo_.TimerSilenciar().setEnabled(false);
        ventana->hide();
        nuevo_.hide();
    }
    respondiendo = false;
}

void RespuestasPedido::PulsarMinutos(int indice) {
    FormAceptarPedido& v = formAceptarPedido();
    responderConMinutos(&v, v.Respondiendo, QString::number(rp::MinutosDeBoton(indice)));
}

void RespuestasPedido::PulsarAceptarProgramado() {
    FormAceptarPedidoProg& v = formAceptarPedidoProg();
    responderConMinutos(&v, v.Respondiendo, QStringLiteral("0"));
}

void RespuestasPedido::PulsarAtrasAceptar(QWidget* ventana) {
    ventana->hide();
    Mostrar(&nuevo_);
}

bool RespuestasPedido::AceptarPedido() {
    const OcupacionCamino ocupado(m_);
    const bool hecho = rp::EnviarAceptacion(
        m_,
        [this] {
            if (aceptar_ != nullptr) {
                aceptar_->hide();
            }
            nuevo_.hide();
        },
        escritorio_.reanudarSondeo);
    if (hecho && m_.MinimizarTrasResp && escritorio_.minimizar) {
        escritorio_.minimizar();
    }
    return hecho;
}

bool RespuestasPedido::AceptarAutomaticamente() {
    const OcupacionCamino ocupado(m_);
    const bool hecho = rp::EnviarAceptacionAutomatica(m_, [this] {
        if (aceptar_ != nullptr) {
            aceptar_->hide();
        }
        nuevo_.hide();
    });
    if (hecho && m_.MinimizarTrasResp && escritorio_.minimizar) {
        escritorio_.minimizar();
    }
    return hecho;
}

void RespuestasPedido::PulsarRechazar() {
    nuevo_.SilenciarPedidoNuevo();
    if (aceptar_ != nullptr) {
        aceptar_->hide();
    }
    nuevo_.hide();
    FormRechazarPedido& v = formRechazarPedido();
    Mostrar(&v);
    v.txtMasInfoRechazo()->setFocus();
    v.comMotivoRechazo()->setCurrentIndex(0);
    v.txtMasInfoRechazo()->clear();
    v.labInfoRechazoPago()->setVisible(m_.PedidoActual.EstadoPago != QLatin1String("NO Pagado"));
}

void RespuestasPedido::PulsarRechazarMotivo() {
    FormRechazarPedido& v = formRechazarPedido();
    if (!rp::MotivoSuficiente(v.comMotivoRechazo()->currentIndex(),
                              v.txtMasInfoRechazo()->text())) {
        m_.cajas().mostrar(rp::FaltaMotivo);
        return;
    }
    if (v.comMotivoRechazo()->currentText() != rp::NoHayIngredientes) {
        CancelarPedido();
        return;
    }
    formProductosRechazar().CargarListaProductos();
    v.hide();
    Mostrar(&formProductosRechazar());
    nuevo_.SilenciarPedidoNuevo();
}

void RespuestasPedido::PulsarCancelarRechazar() {
    formRechazarPedido().hide();
    if (m_.PedidoNuevoPendiente) {
        Mostrar(&nuevo_);
    }
}

void RespuestasPedido::PulsarHecho() {
    CancelarPedido();
}

void RespuestasPedido::PulsarCerrarLista() {
    formProductosRechazar().hide();
    Mostrar(&formRechazarPedido());
}

bool RespuestasPedido::RechazarPedido() {
    const OcupacionCamino ocupado(m_);
    FormRechazarPedido& v = formRechazarPedido();
    const bool hecho = rp::EnviarRechazo(
        m_, v.comMotivoRechazo()->currentText(), v.txtMasInfoRechazo()->text(),
        [this, &v] {
            v.hide();
            nuevo_.hide();
        },
        escritorio_.reanudarSondeo);
    if (hecho && m_.MinimizarTrasResp && escritorio_.minimizar) {
        escritorio_.minimizar();
    }
    return hecho;
}

bool RespuestasPedido::CancelarPedido() {
    // The cancellation notice and the closing box belong to the same answer.
    const OcupacionCamino ocupado(m_);
    const bool eraNuevo = m_.PedidoNuevoPendiente;
    if (!RechazarPedido()) {
        return false;
    }
    if (eraNuevo) {
        m_.sonido().DetenerSonido();
        nuevo_.TimerSilenciar().setEnabled(false);
        nuevo_.hide();
    } else {
        OcultarPorNombre("FormPedidoAnterior");
        OcultarPorNombre("FormPedidosAnteriores");
        if (ImprimirCancelacion) {
            ImprimirCancelacion();
        }
        const QString masInfo = formRechazarPedido().txtMasInfoRechazo()->text();
        if (m_.MensajeNuevoPendiente) {
            m_.MensajeNuevoPendiente = false;
            if (ResponderMensaje) {
                ResponderMensaje(rp::MensajeClienteCancelado(m_.PedidoActual.EstadoPago, masInfo));
            }
        }
        m_.cajas().mostrar(rp::TextoCancelado(m_.PedidoActual.EstadoPago));
    }
    formRechazarPedido().hide();
    if (lista_ != nullptr) {
        lista_->hide();
    }
    // Nobody reads the result of a finished cancellation.
    return false;
}
