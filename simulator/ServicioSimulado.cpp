#include "ServicioSimulado.h"

#include "ConfiguracionInicial.h"
#include "Respuestas.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <nlohmann/json.hpp>
#include <random>

namespace simulador {

namespace {

constexpr const char* kNoEncontrado =
    "\"No se ha encontrado establecimento con el id y password indicado\"";
constexpr const char* kRutaPoll = "pedidosgprs/pedidosnuevos";

std::string Hora(std::chrono::system_clock::time_point momento, const char* formato) {
    const std::time_t t = std::chrono::system_clock::to_time_t(momento);
    std::tm local{};
    localtime_r(&t, &local);
    char texto[64];
    std::strftime(texto, sizeof texto, formato, &local);
    return texto;
}

bool Entero(const std::string& texto, long& valor) {
    if (texto.empty()) {
        return false;
    }
    char* fin = nullptr;
    valor = std::strtol(texto.c_str(), &fin, 10);
    return *fin == '\0';
}

std::string PaginaError502() {
    return "<html>\r\n<head><title>502 Bad Gateway</title></head>\r\n<body>\r\n"
           "<center><h1>502 Bad Gateway</h1></center>\r\n<hr><center>pasarela</center>\r\n"
           "</body>\r\n</html>\r\n";
}

std::string Basura() {
    thread_local std::mt19937 motor{std::random_device{}()};
    // 0xFF never occurs in UTF-8, and no byte below 0x80 follows, so the body can't pass
    // for text of any kind.
    std::string bytes(1, static_cast<char>(0xFF));
    for (int i = 0; i < 63; ++i) {
        bytes += static_cast<char>(0x80 + motor() % 0x80);
    }
    return bytes;
}

// Parameters of a settings write that identify the desk rather than carry a setting.
bool EsIdentificacion(const std::string& nombre) {
    static constexpr std::array<std::string_view, 7> nombres = {
        "idEstablecimiento", "passwordconfig", "numconfig", "version", "modeloImpresora", "fha",
        "numeroimpresora"};
    return std::find(nombres.begin(), nombres.end(), nombre) != nombres.end();
}

// A written setting takes the JSON type the key has in the document: the desk reads
// numbers as numbers.
nlohmann::ordered_json ValorConTipo(const nlohmann::ordered_json& actual,
                                    const std::string& texto) {
    if (actual.is_number() && !texto.empty()) {
        char* fin = nullptr;
        const long long entero = std::strtoll(texto.c_str(), &fin, 10);
        if (*fin == '\0') {
            return entero;
        }
        const double decimal = std::strtod(texto.c_str(), &fin);
        if (*fin == '\0') {
            return decimal;
        }
    }
    return texto;
}

} // namespace

ServicioSimulado::ServicioSimulado(Configuracion inicial) : configuracion_(std::move(inicial)) {}

bool ServicioSimulado::TipoDeFalloValido(const std::string& tipo) {
    static constexpr std::array<std::string_view, 9> tipos = {"rechazar",  "colgar",  "error",
                                                              "vacio",     "basura",  "status500",
                                                              "titulo502", "http500", "cortado"};
    for (const auto t : tipos) {
        if (t == tipo) {
            return true;
        }
    }
    return false;
}

long long ServicioSimulado::MsDesdeInicio() const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                 inicio_)
        .count();
}

