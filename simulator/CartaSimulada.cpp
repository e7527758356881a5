#include "CartaSimulada.h"

#include "GeneradorPedidos.h"
#include "Peticiones.h"

#include <map>
#include <set>

namespace simulador {

namespace {

using Json = nlohmann::ordered_json;

const std::map<long, const char*>& NombresCategoria() {
    static const std::map<long, const char*> nombres = {
        {kCategoriaEntrantes, "Entrantes"},       {kCategoriaPizzas, "Pizzas"},
        {kCategoriaHamburguesas, "Hamburguesas"}, {kCategoriaBebidas, "Bebidas"},
        {kCategoriaPostres, "Postres"},
    };
    return nombres;
}

Json Producto(long id, const std::string& nombre, long centimos, bool nocarro) {
    return Json{{"id", id},
                {"nombre", nombre},
                {"pvp", static_cast<double>(centimos) / 100.0},
                {"nocarro", nocarro ? Json(true) : Json(nullptr)},
                {"fechahoraagotado", nullptr}};
}

template <typename F> void Recorrer(Json& documento, F&& f) {
    if (!documento.contains("categorias") || !documento["categorias"].is_array()) {
        return;
    }
    for (auto& categoria : documento["categorias"]) {
        if (!categoria.is_object() || !categoria.contains("productos") ||
            !categoria["productos"].is_array()) {
            continue;
        }
        for (auto& producto : categoria["productos"]) {
            if (producto.is_object()) {
                f(producto);
            }
        }
    }
}

} // namespace

CartaSimulada::CartaSimulada() {
    std::map<long, Json> categorias;
    for (const auto& [id, nombre] : NombresCategoria()) {
        categorias[id] = Json{{"id", id}, {"nombre", nombre}, {"productos", Json::array()}};
    }
    for (const PlatoDeCarta& p : PlatosDeCarta()) {
        categorias[p.Categoria]["productos"].push_back(Producto(p.Id, p.Nombre, p.Centimos, false));
    }
    // Sold only at the counter: the desk's menu lists leave it out.
    categorias[kCategoriaBebidas]["productos"].push_back(
        Producto(490, "Bolsa de hielo 2 kg", 200, true));
    documento_ = Json{{"categorias", Json::array()}};
    for (auto& [id, categoria] : categorias) {
        documento_["categorias"].push_back(std::move(categoria));
    }
}

bool CartaSimulada::Poner(const Json& documento) {
    if (!documento.is_object() || !documento.contains("categorias") ||
        !documento["categorias"].is_array()) {
        return false;
    }
    documento_ = documento;
    return true;
}

std::string CartaSimulada::Carta() const {
    return documento_.dump();
}

std::string CartaSimulada::Agotados() const {
    Json lista = Json::array();
    std::set<long> vistos;
    Json copia = documento_;
    Recorrer(copia, [&](Json& p) {
        const Json fecha = p.value("fechahoraagotado", Json(nullptr));
        const long id = p.value("id", 0L);
        // A product that stands in two categories is reported once.
        if (!fecha.is_null() && vistos.insert(id).second) {
            lista.push_back(Json{{"id", id},
                                 {"nombre", p.value("nombre", std::string())},
                                 {"pvp", p.value("pvp", Json(nullptr))},
                                 {"fechahoraagotado", fecha}});
        }
    });
    return lista.dump();
}

std::string CartaSimulada::Marcar(const std::string& consulta, bool credencialesBien,
                                  const std::string& ahora) {
    const auto idTexto = Parametro(consulta, "idProducto");
    const auto agotado = Parametro(consulta, "agotado");
    if (!credencialesBien || !idTexto || !agotado || (*agotado != "s" && *agotado != "n")) {
        return "\"error\"";
    }
    long id = 0;
    try {
        id = std::stol(*idTexto);
    } catch (const std::exception&) {
        return "\"error\"";
    }
    bool hallado = false;
    Recorrer(documento_, [&](Json& p) {
        if (p.value("id", -1L) == id) {
            p["fechahoraagotado"] = *agotado == "s" ? Json(ahora) : Json(nullptr);
            hallado = true;
        }
    });
    return hallado ? "\"ok\"" : "\"error\"";
}

} // namespace simulador
