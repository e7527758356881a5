#include "CategoriasSimuladas.h"

#include "GeneradorPedidos.h"

namespace simulador {

using json = nlohmann::ordered_json;

json CategoriasPorDefecto() {
    const auto viva = [](long id, const char* nombre) {
        return json{{"id", id}, {"nombre", nombre}, {"fechabaja", nullptr}};
    };
    return json::array({viva(kCategoriaEntrantes, "Entrantes"),
                        viva(kCategoriaPizzas, "Pizzas"),
                        viva(kCategoriaHamburguesas, "Hamburguesas"),
                        {{"id", 16}, {"nombre", "Menú del día"}, {"fechabaja", "2026-03-01"}},
                        viva(kCategoriaBebidas, "Bebidas y cafés"),
                        viva(kCategoriaPostres, "Postres")});
}

std::string RespuestaCategorias(const json& categorias, const std::string& idEstablecimiento,
                                const std::optional<std::string>& estId) {
    const json& lista = estId && *estId == idEstablecimiento ? categorias : json::array();
    return lista.dump(-1, ' ', false, json::error_handler_t::replace);
}

bool LeerCategoriasDeControl(const json& cuerpo, json& categorias) {
    if (!cuerpo.contains("categorias") || !cuerpo["categorias"].is_array()) {
        return false;
    }
    categorias = cuerpo["categorias"];
    return true;
}

} // namespace simulador
