#include "HistorialSimulado.h"

#include "Peticiones.h"
#include "ServicioSimulado.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace simulador {

namespace {

long Centimos(const std::string& importe) {
    const auto punto = importe.find('.');
    const long euros = std::strtol(importe.substr(0, punto).c_str(), nullptr, 10);
    long cent = 0;
    if (punto != std::string::npos) {
        std::string resto = importe.substr(punto + 1, 2);
        resto.resize(2, '0');
        cent = std::strtol(resto.c_str(), nullptr, 10);
    }
    return euros * 100 + cent;
}

bool Pagado(const PedidoGenerado& p) {
    return p.CodigoPago == "6";
}

bool Recogen(const PedidoGenerado& p) {
    return p.FormaEntrega == "Recogen";
}

std::string Valor(std::string_view consulta, std::string_view nombre) {
    return Parametro(consulta, nombre).value_or("");
}

// "0" all, "1" the first kind, "2" the second.
bool Pasa(const std::string& filtro, bool primero) {
    return filtro == "1" ? primero : filtro == "2" ? !primero : true;
}

// "ddMMyyyy" as "dd/MM/yyyy"; anything else as it came.
std::string ConBarras(const std::string& f) {
    if (f.size() != 8) {
        return f;
    }
    return f.substr(0, 2) + "/" + f.substr(2, 2) + "/" + f.substr(4);
}

// "dd/MM/yyyy" as yyyyMMdd, to compare days.
std::string Clave(const std::string& ddmmyyyy) {
    const std::string f = ddmmyyyy.size() == 8 ? ConBarras(ddmmyyyy) : ddmmyyyy;
    return f.size() < 10 ? std::string() : f.substr(6, 4) + f.substr(3, 2) + f.substr(0, 2);
}

// Whether today's orders fall in the period asked for.
bool HoyEnPeriodo(std::string_view consulta, const DiaHistorial& dia) {
    const std::string opcion = Valor(consulta, "opcion");
    if (opcion == "1" || opcion == "5") {
        return false;
    }
    if (opcion == "2") {
        const std::string hoy = Clave(dia.Fecha);
        return Clave(Valor(consulta, "fechaini")) <= hoy &&
               hoy <= Clave(Valor(consulta, "fechafin"));
    }
    return true;
}

std::vector<PedidoGenerado> Filtrar(const std::vector<PedidoGenerado>& respondidos,
                                    std::string_view consulta, const DiaHistorial& dia) {
    std::vector<PedidoGenerado> r;
    if (!HoyEnPeriodo(consulta, dia)) {
        return r;
    }
    const std::string fp = Valor(consulta, "fp");
    const std::string fe = Valor(consulta, "fe");
    const std::string estado = Valor(consulta, "estado");
    const std::string origen = Valor(consulta, "origen");
    for (auto it = respondidos.rbegin(); it != respondidos.rend(); ++it) {
        const PedidoGenerado& p = *it;
        if (Pasa(fp, !Pagado(p)) && Pasa(fe, !Recogen(p)) && Pasa(estado, p.Estado == "Aceptado") &&
            Pasa(origen, p.WebParticular == "0")) {
            r.push_back(p);
        }
    }
    if (Valor(consulta, "opcion") == "3") {
        const long n = std::strtol(Valor(consulta, "numeroPedidos").c_str(), nullptr, 10);
        if (n >= 0 && static_cast<std::size_t>(n) < r.size()) {
            r.resize(static_cast<std::size_t>(n));
        }
    }
    return r;
}

// The time the order was placed, hours and minutes.
std::string Hora(const PedidoGenerado& p) {
    const auto blanco = p.RealizadoEl.find(' ');
    std::string h = blanco == std::string::npos ? p.RealizadoEl : p.RealizadoEl.substr(blanco + 1);
    if (std::count(h.begin(), h.end(), ':') == 2) {
        h.erase(h.rfind(':'));
    }
    return h;
}

// Amounts go out as the desk shows them: text with a decimal comma and both cents.
std::string ConComa(long centimos) {
    std::string t = TextoImporte(centimos);
    std::replace(t.begin(), t.end(), '.', ',');
    return t;
}

std::string Importe(long centimos) {
    std::string r(1, '"');
    r += ConComa(centimos);
    r += '"';
    return r;
}

std::string Texto(const std::string& t) {
    std::string r = "\"";
    for (char c : t) {
        if (c == '"' || c == '\\') {
            r += '\\';
        }
        r += c;
    }
    return r + "\"";
}

} // namespace

