// The desk in this process against the stand-in service, with a driver printer that fails in
// slot 1 and three raw printers on TCP: a printer's box must not let the next order in through
// the middle of an answer, and an answer the service did not take must not be lost or printed
// twice.
#include "base/ModuloPrincipal.h"
#include "common/ImpresoraEPDeSerie.h"
#include "common/ImpresoraTcp.h"
#include "common/SimuladorPrueba.h"
#include "orders/FormAceptarPedido.h"
#include "orders/FormPedidoNuevo.h"
#include "orders/RespuestaPedido.h"
#include "orders/RespuestasPedido_ui.h"
#include "platform/CajaMensajes.h"
#include "platform/Temporizador.h"
#include "shell/Form1.h"

#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString kPoll = QStringLiteral("pedidosgprs/pedidosnuevos");
const QString kRespuesta = QStringLiteral("pedidosgprs/respuestapedidos");
constexpr int kIntervalo = 40; // ms between polls once the desk is free

// A box that stays up the way one does in front of a person: its own event loop runs (timers
// included) for `msAbierta` before it is answered.
class CajaLeida : public CajaMensajes {
public:
    int msAbierta = 0;
    std::function<void()> alAbrir;
    std::function<void()> alCerrar;
    QList<RegistroCajas::Caja> cajas;

    int mostrar(const QString& texto, int estilo, const QString& titulo) override {
        cajas.append({texto, estilo, titulo});
        if (alAbrir) {
            alAbrir();
        }
        QTest::qWait(msAbierta);
        if (alCerrar) {
            alCerrar();
        }
        return (estilo & 0x7) == estilo::SiNo ? respuesta::Si : respuesta::Aceptar;
    }
};

// An order for now, delivered, with `n` products: pizzas (category 12) and desserts (15).
QString lineaPedido(int numero, int n) {
    QStringList productos;
    for (int k = 0; k < n; ++k) {
        productos << (k % 2 == 0 ? QStringLiteral("1%Pizza %1%9.00%%2%12").arg(k).arg(1000 + k)
                                 : QStringLiteral("1%Postre %1%4.00%%2%15").arg(k).arg(1000 + k));
    }
    return QStringLiteral("#PED*web*%1*").arg(numero) + productos.join(u';') +
           QStringLiteral(";*2.00*0.00;29.50;88;María Núñez;Calle Mayor 5;14/11/2026 21:02%%"
                          "Para: Ahora;4;6;Tarjeta;600111222;Pendiente;;;0.35;;0;29.85;*#");
}

struct CaminoPedido : ::testing::Test {
    QTemporaryDir carpeta;
    SimuladorPrueba sim;
    ImpresoraTcp cliente, cocina1, cocina2;
    ModuloPrincipal m;
    CajaLeida* caja = nullptr;
    std::unique_ptr<Form1> f;
    // Requests the service had when the last box came up and when it went.
    qsizetype alAbrirCaja = -1;
    qsizetype alCerrarCaja = -1;

    void SetUp() override {
        ASSERT_TRUE(sim.enMarcha());
        for (const ImpresoraTcp* i : {&cliente, &cocina1, &cocina2}) {
            ASSERT_NE(i->puerto(), 0);
        }
        auto c = std::make_unique<CajaLeida>();
        caja = c.get();
        m.setCajas(std::move(c));
        m.setServidor(sim.base());
        m.CarpetaDatos = carpeta.path();
        m.CarpetaAplicacion = QStringLiteral(CARPETA_BIN);
        m.RestId = 41;
        m.Pgprs = QStringLiteral("pg7");
        m.IntervaloEscaneoPedido = 600000;
        m.TamannoFuentePrincipales = 8;
        // Slot 1: the counter's driver printer, which this machine does not have.
        ClassConfigImpresora& caja1 = m.Impresora(1);
        caja1.TipoImpresion = QStringLiteral("DW");
        caja1.NombreImpresora = QStringLiteral("Impresora caja");
        caja1.NumeroCopiasAceptado = 1;
        caja1.NumeroCopiasAceptadoRecoger = -1;
        m.Impresora(2) = tcp(QStringLiteral("Mostrador"), cliente.puerto());
        m.Impresora(2).NumeroCopiasAceptado = 2;
        m.Impresora(3) = tcp(QStringLiteral("Horno"), cocina1.puerto());
        m.Impresora(3).Cocina = true;
        m.Impresora(3).CategoriasIds = QStringLiteral("12");
        m.Impresora(4) = tcp(QStringLiteral("Postres"), cocina2.puerto());
        m.Impresora(4).Cocina = true;
        m.Impresora(4).CategoriasIds = QStringLiteral("15");
        f = std::make_unique<Form1>(m, QStringList{});
        f->AplicarConfiguracion();
        f->TimerMusica().setEnabled(false);
        f->TimerPedidos().setEnabled(false);
        // The first failed https attempt moves the run to http before anything is counted.
        f->ComprobarPedidosNuevos();
        caja->alAbrir = [this] { alAbrirCaja = sim.registro().size(); };
        caja->alCerrar = [this] { alCerrarCaja = sim.registro().size(); };
    }

