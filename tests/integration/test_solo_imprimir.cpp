// A desk that only prints, and the watch on an order or message settled elsewhere: the desk in
// this process against the stand-in service.
#include "common/CapturaEP.h"
#include "common/Esperar.h"
#include "common/ImpresoraEPDeSerie.h"
#include "common/MostradorSimulado.h"
#include "messages/FormMensajeNuevo.h"
#include "messages/Mensajes_ui.h"
#include "orders/FormPedidoNuevo.h"
#include "orders/FormRechazarPedido.h"
#include "orders/RespuestasPedido_ui.h"
#include "server/ValorJson.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>

namespace {

const QString kImprimir = QStringLiteral("pedidosgprs/pedidosaceptadosimprimir");
const QString kPoll = QStringLiteral("pedidosgprs/pedidosnuevos");

// "1020,1019,...,desde": `n` numbers counting down.
QString Lista(int desde, int n) {
    QStringList l;
    for (int i = n - 1; i >= 0; --i) {
        l << QString::number(desde + i);
    }
    return l.join(u',');
}

int Cuantas(SimuladorPrueba& sim, const QString& ruta) {
    return static_cast<int>(sim.consultas(ruta).size());
}

QByteArray Json(const QJsonObject& o) {
    return QJsonDocument(o).toJson(QJsonDocument::Compact);
}

// The desk in this process, bound to establishment 7, with no printers.
struct VigilanciaSimulada : MostradorSimulado {
    static constexpr int kIntervalo = 300;

    void configurar() override {
        m.IdEstablecimiento = 7;
        m.RestId = 7;
        m.PasswordConfig = QStringLiteral("clave");
        m.NumConfig = 1;
        m.Pgprs = QStringLiteral("pgprs-7");
        m.IntervaloEscaneoPedido = kIntervalo;
        m.IntervaloEscaneoPedActualizado = 100;
    }
    void SetUp() override {
        MostradorSimulado::SetUp();
        f->TimerPedidos().setEnabled(false);
        f->TimerConfig().setEnabled(false);
        // The first failed https attempt moves the run to http before anything is counted.
        f->ComprobarPedidosNuevos();
        sim.vaciarRespuestas();
        sim.limpiarRegistro();
    }
    void TearDown() override { f->Unload(); }
    void ponerEstado(const QJsonObject& estado) {
        ASSERT_EQ(sim.peticion("PUT", "/__control/estado", Json(estado)).estado, 200);
    }
};

} // namespace

// Mode 1 prints each accepted order the service hands out, once, by its route, and tells the
// service the orders printed, newest first, in each poll; the list is kept in ultpedim.txt for the
// next start (the twenty-number cap has its own test).
TEST_F(VigilanciaSimulada, Modo1ImprimeCadaAceptadoUnaVezYLlevaSuLista) {
    CapturaEP captura(m);
    m.Modo = 1;
    m.IntervaloEscaneoPedido = 600000;
    m.Impresora(1) = ImpresoraEPDeSerie(QStringLiteral("Mostrador"), QStringLiteral("mostrador"));
    m.Impresora(1).NumeroCopiasAceptado = 2;
    ASSERT_EQ(sim.peticion("POST", "/__control/imprimir",
                           Json({{"cantidad", 3}, {"semilla", 5}, {"clase", "domicilio"}}))
                  .estado,
              200);
    for (int i = 0; i < 4; ++i) {
        f->ComprobarPedidosNuevos();
    }
    const QString prefijo = QStringLiteral(
        "restid=7&password=pgprs-7&numconfig=1&modeloImpresora=3&version=1.6.2&pedexec=");
    EXPECT_EQ(sim.consultas(kImprimir),
              (QStringList{prefijo, prefijo + Lista(1001, 1), prefijo + Lista(1001, 2),
                           prefijo + Lista(1001, 3)}));
    EXPECT_EQ(captura.cierres(QStringLiteral("mostrador")), 6);
    const QByteArray tickets = captura.bytes(QStringLiteral("mostrador"));
    EXPECT_GE(tickets.indexOf(": 1001"), 0);
    EXPECT_LT(tickets.indexOf(": 1001"), tickets.indexOf(": 1002"));
    EXPECT_LT(tickets.indexOf(": 1002"), tickets.indexOf(": 1003"));
    QFile archivo(QDir(carpeta.path()).filePath(QStringLiteral("ultpedim.txt")));
    ASSERT_TRUE(archivo.open(QIODevice::ReadOnly));
    EXPECT_EQ(archivo.readAll(), Lista(1001, 3).toLatin1());
    EXPECT_EQ(Cuantas(sim, kPoll), 0);
    EXPECT_EQ(Cuantas(sim, QStringLiteral("pedidosgprs/respuestapedidos")), 0);
    EXPECT_TRUE(cajas->cajas().isEmpty());
}

