// Command settings, the character tables and the line writer, checked byte by byte.
#include "base/ErrorEjecucion.h"
#include "base/Windows1252.h"
#include "common/CapturaEP.h"
#include "common/NumeroDeError.h"
#include "printing/SalidaEP.h"
#include "printing/TablasCaracteresEP.h"

#include <gtest/gtest.h>

namespace {

QByteArray hex(const char* h) {
    return QByteArray::fromHex(h);
}

TEST(ComandosEP, CadaAjusteDaSusBytes) {
    EXPECT_EQ(BytesComandoEP("27,33,48"), hex("1b2130"));
    EXPECT_EQ(BytesComandoEP("29,86,66,0"), hex("1d564200"));
    EXPECT_EQ(BytesComandoEP("27,64"), hex("1b40"));
    EXPECT_EQ(BytesComandoEP("255"), hex("ff"));
    EXPECT_EQ(BytesComandoEP(" 27, 100 ,3"), hex("1b6403")) << "blanks around numbers are read";
    EXPECT_EQ(BytesComandoEP("1,2,3,4,5,6"), hex("010203040506"));
    // Empty or more than six pieces: nothing sent, and no failure.
    EXPECT_TRUE(BytesComandoEP("").isEmpty());
    EXPECT_TRUE(BytesComandoEP("1,2,3,4,5,6,7").isEmpty());
    EXPECT_TRUE(BytesComandoEP("27,x,1,2,3,4,5").isEmpty()) << "seven pieces: not even read";
    // A piece that is no number, or no byte, is a run-time error.
    EXPECT_EQ(numeroDeError([] { BytesComandoEP("27,x"); }), 13);
    EXPECT_EQ(numeroDeError([] { BytesComandoEP("27,,48"); }), 13);
    EXPECT_EQ(numeroDeError([] { BytesComandoEP("27/33"); }), 13) << "no split at '/'";
    EXPECT_EQ(numeroDeError([] { BytesComandoEP("27,256"); }), 6);
    EXPECT_EQ(numeroDeError([] { BytesComandoEP("-1"); }), 6);
}

TEST(TablasEP, QuitarCaracEspDejaTextoLlano) {
    EXPECT_EQ(QuitarCaracEsp(u"¡Año nº 1! ¿Qué tal, Çaña? 3,50€ 20° Über d´Or"_qs),
              u"!Ano n 1! ?Que tal, Cana? 3,50 20 Uber d Or"_qs);
    EXPECT_EQ(QuitarCaracEsp(u"ÁÉÍÓÚáéíóúüÜñÑç"_qs), u"AEIOUaeiouuUnNc"_qs);
}

TEST(TablasEP, PC858PoneLosBytesDeEsaPaginaSinVolverAReemplazar) {
    // Each character becomes the Windows-1252 character whose byte is the PC858 code.
    const QByteArray b = cp1252::aBytes(ConvertirPC858(u"€çÇ¡¿º°áéíóúÁÉÍÓÚñÑüÜ"_qs));
    EXPECT_EQ(b, hex("d587 80ad a8f8 f8a0 82a1 a2a3 b590 d6e0 e9a4 a581 9a"));
    // Ç becomes the byte of "€", í that of "¡", Ú that of "é": none of them is replaced again.
    EXPECT_EQ(cp1252::aBytes(ConvertirPC858(u"Ç"_qs)), hex("80"));
    EXPECT_EQ(cp1252::aBytes(ConvertirPC858(u"í"_qs)), hex("a1"));
    EXPECT_EQ(cp1252::aBytes(ConvertirPC858(u"Ú"_qs)), hex("e9"));
    EXPECT_EQ(ConvertirPC858(u"Plain text 123"_qs), u"Plain text 123"_qs);
}

TEST(TablasEP, ReemplazarListaSigueElOrdenDeLaTabla) {
    const TablaReemplazos tabla = {{"a", "b"}, {"b", "c"}};
    EXPECT_EQ(ReemplazarLista("ab", tabla), "cc");
    const TablaReemplazos alReves = {{"b", "c"}, {"a", "b"}};
    EXPECT_EQ(ReemplazarLista("ab", alReves), "bc");
    EXPECT_EQ(ReemplazarLista("Aa", tabla), "Ac") << "case-sensitive";
}

struct CasoLinea {
    bool reemplazar;
    bool pc858;
    const char* bytes;
    const char16_t* variable; // the caller's variable afterwards
};

class LineaEP : public ::testing::TestWithParam<CasoLinea> {};

TEST_P(LineaEP, AcentoSegunOpcionesYCambioEnLaVariable) {
    ModuloPrincipal m;
    CapturaEP captura(m);
    m.canalEP().Abrir("mem");
    QString texto = u"Día 5º"_qs;
    EnviarLineaEP(m.canalEP(), texto, GetParam().reemplazar, GetParam().pc858);
    m.canalEP().Cerrar();
    EXPECT_EQ(captura.bytes("mem"), hex(GetParam().bytes));
    EXPECT_EQ(texto, QString::fromUtf16(GetParam().variable));
}

INSTANTIATE_TEST_SUITE_P(
    Opciones, LineaEP,
    ::testing::Values(CasoLinea{false, false, "44ed612035ba0a", u"Día 5º"}, // Windows-1252
                      CasoLinea{false, true, "44a1612035f80a", u"Día 5º"},  // PC858 bytes only
                      CasoLinea{true, false, "44696120350a", u"Dia 5"},     // plain, kept
                      CasoLinea{true, true, "44696120350a", u"Dia 5"}));    // plain runs first

TEST(LineaEP, TextoVacioEsSoloSaltoYLosCRLFSalenTalCual) {
    ModuloPrincipal m;
    CapturaEP captura(m);
    m.canalEP().Abrir("mem");
    QString vacio;
    EnviarLineaEP(m.canalEP(), vacio, false, false);
    QString dos = "a\r\nb";
    EnviarLineaEP(m.canalEP(), dos, true, true);
    EnviarComandoEP(m.canalEP(), "");
    m.canalEP().Cerrar();
    EXPECT_EQ(captura.bytes("mem"), hex("0a 610d0a620a"));
}

} // namespace

