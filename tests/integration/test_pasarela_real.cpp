// The main window's gateway, with its real HTTP channels, against the stand-in service.
#include "base/ModuloPrincipal.h"
#include "base/Windows1252.h"
#include "common/EscritorioPrueba.h"
#include "common/SimuladorPrueba.h"
#include "platform/CajaMensajes.h"
#include "platform/CanalHttp.h"
#include "platform/Controles_ui.h"
#include "server/Pasarela.h"
#include "shell/Form1.h"

#include <QLineEdit>
#include <gtest/gtest.h>

namespace {

struct GatewayReal : ::testing::Test {
    SimuladorPrueba sim;
    ModuloPrincipal m;
    RegistroCajas* cajas = nullptr;
    std::unique_ptr<Form1> f;

    void SetUp() override {
        ASSERT_TRUE(sim.enMarcha());
        m.setServidor(sim.base());
        auto c = std::make_unique<RegistroCajas>();
        cajas = c.get();
        m.setCajas(std::move(c));
        // A short transfer allowance stands in for the platform's 60 seconds.
        m.setCanales(std::make_unique<CanalHttpQt>("API-Guide test program", 1500),
                     std::make_unique<CanalHttpQt>(QByteArray(), 1500),
                     std::make_unique<CanalHttpQt>(QByteArray(), 1500));
        f = std::make_unique<Form1>(m, QStringList{});
    }
    QString texto(const char* n) { return f->findChild<QLineEdit*>(QLatin1String(n))->text(); }
    QColor fondo(const char* n) { return Fondo(f->findChild<QWidget*>(QLatin1String(n))); }
    void enLinea() {
        EXPECT_EQ(texto("TextEstadoConexion"), QStringLiteral("En línea"));
        EXPECT_EQ(fondo("TextEstadoConexion"), ColorVB(65280));
    }
    void sinConexion() {
        EXPECT_EQ(texto("TextEstadoConexion"), QStringLiteral("Sin conexión"));
        EXPECT_EQ(fondo("TextEstadoConexion"), ColorVB(255));
        EXPECT_EQ(texto("TextEstadoApertura"), QStringLiteral("??"));
        EXPECT_EQ(fondo("TextEstadoApertura"), ColorVB(0xFFFFFF));
    }
};

} // namespace

TEST_F(GatewayReal, LosFallosDelServicioSeVenYElSondeoSigueEnSilencio) {
    m.UrlBase = m.UrlBaseHttp;
    // Faults of the connection turn the display red with "??".
    // (Until cleared: the HTTP client resends a request once when the connection drops.)
    for (const char* tipo : {"rechazar", "colgar"}) {
        sim.fallo(QLatin1String(tipo), 4.0);
        f->ComprobarPedidosNuevos();
        SCOPED_TRACE(tipo);
        sinConexion();
        f->ComprobarPedidosNuevos();
        sinConexion();
        sim.quitarFallos();
        f->ComprobarPedidosNuevos();
        enLinea();
        EXPECT_EQ(texto("TextEstadoApertura"), QStringLiteral("Abierto"));
    }
    // Answers that are not good replies reach the desk as text: the connection is fine and
    // the poll finds nothing to do in them.
    for (const char* tipo : {"error", "vacio", "basura", "status500", "titulo502"}) {
        sim.fallo(QLatin1String(tipo), 0, 1);
        f->ComprobarPedidosNuevos();
        SCOPED_TRACE(tipo);
        enLinea();
        EXPECT_EQ(texto("TextEstadoApertura"), QStringLiteral("Abierto"));
    }
    // The second transport counts an empty body as a failure.
    m.Metcon = 1;
    sim.fallo(QStringLiteral("vacio"), 0);
    f->ComprobarPedidosNuevos();
    sinConexion();
    sim.quitarFallos();
    f->ComprobarPedidosNuevos();
    enLinea();
    EXPECT_TRUE(cajas->cajas().isEmpty()) << "polls never show a box";
}

TEST_F(GatewayReal, LosCuerposLleganByteAByteComoTexto) {
    m.UrlBase = m.UrlBaseHttp;
    sim.encolar(QStringLiteral("p"), {QStringLiteral("estadoapertura:Cerrado hasta mañana 10:00")});
    const QString r = m.ConsultarServidor(QStringLiteral("p?x=1"));
    // UTF-8 arrives as one character per byte; the reader repairs it later.
    EXPECT_EQ(r, QStringLiteral("estadoapertura:Cerrado hasta maÃ±ana 10:00"));
}

// A value written raw into a query (a password, a reason, an answer) reaches the service
// whole through both transports: each byte travels as it is or as its escape.
TEST_F(GatewayReal, CadaByteDeUnValorCrudoLlegaAlServicio) {
    m.UrlBase = m.UrlBaseHttp;
    QString valor = QStringLiteral("áÑ€ü%zz%4");
    for (char16_t c = 0x20; c < 0x7F; ++c) {
        valor += QChar(c);
    }
    const QString consulta = "passwordconfig=" + valor + "&fha=1";
    m.pasarela().LeerUrlDirecto(m.UrlBase + "prueba/directo?" + consulta);
    m.pasarela().LeerUrlInet1(m.UrlBase + "prueba/inet?" + consulta);
    const auto r = sim.registro();
    ASSERT_EQ(r.size(), 2);
    for (const auto& e : r) {
        SCOPED_TRACE(e.consulta.toStdString());
        EXPECT_EQ(QByteArray::fromPercentEncoding(e.consulta.toLatin1()),
                  "passwordconfig=" + cp1252::aBytes(valor) + "&fha=1");
        // What a request line carries raw goes raw: queries that were right stay the same.
        for (const char c : QByteArray("azAZ09-._~!$&'()*+,;=:@/?[]")) {
            EXPECT_TRUE(e.consulta.contains(QLatin1Char(c))) << c;
        }
        for (const char* escape : {"%23", "%25zz", "%254", "%20", "%E1", "%80"}) {
            EXPECT_TRUE(e.consulta.contains(QLatin1String(escape))) << escape;
        }
    }
}
