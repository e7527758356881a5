#include "update/Procesos.h"

#include "base/ErrorEjecucion.h"
#include "update/Instalador.h"

#include <QEventLoop>
#include <QProcess>
#include <QTimer>

bool ProcesosQt::iniciar(const QString& programa, const QStringList& argumentos) {
    return QProcess::startDetached(programa, argumentos);
}

int ProcesosQt::ejecutarYEsperar(const QString& programa, const QStringList& argumentos,
                                 const QString& carpeta, int msMax) {
    QProcess proceso;
    proceso.setWorkingDirectory(carpeta);
    proceso.setProcessChannelMode(QProcess::ForwardedChannels);
    proceso.start(programa, argumentos);
    if (!proceso.waitForStarted(30000)) {
        throw ErrorEjecucion(errores_shell::NoSeInicia,
                             QStringLiteral("Failed to Shell child process"));
    }
    // Waiting in a local loop keeps the windows painted while the installer works.
    QEventLoop espera;
    QTimer limite;
    limite.setSingleShot(true);
    QObject::connect(&proceso, &QProcess::finished, &espera, &QEventLoop::quit);
    QObject::connect(&limite, &QTimer::timeout, &espera, &QEventLoop::quit);
    limite.start(msMax);
    if (proceso.state() != QProcess::NotRunning) {
        espera.exec();
    }
    if (proceso.state() != QProcess::NotRunning) {
        proceso.kill();
        proceso.waitForFinished(5000);
        // 1460: the system's "time-out" error number.
        throw ErrorEjecucion(errores_shell::SinCodigo,
                             QStringLiteral("Failed to retrieve exit code, error 1460"));
    }
    // A child ended by a signal has no exit code of its own: count it as a failure.
    return proceso.exitStatus() == QProcess::NormalExit ? proceso.exitCode() : -1;
}
