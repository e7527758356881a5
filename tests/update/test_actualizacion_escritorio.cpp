// The real desk in a temporary installation folder, against the stand-in service: it turns
// into its updater copy, downloads, replaces itself and comes back, or keeps what it had.
// (The archive route is run with real installers in test_actualizador.)
#include "common/EscritorioPrueba.h"
#include "update/ServicioActualizacion.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTest>
#include <csignal>
#include <gtest/gtest.h>

namespace {

// A stand-in for a newer desk: answers --version, and notes how it was started.
QByteArray NuevoEjecutable(const char* version, qsizetype relleno) {
    QByteArray s = QByteArray("#!/bin/sh\n"
                              "if [ \"$1\" = \"--version\" ]; then echo \"TarvimentaPedidos ") +
                   version +
                   "\"; exit 0; fi\n"
                   "echo \"$@\" > \"$(dirname \"$0\")/arrancado.txt\"\nexit 0\n";
    // Padding after the exit, so the transfer is a real one.
    return s + "#" + QByteArray(relleno, 'x') + "\n";
}

struct Instalacion : ::testing::Test {
    SimuladorPrueba sim;
    QTemporaryDir servidos;
    QTemporaryDir carpeta;
    QTemporaryDir home;
    QString exe = carpeta.filePath(QStringLiteral("TarvimentaPedidos"));
    QString cajas = home.filePath(QStringLiteral("cajas.txt"));
    QProcess desk;

    void SetUp() override {
        ASSERT_TRUE(sim.enMarcha());
        ASSERT_TRUE(QFile::copy(QStringLiteral(TARVIMENTA_EXE), exe));
        PrepararEstablecimiento(carpeta.path(), 7, QStringLiteral("clave"));
    }

    void TearDown() override {
        if (desk.state() != QProcess::NotRunning) {
            desk.kill();
            desk.waitForFinished(5000);
        }
        PararEscritorioReiniciado();
    }

    void Configurar(bool comprobarActualizar) {
        QJsonObject doc = sim.documento();
        doc[QStringLiteral("comprobaractualizar")] = comprobarActualizar ? 1 : 0;
        sim.configurar(7, QStringLiteral("clave"), 1, doc);
    }

    QString Descriptor(const QString& archivo, const char* forzada = "false") const {
        return QStringLiteral("#0*%1*%2*%3*false*false#")
            .arg(UrlDescargas(sim), archivo, QLatin1String(forzada));
    }

    bool Arrancar(const QStringList& respuestas) {
        QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
        entorno.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        entorno.insert(QStringLiteral("HOME"), home.path());
        entorno.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral(".config")));
        entorno.remove(QStringLiteral("TARVIMENTA_SERVIDOR"));
        entorno.remove(QStringLiteral("TARVIMENTA_CARPETA"));
        desk.setProcessEnvironment(entorno);
        desk.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        desk.start(
            exe, QStringList{QStringLiteral("--servidor=") + sim.base(),
                             QStringLiteral("--carpeta=") + carpeta.path(),
                             QStringLiteral("--cajas=") + cajas,
                             QStringLiteral("--respuestas=") + respuestas.join(QLatin1Char(','))});
        return desk.waitForStarted(10000);
    }

    QString Version() const {
        QProcess p;
        p.start(exe, {QStringLiteral("--version")});
        return p.waitForFinished(10000) ? QString::fromUtf8(p.readAllStandardOutput()).trimmed()
                                        : QStringLiteral("<sin respuesta>");
    }

    QStringList TextosDeCajas() const {
        QStringList r;
        for (const QByteArray& l : LeerFichero(cajas).split('\n')) {
            if (!l.isEmpty()) {
                r.append(QString::fromUtf8(l).section(QLatin1Char('\t'), 2));
            }
        }
        return r;
    }

    int Peticiones(const QString& ruta) { return static_cast<int>(sim.consultas(ruta).size()); }

    // A desk restarted by the updater runs on its own: stop it through its lock's owner.
    void PararEscritorioReiniciado() {
        const QString cerrojo = carpeta.filePath(QStringLiteral(".TarvimentaPedidos.lock"));
        const qint64 pid = LeerFichero(cerrojo).split('\n').value(0).toLongLong();
        if (pid > 0 && pid != QCoreApplication::applicationPid()) {
            ::kill(static_cast<pid_t>(pid), SIGTERM);
            EsperarHasta([&] { return !QFileInfo::exists(cerrojo); }, 10000);
        }
    }
};

TEST_F(Instalacion, UnaVersionNuevaSeOfreceSeDescargaYArrancaLaNueva) {
    Configurar(true);
    const QByteArray nuevo = NuevoEjecutable("1.7.0", 8 * 1024 * 1024);
    ASSERT_TRUE(ServirFichero(sim, servidos, QStringLiteral("TarvimentaPedidos.exe"), nuevo));
    ASSERT_TRUE(PonerActualizacion(sim, {{QStringLiteral("version"), QStringLiteral("1.7.0")},
                                         {QStringLiteral("descriptor"),
                                          Descriptor(QStringLiteral("TarvimentaPedidos.exe"))}}));
    ASSERT_EQ(Version(), QStringLiteral("TarvimentaPedidos 1.6.2"));

    ASSERT_TRUE(Arrancar({QStringLiteral("si")}));
    // The desk hands over to its updater copy and ends by itself.
    ASSERT_TRUE(desk.waitForFinished(30000));
    const QString arrancado = carpeta.filePath(QStringLiteral("arrancado.txt"));
    ASSERT_TRUE(EsperarHasta([&] { return QFileInfo::exists(arrancado); }, 60000));

    EXPECT_EQ(Version(), QStringLiteral("TarvimentaPedidos 1.7.0"));
    EXPECT_TRUE(LeerFichero(exe) == nuevo);
    EXPECT_TRUE(QFileInfo(carpeta.filePath(QStringLiteral("TVU"))).isExecutable());
    // Restarted plain (no "noactualizar"), with the options it was started with.
    EXPECT_TRUE(LeerFichero(arrancado).startsWith("--servidor=" + sim.base().toUtf8()))
        << LeerFichero(arrancado).toStdString();
    EXPECT_EQ(TextosDeCajas(),
              (QStringList{QStringLiteral("Hay una nueva actualización disponible, le recomendamos "
                                          "actualizar el programa ahora, pulse Sí para iniciar la "
                                          "actualización."),
                           QStringLiteral("La actualización ha finalizado. Pulse aceptar para "
                                          "abrir el programa ahora.")}));
    EXPECT_EQ(Peticiones(QStringLiteral("pedidosgprs/obtenerUltimaVersionVB")), 1);
    EXPECT_EQ(Peticiones(QStringLiteral("pedidosGPRS/obtenerDatosActualizacionVB")), 2);
}

} // namespace
