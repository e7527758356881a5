// The stand-in service as a plain client sees it over loopback: the record, queued replies,
// faults, the https front, credentials, orders and the open/closed state.
#include "GeneradorPedidos.h"
#include "common/SimuladorPrueba.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QSslSocket>
#include <QStringDecoder>
#include <QTcpServer>
#include <QTest>
#include <QTime>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace {

constexpr const char* kNoEncontrado =
    "\"No se ha encontrado establecimento con el id y password indicado\"";

QByteArray Cuerpo(SimuladorPrueba& sim, const QByteArray& objetivo) {
    const auto r = sim.peticion("GET", objetivo);
    EXPECT_TRUE(r.respondida) << objetivo.toStdString();
    return r.cuerpo;
}

QByteArray Poll(SimuladorPrueba& sim) {
    return Cuerpo(sim, "/api/pedidosgprs/pedidosnuevos?restid=7&password=p&numconfig=1");
}

QJsonObject Documento(SimuladorPrueba& sim) {
    const QByteArray texto = Cuerpo(sim, "/api/pedidosgprs/obtenerConfiguracionV2?"
                                         "idEstablecimiento=7&passwordconfig=clave&numconfig=1&"
                                         "modeloImpresora=3");
    return QJsonDocument::fromJson(texto).object();
}

// The order data list of an order line.
QStringList DatosPedido(const QByteArray& linea) {
    const QStringList piezas = QString::fromUtf8(linea.mid(1, linea.size() - 2)).split('*');
    return piezas.size() > 5 ? piezas[5].split(';') : QStringList();
}

bool EsUtf8(const QByteArray& bytes) {
    QStringDecoder decodificador(QStringDecoder::Utf8);
    const QString texto = decodificador(bytes);
    Q_UNUSED(texto);
    return !decodificador.hasError();
}

const QByteArray kTls =
    QByteArray("\x16\x03\x01\x00\x31\x01\x00\x00\x2d\x03\x03", 11) + QByteArray(40, '\x07');

} // namespace

TEST(Simulador, RegistroGuardaCadaPeticionTalCualLlega) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    EXPECT_EQ(sim.base(), QStringLiteral("127.0.0.1:%1/api/").arg(sim.puerto()));

    const QByteArray consulta = "a=7&o=1001&ak=Rejected&m=No%20hay+sal%3F?y=%2B&dt=nousado";
    const auto r = sim.peticion("GET", "/api/pedidosgprs/respuestapedidos?" + consulta);
    EXPECT_EQ(r.estado, 200);
    EXPECT_EQ(r.cuerpo, "OK");
    // Two requests on one kept-alive connection are both seen.
    const QByteArray dos = sim.enviarCrudo("GET /api/a/b?x=%C3%B3&&z= HTTP/1.1\r\nHost: h\r\n\r\n"
                                           "GET /api/c?y=1+2 HTTP/1.1\r\nHost: h\r\n"
                                           "Connection: close\r\n\r\n");
    EXPECT_EQ(dos.count("HTTP/1.1 200 OK"), 2) << dos.toStdString();
    sim.peticion("GET", "/__control/pedidos"); // control requests are not recorded
    sim.peticion("GET", "/api/pedidosgprs/pedidosnuevos");

    const auto registro = sim.registro();
    ASSERT_EQ(registro.size(), 4);
    EXPECT_EQ(registro[0].esquema, "http");
    EXPECT_EQ(registro[0].ruta, "pedidosgprs/respuestapedidos");
    EXPECT_EQ(registro[0].consulta, QString::fromLatin1(consulta));
    EXPECT_EQ(registro[1].ruta, "a/b");
    EXPECT_EQ(registro[1].consulta, "x=%C3%B3&&z=");
    EXPECT_EQ(registro[2].ruta, "c");
    EXPECT_EQ(registro[2].consulta, "y=1+2");
    EXPECT_EQ(registro[3].ruta, "pedidosgprs/pedidosnuevos");
    EXPECT_EQ(registro[3].consulta, "");
    for (int i = 1; i < registro.size(); ++i) {
        EXPECT_EQ(registro[i].n, registro[i - 1].n + 1);
        EXPECT_GE(registro[i].ms, registro[i - 1].ms);
    }

    sim.limpiarRegistro();
    EXPECT_TRUE(sim.registro().isEmpty());
    sim.peticion("GET", "/api/x/y?q");
    EXPECT_TRUE(sim.esperarPeticion("x/y", 2000));
    EXPECT_FALSE(sim.esperarPeticion("x/z", 100));
}

