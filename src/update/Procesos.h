#pragma once

#include <QString>
#include <QStringList>

// Starting other programs: the updater copy, the restarted desk, the installer of an
// archive. One small interface so that tests can record what would have been started.
class Procesos {
public:
    virtual ~Procesos() = default;
    // Starts a program that goes on by itself. False when it could not be started.
    virtual bool iniciar(const QString& programa, const QStringList& argumentos) = 0;
    // Runs a program in `carpeta`, waits for its end and returns its exit code. Throws
    // ErrorEjecucion (see ShellSync) when it cannot be started or does not end within
    // `msMax`, in which case it is killed.
    virtual int ejecutarYEsperar(const QString& programa, const QStringList& argumentos,
                                 const QString& carpeta, int msMax) = 0;
};

class ProcesosQt : public Procesos {
public:
    bool iniciar(const QString& programa, const QStringList& argumentos) override;
    int ejecutarYEsperar(const QString& programa, const QStringList& argumentos,
                         const QString& carpeta, int msMax) override;
};
