#include "common/Entorno.h"
#include "server/Pasarela.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

struct Pasarela_ : ::testing::Test {
    Entorno e;
    QSignalSpy enLinea{&e.m, &ModuloPrincipal::conexionEnLinea};
    QSignalSpy perdida{&e.m, &ModuloPrincipal::conexionPerdida};
};

} // namespace

TEST_F(Pasarela_, LaPrimeraFallaEnHttpsPasaTodoAHttpUnaSolaVez) {
    e.canales.directo->fallar();
    e.canales.directo->responder("hola");
    e.canales.directo->responder("otra");

    EXPECT_EQ(e.m.ConsultarServidor(QStringLiteral("a/b?x=1")), QStringLiteral("hola"));
    EXPECT_EQ(e.m.ConsultarServidor(QStringLiteral("c?y=2")), QStringLiteral("otra"));

    ASSERT_EQ(e.canales.directo->urls.size(), 3);
    EXPECT_EQ(e.canales.directo->urls[0], "https://servidor.prueba/api/a/b?x=1&fha=2026111490507");
    EXPECT_EQ(e.canales.directo->urls[1], "http://servidor.prueba/api/a/b?x=1&fha=2026111490507");
    EXPECT_EQ(e.canales.directo->urls[2], "http://servidor.prueba/api/c?y=2&fha=2026111490507");
    EXPECT_EQ(e.m.UrlBase, QStringLiteral("http://servidor.prueba/api/"));
    EXPECT_EQ(perdida.size(), 1);
    EXPECT_EQ(enLinea.size(), 2);

    // In http a failure is not tried again, and the answer is "error".
    e.canales.directo->fallar();
    EXPECT_EQ(e.m.ConsultarServidor(QStringLiteral("p?a=1")), QStringLiteral("error"));
    EXPECT_EQ(e.canales.directo->urls.size(), 4);
    EXPECT_EQ(perdida.size(), 2);
}

TEST_F(Pasarela_, UnCuerpoVacioDelTransporteDirectoTambienCambiaAHttp) {
    e.canales.directo->responder("");
    e.canales.directo->responder("");
    EXPECT_EQ(e.m.ConsultarServidor(QStringLiteral("p?a=1")), QString());
    // The empty body counts as a connection: the display stays green.
    EXPECT_EQ(enLinea.size(), 2);
    EXPECT_EQ(perdida.size(), 0);
    EXPECT_FALSE(e.m.enHttps());
}

TEST_F(Pasarela_, ElSelloLlevaLaHoraSinCeroALaIzquierda) {
    e.reloj->fijar(QDateTime(QDate(2026, 1, 2), QTime(0, 30, 7)));
    e.canales.directo->responder("x");
    e.m.ConsultarServidor(QStringLiteral("p?a=1"));
    EXPECT_TRUE(e.canales.directo->urls[0].endsWith("&fha=2026010203007"))
        << e.canales.directo->urls[0].constData();
    e.reloj->fijar(QDateTime(QDate(2026, 12, 31), QTime(23, 59, 59)));
    e.canales.directo->responder("x");
    e.m.ConsultarServidor(QStringLiteral("p?a=1"));
    EXPECT_TRUE(e.canales.directo->urls[1].endsWith("&fha=20261231235959"));
}

TEST_F(Pasarela_, MetconEligeElTransporte) {
    for (qint16 metcon : {qint16(0), qint16(2), qint16(-1), qint16(7)}) {
        e.m.Metcon = metcon;
        e.canales.directo->responder("d");
        EXPECT_EQ(e.m.ConsultarServidor(QStringLiteral("p?a=1")), QStringLiteral("d")) << metcon;
    }
    e.m.Metcon = 1;
    e.canales.inet1->responder("  con blancos  ");
    EXPECT_EQ(e.m.ConsultarServidor(QStringLiteral("p?a=1")), QStringLiteral("  con blancos  "));
    EXPECT_EQ(e.canales.inet1->urls.size(), 1);
}

