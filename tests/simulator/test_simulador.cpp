// The stand-in service as a plain client sees it over loopback: the record, queued replies,
// faults, the https front, credentials and orders.
#include "GeneradorPedidos.h"
#include "common/SimuladorPrueba.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QStringDecoder>
#include <QTest>
#include <functional>
#include <gtest/gtest.h>

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
    QStringList vistas;
    for (const auto& r : registro) {
        vistas << r.esquema + ' ' + r.ruta + '?' + r.consulta;
    }
    EXPECT_EQ(
        vistas,
        (QStringList{"http pedidosgprs/respuestapedidos?" + QString::fromLatin1(consulta),
                     "http a/b?x=%C3%B3&&z=", "http c?y=1+2", "http pedidosgprs/pedidosnuevos?"}));
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

TEST(Simulador, CadaFalloTalComoLoVeUnClienteQt) {
    // Qt's network access resends a GET once when the connection ends without an answer;
    // the desk must still see one failure per fault time, and the next poll is normal.
    struct Visto {
        QNetworkReply::NetworkError error;
        int estado;
        QByteArray cuerpo;
        qint64 ms;
    };
    struct Caso {
        const char* tipo;
        double segundos;
        std::function<void(const Visto&)> comprobar;
    };
    const Caso casos[] = {
        {"error", 0, [](const Visto& v) { EXPECT_EQ(v.cuerpo, "error"); }},
        {"vacio", 0,
         [](const Visto& v) {
             EXPECT_EQ(v.error, QNetworkReply::NoError);
             EXPECT_EQ(v.estado, 200);
             EXPECT_TRUE(v.cuerpo.isEmpty());
         }},
        {"status500", 0, [](const Visto& v) { EXPECT_EQ(v.cuerpo, "{\"status\":500}"); }},
        {"titulo502", 0,
         [](const Visto& v) {
             EXPECT_EQ(v.estado, 502);
             const int cabeza = v.cuerpo.indexOf("<head>");
             const int titulo = v.cuerpo.indexOf("<title>502 Bad Gateway</title>");
             EXPECT_GE(cabeza, 0);
             EXPECT_GT(titulo, cabeza);
             EXPECT_LT(titulo, v.cuerpo.indexOf("</head>"));
         }},
        {"http500", 0, [](const Visto& v) { EXPECT_EQ(v.estado, 500); }},
        {"cortado", 0,
         [](const Visto& v) {
             // Half an order line arrives and the connection ends before the rest; whether
             // the client calls that an error depends on when it notices the reset.
             EXPECT_TRUE(v.cuerpo.startsWith("#PED*")) << v.cuerpo.toStdString();
             EXPECT_FALSE(v.cuerpo.endsWith('#'));
         }},
        {"basura", 0,
         [](const Visto& v) {
             EXPECT_FALSE(v.cuerpo.isEmpty());
             EXPECT_FALSE(EsUtf8(v.cuerpo));
             EXPECT_FALSE(v.cuerpo.startsWith('#'));
         }},
        {"rechazar", 0,
         [](const Visto& v) {
             EXPECT_NE(v.error, QNetworkReply::NoError);
             EXPECT_LT(v.ms, 2000);
         }},
        {"colgar", 1.0,
         [](const Visto& v) {
             EXPECT_NE(v.error, QNetworkReply::NoError);
             EXPECT_GE(v.ms, 900);
             EXPECT_LT(v.ms, 1900);
         }},
    };
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    QNetworkAccessManager red;
    int n = 0;
    const auto pedir = [&] {
        QElapsedTimer reloj;
        reloj.start();
        QNetworkReply* r = red.get(QNetworkRequest(
            QUrl("http://" + sim.base() + "pedidosgprs/pedidosnuevos?n=" + QString::number(++n))));
        QSignalSpy fin(r, &QNetworkReply::finished);
        EXPECT_TRUE(fin.wait(8000));
        const Visto visto{r->error(),
                          r->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
                          r->readAll(), reloj.elapsed()};
        r->deleteLater();
        return visto;
    };
    EXPECT_EQ(pedir().cuerpo, "estadoapertura:Abierto"); // a kept-alive connection
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.tipo);
        sim.fallo(caso.tipo, caso.segundos, 1);
        caso.comprobar(pedir());
        const Visto siguiente = pedir();
        EXPECT_EQ(siguiente.error, QNetworkReply::NoError);
        EXPECT_EQ(siguiente.cuerpo, "estadoapertura:Abierto");
    }
}

