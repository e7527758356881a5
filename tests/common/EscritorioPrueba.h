#pragma once

#include "common/Esperar.h"

#include <QColor>
#include <QMap>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <functional>

// The real desk executable, started offscreen for an integration test: its own data folder
// and HOME, its message boxes written to a file, and the main window's controls dumped to
// another, so the test can read what a person would see.
class EscritorioPrueba {
public:
    struct Control {
        QString texto;
        bool visible = false;
        bool habilitado = false;
        QColor fondo;
    };
    struct Caja {
        int estilo = 0;
        QString titulo;
        QString texto;
    };

    // `carpeta` empty: a fresh folder of its own.
    explicit EscritorioPrueba(QString carpeta = QString());
    ~EscritorioPrueba();

    // Starts the desk against `servidor` ("host:port/api/"); extra words and options follow.
    bool iniciar(const QString& servidor, const QStringList& argumentos = {},
                 const QStringList& respuestas = {});
    // Waits (bounded) for the process to end; true if it ended, with its exit code.
    bool esperarFin(int msMax, int* codigo = nullptr);
    void terminar();
    bool enMarcha() const { return proceso_.state() != QProcess::NotRunning; }
    qint64 pid() const { return proceso_.processId(); }

    QString carpeta() const { return carpeta_; }
    QString home() const { return home_.path(); }

    QMap<QString, Control> ventana() const;
    QList<Caja> cajas() const;

    // Waits until the window dump satisfies `condicion`, at most msMax.
    bool esperarVentana(const std::function<bool(const QMap<QString, Control>&)>& condicion,
                        int msMax) const;

private:
    QTemporaryDir propia_;
    QTemporaryDir home_;
    QString carpeta_;
    QString volcado_;
    QString registroCajas_;
    QProcess proceso_;
};

// Leaves in `carpeta` the config.txt of an installation already given establishment `id`
// with `clave` and configuration number `numConfig`, so the desk starts into it.
void PrepararEstablecimiento(const QString& carpeta, int id, const QString& clave,
                             int numConfig = 1);