Respuesta ServicioSimulado::Atender(const Peticion& peticion) {
    std::string ruta;
    std::string consulta;
    if (!peticion.Https) {
        PartirObjetivo(peticion.Objetivo, ruta, consulta);
        constexpr std::string_view api = "/api/";
        if (ruta.starts_with(api)) {
            ruta.erase(0, api.size());
        }
    }
    std::lock_guard bloqueo(mutex_);
    const auto ahora = std::chrono::steady_clock::now();
    // HTTP clients resend a GET once, on a new connection, when the connection ends without
    // a byte of answer. That resend is the same request: it meets the same fault without
    // using up another of its times, so that "veces" counts what the client asked for.
    const bool reenvio = !peticion.Https && ultimoCorte_ &&
                         ultimoCorte_->Objetivo == peticion.Objetivo &&
                         ahora <= ultimoCorte_->Hasta;
    registro_.push_back({siguienteN_++,
                         peticion.Https ? "https" : "http",
                         ruta,
                         consulta,
                         MsDesdeInicio(),
                         reenvio,
                         {},
                         0});
    Entrada& entrada = registro_.back();
    if (reenvio) {
        entrada.Fallo = "rechazar";
        // A hang is not held a second time: the client waited the whole time once.
        Fallo repetido = ultimoCorte_->Aplicado;
        repetido.Tipo = "rechazar";
        ultimoCorte_.reset();
        return RespuestaDeFallo(repetido);
    }

    Fallo fallo;
    if (BuscarFallo(peticion.Https, ruta, fallo)) {
        entrada.Fallo = fallo.Tipo;
        if (!peticion.Https && (fallo.Tipo == "rechazar" || fallo.Tipo == "colgar")) {
            const auto margen = std::chrono::duration<double>(fallo.Segundos + 2.0);
            ultimoCorte_ = Corte{
                peticion.Objetivo,
                ahora + std::chrono::duration_cast<std::chrono::steady_clock::duration>(margen),
                fallo};
        }
        if (fallo.Tipo == "cortado") {
            // What this request would have taken stays queued for the next one.
            const auto cola = colas_.find(ruta);
            return FallosAlAzar::Cortada(cola != colas_.end() && !cola->second.empty()
                                             ? cola->second.front().Cuerpo
                                             : FallosAlAzar::LineaDeMuestra());
        }
        return RespuestaDeFallo(fallo);
    }
    if (peticion.Https) {
        // No TLS here: the desk must fall back to plain http.
        Respuesta cerrar;
        cerrar.Que = Respuesta::Accion::Cerrar;
        return cerrar;
    }
    auto cola = colas_.find(ruta);
    if (cola != colas_.end() && !cola->second.empty()) {
        Respuesta respuesta;
        respuesta.Cuerpo = cola->second.front().Cuerpo;
        entrada.Pedido = cola->second.front().Pedido;
        // A stored order stays offered until it is answered, as on the service: a reply the
        // desk never got (its wait ran out, the line dropped it) hands the same order out
        // again. A body queued by hand goes once.
        if (entrada.Pedido == 0) {
            cola->second.pop_front();
        }
        return respuesta;
    }
    return Normal(ruta, consulta);
}

bool ServicioSimulado::BuscarFallo(bool https, const std::string& ruta, Fallo& fallo) {
    for (auto it = fallos_.begin(); it != fallos_.end(); ++it) {
        // An https attempt carries no path, and only a connection-level fault can show on it.
        const bool aplica =
            https ? (it->Ruta.empty() && (it->Tipo == "rechazar" || it->Tipo == "colgar"))
                  : (it->Ruta.empty() || it->Ruta == ruta);
        if (!aplica) {
            continue;
        }
        fallo = *it;
        if (it->Veces > 0 && --it->Veces == 0) {
            fallos_.erase(it);
        }
        return true;
    }
    fallo = Fallo{};
    return !https && azar_.Sortear(ruta, fallo.Tipo, fallo.Segundos);
}

