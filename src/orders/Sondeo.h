#pragma once

#include <QString>

class ModuloPrincipal;

// The poll for new orders: its request and the reading of its one reply.
namespace sondeo {

// What a poll reply asks the desk to do; the first matching row wins.
enum class Respuesta {
    Pedido,              // an order line between number signs
    ImprimirSesion,      // "IMPSESION": sales summary of the last session
    ImprimirDia,         // "IMPDIA": sales summary of today
    EstadoApertura,      // holds "estadoapertura": the open/closed display
    Mensaje,             // holds "mensajeestablec": a customer message (JSON)
    ForzarActualizacion, // holds "forzaractualizarahora:si"
    Nada                 // anything else, failures included
};

Respuesta Clasificar(const QString& respuesta);

// "pedidosgprs/pedidosnuevos?restid=..." for the values the desk holds now.
QString RutaPedidosNuevos(const ModuloPrincipal& m);

// The open/closed display for a reply holding "estadoapertura".
struct Apertura {
    QString texto;
    unsigned colorFondo = 0; // classic colour value (blue, green, red)
    bool cancelarCerrarVisible = false;
    bool cerrarVisible = true;
    bool habilitarCerrar = true; // false: the enabled state of butCerrar is left as it is
};
Apertura LeerApertura(const QString& respuesta);

} // namespace sondeo

// Classic colour values (blue, green, red order) the windows are painted with.
namespace colores {
constexpr unsigned Verde = 65280;
constexpr unsigned Rojo = 255;
constexpr unsigned Amarillo = 65535;
constexpr unsigned Blanco = 0xFFFFFF;
} // namespace colores