namespace {

// The quick forms of both tables must give what their pairs give one after the other, for
// every character a ticket can carry and for texts that mix them.
TEST(TablasEP, FormaRapidaIgualALaListaDePares) {
    QString todos;
    for (int n = 1; n < 256; ++n) {
        todos += cp1252::chr(n);
    }
    todos += u"°´"_qs;
    EXPECT_EQ(ConvertirPC858(todos), ReemplazarLista(todos, TablaPC858()));
    EXPECT_EQ(QuitarCaracEsp(todos), ReemplazarLista(todos, TablaCaracEsp()));
    for (int n = 1; n < 256; ++n) {
        const QString uno(cp1252::chr(n));
        EXPECT_EQ(ConvertirPC858(uno), ReemplazarLista(uno, TablaPC858())) << n;
        EXPECT_EQ(QuitarCaracEsp(uno), ReemplazarLista(uno, TablaCaracEsp())) << n;
    }
}

} // namespace

namespace {

TEST(CanalEP, UnSoloTicketAbiertoALaVez) {
    ModuloPrincipal m;
    CapturaEP captura(m);
    CanalEP& canal = m.canalEP();
    EXPECT_EQ(numeroDeError([&] { canal.Escribir("x"); }), 52) << "nothing open";
    canal.Abrir("uno");
    EXPECT_EQ(numeroDeError([&] { canal.Abrir("dos"); }), 55);
    canal.Escribir("ab");
    canal.Cerrar();
    canal.Cerrar(); // closing a closed channel does nothing
    EXPECT_EQ(captura.bytes("uno"), "ab");
    EXPECT_EQ(captura.cierres("uno"), 1);
    EXPECT_EQ(captura.aperturas("dos"), 0);

    canal.Abrir("dos");
    canal.Escribir("c");
    canal.Abortar();
    EXPECT_FALSE(canal.abierto());
    EXPECT_EQ(captura.cierres("dos"), 0) << "aborted, not closed";
}

} // namespace
