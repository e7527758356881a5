#pragma once

#include <QString>

class ModuloPrincipal;

// The poll of a desk that only prints (modes 1 and 2): it asks for orders already accepted
// elsewhere, prints each one with no window or sound, and tells the service which ones it has
// printed ("&pedexec=", the list kept in UltPedIm and ultpedim.txt). That list is all that
// keeps an order from printing twice, also across a restart.
namespace sondeo_impresion {

// Mode 1 prints; mode 2 prints and also takes customer messages.
inline bool EsModoImpresion(qint16 modo) {
    return modo == 1 || modo == 2;
}

// "pedidosgprs/pedidosaceptadosimprimir?restid=...&pedexec=" UltPedIm.
QString RutaPedidosAceptadosImprimir(const ModuloPrincipal& m);

enum class Respuesta {
    Pedido,  // an order line between number signs
    Mensaje, // mode 2 only: a reply holding "mensajeestablec"
    Nada     // anything else, the new-order poll's markers included
};
Respuesta Clasificar(const QString& respuesta, qint16 modo);

// `lista` with `numero` in front; when that makes more than 20 numbers, the last one goes
// (one at most, so a list that came longer from the file shrinks no further).
QString AnadirImpreso(const QString& lista, const QString& numero);

// An accepted order from the poll: read into PedidoActual, printed on every printer as its
// state calls for (as an automatic print), then its number joins UltPedIm and the file,
// whatever the printers did. The order road is held while it prints.
void ImprimirPedidoAceptado(ModuloPrincipal& m, QString respuesta);

} // namespace sondeo_impresion
