#include "SimuladorPrueba.h"

#include <QDeadlineTimer>
#include <QJsonDocument>
#include <QTcpSocket>
#include <QTest>
#include <gtest/gtest.h>

namespace {

constexpr int kMsControl = 5000;

QByteArray Cuerpo(const QByteArray& cruda, int* estado) {
    const int fin = cruda.indexOf("\r\n\r\n");
    if (fin < 0) {
        return {};
    }
    const QByteArray linea = cruda.left(cruda.indexOf("\r\n"));
    const QList<QByteArray> partes = linea.split(' ');
    if (estado != nullptr && partes.size() >= 2) {
        *estado = partes[1].toInt();
    }
    return cruda.mid(fin + 4);
}

} // namespace

SimuladorPrueba::SimuladorPrueba(const QStringList& extra, int msArranque) {
    proceso_.setProgram(QStringLiteral(SIMULADOR_EXE));
    proceso_.setArguments(QStringList{"--puerto=0", "--parar-con-stdin"} + extra);
    proceso_.setProcessChannelMode(QProcess::SeparateChannels);
    proceso_.start();
    if (!proceso_.waitForStarted(msArranque)) {
        ADD_FAILURE() << "simulador no arranca: " << proceso_.errorString().toStdString();
        return;
    }
    const QDeadlineTimer limite(msArranque);
    QByteArray salida;
    while (!limite.hasExpired()) {
        if (!proceso_.canReadLine() && !proceso_.waitForReadyRead(int(limite.remainingTime()))) {
            break;
        }
        while (proceso_.canReadLine()) {
            const QByteArray linea = proceso_.readLine().trimmed();
            if (linea.startsWith("PUERTO ")) {
                puerto_ = linea.mid(7).toInt();
                return;
            }
            salida += linea + '\n';
        }
    }
    ADD_FAILURE() << "simulador sin línea PUERTO: " << salida.toStdString()
                  << proceso_.readAllStandardError().toStdString();
}

SimuladorPrueba::~SimuladorPrueba() {
    if (proceso_.state() == QProcess::NotRunning) {
        return;
    }
    proceso_.closeWriteChannel();
    if (!proceso_.waitForFinished(3000)) {
        proceso_.terminate();
        if (!proceso_.waitForFinished(2000)) {
            proceso_.kill();
            proceso_.waitForFinished(2000);
        }
    }
}

QString SimuladorPrueba::base() const {
    return QStringLiteral("127.0.0.1:%1/api/").arg(puerto_);
}

QByteArray SimuladorPrueba::enviarCrudo(const QByteArray& bytes, int msMax, bool* cerrada) {
    const QDeadlineTimer limite(msMax);
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("127.0.0.1"), quint16(puerto_));
    if (cerrada != nullptr) {
        *cerrada = false;
    }
    if (!socket.waitForConnected(int(limite.remainingTime()))) {
        return {};
    }
    socket.write(bytes);
    socket.waitForBytesWritten(int(limite.remainingTime()));
    QByteArray recibido;
    while (!limite.hasExpired()) {
        if (socket.waitForReadyRead(int(qMax<qint64>(1, limite.remainingTime())))) {
            recibido += socket.readAll();
            continue;
        }
        if (socket.state() != QAbstractSocket::ConnectedState) {
            recibido += socket.readAll();
            if (cerrada != nullptr) {
                *cerrada = true;
            }
            break;
        }
    }
    return recibido;
}

SimuladorPrueba::RespuestaHttp SimuladorPrueba::peticion(const QByteArray& metodo,
                                                         const QByteArray& objetivo,
                                                         const QByteArray& cuerpo, int msMax) {
    QByteArray bytes = metodo + ' ' + objetivo + " HTTP/1.1\r\nHost: 127.0.0.1\r\n";
    if (!cuerpo.isEmpty()) {
        bytes += "Content-Type: application/json\r\n";
    }
    bytes += "Content-Length: " + QByteArray::number(cuerpo.size()) +
             "\r\nConnection: close\r\n\r\n" + cuerpo;
    RespuestaHttp r;
    r.cruda = enviarCrudo(bytes, msMax);
    r.respondida = r.cruda.startsWith("HTTP/1.1 ");
    r.cuerpo = Cuerpo(r.cruda, &r.estado);
    return r;
}

QByteArray SimuladorPrueba::controlCrudo(const QByteArray& metodo, const QByteArray& recurso,
                                         const QByteArray& cuerpo) {
    const auto r = peticion(metodo, "/__control/" + recurso, cuerpo, kMsControl);
    if (r.estado != 200) {
        ADD_FAILURE() << "control " << metodo.toStdString() << " " << recurso.toStdString()
                      << " falló: " << r.cruda.toStdString();
    }
    return r.cuerpo;
}

QJsonObject SimuladorPrueba::control(const QByteArray& metodo, const QByteArray& recurso,
                                     const QJsonObject& cuerpo) {
    const QByteArray datos =
        cuerpo.isEmpty() ? QByteArray() : QJsonDocument(cuerpo).toJson(QJsonDocument::Compact);
    return QJsonDocument::fromJson(controlCrudo(metodo, recurso, datos)).object();
}

