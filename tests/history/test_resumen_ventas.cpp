// The sales ticket: its request, its bytes on a raw printer for every period, and its driver
// variant.
#include "base/Windows1252.h"
#include "common/CapturaEP.h"
#include "common/Entorno.h"
#include "common/ImpresoraDWGrabadora.h"
#include "common/ImpresoraEPDeSerie.h"
#include "common/ImprimirQString.h"
#include "history/ResumenVentas.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

const QByteArray kRuta =
    "https://servidor.prueba/api/pedidosgprs/obtenerTotales?idEstablecimiento=7"
    "&passwordconfig=clave&numconfig=2&opcion=";
// Every pair of figures differs, so a key read for another shows.
const QByteArray kCifras =
    R"("totalnumpedidos":24,"totalimportepedidos":248.45,"totalnumpedidosRecoger":11,)"
    R"("totalimportepedidosRecoger":113.12,"totalnumpedidosDomicilio":13,)"
    R"("totalimportepedidosDomicilio":135.33,"totalnumpedidosEfectivo":9,)"
    R"("totalimportepedidosEfectivo":93.92,"totalnumpedidosEfectivoRecoger":4,)"
    R"("totalimportepedidosEfectivoRecoger":41.41,"totalnumpedidosEfectivoDomicilio":5,)"
    R"("totalimportepedidosEfectivoDomicilio":52.51,"totalnumpedidosOnline":15,)"
    R"("totalimportepedidosOnline":154.53,"totalnumpedidosOnlineRecoger":7,)"
    R"("totalimportepedidosOnlineRecoger":71.71,"totalnumpedidosOnlineDomicilio":8,)"
    R"("totalimportepedidosOnlineDomicilio":82.82)";

QString leer(const char* nombre) {
    QFile f(QStringLiteral(CARPETA_FUENTES "/tests/history/datos/") + QLatin1String(nombre));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << nombre;
    return QString::fromUtf8(f.readAll());
}

// The bytes of the ticket whose lines are `texto`, on the usual raw printer.
QByteArray bytesEsperados(const QString& texto) {
    QStringList lineas = texto.split(u'\n');
    lineas.removeLast(); // after the last line feed
    QByteArray b = QByteArray::fromHex("1b40"
                                       "1b7413"
                                       "1b2130") +
                   cp1252::aBytes(lineas[0]) + "\n" + QByteArray::fromHex("1b2100");
    for (qsizetype i = 1; i < lineas.size(); ++i) {
        b += cp1252::aBytes(lineas[i]) + '\n';
    }
    return b + QByteArray::fromHex("1b6403"
                                   "1d564200");
}

struct Resumen : ::testing::Test {
    Entorno e;
    CapturaEP captura{e.m};
    Resumen() {
        DarEstablecimiento(e.m, 2);
        e.m.Impresora(1) = ImpresoraEPDeSerie(QStringLiteral("Caja"), QStringLiteral("mem"));
    }
    void responder(const QByteArray& cuerpo) { e.canales.directo->responder(cuerpo); }
};

} // namespace

TEST_F(Resumen, CadaPeriodoPideLoSuyoYSaleByteAByte) {
    // Code, the two period texts of the reply, the period line.
    const std::tuple<qint16, QString, QString, QString> casos[] = {
        {0, "14/11/2026", "", "Hoy (14/11/2026)"},
        {1, "13/11/2026", "x", "Ayer (13/11/2026)"},
        {2, "01/11/2026", "09/11/2026", "01/11/2026 - 09/11/2026"},
        {2, "05/11/2026", "05/11/2026", "05/11/2026"},
        {4, "14/11/2026 8:00:00", "", u"Última sesión hoy (14/11/2026 8:00:00)"_qs},
        {4, "8:00", "9:00", u"Última sesión hoy (8:00 - 9:00)"_qs},
        {5, "13/11/2026 20:00:00", "", u"Última sesión ayer (13/11/2026 20:00:00)"_qs},
        {5, "20:00", "1:00", u"Última sesión ayer (20:00 - 1:00)"_qs},
    };
    const QString plantilla = leer("resumen_ventas.txt");
    for (const auto& [opcion, a, b, texto] : casos) {
        SCOPED_TRACE(texto.toStdString());
        captura.limpiar();
        e.canales.directo->urls.clear();
        responder("{" + kCifras + R"(,"fechaHoraInicioSesion":")" + a.toUtf8() +
                  R"(","fechaHoraFinSesion":")" + b.toUtf8() + "\"}");
        ImprimirResumenVentas(e.m, opcion, resumen::Fechas{QDate(2026, 11, 1), QDate(2026, 11, 9)});
        const QByteArray fechas = opcion == 2 ? "&fechaini=01112026&fechafin=09112026" : "";
        EXPECT_EQ(e.canales.directo->urls.value(0).toStdString(),
                  (kRuta + QByteArray::number(opcion) + "&fp=0&estado=1&fe=0&origen=0" + fechas +
                   "&fha=2026111490507")
                      .toStdString());
        EXPECT_EQ(captura.bytes("mem"),
                  bytesEsperados(QString(plantilla).replace(QStringLiteral("{PERIODO}"), texto)));
        EXPECT_EQ(captura.cierres("mem"), 1);
    }
    EXPECT_TRUE(e.cajas->cajas().isEmpty());
}

