// The same ticket through the real destinations: a TCP listener, a file, a serial port (a
// pseudo-terminal pair) and ports that don't exist. Every wait is bounded.
#include "common/EscritorioPruebaEP.h"
#include "printing/CanalEP.h"
#include "printing/TicketClienteEP.h"
#include "printing/TicketCocinaEP.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSerialPort>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

namespace {

class CanalDestinos : public EscritorioPrueba {
protected:
    CanalDestinos() {
        pedidoDomicilio();
        // The bytes this ticket has, captured in memory once.
        ImprimirTicketEP(m, impresoraEP("Barra", "referencia"));
        referencia = captura.bytes("referencia");
        m.canalEP().setAbridor([](const QString& c) { return AbrirDestinoEP(c); });
    }

    QByteArray referencia;
};

// Reads one accepted connection until its peer closes it.
QByteArray leerConexion(QTcpServer& servidor) {
    if (!servidor.hasPendingConnections() && !servidor.waitForNewConnection(5000)) {
        return {};
    }
    QTcpSocket* s = servidor.nextPendingConnection();
    QByteArray datos;
    QDeadlineTimer plazo(5000);
    while (!plazo.hasExpired()) {
        datos += s->readAll();
        if (s->state() != QAbstractSocket::ConnectedState) {
            break;
        }
        s->waitForReadyRead(200);
    }
    datos += s->readAll();
    delete s;
    return datos;
}

TEST_F(CanalDestinos, TcpUnaConexionPorCopia) {
    ASSERT_FALSE(referencia.isEmpty());
    QTcpServer servidor;
    ASSERT_TRUE(servidor.listen(QHostAddress::LocalHost, 0));
    const QString puerto = QString::number(servidor.serverPort());

    ImprimirTicketEP(m, impresoraEP("Barra", "127.0.0.1:" + puerto));
    ImprimirTicketEP(m, impresoraEP("Barra", "tcp://localhost:" + puerto));
    EXPECT_EQ(leerConexion(servidor), referencia);
    EXPECT_EQ(leerConexion(servidor), referencia);
    EXPECT_TRUE(boxes().isEmpty());
}

TEST_F(CanalDestinos, PuertoQueFaltaDaLaCajaNoDejaFicheroYElSiguienteTicketSaleIgual) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    // Run from an empty folder: a name taken for a file would show up in it.
    const QString antes = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(dir.path()));
    const QStringList conexiones = {"/nonexistent/dev/impresora",
                                    "COM9:9600,n,8,1",
                                    "\\\\MOSTRADOR\\ColaQueNoExiste",
                                    "COM2:9600,z,8,1",
                                    "LPT7",
                                    "USB009",
                                    "ColaQueNoExiste",
                                    "tickets/barra.bin",
                                    "/dev/impresora-que-no-existe"};
    for (const QString& conexion : conexiones) {
        ImprimirTicketEP(m, impresoraEP("Barra", conexion));
    }
    const QStringList quedan = QDir(dir.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    QDir::setCurrent(antes);
    EXPECT_TRUE(quedan.isEmpty()) << quedan.join(' ').toStdString();
    EXPECT_FALSE(QFileInfo::exists("/dev/impresora-que-no-existe")) << "a device is never made";
    const QList<RegistroCajas::Caja> c = boxes();
    ASSERT_EQ(c.size(), conexiones.size());
    for (qsizetype i = 0; i < c.size(); ++i) {
        EXPECT_EQ(c[i].texto, u"La conexión indicada para la impresora Barra no se corresponde con "
                              u"ningún puerto de impresora."_qs)
            << conexiones[i].toStdString();
        EXPECT_EQ(c[i].estilo, estilo::SoloAceptar);
        EXPECT_TRUE(c[i].titulo.isEmpty());
    }

    // A file is written from nothing, over a longer one left before.
    const QString ruta = dir.filePath("cocina.bin");
    {
        QFile previo(ruta);
        ASSERT_TRUE(previo.open(QIODevice::WriteOnly));
        previo.write(QByteArray(5000, 'x'));
    }
    ImprimirTicketEP(m, impresoraEP("Cocina", ruta));
    EXPECT_EQ(boxes().size(), conexiones.size()) << "no further box";
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), referencia);
}

TEST_F(CanalDestinos, EscrituraQueFallaCierraElCanal) {
    ImprimirTicketEP(m, impresoraEP("Barra", "/dev/full"));
    ASSERT_EQ(boxes().size(), 1);
    EXPECT_EQ(boxes()[0].texto,
              "Se ha producido un error. Tipo de error = 61. Descripción: Disco lleno");
    EXPECT_FALSE(m.canalEP().abierto());

    QTemporaryDir dir;
    const QString ruta = dir.filePath("otra.bin");
    ImprimirTicketEP(m, impresoraEP("Barra", ruta));
    EXPECT_EQ(boxes().size(), 1) << "the next ticket isn't refused as already open";
    EXPECT_EQ(QFileInfo(ruta).size(), referencia.size());
}

TEST_F(CanalDestinos, PuertoSerieDeUnParDePseudoterminales) {
    const QString socat = QStandardPaths::findExecutable("socat");
    if (socat.isEmpty()) {
        GTEST_SKIP() << "socat is not installed";
    }
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString impresora = dir.filePath("impresora");
    const QString lector = dir.filePath("lector");
    QProcess puente;
    puente.start(socat, {"pty,raw,echo=0,link=" + impresora, "pty,raw,echo=0,link=" + lector});
    ASSERT_TRUE(puente.waitForStarted(5000));
    QDeadlineTimer listo(5000);
    while (!(QFileInfo::exists(impresora) && QFileInfo::exists(lector)) && !listo.hasExpired()) {
        QTest::qWait(20);
    }
    ASSERT_TRUE(QFileInfo::exists(impresora) && QFileInfo::exists(lector));

    QSerialPort lectura;
    lectura.setPortName(lector);
    ASSERT_TRUE(lectura.open(QIODevice::ReadOnly)) << lectura.errorString().toStdString();

    ImprimirTicketEP(m, impresoraEP("Barra", impresora + ":9600,n,8,1"));
    EXPECT_TRUE(boxes().isEmpty()) << boxes().value(0).texto.toStdString();

    QByteArray recibido;
    QDeadlineTimer plazo(5000);
    while (recibido.size() < referencia.size() && !plazo.hasExpired()) {
        if (lectura.waitForReadyRead(200)) {
            recibido += lectura.readAll();
        }
    }
    recibido += lectura.readAll();
    EXPECT_EQ(recibido, referencia);
    lectura.close();
    puente.kill();
    puente.waitForFinished(5000);
}

} // namespace
