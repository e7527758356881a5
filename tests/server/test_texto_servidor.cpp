#include "base/ErrorEjecucion.h"
#include "base/Windows1252.h"
#include "common/ImprimirQString.h"
#include "common/NumeroDeError.h"
#include "server/TextoServidor.h"
#include "server/ValorJson.h"

#include <gtest/gtest.h>

namespace {

// The text a transport gives for these bytes: one character per byte.
QString bytes(const char* b) {
    return cp1252::aTexto(QByteArray(b));
}

QString reparado(const char* b) {
    QString t = bytes(b);
    return ArreglarUtf8(t);
}

} // namespace

TEST(ArreglarUtf8, LetrasLatinasEnSuSitioYLoDemasSeRindeAlEuro) {
    EXPECT_EQ(reparado("a\xC3\xB1o."), QStringLiteral("año."));
    EXPECT_EQ(reparado("\xC2\xA1Hola!"), QStringLiteral("¡Hola!"));
    EXPECT_EQ(reparado("cami\xC3\xB3n y \xC3\x91u"), QStringLiteral("camión y Ñu"));
    EXPECT_EQ(reparado("sin cambios"), QStringLiteral("sin cambios"));
    EXPECT_EQ(reparado(""), QString());
    // Three bytes of the euro sign: one character of code 128.
    EXPECT_EQ(reparado("12\xE2\x82\xAC."), QStringLiteral("12€."));
    // Other characters also collapse into the euro sign.
    EXPECT_EQ(reparado("\xE4\xB8\xAD!"), QStringLiteral("€!"));
    EXPECT_EQ(reparado("\xF0\x9F\x8D\x95!"), QStringLiteral("€!"));
    // A lone byte, a continuation byte alone, another two-byte lead.
    EXPECT_EQ(reparado("\xE9x"), QStringLiteral("€x"));
    EXPECT_EQ(reparado("\xB1x"), QStringLiteral("€x"));
    // C4 85 has an even lead: only its low bit counts, so it reads as code 0x85.
    EXPECT_EQ(reparado("\xC4\x85x"), QString(cp1252::chr(0x85)) + u'x');
}

TEST(ArreglarUtf8, UltimaPosicionYSegundaPasada) {
    // Ending in C3 B1: the lead becomes code 128 and the last byte stays.
    EXPECT_EQ(reparado("a\xC3\xB1"), QStringLiteral("a€") + cp1252::chr(0xB1));
    EXPECT_EQ(reparado("\xC3\xB1"), QStringLiteral("€") + cp1252::chr(0xB1));
    // The argument is repaired in place.
    QString t = bytes("\xC3\xA9t\xC3\xA9.");
    ArreglarUtf8(t);
    EXPECT_EQ(t, QStringLiteral("été."));
    // A second pass damages every character above 127.
    ArreglarUtf8(t);
    EXPECT_EQ(t, QStringLiteral("€t€."));
}

TEST(Url, CodificarYDecodificar) {
    EXPECT_EQ(UrlCodificar(QStringLiteral("Pan & vino")), QStringLiteral("Pan+%26+vino"));
    EXPECT_EQ(UrlCodificar(QStringLiteral("a-b_c.d~")), QStringLiteral("a%2Db%5Fc%2Ed%7E"));
    EXPECT_EQ(UrlCodificar(QStringLiteral("Ñ€\n")), QStringLiteral("%D1%80%0A"));
    EXPECT_EQ(UrlCodificar(QStringLiteral("中")), QStringLiteral("%3F"));
    EXPECT_EQ(UrlCodificar(QString()), QString());

    EXPECT_EQ(UrlDecodificar(QStringLiteral("Caja+%231%2C+barra")),
              QStringLiteral("Caja #1, barra"));
    EXPECT_EQ(UrlDecodificar(QStringLiteral("%D1%80")), QStringLiteral("Ñ€"));
    // Lower-case digits, a missing digit, a "%" at the end: the "%" stays.
    EXPECT_EQ(UrlDecodificar(QStringLiteral("%2c")), QStringLiteral("%2c"));
    EXPECT_EQ(UrlDecodificar(QStringLiteral("%4")), QStringLiteral("%4"));
    EXPECT_EQ(UrlDecodificar(QStringLiteral("100%")), QStringLiteral("100%"));
    EXPECT_EQ(UrlDecodificar(QStringLiteral("%%41")), QStringLiteral("%A"));
    // There and back.
    const QString nombre = QStringLiteral("Cocina 2 (planta baja) ñ&€");
    EXPECT_EQ(UrlDecodificar(UrlCodificar(nombre)), nombre);
}

TEST(Valores, BanderasYTeclas) {
    EXPECT_TRUE(UnoAVerdadero(1));
    EXPECT_FALSE(UnoAVerdadero(-1));
    EXPECT_FALSE(UnoAVerdadero(2));
    EXPECT_EQ(VerdaderoAUno(-1), 1);
    EXPECT_EQ(VerdaderoAUno(0), 0);
    EXPECT_EQ(VerdaderoAUno(1), 0);
    EXPECT_EQ(SoloDigitos('7'), '7');
    EXPECT_EQ(SoloDigitos(8), 8);
    EXPECT_EQ(SoloDigitos('a'), 0);
    EXPECT_EQ(SoloDigitos(','), 0);
    EXPECT_EQ(SoloDecimal('.', QStringLiteral("12")), ',');
    EXPECT_EQ(SoloDecimal(',', QStringLiteral("12")), ',');
    EXPECT_EQ(SoloDecimal('.', QStringLiteral("1,2")), 0);
    EXPECT_EQ(SoloDecimal(',', QStringLiteral("1,2")), 0);
    EXPECT_EQ(SoloDecimal('5', QStringLiteral("1,2")), '5');
    EXPECT_EQ(SoloDecimal(8, QStringLiteral("1,2")), 8);
    EXPECT_EQ(SoloDecimal('-', QString()), 0);
}

TEST(Valores, ColeccionAVector) {
    ColeccionJson c;
    c.Add(ValorJson(QStringLiteral("Sin existencias")));
    c.Add(ValorJson(clasico::CDec(u"12,50")));
    c.Add(ValorJson(true));
    EXPECT_EQ(ColeccionAVector(c),
              (QStringList{QStringLiteral("Sin existencias"), QStringLiteral("12,5"),
                           QStringLiteral("Verdadero")}));
    ColeccionJson vacia;
    EXPECT_EQ(numeroDeError([&] { ColeccionAVector(vacia); }), 9) << "an empty collection fails";
}