TEST_F(Resumen, UnaRespuestaQueNoEsObjetoImprimeElTicketEnBlanco) {
    for (const QByteArray& cuerpo : {QByteArray("error"), QByteArray("[1,2]"), QByteArray()}) {
        captura.limpiar();
        responder(cuerpo);
        ImprimirResumenVentas(e.m, resumen::Hoy);
        EXPECT_EQ(captura.bytes("mem"), bytesEsperados(leer("resumen_ventas_vacio.txt")))
            << cuerpo.data();
    }
}

TEST_F(Resumen, FechasAlRevesNiPreguntanNiImprimen) {
    ImprimirResumenVentas(e.m, resumen::PorFechas,
                          resumen::Fechas{QDate(2026, 11, 9), QDate(2026, 11, 8)});
    EXPECT_TRUE(e.canales.directo->urls.isEmpty());
    EXPECT_EQ(captura.aperturas("mem"), 0);
    ASSERT_EQ(e.cajas->cajas().size(), 1);
    EXPECT_EQ(e.cajas->cajas()[0].texto,
              QStringLiteral("La fecha desde no puede ser mayor que la fecha hasta"));
    EXPECT_EQ(e.cajas->cajas()[0].estilo, estilo::Exclamacion);
}

TEST_F(Resumen, PorDriverEnLaImpresoraDeLaRanuraUnoConSusTamannos) {
    auto impresoras = std::make_unique<ImpresorasDWGrabadoras>(QStringList{"Otra", "Caja DW"});
    ImpresorasDWGrabadoras* dw = impresoras.get();
    e.m.setImpresorasDW(std::move(impresoras));
    ClassConfigImpresora& imp = e.m.Impresora(1);
    imp = ClassConfigImpresora{};
    imp.TipoImpresion = QStringLiteral("DW");
    imp.NombreImpresora = QStringLiteral("Caja DW");
    imp.AnchoPapel = 80;
    imp.FactorFuente = 3.8448;
    imp.TamannoFuenteGrande = 14;
    imp.TamannoFuentePequenna = 10;
    imp.TamannoFuenteSeparador = 4;
    imp.SeparadorLineas = QStringLiteral("-----");
    imp.NumLineasBlancoInicio = 1;
    imp.NumLineasBlancoFinal = 2;
    responder("{" + kCifras + R"(,"fechaHoraInicioSesion":"14/11/2026","fechaHoraFinSesion":""})");
    ImprimirResumenVentas(e.m, resumen::Hoy);

    const ImpresoraDWGrabadora& p = dw->de(QStringLiteral("Caja DW"));
    EXPECT_TRUE(dw->de(QStringLiteral("Otra")).lineas.isEmpty());
    ASSERT_EQ(p.documentos, 1);
    // The ticket's lines between a blank head line and two blank lines with the final dot.
    QStringList esperadas =
        leer("resumen_ventas.txt")
            .replace(QStringLiteral("{PERIODO}"), QStringLiteral("Hoy (14/11/2026)"))
            .replace(QString(48, u'-'), QStringLiteral("-----"))
            .split(u'\n');
    esperadas.last() = QString();
    esperadas.prepend(QString());
    esperadas << QString() << QStringLiteral(".");
    EXPECT_EQ(p.textos(), esperadas);
    for (const auto& l : p.lineas) {
        const double tamanno = l.texto == u"RESUMEN VENTAS" ? 14 : l.texto == u"-----" ? 4 : 10;
        EXPECT_EQ(l.tamanno, tamanno) << l.texto.toStdString();
    }
}
