#include "ImpresionSimulada.h"

#include "ControlSimulador.h"
#include "Respuestas.h"
#include "ServicioSimulado.h"

#include <algorithm>
#include <ctime>

namespace simulador {

namespace {

using json = nlohmann::ordered_json;

} // namespace

std::vector<std::string> NumerosPedExec(const std::string& pedexec) {
    std::vector<std::string> numeros;
    std::size_t inicio = 0;
    while (inicio <= pedexec.size()) {
        auto coma = pedexec.find(',', inicio);
        if (coma == std::string::npos) {
            coma = pedexec.size();
        }
        std::string numero = Recortar(pedexec.substr(inicio, coma - inicio));
        if (!numero.empty()) {
            numeros.push_back(std::move(numero));
        }
        inicio = coma + 1;
    }
    return numeros;
}

void ImpresionSimulada::Anadir(const std::string& numero, const std::string& linea) {
    pendientes_.push_back({numero, linea});
}

Respuesta ImpresionSimulada::Imprimir(const std::string& consulta, long long ms) {
    Consulta c;
    c.PedExec = Parametro(consulta, "pedexec").value_or("");
    c.Ms = ms;
    for (const auto& numero : NumerosPedExec(c.PedExec)) {
        if (impresos_.insert(numero).second) {
            ordenImpresos_.push_back(numero);
        }
    }
    std::erase_if(pendientes_, [&](const Aceptado& a) { return impresos_.contains(a.Numero); });
    Respuesta r;
    if (pendientes_.empty()) {
        // What the new-order poll would say; a print-only desk must ignore it.
        r.Cuerpo = "estadoapertura:Abierto";
    } else {
        c.Servido = pendientes_.front().Numero;
        r.Cuerpo = "#" + pendientes_.front().Linea + "#";
    }
    consultas_.push_back(std::move(c));
    return r;
}

void ImpresionSimulada::PonerEstadoPedido(const std::string& numero, int estado) {
    estadosPedido_[numero] = estado;
}

void ImpresionSimulada::PonerEstadoMensaje(long id, int estado, const std::string& respuesta) {
    estadosMensaje_[id] = {estado, respuesta};
}

std::optional<int> ImpresionSimulada::EstadoPedido(const std::string& numero) const {
    const auto it = estadosPedido_.find(numero);
    return it == estadosPedido_.end() ? std::nullopt : std::optional<int>(it->second);
}

std::optional<ImpresionSimulada::EstadoMensaje> ImpresionSimulada::EstadoDeMensaje(long id) const {
    const auto it = estadosMensaje_.find(id);
    return it == estadosMensaje_.end() ? std::nullopt : std::optional<EstadoMensaje>(it->second);
}

nlohmann::json ImpresionSimulada::Lista() const {
    nlohmann::json pendientes = nlohmann::json::array();
    for (const auto& p : pendientes_) {
        pendientes.push_back(p.Numero);
    }
    nlohmann::json consultas = nlohmann::json::array();
    for (const auto& c : consultas_) {
        consultas.push_back({{"pedexec", c.PedExec}, {"servido", c.Servido}, {"ms", c.Ms}});
    }
    return {{"pendientes", pendientes}, {"impresos", ordenImpresos_}, {"consultas", consultas}};
}

// Members of the service that belong to the print-only side; called under its lock.

bool ServicioSimulado::AtenderImpresion(const std::string& ruta, const std::string& consulta,
                                        Respuesta& r) {
    if (ruta == ImpresionSimulada::RutaImprimir) {
        r = impresion_.Imprimir(consulta, MsDesdeInicio());
        return true;
    }
    if (ruta == ImpresionSimulada::RutaEstadoPedido) {
        const auto numero = Parametro(consulta, "idPedidoEst").value_or("");
        if (const auto estado = impresion_.EstadoPedido(numero)) {
            r.Cuerpo = "#" + std::to_string(*estado) + "#";
        } else if (const auto* p = Buscar(numero)) {
            r.Cuerpo = p->Respuestas.empty() ? "#1#" : "#2#";
        }
        return true;
    }
    if (ruta == ImpresionSimulada::RutaEstadoMensaje) {
        long id = 0;
        try {
            id = std::stol(Parametro(consulta, "idMensaje").value_or(""));
        } catch (const std::exception&) {
            return true; // no such message: an empty body
        }
        MensajesSimulados::Mensaje m;
        if (const auto estado = impresion_.EstadoDeMensaje(id)) {
            r.Cuerpo = "#" + std::to_string(estado->Estado) + ";" + estado->Respuesta + "#";
        } else if (mensajes_.Buscar(id, m)) {
            r.Cuerpo = m.Respuestas.empty() ? "#1;#" : "#2;" + m.Respuestas.back().Mr + "#";
        }
        return true;
    }
    return false;
}

std::vector<ServicioSimulado::PedidoGuardado>
ServicioSimulado::GenerarAceptadosParaImprimir(int cantidad, std::uint64_t semilla,
                                               ClasePedido clase, int productos) {
    std::vector<PedidoGuardado> nuevos;
    std::lock_guard bloqueo(mutex_);
    for (int i = 0; i < cantidad; ++i) {
        PedidoGuardado guardado;
        auto& p = guardado.Pedido;
        p = GenerarPedido(semilla + static_cast<std::uint64_t>(i), clase, productos);
        p.NumPedido = std::to_string(siguientePedido_);
        p.Origen = configuracion_.Id;
        // Accepted at another desk or on the service's panel, with the usual half hour.
        p.Estado = "Aceptado";
        p.TiempoOMotivo = "30";
        p.HoraAceptacion = FechaHoraServicio(std::chrono::system_clock::now());
        p.RealizadoEl = p.HoraAceptacion.substr(0, p.HoraAceptacion.rfind(':'));
        pedidos_[siguientePedido_++] = guardado;
        impresion_.Anadir(p.NumPedido, LineaPedido(p));
        nuevos.push_back(std::move(guardado));
    }
    return nuevos;
}

nlohmann::json ServicioSimulado::Impresion() const {
    std::lock_guard bloqueo(mutex_);
    return impresion_.Lista();
}

void ServicioSimulado::PonerEstadoPedido(const std::string& numero, int estado) {
    std::lock_guard bloqueo(mutex_);
    impresion_.PonerEstadoPedido(numero, estado);
    if (estado >= 2) {
        QuitarDeColas(numero);
    }
}

void ServicioSimulado::PonerEstadoMensaje(long id, int estado, const std::string& respuesta) {
    std::lock_guard bloqueo(mutex_);
    impresion_.PonerEstadoMensaje(id, estado, respuesta);
}

std::optional<Respuesta> AtenderControlImpresion(ServicioSimulado& servicio,
                                                 const std::string& metodo,
                                                 const std::string& recurso,
                                                 const nlohmann::ordered_json& cuerpo) {
    if (recurso == "imprimir" && metodo == "POST") {
        ClasePedido clase = ClasePedido::Mezcla;
        if (!LeerClasePedido(cuerpo.value("clase", std::string("mezcla")), clase)) {
            return RespuestaTexto(400, "clase de pedido desconocida");
        }
        const int cantidad = cuerpo.value("cantidad", 1);
        if (cantidad < 0 || cantidad > 10000) {
            return RespuestaTexto(400, "cantidad fuera de límites");
        }
        json lista = json::array();
        for (const auto& p : servicio.GenerarAceptadosParaImprimir(
                 cantidad, cuerpo.value("semilla", 1ULL), clase, cuerpo.value("productos", 0))) {
            lista.push_back({{"numero", p.Pedido.NumPedido}, {"linea", LineaPedido(p.Pedido)}});
        }
        return RespuestaJson(lista);
    }
    if (recurso == "imprimir" && metodo == "GET") {
        return RespuestaJson(servicio.Impresion());
    }
    if (recurso == "estado" && metodo == "PUT") {
        if (!cuerpo.contains("estado") || !cuerpo["estado"].is_number_integer() ||
            cuerpo.contains("pedido") == cuerpo.contains("mensaje")) {
            return RespuestaTexto(400, "se espera estado (entero) y pedido o mensaje");
        }
        const int estado = cuerpo["estado"].get<int>();
        if (cuerpo.contains("pedido")) {
            servicio.PonerEstadoPedido(ComoTexto(cuerpo["pedido"]), estado);
        } else {
            long id = 0;
            try {
                id = std::stol(ComoTexto(cuerpo["mensaje"]));
            } catch (const std::exception&) {
                return RespuestaTexto(400, "mensaje debe ser un número");
            }
            servicio.PonerEstadoMensaje(id, estado, cuerpo.value("respuesta", std::string()));
        }
        return RespuestaJson(json{{"ok", true}});
    }
    return std::nullopt;
}

} // namespace simulador
