// Answering an order without windows: the call, the reason, the print around the send.
#include "common/CapturaEP.h"
#include "common/Entorno.h"
#include "common/ImpresoraEPDeSerie.h"
#include "orders/RespuestaPedido.h"

#include <gtest/gtest.h>

namespace rp = respuesta_pedido;

namespace {

const QByteArray kBase = "http://servidor.prueba/api/";

struct Respuesta : ::testing::Test {
    Entorno e;
    ModuloPrincipal& m = e.m;
    CapturaEP captura{m};

    Respuesta() {
        m.UrlBase = m.UrlBaseHttp; // one request per send, whatever the reply
        m.RestId = 77;
        m.Pgprs = QStringLiteral("clave9");
        m.UltimoIdPedido = QStringLiteral("5001");
        // A raw printer with one accepted copy and one rejected copy.
        m.Impresora(1) =
            ImpresoraEPDeSerie(QStringLiteral("Mostrador"), QStringLiteral("mostrador"));
        m.Impresora(1).NumeroCopiasRechazado = 1;
        Pedido& p = m.PedidoActual;
        p.NumPedido = QStringLiteral("5001");
        p.FormaEntrega = QStringLiteral("Calle Sol 3");
        p.Para = QStringLiteral("Para: Ahora");
        p.EstadoPago = QStringLiteral("NO Pagado");
        p.Productos = {{1, QStringLiteral("Pizza"), QStringLiteral("9.00"), 1, 2, QString()}};
        m.PedidoNuevoPendiente = true;
    }

    int tickets() const { return captura.cierres(QStringLiteral("mostrador")); }
    // Answers the next request with `cuerpo` and notes how many tickets were out by then.
    void responder(const QByteArray& cuerpo, int* ticketsAlEnviar) {
        e.canales.directo->guion.append(CanalFalso::Guion{
            {true, cuerpo}, [this, ticketsAlEnviar] { *ticketsAlEnviar = tickets(); }});
    }
    QByteArray url(int i) const { return e.canales.directo->urls.value(i); }
};

} // namespace

TEST(TablaMinutos, CadaBotonLlevaSuTextoYSusMinutos) {
    const QStringList textos = {"5 minutos",      "10 minutos",     "15 minutos",     "20 minutos",
                                "25 minutos",     "30 minutos",     "35 minutos",     "40 minutos",
                                "45 minutos",     "50 minutos",     "55 minutos",     "1 hora",
                                "1 hora 15 min.", "1 hora 30 min.", "1 hora 45 min.", "2 horas",
                                "No especificar"};
    const QList<int> minutos = {5, 10, 15, 20, 25, 30, 35, 40, 45, 50, 55, 60, 75, 90, 105, 120, 0};
    ASSERT_EQ(rp::NumBotonesMinutos, 17);
    for (int i = 0; i < rp::NumBotonesMinutos; ++i) {
        EXPECT_EQ(rp::TextoBotonMinutos(i), textos[i]) << i;
        EXPECT_EQ(rp::MinutosDeBoton(i), minutos[i]) << i;
    }
}

TEST(MotivoRechazo, SeComponeSinElMarcadorYSeRecorta) {
    EXPECT_EQ(rp::ComponerMotivo("Cerrado por hoy", "Vuelva mañana"),
              QStringLiteral("Cerrado por hoy Vuelva mañana"));
    // Free text alone: placeholder gone, the blank trimmed away.
    EXPECT_EQ(rp::ComponerMotivo(rp::SinMotivo, "Nos falta personal hoy"),
              QStringLiteral("Nos falta personal hoy"));
    EXPECT_EQ(rp::ComponerMotivo("Zona sin reparto", ""), QStringLiteral("Zona sin reparto"));
    // Every occurrence goes, even inside a reason; inner text is not encoded or altered.
    EXPECT_EQ(rp::ComponerMotivo("A" + rp::SinMotivo + "B" + rp::SinMotivo, " x&y "),
              QStringLiteral("AB  x&y"));

    EXPECT_FALSE(rp::MotivoSuficiente(0, "123456789"));
    EXPECT_TRUE(rp::MotivoSuficiente(0, "1234567890"));
    EXPECT_TRUE(rp::MotivoSuficiente(1, ""));
    EXPECT_FALSE(rp::MotivoSuficiente(-1, ""));
}

TEST(MotivoRechazo, LaVentanaSeNombraRechazoOCancelacionPorElEstado) {
    for (const char* aceptado : {"Aceptado", "Preparado", "En reparto", "Entregado"}) {
        const auto t = rp::TextosRechazoSegunEstado(QString::fromUtf8(aceptado));
        EXPECT_EQ(t.titulo, QStringLiteral("Cancelar Pedido")) << aceptado;
        EXPECT_EQ(t.boton, QStringLiteral("Cancelar Pedido")) << aceptado;
        EXPECT_EQ(t.infoPago, QStringLiteral("Al cancelar el pedido se le devolverá "
                                             "automáticamente al cliente el importe del pago "
                                             "realizado :)"));
    }
    for (const char* nuevo : {"", "Pendiente", "Rechazado", "aceptado"}) {
        const auto t = rp::TextosRechazoSegunEstado(QString::fromUtf8(nuevo));
        EXPECT_EQ(t.titulo, QStringLiteral("Rechazar Pedido")) << nuevo;
        EXPECT_EQ(t.boton, QStringLiteral("Rechazar")) << nuevo;
        EXPECT_EQ(t.infoPago, QStringLiteral("Al rechazar el pedido se le devolverá "
                                             "automáticamente al cliente el importe del pago "
                                             "realizado :)"));
    }
    EXPECT_EQ(rp::TextoCancelado("pagado"), rp::CanceladoPagado);
    EXPECT_EQ(rp::TextoCancelado("NO Pagado"), rp::CanceladoNoPagado);
    EXPECT_EQ(rp::MensajeClienteCancelado("Pagado", "Sin gas"),
              QStringLiteral("Se ha cancelado el pedido y se ha devuelto el importe del pago. "
                             "Sin gas"));
    EXPECT_EQ(rp::MensajeClienteCancelado("NO Pagado", "Sin gas"),
              QStringLiteral("Se ha cancelado el pedido. Sin gas"));
}

