// Answering an order by hand, as the staff do, against the stand-in service over loopback.
// The service records queries as they came over the wire: blanks as %20, others raw.
#include "common/CapturaEP.h"
#include "common/DatosEsperados.h"
#include "common/ImpresoraEPDeSerie.h"
#include "common/MostradorSimulado.h"
#include "common/PedidosDeMuestra.h"
#include "orders/FormAceptarPedido.h"
#include "orders/FormPedidoNuevo.h"
#include "orders/FormRechazarPedido.h"
#include "orders/RespuestaPedido.h"
#include "orders/RespuestasPedido_ui.h"
#include "products/FormProductosRechazarIngredientes.h"
#include "products/ListaProductos_ui.h"
#include "sound/AlertaSonora.h"

#include <QComboBox>
#include <QLoggingCategory>
#include <QMetaEnum>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace rp = respuesta_pedido;

namespace {

const QString kPoll = QStringLiteral("pedidosgprs/pedidosnuevos");
const QString kRespuesta = QStringLiteral("pedidosgprs/respuestapedidos");
const QString kSinConexion = QStringLiteral(
    "No se ha podido responder al pedido porque no hay conexión, por favor, compruebe su "
    "conexión a Internet y vuelva a intentarlo.");

struct Respuestas : MostradorSimulado {
    CapturaEP captura{m};

    void configurar() override {
        m.RestId = 41;
        m.Pgprs = QStringLiteral("pg7");
        m.MotivosRechazo = {QStringLiteral("Cerrado por hoy"), rp::NoHayIngredientes};
        m.Impresora(1) =
            ImpresoraEPDeSerie(QStringLiteral("Mostrador"), QStringLiteral("mostrador"));
        m.Impresora(1).NumeroCopiasAceptado = 2;
        m.Impresora(1).NumeroCopiasRechazado = 1;
    }

    RespuestasPedido& r() { return f->respuestasPedido(); }
    FormPedidoNuevo& nuevo() { return f->formPedidoNuevo(); }
    FormAceptarPedido& minutos() { return r().formAceptarPedido(); }
    FormRechazarPedido& rechazo() { return r().formRechazarPedido(); }

    static void pulsar(QWidget* en, const char* nombre) {
        auto* b = en->findChild<QPushButton*>(QLatin1String(nombre));
        ASSERT_NE(b, nullptr) << nombre;
        QTest::mouseClick(b, Qt::LeftButton);
    }
    // The queries of every answer sent, without the stamp.
    QStringList respuestas() { return sim.consultas(kRespuesta); }
    int tickets() const { return captura.cierres(QStringLiteral("mostrador")); }
};

} // namespace