TEST(Simulador, RespuestasEncoladasSalenEnOrdenYSoloEnSuRuta) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    sim.encolar("pedidosgprs/pedidosnuevos", {"#uno#", "IMPDIA"});
    sim.encolar("pedidosgprs/pedidosnuevos", {"tres ñ"});
    sim.encolar("pedidosgprs/obtenerEstadoPedido", {"#2#"});

    EXPECT_EQ(Cuerpo(sim, "/api/pedidosgprs/obtenerEstadoPedido?idPedidoEst=5"), "#2#");
    EXPECT_EQ(Poll(sim), "#uno#");
    EXPECT_EQ(Poll(sim), "IMPDIA");
    EXPECT_EQ(Poll(sim), "tres \xC3\xB1");
    EXPECT_EQ(Poll(sim), "estadoapertura:Abierto");
    // The queue of a path is not shared with paths that merely look alike.
    EXPECT_EQ(Cuerpo(sim, "/api/pedidosgprs/obtenerEstadoPedido?idPedidoEst=5"), "");

    sim.encolar("pedidosgprs/pedidosnuevos", {"#descartado#"});
    sim.vaciarRespuestas();
    EXPECT_EQ(Poll(sim), "estadoapertura:Abierto");
}

TEST(Simulador, FallosDeCuerpoTalComoLosVeUnClienteSencillo) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());

    sim.fallo("error", 0, 1);
    EXPECT_EQ(Poll(sim), "error");
    EXPECT_EQ(Poll(sim), "estadoapertura:Abierto"); // used up

    sim.fallo("vacio", 0, 1);
    auto r = sim.peticion("GET", "/api/pedidosgprs/pedidosnuevos?a");
    EXPECT_TRUE(r.respondida);
    EXPECT_EQ(r.estado, 200);
    EXPECT_TRUE(r.cuerpo.isEmpty());

    sim.fallo("status500", 0, 1);
    EXPECT_EQ(Poll(sim), "{\"status\":500}");

    sim.fallo("titulo502", 0, 1);
    r = sim.peticion("GET", "/api/pedidosgprs/pedidosnuevos?a");
    EXPECT_EQ(r.estado, 502);
    const int cabeza = r.cuerpo.indexOf("<head>");
    const int titulo = r.cuerpo.indexOf("<title>502 Bad Gateway</title>");
    EXPECT_GE(cabeza, 0);
    EXPECT_GT(titulo, cabeza);
    EXPECT_LT(titulo, r.cuerpo.indexOf("</head>"));

    sim.fallo("basura", 0, 2);
    const QByteArray basura1 = Poll(sim);
    const QByteArray basura2 = Poll(sim);
    for (const auto& b : {basura1, basura2}) {
        EXPECT_FALSE(b.isEmpty());
        EXPECT_FALSE(EsUtf8(b));
        EXPECT_FALSE(b.startsWith('#'));
    }
    EXPECT_EQ(Poll(sim), "estadoapertura:Abierto");
}

TEST(Simulador, FallosDeConexionRechazarYColgar) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    const auto peticion = [](const char* consulta) {
        return QByteArray("GET /api/pedidosgprs/pedidosnuevos?") + consulta +
               " HTTP/1.1\r\nHost: h\r\n\r\n";
    };

    sim.fallo("rechazar", 0, 1);
    QElapsedTimer reloj;
    reloj.start();
    bool cerrada = false;
    EXPECT_TRUE(sim.enviarCrudo(peticion("x=1"), 4000, &cerrada).isEmpty());
    EXPECT_TRUE(cerrada);
    EXPECT_LT(reloj.elapsed(), 2000);
    // The same request again at once is a client's resend: cut off too, without using up
    // another time. The next one is answered.
    EXPECT_TRUE(sim.enviarCrudo(peticion("x=1"), 4000, &cerrada).isEmpty());
    EXPECT_TRUE(cerrada);
    EXPECT_FALSE(sim.enviarCrudo(peticion("x=1"), 4000).isEmpty());

    sim.fallo("colgar", 1.0, 1);
    reloj.restart();
    EXPECT_TRUE(sim.enviarCrudo(peticion("x=2"), 4000, &cerrada).isEmpty());
    EXPECT_TRUE(cerrada);
    EXPECT_GE(reloj.elapsed(), 900);
    EXPECT_LT(reloj.elapsed(), 3500);
    // Its resend is cut at once: the client waited its time already.
    reloj.restart();
    EXPECT_TRUE(sim.enviarCrudo(peticion("x=2"), 4000, &cerrada).isEmpty());
    EXPECT_LT(reloj.elapsed(), 800);

    EXPECT_EQ(Poll(sim), "estadoapertura:Abierto");
    // Requests that met a fault are in the record like any other.
    const auto registro = sim.registro();
    ASSERT_EQ(registro.size(), 6);
    EXPECT_FALSE(registro[0].reenvio);
    EXPECT_TRUE(registro[1].reenvio);
    EXPECT_FALSE(registro[2].reenvio);
    EXPECT_FALSE(registro[3].reenvio);
    EXPECT_TRUE(registro[4].reenvio);
    EXPECT_EQ(registro[4].consulta, "x=2");
}

