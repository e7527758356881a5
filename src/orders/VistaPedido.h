#pragma once

#include <QList>
#include <QString>

class ModuloPrincipal;
struct Pedido;

// What an order window shows, worked out from the order record and the configuration.
// The windows (new order, past order) only put these texts, colours and visibilities on
// their controls.
namespace vista {

// Colours as the toolkit's hexadecimal texts (blue, green, red).
inline const QString VerdeAsentado = QStringLiteral("&h006400");
inline const QString AzulAtencion = QStringLiteral("&H00DF8E28");

inline const QString FinProductos = QStringLiteral("==== FIN DE LOS PRODUCTOS ==== ");
inline const QString TextoCubierto = QStringLiteral("Pulse Silenciar 1 min. para ver");

// One row of the product list: units, text, price.
struct Fila {
    QString cantidad;
    QString texto;
    QString precio;
};

// Characters per line of the product column: 720 over the font size, to the nearest
// whole number (halves to even). A size of 0 is a division by zero.
int AnchoLinea(qint16 tamannoFuente);

// The rows of the product list, closing row included. Each product's name and each of its
// options (the pieces of Nombre between " - ") are cut to `ancho`; the units and the price
// stand on the first row of the product only. A piece that gives no line is a run-time
// error (9), as reading the bounds of an empty cut is.
QList<Fila> FilasProductos(const Pedido& p, int ancho);

// The commission shows only when it reads as a number and is above 0.
bool ComisionVisible(const QString& comision);

// Promotion labels: hidden without a code; otherwise visible when either flag is on.
bool PromocionVisible(const ModuloPrincipal& m);
QString TextoPromocion(const ModuloPrincipal& m);

// The wanted time without "Para: ": "Ahora", or the hour, a blank and the day in lower case.
bool ParaEsAhora(const Pedido& p);
QString TextoPara(const Pedido& p);

// "No especificado" for "null" or a numeric 0, else the minutes and " Minutos". A text that
// is neither numeric nor "null" is a type mismatch (13).
QString TextoTiempoEstimado(const QString& tiempo);

// The background of a flashing tick: red 255, green 130 plus IntensidadParpadeo x 125 / 255
// (nearest whole number), blue IntensidadParpadeo, as a classic colour value. The product
// is worked in 16 bits: an intensity above 262 overflows (error 6). Components beyond 255
// count as 255; a negative one is an invalid argument (5).
unsigned ColorParpadeo(qint16 intensidad);

} // namespace vista