TEST_F(Respuestas, AceptarConMinutosResponde20YVuelveASondear) {
    llega(kDomicilio);
    pulsar(&nuevo(), "Aceptar");
    EXPECT_FALSE(nuevo().isVisible());
    ASSERT_TRUE(minutos().isVisible());
    EXPECT_TRUE(minutos().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(nuevo().TimerSilenciar().enabled());
    // "No especificar" only when the service allows it.
    EXPECT_TRUE(minutos().AceptarMinutos(15)->isVisible());
    EXPECT_FALSE(minutos().AceptarMinutos(16)->isVisible());
    EXPECT_EQ(minutos().AceptarMinutos(3)->text(), QStringLiteral("20 minutos"));
    EXPECT_TRUE(respuestas().isEmpty());

    const int detenidoAntes = detenciones();
    QTest::mouseClick(minutos().AceptarMinutos(3), Qt::LeftButton);
    EXPECT_EQ(respuestas(),
              QStringList{"a=41&o=5001&ak=Accepted&m=20_Minutos&dt=nousado&u=nousado&p=pg7"});
    EXPECT_FALSE(minutos().isVisible());
    EXPECT_FALSE(nuevo().isVisible());
    EXPECT_FALSE(m.PedidoNuevoPendiente);
    // (The answer's state and tickets are the answer road's unit test.)
    EXPECT_TRUE(f->TimerPedidos().enabled());
    EXPECT_FALSE(nuevo().TimerSilenciar().enabled());
    EXPECT_GT(detenciones(), detenidoAntes);
    EXPECT_EQ(tickets(), 2);

    // The poll timer alone brings the next order up.
    sim.encolar(kPoll, {kEfectivo});
    f->TimerPedidos().disparar();
    EXPECT_TRUE(nuevo().isVisible());
    EXPECT_EQ(m.UltimoIdPedido, QStringLiteral("5003"));
}

TEST_F(Respuestas, AtrasVuelveAlPedidoSinEnviarNada) {
    llega(kDomicilio);
    pulsar(&nuevo(), "Aceptar");
    pulsar(&minutos(), "butCancelarAceptar");
    EXPECT_FALSE(minutos().isVisible());
    EXPECT_TRUE(nuevo().isVisible());
    EXPECT_TRUE(m.PedidoNuevoPendiente);
    EXPECT_TRUE(nuevo().TimerSilenciar().enabled());

    pulsar(&nuevo(), "Rechazar");
    ASSERT_TRUE(rechazo().isVisible());
    pulsar(&rechazo(), "butCancelarRechazar");
    EXPECT_FALSE(rechazo().isVisible());
    EXPECT_TRUE(nuevo().isVisible());
    EXPECT_TRUE(respuestas().isEmpty());
    EXPECT_EQ(tickets(), 0);
}

TEST_F(Respuestas, DosPulsacionesRapidasEnvianUnaSolaRespuesta) {
    llega(kDomicilio);
    pulsar(&nuevo(), "Aceptar");
    bool dentro = false;
    // The second click lands while the first send waits for its reply.
    sim.fallo(QStringLiteral("colgar"), 0.3, 1, kRespuesta);
    QTimer::singleShot(50, &minutos(), [&] {
        dentro = minutos().Respondiendo;
        QTest::mouseClick(minutos().AceptarMinutos(5), Qt::LeftButton);
    });
    QTest::mouseClick(minutos().AceptarMinutos(3), Qt::LeftButton);
    EXPECT_TRUE(dentro);
    // The held reply ends as a failed send; only the first press went out.
    EXPECT_EQ(respuestas(),
              QStringList{"a=41&o=5001&ak=Accepted&m=20_Minutos&dt=nousado&u=nousado&p=pg7"});
    ASSERT_EQ(cajas->cajas().size(), 1);
    EXPECT_EQ(cajas->cajas()[0].texto, kSinConexion);
    EXPECT_FALSE(minutos().Respondiendo);
}

TEST_F(Respuestas, RechazoConMotivoYTextoOSoloTexto) {
    llega(kDomicilio);
    pulsar(&nuevo(), "Rechazar");
    FormRechazarPedido& v = rechazo();
    ASSERT_TRUE(v.isVisible());
    EXPECT_FALSE(nuevo().isVisible());
    EXPECT_TRUE(v.labInfoRechazoPago()->isVisible()); // a paid order
    ASSERT_EQ(v.comMotivoRechazo()->count(), 3);
    EXPECT_EQ(v.comMotivoRechazo()->itemText(0), rp::SinMotivo);
    EXPECT_EQ(v.comMotivoRechazo()->itemText(1), QStringLiteral("Cerrado por hoy"));

    // Neither a reason nor ten characters.
    v.txtMasInfoRechazo()->setText(QStringLiteral("123456789"));
    pulsar(&v, "butRechazar");
    ASSERT_EQ(cajas->cajas().size(), 1);
    EXPECT_EQ(cajas->cajas()[0].texto,
              QStringLiteral("Debe indicar un motivo de rechazo o escribir al menos 10 "
                             "caracteres en el campo Más información"));
    EXPECT_TRUE(respuestas().isEmpty());

    v.comMotivoRechazo()->setCurrentIndex(1);
    v.txtMasInfoRechazo()->setText(QStringLiteral("Vuelva mañana"));
    pulsar(&v, "butRechazar");
    ASSERT_EQ(respuestas().size(), 1);
    EXPECT_EQ(respuestas()[0],
              QStringLiteral("a=41&o=5001&ak=Rejected&m=Cerrado%20por%20hoy%20Vuelva%20"
                             "ma%F1ana&dt=nousado&u=nousado&p=pg7"));
    EXPECT_FALSE(v.isVisible());
    EXPECT_FALSE(nuevo().isVisible());
    EXPECT_FALSE(m.PedidoNuevoPendiente);
    EXPECT_TRUE(f->TimerPedidos().enabled());
    EXPECT_FALSE(nuevo().TimerSilenciar().enabled());
    EXPECT_EQ(m.PedidoActual.MotivoRechazo, QStringLiteral("Cerrado por hoy"));
    EXPECT_EQ(tickets(), 1);

    // The window opens clean for the next order; the desk may minimise after answering.
    llega(kEfectivo);
    pulsar(&nuevo(), "Rechazar");
    EXPECT_FALSE(v.labInfoRechazoPago()->isVisible()); // not paid
    EXPECT_EQ(v.comMotivoRechazo()->currentIndex(), 0);
    EXPECT_TRUE(v.txtMasInfoRechazo()->text().isEmpty());
    v.txtMasInfoRechazo()->setText(QStringLiteral("Nos falta repartidor"));
    m.MinimizarTrasResp = true;
    pulsar(&v, "butRechazar");
    EXPECT_TRUE(f->windowState().testFlag(Qt::WindowMinimized));
    EXPECT_EQ(respuestas().size(), 2);
}

TEST_F(Respuestas, SinIngredientesPasaPorLaListaDeProductos) {
    llega(kDomicilio);
    pulsar(&nuevo(), "Rechazar");
    rechazo().comMotivoRechazo()->setCurrentIndex(2);
    pulsar(&rechazo(), "butRechazar");
    auto& lista = r().formProductosRechazar();
    ASSERT_TRUE(lista.isVisible());
    EXPECT_FALSE(rechazo().isVisible());
    EXPECT_EQ(lista.windowTitle(), QStringLiteral("Productos Pedido - Selección Agotados"));
    // Only the order's products that stand on the menu under that exact name, with prices.
    ListaProductos* productos = lista.ListViewProductosNoIngredientes();
    ASSERT_EQ(productos->topLevelItemCount(), 1);
    EXPECT_EQ(productos->topLevelItem(0)->text(1), QStringLiteral("Tarta de queso"));
    EXPECT_EQ(productos->topLevelItem(0)->text(2), QStringLiteral("4,9 €"));
    EXPECT_EQ(productos->topLevelItem(0)->checkState(0), Qt::Unchecked);
    EXPECT_TRUE(respuestas().isEmpty());

    pulsar(&lista, "butCerrar");
    EXPECT_FALSE(lista.isVisible());
    EXPECT_TRUE(rechazo().isVisible());
    EXPECT_TRUE(respuestas().isEmpty());

    pulsar(&rechazo(), "butRechazar");
    pulsar(&lista, "CommandHecho");
    EXPECT_EQ(respuestas(), QStringList{"a=41&o=5001&ak=Rejected&m=No%20hay%20"
                                        "ingredientes.&dt=nousado&u=nousado&p=pg7"});
    EXPECT_FALSE(lista.isVisible());
    EXPECT_FALSE(m.PedidoNuevoPendiente);
}

// At the counter the keyboard alone answers: Enter accepts (or presses the focused button),
// Escape silences the order or goes back, digits pick the minutes, arrows pick a reason.
TEST_F(Respuestas, ElTecladoBastaParaResponder) {
    const QStringList lineas = LineasDatos(QStringLiteral("teclado_respuestas.txt"));
    ASSERT_EQ(lineas.size() % 3, 0);
    ASSERT_FALSE(lineas.isEmpty());
    const QMetaEnum teclas = QMetaEnum::fromType<Qt::Key>();
    for (qsizetype caso = 0; caso < lineas.size(); caso += 3) {
        SCOPED_TRACE(lineas[caso].toStdString());
        QStringList pulsaciones = lineas[caso + 1].split(u' ');
        const QString enviado = lineas[caso + 2];
        sim.limpiarRegistro();
        llega(pulsaciones.takeFirst() == u"programado" ? kProgramadoRecogen : kDomicilio);
        ASSERT_TRUE(nuevo().isVisible());
        for (const QString& p : pulsaciones) {
            const QString en = p.section(u':', 0, 0);
            bool conocida = false;
            const int tecla =
                teclas.keyToValue(("Key_" + p.section(u':', 1)).toLatin1().constData(), &conocida);
            ASSERT_TRUE(conocida) << p.toStdString();
            QWidget* w = en == u"pedido"       ? static_cast<QWidget*>(&nuevo())
                         : en == u"minutos"    ? static_cast<QWidget*>(&minutos())
                         : en == u"programado" ? static_cast<QWidget*>(&r().formAceptarPedidoProg())
                                               : static_cast<QWidget*>(&rechazo());
            ASSERT_TRUE(w->isVisible()) << p.toStdString();
            w->activateWindow();
            // Shortcuts go to the active window only.
            ASSERT_TRUE(QTest::qWaitFor([w] { return w->isActiveWindow(); }, 2000));
            QWidget* destino = w->focusWidget() != nullptr ? w->focusWidget() : w;

            QTest::keyClick(destino, static_cast<Qt::Key>(tecla));
        }
        const QStringList enviadas = respuestas();
        if (enviado == u"-") {
            EXPECT_TRUE(enviadas.isEmpty());
            EXPECT_TRUE(nuevo().isVisible());
            EXPECT_TRUE(nuevo().TimerSilenciar().enabled()); // silenced for a minute
            pulsar(&nuevo(), "Rechazar");
            rechazo().findChild<QComboBox*>(QStringLiteral("comMotivoRechazo"))->setCurrentIndex(1);
            pulsar(&rechazo(), "butRechazar"); // clear the order for the next case
        } else {
            EXPECT_EQ(enviadas, QStringList{enviado});
            EXPECT_FALSE(m.PedidoNuevoPendiente);
        }
    }
}

namespace {

// The desk's journal lines written while it runs, with the journal switched on.
class DiarioCapturado {
public:
    DiarioCapturado() {
        lineas_().clear();
        QLoggingCategory::setFilterRules(QStringLiteral("tarvimenta.*=true"));
        anterior_ = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext& c, const QString& texto) {
                if (c.category != nullptr && QByteArray(c.category).startsWith("tarvimenta.")) {
                    lineas_().append(texto);
                }
            });
    }
    ~DiarioCapturado() {
        qInstallMessageHandler(anterior_);
        QLoggingCategory::setFilterRules(QStringLiteral("tarvimenta.*=false"));
    }
    DiarioCapturado(const DiarioCapturado&) = delete;
    DiarioCapturado& operator=(const DiarioCapturado&) = delete;
    static QStringList& lineas_() {
        static QStringList l;
        return l;
    }

private:
    QtMessageHandler anterior_;
};

} // namespace