TEST(Simulador, FallosDeConexionLleganAUnClienteQt) {
    // Qt's network access resends a GET once when the connection ends without an answer;
    // the desk must still see one failure per fault time.
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    QNetworkAccessManager red;
    const auto pedir = [&](const QString& consulta, QNetworkReply::NetworkError* error) {
        QNetworkReply* r = red.get(QNetworkRequest(
            QUrl("http://" + sim.base() + "pedidosgprs/pedidosnuevos?" + consulta)));
        QSignalSpy fin(r, &QNetworkReply::finished);
        EXPECT_TRUE(fin.wait(8000));
        *error = r->error();
        const QByteArray cuerpo = r->readAll();
        r->deleteLater();
        return cuerpo;
    };
    QNetworkReply::NetworkError error = QNetworkReply::NoError;
    EXPECT_EQ(pedir("n=1", &error), "estadoapertura:Abierto"); // a kept-alive connection
    sim.fallo("rechazar", 0, 1);
    pedir("n=2", &error);
    EXPECT_NE(error, QNetworkReply::NoError);
    EXPECT_EQ(pedir("n=3", &error), "estadoapertura:Abierto");
    EXPECT_EQ(error, QNetworkReply::NoError);

    sim.fallo("colgar", 1.0, 1);
    QElapsedTimer reloj;
    reloj.start();
    pedir("n=4", &error);
    EXPECT_NE(error, QNetworkReply::NoError);
    EXPECT_GE(reloj.elapsed(), 900);
    EXPECT_LT(reloj.elapsed(), 1900);
    EXPECT_EQ(pedir("n=5", &error), "estadoapertura:Abierto");
}

TEST(Simulador, FallosPorRutaHastaQuitarlos) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    sim.fallo("error", 0, -1, "pedidosgprs/obtenerPedido");
    sim.fallo("vacio", 0, -1, "pedidosgprs/obtenerPedido"); // the first one added wins
    sim.encolar("pedidosgprs/obtenerPedido", {"#guardado#"});

    EXPECT_EQ(Cuerpo(sim, "/api/pedidosgprs/obtenerPedido?idPedidoEst=1"), "error");
    EXPECT_EQ(Cuerpo(sim, "/api/pedidosgprs/obtenerPedido?idPedidoEst=1"), "error");
    EXPECT_EQ(Poll(sim), "estadoapertura:Abierto");

    sim.quitarFallos();
    // The queued reply waited behind the fault.
    EXPECT_EQ(Cuerpo(sim, "/api/pedidosgprs/obtenerPedido?idPedidoEst=1"), "#guardado#");
    EXPECT_EQ(Cuerpo(sim, "/api/pedidosgprs/obtenerPedido?idPedidoEst=1"), "");
}

TEST(Simulador, IntentoHttpsQuedaRegistradoYSeCierra) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    bool cerrada = false;
    EXPECT_TRUE(sim.enviarCrudo(kTls, 3000, &cerrada).isEmpty());
    EXPECT_TRUE(cerrada);
    EXPECT_EQ(Poll(sim), "estadoapertura:Abierto");

    auto registro = sim.registro();
    ASSERT_EQ(registro.size(), 2);
    EXPECT_EQ(registro[0].esquema, "https");
    EXPECT_EQ(registro[0].ruta, "");
    EXPECT_EQ(registro[0].consulta, "");
    EXPECT_EQ(registro[1].esquema, "http");
    EXPECT_EQ(registro[1].ruta, "pedidosgprs/pedidosnuevos");

#if QT_CONFIG(ssl)
    if (QSslSocket::supportsSsl()) {
        // A real TLS client fails its handshake and is recorded the same way.
        QSslSocket tls;
        tls.connectToHostEncrypted(QStringLiteral("127.0.0.1"), quint16(sim.puerto()));
        EXPECT_FALSE(tls.waitForEncrypted(3000));
        registro = sim.registro();
        ASSERT_EQ(registro.size(), 3);
        EXPECT_EQ(registro[2].esquema, "https");
    }
#endif

    // A connection fault with no path takes https attempts too; a body fault can't show
    // on one, so it waits for the plain request.
    sim.limpiarRegistro();
    sim.fallo("rechazar", 0, 1);
    sim.enviarCrudo(kTls, 3000);
    EXPECT_EQ(Poll(sim), "estadoapertura:Abierto");
    sim.fallo("error", 0, 1);
    sim.enviarCrudo(kTls, 3000);
    EXPECT_EQ(Poll(sim), "error");
    sim.fallo("rechazar", 0, 1, "pedidosgprs/pedidosnuevos");
    sim.enviarCrudo(kTls, 3000);
    EXPECT_TRUE(sim.peticion("GET", "/api/pedidosgprs/pedidosnuevos").cruda.isEmpty());
    EXPECT_EQ(sim.registro().size(), 6);
}

