// The print-only side of the stand-in service: accepted orders waiting for a desk that only
// prints, the numbers each poll reported as printed ("pedexec"), and the status of orders and
// messages as the status watch asks for it, settable from the control interface to play an
// answer given elsewhere. Not thread-safe on its own: the service calls it under its lock.
#pragma once

#include "Peticiones.h"

#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace simulador {

class ServicioSimulado;

class ImpresionSimulada {
public:
    static constexpr const char* RutaImprimir = "pedidosgprs/pedidosaceptadosimprimir";
    static constexpr const char* RutaEstadoPedido = "pedidosgprs/obtenerEstadoPedido";
    static constexpr const char* RutaEstadoMensaje = "pedidosgprs/obtenerEstadoMensaje";

    struct Consulta {
        std::string PedExec; // as the desk sent it, decoded
        std::string Servido; // the number of the order in the reply, "" for none
        long long Ms = 0;
    };

    // An accepted order waiting to be printed, with its line as the poll gives it.
    void Anadir(const std::string& numero, const std::string& linea);
    // A print poll: every number in "&pedexec=" counts as printed from now on; the reply is
    // the oldest accepted order not printed yet, or the open display when there is none.
    Respuesta Imprimir(const std::string& consulta, long long ms);

    // The status an order or a message has been given by hand ("answered elsewhere").
    void PonerEstadoPedido(const std::string& numero, int estado);
    void PonerEstadoMensaje(long id, int estado, const std::string& respuesta);
    std::optional<int> EstadoPedido(const std::string& numero) const;
    struct EstadoMensaje {
        int Estado = 1;
        std::string Respuesta;
    };
    std::optional<EstadoMensaje> EstadoDeMensaje(long id) const;

    // {"pendientes":[numbers],"impresos":[numbers],"consultas":[{"pedexec","servido","ms"}]}
    nlohmann::json Lista() const;

private:
    struct Aceptado {
        std::string Numero;
        std::string Linea;
    };
    std::vector<Aceptado> pendientes_;
    std::set<std::string> impresos_;
    std::vector<std::string> ordenImpresos_;
    std::vector<Consulta> consultas_;
    std::map<std::string, int> estadosPedido_;
    std::map<long, EstadoMensaje> estadosMensaje_;
};

// Control requests of this side (see README.md): `POST imprimir`, `GET imprimir`,
// `PUT estado`. nullopt for any other resource.
std::optional<Respuesta> AtenderControlImpresion(ServicioSimulado& servicio,
                                                 const std::string& metodo,
                                                 const std::string& recurso,
                                                 const nlohmann::ordered_json& cuerpo);

// Splits "1003,1002,1001" at the commas, dropping blanks around each number and empty pieces.
std::vector<std::string> NumerosPedExec(const std::string& pedexec);

} // namespace simulador
