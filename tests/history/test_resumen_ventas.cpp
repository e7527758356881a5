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
        e.m.IdEstablecimiento = 7;
        e.m.PasswordConfig = QStringLiteral("clave");
        e.m.NumConfig = 2;
        e.m.Impresora(1) = ImpresoraEPDeSerie(QStringLiteral("Caja"), QStringLiteral("mem"));
    }
    void responder(const QByteArray& cuerpo) { e.canales.directo->responder(cuerpo); }
};

struct CasoPeriodo {
    qint16 opcion;
    QByteArray periodo; // the period keys of the reply
    QByteArray consulta;
    QString texto;
};

} // namespace

TEST_F(Resumen, CadaPeriodoPideLoSuyoYSaleByteAByte) {
    const std::optional<resumen::Fechas> fechas =
        resumen::Fechas{QDate(2026, 11, 1), QDate(2026, 11, 9)};
    const CasoPeriodo casos[] = {
        {0, R"("fechaHoraInicioSesion":"14/11/2026","fechaHoraFinSesion":"")",
         "0&fp=0&estado=1&fe=0&origen=0", QStringLiteral("Hoy (14/11/2026)")},
        {1, R"("fechaHoraInicioSesion":"13/11/2026","fechaHoraFinSesion":"x")",
         "1&fp=0&estado=1&fe=0&origen=0", QStringLiteral("Ayer (13/11/2026)")},
        {2, R"("fechaHoraInicioSesion":"01/11/2026","fechaHoraFinSesion":"09/11/2026")",
         "2&fp=0&estado=1&fe=0&origen=0&fechaini=01112026&fechafin=09112026",
         QStringLiteral("01/11/2026 - 09/11/2026")},
        {2, R"("fechaHoraInicioSesion":"05/11/2026","fechaHoraFinSesion":"05/11/2026")",
         "2&fp=0&estado=1&fe=0&origen=0&fechaini=01112026&fechafin=09112026",
         QStringLiteral("05/11/2026")},
        {4, R"("fechaHoraInicioSesion":"14/11/2026 8:00:00","fechaHoraFinSesion":"")",
         "4&fp=0&estado=1&fe=0&origen=0", QStringLiteral("Última sesión hoy (14/11/2026 8:00:00)")},
        {4,
         R"("fechaHoraInicioSesion":"14/11/2026 8:00:00","fechaHoraFinSesion":"14/11/2026 9:00:00")",
         "4&fp=0&estado=1&fe=0&origen=0",
         QStringLiteral("Última sesión hoy (14/11/2026 8:00:00 - 14/11/2026 9:00:00)")},
        {5, R"("fechaHoraInicioSesion":"13/11/2026 20:00:00","fechaHoraFinSesion":"")",
         "5&fp=0&estado=1&fe=0&origen=0",
         QStringLiteral("Última sesión ayer (13/11/2026 20:00:00)")},
        {5,
         R"("fechaHoraInicioSesion":"13/11/2026 20:00:00","fechaHoraFinSesion":"14/11/2026 1:00:00")",
         "5&fp=0&estado=1&fe=0&origen=0",
         QStringLiteral("Última sesión ayer (13/11/2026 20:00:00 - 14/11/2026 1:00:00)")},
    };
    const QString plantilla = leer("resumen_ventas.txt");
    for (const CasoPeriodo& c : casos) {
        SCOPED_TRACE(c.texto.toStdString());
        captura.limpiar();
        e.canales.directo->urls.clear();
        responder("{" + kCifras + "," + c.periodo + "}");
        ImprimirResumenVentas(e.m, c.opcion, fechas);
        ASSERT_EQ(e.canales.directo->urls.size(), 1);
        EXPECT_EQ(e.canales.directo->urls[0].toStdString(),
                  (kRuta + c.consulta + "&fha=2026111490507").toStdString());
        EXPECT_EQ(captura.bytes("mem"),
                  bytesEsperados(QString(plantilla).replace(QStringLiteral("{PERIODO}"), c.texto)));
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
    imp.Font = QStringLiteral("Lucida Console");
    imp.AnchoPapel = 80;
    imp.FactorFuente = 3.8448;
    imp.TamannoFuenteGrande = 14;
    imp.TamannoFuentePequenna = 10;
    imp.TamannoFuenteSeparador = 4;
    imp.SeparadorLineas = QStringLiteral("-----");
    imp.NumLineasBlancoInicio = 1;
    imp.NumLineasBlancoFinal = 2;
    imp.InicioX = 100;
    e.m.Impresora(2) = ImpresoraEPDeSerie(QStringLiteral("Segunda"), QStringLiteral("mem2"));
    responder("{" + kCifras + R"(,"fechaHoraInicioSesion":"14/11/2026","fechaHoraFinSesion":""})");
    ImprimirResumenVentas(e.m, resumen::Hoy);

    const ImpresoraDWGrabadora& p = dw->de(QStringLiteral("Caja DW"));
    EXPECT_TRUE(dw->de(QStringLiteral("Otra")).lineas.isEmpty());
    EXPECT_EQ(captura.aperturas("mem2"), 0);
    ASSERT_EQ(p.documentos, 1);
    EXPECT_EQ(p.ScaleLeft(), -100);
    // The template without its blank-free title row, as printed: blank head, lines, 2 blanks, ".".
    QStringList esperadas =
        leer("resumen_ventas.txt")
            .replace(QStringLiteral("{PERIODO}"), QStringLiteral("Hoy (14/11/2026)"))
            .split(u'\n');
    esperadas.removeLast();
    esperadas.replaceInStrings(QString(48, u'-'), QStringLiteral("-----"));
    esperadas.prepend(QString());
    esperadas << QString() << QString() << QStringLiteral(".");
    EXPECT_EQ(p.textos(), esperadas);
    for (const auto& l : p.lineas) {
        const double tamanno = l.texto == QLatin1String("RESUMEN VENTAS") ? 14
                               : l.texto == QLatin1String("-----")        ? 4
                                                                          : 10;
        EXPECT_EQ(l.tamanno, tamanno) << l.texto.toStdString();
        EXPECT_EQ(l.fuente, QStringLiteral("Lucida Console"));
    }
}

TEST_F(Resumen, SinImpresoraDelDriverLaCajaDelError) {
    e.m.Impresora(1).TipoImpresion = QStringLiteral("DW");
    responder("{}");
    ImprimirResumenVentas(e.m, resumen::Hoy);
    ASSERT_EQ(e.cajas->cajas().size(), 1);
    EXPECT_TRUE(e.cajas->cajas()[0].texto.startsWith(
        QStringLiteral("Se ha producido un error. Tipo de error = 482. Descripción: ")));
}