std::string RespuestaObtenerPedidos(const std::vector<PedidoGenerado>& respondidos,
                                    std::string_view consulta, const DiaHistorial& dia) {
    const auto lista = Filtrar(respondidos, consulta, dia);
    long total = 0;
    long bruto = 0;
    std::string filas;
    for (const PedidoGenerado& p : lista) {
        total += Centimos(p.TotalPedido);
        bruto += Centimos(p.TotalBruto.empty() ? p.TotalPedido : p.TotalBruto);
        if (!filas.empty()) {
            filas += '#';
        }
        filas += p.NumPedido + " - " + Hora(p) + " - " + p.Cliente + " - " +
                 (Recogen(p) ? "Recogen" : "Domicilio") + " - " + ConComa(Centimos(p.TotalPedido)) +
                 "€ - " + p.Estado;
    }
    const std::string mensaje = lista.empty() ? "No se han encontrado pedidos" : "";
    return "{\"totalnumpedidos\":" + std::to_string(lista.size()) +
           ",\"totalimportepedidos\":" + Importe(total) +
           ",\"totalimportepedidosbruto\":" + Importe(bruto) + ",\"pedidos\":" + Texto(filas) +
           ",\"mensaje\":" + Texto(mensaje) + "}";
}

std::string RespuestaObtenerTotales(const std::vector<PedidoGenerado>& respondidos,
                                    std::string_view consulta, const DiaHistorial& dia) {
    std::vector<PedidoGenerado> aceptados;
    if (HoyEnPeriodo(consulta, dia)) {
        for (const PedidoGenerado& p : respondidos) {
            if (p.Estado == "Aceptado") {
                aceptados.push_back(p);
            }
        }
    }
    std::string r = "{";
    const auto par = [&](const std::string& sufijo, bool (*cuenta)(const PedidoGenerado&)) {
        long n = 0;
        long suma = 0;
        for (const PedidoGenerado& p : aceptados) {
            if (cuenta(p)) {
                ++n;
                suma += Centimos(p.TotalPedido);
            }
        }
        r += "\"totalnumpedidos" + sufijo + "\":" + std::to_string(n) + ",\"totalimportepedidos" +
             sufijo + "\":" + Importe(suma) + ",";
    };
    par("", [](const PedidoGenerado&) { return true; });
    par("Recoger", [](const PedidoGenerado& p) { return Recogen(p); });
    par("Domicilio", [](const PedidoGenerado& p) { return !Recogen(p); });
    par("Efectivo", [](const PedidoGenerado& p) { return !Pagado(p); });
    par("EfectivoRecoger", [](const PedidoGenerado& p) { return !Pagado(p) && Recogen(p); });
    par("EfectivoDomicilio", [](const PedidoGenerado& p) { return !Pagado(p) && !Recogen(p); });
    par("Online", [](const PedidoGenerado& p) { return Pagado(p); });
    par("OnlineRecoger", [](const PedidoGenerado& p) { return Pagado(p) && Recogen(p); });
    par("OnlineDomicilio", [](const PedidoGenerado& p) { return Pagado(p) && !Recogen(p); });

    const std::string opcion = Valor(consulta, "opcion");
    std::string inicio = dia.Fecha;
    std::string fin;
    if (opcion == "1" || opcion == "5") {
        inicio = dia.Ayer;
    } else if (opcion == "2") {
        inicio = ConBarras(Valor(consulta, "fechaini"));
        fin = ConBarras(Valor(consulta, "fechafin"));
    } else if (opcion == "4") {
        inicio = dia.InicioSesion;
    }
    return r + "\"fechaHoraInicioSesion\":" + Texto(inicio) +
           ",\"fechaHoraFinSesion\":" + Texto(fin) + "}";
}

namespace {

std::string Dia(std::chrono::system_clock::time_point momento, bool conHora) {
    const std::time_t t = std::chrono::system_clock::to_time_t(momento);
    std::tm l{};
    localtime_r(&t, &l);
    char texto[64];
    if (conHora) {
        std::snprintf(texto, sizeof texto, "%02d/%02d/%04d %d:%02d:%02d", l.tm_mday, l.tm_mon + 1,
                      l.tm_year + 1900, l.tm_hour, l.tm_min, l.tm_sec);
    } else {
        std::snprintf(texto, sizeof texto, "%02d/%02d/%04d", l.tm_mday, l.tm_mon + 1,
                      l.tm_year + 1900);
    }
    return texto;
}

} // namespace

std::string ServicioSimulado::Historial(const std::string& ruta,
                                        const std::string& consulta) const {
    // Called with the service's lock held.
    std::vector<std::pair<long long, PedidoGenerado>> porRespuesta;
    for (const auto& [numero, guardado] : pedidos_) {
        if (!guardado.Respuestas.empty()) {
            porRespuesta.emplace_back(guardado.Respuestas.back().Ms, guardado.Pedido);
        }
    }
    std::stable_sort(porRespuesta.begin(), porRespuesta.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<PedidoGenerado> respondidos;
    for (auto& [ms, p] : porRespuesta) {
        respondidos.push_back(std::move(p));
    }
    const auto ahora = std::chrono::system_clock::now();
    const DiaHistorial dia{Dia(ahora, false), Dia(ahora - std::chrono::hours(24), false),
                           Dia(inicioReloj_, true)};
    return ruta == "pedidosgprs/obtenerPedidos"
               ? RespuestaObtenerPedidos(respondidos, consulta, dia)
               : RespuestaObtenerTotales(respondidos, consulta, dia);
}

} // namespace simulador
