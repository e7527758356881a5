// The establishment's menu categories as `categoria/find` lists them: a JSON list of
// objects with `id`, `nombre` and `fechabaja` (null while the category is in use, a date
// once it was removed). Tests replace the list through the control interface.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace simulador {

// The categories of the generated products, in menu order, and one removed long ago.
nlohmann::ordered_json CategoriasPorDefecto();

// The reply for `estId`: the list for the establishment served, an empty list for any other.
std::string RespuestaCategorias(const nlohmann::ordered_json& categorias,
                                const std::string& idEstablecimiento,
                                const std::optional<std::string>& estId);

// A control body {"categorias":[...]}: true and the list when it holds one.
bool LeerCategoriasDeControl(const nlohmann::ordered_json& cuerpo,
                             nlohmann::ordered_json& categorias);

} // namespace simulador
