#include "common/DocumentoConfiguracion.h"
#include "common/Entorno.h"
#include "server/Configuracion.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

struct Configuracion_ : ::testing::Test {
    Entorno e;
    QSignalSpy info{&e.m, &ModuloPrincipal::textoInfo};

    Configuracion_() { DarEstablecimiento(e.m, 1); }
    bool leer(const QByteArray& cuerpo) {
        e.canales.directo->responder(cuerpo);
        bool p = false;
        return ObtenerConfiguracion(e.m, p);
    }
    bool leer(const QJsonObject& doc) { return leer(BytesJson(doc)); }
    QString ultimoInfo() const {
        return info.isEmpty() ? QStringLiteral("<nada>") : info.last().at(0).toString();
    }
    QByteArray configTxt() const {
        QFile f(QDir(e.carpeta.path()).filePath(QStringLiteral("config.txt")));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<no existe>");
    }
};

} // namespace

TEST_F(Configuracion_, UnaLecturaBuenaLlenaLasVariablesEnSuTipo) {
    ASSERT_TRUE(leer(DocumentoConfiguracion()));
    ASSERT_EQ(e.canales.directo->urls.size(), 1);
    EXPECT_EQ(e.canales.directo->urls[0],
              "https://servidor.prueba/api/pedidosgprs/obtenerConfiguracionV2?idEstablecimiento=7"
              "&passwordconfig=clave&numconfig=1&modeloImpresora=3&fha=2026111490507");
    EXPECT_EQ(e.m.RestId, 7);
    EXPECT_EQ(e.m.Pgprs, QStringLiteral("pg-7"));
    // UTF-8 of the reply folded back into single characters.
    EXPECT_EQ(e.m.NombreEstablecimiento, QStringLiteral("Mesón Ñu"));
    EXPECT_EQ(e.m.IntervaloEscaneoPedido, 1500);
    EXPECT_EQ(e.m.IntervaloEscaneoConfiguracion, 600);
    EXPECT_EQ(e.m.NumeroPedidosHistorico, 50);
    EXPECT_TRUE(e.m.AbreDialogImpresion);
    EXPECT_EQ(e.m.TextoCabecera, QStringLiteral("Cabecera"));
    EXPECT_EQ(e.m.TextoPiePagina, QStringLiteral("Pie"));
    EXPECT_TRUE(e.m.MostrarQuienA);
    EXPECT_FALSE(e.m.MostrarCpr);
    EXPECT_TRUE(e.m.CancelarSonido);
    EXPECT_EQ(e.m.IntensidadParpadeo, 200);
    EXPECT_EQ(e.m.IntervaloEscaneoPedActualizado, 5000);
    EXPECT_EQ(e.m.TamannoFuentePrincipales, 12);
    EXPECT_EQ(e.m.TamannoFuenteListasCheck, 11);
    EXPECT_EQ(e.m.TipoReproAudio, 1);
    EXPECT_EQ(e.m.MelodiaPedNuevo, QStringLiteral("gong.mp3"));
    EXPECT_EQ(e.m.VolumenMelodiaWmp, 40);
    EXPECT_EQ(e.m.AceptarAutoDomicilio, 0);
    EXPECT_EQ(e.m.AceptarAutoRecoger, 1);
    EXPECT_TRUE(e.m.ActualizarConfigConPedido);
    EXPECT_FALSE(e.m.ComprobarActualizar);
    EXPECT_EQ(e.m.RechazarAceptado, 2);
    EXPECT_TRUE(e.m.ComprobarPedidoTrasAceptar);
    EXPECT_EQ(e.m.MotivosRechazo,
              (QStringList{QStringLiteral("Sin ingredientes"), QStringLiteral("Cerramos")}));
    EXPECT_EQ(e.m.Impresora(1).NombreImpresora, QStringLiteral("Caja"));
    EXPECT_EQ(ultimoInfo(), QString());
    EXPECT_TRUE(e.m.enHttps());
    // Same transport as the one kept: config.txt is not touched.
    EXPECT_EQ(configTxt(), QByteArray("<no existe>"));
}