TEST(Simulador, FallosAlAzarCuentanYNoSeLlevanLoEncolado) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    const QString linea = sim.generarPedidos(1, 5, QStringLiteral("domicilio"))[0]
                              .toObject()[QStringLiteral("linea")]
                              .toString();
    // Every request fails, cut in its middle: the order stays queued for the next poll.
    sim.azar(1.0, 3, 0, {QStringLiteral("cortado")});
    const QByteArray entera = linea.toUtf8();
    for (int i = 0; i < 3; ++i) {
        bool cerrada = false;
        const QByteArray crudo = sim.enviarCrudo(
            "GET /api/pedidosgprs/pedidosnuevos?i=1 HTTP/1.1\r\nHost: h\r\n\r\n", 5000, &cerrada);
        EXPECT_TRUE(cerrada);
        EXPECT_TRUE(crudo.contains("Content-Length: " + QByteArray::number(entera.size())));
        EXPECT_TRUE(crudo.endsWith(entera.left(entera.size() / 2))) << crudo.toStdString();
    }
    // A proportion of 0 only counts; a half of the requests fail with the same seed.
    sim.azar(0.0, 3);
    EXPECT_EQ(Poll(sim), entera);
    EXPECT_EQ(Poll(sim), "estadoapertura:Abierto");
    sim.peticion("GET", "/api/establecimiento/carta2?id=7");
    QJsonObject estado = sim.estadoAzar();
    EXPECT_EQ(estado["porRuta"].toObject()["pedidosgprs/pedidosnuevos"].toInt(), 2);
    EXPECT_EQ(estado["peticiones"].toInt(), 3);
    EXPECT_TRUE(estado["fallos"].toObject().isEmpty());

    sim.azar(0.5, 11, 0, {QStringLiteral("error"), QStringLiteral("vacio")});
    int errores = 0;
    int vacios = 0;
    for (int i = 0; i < 200; ++i) {
        const QByteArray c = Poll(sim);
        errores += c == "error" ? 1 : 0;
        vacios += c.isEmpty() ? 1 : 0;
    }
    estado = sim.pararAzar();
    EXPECT_EQ(estado["fallos"].toObject()["error"].toInt(), errores);
    EXPECT_EQ(estado["fallos"].toObject()["vacio"].toInt(), vacios);
    EXPECT_GT(errores + vacios, 70);
    EXPECT_LT(errores + vacios, 130);
    // Stopped: nothing fails and nothing more is counted.
    EXPECT_EQ(Poll(sim), "estadoapertura:Abierto");
    EXPECT_EQ(sim.estadoAzar()["peticiones"].toInt(), 200);
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
    EXPECT_EQ(registro[0].esquema + registro[0].ruta + registro[0].consulta, "https");
    EXPECT_EQ(registro[1].esquema + ' ' + registro[1].ruta, "http pedidosgprs/pedidosnuevos");
}

TEST(Simulador, CredencialesDeLaConfiguracion) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    const QByteArray v2 = "/api/pedidosgprs/obtenerConfiguracionV2?";
    const QJsonObject porDefecto =
        QJsonDocument::fromJson(
            Cuerpo(sim,
                   v2 + "idEstablecimiento=7&passwordconfig=clave&numconfig=1&modeloImpresora=3"))
            .object();
    EXPECT_TRUE(porDefecto.contains("configimpresoras"));
    EXPECT_EQ(sim.documento(), porDefecto);
    for (const QByteArray consulta :
         {"idEstablecimiento=8&passwordconfig=clave&numconfig=1&modeloImpresora=3",
          "idEstablecimiento=7&passwordconfig=Clave&numconfig=1&modeloImpresora=3",
          "idEstablecimiento=7&passwordconfig=clave&numconfig=2&modeloImpresora=3",
          "idEstablecimiento=7&passwordconfig=clave&modeloImpresora=3"}) {
        EXPECT_EQ(Cuerpo(sim, v2 + consulta), kNoEncontrado) << consulta.toStdString();
    }
    EXPECT_EQ(Cuerpo(sim, "/api/pedidosgprs/obtenerConfiguracion?idEstablecimiento=7&"
                          "passwordconfig=mala&modeloImpresora=3"),
              kNoEncontrado);

    // Other credentials, and a password that travels with a space either way.
    const QJsonObject propio{{"nombre", "Bar Pepe"}, {"configimpresoras", QJsonArray{}}};
    sim.configurar(12, "otra clave", 3, propio);
    EXPECT_EQ(Cuerpo(sim, v2 + "idEstablecimiento=7&passwordconfig=clave&numconfig=1"),
              kNoEncontrado);
    for (const QByteArray clave : {"otra+clave", "otra%20clave"}) {
        const QByteArray texto =
            Cuerpo(sim, v2 + "idEstablecimiento=12&passwordconfig=" + clave + "&numconfig=3");
        EXPECT_EQ(QJsonDocument::fromJson(texto).object(), propio) << texto.toStdString();
    }
    const QByteArray roto = "{\"nombre\": \"Casa Pañó\", \"pgprs\": ";
    sim.configurarTexto(12, "k", 1, roto);
    EXPECT_EQ(Cuerpo(sim, v2 + "idEstablecimiento=12&passwordconfig=k&numconfig=1"), roto);
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

    // The control side keeps each answer as it came.
    const QJsonArray guardados = sim.pedidos();
    ASSERT_EQ(guardados.size(), 2);
    const QJsonArray respuestas = guardados[1]["respuestas"].toArray();
    ASSERT_EQ(respuestas.size(), 1);
    EXPECT_EQ(respuestas[0]["ak"], "Rejected");
    EXPECT_EQ(respuestas[0]["consulta"].toString(), QString::fromLatin1(rechazo));
}