    static ClassConfigImpresora tcp(const QString& nombre, quint16 puerto) {
        return ImpresoraEPDeSerie(nombre, QStringLiteral("127.0.0.1:%1").arg(puerto));
    }
    QStringList respuestas() { return sim.consultas(kRespuesta); }
    // The paths the service saw, in order, without the client's own resends.
    QStringList rutas() {
        QStringList r;
        for (const auto& e : sim.registro()) {
            if (!e.reenvio) {
                r << e.ruta;
            }
        }
        return r;
    }
    void aceptarCon20() {
        QTest::mouseClick(f->formPedidoNuevo().findChild<QPushButton*>(QStringLiteral("Aceptar")),
                          Qt::LeftButton);
        QTest::mouseClick(f->respuestasPedido().formAceptarPedido().AceptarMinutos(3),
                          Qt::LeftButton);
    }
    // Every copy of order `numero` on the three raw printers: two for the counter, one per
    // kitchen, each holding the order's number.
    void ticketsDe(const QString& numero) {
        ASSERT_TRUE(cliente.esperar(2, 5000));
        ASSERT_TRUE(cocina1.esperar(1, 5000));
        ASSERT_TRUE(cocina2.esperar(1, 5000));
        QTest::qWait(100); // nothing more may come
        ASSERT_EQ(cliente.trabajos().size(), 2);
        ASSERT_EQ(cocina1.trabajos().size(), 1);
        ASSERT_EQ(cocina2.trabajos().size(), 1);
        for (ImpresoraTcp* i : {&cliente, &cocina1, &cocina2}) {
            for (const auto& t : i->trabajos()) {
                EXPECT_TRUE(t.bytes.contains(": " + numero.toLatin1())) << numero.toStdString();
            }
        }
    }
    void limpiarImpresoras() {
        for (ImpresoraTcp* i : {&cliente, &cocina1, &cocina2}) {
            i->limpiar();
        }
    }
    QString labelInfo() const { return f->findChild<QLabel*>(QStringLiteral("LabelInfo"))->text(); }
};

} // namespace

TEST_F(CaminoPedido, ElCuadroDeUnaImpresoraNoDejaEntrarElPedidoSiguiente) {
    caja->msAbierta = 10 * kIntervalo;
    sim.encolar(kPoll, {lineaPedido(5001, 4), lineaPedido(5002, 2)});
    f->ComprobarPedidosNuevos();
    ASSERT_TRUE(f->formPedidoNuevo().isVisible());
    f->TimerPedidos().setInterval(kIntervalo); // the answer switches it on
    aceptarCon20();

    // The driver printer's box came after the raw copies and left the service alone.
    ASSERT_EQ(caja->cajas.size(), 1);
    EXPECT_TRUE(caja->cajas[0].texto.startsWith(
        QStringLiteral("Error en tiempo de ejecución '482': Error de impresora")));
    EXPECT_TRUE(caja->cajas[0].texto.contains(QStringLiteral("\"Impresora caja\"")));
    EXPECT_EQ(alCerrarCaja, alAbrirCaja);
    ticketsDe(QStringLiteral("5001"));
    ASSERT_EQ(respuestas().size(), 1);
    EXPECT_TRUE(respuestas()[0].startsWith(QStringLiteral("a=41&o=5001&ak=Accepted&m=20_Minutos")));

    // Polling resumes after the answer; the next order comes up whole and can be answered.
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return f->formPedidoNuevo().isVisible() && m.UltimoIdPedido == u"5002"; }, 5000));
    EXPECT_EQ(f->formPedidoNuevo().findChild<QLabel*>(QStringLiteral("LabNPedido"))->text(),
              QStringLiteral("5002"));
    limpiarImpresoras();
    aceptarCon20();
    ASSERT_EQ(respuestas().size(), 2);
    EXPECT_TRUE(respuestas()[1].startsWith(QStringLiteral("a=41&o=5002&ak=Accepted")));
    EXPECT_FALSE(m.PedidoNuevoPendiente);
    const int antes = static_cast<int>(sim.registro().size());
    EXPECT_TRUE(sim.esperarPeticion(kPoll, 5000, antes));
}

