// A desk that only prints, and the watch on an order or message settled elsewhere, against the
// stand-in service: the real executable with three raw printers for the print-only poll, the
// desk in this process for the windows.
#include "base/ArchivosLocales.h"
#include "base/CifradoAjustes.h"
#include "base/ModuloPrincipal.h"
#include "common/EscritorioPrueba.h"
#include "common/ImpresoraTcp.h"
#include "common/ReproductorGrabador.h"
#include "common/SimuladorPrueba.h"
#include "messages/Mensajes_ui.h"
#include "orders/RespuestasPedido_ui.h"
#include "platform/CajaMensajes.h"
#include "platform/Temporizador.h"
#include "server/ValorJson.h"
#include "shell/Form1.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

const QString kImprimir = QStringLiteral("pedidosgprs/pedidosaceptadosimprimir");
const QString kPoll = QStringLiteral("pedidosgprs/pedidosnuevos");
const QRegularExpression kSello(QStringLiteral("&fha=\\d{13,14}$"));

// "1020,1019,...,desde": `n` numbers counting down.
QString Lista(int desde, int n) {
    QStringList l;
    for (int i = n - 1; i >= 0; --i) {
        l << QString::number(desde + i);
    }
    return l.join(u',');
}

// The queries of the service's record for `ruta`, without the cache stamp and the client's
// own resends.
QStringList Consultas(SimuladorPrueba& sim, const QString& ruta) {
    QStringList r;
    for (const auto& e : sim.registro()) {
        if (e.ruta == ruta && !e.reenvio) {
            r << QString(e.consulta).remove(kSello);
        }
    }
    return r;
}

int Cuantas(SimuladorPrueba& sim, const QString& ruta) {
    return static_cast<int>(Consultas(sim, ruta).size());
}

QByteArray Json(const QJsonObject& o) {
    return QJsonDocument(o).toJson(QJsonDocument::Compact);
}

bool Visible(const char* nombre) {
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->objectName() == QLatin1String(nombre) && w->isVisible()) {
            return true;
        }
    }
    return false;
}

} // namespace