TEST_F(Respuesta, AceptarEnviaLaLlamadaYImprimeDespues) {
    m.PedidoActual.TiempoEstimado = QStringLiteral("20");
    int alEnviar = -1;
    responder("ok", &alEnviar);
    bool respondido = false;
    int ticketsAlTerminar = -1;
    // The order stays pending until its tickets are out; only then may polling resume.
    EXPECT_TRUE(rp::EnviarAceptacion(
        m,
        [&] {
            respondido = true;
            EXPECT_TRUE(m.PedidoNuevoPendiente);
        },
        [&] {
            ticketsAlTerminar = tickets();
            EXPECT_FALSE(m.PedidoNuevoPendiente);
        }));
    EXPECT_TRUE(url(0).startsWith(kBase + "pedidosgprs/respuestapedidos?a=77&o=5001&ak=Accepted"
                                          "&m=20_Minutos&dt=nousado&u=nousado&p=clave9&fha="))
        << url(0).constData();
    EXPECT_TRUE(respondido);
    EXPECT_EQ(ticketsAlTerminar, 1);
    EXPECT_EQ(alEnviar, 0);
    EXPECT_EQ(tickets(), 1);
    EXPECT_EQ(m.PedidoActual.Estado, QStringLiteral("Aceptado"));
    EXPECT_TRUE(e.cajas->cajas().isEmpty());
}

TEST_F(Respuesta, ConImprimirAntesAceptarCadaIntentoImprimeAntesDeEnviar) {
    m.ImprimirAntesAceptar = true;
    m.PedidoActual.TiempoEstimado = QStringLiteral("0");
    int alEnviar = -1;
    responder("error", &alEnviar);
    bool respondido = false;
    EXPECT_FALSE(rp::EnviarAceptacion(m, [&] { respondido = true; }));
    EXPECT_EQ(alEnviar, 1);
    EXPECT_FALSE(respondido);
    EXPECT_TRUE(m.PedidoNuevoPendiente);
    ASSERT_EQ(e.cajas->cajas().size(), 1);
    EXPECT_EQ(e.cajas->cajas()[0].texto,
              QStringLiteral("No se ha podido responder al pedido porque no hay conexión, por "
                             "favor, compruebe su conexión a Internet y vuelva a intentarlo."));
    EXPECT_EQ(e.cajas->cajas()[0].estilo, 0);

    // The retry prints again, and nothing more once sent.
    responder("Pedido ya respondido", &alEnviar);
    EXPECT_TRUE(rp::EnviarAceptacion(m, [&] { respondido = true; }));
    EXPECT_EQ(alEnviar, 2);
    EXPECT_EQ(tickets(), 2);
    EXPECT_TRUE(respondido);
    EXPECT_TRUE(url(1).contains("&m=0_Minutos&"));
}

TEST_F(Respuesta, RechazarEnviaElTextoComoEstaYGuardaSoloElMotivoElegido) {
    int alEnviar = -1;
    responder("error", &alEnviar);
    EXPECT_FALSE(rp::EnviarRechazo(m, "Cerrado", "ya", nullptr));
    EXPECT_EQ(tickets(), 0);
    ASSERT_EQ(e.cajas->cajas().size(), 1);
    EXPECT_EQ(e.cajas->cajas()[0].estilo, 48);
    EXPECT_EQ(e.cajas->cajas()[0].texto, rp::SinConexion);
    EXPECT_TRUE(m.PedidoActual.Estado.isEmpty());

    // Free text only, with characters that a URL would escape: sent as they stand (only the
    // blanks take the form a request line needs).
    m.ImprimirAntesAceptar = true; // does not reach a rejection
    responder("ok", &alEnviar);
    EXPECT_TRUE(rp::EnviarRechazo(m, rp::SinMotivo, "Sin gas & sin luz", nullptr));
    EXPECT_EQ(alEnviar, 0);
    EXPECT_TRUE(url(1).contains("/api/pedidosgprs/respuestapedidos?a=77&o=5001&ak=Rejected"
                                "&m=Sin%20gas%20&%20sin%20luz&dt=nousado&u=nousado&p=clave9&fha="))
        << url(1).constData();
    EXPECT_EQ(m.PedidoActual.Estado, QStringLiteral("Rechazado"));
    EXPECT_EQ(m.PedidoActual.MotivoRechazo, rp::SinMotivo);
    EXPECT_FALSE(m.PedidoNuevoPendiente);
    EXPECT_EQ(tickets(), 1);
}