TEST_F(Configuracion_, LasClavesNuevasTomanSuValorPorDefectoAusentesONulas) {
    // The defaults that decide what happens to an order: nothing accepted by itself.
    QJsonObject d = DocumentoConfiguracion();
    d.remove("aceptarautodomicilio");
    d["aceptarautorecoger"] = QJsonValue::Null;
    d["rechazaraceptado"] = QJsonValue::Null;
    d.remove("modo");
    d["volumenmelodiawmp"] = "";
    // Keys without a default: missing gives the empty text, 0 or false.
    d.remove("textocabecera");
    d.remove("mostrarquiena");
    e.m.TextoCabecera = QStringLiteral("antes");
    e.m.MostrarQuienA = true;
    ASSERT_TRUE(leer(d));
    EXPECT_EQ(e.m.AceptarAutoDomicilio, -1);
    EXPECT_EQ(e.m.AceptarAutoRecoger, -1);
    EXPECT_EQ(e.m.RechazarAceptado, 0);
    EXPECT_EQ(e.m.Modo, 0);
    EXPECT_EQ(e.m.VolumenMelodiaWmp, 100);
    EXPECT_EQ(e.m.TextoCabecera, QString());
    EXPECT_FALSE(e.m.MostrarQuienA);
}

TEST_F(Configuracion_, IntensidadBanderasYRedondeo) {
    struct Caso {
        QJsonValue intensidad;
        qint16 esperada;
    };
    for (const Caso& c : {Caso{255, 160}, Caso{254, 254}, Caso{0, 0}, Caso{-1, 160},
                          Caso{1000, 160}, Caso{QJsonValue::Null, 160}}) {
        QJsonObject d = DocumentoConfiguracion();
        d["intensidadparpadeo"] = c.intensidad;
        ASSERT_TRUE(leer(d));
        EXPECT_EQ(e.m.IntensidadParpadeo, c.esperada) << c.intensidad.toDouble();
    }
    // True only for the integer 1: a JSON true is -1, 2 is not 1, 1,4 rounds to 1.
    struct Bandera {
        QJsonValue valor;
        bool esperada;
    };
    for (const Bandera& b : {Bandera{true, false}, Bandera{1, true}, Bandera{2, false},
                             Bandera{1.4, true}, Bandera{0, false}, Bandera{"1", true}}) {
        QJsonObject d = DocumentoConfiguracion();
        d["cancelarsonido"] = b.valor;
        ASSERT_TRUE(leer(d));
        EXPECT_EQ(e.m.CancelarSonido, b.esperada)
            << QJsonDocument(QJsonArray{b.valor}).toJson().constData();
    }
    // Halves go to the even neighbour.
    QJsonObject d = DocumentoConfiguracion();
    d["intervaloescaneopedido"] = 1000.5;
    d["intervaloescaneoconfiguracion"] = 1001.5;
    d["tamannofuenteprincipales"] = 9.5;
    ASSERT_TRUE(leer(d));
    EXPECT_EQ(e.m.IntervaloEscaneoPedido, 1000);
    EXPECT_EQ(e.m.IntervaloEscaneoConfiguracion, 1002);
    EXPECT_EQ(e.m.TamannoFuentePrincipales, 10);
}

TEST_F(Configuracion_, UnFalloAMitadConservaLoLeidoAntesYLoCuentaEnLabelInfo) {
    QJsonObject d = DocumentoConfiguracion();
    d["textopiepagina"] = QJsonValue::Null; // no default: a null stops the reading
    e.m.MostrarQuienA = false;
    e.canales.directo->responder(BytesJson(d));
    e.canales.directo->responder(BytesJson(d));
    bool p = false;
    EXPECT_FALSE(ObtenerConfiguracion(e.m, p));
    // Once over https, once more over http, then no more.
    ASSERT_EQ(e.canales.directo->urls.size(), 2);
    EXPECT_TRUE(e.canales.directo->urls[0].startsWith("https://"));
    EXPECT_TRUE(e.canales.directo->urls[1].startsWith("http://servidor.prueba/api/pedidosgprs/"
                                                      "obtenerConfiguracionV2?"));
    EXPECT_EQ(e.m.UrlBase, QStringLiteral("http://servidor.prueba/api/"));
    EXPECT_EQ(e.m.TextoCabecera, QStringLiteral("Cabecera"));
    EXPECT_EQ(e.m.Pgprs, QStringLiteral("pg-7"));
    EXPECT_EQ(e.m.RestId, 7);
    EXPECT_FALSE(e.m.MostrarQuienA); // after the failing key
    EXPECT_EQ(ultimoInfo(), QStringLiteral("Uso no válido de Null"));

    // A value beyond its variable's range is the overflow error.
    d = DocumentoConfiguracion();
    d["intervaloescaneopedido"] = 3e9;
    EXPECT_FALSE(leer(d));
    EXPECT_EQ(ultimoInfo(), QStringLiteral("Desbordamiento"));
    d = DocumentoConfiguracion();
    d["tamannofuenteprincipales"] = 40000;
    EXPECT_FALSE(leer(d));
    EXPECT_EQ(ultimoInfo(), QStringLiteral("Desbordamiento"));
    // At least one reason must come.
    d = DocumentoConfiguracion();
    d["motivosrechazo"] = QJsonArray{};
    EXPECT_FALSE(leer(d));
    EXPECT_EQ(ultimoInfo(), QStringLiteral("El subíndice está fuera del intervalo"));
}

