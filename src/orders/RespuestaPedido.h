#pragma once

#include <QString>
#include <functional>

class ModuloPrincipal;

// The answer to an order: one call, respuestapedidos, for accepting, rejecting and cancelling.
// The windows only gather the answer; these functions send it, print and report.
namespace respuesta_pedido {

inline const QString SinMotivo = QStringLiteral("-- Seleccionar Motivo de Rechazo --");
inline const QString NoHayIngredientes = QStringLiteral("No hay ingredientes.");
inline const QString SinConexion = QStringLiteral(
    "No se ha podido responder al pedido porque no hay conexión, por favor, compruebe su "
    "conexión a Internet y vuelva a intentarlo.");
inline const QString FaltaMotivo = QStringLiteral(
    "Debe indicar un motivo de rechazo o escribir al menos 10 caracteres en el campo Más "
    "información");
inline const QString CanceladoPagado = QStringLiteral(
    "PEDIDO CANCELADO CORRECTAMENTE. SE HA DEVUELTO EL IMPORTE DEL PAGO, INFORMANDO AL "
    "CLIENTE. POR FAVOR, AVISE A COCINA PARA QUE NO PREPARE EL PEDIDO.");
inline const QString CanceladoNoPagado = QStringLiteral(
    "PEDIDO CANCELADO CORRECTAMENTE, INFORMANDO AL CLIENTE. POR FAVOR, AVISE A COCINA PARA QUE "
    "NO PREPARE EL PEDIDO.");

// The buttons of the minutes window: 17 of them, index 0 to 16.
constexpr int NumBotonesMinutos = 17;
int MinutosDeBoton(int indice);
QString TextoBotonMinutos(int indice);

// The path and query of the answer for UltimoIdPedido; values go as they stand (no encoding).
QString RutaRespuesta(const ModuloPrincipal& m, const QString& ak, const QString& mensaje);

// The reason sent to the service: the chosen reason without the placeholder, a blank, the
// free text, all trimmed.
QString ComponerMotivo(const QString& seleccion, const QString& masInfo);

// Whether a rejection may go: a listed reason (index 1 or more) or ten characters of free text.
bool MotivoSuficiente(int indiceSeleccion, const QString& masInfo);

// The words of the rejection window for the state of the order: a rejection of a new order or
// the cancellation of an accepted one.
struct TextosRechazo {
    QString titulo;
    QString boton;
    QString infoPago;
};
TextosRechazo TextosRechazoSegunEstado(const QString& estado);

// Whether the service did not take an answer: the failure word "error", an empty body, a
// server error ({"status":500}), an HTML page (a proxy's "<title>502", a server's error
// page), or bytes that are not text. Any other text is taken.
bool RespuestaNoTomada(const QString& respuesta);

// Sends the acceptance of UltimoIdPedido with TiempoEstimado as it stands and prints (before
// the send with ImprimirAntesAceptar, else after it). When the service took it, `alResponder`
// runs right after the send (the windows close) and, once the tickets are out (whatever a
// printer did), PedidoNuevoPendiente drops and `alTerminar` runs (polling resumes). An answer
// not taken gives the connection box and changes nothing.
bool EnviarAceptacion(ModuloPrincipal& m, const std::function<void()>& alResponder,
                      const std::function<void()>& alTerminar = nullptr);

// The acceptance of an order taken without a window. When the service does not take it there
// is no box (nobody may be at the counter): LabelInfo says so and the order waits in
// AceptacionPendiente, to be sent again before the next poll. A pending one, if any, is the
// one sent, restored into PedidoActual; its tickets print once, whatever the number of tries.
bool EnviarAceptacionAutomatica(ModuloPrincipal& m, const std::function<void()>& alResponder);
QString TextoAceptacionAutoNoTomada(const QString& numero);
QString TextoAceptacionAutoTomada(const QString& numero);

// Sends the rejection with the composed reason; when taken `alResponder` runs, the order
// becomes "Rechazado" with MotivoRechazo the chosen reason alone, it is printed, and then
// PedidoNuevoPendiente drops and `alTerminar` runs.
bool EnviarRechazo(ModuloPrincipal& m, const QString& seleccion, const QString& masInfo,
                   const std::function<void()>& alResponder,
                   const std::function<void()>& alTerminar = nullptr);

// The box after cancelling an accepted order, by EstadoPago (any case).
QString TextoCancelado(const QString& estadoPago);
// The words to the customer after a cancellation, by EstadoPago, with the free text.
QString MensajeClienteCancelado(const QString& estadoPago, const QString& masInfo);

} // namespace respuesta_pedido