Respuesta ServicioSimulado::RespuestaDeFallo(const Fallo& fallo) const {
    Respuesta r;
    r.Falla = true;
    if (fallo.Tipo == "rechazar") {
        r.Que = Respuesta::Accion::Cerrar;
    } else if (fallo.Tipo == "colgar") {
        r.Que = Respuesta::Accion::Colgar;
        r.Segundos = fallo.Segundos;
    } else if (fallo.Tipo == "error") {
        r.Cuerpo = "error";
    } else if (fallo.Tipo == "basura") {
        r.Cuerpo = Basura();
        r.Tipo = "application/octet-stream";
    } else if (fallo.Tipo == "status500") {
        r.Cuerpo = "{\"status\":500}";
    } else if (fallo.Tipo == "titulo502") {
        r.Estado = 502;
        r.Tipo = "text/html";
        r.Cuerpo = PaginaError502();
    } else if (fallo.Tipo == "http500") {
        r.Estado = 500;
        r.Tipo = "text/html";
        r.Cuerpo = "<html><head><title>500 Internal Server Error</title></head></html>\r\n";
    }
    // "vacio": the empty body of a default answer.
    return r;
}

Respuesta ServicioSimulado::Normal(const std::string& ruta, const std::string& consulta) {
    Respuesta r;
    if (actualizaciones_.Atender(ruta, r) ||
        mensajes_.Atender(ruta, consulta, MsDesdeInicio(), r) ||
        AtenderImpresion(ruta, consulta, r)) {
        return r;
    }
    if (ruta == kRutaPoll) {
        r.Cuerpo = "estadoapertura:" + TextoApertura();
    } else if (ruta == "pedidosgprs/obtenerConfiguracionV2") {
        r.Cuerpo = CredencialesCorrectas(consulta, true) ? configuracion_.Documento : kNoEncontrado;
    } else if (ruta == "pedidosgprs/obtenerConfiguracion") {
        r.Cuerpo = CredencialesCorrectas(consulta, false) ? ConfiguracionAntigua() : kNoEncontrado;
    } else if (ruta == "pedidosgprs/actualizarConfigImpresora") {
        r.Cuerpo = GuardarImpresora(consulta, false);
    } else if (ruta == "pedidosgprs/eliminarConfigImpresora") {
        r.Cuerpo = GuardarImpresora(consulta, true);
    } else if (ruta == "pedidosgprs/actualizarConfigGeneral") {
        r.Cuerpo = GuardarGeneral(consulta);
    } else if (ruta == "categoria/find") {
        r.Tipo = "application/json; charset=utf-8";
        r.Cuerpo =
            RespuestaCategorias(categorias_, configuracion_.Id, Parametro(consulta, "estId"));
    } else if (ruta == "establecimiento/cerrarAbrirEstablecHasta") {
        r.Cuerpo = Cerrar(consulta);
    } else if (ruta == "pedidosgprs/obtenerPedido") {
        if (const auto* p = Buscar(Parametro(consulta, "idPedidoEst"))) {
            r.Cuerpo = LineaPedido(p->Pedido);
        }
    } else if (ruta == "pedidosgprs/respuestapedidos") {
        r.Cuerpo = Responder(consulta);
    } else if (ruta == "establecimiento/carta2") {
        r.Cuerpo = carta_.Carta();
    } else if (ruta == "pedidosgprs/obtenerProductosAgotados") {
        r.Cuerpo = carta_.Agotados();
    } else if (ruta == "pedidosgprs/marcarDesmarcarProductoAgotado") {
        r.Cuerpo = carta_.Marcar(consulta, CredencialesCorrectas(consulta, true),
                                 FechaHoraServicio(std::chrono::system_clock::now()));
    } else if (ruta == "pedidosgprs/obtenerPedidos" || ruta == "pedidosgprs/obtenerTotales") {
        r.Tipo = "application/json; charset=utf-8";
        r.Cuerpo = Historial(ruta, consulta);
    }
    // Any other path: recorded, empty body.
    return r;
}

std::string ServicioSimulado::TextoApertura() {
    if (apertura_ == Apertura::CerradoHasta && std::chrono::system_clock::now() >= cerradoHasta_) {
        apertura_ = Apertura::Abierto;
    }
    switch (apertura_) {
    case Apertura::Abierto:
        return "Abierto";
    case Apertura::Cerrado:
        return "Cerrado";
    case Apertura::CerradoHasta:
        break;
    }
    return "Cerrado hasta " + textoCerradoHasta_;
}