TEST(SoloImprimir, Modo1ImprimeVeintiunAceptadosEnOrdenYReanudaConSuLista) {
    ImpresoraTcp cliente, horno, barra;
    SimuladorPrueba sim({QStringLiteral("--impresoras-tcp=%1,%2,%3")
                             .arg(cliente.puerto())
                             .arg(horno.puerto())
                             .arg(barra.puerto())});
    ASSERT_TRUE(sim.enMarcha());
    // The three raw printers only: two copies at the counter, one in each kitchen, which
    // takes every category so that each order reaches it.
    QJsonObject doc = sim.documento();
    doc[QStringLiteral("modo")] = 1;
    doc[QStringLiteral("intervaloescaneopedido")] = 150;
    QJsonArray impresoras;
    for (const auto& v : doc[QStringLiteral("configimpresoras")].toArray()) {
        QJsonObject i = v.toObject();
        if (i[QStringLiteral("tipoimpresion")].toString() != QLatin1String("EP")) {
            continue;
        }
        if (i[QStringLiteral("cocina")].toInt() == 1) {
            i[QStringLiteral("categoriasids")] = QStringLiteral("11,12,13,14,15");
            i[QStringLiteral("productosexcepids")] = QString();
        } else {
            i[QStringLiteral("numerocopiasaceptado")] = 2;
        }
        impresoras.append(i);
    }
    ASSERT_EQ(impresoras.size(), 3);
    doc[QStringLiteral("configimpresoras")] = impresoras;
    sim.configurar(7, QStringLiteral("clave"), 1, doc);
    ASSERT_EQ(sim.peticion("POST", "/__control/imprimir",
                           Json({{"cantidad", 21}, {"semilla", 5}, {"clase", "domicilio"}}))
                  .estado,
              200);

    EscritorioPrueba desk;
    {
        ModuloPrincipal c; // the desk bound to establishment 7
        c.CarpetaDatos = desk.carpeta();
        c.IdEstablecimiento = 7;
        c.PasswordConfigCifrada =
            CifrarAjuste(QStringLiteral("clave"), ModuloPrincipal::ClaveAjustes);
        c.AccesosCreados = 1;
        GuardarConfigTxt(c);
    }
    ASSERT_TRUE(desk.iniciar(sim.base(), {QStringLiteral("noactualizar")}));
    ASSERT_TRUE(cliente.esperar(42, 60000));
    ASSERT_TRUE(horno.esperar(21, 10000));
    ASSERT_TRUE(barra.esperar(21, 10000));
    // The poll after the last order tells the service the newest twenty.
    const QString prefijo = QStringLiteral(
        "restid=7&password=pgprs-7&numconfig=1&modeloImpresora=3&version=1.6.2&pedexec=");
    ASSERT_TRUE(EsperarHasta(
        [&] { return Consultas(sim, kImprimir).contains(prefijo + Lista(1002, 20)); }, 10000));
    QTest::qWait(500); // nothing more may print

    ASSERT_EQ(cliente.trabajos().size(), 42);
    ASSERT_EQ(horno.trabajos().size(), 21);
    ASSERT_EQ(barra.trabajos().size(), 21);
    for (int k = 0; k < 21; ++k) {
        const QByteArray numero = ": " + QByteArray::number(1001 + k);
        for (const auto& t : {cliente.trabajos()[2 * k], cliente.trabajos()[2 * k + 1],
                              horno.trabajos()[k], barra.trabajos()[k]}) {
            EXPECT_TRUE(t.bytes.contains(numero)) << numero.toStdString();
        }
    }
    // Each poll carries the list as it stood: growing newest first, then the newest twenty.
    QStringList listas;
    for (const QString& q : Consultas(sim, kImprimir)) {
        ASSERT_TRUE(q.startsWith(prefijo)) << q.toStdString();
        const QString lista = q.mid(prefijo.size());
        if (listas.isEmpty() || listas.last() != lista) {
            listas << lista;
        }
    }
    QStringList esperadas{QString()};
    for (int n = 1; n <= 20; ++n) {
        esperadas << Lista(1001, n);
    }
    esperadas << Lista(1002, 20);
    EXPECT_EQ(listas, esperadas);
    EXPECT_EQ(Cuantas(sim, kPoll), 0);
    EXPECT_EQ(Cuantas(sim, QStringLiteral("pedidosgprs/respuestapedidos")), 0);
    QFile archivo(QDir(desk.carpeta()).filePath(QStringLiteral("ultpedim.txt")));
    ASSERT_TRUE(archivo.open(QIODevice::ReadOnly));
    EXPECT_EQ(archivo.readAll(), Lista(1002, 20).toLatin1());
    EXPECT_TRUE(desk.cajas().isEmpty());

    // Started again, the desk's first poll sends the list it had.
    desk.terminar();
    sim.limpiarRegistro();
    EscritorioPrueba otra(desk.carpeta());
    ASSERT_TRUE(otra.iniciar(sim.base(), {QStringLiteral("noactualizar")}));
    ASSERT_TRUE(sim.esperarPeticion(kImprimir, 20000));
    EXPECT_EQ(Consultas(sim, kImprimir).first(), prefijo + Lista(1002, 20));
    EXPECT_EQ(Cuantas(sim, kPoll), 0);
}

namespace {

// The desk in this process, bound to establishment 7, with no printers and a recorded player.
struct VigilanciaSimulada : ::testing::Test {
    QTemporaryDir carpeta;
    SimuladorPrueba sim;
    ModuloPrincipal m;
    std::shared_ptr<ReproductorGrabador::Registro> sonido =
        std::make_shared<ReproductorGrabador::Registro>();
    std::unique_ptr<Form1> f;
    RegistroCajas* cajas = nullptr;
    static constexpr int kIntervalo = 300;