QStringList SimuladorPrueba::consultas(const QString& ruta) {
    QStringList r;
    for (const Entrada& e : registro()) {
        if (e.ruta == ruta && !e.reenvio) {
            r << e.consulta.left(e.consulta.indexOf(QStringLiteral("&fha=")));
        }
    }
    return r;
}

QList<SimuladorPrueba::Entrada> SimuladorPrueba::registro() {
    QList<Entrada> lista;
    const auto documento = QJsonDocument::fromJson(controlCrudo("GET", "registro", {}));
    for (const auto& valor : documento.array()) {
        const auto o = valor.toObject();
        lista.append({o["n"].toInt(), o["esquema"].toString(), o["ruta"].toString(),
                      o["consulta"].toString(), qint64(o["ms"].toDouble()), o["reenvio"].toBool(),
                      o["fallo"].toString(), o["pedido"].toString()});
    }
    return lista;
}

void SimuladorPrueba::limpiarRegistro() {
    control("DELETE", "registro");
}

void SimuladorPrueba::encolar(const QString& ruta, const QStringList& cuerpos) {
    control("POST", "respuestas",
            {{"ruta", ruta}, {"cuerpos", QJsonArray::fromStringList(cuerpos)}});
}

void SimuladorPrueba::vaciarRespuestas() {
    control("DELETE", "respuestas");
}

void SimuladorPrueba::fallo(const QString& tipo, double segundos, int veces, const QString& ruta) {
    QJsonObject cuerpo{{"tipo", tipo}, {"segundos", segundos}};
    if (veces >= 0) {
        cuerpo["veces"] = veces;
    }
    if (!ruta.isEmpty()) {
        cuerpo["ruta"] = ruta;
    }
    control("POST", "fallos", cuerpo);
}

void SimuladorPrueba::quitarFallos() {
    control("DELETE", "fallos");
}

QJsonObject SimuladorPrueba::azar(double proporcion, quint64 semilla, double segundos,
                                  const QStringList& tipos) {
    QJsonObject cuerpo{{"proporcion", proporcion},
                       {"semilla", static_cast<qint64>(semilla)},
                       {"segundos", segundos}};
    if (!tipos.isEmpty()) {
        cuerpo["tipos"] = QJsonArray::fromStringList(tipos);
    }
    return control("PUT", "azar", cuerpo);
}

QJsonObject SimuladorPrueba::estadoAzar() {
    return control("GET", "azar");
}

QJsonObject SimuladorPrueba::pararAzar() {
    return control("DELETE", "azar");
}

void SimuladorPrueba::configurar(qint64 id, const QString& password, int numconfig,
                                 const QJsonObject& documento) {
    control("PUT", "configuracion",
            {{"idEstablecimiento", id},
             {"passwordconfig", password},
             {"numconfig", numconfig},
             {"documento", documento}});
}

void SimuladorPrueba::configurarTexto(qint64 id, const QString& password, int numconfig,
                                      const QByteArray& texto) {
    control("PUT", "configuracion",
            {{"idEstablecimiento", id},
             {"passwordconfig", password},
             {"numconfig", numconfig},
             {"documentoTexto", QString::fromUtf8(texto)}});
}

QJsonObject SimuladorPrueba::documento() {
    const QJsonObject configuracion = control("GET", "configuracion");
    return QJsonDocument::fromJson(configuracion["documentoTexto"].toString().toUtf8()).object();
}

QJsonArray SimuladorPrueba::generarPedidos(int cantidad, quint64 semilla, const QString& clase,
                                           int productos) {
    const QJsonObject cuerpo{{"cantidad", cantidad},
                             {"semilla", qint64(semilla)},
                             {"clase", clase},
                             {"productos", productos}};
    return QJsonDocument::fromJson(
               controlCrudo("POST", "pedidos",
                            QJsonDocument(cuerpo).toJson(QJsonDocument::Compact)))
        .array();
}

QJsonArray SimuladorPrueba::pedidos() {
    return QJsonDocument::fromJson(controlCrudo("GET", "pedidos", {})).array();
}

QJsonObject SimuladorPrueba::crearMensaje(const QJsonObject& mensaje) {
    return control("POST", "mensajes", mensaje);
}

QJsonArray SimuladorPrueba::mensajes() {
    return QJsonDocument::fromJson(controlCrudo("GET", "mensajes", {})).array();
}

bool SimuladorPrueba::esperarPeticion(const QString& ruta, int msMax, int desdeN) {
    const QDeadlineTimer limite(msMax);
    while (true) {
        for (const auto& e : registro()) {
            if (e.n > desdeN && e.ruta == ruta) {
                return true;
            }
        }
        if (limite.hasExpired()) {
            return false;
        }
        // Lets a desk that runs in this process go on while we wait.
        QTest::qWait(20);
    }
}
