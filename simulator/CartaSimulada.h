// The establishment's menu as the stand-in service keeps it, with the products marked out
// of stock, and the three product calls answered from it. Not thread-safe on its own: the
// service calls it under its lock.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace simulador {

class CartaSimulada {
public:
    // The default menu: the products the order generator uses, by category, plus one kept
    // out of the cart.
    CartaSimulada();

    // Replaces the menu (an object with "categorias"); marks come from its own
    // "fechahoraagotado" values. False, and nothing changes, for anything else.
    bool Poner(const nlohmann::ordered_json& documento);

    // establishment/carta2: the whole menu with its marks.
    std::string Carta() const;
    // obtenerProductosAgotados: a list of the products out of stock now.
    std::string Agotados() const;
    // marcarDesmarcarProductoAgotado: `"ok"` when the product exists and the credentials
    // were right (`credencialesBien`), `"error"` otherwise.
    std::string Marcar(const std::string& consulta, bool credencialesBien,
                       const std::string& ahora);

private:
    nlohmann::ordered_json documento_;
};

} // namespace simulador