TEST(Simulador, CredencialesDeLaConfiguracion) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    const QByteArray v2 = "/api/pedidosgprs/obtenerConfiguracionV2?";
    EXPECT_TRUE(Documento(sim).contains("configimpresoras"));
    for (const QByteArray consulta :
         {"idEstablecimiento=8&passwordconfig=clave&numconfig=1&modeloImpresora=3",
          "idEstablecimiento=7&passwordconfig=Clave&numconfig=1&modeloImpresora=3",
          "idEstablecimiento=7&passwordconfig=clave&numconfig=2&modeloImpresora=3",
          "idEstablecimiento=7&passwordconfig=clave&modeloImpresora=3"}) {
        EXPECT_EQ(Cuerpo(sim, v2 + consulta), kNoEncontrado) << consulta.toStdString();
    }

    // The old form carries no numconfig; its fields 4 to 15 are the driver printer's.
    const QByteArray antigua =
        Cuerpo(sim, "/api/pedidosgprs/obtenerConfiguracion?idEstablecimiento=7&"
                    "passwordconfig=clave&modeloImpresora=3");
    ASSERT_TRUE(antigua.startsWith('#') && antigua.endsWith('#')) << antigua.toStdString();
    const QStringList campos = QString::fromUtf8(antigua.mid(1, antigua.size() - 2)).split('*');
    ASSERT_EQ(campos.size(), 16);
    EXPECT_EQ(campos.mid(4), (QStringList{"2", "1", "80", "Lucida Console", "3.8448", "10", "14",
                                          "4", QString(42, '-'), "60", "0", "0"}));
    EXPECT_EQ(Cuerpo(sim, "/api/pedidosgprs/obtenerConfiguracion?idEstablecimiento=7&"
                          "passwordconfig=mala&modeloImpresora=3"),
              kNoEncontrado);

    const QJsonObject propio{{"nombre", "Bar Pepe"},
                             {"configimpresoras", QJsonArray{QJsonObject{{"tipoimpresion", "DW"},
                                                                         {"anchopapel", 58},
                                                                         {"fuente", "Courier New"},
                                                                         {"factorfuente", 4.5}}}}};
    EXPECT_EQ(sim.documento(), Documento(sim)); // the default, read both ways
    sim.configurar(12, "otra clave", 3, propio);
    EXPECT_EQ(sim.documento(), propio);
    EXPECT_EQ(Cuerpo(sim, v2 + "idEstablecimiento=7&passwordconfig=clave&numconfig=1"),
              kNoEncontrado);
    for (const QByteArray clave : {"otra+clave", "otra%20clave"}) {
        const QByteArray texto =
            Cuerpo(sim, v2 + "idEstablecimiento=12&passwordconfig=" + clave + "&numconfig=3");
        EXPECT_EQ(QJsonDocument::fromJson(texto).object(), propio) << texto.toStdString();
    }
    const QStringList otros =
        QString::fromUtf8(Cuerpo(sim, "/api/pedidosgprs/obtenerConfiguracion?"
                                      "idEstablecimiento=12&passwordconfig=otra+clave"))
            .split('*');
    ASSERT_EQ(otros.size(), 16);
    EXPECT_EQ(otros[6], "58");
    EXPECT_EQ(otros[7], "Courier New");
    EXPECT_EQ(otros[8], "4.5");

    const QByteArray roto = "{\"nombre\": \"Casa Pañó\", \"pgprs\": ";
    sim.configurarTexto(12, "k", 1, roto);
    EXPECT_EQ(Cuerpo(sim, v2 + "idEstablecimiento=12&passwordconfig=k&numconfig=1"), roto);
}

