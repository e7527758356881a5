// The desk in this process against the stand-in service: messages arrive on the poll, go on
// screen like an order, and every way of answering them reaches the service as written.
#include "common/MostradorSimulado.h"
#include "messages/FormMensajeNuevo.h"
#include "messages/Mensajes_ui.h"
#include "orders/FormRechazarPedido.h"
#include "orders/RespuestasPedido_ui.h"

#include <QComboBox>
#include <QGroupBox>
#include <QJsonObject>
#include <QPushButton>
#include <QTest>

namespace {

struct MensajesSimulador : MostradorSimulado {
    void configurar() override {
        m.RestId = 41;
        m.Pgprs = QStringLiteral("pg7");
        for (int i = 1; i < 9; ++i) {
            m.MotivosRechazo << QStringLiteral("Motivo %1").arg(i);
        }
        m.MotivosRechazo << QStringLiteral("Cancelado a petición del cliente.");
    }
    FormMensajeNuevo& v() { return f->mensajes().formMensajeNuevo(); }

    // A message on the next poll, and the poll; its id.
    QString llegaMensaje(const QString& quien, int tipo, const QString& pedido = {}) {
        const QJsonObject creado = sim.crearMensaje({{"asunto", "Asunto " + quien},
                                                     {"mensaje", "Texto del mensaje"},
                                                     {"pedido", pedido},
                                                     {"tipo", tipo},
                                                     {"quienenvia", quien}});
        f->ComprobarPedidosNuevos();
        return QString::number(creado["id"].toInt());
    }
    // What the service read as the answers to message `id` ("mr"), or their queries.
    QStringList respuestas(const QString& id, const QString& clave = QStringLiteral("mr")) {
        QStringList r;
        for (const auto& x : sim.mensajes()) {
            const QJsonObject o = x.toObject();
            for (const auto& a : o["respuestas"].toArray()) {
                if (QString::number(o["id"].toInt()) == id) {
                    r << a.toObject()[clave].toString();
                }
            }
        }
        return r;
    }
    // A paid delivery order taken by the poll and answered by hand: accepted (20 minutes) or
    // rejected with the first reason.
    QString pedidoRespondido(bool aceptar) {
        const QString numero = sim.generarPedidos(1, 7, QStringLiteral("domicilio"))[0]
                                   .toObject()["numero"]
                                   .toString();
        f->ComprobarPedidosNuevos();
        EXPECT_EQ(m.PedidoActual.NumPedido, numero);
        if (aceptar) {
            f->respuestasPedido().PulsarMinutos(3);
        } else {
            f->respuestasPedido().PulsarRechazar();
            f->respuestasPedido().formRechazarPedido().comMotivoRechazo()->setCurrentIndex(1);
            f->respuestasPedido().PulsarRechazarMotivo();
        }
        EXPECT_FALSE(m.PedidoNuevoPendiente);
        return numero;
    }
};

TEST_F(MensajesSimulador, UnMensajeDeClienteSeVeSuenaDetieneElSondeoYVistoLoResponde) {
    const QString id = llegaMensaje(QStringLiteral("US"), 1);
    ASSERT_TRUE(v().isVisible());
    EXPECT_TRUE(v().windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_TRUE(m.MensajeNuevoPendiente);
    EXPECT_FALSE(f->TimerPedidos().enabled());
    ASSERT_FALSE(sonido->llamadas.isEmpty());
    EXPECT_TRUE(sonido->llamadas.last().startsWith(QStringLiteral("reproducir ")));
    EXPECT_EQ(v().labAsunto->text(), QStringLiteral("Asunto US"));
    EXPECT_TRUE(v().frmPedido->isHidden());
    // Another poll while it waits takes nothing.
    const auto antes = sim.registro().size();
    f->TimerPedidos().disparar();
    EXPECT_EQ(sim.registro().size(), antes);

    QTest::mouseClick(v().butVisto, Qt::LeftButton);
    const QStringList consultas = respuestas(id, QStringLiteral("consulta"));
    ASSERT_EQ(consultas.size(), 1);
    EXPECT_TRUE(consultas[0].startsWith(QStringLiteral("a=41&im=%1&mr=&p=pg7&fha=").arg(id)));
    EXPECT_FALSE(v().isVisible());
    EXPECT_FALSE(m.MensajeNuevoPendiente);
    EXPECT_TRUE(f->TimerPedidos().enabled());
    EXPECT_TRUE(sonido->llamadas.last().startsWith(QStringLiteral("detener ")));

    QTest::mouseClick(f->findChild<QPushButton*>(QStringLiteral("butUltimoMensaje")),
                      Qt::LeftButton);
    ASSERT_TRUE(f->mensajes().formMensajeAnterior().isVisible());
    EXPECT_EQ(f->mensajes().formMensajeAnterior().TextRespuesta->toPlainText(),
              QStringLiteral("Visto"));

    // A written answer goes whole: accents, "&", "#", "=".
    const QString id2 = llegaMensaje(QStringLiteral("TV"), 1);
    const QString texto = QStringLiteral("Sí, señora: llega en 5' & sin timbre #3 (a=b)");
    v().TextRespuesta->setPlainText(texto);
    QTest::mouseClick(v().butResponder, Qt::LeftButton);
    EXPECT_EQ(respuestas(id2), QStringList{texto});
}

TEST_F(MensajesSimulador, CancelarUnPedidoAceptadoYPagadoYNegarseConUnTextoFijo) {
    const QString numero = pedidoRespondido(true);
    const QString id = llegaMensaje(QStringLiteral("RE"), 2, numero);
    EXPECT_TRUE(v().butCancelarPed->isVisibleTo(&v()));
    EXPECT_TRUE(v().butNoCancelarPed->isVisibleTo(&v()));
    EXPECT_FALSE(v().butResponder->isVisibleTo(&v()));
    EXPECT_FALSE(v().butVisto->isVisibleTo(&v()));
    EXPECT_TRUE(v().frmPedido->title().startsWith(
        QStringLiteral("Pedido %1 (Aceptado - 20 minutos - Hora prev. entrega: ").arg(numero)));
    v().TextRespuesta->setPlainText(QStringLiteral("Sin problema"));

    QTest::mouseClick(v().butCancelarPed, Qt::LeftButton);
    FormRechazarPedido& r = f->respuestasPedido().formRechazarPedido();
    ASSERT_TRUE(r.isVisible());
    EXPECT_EQ(r.windowTitle(), QStringLiteral("Cancelar Pedido"));
    EXPECT_EQ(r.comMotivoRechazo()->currentIndex(), 9);
    EXPECT_EQ(r.txtMasInfoRechazo()->text(), QStringLiteral("Sin problema"));
    EXPECT_TRUE(r.labInfoRechazoPago()->isVisibleTo(&r));
    QTest::mouseClick(r.butRechazar(), Qt::LeftButton);

    const QJsonObject pedido = sim.pedidos().last().toObject();
    EXPECT_EQ(pedido["estado"].toString(), QStringLiteral("Rechazado"));
    EXPECT_EQ(pedido["motivo"].toString(),
              QStringLiteral("Cancelado a petición del cliente. Sin problema"));
    EXPECT_EQ(respuestas(id), QStringList{QStringLiteral(
                                  "Se ha cancelado el pedido y se ha devuelto el importe del pago. "
                                  "Sin problema")});
    ASSERT_FALSE(cajas->cajas().isEmpty());
    EXPECT_EQ(cajas->cajas().last().texto,
              QStringLiteral("PEDIDO CANCELADO CORRECTAMENTE. SE HA DEVUELTO EL IMPORTE DEL "
                             "PAGO, INFORMANDO AL CLIENTE. POR FAVOR, AVISE A COCINA PARA QUE NO "
                             "PREPARE EL PEDIDO."));
    EXPECT_FALSE(v().isVisible());
    EXPECT_FALSE(m.MensajeNuevoPendiente);

    // Refused: the window of fixed refusals, and its text.
    const QString segundo = pedidoRespondido(true);
    const QString id2 = llegaMensaje(QStringLiteral("US"), 2, segundo);
    QTest::mouseClick(v().butNoCancelarPed, Qt::LeftButton);
    FormNoCancelarPed& no = f->mensajes().formNoCancelarPed();
    ASSERT_TRUE(no.isVisible());
    EXPECT_FALSE(v().isVisible());
    QTest::mouseClick(no.findChild<QPushButton*>(QStringLiteral("butNCYaEnPreparacion")),
                      Qt::LeftButton);
    EXPECT_EQ(respuestas(id2),
              QStringList{QStringLiteral("El pedido ya está en preparación, lo sentimos.")});
    EXPECT_FALSE(no.isVisible());
    EXPECT_FALSE(m.MensajeNuevoPendiente);

    // The last message looked at while an order waits: its frame, and the waiting order kept.
    const QString enPantalla =
        sim.generarPedidos(1, 9, QStringLiteral("domicilio"))[0].toObject()["numero"].toString();
    f->ComprobarPedidosNuevos();
    f->mensajes().PulsarUltimoMensaje();
    EXPECT_TRUE(f->mensajes().formMensajeAnterior().frmPedido->title().startsWith(
        QStringLiteral("Pedido %1 (Aceptado").arg(segundo)));
    EXPECT_EQ(m.PedidoActual.NumPedido, enPantalla);
}

TEST_F(MensajesSimulador, PedirCancelarUnPedidoRechazadoSoloDejaResponderElTextoPuesto) {
    const QString id = llegaMensaje(QStringLiteral("US"), 2, pedidoRespondido(false));
    EXPECT_FALSE(v().butCancelarPed->isVisibleTo(&v()));
    EXPECT_EQ(v().TextRespuesta->toPlainText(),
              QStringLiteral("El pedido ya está rechazado/cancelado, no se puede cancelar"));
    EXPECT_TRUE(v().butResponder->isEnabled());
    QTest::mouseClick(v().butResponder, Qt::LeftButton);
    EXPECT_EQ(respuestas(id), QStringList{QStringLiteral(
                                  "El pedido ya está rechazado/cancelado, no se puede cancelar")});
}

TEST_F(MensajesSimulador, UnaRespuestaNoTomadaDejaLaVentanaYLaSiguientePulsacionFunciona) {
    const QString id = llegaMensaje(QStringLiteral("US"), 1);
    sim.fallo(QStringLiteral("error"), 0, 1, QStringLiteral("pedidosgprs/respuestamensajes"));
    v().TextRespuesta->setPlainText(QStringLiteral("Gracias"));
    QTest::mouseClick(v().butResponder, Qt::LeftButton);
    ASSERT_EQ(cajas->cajas().size(), 1);
    EXPECT_EQ(cajas->cajas()[0].texto,
              QStringLiteral("No se ha podido responder al mensaje porque no hay conexión, por "
                             "favor, compruebe su conexión a Internet y vuelva a intentarlo."));
    EXPECT_EQ(cajas->cajas()[0].estilo, estilo::SoloAceptar);
    EXPECT_TRUE(v().isVisible());
    EXPECT_TRUE(m.MensajeNuevoPendiente);
    EXPECT_FALSE(f->TimerPedidos().enabled());
    EXPECT_TRUE(respuestas(id).isEmpty());

    QTest::mouseClick(v().butResponder, Qt::LeftButton);
    EXPECT_EQ(respuestas(id), QStringList{QStringLiteral("Gracias")});
    EXPECT_FALSE(v().isVisible());
    EXPECT_TRUE(f->TimerPedidos().enabled());
}

} // namespace