bool ServicioSimulado::CredencialesCorrectas(const std::string& consulta, bool conNumConfig) const {
    return Parametro(consulta, "idEstablecimiento") == configuracion_.Id &&
           Parametro(consulta, "passwordconfig") == configuracion_.Password &&
           (!conNumConfig || Parametro(consulta, "numconfig") == configuracion_.NumConfig);
}

std::string ServicioSimulado::ConfiguracionAntigua() const {
    // The old single-printer reply: fields 4 to 15 describe a driver printer. Taken from
    // the first "DW" printer of the document, or the usual values when there is none.
    std::array<std::string, 16> campos = {configuracion_.Id,
                                          "Establecimiento",
                                          "3",
                                          "1",
                                          "2",
                                          "0",
                                          "80",
                                          "Lucida Console",
                                          "3.8448",
                                          "10",
                                          "14",
                                          "4",
                                          "------------------------------------------",
                                          "60",
                                          "0",
                                          "0"};
    const auto doc = nlohmann::json::parse(configuracion_.Documento, nullptr, false);
    if (doc.is_object()) {
        if (doc.contains("nombre") && doc["nombre"].is_string()) {
            campos[1] = doc["nombre"].get<std::string>();
        }
        const auto impresoras = doc.value("configimpresoras", nlohmann::json::array());
        for (const auto& i : impresoras) {
            if (!i.is_object() || !i.contains("tipoimpresion") || i["tipoimpresion"] != "DW") {
                continue;
            }
            const std::array<const char*, 12> claves = {"numerocopiasaceptado",
                                                        "numerocopiasrechazado",
                                                        "anchopapel",
                                                        "fuente",
                                                        "factorfuente",
                                                        "tamannofuentepequenna",
                                                        "tamannofuentegrande",
                                                        "tamannofuenteseparador",
                                                        "separadorlineas",
                                                        "margenentrelineas",
                                                        "iniciox",
                                                        "inicioy"};
            for (std::size_t k = 0; k < claves.size(); ++k) {
                const auto& v = i.value(claves[k], nlohmann::json());
                if (v.is_string()) {
                    campos[4 + k] = v.get<std::string>();
                } else if (v.is_number()) {
                    campos[4 + k] = v.dump();
                }
            }
            break;
        }
    }
    std::string linea = "#";
    for (std::size_t k = 0; k < campos.size(); ++k) {
        linea += (k == 0 ? "" : "*") + campos[k];
    }
    return linea + "#";
}

std::string ServicioSimulado::Cerrar(const std::string& consulta) {
    const auto accion = Parametro(consulta, "accion");
    if (accion == "A") {
        apertura_ = Apertura::Abierto;
        return "\"Abierto\"";
    }
    if (accion != "C") {
        return "";
    }
    const auto ahora = std::chrono::system_clock::now();
    long minutos = 0;
    long dias = 0;
    if (Entero(Parametro(consulta, "minutos").value_or(""), minutos) && minutos > 0) {
        cerradoHasta_ = ahora + std::chrono::minutes(minutos);
        textoCerradoHasta_ = Hora(cerradoHasta_, "%H:%M");
    } else if (Entero(Parametro(consulta, "dias").value_or(""), dias) && dias > 0) {
        // Closed for the rest of the day (and the days after it, when more than one).
        const std::time_t t = std::chrono::system_clock::to_time_t(ahora);
        std::tm local{};
        localtime_r(&t, &local);
        local.tm_mday += static_cast<int>(dias - 1);
        local.tm_hour = 23;
        local.tm_min = 59;
        local.tm_sec = 59;
        local.tm_isdst = -1;
        cerradoHasta_ = std::chrono::system_clock::from_time_t(std::mktime(&local));
        textoCerradoHasta_ = Hora(cerradoHasta_, dias == 1 ? "%H:%M" : "%d/%m/%Y %H:%M");
    } else {
        // Closing at the end of the desk's run: closed with no end time.
        apertura_ = Apertura::Cerrado;
        return "\"Cerrado\"";
    }
    apertura_ = Apertura::CerradoHasta;
    return "\"" + textoCerradoHasta_ + "\"";
}