TEST(Simulador, EstablecimientoPorDefectoCompleto) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    const QJsonObject doc = Documento(sim);

    const QStringList textos = {"pgprs", "nombre", "textocabecera", "textopiepagina",
                                "melodiapednuevo"};
    const QStringList enteros = {"intervaloescaneopedido",
                                 "intervaloescaneoconfiguracion",
                                 "numeropedidoshistorico",
                                 "abredialogimpresion",
                                 "mostrarquiena",
                                 "mostrarcpr",
                                 "mostrarcprtic",
                                 "minimizartrasresp",
                                 "cancelarsonido",
                                 "parpadeopednuevo",
                                 "intensidadparpadeo",
                                 "intervaloescaneopedactualizado",
                                 "metcon",
                                 "tamannofuenteprincipales",
                                 "tamannofuentelistascheck",
                                 "tiporeproaudio",
                                 "volumenmelodiawmp",
                                 "webparticular",
                                 "ocultardatosperson",
                                 "printresumenauto",
                                 "aceptarautodomicilio",
                                 "aceptarautorecoger",
                                 "actualizarconfigconpedido",
                                 "comprobaractualizar",
                                 "mostrarsintiempo",
                                 "rechazaraceptado",
                                 "imprimirantesaceptar",
                                 "comprobarpedidotrasaceptar",
                                 "modo",
                                 "actualizaragotados"};
    for (const auto& clave : textos) {
        EXPECT_TRUE(doc[clave].isString()) << clave.toStdString();
    }
    for (const auto& clave : enteros) {
        EXPECT_TRUE(doc[clave].isDouble() && doc[clave].toDouble() == doc[clave].toInt())
            << clave.toStdString();
    }
    EXPECT_EQ(doc["modo"].toInt(), 0);
    EXPECT_EQ(doc["intervaloescaneopedido"].toInt(), 1000);
    EXPECT_EQ(doc["intervaloescaneoconfiguracion"].toInt(), 600);
    const QJsonArray motivos = doc["motivosrechazo"].toArray();
    EXPECT_GE(motivos.size(), 3);
    EXPECT_TRUE(motivos.contains(QStringLiteral("No hay ingredientes.")));

    const QStringList textosImpresora = {
        "tipoimpresion",         "nombreimpresora",      "fuente",
        "separadorlineas",       "epconexion",           "epcominicializar",
        "epcomdoblealtoactivar", "epcomdoblealtodesact", "epcomcotarpapel",
        "epcomconfigcaracteres", "epcomsubirlineas",     "epcomextrasfin",
        "categoriasids",         "productosexcepids",    "productosids"};
    const QStringList enterosImpresora = {"numeroimpresora",
                                          "numerocopiasaceptado",
                                          "numerocopiasaceptadorecoger",
                                          "numerocopiasrechazado",
                                          "anchopapel",
                                          "tamannofuentepequenna",
                                          "tamannofuentegrande",
                                          "tamannofuenteseparador",
                                          "margenentrelineas",
                                          "iniciox",
                                          "inicioy",
                                          "epnumcolumnas",
                                          "cocina",
                                          "formaenvio",
                                          "mostrarnombreimpresora",
                                          "reemplazarcaracesp",
                                          "reemplazarcaracescpospc858",
                                          "saltolineaopciones",
                                          "nombreimpresoragrande",
                                          "productosycomentariosgrande",
                                          "datosclienteyenviogrande",
                                          "productosycomentariosmayus",
                                          "datosclientecocina",
                                          "numlineasblancoinicio",
                                          "numlineasblancofinal",
                                          "numpedidoyformaenvfinal",
                                          "mostrarpreciosprodcocina",
                                          "mostrarseparadorproductos",
                                          "mostrartotalbruto",
                                          "mostrarhoraentrega"};
    int dw = 0, epCliente = 0, epCocina = 0, conListas = 0;
    QSet<int> categoriasCocina;
    QSet<int> productosCocina;
    for (const auto& valor : doc["configimpresoras"].toArray()) {
        const QJsonObject i = valor.toObject();
        SCOPED_TRACE(i["nombreimpresora"].toString().toStdString());
        for (const auto& clave : textosImpresora) {
            EXPECT_TRUE(i[clave].isString()) << clave.toStdString();
        }
        for (const auto& clave : enterosImpresora) {
            EXPECT_TRUE(i[clave].isDouble() && i[clave].toDouble() == i[clave].toInt())
                << clave.toStdString();
        }
        EXPECT_TRUE(i["factorfuente"].isDouble());
        const bool cocina = i["cocina"].toInt() == 1;
        if (i["tipoimpresion"] == "DW") {
            ++dw;
        } else if (i["tipoimpresion"] == "EP") {
            ++(cocina ? epCocina : epCliente);
        }
        if (cocina) {
            EXPECT_FALSE(i["categoriasids"].toString().isEmpty());
            for (const auto& c : i["categoriasids"].toString().split(',')) {
                categoriasCocina.insert(c.toInt());
            }
            for (const auto& p : i["productosids"].toString().split(',', Qt::SkipEmptyParts)) {
                productosCocina.insert(p.toInt());
            }
            if (!i["productosexcepids"].toString().isEmpty() ||
                !i["productosids"].toString().isEmpty()) {
                ++conListas;
            }
        }
    }
    EXPECT_GE(dw, 1);
    EXPECT_GE(epCliente, 1);
    EXPECT_EQ(epCocina, 2);
    EXPECT_GE(conListas, 1);

    // Every generated product reaches some kitchen printer by its category or its id.
    for (const auto& pedido : sim.generarPedidos(40, 1, "mezcla", 4)) {
        const QByteArray linea = pedido.toObject()["linea"].toString().toUtf8();
        const QStringList productos =
            QString::fromUtf8(linea.mid(1, linea.size() - 2)).split('*')[3].split(';');
        for (int k = 0; k + 1 < productos.size(); ++k) {
            const QStringList campos = productos[k].split('%');
            ASSERT_GE(campos.size(), 5);
            EXPECT_TRUE(categoriasCocina.contains(campos[4].toInt()) ||
                        productosCocina.contains(campos[3].toInt()))
                << productos[k].toStdString();
        }
    }
}

