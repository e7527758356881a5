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

} // namespace

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
