#pragma once

#include <QString>
#include <optional>

class ModuloPrincipal;

// The watch on the order or message on screen: while it waits, the service is asked whether
// it has been settled elsewhere. A status of 2 or above means it has.
namespace vigilancia {

// "pedidosgprs/obtenerEstadoPedido?..." for PedidoActual.
QString RutaEstadoPedido(const ModuloPrincipal& m);
// "pedidosgprs/obtenerEstadoMensaje?..." for the `id` of MensajeActual.
QString RutaEstadoMensaje(const ModuloPrincipal& m);

// The order's reply "#2#": true when the order is no longer pending. A reply that is not
// between number signs, or whose status is no number or below 2, leaves it pending.
bool PedidoResuelto(const QString& respuesta);

// The message's reply "#2;answer#": the answer given elsewhere when the message is no longer
// pending (empty when the reply carries none), nothing while it is.
std::optional<QString> MensajeResuelto(QString respuesta);

} // namespace vigilancia