TEST(Simulador, OpcionesDeArranque) {
    {
        SimuladorPrueba sim(
            {"--impresoras-ep=/tmp/tickets", "--id=55", "--password=pw", "--numconfig=4"});
        ASSERT_TRUE(sim.enMarcha());
        const QByteArray texto =
            Cuerpo(sim, "/api/pedidosgprs/obtenerConfiguracionV2?idEstablecimiento=55&"
                        "passwordconfig=pw&numconfig=4&modeloImpresora=3");
        QStringList destinos;
        for (const auto& v : QJsonDocument::fromJson(texto)["configimpresoras"].toArray()) {
            const QJsonObject i = v.toObject();
            if (i["tipoimpresion"] == "EP") {
                destinos << i["epconexion"].toString();
            }
        }
        EXPECT_EQ(destinos, (QStringList{"/tmp/tickets/cliente.bin", "/tmp/tickets/cocina1.bin",
                                         "/tmp/tickets/cocina2.bin"}));
    }
    {
        SimuladorPrueba sim({"--impresoras-tcp=9101,9102,9103"});
        ASSERT_TRUE(sim.enMarcha());
        QStringList destinos;
        for (const auto& v : Documento(sim)["configimpresoras"].toArray()) {
            const QJsonObject i = v.toObject();
            if (i["tipoimpresion"] == "EP") {
                destinos << i["epconexion"].toString();
            }
        }
        EXPECT_EQ(destinos, (QStringList{"127.0.0.1:9101", "127.0.0.1:9102", "127.0.0.1:9103"}));
    }
    {
        // A fixed port is honoured.
        QTcpServer libre;
        ASSERT_TRUE(libre.listen(QHostAddress::LocalHost));
        const int puerto = libre.serverPort();
        libre.close();
        SimuladorPrueba sim({QStringLiteral("--puerto=%1").arg(puerto)});
        EXPECT_EQ(sim.puerto(), puerto);
    }
    QProcess malo;
    malo.start(QStringLiteral(SIMULADOR_EXE), {"--desconocida"});
    ASSERT_TRUE(malo.waitForFinished(5000));
    EXPECT_EQ(malo.exitCode(), 2);
}

TEST(Simulador, SeParaConSenalOAlCerrarseSuEntrada) {
    for (const bool porSenal : {false, true}) {
        QProcess proceso;
        proceso.start(QStringLiteral(SIMULADOR_EXE),
                      porSenal ? QStringList{} : QStringList{"--parar-con-stdin"});
        ASSERT_TRUE(proceso.waitForReadyRead(5000));
        EXPECT_TRUE(proceso.readLine().startsWith("PUERTO "));
        if (porSenal) {
            proceso.terminate();
        } else {
            proceso.closeWriteChannel();
        }
        ASSERT_TRUE(proceso.waitForFinished(3000)) << porSenal;
        EXPECT_EQ(proceso.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(proceso.exitCode(), 0);
    }
    // A connection held by a fault does not keep it from stopping.
    QProcess proceso;
    proceso.start(QStringLiteral(SIMULADOR_EXE), {"--parar-con-stdin"});
    ASSERT_TRUE(proceso.waitForReadyRead(5000));
    const int puerto = proceso.readLine().trimmed().mid(7).toInt();
    QTcpSocket control;
    control.connectToHost(QStringLiteral("127.0.0.1"), quint16(puerto));
    ASSERT_TRUE(control.waitForConnected(2000));
    const QByteArray fallo = R"({"tipo":"colgar","segundos":60})";
    control.write(
        "POST /__control/fallos HTTP/1.1\r\nContent-Length: " + QByteArray::number(fallo.size()) +
        "\r\n\r\n" + fallo + "GET /api/x HTTP/1.1\r\n\r\n");
    ASSERT_TRUE(control.waitForReadyRead(2000));
    QElapsedTimer reloj;
    reloj.start();
    proceso.closeWriteChannel();
    ASSERT_TRUE(proceso.waitForFinished(3000));
    EXPECT_LT(reloj.elapsed(), 2500);
}

TEST(Simulador, PedidosGeneradosSeSirvenYSeResponden) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    const QJsonArray creados = sim.generarPedidos(2, 77, "domicilio", 2);
    ASSERT_EQ(creados.size(), 2);
    const QString n1 = creados[0]["numero"].toString();
    const QString n2 = creados[1]["numero"].toString();
    EXPECT_NE(n1, n2);
    EXPECT_EQ(creados[0]["estado"], "Pendiente");

    // The line is the shared generator's, with the service's own order number.
    auto esperado = simulador::GenerarPedido(77, simulador::ClasePedido::Domicilio, 2);
    esperado.NumPedido = n1.toStdString();
    esperado.Origen = "7";
    const QByteArray linea1 = QByteArray::fromStdString(simulador::LineaPedido(esperado));
    EXPECT_EQ(creados[0]["linea"].toString().toUtf8(), linea1);

    EXPECT_EQ(Poll(sim), linea1);
    EXPECT_EQ(Poll(sim), creados[1]["linea"].toString().toUtf8());
    EXPECT_EQ(Poll(sim), "estadoapertura:Abierto");

    const QByteArray estado = "/api/pedidosgprs/obtenerEstadoPedido?idEstablecimiento=7&"
                              "passwordconfig=clave&numconfig=1&idPedidoEst=";
    EXPECT_EQ(Cuerpo(sim, estado + n1.toUtf8() + "&modeloImpresora=3"), "#1#");
    EXPECT_EQ(Cuerpo(sim, "/api/pedidosgprs/respuestapedidos?a=7&o=" + n1.toUtf8() +
                              "&ak=Accepted&m=20_Minutos&dt=nousado&u=nousado&p=x"),
              "OK");
    const QByteArray rechazo =
        "a=7&o=" + n2.toUtf8() + "&ak=Rejected&m=Sin%20ingredientes%20de%20ca%F1a&dt=nousado";
    EXPECT_EQ(Cuerpo(sim, "/api/pedidosgprs/respuestapedidos?" + rechazo), "OK");
    EXPECT_EQ(Cuerpo(sim, estado + n1.toUtf8()), "#2#");
    EXPECT_EQ(Cuerpo(sim, estado + n2.toUtf8()), "#2#");

    const QStringList datos1 = DatosPedido(
        Cuerpo(sim, "/api/pedidosgprs/obtenerPedido?idEstablecimiento=7&passwordconfig=clave&"
                    "numconfig=1&idPedidoEst=" +
                        n1.toUtf8() + "&modeloImpresora=3&version=1.6.2"));
    ASSERT_EQ(datos1.size(), 18);
    EXPECT_EQ(datos1[10], "Aceptado");
    EXPECT_EQ(datos1[11], "20");
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^\\d\\d/\\d\\d/\\d{4} \\d{1,2}:\\d\\d:\\d\\d$"))
                    .match(datos1[17])
                    .hasMatch())
        << datos1[17].toStdString();
    const QStringList datos2 =
        DatosPedido(Cuerpo(sim, "/api/pedidosgprs/obtenerPedido?idPedidoEst=" + n2.toUtf8()));
    ASSERT_EQ(datos2.size(), 18);
    EXPECT_EQ(datos2[10], "Rechazado");
    EXPECT_EQ(datos2[11], QStringLiteral("Sin ingredientes de caña"));

    EXPECT_EQ(Cuerpo(sim, "/api/pedidosgprs/obtenerPedido?idPedidoEst=999"), "");
    EXPECT_EQ(Cuerpo(sim, estado + "999"), "");

    const QJsonArray guardados = sim.pedidos();
    ASSERT_EQ(guardados.size(), 2);
    EXPECT_EQ(guardados[0]["numero"].toString(), n1);
    EXPECT_EQ(guardados[0]["estado"], "Aceptado");
    EXPECT_EQ(guardados[0]["minutos"], "20");
    EXPECT_EQ(guardados[1]["estado"], "Rechazado");
    EXPECT_EQ(guardados[1]["motivo"].toString(), QStringLiteral("Sin ingredientes de caña"));
    const QJsonArray respuestas = guardados[1]["respuestas"].toArray();
    ASSERT_EQ(respuestas.size(), 1);
    EXPECT_EQ(respuestas[0]["ak"], "Rejected");
    EXPECT_EQ(respuestas[0]["consulta"].toString(), QString::fromLatin1(rechazo));
}