std::string ServicioSimulado::GuardarImpresora(const std::string& consulta, bool eliminar) {
    // Kept like the real service keeps them, so that the reading that follows a save
    // brings the saved printers back.
    // The answer is always "OK" (the desk drops it); only the right establishment writes.
    if (!CredencialesCorrectas(consulta, true)) {
        return "OK";
    }
    auto doc = nlohmann::ordered_json::parse(configuracion_.Documento, nullptr, false);
    long numero = 0;
    if (!doc.is_object() || !Entero(Parametro(consulta, "numeroimpresora").value_or(""), numero)) {
        return "OK";
    }
    if (!doc.contains("configimpresoras") || !doc["configimpresoras"].is_array()) {
        doc["configimpresoras"] = nlohmann::ordered_json::array();
    }
    auto& impresoras = doc["configimpresoras"];
    const auto esta = [numero](const nlohmann::ordered_json& i) {
        return i.is_object() && i.contains("numeroimpresora") &&
               i["numeroimpresora"].is_number_integer() &&
               i["numeroimpresora"].get<long>() == numero;
    };
    auto it = std::find_if(impresoras.begin(), impresoras.end(), esta);
    if (eliminar) {
        if (it != impresoras.end()) {
            impresoras.erase(it);
        }
    } else {
        if (it == impresoras.end()) {
            impresoras.push_back(ImpresoraNueva(static_cast<int>(numero)));
            it = impresoras.end() - 1;
        }
        for (const auto& [nombre, crudo] : Parametros(consulta)) {
            if (EsIdentificacion(nombre)) {
                continue;
            }
            // The name stays encoded, as the desk decodes it when reading.
            (*it)[nombre] =
                nombre == "nombreimpresora"
                    ? nlohmann::ordered_json(crudo)
                    : ValorConTipo(it->value(nombre, nlohmann::ordered_json()), Decodificar(crudo));
        }
    }
    configuracion_.Documento = doc.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    return "OK";
}

std::string ServicioSimulado::GuardarGeneral(const std::string& consulta) {
    // The answer is always "OK" (the desk drops it); only the right establishment writes.
    if (!CredencialesCorrectas(consulta, true)) {
        return "OK";
    }
    auto doc = nlohmann::ordered_json::parse(configuracion_.Documento, nullptr, false);
    if (!doc.is_object()) {
        return "OK";
    }
    for (const auto& [nombre, crudo] : Parametros(consulta)) {
        if (!EsIdentificacion(nombre)) {
            doc[nombre] =
                ValorConTipo(doc.value(nombre, nlohmann::ordered_json()), Decodificar(crudo));
        }
    }
    configuracion_.Documento = doc.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    return "OK";
}

ServicioSimulado::PedidoGuardado*
ServicioSimulado::Buscar(const std::optional<std::string>& numero) {
    long n = 0;
    if (!numero || !Entero(*numero, n)) {
        return nullptr;
    }
    auto it = pedidos_.find(n);
    return it == pedidos_.end() ? nullptr : &it->second;
}

std::string ServicioSimulado::Responder(const std::string& consulta) {
    auto* p = Buscar(Parametro(consulta, "o"));
    if (p == nullptr) {
        return "OK";
    }
    const auto ak = Parametro(consulta, "ak").value_or("");
    const auto m = Parametro(consulta, "m").value_or("");
    p->Respuestas.push_back({ak, m, consulta, MsDesdeInicio()});
    QuitarDeColas(p->Pedido.NumPedido);
    if (ak == "Accepted") {
        p->Pedido.Estado = "Aceptado";
        // "20_Minutos" carries 20.
        p->Pedido.TiempoOMotivo = m.substr(0, m.find('_'));
        p->Pedido.HoraAceptacion = FechaHoraServicio(std::chrono::system_clock::now());
    } else if (ak == "Rejected") {
        p->Pedido.Estado = "Rechazado";
        p->Pedido.TiempoOMotivo = m;
    }
    return "OK";
}

