#pragma once

#include <QString>
#include <optional>

class ModuloPrincipal;
struct Pedido;

// A message of the service (a customer's or the operator's, or a request to cancel an order)
// and its answer: the reading of the poll's reply, what the windows show for it, and the one
// call that answers it. The windows only show what is decided here.
namespace mensaje {

inline const QString CabeceraCliente = QStringLiteral("MENSAJE DE CLIENTE");
inline const QString CabeceraTarvimenta = QStringLiteral("MENSAJE DE TARVIMENTA");
inline const QString InfoCliente =
    QStringLiteral("Puedes responderle escribiendo abajo \"Tu respuesta\" y pulsando en responder "
                   "(recomendado), o solamente indicar al cliente \"Visto\"");
inline const QString InfoTarvimenta =
    QStringLiteral("Puedes respondernos escribiendo abajo \"Tu respuesta\" y pulsando en "
                   "responder (recomendado), o solamente indicarnos \"Visto\"");
inline const QString InfoCancelarCliente = QStringLiteral(
    "Puedes cancelar el pedido pulsando en \"Cancelar pedido\" o no admitir la cancelación, "
    "pudiendo añadir información para el cliente en \"Tu respuesta\"");
inline const QString InfoCancelarTarvimenta = QStringLiteral(
    "Puedes cancelar el pedido pulsando en \"Cancelar pedido\" o no admitir la cancelación, "
    "pudiendo añadirnos información en \"Tu respuesta\"");
inline const QString YaRechazado =
    QStringLiteral("El pedido ya está rechazado/cancelado, no se puede cancelar");
inline const QString SinConexion = QStringLiteral(
    "No se ha podido responder al mensaje porque no hay conexión, por favor, compruebe su "
    "conexión a Internet y vuelva a intentarlo.");
inline const QString SinMensajeReciente = QStringLiteral("No se ha encontrado mensaje reciente.");
inline const QString MensajeIlegible =
    QStringLiteral("Se ha recibido un mensaje que no se puede leer; se descarta.");
inline const QString Visto = QStringLiteral("Visto");

// The fixed refusals of a cancellation: caption of the button and the text sent.
struct Negativa {
    const char* boton;
    QString caption;
    QString texto;
};
inline const Negativa Negativas[] = {
    {"butNCNoEspecificado", QStringLiteral("No especificado"),
     QStringLiteral("No especificado motivo de no cancelación, lo sentimos.")},
    {"butNCYaEnPreparacion", QStringLiteral("Ya en preparación"),
     QStringLiteral("El pedido ya está en preparación, lo sentimos.")},
    {"butNCYaEnReparto", QStringLiteral("Ya en reparto"),
     QStringLiteral("El pedido ya está en reparto, lo sentimos.")},
};

// Repairs the poll's reply and keeps it in MensajeActual. False, with MensajeActual as it
// was, when the reply is no JSON object: there would be nothing to show or to answer.
bool LeerMensaje(ModuloPrincipal& m, QString respuesta);

// A key of MensajeActual as text ("" while there is no message or no such key).
QString Campo(const ModuloPrincipal& m, const QString& clave);
// `tipo` 2: the customer asks to cancel the order.
bool EsCancelacion(const ModuloPrincipal& m);
// Sender "US" or "RE" is the customer, "TV" the operator; any other sender is neither.
enum class Remitente { Cliente, Tarvimenta, Otro };
Remitente QuienEnvia(const ModuloPrincipal& m);

// The heading and the help line above the answer, for a plain message or a cancellation
// request; none for a sender who is neither (the labels keep what they had).
struct Cabecera {
    QString titulo;
    QString info;
};
std::optional<Cabecera> CabeceraDe(const ModuloPrincipal& m, bool cancelacion);

// The caption of the order frame: state, and for an accepted order its minutes and
// delivery hour when it has them.
QString TituloPedido(const Pedido& p);

// Reads the order the message is about into PedidoActual. False when the message is about
// no order or the service returned no order line: then the record is left as it was.
bool LeerPedidoDelMensaje(ModuloPrincipal& m);

// "pedidosgprs/respuestamensajes?a=...": the answer goes as written (no encoding).
QString RutaRespuesta(const ModuloPrincipal& m, const QString& id, const QString& texto);

// Sends the answer to message `id`. True when the service took it; a failure word ("error",
// an empty body, a server error page) gives the connection box and false.
bool EnviarRespuesta(ModuloPrincipal& m, const QString& id, const QString& texto);

// What the last-message window shows as the answer: "Visto" for an empty one.
QString RespuestaGuardada(const QString& texto);
void GuardarRespuesta(ModuloPrincipal& m, const QString& texto);

} // namespace mensaje