TEST_F(VigilanciaSimulada, UnMensajeSoloAbreVentanaEnModo2YLoCierraUnaRespuestaDeOtroSitio) {
    const QString estado = QStringLiteral("pedidosgprs/obtenerEstadoMensaje");
    f->TimerPedidos().setEnabled(true);
    QString id;
    for (const qint16 modo : {1, 2}) {
        m.Modo = modo;
        id = QString::number(
            sim.crearMensaje({{"asunto", "Timbre"}, {"ruta", kImprimir}})["id"].toInt());
        f->ComprobarPedidosNuevos();
        const bool ventana = modo == 2;
        EXPECT_EQ(m.MensajeNuevoPendiente, ventana) << modo;
        EXPECT_EQ(f->mensajes().formMensajeNuevo().isVisible(), ventana) << modo;
        EXPECT_EQ(f->TimerPedidos().enabled(), !ventana) << modo;
    }
    // No poll while the message waits ("#1;#" from the watch).
    ASSERT_TRUE(EsperarHasta([&] { return Cuantas(sim, estado) >= 2; }, 3000));
    EXPECT_TRUE(f->mensajes().formMensajeNuevo().isVisible());
    EXPECT_EQ(Cuantas(sim, kImprimir), 2);

    ponerEstado({{"mensaje", id}, {"estado", 2}, {"respuesta", "Contestado por teléfono"}});
    ASSERT_TRUE(EsperarHasta([&] { return !f->mensajes().formMensajeNuevo().isVisible(); }, 3000));
    EXPECT_FALSE(m.MensajeNuevoPendiente);
    EXPECT_EQ(m.MensajeActual->Item(QStringLiteral("respuesta")).aTexto(),
              QStringLiteral("Contestado por teléfono"));
    EXPECT_TRUE(sonido->llamadas.last().startsWith(QStringLiteral("detener")));
    EXPECT_TRUE(EsperarHasta([&] { return Cuantas(sim, kImprimir) == 3; }, 2 * kIntervalo));
    EXPECT_EQ(Cuantas(sim, kPoll), 0);
    for (const QString& q : sim.consultas(estado)) {
        EXPECT_EQ(q, QStringLiteral("idEstablecimiento=7&passwordconfig=clave&numconfig=1"
                                    "&idMensaje=") +
                         id + QStringLiteral("&modeloImpresora=3&version=1.6.2"))
            << q.toStdString();
    }
}

TEST_F(VigilanciaSimulada, UnPedidoRespondidoEnOtroSitioCierraSusVentanasYSeVuelveASondear) {
    const QString estado = QStringLiteral("pedidosgprs/obtenerEstadoPedido");
    const QString numero =
        sim.generarPedidos(1, 3, QStringLiteral("domicilio"))[0].toObject()["numero"].toString();
    f->ComprobarPedidosNuevos();
    ASSERT_TRUE(f->formPedidoNuevo().isVisible());
    ASSERT_TRUE(sonido->llamadas.last().startsWith(QStringLiteral("reproducir")));
    // Rejecting silences the melody for a minute; the settled order must end that minute too.
    f->respuestasPedido().PulsarRechazar();
    const FormRechazarPedido& rechazo = f->respuestasPedido().formRechazarPedido();
    ASSERT_TRUE(rechazo.isVisible());
    const auto antes = detenciones();
    auto& silenciar = *f->findChild<Temporizador*>(QStringLiteral("TimerSilenciar"));
    ASSERT_TRUE(silenciar.enabled());

    // "#1#": still pending, nothing moves.
    ASSERT_TRUE(EsperarHasta([&] { return Cuantas(sim, estado) >= 2; }, 3000));
    EXPECT_TRUE(rechazo.isVisible());
    EXPECT_TRUE(m.PedidoNuevoPendiente);
    EXPECT_FALSE(f->TimerPedidos().enabled());
    EXPECT_TRUE(silenciar.enabled());
    EXPECT_EQ(detenciones(), antes);

    // "#2#": both windows go, the sound stops, and the next poll follows within one interval.
    ponerEstado({{"pedido", numero}, {"estado", 2}});
    ASSERT_TRUE(EsperarHasta([&] { return !rechazo.isVisible(); }, 3000));
    EXPECT_FALSE(f->formPedidoNuevo().isVisible());
    EXPECT_FALSE(m.PedidoNuevoPendiente);
    EXPECT_FALSE(f->TimerPedActualizado().enabled());
    EXPECT_EQ(detenciones(), antes + 1);
    EXPECT_FALSE(silenciar.enabled());
    EXPECT_TRUE(sim.esperarPeticion(kPoll, kIntervalo + 150));
    for (const QString& q : sim.consultas(estado)) {
        EXPECT_EQ(q, QStringLiteral("idEstablecimiento=7&passwordconfig=clave&numconfig=1"
                                    "&idPedidoEst=") +
                         numero + QStringLiteral("&modeloImpresora=3&version=1.6.2"))
            << q.toStdString();
    }
    EXPECT_EQ(Cuantas(sim, QStringLiteral("pedidosgprs/respuestapedidos")), 0);
}

TEST_F(VigilanciaSimulada, UnUltpedimQueNoSePuedeEscribirEsUnAvisoYLaListaSigueEnMemoria) {
    ASSERT_TRUE(QDir(carpeta.path()).mkdir(QStringLiteral("ultpedim.txt")));
    ASSERT_EQ(sim.peticion("POST", "/__control/imprimir",
                           Json({{"cantidad", 2}, {"semilla", 9}, {"clase", "domicilio"}}))
                  .estado,
              200);
    QSignalSpy avisos(&m, &ModuloPrincipal::avisoArchivos);
    m.Modo = 1;
    f->ComprobarPedidosNuevos();
    const QString primero = m.UltimoIdPedido;
    ASSERT_FALSE(primero.isEmpty());
    f->ComprobarPedidosNuevos();
    EXPECT_TRUE(cajas->cajas().isEmpty());
    ASSERT_FALSE(avisos.isEmpty());
    EXPECT_TRUE(avisos.last()[0].toString().startsWith(
        QStringLiteral("No se ha podido guardar ultpedim.txt (")))
        << avisos.last()[0].toString().toStdString();
    // The second poll still tells the service the first order is printed.
    const QStringList listas = sim.consultas(kImprimir);
    ASSERT_EQ(listas.size(), 2);
    EXPECT_TRUE(listas[1].endsWith(QStringLiteral("=") + primero)) << listas[1].toStdString();
    EXPECT_NE(m.UltimoIdPedido, primero);
}