// From the journal alone a person can tell what became of an order and of each ticket copy.
TEST_F(Respuestas, ElDiarioCuentaElCaminoDeCadaPedido) {
    const struct {
        const char* nombre;
        std::function<void()> responder;
        QStringList esperadas;
    } casos[] = {
        {"aceptado",
         [&] {
             pulsar(&nuevo(), "Aceptar");
             QTest::mouseClick(minutos().AceptarMinutos(3), Qt::LeftButton);
         },
         {"pedido 5001 recibido, total", "pedido 5001 en pantalla",
          "pedido 5001 aceptado, 20 minutos",
          "pedido 5001 Aceptado: 2 copias para EP \"Mostrador\" (cliente)",
          "\"Mostrador\" ticket impreso", "\"Mostrador\" ticket impreso"}},
        {"rechazado sin conexión y después rechazado",
         [&] {
             pulsar(&nuevo(), "Rechazar");
             rechazo().comMotivoRechazo()->setCurrentIndex(1);
             sim.fallo(QStringLiteral("error"), 0, 1, kRespuesta);
             pulsar(&rechazo(), "butRechazar");
             pulsar(&rechazo(), "butRechazar");
         },
         {"pedido 5001 recibido, total", "pedido 5001 en pantalla",
          "pedido 5001 rechazo no tomado por el servicio", "pedido 5001 rechazado: Cerrado por hoy",
          "pedido 5001 Rechazado: 1 copia para EP \"Mostrador\" (cliente)",
          "\"Mostrador\" ticket impreso"}},
    };
    for (const auto& c : casos) {
        SCOPED_TRACE(c.nombre);
        const DiarioCapturado diario;
        llega(kDomicilio);
        c.responder();
        const QStringList& lineas = DiarioCapturado::lineas_();
        ASSERT_EQ(lineas.size(), c.esperadas.size()) << lineas.join(u'|').toStdString();
        for (qsizetype i = 0; i < lineas.size(); ++i) {
            EXPECT_TRUE(lineas[i].startsWith(c.esperadas[i])) << lineas[i].toStdString();
        }
    }
}