TEST_F(Configuracion_, LasRespuestasMalasFallanTrasUnSoloReintentoPorHttp) {
    const QByteArray documento = BytesJson(DocumentoConfiguracion());
    QByteArray con502 = documento;
    con502.replace("\"Pie\"", "\"x <title>502 y\"");
    struct Caso {
        const char* nombre;
        QByteArray cuerpo;
        QString info; // "<nada>": not a reading failure, LabelInfo untouched
    };
    const QList<Caso> casos{
        {"credenciales", "\"No se ha encontrado establecimento con el id y password indicado\"",
         QStringLiteral("<nada>")},
        {"500", "{\"status\":500}", QStringLiteral("<nada>")},
        {"pagina 502", "<html><head><title>502 Bad Gateway</title></head></html>",
         QStringLiteral("<nada>")},
        {"502 dentro de un documento bueno", con502, QStringLiteral("<nada>")},
        {"texto que no es JSON", "Service Unavailable",
         QStringLiteral("Variable de objeto o bloque With no establecido")},
        {"una lista en vez de un objeto", "[1,2]", QStringLiteral("No coinciden los tipos")},
    };
    for (const Caso& c : casos) {
        Entorno otro;
        otro.m.IdEstablecimiento = 7;
        QSignalSpy infoOtro(&otro.m, &ModuloPrincipal::textoInfo);
        otro.canales.directo->responder(c.cuerpo);
        otro.canales.directo->responder(c.cuerpo);
        otro.canales.directo->responder(documento); // never asked for
        bool p = false;
        EXPECT_FALSE(ObtenerConfiguracion(otro.m, p)) << c.nombre;
        EXPECT_EQ(otro.canales.directo->urls.size(), 2) << c.nombre;
        EXPECT_FALSE(otro.m.enHttps()) << c.nombre;
        EXPECT_EQ(infoOtro.isEmpty() ? QStringLiteral("<nada>") : infoOtro.last().at(0).toString(),
                  c.info)
            << c.nombre;
    }
    // A failed https attempt followed by a good http one succeeds and stays on http.
    e.canales.directo->responder("{\"status\":500}");
    EXPECT_TRUE(leer(documento));
    EXPECT_EQ(e.canales.directo->urls.size(), 2);
    EXPECT_FALSE(e.m.enHttps());
    // Without connection the gateway already moved to http: one attempt each.
    Entorno caido;
    bool p = false;
    EXPECT_FALSE(ObtenerConfiguracion(caido.m, p));
    EXPECT_EQ(caido.canales.directo->urls.size(), 2);
}

TEST_F(Configuracion_, UnMetconNuevoReescribeConfigTxtYCambiaElTransporte) {
    QJsonObject d = DocumentoConfiguracion();
    d["metcon"] = 1;
    e.m.PasswordConfigCifrada = QStringLiteral("5C4BDE");
    ASSERT_TRUE(leer(d));
    EXPECT_EQ(e.m.MetconGuardado, 1);
    // Id 7, four strings (the plain password never written), AccesosCreados 0, Metcon 1,
    // NumConfig 1.
    const QByteArray esperado = QByteArray::fromHex("07000000"
                                                    "0000"
                                                    "0000"
                                                    "0000"
                                                    "0600") +
                                "5C4BDE" +
                                QByteArray::fromHex("0000"
                                                    "0100"
                                                    "0100");
    EXPECT_EQ(configTxt(), esperado);
    // The next request goes through the first Inet control.
    e.canales.inet1->responder(BytesJson(d));
    bool p = false;
    EXPECT_TRUE(ObtenerConfiguracion(e.m, p));
    EXPECT_EQ(e.canales.directo->urls.size(), 1);
    EXPECT_EQ(e.canales.inet1->urls.size(), 1);
}

