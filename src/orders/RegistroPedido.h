#pragma once

#include <QString>

class ModuloPrincipal;

// The order line of the service and the one order record of the desk.
//
// An order line is "#...#" (see EsLineaPedido), cut by "*" into: opening, unused,
// order number, product list, delivery charge, order data list, comment (and the pieces
// of a comment that held "*"). Products are cut by ";" and their fields by "%"; the order
// data list by ";"; the times field inside it by "%%". Nothing can be escaped.

// Empties PedidoActual.
void LimpiarPedido(ModuloPrincipal& m);

// Repairs `respuesta` in place (UTF-8 folded back, once per reply), fills PedidoActual
// and returns the plain-text summary of the order. Does not test the line: the callers
// have. Any failure on the way (a missing piece, an empty product list, a number that does
// not convert) leaves the record filled as far as it got, shows the error box
// ("Se ha producido un error. Tipo de error = ...") and returns an empty text.
QString ParsearPedido(ModuloPrincipal& m, QString& respuesta);

// "pedidosgprs/obtenerPedido?..." for order `numero`.
QString RutaObtenerPedido(const ModuloPrincipal& m, const QString& numero);

// Fetches one order into PedidoActual. Always true; when the reply is no order line the
// record is left as it was and `resumen` is not touched. Otherwise `resumen` (when given)
// receives the summary, which the past-order window shows in its txtPedidoAnt box.
bool ObtenerPedido(ModuloPrincipal& m, const QString& numero, QString* resumen = nullptr);