TEST_F(Pasarela_, ElTransporteDeControlTrataElCuerpoVacioComoFallo) {
    e.m.Metcon = 1;
    e.m.UrlBase = e.m.UrlBaseHttp;
    e.canales.inet1->responder("");
    EXPECT_EQ(e.m.ConsultarServidor(QStringLiteral("p?a=1")), QStringLiteral("error"));
    EXPECT_EQ(perdida.size(), 1);
    EXPECT_EQ(enLinea.size(), 0);
}

TEST_F(Pasarela_, ConElPrimerControlOcupadoRespondeElSegundoYSiNoFalla) {
    e.m.Metcon = 1;
    e.m.UrlBase = e.m.UrlBaseHttp;
    QString anidada;
    QString anidadaDoble;
    // While the first control waits, a poll re-enters: it is served by the second one.
    e.canales.inet1->guion.append(CanalFalso::Guion{
        {true, "externa"}, [&] { anidada = e.m.ConsultarServidor(QStringLiteral("n?b=1")); }});
    e.canales.inet2->guion.append(CanalFalso::Guion{
        {true, "interna"}, [&] { anidadaDoble = e.m.ConsultarServidor(QStringLiteral("n?c=1")); }});
    EXPECT_EQ(e.m.ConsultarServidor(QStringLiteral("p?a=1")), QStringLiteral("externa"));
    EXPECT_EQ(anidada, QStringLiteral("interna"));
    // Both controls busy: nothing left to try.
    EXPECT_EQ(anidadaDoble, QStringLiteral("error"));
    EXPECT_EQ(e.canales.inet1->urls.size(), 1);
    EXPECT_EQ(e.canales.inet2->urls.size(), 1);
    // Once free, the first control serves again.
    e.canales.inet1->responder("libre");
    EXPECT_EQ(e.m.ConsultarServidor(QStringLiteral("p?a=1")), QStringLiteral("libre"));
}

TEST(PasarelaDepuracion, ElPrimerBloqueDe128BytesYLosBlancos) {
    const QByteArray b128(128, 'a');
    const QByteArray b129(129, 'b');
    EXPECT_EQ(Pasarela::depurarDirecto(b128), QString(128, QLatin1Char('a')));
    EXPECT_EQ(Pasarela::depurarDirecto(b129), QString(129, QLatin1Char('b')));
    // Leading blanks always go; trailing ones only when no NUL tail follows them, that is
    // when the body fills the first 128-byte read.
    EXPECT_EQ(Pasarela::depurarDirecto("  corto  "), QStringLiteral("corto  "));
    EXPECT_EQ(Pasarela::depurarDirecto(QByteArray(" ") + QByteArray(130, 'x') + "  "),
              QString(130, QLatin1Char('x')));
    EXPECT_EQ(Pasarela::depurarDirecto(QByteArray("a\0b", 3)), QStringLiteral("ab"));
    EXPECT_EQ(Pasarela::depurarDirecto(""), QString());
    // One character per byte, Windows-1252.
    EXPECT_EQ(Pasarela::depurarDirecto("\xC3\xB1"), QStringLiteral("Ã±"));
}

TEST(PasarelaCodificacion, SoloLoQueUnaLineaDePeticionNoLlevaEnCrudo) {
    EXPECT_EQ(
        Pasarela::codificarUrl(QStringLiteral("http://h/api/p?a=1&b=x y&c=%F3&d=ó\"<>\\^`{|}")),
        QByteArray("http://h/api/p?a=1&b=x%20y&c=%F3&d=%F3%22%3C%3E%5C%5E%60%7B%7C%7D"));
    EXPECT_EQ(Pasarela::codificarUrl(QStringLiteral("a\tb\x7F€")), QByteArray("a%09b%7F%80"));
    // A fragment mark and a "%" that starts no escape are value bytes; an escape stays.
    EXPECT_EQ(Pasarela::codificarUrl(QStringLiteral("p?c=ab#1&r=50%&s=%4g%2&t=%2f&fha=1")),
              QByteArray("p?c=ab%231&r=50%25&s=%254g%252&t=%2f&fha=1"));
}