TEST_F(Configuracion_, ElModoAvisaALaVentanaYEnModosDeImpresionLeeUltPedIm) {
    QSignalSpy modos(&e.m, &ModuloPrincipal::modoCambiado);
    QFile u(QDir(e.carpeta.path()).filePath(QStringLiteral("ultpedim.txt")));
    ASSERT_TRUE(leer(DocumentoConfiguracion()));
    EXPECT_FALSE(u.exists()); // mode 0 leaves it alone
    ASSERT_TRUE(u.open(QIODevice::WriteOnly));
    u.write("12,11");
    u.close();
    QJsonObject d = DocumentoConfiguracion();
    d["modo"] = 2;
    ASSERT_TRUE(leer(d));
    EXPECT_EQ(e.m.UltPedIm, QStringLiteral("12,11"));
    d["modo"] = 7;
    ASSERT_TRUE(leer(d));
    QList<int> vistos;
    for (const auto& s : modos) {
        vistos << s.at(0).toInt();
    }
    EXPECT_EQ(vistos, (QList<int>{0, 2, 7}));
}

TEST_F(Configuracion_, ActualizarAgotadosSoloConUno) {
    QSignalSpy agotados(&e.m, &ModuloPrincipal::actualizarAgotados);
    for (const QJsonValue& v :
         {QJsonValue(0), QJsonValue(QJsonValue::Null), QJsonValue(2), QJsonValue(true)}) {
        QJsonObject d = DocumentoConfiguracion();
        d["actualizaragotados"] = v;
        ASSERT_TRUE(leer(d));
    }
    EXPECT_EQ(agotados.size(), 0);
    QJsonObject d = DocumentoConfiguracion();
    d["actualizaragotados"] = 1;
    ASSERT_TRUE(leer(d));
    EXPECT_EQ(agotados.size(), 1);
}

TEST_F(Configuracion_, LaImpresoraAntiguaSeMigraCuandoElServicioNoTieneNinguna) {
    e.m.ImpresoraAntigua = QStringLiteral("EPSON TM");
    QJsonObject d = DocumentoConfiguracion();
    d["configimpresoras"] = QJsonArray{};
    e.canales.directo->responder(BytesJson(d));
    e.canales.directo->responder("#a*b*c*d*3*1*72*Courier New*3.5*9*13*5*====*45*10*20#");
    e.canales.directo->responder("ok");
    bool p = true;
    ASSERT_TRUE(ObtenerConfiguracion(e.m, p));
    ASSERT_EQ(e.canales.directo->urls.size(), 3);
    EXPECT_EQ(e.canales.directo->urls[1],
              "https://servidor.prueba/api/pedidosgprs/obtenerConfiguracion?idEstablecimiento=7"
              "&passwordconfig=clave&modeloImpresora=3&fha=2026111490507");
    EXPECT_EQ(e.canales.directo->urls[2],
              "https://servidor.prueba/api/pedidosgprs/actualizarConfigImpresora?"
              "idEstablecimiento=7&passwordconfig=clave&numconfig=1&numeroimpresora=1"
              "&nombreimpresora=EPSON+TM&tipoimpresion=DW&numerocopiasaceptado=3"
              "&numerocopiasrechazado=1&anchopapel=72&fuente=Courier%20New&factorfuente=3.5"
              "&tamannofuentepequenna=9&tamannofuentegrande=13&margenentrelineas=45"
              "&iniciox=10&inicioy=20&separadorlineas====="
              "&tamannofuenteseparador=5&fha=2026111490507");
    // What was sent is also what the slot now holds.
    EXPECT_EQ(e.m.Impresora(1).NombreImpresora, QStringLiteral("EPSON TM"));
    EXPECT_EQ(e.m.Impresora(1).InicioY, 20);
    // The old name is kept: the migration runs again while the service lists nothing.
    EXPECT_EQ(e.m.ImpresoraAntigua, QStringLiteral("EPSON TM"));

    // An answer that is not a line between number signs ends the migration quietly.
    e.canales.directo->urls.clear();
    e.canales.directo->responder(BytesJson(d));
    e.canales.directo->responder("nada");
    EXPECT_TRUE(ObtenerConfiguracion(e.m, p));
    EXPECT_EQ(e.canales.directo->urls.size(), 2);
    EXPECT_EQ(e.m.Impresora(1).NombreImpresora, QString());
}