TEST_F(CaminoPedido, ConElCuadroAbiertoNoSaleNingunaPeticion) {
    // Automatic acceptance with every timer of the road running fast: polls, configuration
    // readings (a reading each turn) and the start-up retry.
    m.AceptarAutoDomicilio = 30;
    m.IntervaloEscaneoConfiguracion = 0;
    caja->msAbierta = 10 * kIntervalo;
    for (Temporizador* t : {&f->TimerConfig(), &f->TimerPrimeraConfig()}) {
        t->setInterval(kIntervalo);
        t->setEnabled(false);
    }
    // The configuration would bring the service's own printers: it reads only while the box is
    // up (when it must not), then the timers stop.
    caja->alAbrir = [this] {
        alAbrirCaja = sim.registro().size();
        f->TimerConfig().setEnabled(true);
        f->TimerPrimeraConfig().setEnabled(true);
    };
    caja->alCerrar = [this] {
        alCerrarCaja = sim.registro().size();
        f->TimerConfig().setEnabled(false);
        f->TimerPrimeraConfig().setEnabled(false);
    };
    sim.encolar(kPoll, {lineaPedido(6001, 30), lineaPedido(6002, 2)});
    f->TimerPedidos().setInterval(kIntervalo);
    f->TimerPedidos().setEnabled(true);

    ASSERT_TRUE(QTest::qWaitFor([&] { return caja->cajas.size() == 1; }, 5000));
    EXPECT_EQ(alCerrarCaja, alAbrirCaja) << "peticiones con el cuadro abierto";
    // The next order is taken by the next poll, and accepted the same way; each order's
    // copies are out before the next order is asked for.
    ASSERT_TRUE(QTest::qWaitFor([&] { return respuestas().size() == 2; }, 5000));
    EXPECT_TRUE(respuestas()[0].startsWith(QStringLiteral("a=41&o=6001&ak=Accepted&m=30_Minutos")));
    EXPECT_TRUE(respuestas()[1].startsWith(QStringLiteral("a=41&o=6002&ak=Accepted&m=30_Minutos")));
    ASSERT_TRUE(cliente.esperar(4, 5000));
    ASSERT_TRUE(cocina1.esperar(2, 5000));
    ASSERT_TRUE(cocina2.esperar(2, 5000));
    const auto copias = cliente.trabajos();
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(copias[i].bytes.contains(i < 2 ? ": 6001" : ": 6002")) << i;
    }
    // A long order reaches each printer down to its last product.
    EXPECT_TRUE(copias[0].bytes.contains("Postre 29"));
    EXPECT_TRUE(cocina1.trabajos()[0].bytes.contains("Pizza 28"));
    EXPECT_FALSE(f->formPedidoNuevo().isVisible());
}

TEST_F(CaminoPedido, AceptacionAutomaticaNoTomadaSeReenviaYSeImprimeUnaVez) {
    m.Impresora(1) = ClassConfigImpresora{}; // only the raw printers here
    m.AceptarAutoDomicilio = 30;
    const struct {
        const char* fallo;
        bool imprimirAntes;
    } casos[] = {
        {"error", false},     {"vacio", false}, {"status500", false},
        {"titulo502", false}, {"error", true},
    };
    int numero = 7000;
    for (const auto& c : casos) {
        SCOPED_TRACE(std::string(c.fallo) + (c.imprimirAntes ? " imprimiendo antes" : ""));
        const QString n = QString::number(++numero);
        m.ImprimirAntesAceptar = c.imprimirAntes;
        limpiarImpresoras();
        sim.limpiarRegistro();
        sim.fallo(QString::fromLatin1(c.fallo), 0, 1, kRespuesta);
        sim.encolar(kPoll, {lineaPedido(numero, 4)});

        f->TimerPedidos().disparar();
        EXPECT_TRUE(caja->cajas.isEmpty());
        EXPECT_EQ(labelInfo(), respuesta_pedido::TextoAceptacionAutoNoTomada(n));
        EXPECT_FALSE(f->formPedidoNuevo().isVisible());
        QTest::qWait(100);
        EXPECT_EQ(cliente.trabajos().size(), c.imprimirAntes ? 2 : 0);

        // The next turn sends the same answer again instead of asking for a new order.
        f->TimerPedidos().disparar();
        EXPECT_EQ(labelInfo(), respuesta_pedido::TextoAceptacionAutoTomada(n));
        ticketsDe(n);
        const QStringList r = respuestas();
        ASSERT_EQ(r.size(), 2);
        EXPECT_EQ(r[0], r[1]);
        EXPECT_TRUE(r[1].startsWith(QStringLiteral("a=41&o=%1&ak=Accepted&m=30_Minutos").arg(n)));
        EXPECT_EQ(rutas(), (QStringList{kPoll, kRespuesta, kRespuesta}));

        // And the turn after that polls again.
        f->TimerPedidos().disparar();
        EXPECT_EQ(rutas().value(3), kPoll);
        EXPECT_TRUE(caja->cajas.isEmpty());
    }
}
