// What a message window shows and how its controls answer, without the wire: the order
// frame's caption, the heading by sender, the answer box's rules, silencing, and the
// last-message button before any message.
#include "base/Pedido.h"
#include "common/MostradorSimulado.h"
#include "messages/FormMensajeNuevo.h"
#include "messages/Mensaje.h"
#include "messages/Mensajes_ui.h"

#include <QPushButton>

namespace {

TEST(TituloPedido, TresFormasSegunEstadoYTiempo) {
    struct Caso {
        const char* estado;
        const char* tiempo;
        const char* esperado;
    } casos[] = {
        {"Rechazado", "20", "Pedido 1001 (Rechazado)"},
        {"Pendiente", "null", "Pedido 1001 (Pendiente)"},
        {"En reparto", "30", "Pedido 1001 (En reparto - 30 minutos - Hora prev. entrega: 0:10)"},
        {"Aceptado", "null", "Pedido 1001 (Aceptado - Tiempo estimado no especificado)"},
        {"Entregado", "0", "Pedido 1001 (Entregado - Tiempo estimado no especificado)"},
        {"Preparado", "", "Pedido 1001 (Preparado - Tiempo estimado no especificado)"},
    };
    for (const Caso& c : casos) {
        Pedido p;
        p.NumPedido = QStringLiteral("1001");
        p.Estado = QString::fromUtf8(c.estado);
        p.TiempoEstimado = QString::fromUtf8(c.tiempo);
        p.HoraAceptacion = QDateTime(QDate(2026, 11, 22), QTime(23, 40));
        EXPECT_EQ(mensaje::TituloPedido(p), QString::fromUtf8(c.esperado)) << c.estado << c.tiempo;
    }
}

TEST(CabeceraMensaje, PorRemitenteYClase) {
    const QString ayudaCliente = QStringLiteral(
        "Puedes responderle escribiendo abajo \"Tu respuesta\" y pulsando en responder "
        "(recomendado), o solamente indicar al cliente \"Visto\"");
    const QString cancelarTv = QStringLiteral(
        "Puedes cancelar el pedido pulsando en \"Cancelar pedido\" o no admitir la cancelación, "
        "pudiendo añadirnos información en \"Tu respuesta\"");
    struct Caso {
        const char* quien;
        bool cancelacion;
        QString titulo; // empty: no heading
        QString info;
    } casos[] = {
        {"US", false, QStringLiteral("MENSAJE DE CLIENTE"), ayudaCliente},
        {"RE", false, QStringLiteral("MENSAJE DE CLIENTE"), ayudaCliente},
        {"TV", true, QStringLiteral("MENSAJE DE TARVIMENTA"), cancelarTv},
        {"us", false, {}, {}},
        {"", true, {}, {}},
    };
    for (const Caso& c : casos) {
        ModuloPrincipal m;
        ASSERT_TRUE(mensaje::LeerMensaje(
            m, QStringLiteral(R"({"mensajeestablec":1,"id":5,"quienenvia":"%1"})").arg(c.quien)));
        const auto cabecera = mensaje::CabeceraDe(m, c.cancelacion);
        ASSERT_EQ(cabecera.has_value(), !c.titulo.isEmpty()) << c.quien;
        if (cabecera) {
            EXPECT_EQ(cabecera->titulo, c.titulo);
            EXPECT_EQ(cabecera->info, c.info);
        }
    }
}

struct VentanaMensaje : MostradorSimulado {
    FormMensajeNuevo& v() { return f->mensajes().formMensajeNuevo(); }
};

TEST_F(VentanaMensaje, LaRespuestaEscritaDecideQueBotonSirve) {
    struct Caso {
        int tipo;
        const char* texto;
        bool responder;
        bool visto;
    } casos[] = {
        {1, "   ", false, true}, {1, " ok ", true, false}, {1, "", false, true},
        {2, "x", true, false},   {2, "", true, false}, // a cancellation keeps what it had
    };
    for (const Caso& c : casos) {
        llega(QStringLiteral(R"({"mensajeestablec":1,"id":7,"tipo":%1,"quienenvia":"US"})")
                  .arg(c.tipo));
        v().TextRespuesta->setPlainText(QStringLiteral("algo"));
        v().TextRespuesta->setPlainText(QString::fromUtf8(c.texto));
        EXPECT_EQ(v().butResponder->isEnabled(), c.responder) << c.tipo << c.texto;
        EXPECT_EQ(v().butVisto->isEnabled(), c.visto) << c.tipo << c.texto;
        m.MensajeNuevoPendiente = false;
    }
}

TEST_F(VentanaMensaje, CerrarloLoSilenciaUnMinutoYVuelveASonarSiSigueSinRespuesta) {
    llega(QStringLiteral(R"({"mensajeestablec":1,"id":8,"asunto":"Hola","quienenvia":"US"})"));
    ASSERT_TRUE(v().isVisible());
    // The melody's repeat rings for a waiting message, and leaves a silenced one alone.
    m.sonido().tickMusica();
    EXPECT_EQ(sonido->llamadas.filter(QStringLiteral("reproducir ")).size(), 2);
    v().close();
    EXPECT_TRUE(v().isVisible());
    EXPECT_TRUE(v().TimerSilenciarMensaje().enabled());
    EXPECT_EQ(v().TimerSilenciarMensaje().interval(), 60000);
    EXPECT_TRUE(sonido->llamadas.last().startsWith(QStringLiteral("detener ")));
    m.sonido().tickMusica();
    EXPECT_EQ(sonido->llamadas.filter(QStringLiteral("reproducir ")).size(), 2);
    v().TimerSilenciarMensaje().disparar();
    EXPECT_FALSE(v().TimerSilenciarMensaje().enabled());
    EXPECT_TRUE(sonido->llamadas.last().startsWith(QStringLiteral("reproducir ")));
    EXPECT_FALSE(v().windowState() & Qt::WindowMinimized);
}

TEST_F(VentanaMensaje, SinMensajeElBotonDelUltimoAvisaYUnaRespuestaIlegibleNoDetieneNada) {
    f->mensajes().PulsarUltimoMensaje();
    ASSERT_EQ(cajas->cajas().size(), 1);
    EXPECT_EQ(cajas->cajas()[0].texto, QStringLiteral("No se ha encontrado mensaje reciente."));
    EXPECT_EQ(cajas->cajas()[0].estilo, estilo::Informacion);
    EXPECT_FALSE(f->mensajes().formMensajeAnterior().isVisible());

    llega(QStringLiteral("[\"mensajeestablec\"]"));
    EXPECT_FALSE(m.MensajeNuevoPendiente);
    EXPECT_TRUE(f->TimerPedidos().enabled());
    EXPECT_FALSE(v().isVisible());
    EXPECT_EQ(f->findChild<QLabel*>(QStringLiteral("LabelInfo"))->text(),
              QStringLiteral("Se ha recibido un mensaje que no se puede leer; se descarta."));
}

} // namespace