void ServicioSimulado::QuitarDeColas(const std::string& numero) {
    for (auto& [ruta, cola] : colas_) {
        std::erase_if(cola, [&](const Encolado& e) { return std::to_string(e.Pedido) == numero; });
    }
}

std::vector<ServicioSimulado::Entrada> ServicioSimulado::Registro() const {
    std::lock_guard bloqueo(mutex_);
    return registro_;
}

void ServicioSimulado::LimpiarRegistro() {
    std::lock_guard bloqueo(mutex_);
    registro_.clear();
}

void ServicioSimulado::Encolar(const std::string& ruta, const std::vector<std::string>& cuerpos) {
    std::lock_guard bloqueo(mutex_);
    auto& cola = colas_[ruta];
    for (const auto& cuerpo : cuerpos) {
        cola.push_back({cuerpo, 0});
    }
}

void ServicioSimulado::VaciarColas() {
    std::lock_guard bloqueo(mutex_);
    colas_.clear();
}

void ServicioSimulado::AnadirFallo(const Fallo& fallo) {
    if (fallo.Veces == 0) {
        return;
    }
    std::lock_guard bloqueo(mutex_);
    fallos_.push_back(fallo);
}

void ServicioSimulado::QuitarFallos() {
    std::lock_guard bloqueo(mutex_);
    fallos_.clear();
    ultimoCorte_.reset();
}

void ServicioSimulado::Configurar(const Configuracion& configuracion) {
    std::lock_guard bloqueo(mutex_);
    configuracion_ = configuracion;
}

void ServicioSimulado::PonerCategorias(nlohmann::ordered_json categorias) {
    std::lock_guard bloqueo(mutex_);
    categorias_ = std::move(categorias);
}

ServicioSimulado::Configuracion ServicioSimulado::ConfiguracionActual() const {
    std::lock_guard bloqueo(mutex_);
    return configuracion_;
}

std::vector<ServicioSimulado::PedidoGuardado>
ServicioSimulado::GenerarPedidos(int cantidad, std::uint64_t semilla, ClasePedido clase,
                                 int productos, bool conHoraActual) {
    std::vector<PedidoGuardado> nuevos;
    std::lock_guard bloqueo(mutex_);
    for (int i = 0; i < cantidad; ++i) {
        PedidoGuardado guardado;
        guardado.Pedido = GenerarPedido(semilla + static_cast<std::uint64_t>(i), clase, productos);
        guardado.Pedido.NumPedido = std::to_string(siguientePedido_);
        guardado.Pedido.Origen = configuracion_.Id;
        if (conHoraActual) {
            guardado.Pedido.RealizadoEl = Hora(std::chrono::system_clock::now(), "%d/%m/%Y %H:%M");
        }
        colas_[kRutaPoll].push_back({LineaPedido(guardado.Pedido), siguientePedido_});
        pedidos_[siguientePedido_++] = guardado;
        nuevos.push_back(std::move(guardado));
    }
    return nuevos;
}

std::vector<ServicioSimulado::PedidoGuardado> ServicioSimulado::Pedidos() const {
    std::lock_guard bloqueo(mutex_);
    std::vector<PedidoGuardado> todos;
    for (const auto& [numero, pedido] : pedidos_) {
        todos.push_back(pedido);
    }
    return todos;
}

bool ServicioSimulado::PonerCarta(const nlohmann::ordered_json& documento) {
    std::lock_guard bloqueo(mutex_);
    return carta_.Poner(documento);
}

} // namespace simulador