    void SetUp() override {
        ASSERT_TRUE(sim.enMarcha());
        auto registro = std::make_unique<RegistroCajas>();
        cajas = registro.get();
        m.setCajas(std::move(registro));
        m.setServidor(sim.base());
        m.CarpetaDatos = carpeta.path();
        m.CarpetaAplicacion = QStringLiteral(CARPETA_BIN);
        m.IdEstablecimiento = 7;
        m.RestId = 7;
        m.PasswordConfig = QStringLiteral("clave");
        m.NumConfig = 1;
        m.Pgprs = QStringLiteral("pgprs-7");
        m.IntervaloEscaneoPedido = kIntervalo;
        m.IntervaloEscaneoPedActualizado = 100;
        f = std::make_unique<Form1>(m, QStringList{});
        f->AplicarConfiguracion();
        InstalarGrabadores(m.sonido(), sonido);
        for (Temporizador* t : {&f->TimerMusica(), &f->TimerPedidos(), &f->TimerConfig()}) {
            t->setEnabled(false);
        }
        // The first failed https attempt moves the run to http before anything is counted.
        f->ComprobarPedidosNuevos();
        sim.vaciarRespuestas();
        sim.limpiarRegistro();
    }
    void TearDown() override {
        if (f) {
            f->Unload();
        }
    }
    void ponerEstado(const QJsonObject& estado) {
        ASSERT_EQ(sim.peticion("PUT", "/__control/estado", Json(estado)).estado, 200);
    }
};

} // namespace

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
        EXPECT_EQ(Visible("FormMensajeNuevo"), ventana) << modo;
        EXPECT_EQ(f->TimerPedidos().enabled(), !ventana) << modo;
    }
    // No poll while the message waits ("#1;#" from the watch).
    ASSERT_TRUE(EsperarHasta([&] { return Cuantas(sim, estado) >= 2; }, 3000));
    EXPECT_TRUE(Visible("FormMensajeNuevo"));
    EXPECT_EQ(Cuantas(sim, kImprimir), 2);

    ponerEstado({{"mensaje", id}, {"estado", 2}, {"respuesta", "Contestado por teléfono"}});
    ASSERT_TRUE(EsperarHasta([&] { return !Visible("FormMensajeNuevo"); }, 3000));
    EXPECT_FALSE(m.MensajeNuevoPendiente);
    EXPECT_EQ(m.MensajeActual->Item(QStringLiteral("respuesta")).aTexto(),
              QStringLiteral("Contestado por teléfono"));
    EXPECT_TRUE(sonido->llamadas.last().startsWith(QStringLiteral("detener")));
    EXPECT_TRUE(EsperarHasta([&] { return Cuantas(sim, kImprimir) == 3; }, 2 * kIntervalo));
    EXPECT_EQ(Cuantas(sim, kPoll), 0);
    for (const QString& q : Consultas(sim, estado)) {
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
    ASSERT_TRUE(Visible("FormPedidoNuevo"));
    ASSERT_TRUE(sonido->llamadas.last().startsWith(QStringLiteral("reproducir")));
    // Rejecting silences the melody for a minute; the settled order must end that minute too.
    f->respuestasPedido().PulsarRechazar();
    ASSERT_TRUE(Visible("FormRechazarPedido"));
    const auto detenciones = [&] {
        return sonido->llamadas.filter(QRegularExpression(QStringLiteral("^detener"))).size();
    };
    const auto antes = detenciones();
    auto& silenciar = *f->findChild<Temporizador*>(QStringLiteral("TimerSilenciar"));
    ASSERT_TRUE(silenciar.enabled());

    // "#1#": still pending, nothing moves.
    ASSERT_TRUE(EsperarHasta([&] { return Cuantas(sim, estado) >= 2; }, 3000));
    EXPECT_TRUE(Visible("FormRechazarPedido"));
    EXPECT_TRUE(m.PedidoNuevoPendiente);
    EXPECT_FALSE(f->TimerPedidos().enabled());
    EXPECT_TRUE(silenciar.enabled());
    EXPECT_EQ(detenciones(), antes);

    // "#2#": both windows go, the sound stops, and the next poll follows within one interval.
    ponerEstado({{"pedido", numero}, {"estado", 2}});
    ASSERT_TRUE(EsperarHasta([&] { return !Visible("FormRechazarPedido"); }, 3000));
    EXPECT_FALSE(Visible("FormPedidoNuevo"));
    EXPECT_FALSE(m.PedidoNuevoPendiente);
    EXPECT_FALSE(f->TimerPedActualizado().enabled());
    EXPECT_EQ(detenciones(), antes + 1);
    EXPECT_FALSE(silenciar.enabled());
    EXPECT_TRUE(sim.esperarPeticion(kPoll, kIntervalo + 150));
    for (const QString& q : Consultas(sim, estado)) {
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
    const QStringList listas = Consultas(sim, kImprimir);
    ASSERT_EQ(listas.size(), 2);
    EXPECT_TRUE(listas[1].endsWith(QStringLiteral("=") + primero)) << listas[1].toStdString();
    EXPECT_NE(m.UltimoIdPedido, primero);
}
