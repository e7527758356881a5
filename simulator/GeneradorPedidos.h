// Orders as the online service sends them: a record per order and its one-line wire form,
// plus a deterministic generator of realistic Spanish orders. Plain C++ so that the
// stand-in service, the tests and the demo share exactly the same lines.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace simulador {

struct ProductoGenerado {
    int Cantidad = 1;
    std::string Nombre; // the product's name and its options, joined by " - "
    std::string Precio; // amount of the line, "." decimals
    long IdProducto = 0;
    long IdCategoria = 0;
    std::string Opciones; // kitchen option groups; empty means a five-piece product
};

// Every field of the line, in wire order. Amounts are text with "." decimals.
struct PedidoGenerado {
    std::string Apertura = "PED"; // first piece, after the opening '#'
    std::string Origen;           // second piece
    std::string NumPedido;
    std::vector<ProductoGenerado> Productos;
    std::string ImporteEnvio = "0.00";
    // Order data list
    std::string ImporteDescuento = "0.00";
    std::string TotalPedido;
    std::string IdCliente;
    std::string Cliente;
    std::string FormaEntrega; // "Recogen" or the delivery address
    std::string RealizadoEl;
    std::string Para = "Para: Ahora";
    bool Programado = false;    // four-piece times field
    std::string ParaDia;        // four-piece form only
    bool RetenerCocina = false; // four-piece form only: "n"
    std::string PedidosAnteriores = "0";
    std::string CodigoPago; // "6" paid
    std::string FormaPago;  // may end in " Cambio: " and a figure
    std::string Telefono;
    std::string Estado = "Pendiente";
    std::string TiempoOMotivo; // minutes when accepted, reason when rejected
    std::string CodigoPromocion;
    std::string ComisionPaypal = "0.00";
    std::string QuienAsume;
    std::string WebParticular = "0";
    std::string TotalBruto;
    std::string HoraAceptacion;
    std::string Comentarios; // may hold '*'
};

enum class ClasePedido { Domicilio, Recoger, Programado, Efectivo, Mezcla };

// "domicilio", "recoger", "programado", "efectivo", "mezcla". False for anything else.
bool LeerClasePedido(std::string_view texto, ClasePedido& clase);

// The line between '#' signs exactly as the service writes it (UTF-8).
std::string LineaPedido(const PedidoGenerado& pedido);

// Same seed, class and product count give the same order. productos <= 0 lets the seed
// choose between 1 and 4.
PedidoGenerado GenerarPedido(std::uint64_t semilla, ClasePedido clase, int productos);

// A product that the generator puts in orders, as the menu of the default establishment
// lists it.
struct PlatoDeCarta {
    long Id = 0;
    long Categoria = 0;
    std::string Nombre;
    long Centimos = 0;
};
std::vector<PlatoDeCarta> PlatosDeCarta();

// Cents as the service writes amounts: "12.50", "0.35".
std::string TextoImporte(long centimos);

// Kitchen printer names and categories that the generated products are meant for; the
// default establishment configures its kitchen printers with them.
inline constexpr const char* kImpresoraCocinaCaliente = "Cocina caliente";
inline constexpr const char* kImpresoraBarra = "Barra";
inline constexpr long kCategoriaEntrantes = 11;
inline constexpr long kCategoriaPizzas = 12;
inline constexpr long kCategoriaHamburguesas = 13;
inline constexpr long kCategoriaBebidas = 14;
inline constexpr long kCategoriaPostres = 15;

} // namespace simulador