TEST(Simulador, AperturaYCierreDelEstablecimiento) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    const QByteArray ruta = "/api/establecimiento/cerrarAbrirEstablecHasta?id=7&accion=";

    const QTime antes = QTime::currentTime().addSecs(30 * 60);
    const QByteArray hasta = Cuerpo(sim, ruta + "C&minutos=30&dias=");
    const QTime despues = QTime::currentTime().addSecs(30 * 60);
    const QStringList validas = {"\"" + antes.toString("HH:mm") + "\"",
                                 "\"" + despues.toString("HH:mm") + "\""};
    EXPECT_TRUE(validas.contains(QString::fromUtf8(hasta))) << hasta.toStdString();
    EXPECT_EQ(Poll(sim), "estadoapertura:Cerrado hasta " + hasta.mid(1, hasta.size() - 2));

    EXPECT_EQ(Cuerpo(sim, ruta + "A"), "\"Abierto\"");
    EXPECT_EQ(Poll(sim), "estadoapertura:Abierto");

    EXPECT_EQ(Cuerpo(sim, ruta + "C&minutos=&dias=1"), "\"23:59\"");
    EXPECT_EQ(Poll(sim), "estadoapertura:Cerrado hasta 23:59");

    EXPECT_EQ(Cuerpo(sim, ruta + "C"), "\"Cerrado\"");
    EXPECT_EQ(Poll(sim), "estadoapertura:Cerrado");
    EXPECT_EQ(Cuerpo(sim, ruta + "A"), "\"Abierto\"");
}

TEST(Simulador, PedidosPeriodicosParaLaDemo) {
    SimuladorPrueba sim({"--pedidos-cada=0.2"});
    ASSERT_TRUE(sim.enMarcha());
    QByteArray linea;
    QElapsedTimer reloj;
    reloj.start();
    while (reloj.elapsed() < 5000 && !linea.startsWith('#')) {
        linea = Poll(sim);
        if (!linea.startsWith('#')) {
            QTest::qWait(50);
        }
    }
    ASSERT_TRUE(linea.startsWith('#') && linea.endsWith('#')) << linea.toStdString();
    // Demo orders carry the present day.
    EXPECT_TRUE(linea.contains(QDate::currentDate().toString("dd/MM/yyyy").toUtf8()));
    EXPECT_GE(sim.pedidos().size(), 1);
}

