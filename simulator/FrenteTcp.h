// The listening side of the stand-in: plain TCP on 127.0.0.1, one thread per connection.
// The first byte of a connection tells a TLS handshake (recorded as an https attempt and
// closed) from HTTP. HTTP/1.1 is read here, keep-alive included, and the request target is
// handed on exactly as it came: the desk writes free texts raw into its queries (a second
// "?", for instance), which a strict HTTP library refuses before any handler sees them.
#pragma once

#include "ServicioSimulado.h"

#include <atomic>
#include <condition_variable>
#include <list>
#include <memory>
#include <mutex>
#include <thread>

namespace simulador {

class FrenteTcp {
public:
    explicit FrenteTcp(ServicioSimulado& servicio);
    ~FrenteTcp();
    FrenteTcp(const FrenteTcp&) = delete;
    FrenteTcp& operator=(const FrenteTcp&) = delete;

    // Binds 127.0.0.1:puerto (0: any free port) and starts accepting. Returns the port,
    // or -1 with errno set.
    int Escuchar(int puerto);
    // Closes every connection, waits for their threads. Held connections are let go.
    void Parar();

private:
    struct Conexion {
        std::thread Hilo;
        int Fd = -1;
        std::shared_ptr<std::atomic<bool>> Terminada;
    };

    void Aceptar();
    void Atender(int fd);
    // True when the connection must end in a reset (a fault), false for an orderly end.
    bool AtenderPeticiones(int fd);
    void RecogerTerminadas(bool todas);
    bool EsperarLectura(int fd, int msMax) const;
    bool LeerMas(int fd, std::string& bufer, int msMax) const;
    bool Escribir(int fd, const std::string& datos) const;
    void Retener(double segundos);

    ServicioSimulado& servicio_;
    std::atomic<bool> parar_{false};
    int escucha_ = -1;
    std::thread aceptador_;
    std::mutex mutex_;
    std::condition_variable aviso_;
    std::list<Conexion> conexiones_;
};

} // namespace simulador
