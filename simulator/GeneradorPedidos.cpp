#include "GeneradorPedidos.h"

#include <array>
#include <cstdio>
#include <random>

namespace simulador {

namespace {

struct Plato {
    long Id;
    long Categoria;
    const char* Nombre;
    long Centimos;
    std::vector<const char*> Opciones; // options a customer may add, shown after " - "
};

// The menu of the default establishment. Categories match the kitchen printers of its
// configuration: hot kitchen 11, 12 and 13 except the salad 103, which goes to the bar
// with 14 and 15.
const std::vector<Plato>& Carta() {
    static const std::vector<Plato> carta = {
        {101, kCategoriaEntrantes, "Croquetas caseras de jamón", 650, {"Ración", "Media ración"}},
        {102, kCategoriaEntrantes, "Patatas bravas", 480, {"Salsa aparte", "Muy picantes"}},
        {103, kCategoriaEntrantes, "Ensalada César con pollo", 890, {"Sin picatostes"}},
        {201, kCategoriaPizzas, "Pizza Margarita", 950, {"Masa fina", "Extra de orégano"}},
        {202, kCategoriaPizzas, "Pizza Barbacoa con piña", 1190, {"Masa fina", "Doble de queso"}},
        {203, kCategoriaPizzas, "Pizza Cuatro quesos", 1150, {"Sin gorgonzola"}},
        {301, kCategoriaHamburguesas, "Hamburguesa clásica", 1090, {"Al punto", "Sin cebolla"}},
        {302, kCategoriaHamburguesas, "Hamburguesa de buey con jalapeños", 1350, {"Poco hecha"}},
        {401, kCategoriaBebidas, "Agua mineral 50 cl", 150, {}},
        {402, kCategoriaBebidas, "Refresco de limón", 220, {"Con hielo", "Sin hielo"}},
        {403, kCategoriaBebidas, "Cerveza sin alcohol", 250, {}},
        {501, kCategoriaPostres, "Tarta de queso", 490, {"Con mermelada de arándanos"}},
        {502, kCategoriaPostres, "Crema catalana", 450, {}},
        {503, kCategoriaPostres, "Piña natural", 380, {}},
    };
    return carta;
}

// Menus whose parts go to different kitchen printers through option groups.
struct Menu {
    long Id;
    long Categoria;
    const char* Nombre;
    long Centimos;
    std::vector<std::array<const char*, 2>> Partes; // printer, option text
    const char* TextoLibre;                         // may be empty
};

const std::vector<Menu>& Menus() {
    static const std::vector<Menu> menus = {
        {310,
         kCategoriaHamburguesas,
         "Menú hamburguesa",
         1390,
         {{{kImpresoraCocinaCaliente, "Hamburguesa clásica al punto"}},
          {{kImpresoraBarra, "Refresco de limón"}}},
         "Sin pepinillos, por favor"},
        {210,
         kCategoriaPizzas,
         "Menú pizza y postre",
         1450,
         {{{kImpresoraCocinaCaliente, "Pizza Margarita"}}, {{kImpresoraBarra, "Tarta de queso"}}},
         ""},
        {320,
         kCategoriaHamburguesas,
         "Menú infantil",
         890,
         {{{kImpresoraCocinaCaliente, "Mini hamburguesa con patatas"}},
          {{kImpresoraBarra, "Zumo de melocotón"}},
          {{kImpresoraBarra, "Helado de vainilla"}}},
         "Cortar la hamburguesa en trozos"},
    };
    return menus;
}

constexpr std::array kClientes = {
    "José Martínez Núñez", "María Ángeles Peña", "Begoña Ibáñez Sáez", "Águeda Güemes",
    "Iñaki Zubiría Olaño", "Lucía Fernández",    "Raúl Castaño Díaz",  "Noemí Pérez Ortuño",
};

constexpr std::array kCalles = {
    "calle Mayor 12, 3º B",
    "calle Pingüino 7, 2º izq.",
    "calle Real del Alcázar 4, bajo",
    "calle Cigüeña 33, portal 2, 5º D",
    "calle Nuñez de Balboa 18, ático",
    "calle Peñalara 9",
};

constexpr std::array kComentarios = {
    "",
    "Llamar al timbre del 2º * el portero no funciona",
    "Por favor, traed servilletas. ¡Gracias!",
    "Alergia a los frutos secos ** muy importante",
    "Sin gluten si es posible; pago con billete de 50 €",
    "Dejar en la puerta, bebé durmiendo",
};

constexpr std::array kHoras = {"13:30", "14:00", "14:45", "20:30", "21:15", "22:00"};

class Azar {
public:
    explicit Azar(std::uint64_t semilla) : motor_(semilla) {}
    // mt19937_64 is defined bit for bit by the C++ standard: same seed, same order anywhere.
    std::size_t Menor(std::size_t n) { return n == 0 ? 0 : static_cast<std::size_t>(motor_() % n); }
    bool Uno(std::size_t de) { return Menor(de) == 0; }

private:
    std::mt19937_64 motor_;
};

std::string Dos(int n) {
    char b[8];
    std::snprintf(b, sizeof b, "%02d", n);
    return b;
}

ProductoGenerado ProductoDeCarta(Azar& azar) {
    const auto& carta = Carta();
    const Plato& plato = carta[azar.Menor(carta.size())];
    ProductoGenerado p;
    p.Cantidad = 1 + static_cast<int>(azar.Menor(3));
    p.Nombre = plato.Nombre;
    for (const char* opcion : plato.Opciones) {
        if (azar.Uno(2)) {
            p.Nombre += std::string(" - ") + opcion;
        }
    }
    p.Precio = TextoImporte(plato.Centimos * p.Cantidad);
    p.IdProducto = plato.Id;
    p.IdCategoria = plato.Categoria;
    return p;
}

ProductoGenerado ProductoDeMenu(Azar& azar) {
    const auto& menus = Menus();
    const Menu& menu = menus[azar.Menor(menus.size())];
    ProductoGenerado p;
    p.Cantidad = 1 + static_cast<int>(azar.Menor(2));
    p.Nombre = menu.Nombre;
    for (const auto& parte : menu.Partes) {
        p.Nombre += std::string(" - ") + parte[1];
        if (!p.Opciones.empty()) {
            p.Opciones += "&&";
        }
        p.Opciones += std::string(parte[0]) + "//1//" + parte[1];
    }
    if (*menu.TextoLibre != '\0') {
        p.Opciones += std::string("&&TEXTOLIBRE//") + menu.TextoLibre;
    }
    p.Precio = TextoImporte(menu.Centimos * p.Cantidad);
    p.IdProducto = menu.Id;
    p.IdCategoria = menu.Categoria;
    return p;
}

long Centimos(const std::string& importe) {
    // Only reads amounts written by TextoImporte.
    const auto punto = importe.find('.');
    return std::stol(importe.substr(0, punto)) * 100 + std::stol(importe.substr(punto + 1));
}

} // namespace

std::vector<PlatoDeCarta> PlatosDeCarta() {
    std::vector<PlatoDeCarta> platos;
    for (const Plato& p : Carta()) {
        platos.push_back({p.Id, p.Categoria, p.Nombre, p.Centimos});
    }
    for (const Menu& m : Menus()) {
        platos.push_back({m.Id, m.Categoria, m.Nombre, m.Centimos});
    }
    return platos;
}

std::string TextoImporte(long centimos) {
    const bool negativo = centimos < 0;
    const long valor = negativo ? -centimos : centimos;
    return std::string(negativo ? "-" : "") + std::to_string(valor / 100) + "." +
           Dos(static_cast<int>(valor % 100));
}

bool LeerClasePedido(std::string_view texto, ClasePedido& clase) {
    static constexpr std::array<std::pair<std::string_view, ClasePedido>, 5> nombres = {{
        {"domicilio", ClasePedido::Domicilio},
        {"recoger", ClasePedido::Recoger},
        {"programado", ClasePedido::Programado},
        {"efectivo", ClasePedido::Efectivo},
        {"mezcla", ClasePedido::Mezcla},
    }};
    for (const auto& [nombre, valor] : nombres) {
        if (texto == nombre) {
            clase = valor;
            return true;
        }
    }
    return false;
}

std::string LineaPedido(const PedidoGenerado& p) {
    std::string productos;
    for (const auto& producto : p.Productos) {
        productos += std::to_string(producto.Cantidad) + "%" + producto.Nombre + "%" +
                     producto.Precio + "%" + std::to_string(producto.IdProducto) + "%" +
                     std::to_string(producto.IdCategoria);
        if (!producto.Opciones.empty()) {
            productos += "%" + producto.Opciones;
        }
        productos += ";";
    }
    std::string tiempos = p.RealizadoEl + "%%" + p.Para;
    if (p.Programado) {
        tiempos += "%%" + p.ParaDia + "%%" + (p.RetenerCocina ? "n" : "");
    }
    const std::array<const std::string*, 18> datos = {
        &p.ImporteDescuento,  &p.TotalPedido,    &p.IdCliente,
        &p.Cliente,           &p.FormaEntrega,   &tiempos,
        &p.PedidosAnteriores, &p.CodigoPago,     &p.FormaPago,
        &p.Telefono,          &p.Estado,         &p.TiempoOMotivo,
        &p.CodigoPromocion,   &p.ComisionPaypal, &p.QuienAsume,
        &p.WebParticular,     &p.TotalBruto,     &p.HoraAceptacion,
    };
    std::string lista;
    for (std::size_t i = 0; i < datos.size(); ++i) {
        lista += (i == 0 ? "" : ";") + *datos[i];
    }
    return "#" + p.Apertura + "*" + p.Origen + "*" + p.NumPedido + "*" + productos + "*" +
           p.ImporteEnvio + "*" + lista + "*" + p.Comentarios + "#";
}

PedidoGenerado GenerarPedido(std::uint64_t semilla, ClasePedido clase, int productos) {
    Azar azar(semilla);
    PedidoGenerado p;
    if (clase == ClasePedido::Mezcla) {
        constexpr std::array clases = {ClasePedido::Domicilio, ClasePedido::Recoger,
                                       ClasePedido::Programado, ClasePedido::Efectivo};
        clase = clases[azar.Menor(clases.size())];
    }
    const bool variado = clase != ClasePedido::Domicilio || azar.Uno(2);

    p.Origen = "7";
    p.NumPedido = std::to_string(100000 + semilla % 900000);
    const int cuantos =
        productos > 0 ? std::min(productos, 50) : 1 + static_cast<int>(azar.Menor(4));
    long subtotal = 0;
    for (int i = 0; i < cuantos; ++i) {
        p.Productos.push_back(azar.Uno(4) ? ProductoDeMenu(azar) : ProductoDeCarta(azar));
        subtotal += Centimos(p.Productos.back().Precio);
    }

    p.IdCliente = std::to_string(5000 + azar.Menor(4000));
    p.Cliente = kClientes[azar.Menor(kClientes.size())];
    p.Telefono = "6" + std::to_string(10000000 + azar.Menor(89999999));
    p.PedidosAnteriores = std::to_string(azar.Menor(13));
    p.RealizadoEl = "22/11/2026 " + Dos(12 + static_cast<int>(azar.Menor(11))) + ":" +
                    Dos(static_cast<int>(azar.Menor(60)));
    p.Comentarios = kComentarios[azar.Menor(kComentarios.size())];
    p.WebParticular = azar.Uno(3) ? "1" : "0";

    const bool recogen =
        clase == ClasePedido::Recoger || (clase == ClasePedido::Programado && azar.Uno(2));
    p.FormaEntrega = recogen ? "Recogen" : kCalles[azar.Menor(kCalles.size())];
    long envio = recogen ? 0 : 150 + 50 * static_cast<long>(azar.Menor(4));

    if (clase == ClasePedido::Programado) {
        p.Programado = true;
        p.Para = std::string("Para: ") + kHoras[azar.Menor(kHoras.size())];
        p.ParaDia = azar.Uno(4) ? "" : "23/11/2026";
        p.RetenerCocina = azar.Uno(2);
    } else if (clase == ClasePedido::Recoger && azar.Uno(3)) {
        p.Para = std::string("Para: ") + kHoras[azar.Menor(kHoras.size())];
    }

    long descuento = 0;
    if (variado && azar.Uno(3)) {
        p.CodigoPromocion = azar.Uno(2) ? "OTOÑO10" : "BIENVENIDA";
        descuento = subtotal / 10;
        p.QuienAsume = std::to_string(azar.Menor(3));
    }

    long comision = 0;
    if (clase == ClasePedido::Efectivo) {
        p.CodigoPago = "1";
        const long total = subtotal + envio - descuento;
        const long billete = total < 2000 ? 2000 : (total < 5000 ? 5000 : 10000);
        p.FormaPago = "Efectivo Cambio: " + std::to_string(billete / 100);
    } else if (variado && azar.Uno(4)) {
        p.CodigoPago = "6";
        p.FormaPago = "PayPal";
        comision = 35 + (subtotal + envio - descuento) * 34 / 1000;
    } else if (clase == ClasePedido::Recoger && azar.Uno(3)) {
        p.CodigoPago = "1";
        p.FormaPago = "Efectivo";
    } else {
        p.CodigoPago = "6";
        p.FormaPago = "Tarjeta";
    }

    p.ImporteEnvio = TextoImporte(envio);
    p.ImporteDescuento = TextoImporte(descuento);
    p.ComisionPaypal = TextoImporte(comision);
    p.TotalBruto = TextoImporte(subtotal + envio);
    p.TotalPedido = TextoImporte(subtotal + envio - descuento + comision);
    return p;
}

} // namespace simulador