TEST(Simulador, MuchosClientesALaVez) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    sim.generarPedidos(20, 9, "mezcla");
    constexpr int kHilos = 8;
    constexpr int kPorHilo = 25;
    std::atomic<int> respondidas{0};
    std::atomic<int> pedidos{0};
    std::vector<std::thread> hilos;
    for (int h = 0; h < kHilos; ++h) {
        hilos.emplace_back([&, h] {
            for (int i = 0; i < kPorHilo; ++i) {
                const auto r = sim.peticion(
                    "GET", "/api/pedidosgprs/pedidosnuevos?h=" + QByteArray::number(h) +
                               "&i=" + QByteArray::number(i));
                respondidas += r.estado == 200 ? 1 : 0;
                pedidos += r.cuerpo.startsWith('#') ? 1 : 0;
            }
        });
    }
    for (auto& hilo : hilos) {
        hilo.join();
    }
    EXPECT_EQ(respondidas, kHilos * kPorHilo);
    EXPECT_EQ(pedidos, 20); // each queued order went out exactly once

    const auto registro = sim.registro();
    ASSERT_EQ(registro.size(), kHilos * kPorHilo);
    QSet<QString> consultas;
    for (int i = 0; i < registro.size(); ++i) {
        EXPECT_EQ(registro[i].n, registro[0].n + i);
        consultas.insert(registro[i].consulta);
    }
    EXPECT_EQ(consultas.size(), kHilos * kPorHilo);
}

TEST(Simulador, AjustesEscritosVuelvenEnLaSiguienteLectura) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    const QByteArray cabeza = "idEstablecimiento=7&passwordconfig=clave&numconfig=1";
    const auto impresora = [&](const QJsonObject& doc, int numero) {
        for (const auto& v : doc["configimpresoras"].toArray()) {
            if (v.toObject()["numeroimpresora"].toInt() == numero) {
                return v.toObject();
            }
        }
        return QJsonObject();
    };

    // An existing kitchen printer changes; its name stays encoded as the desk sent it.
    EXPECT_EQ(Cuerpo(sim, "/api/pedidosgprs/actualizarConfigImpresora?" + cabeza +
                              "&version=1.6.2&numeroimpresora=3&nombreimpresora=Cocina+fr%EDa"
                              "&tipoimpresion=EP&numerocopiasaceptado=3&epconexion=COM2:9600,n,8,1"
                              "&cocina=1&categoriasids=11,15&formaenvio=2&fha=2026112290507"),
              "OK");
    // A new slot gets a whole printer.
    Cuerpo(sim, "/api/pedidosgprs/actualizarConfigImpresora?" + cabeza +
                    "&numeroimpresora=6&nombreimpresora=Barra+2&tipoimpresion=DW"
                    "&anchopapel=58&fuente=Courier%20New&factorfuente=4.25");
    Cuerpo(sim, "/api/pedidosgprs/eliminarConfigImpresora?" + cabeza + "&numeroimpresora=4");
    EXPECT_EQ(Cuerpo(sim, "/api/pedidosgprs/actualizarConfigGeneral?" + cabeza +
                              "&tamannofuenteprincipales=12&melodiapednuevo=mi+melod%EDa.mp3"
                              "&volumenmelodiawmp=55&minimizartrasresp=1"),
              "OK");
    // With wrong credentials nothing is kept.
    EXPECT_EQ(Cuerpo(sim, "/api/pedidosgprs/actualizarConfigGeneral?idEstablecimiento=7&"
                          "passwordconfig=mala&numconfig=1&tamannofuenteprincipales=16"),
              "OK");

    const QJsonObject doc = Documento(sim);
    const QJsonObject cocina = impresora(doc, 3);
    EXPECT_EQ(cocina["nombreimpresora"], "Cocina+fr%EDa");
    EXPECT_EQ(cocina["numerocopiasaceptado"], 3);
    EXPECT_EQ(cocina["epconexion"], "COM2:9600,n,8,1");
    EXPECT_EQ(cocina["categoriasids"], "11,15");
    EXPECT_EQ(cocina["formaenvio"], 2);
    EXPECT_EQ(cocina["productosexcepids"], "103"); // not written by the desk: kept
    EXPECT_FALSE(cocina.contains("fha"));
    EXPECT_FALSE(cocina.contains("version"));

    const QJsonObject nueva = impresora(doc, 6);
    EXPECT_EQ(nueva["tipoimpresion"], "DW");
    EXPECT_EQ(nueva["anchopapel"], 58);
    EXPECT_EQ(nueva["fuente"], "Courier New");
    EXPECT_EQ(nueva["factorfuente"], 4.25);
    EXPECT_TRUE(nueva.contains("mostrarhoraentrega"));
    EXPECT_TRUE(impresora(doc, 4).isEmpty());
    EXPECT_EQ(doc["configimpresoras"].toArray().size(), 4);

    EXPECT_EQ(doc["tamannofuenteprincipales"], 12);
    EXPECT_EQ(doc["melodiapednuevo"].toString(), QStringLiteral("mi melodía.mp3"));
    EXPECT_EQ(doc["volumenmelodiawmp"], 55);
    EXPECT_EQ(doc["minimizartrasresp"], 1);
}
