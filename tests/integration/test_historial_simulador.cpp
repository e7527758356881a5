// The history, the past-order window and the sales summary of a desk in this process against
// the stand-in service, with raw printers listening on loopback.
#include "base/Windows1252.h"
#include "common/DatosEsperados.h"
#include "common/ImpresoraEPDeSerie.h"
#include "common/ImpresoraTcp.h"
#include "common/MostradorSimulado.h"
#include "history/FormPedidoAnterior.h"
#include "history/FormPedidosAnteriores.h"
#include "orders/FormRechazarPedido.h"
#include "orders/RespuestasPedido_ui.h"
#include "platform/Controles_ui.h"
#include "platform/Reloj.h"

#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace {

struct HistorialSimulador : MostradorSimulado {
    ImpresoraTcp caja, cocina, postres;

    void configurar() override {
        m.IdEstablecimiento = 41;
        m.PasswordConfig = QStringLiteral("pw");
        m.NumConfig = 3;
        m.NumeroPedidosHistorico = 2;
        m.Impresora(1) = ImpresoraEPDeSerie(QStringLiteral("Caja"),
                                            QStringLiteral("127.0.0.1:%1").arg(caja.puerto()));
        m.Impresora(1).NumeroCopiasRechazado = 1;
        m.Impresora(2) = ImpresoraEPDeSerie(QStringLiteral("Cocina"),
                                            QStringLiteral("127.0.0.1:%1").arg(cocina.puerto()));
        m.Impresora(2).Cocina = true;
        // A kitchen that no generated order has a part in.
        m.Impresora(3) = ImpresoraEPDeSerie(QStringLiteral("Postres"),
                                            QStringLiteral("127.0.0.1:%1").arg(postres.puerto()));
        m.Impresora(3).Cocina = true;
        m.Impresora(3).CategoriasIds = QStringLiteral("999");
        m.Impresora(3).NumeroCopiasRechazado = 1;
    }
    void SetUp() override {
        MostradorSimulado::SetUp();
        f->TimerPedidos().setEnabled(false);
        // Orders 1001 to 1003 answered through the service itself: accepted, rejected, accepted.
        sim.generarPedidos(3, 77, QStringLiteral("domicilio"), 2);
        sim.vaciarRespuestas();
        for (QByteArray r : {"1001&ak=Accepted&m=20_Minutos", "1002&ak=Rejected&m=Cerrado",
                             "1003&ak=Accepted&m=30_Minutos"}) {
            ASSERT_EQ(sim.peticion("GET", "/api/pedidosgprs/respuestapedidos?o=" + r).estado, 200);
        }
        sim.limpiarRegistro();
    }
    static QString numero(int i) { return QString::number(1001 + i); }
};

const QString kCabeza = QStringLiteral("idEstablecimiento=41&passwordconfig=pw&numconfig=3");

} // namespace

TEST_F(HistorialSimulador, CadaPeriodoEnviaSuConsultaYListaLoRespondido) {
    f->AbrirHistorico();
    auto* v = f->findChild<FormPedidosAnteriores*>();
    ASSERT_NE(v, nullptr);
    ASSERT_TRUE(v->isVisible());
    EXPECT_EQ(v->lista()->count(), 3);
    EXPECT_TRUE(v->lista()->item(0)->text().startsWith(numero(2) + QStringLiteral(" - ")));
    EXPECT_EQ(v->findChild<QLabel*>(QStringLiteral("labnumpedidos"))->text(), QStringLiteral("3"));

    for (int i : {1, 3}) {
        QTest::mouseClick(v->findChild<QRadioButton*>(QStringLiteral("OptBuscarPedidos%1").arg(i)),
                          Qt::LeftButton, {}, QPoint(4, 4));
    }
    EXPECT_EQ(v->lista()->count(), 2); // the last two
    QTest::mouseClick(v->findChild<QPushButton*>(QStringLiteral("botBuscarPedidos")),
                      Qt::LeftButton);
    const QString hoy = QDate::currentDate().toString(QStringLiteral("ddMMyyyy"));
    const QString hace7 = QDate::currentDate().addDays(-7).toString(QStringLiteral("ddMMyyyy"));
    const QString resto = QStringLiteral("&estado=0&fe=0&origen=0");
    EXPECT_EQ(
        sim.consultas(QStringLiteral("pedidosgprs/obtenerPedidos")),
        (QStringList{kCabeza + "&opcion=0&fp=0" + resto, kCabeza + "&opcion=1&fp=0" + resto,
                     kCabeza + "&opcion=3&fp=0&numeroPedidos=2" + resto,
                     kCabeza + "&opcion=2&fp=0&fechaini=" + hace7 + "&fechafin=" + hoy + resto}));
    EXPECT_EQ(v->lista()->count(), 3);

    // The reprint of the selected row goes to slot 1 only.
    v->lista()->setCurrentRow(1);
    QTest::mouseClick(v->findChild<QPushButton*>(QStringLiteral("butImprimirPedAnt")),
                      Qt::LeftButton);
    ASSERT_TRUE(caja.esperar(1, 5000));
    EXPECT_TRUE(caja.trabajos()[0].bytes.contains(numero(1).toLatin1()));
    EXPECT_EQ(sim.consultas(QStringLiteral("pedidosgprs/obtenerPedido")).size(), 1);
    QTest::qWait(100);
    EXPECT_TRUE(cocina.trabajos().isEmpty());
    EXPECT_TRUE(cajas->cajas().isEmpty());
}

