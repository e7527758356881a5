// simulador: the stand-in for the online ordering service, for the integration tests and
// the demo. Listens on 127.0.0.1 and prints "PUERTO <n>" once it is ready.
//
//   --puerto=N              port, 0 (default) for any free one
//   --parar-con-stdin       also stop when standard input is closed
//   --id= --password= --numconfig=   the establishment served (7, clave, 1)
//   --impresoras-ep=DIR     raw printers write files in DIR
//   --impresoras-tcp=P1,P2,P3       or go to 127.0.0.1:Pn
//   --pedidos-cada=S        queue a new generated order every S seconds (demo)
//   --mensajes-cada=S       queue a customer or operator message every S seconds (demo)
#include "ConfiguracionInicial.h"
#include "FrenteTcp.h"
#include "ServicioSimulado.h"

#include <csignal>
#include <cstring>
#include <iostream>
#include <poll.h>
#include <string>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

struct Opciones {
    int Puerto = 0;
    bool PararConStdin = false;
    std::string Id = "7";
    std::string Password = "clave";
    std::string NumConfig = "1";
    simulador::DestinosImpresoras Impresoras;
    double PedidosCada = 0;
    double MensajesCada = 0;
    int Modo = 0; // the served "modo": 1 and 2 make the demo's orders arrive accepted, to print
};

bool Valor(const std::string& arg, const char* nombre, std::string& valor) {
    const std::string prefijo = std::string(nombre) + "=";
    if (!arg.starts_with(prefijo)) {
        return false;
    }
    valor = arg.substr(prefijo.size());
    return true;
}

bool LeerOpciones(int argc, char** argv, Opciones& o) {
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        std::string v;
        try {
            if (arg == "--parar-con-stdin") {
                o.PararConStdin = true;
            } else if (Valor(arg, "--puerto", v)) {
                o.Puerto = std::stoi(v);
            } else if (Valor(arg, "--id", v)) {
                o.Id = v;
            } else if (Valor(arg, "--password", v)) {
                o.Password = v;
            } else if (Valor(arg, "--numconfig", v)) {
                o.NumConfig = v;
            } else if (Valor(arg, "--impresoras-ep", v)) {
                o.Impresoras.CarpetaEp = v;
            } else if (Valor(arg, "--impresoras-tcp", v)) {
                std::size_t inicio = 0;
                while (inicio <= v.size()) {
                    auto coma = v.find(',', inicio);
                    if (coma == std::string::npos) {
                        coma = v.size();
                    }
                    o.Impresoras.PuertosTcp.push_back(std::stoi(v.substr(inicio, coma - inicio)));
                    inicio = coma + 1;
                }
            } else if (Valor(arg, "--pedidos-cada", v)) {
                o.PedidosCada = std::stod(v);
            } else if (Valor(arg, "--modo", v)) {
                o.Modo = std::stoi(v);
            } else if (Valor(arg, "--mensajes-cada", v)) {
                o.MensajesCada = std::stod(v);
            } else {
                std::cerr << "simulador: opción desconocida: " << arg << "\n";
                return false;
            }
        } catch (const std::exception&) {
            std::cerr << "simulador: valor no válido en " << arg << "\n";
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    Opciones opciones;
    if (!LeerOpciones(argc, argv, opciones)) {
        return 2;
    }

    // The stop signals are taken through a descriptor, before any thread exists, so that
    // no thread is interrupted by them.
    sigset_t senales;
    sigemptyset(&senales);
    sigaddset(&senales, SIGINT);
    sigaddset(&senales, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &senales, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    const int fdSenales = signalfd(-1, &senales, SFD_CLOEXEC);

    auto documento = simulador::DocumentoPorDefecto(opciones.Impresoras);
    documento["modo"] = opciones.Modo;
    const bool soloImprimir = opciones.Modo == 1 || opciones.Modo == 2;
    simulador::ServicioSimulado servicio(
        {opciones.Id, opciones.Password, opciones.NumConfig, documento.dump()});
    simulador::FrenteTcp frente(servicio);
    const int puerto = frente.Escuchar(opciones.Puerto);
    if (puerto < 0) {
        std::cerr << "simulador: no se puede escuchar en el puerto " << opciones.Puerto << ": "
                  << std::strerror(errno) << "\n";
        return 1;
    }
    std::cout << "PUERTO " << puerto << std::endl;

    using Reloj = std::chrono::steady_clock;
    auto siguientePedido = Reloj::now();
    std::uint64_t semilla = 1;
    auto siguienteMensaje =
        Reloj::now() +
        std::chrono::milliseconds(static_cast<long long>(opciones.MensajesCada * 1000));
    std::uint64_t semillaMensaje = 0;
    bool seguir = true;
    while (seguir) {
        pollfd vigilados[2] = {{fdSenales, POLLIN, 0},
                               {opciones.PararConStdin ? STDIN_FILENO : -1, POLLIN, 0}};
        ::poll(vigilados, 2, 200);
        if (vigilados[0].revents != 0) {
            seguir = false;
        }
        if (vigilados[1].revents != 0) {
            char basura[256];
            // End of input (or a broken pipe) is the parent going away.
            if (::read(STDIN_FILENO, basura, sizeof basura) <= 0) {
                seguir = false;
            }
        }
        if (opciones.PedidosCada > 0 && Reloj::now() >= siguientePedido) {
            if (soloImprimir) {
                servicio.GenerarAceptadosParaImprimir(1, semilla++, simulador::ClasePedido::Mezcla,
                                                      0);
            } else {
                servicio.GenerarPedidos(1, semilla++, simulador::ClasePedido::Mezcla, 0, true);
            }
            siguientePedido =
                Reloj::now() +
                std::chrono::milliseconds(static_cast<long long>(opciones.PedidosCada * 1000));
        }
        if (opciones.MensajesCada > 0 && Reloj::now() >= siguienteMensaje) {
            // About the newest accepted order when there is one (a cancellation needs it).
            std::string numero;
            for (const auto& p : servicio.Pedidos()) {
                if (p.Pedido.Estado == "Aceptado") {
                    numero = p.Pedido.NumPedido;
                }
            }
            const auto m = servicio.Mensajes().CrearDeMuestra(semillaMensaje++, numero);
            servicio.Encolar(soloImprimir ? simulador::ImpresionSimulada::RutaImprimir
                                          : "pedidosgprs/pedidosnuevos",
                             {simulador::MensajesSimulados::Cuerpo(m)});
            siguienteMensaje =
                Reloj::now() +
                std::chrono::milliseconds(static_cast<long long>(opciones.MensajesCada * 1000));
        }
    }
    frente.Parar();
    ::close(fdSenales);
    return 0;
}
