// The test page of a raw printer, byte for byte, and its failure box.
#include "base/ErrorEjecucion.h"
#include "base/Windows1252.h"
#include "common/CapturaEP.h"
#include "common/Entorno.h"
#include "printing/PruebaImpresoraEP.h"

#include <gtest/gtest.h>

namespace {

ClassConfigImpresora impresora(const QString& caracteres) {
    ClassConfigImpresora i;
    i.TipoImpresion = QStringLiteral("EP");
    i.NombreImpresora = QStringLiteral("Barra");
    i.EPConexion = QStringLiteral("mem");
    i.EPNumColumnas = 20;
    i.EPComInicializar = QStringLiteral("27,64");
    i.EPComConfigCaracteres = caracteres;
    i.EPComDobleAltoActivar = QStringLiteral("27,33,48");
    i.EPComDobleAltoDesact = QStringLiteral("27,33,0");
    i.EPComSubirYCotarPapel = QStringLiteral("29,86,66,0");
    i.EPComSubirLineas = QStringLiteral("27,100,3");
    return i;
}

} // namespace

TEST(PruebaImpresoraEP, PaginaSinFilasDeCodigos) {
    Entorno e;
    CapturaEP captura(e.m);
    prueba_ep::ImprimirPruebaEP(e.m, impresora(QStringLiteral("27,116")));
    const QByteArray esperado = QByteArray::fromHex("1b40") + QByteArray::fromHex("1b74") +
                                QByteArray::fromHex("1b2130") + "Barra\n" +
                                QByteArray::fromHex("1b2100") + "14/11/2026 9:05:07\n" +
                                QByteArray("1234567890").repeated(10) + "\n" +
                                // 13 characters leave 7 on a line of 20: the price fits exactly.
                                "10 X Producto123.45\x80\n" +
                                cp1252::aBytes(QStringLiteral("áéíóú ÁÉÍÓÚ ñÑ çÇ üÜ € º ° ¡ ¿\n")) +
                                QByteArray::fromHex("1b6403") + QByteArray::fromHex("1d564200");
    EXPECT_EQ(captura.bytes("mem"), esperado);
    EXPECT_EQ(captura.cierres("mem"), 1);
    EXPECT_TRUE(e.cajas->cajas().isEmpty());
}

TEST(PruebaImpresoraEP, CientoCincuentaFilasDeCodigosConLosValoresDeSerie) {
    Entorno e;
    CapturaEP captura(e.m);
    ClassConfigImpresora i = impresora(QStringLiteral("27,116,19"));
    i.EPNumColumnas = 15; // 2 left on the line: the price goes on its own, right-aligned
    prueba_ep::ImprimirPruebaEP(e.m, i);
    const QByteArray b = captura.bytes("mem");
    EXPECT_TRUE(b.contains("10 X Producto\n        123.45\x80\n"));
    EXPECT_EQ(b.count("-PC858 Act.: "), 75);
    EXPECT_EQ(b.count("-PC858 Des.: "), 75);
    // Each code is tried with PC858 on, then off, after its code page command.
    EXPECT_TRUE(b.contains(QByteArray::fromHex("1b740a") + "10-PC858 Act.: "));
    const qsizetype ultimo = b.indexOf(QByteArray::fromHex("1b7460") + "96-PC858 Act.: ");
    EXPECT_GT(ultimo, 0);
    EXPECT_GT(b.indexOf(QByteArray::fromHex("1b7460") + "96-PC858 Des.: "), ultimo);
    EXPECT_FALSE(b.contains("11-PC858")) << "11 to 15 are not tried";
    EXPECT_FALSE(b.contains("49-PC858"));
}

TEST(PruebaImpresoraEP, CadaFalloDaSuCajaSinNombreYElCanalQuedaCerrado) {
    // A port that cannot be opened, and a command piece that is no number.
    const struct {
        bool abre;
        const char* inicializar;
        QString caja;
    } casos[] = {
        {false, "27,64",
         QStringLiteral("La conexión indicada no se corresponde con ningún puerto de impresora.")},
        {true, "27,x",
         QStringLiteral("Se ha producido un error. Tipo de error = 13. Descripción: No coinciden "
                        "los tipos")},
    };
    for (const auto& c : casos) {
        Entorno e;
        CapturaEP captura(e.m);
        if (!c.abre) {
            e.m.canalEP().setAbridor([](const QString&) -> std::unique_ptr<DestinoEP> {
                throw ErrorEjecucion(ErrorEjecucion::ArchivoNoEncontrado);
            });
        }
        ClassConfigImpresora i = impresora(QStringLiteral("27,116,19"));
        i.EPComInicializar = c.inicializar;
        prueba_ep::ImprimirPruebaEP(e.m, i);
        ASSERT_EQ(e.cajas->cajas().size(), 1);
        EXPECT_EQ(e.cajas->cajas()[0].texto, c.caja);
        EXPECT_FALSE(e.m.canalEP().abierto());
    }
}