TEST_F(HistorialSimulador, CancelarUnAceptadoImprimeElRechazoYDespuesElAvisoDeCocina) {
    m.RechazarAceptado = 2;
    m.MensajeNuevoPendiente = true; // a customer waits: cancelling here answers them too
    m.Impresora(2).NumeroCopiasRechazado = 1;
    m.setReloj(std::make_unique<RelojFijo>(QDateTime(QDate(2026, 11, 22), QTime(13, 5, 9))));
    FormPedidoAnterior& v = f->AbrirPedidoAnterior(numero(0), false);
    ASSERT_TRUE(v.isVisible());
    EXPECT_EQ(Fondo(v.Rechazar()), QColor(255, 153, 51));
    ASSERT_EQ(m.PedidoActual.EstadoPago, QStringLiteral("PAGADO"));
    ASSERT_TRUE(v.Rechazar()->isVisible());
    QTest::mouseClick(v.Rechazar(), Qt::LeftButton);
    FormRechazarPedido& r = f->respuestasPedido().formRechazarPedido();
    r.txtMasInfoRechazo()->setText(QStringLiteral("Se ha quemado"));
    f->respuestasPedido().PulsarRechazarMotivo();

    const QStringList enviadas = sim.consultas(QStringLiteral("pedidosgprs/respuestapedidos"));
    ASSERT_EQ(enviadas.size(), 1) << cajas->cajas().value(0).texto.toStdString();
    EXPECT_TRUE(
        enviadas[0].contains(QStringLiteral("&o=") + numero(0) + QStringLiteral("&ak=Rejected")));
    // The counter's rejected ticket and the kitchen's, then the kitchen's notice: one listener
    // takes its connections in the order they were made.
    ASSERT_TRUE(caja.esperar(1, 5000));
    ASSERT_TRUE(cocina.esperar(2, 5000));
    const auto enCocina = cocina.trabajos();
    EXPECT_TRUE(caja.trabajos()[0].bytes.contains(numero(0).toLatin1()));
    EXPECT_TRUE(enCocina[0].bytes.contains(cp1252::aBytes(u"Ped. Nº: "_qs + numero(0))));
    EXPECT_EQ(enCocina[1].bytes, TicketEPDatos(QStringLiteral("aviso_cancelacion_1001.txt")));
    QTest::qWait(100);
    EXPECT_TRUE(postres.trabajos().isEmpty()) << "no part in the order, no ticket and no notice";
    EXPECT_EQ(caja.trabajos().size(), 1);
    EXPECT_EQ(cocina.trabajos().size(), 2);
    EXPECT_FALSE(v.isVisible());
    EXPECT_FALSE(m.MensajeNuevoPendiente);
    EXPECT_EQ(m.CaminoOcupado, 0);
}

TEST_F(HistorialSimulador, ImpDiaDelSondeoImprimeElResumenDeHoySinVentana) {
    sim.encolar(QStringLiteral("pedidosgprs/pedidosnuevos"), {QStringLiteral("IMPDIA")});
    f->ComprobarPedidosNuevos();
    ASSERT_TRUE(caja.esperar(1, 5000));
    const QByteArray b = caja.trabajos()[0].bytes;
    EXPECT_TRUE(b.contains("RESUMEN VENTAS\n"));
    EXPECT_TRUE(b.contains("Periodo: Hoy (" +
                           QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy")).toLatin1() +
                           ")\n"));
    // Two accepted delivered orders of the three answered.
    EXPECT_TRUE(b.contains("=== TOTAL VENTAS DOMICILIO ===\nPedidos: 2\n"));
    EXPECT_EQ(sim.consultas(QStringLiteral("pedidosgprs/obtenerTotales")),
              QStringList{kCabeza + "&opcion=0&fp=0&estado=1&fe=0&origen=0"});
    for (QWidget* w : QApplication::topLevelWidgets()) {
        EXPECT_TRUE(w == f.get() || !w->isVisible()) << w->objectName().toStdString();
    }
    EXPECT_TRUE(cajas->cajas().isEmpty());
}
