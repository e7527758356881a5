#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

class ModuloPrincipal;
class Procesos;
class Descarga;

// The self-update in its two processes. In the desk: the check and the hand-over to the
// updater copy. In the updater (the copy, started under its own name): the descriptor, the
// download, the installer of an archive, and the restart of the desk. Whatever goes wrong
// in the updater, it ends by starting the desk again, so the counter is never left without
// one. The window side follows the signals.
class Actualizador : public QObject {
    Q_OBJECT
public:
    Actualizador(ModuloPrincipal& m, std::unique_ptr<Procesos> procesos, QObject* padre = nullptr);
    ~Actualizador() override;

    // The command line's "--" options, handed on to the updater and to the restarted desk
    // (where the service is, where the data live).
    QStringList OpcionesPasadas;
    // Ends this process (the desk after starting the updater, the updater at its end).
    std::function<void()> Terminar;
    // How long the updater waits for the old desk to let go of its data folder before it
    // starts the new one.
    int EsperaDeskAnteriorMs = 30000;

    // The check; on an offer taken, the updater starts and this process ends.
    void ComprobarActualizacion(bool manual);
    // Copies the running executable to the updater's name, starts it with the two words and
    // ends this process. A desk the package manager owns is left alone.
    void LanzarActualizador();

    // --- the updater process -------------------------------------------------------
    void IniciarActualizacion(const QStringList& palabras);
    void DescargarEjecutable(const QString& url);
    void DescargarZip(const QString& url);
    void EjecutarInstalador();
    void FinalizarActualizacion(const QString& modo, bool correcto);

    QString ActualizacionSilenciosa;
    QString InstalacionSilenciosa;
    QString ArchivoActualizacion;
    QString IdEstablecimientoArg;
    QString PasswordConfigArg;

    QString rutaPrincipal() const;
    Descarga& Inet1() { return *inet1_; }
    Descarga& Inet2() { return *inet2_; }

Q_SIGNALS:
    void mostrarVentana();
    void ocultarVentana();
    void mostrarPrincipal();
    // Bytes received so far of `total` (-1: not announced).
    void progreso(qint64 recibidos, qint64 total);
    // The caption of the main window's label while the update closes.
    void rotulo(const QString& texto);

private:
    void descargaEjecutable(int resultado, const QString& detalle);
    void descargaZip(int resultado, const QString& detalle);
    // The desk back without a new try in this run, after any failure of the updater.
    void volverSinActualizar();
    void arrancarPrincipal(const QStringList& palabras);
    void terminar();

    ModuloPrincipal& m_;
    std::unique_ptr<Procesos> procesos_;
    Descarga* inet1_;
    Descarga* inet2_;
};
