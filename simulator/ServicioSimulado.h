// The stand-in online ordering service: what it records, what it answers on each path,
// and the knobs (queued replies, faults, configuration, orders) that tests turn.
// Thread-safe: every connection of the front calls in from its own thread.
#pragma once

#include "Actualizaciones.h"
#include "CartaSimulada.h"
#include "CategoriasSimuladas.h"
#include "FallosAlAzar.h"
#include "GeneradorPedidos.h"
#include "ImpresionSimulada.h"
#include "MensajesSimulados.h"
#include "Peticiones.h"

#include <chrono>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace simulador {

class ServicioSimulado {
public:
    struct Entrada {
        long N = 0;
        std::string Esquema; // "http" or "https"
        std::string Ruta;    // path below /api/, "" for an https attempt
        std::string Consulta;
        long long Ms = 0;     // since the service started
        bool Reenvio = false; // the client's own resend of a request a fault cut off
        std::string Fallo;    // the fault it met, if any
        long Pedido = 0;      // the stored order its reply handed out, if any
    };

    struct Fallo {
        // rechazar, colgar, error, vacio, basura, status500, titulo502, http500, cortado
        std::string Tipo;
        double Segundos = 0;
        int Veces = -1;   // -1: until cleared
        std::string Ruta; // empty: every path
    };

    struct Configuracion {
        std::string Id;
        std::string Password;
        std::string NumConfig;
        std::string Documento; // the reply text of a right reading, JSON or not
    };

    struct RespuestaPedido {
        std::string Ak;
        std::string M; // decoded
        std::string Consulta;
        long long Ms = 0;
    };

    struct PedidoGuardado {
        PedidoGenerado Pedido;
        std::vector<RespuestaPedido> Respuestas;
    };

    explicit ServicioSimulado(Configuracion inicial);

    // An https attempt or a request for a service path (not a control request).
    Respuesta Atender(const Peticion& peticion);

    std::vector<Entrada> Registro() const;
    void LimpiarRegistro();
    void Encolar(const std::string& ruta, const std::vector<std::string>& cuerpos);
    void VaciarColas();
    void AnadirFallo(const Fallo& fallo);
    void QuitarFallos();
    void Configurar(const Configuracion& configuracion);
    Configuracion ConfiguracionActual() const;
    // What categoria/find lists (see CategoriasSimuladas.h).
    void PonerCategorias(nlohmann::ordered_json categorias);

    // Generates, stores and queues for the poll; returns the stored orders.
    std::vector<PedidoGuardado> GenerarPedidos(int cantidad, std::uint64_t semilla,
                                               ClasePedido clase, int productos,
                                               bool conHoraActual = false);
    std::vector<PedidoGuardado> Pedidos() const;

    static bool TipoDeFalloValido(const std::string& tipo);

    ActualizacionesSimuladas& Actualizaciones() { return actualizaciones_; }
    // Replaces the menu and its marks; false for a document without categories.
    bool PonerCarta(const nlohmann::ordered_json& documento);
    MensajesSimulados& Mensajes() { return mensajes_; }
    // The print-only side (ImpresionSimulada.cpp): accepted orders queued for the print poll,
    // what it has seen, and statuses set by hand.
    std::vector<PedidoGuardado> GenerarAceptadosParaImprimir(int cantidad, std::uint64_t semilla,
                                                             ClasePedido clase, int productos);
    nlohmann::json Impresion() const;
    void PonerEstadoPedido(const std::string& numero, int estado);
    void PonerEstadoMensaje(long id, int estado, const std::string& respuesta);
    FallosAlAzar& Azar() { return azar_; }

private:
    long long MsDesdeInicio() const;
    bool BuscarFallo(bool https, const std::string& ruta, Fallo& fallo);
    Respuesta RespuestaDeFallo(const Fallo& fallo) const;
    Respuesta Normal(const std::string& ruta, const std::string& consulta);
    bool AtenderImpresion(const std::string& ruta, const std::string& consulta, Respuesta& r);
    std::string TextoApertura();
    bool CredencialesCorrectas(const std::string& consulta, bool conNumConfig) const;
    std::string ConfiguracionAntigua() const;
    std::string Cerrar(const std::string& consulta);
    std::string GuardarImpresora(const std::string& consulta, bool eliminar);
    std::string GuardarGeneral(const std::string& consulta);
    std::string Responder(const std::string& consulta);
    // An order answered (here or at another desk): no poll offers it any more.
    void QuitarDeColas(const std::string& numero);
    PedidoGuardado* Buscar(const std::optional<std::string>& numero);
    std::string Historial(const std::string& ruta, const std::string& consulta) const;

    mutable std::mutex mutex_;
    const std::chrono::steady_clock::time_point inicio_ = std::chrono::steady_clock::now();
    const std::chrono::system_clock::time_point inicioReloj_ = std::chrono::system_clock::now();
    std::vector<Entrada> registro_;
    long siguienteN_ = 1;
    // A queued reply; `Pedido` is the number of the stored order it carries (0: a body
    // queued by hand).
    struct Encolado {
        std::string Cuerpo;
        long Pedido = 0;
    };
    std::map<std::string, std::deque<Encolado>> colas_;
    std::vector<Fallo> fallos_;
    // The last request cut off by a connection fault, to know the client's resend of it.
    struct Corte {
        std::string Objetivo;
        std::chrono::steady_clock::time_point Hasta;
        Fallo Aplicado;
    };
    std::optional<Corte> ultimoCorte_;
    Configuracion configuracion_;
    enum class Apertura { Abierto, CerradoHasta, Cerrado } apertura_ = Apertura::Abierto;
    std::chrono::system_clock::time_point cerradoHasta_;
    std::string textoCerradoHasta_;
    std::map<long, PedidoGuardado> pedidos_;
    nlohmann::ordered_json categorias_ = CategoriasPorDefecto();
    long siguientePedido_ = 1001;
    ActualizacionesSimuladas actualizaciones_;
    CartaSimulada carta_;
    MensajesSimulados mensajes_;
    ImpresionSimulada impresion_;
    FallosAlAzar azar_;
};

} // namespace simulador
