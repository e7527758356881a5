#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <memory>

// Where the bytes of one ticket copy go: a serial port, a socket, a print queue, a file.
// Every failure is an ErrorEjecucion.
class DestinoEP {
public:
    virtual ~DestinoEP() = default;
    virtual void escribir(const QByteArray& bytes) = 0;
    // Sends what is pending, waits (bounded) until it is out, and closes.
    virtual void cerrar() = 0;
    // Closes at once after a failure, dropping what is pending; never throws.
    virtual void abortar() noexcept = 0;
};

// How long a copy may wait on its printer: to connect (a network printer) and to get its
// bytes taken once written (any port).
struct PlazosEP {
    int conexionMs = 5000;
    int escrituraMs = 15000;
};

// Opens the destination an EPConexion names; a port, device, queue or host that can't be
// opened or reached is error 53. A print queue that is stopped or refuses jobs is error 482
// with the queue's state as its text.
std::unique_ptr<DestinoEP> AbrirDestinoEP(const QString& conexion, PlazosEP plazos = {});

// The one channel of raw ticket printing: at most one ticket open at a time. Tests replace
// the opener to capture the bytes in memory.
class CanalEP {
public:
    using Abridor = std::function<std::unique_ptr<DestinoEP>(const QString& conexion)>;

    CanalEP();
    ~CanalEP();

    void setAbridor(Abridor abridor) { abridor_ = std::move(abridor); }

    // Error 55 when a ticket is already open.
    void Abrir(const QString& conexion);
    void Escribir(const QByteArray& bytes);
    void Cerrar();
    // After a failure: the channel is closed anyway so that the next ticket can open it.
    void Abortar() noexcept;
    bool abierto() const { return destino_ != nullptr; }

private:
    Abridor abridor_;
    std::unique_ptr<DestinoEP> destino_;
};

// A destination that keeps the bytes in memory: each copy appends to `*bytes`, and
// `*cierres` counts the copies closed normally.
class DestinoMemoria : public DestinoEP {
public:
    DestinoMemoria(std::shared_ptr<QByteArray> bytes, std::shared_ptr<int> cierres)
        : bytes_(std::move(bytes)), cierres_(std::move(cierres)) {}
    void escribir(const QByteArray& b) override { bytes_->append(b); }
    void cerrar() override { ++*cierres_; }
    void abortar() noexcept override {}

private:
    std::shared_ptr<QByteArray> bytes_;
    std::shared_ptr<int> cierres_;
};
