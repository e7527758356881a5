#include "FrenteTcp.h"

#include "ControlSimulador.h"
#include "Respuestas.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace simulador {

namespace {

constexpr int kRodaja = 200;           // ms between looks at the stop flag
constexpr int kEsperaInactiva = 60000; // an idle keep-alive connection is closed after this
constexpr int kEsperaPeticion = 10000; // a request must arrive whole within this
constexpr std::size_t kCabeceraMax = 64 * 1024;
constexpr std::size_t kCuerpoMax = 16 * 1024 * 1024;
constexpr unsigned char kInicioTls = 0x16;

std::string Minusculas(std::string texto) {
    std::transform(texto.begin(), texto.end(), texto.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return texto;
}

const char* Frase(int estado) {
    switch (estado) {
    case 200:
        return "OK";
    case 400:
        return "Bad Request";
    case 404:
        return "Not Found";
    case 500:
        return "Internal Server Error";
    case 502:
        return "Bad Gateway";
    default:
        return "Status";
    }
}

std::string Cabecera(const Respuesta& r, bool cerrar) {
    return "HTTP/1.1 " + std::to_string(r.Estado) + " " + Frase(r.Estado) +
           "\r\nContent-Type: " + r.Tipo +
           "\r\nContent-Length: " + std::to_string(r.Cuerpo.size()) +
           "\r\nConnection: " + (cerrar ? "close" : "keep-alive") + "\r\n\r\n";
}

struct Cabeceras {
    std::string Metodo;
    std::string Objetivo;
    std::string Version;
    std::size_t Longitud = 0;
    bool Cerrar = false;
    bool Continuar = false; // "Expect: 100-continue"
};

bool LeerCabeceras(const std::string& texto, Cabeceras& c) {
    const auto finLinea = texto.find("\r\n");
    const std::string linea = texto.substr(0, finLinea);
    const auto e1 = linea.find(' ');
    const auto e2 = linea.rfind(' ');
    if (e1 == std::string::npos || e2 == e1) {
        return false;
    }
    c.Metodo = linea.substr(0, e1);
    c.Objetivo = linea.substr(e1 + 1, e2 - e1 - 1);
    c.Version = linea.substr(e2 + 1);
    if (c.Objetivo.empty() || !c.Version.starts_with("HTTP/1.")) {
        return false;
    }
    // Absolute form, as sent to a proxy: keep from the path on.
    if (c.Objetivo.starts_with("http://")) {
        const auto barra = c.Objetivo.find('/', 7);
        c.Objetivo = barra == std::string::npos ? "/" : c.Objetivo.substr(barra);
    }
    c.Cerrar = c.Version == "HTTP/1.0";
    std::size_t pos = finLinea + 2;
    while (pos < texto.size()) {
        auto fin = texto.find("\r\n", pos);
        if (fin == std::string::npos) {
            fin = texto.size();
        }
        const std::string campo = texto.substr(pos, fin - pos);
        pos = fin + 2;
        const auto dos = campo.find(':');
        if (dos == std::string::npos) {
            continue;
        }
        const std::string nombre = Minusculas(Recortar(campo.substr(0, dos)));
        const std::string valor = Minusculas(Recortar(campo.substr(dos + 1)));
        if (nombre == "content-length") {
            try {
                c.Longitud = std::stoul(valor);
            } catch (const std::exception&) {
                return false;
            }
        } else if (nombre == "expect") {
            c.Continuar = valor == "100-continue";
        } else if (nombre == "connection") {
            if (valor == "close") {
                c.Cerrar = true;
            } else if (valor == "keep-alive") {
                c.Cerrar = false;
            }
        }
    }
    return true;
}

} // namespace

FrenteTcp::FrenteTcp(ServicioSimulado& servicio) : servicio_(servicio) {}

FrenteTcp::~FrenteTcp() {
    Parar();
}

int FrenteTcp::Escuchar(int puerto) {
    escucha_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (escucha_ < 0) {
        return -1;
    }
    const int si = 1;
    ::setsockopt(escucha_, SOL_SOCKET, SO_REUSEADDR, &si, sizeof si);
    sockaddr_in direccion{};
    direccion.sin_family = AF_INET;
    direccion.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    direccion.sin_port = htons(static_cast<std::uint16_t>(puerto));
    if (::bind(escucha_, reinterpret_cast<sockaddr*>(&direccion), sizeof direccion) != 0 ||
        ::listen(escucha_, 64) != 0) {
        const int e = errno;
        ::close(escucha_);
        escucha_ = -1;
        errno = e;
        return -1;
    }
    socklen_t largo = sizeof direccion;
    ::getsockname(escucha_, reinterpret_cast<sockaddr*>(&direccion), &largo);
    aceptador_ = std::thread([this] { Aceptar(); });
    return ntohs(direccion.sin_port);
}

void FrenteTcp::Parar() {
    {
        std::lock_guard bloqueo(mutex_);
        if (parar_.exchange(true)) {
            return;
        }
        for (auto& c : conexiones_) {
            if (c.Fd >= 0) {
                ::shutdown(c.Fd, SHUT_RDWR);
            }
        }
    }
    aviso_.notify_all();
    if (aceptador_.joinable()) {
        aceptador_.join();
    }
    RecogerTerminadas(true);
    if (escucha_ >= 0) {
        ::close(escucha_);
        escucha_ = -1;
    }
}

void FrenteTcp::Aceptar() {
    while (!parar_) {
        RecogerTerminadas(false);
        pollfd p{escucha_, POLLIN, 0};
        if (::poll(&p, 1, kRodaja) <= 0) {
            continue;
        }
        const int fd = ::accept4(escucha_, nullptr, nullptr, SOCK_CLOEXEC);
        if (fd < 0) {
            continue;
        }
        std::lock_guard bloqueo(mutex_);
        if (parar_) {
            ::close(fd);
            break;
        }
        auto terminada = std::make_shared<std::atomic<bool>>(false);
        conexiones_.push_back({std::thread([this, fd, terminada] {
                                   Atender(fd);
                                   *terminada = true;
                               }),
                               fd, terminada});
    }
}

void FrenteTcp::RecogerTerminadas(bool todas) {
    std::list<Conexion> listas;
    {
        std::lock_guard bloqueo(mutex_);
        for (auto it = conexiones_.begin(); it != conexiones_.end();) {
            if (todas || *it->Terminada) {
                listas.splice(listas.end(), conexiones_, it++);
            } else {
                ++it;
            }
        }
    }
    for (auto& c : listas) {
        c.Hilo.join();
    }
}

bool FrenteTcp::EsperarLectura(int fd, int msMax) const {
    const auto limite = std::chrono::steady_clock::now() + std::chrono::milliseconds(msMax);
    while (!parar_) {
        const auto quedan = std::chrono::duration_cast<std::chrono::milliseconds>(
                                limite - std::chrono::steady_clock::now())
                                .count();
        if (quedan <= 0) {
            return false;
        }
        pollfd p{fd, POLLIN, 0};
        const int n = ::poll(&p, 1, static_cast<int>(std::min<long long>(quedan, kRodaja)));
        if (n > 0) {
            return true;
        }
        if (n < 0 && errno != EINTR) {
            return false;
        }
    }
    return false;
}

bool FrenteTcp::LeerMas(int fd, std::string& bufer, int msMax) const {
    if (!EsperarLectura(fd, msMax)) {
        return false;
    }
    char trozo[16 * 1024];
    const ssize_t n = ::recv(fd, trozo, sizeof trozo, 0);
    if (n <= 0) {
        return false;
    }
    bufer.append(trozo, static_cast<std::size_t>(n));
    return true;
}

bool FrenteTcp::Escribir(int fd, const std::string& datos) const {
    std::size_t hecho = 0;
    while (hecho < datos.size() && !parar_) {
        pollfd p{fd, POLLOUT, 0};
        if (::poll(&p, 1, kEsperaPeticion) <= 0) {
            return false;
        }
        const ssize_t n = ::send(fd, datos.data() + hecho, datos.size() - hecho, MSG_NOSIGNAL);
        if (n <= 0) {
            return false;
        }
        hecho += static_cast<std::size_t>(n);
    }
    return hecho == datos.size();
}

void FrenteTcp::Retener(double segundos) {
    std::unique_lock bloqueo(mutex_);
    aviso_.wait_for(bloqueo, std::chrono::duration<double>(segundos),
                    [this] { return parar_.load(); });
}

void FrenteTcp::Atender(int fd) {
    bool abortar = true;
    try {
        abortar = AtenderPeticiones(fd);
    } catch (const std::exception& e) {
        // One bad request must not take the service down with it.
        std::fprintf(stderr, "simulador: conexión abandonada: %s\n", e.what());
    }
    std::lock_guard bloqueo(mutex_);
    if (abortar) {
        // A reset, not an orderly end: HTTP clients resend a request silently when the
        // server merely closes an idle-looking connection, and the fault would never show.
        const linger corte{1, 0};
        ::setsockopt(fd, SOL_SOCKET, SO_LINGER, &corte, sizeof corte);
    } else {
        ::shutdown(fd, SHUT_RDWR);
    }
    // Closed under the lock, and forgotten, so that Parar never shuts down a descriptor
    // number that has been reused meanwhile.
    for (auto& c : conexiones_) {
        if (c.Fd == fd) {
            c.Fd = -1;
        }
    }
    ::close(fd);
}

bool FrenteTcp::AtenderPeticiones(int fd) {
    std::string bufer;
    bool primera = true;
    while (!parar_) {
        if (bufer.empty() && !LeerMas(fd, bufer, primera ? kEsperaPeticion : kEsperaInactiva)) {
            return false;
        }
        if (primera && static_cast<unsigned char>(bufer[0]) == kInicioTls) {
            Peticion intento;
            intento.Https = true;
            const auto r = servicio_.Atender(intento);
            if (r.Que == Respuesta::Accion::Colgar) {
                Retener(r.Segundos);
            }
            // Without a fault the attempt just ends, as a failed handshake does.
            return r.Que == Respuesta::Accion::Colgar || r.Falla;
        }
        primera = false;

        std::size_t finCabecera;
        while ((finCabecera = bufer.find("\r\n\r\n")) == std::string::npos) {
            if (bufer.size() > kCabeceraMax || !LeerMas(fd, bufer, kEsperaPeticion)) {
                return false;
            }
        }
        Cabeceras c;
        if (!LeerCabeceras(bufer.substr(0, finCabecera), c) || c.Longitud > kCuerpoMax) {
            Respuesta mala;
            mala.Estado = 400;
            mala.Cuerpo = "peticion mal formada";
            Escribir(fd, Cabecera(mala, true) + mala.Cuerpo);
            return false;
        }
        bufer.erase(0, finCabecera + 4);
        if (c.Continuar && bufer.size() < c.Longitud &&
            !Escribir(fd, "HTTP/1.1 100 Continue\r\n\r\n")) {
            return false;
        }
        while (bufer.size() < c.Longitud) {
            if (!LeerMas(fd, bufer, kEsperaPeticion)) {
                return false;
            }
        }
        Peticion peticion;
        peticion.Metodo = c.Metodo;
        peticion.Objetivo = c.Objetivo;
        peticion.Cuerpo = bufer.substr(0, c.Longitud);
        bufer.erase(0, c.Longitud);

        const auto r = peticion.Objetivo.starts_with(kPrefijoControl)
                           ? AtenderControl(servicio_, peticion)
                           : servicio_.Atender(peticion);
        if (r.Que == Respuesta::Accion::Cerrar) {
            return true;
        }
        if (r.Que == Respuesta::Accion::Colgar) {
            Retener(r.Segundos);
            return true;
        }
        if (r.CortarTras < r.Cuerpo.size()) {
            Escribir(fd, Cabecera(r, true) + r.Cuerpo.substr(0, r.CortarTras));
            Retener(r.Segundos); // a stall before the cut, when asked
            return true;
        }
        if (!Escribir(fd, Cabecera(r, c.Cerrar) + r.Cuerpo) || c.Cerrar) {
            return false;
        }
    }
    return false;
}

} // namespace simulador
