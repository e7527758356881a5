#include "orders/RespuestaPedido.h"

#include "base/Diario.h"
#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "printing/RutasImpresion.h"

#include <QStringDecoder>

namespace respuesta_pedido {

int MinutosDeBoton(int indice) {
    if (indice >= 0 && indice <= 10) {
        return 5 * (indice + 1);
    }
    switch (indice) {
    case 11:
        return 60;
    case 12:
        return 75;
    case 13:
        return 90;
    case 14:
        return 105;
    case 15:
        return 120;
    default:
        return 0;
    }
}

QString TextoBotonMinutos(int indice) {
    if (indice >= 0 && indice <= 10) {
        return QString::number(5 * (indice + 1)) + QStringLiteral(" minutos");
    }
    switch (indice) {
    case 11:
        return QStringLiteral("1 hora");
    case 12:
        return QStringLiteral("1 hora 15 min.");
    case 13:
        return QStringLiteral("1 hora 30 min.");
    case 14:
        return QStringLiteral("1 hora 45 min.");
    case 15:
        return QStringLiteral("2 horas");
    default:
        return QStringLiteral("No especificar");
    }
}

QString RutaRespuesta(const ModuloPrincipal& m, const QString& ak, const QString& mensaje) {
    return QStringLiteral("pedidosgprs/respuestapedidos?a=") + QString::number(m.RestId) +
           QStringLiteral("&o=") + m.UltimoIdPedido + QStringLiteral("&ak=") + ak +
           QStringLiteral("&m=") + mensaje + QStringLiteral("&dt=nousado&u=nousado&p=") + m.Pgprs;
}

QString ComponerMotivo(const QString& seleccion, const QString& masInfo) {
    QString motivo = seleccion;
    motivo.remove(SinMotivo);
    return (motivo + QLatin1Char(' ') + masInfo).trimmed();
}

bool MotivoSuficiente(int indiceSeleccion, const QString& masInfo) {
    return indiceSeleccion >= 1 || masInfo.size() >= 10;
}

TextosRechazo TextosRechazoSegunEstado(const QString& estado) {
    const bool aceptado =
        estado == QLatin1String("Aceptado") || estado == QLatin1String("Preparado") ||
        estado == QLatin1String("En reparto") || estado == QLatin1String("Entregado");
    if (!aceptado) {
        return {QStringLiteral("Rechazar Pedido"), QStringLiteral("Rechazar"),
                QStringLiteral("Al rechazar el pedido se le devolverá automáticamente al cliente "
                               "el importe del pago realizado :)")};
    }
    return {QStringLiteral("Cancelar Pedido"), QStringLiteral("Cancelar Pedido"),
            QStringLiteral("Al cancelar el pedido se le devolverá automáticamente al cliente el "
                           "importe del pago realizado :)")};
}

namespace {

// The reply's characters are its bytes: text is UTF-8 without control characters other than
// blanks and line ends.
bool EsTexto(const QString& respuesta) {
    const QByteArray bytes = respuesta.toLatin1();
    for (const char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        if (b < 0x20 && b != '\t' && b != '\r' && b != '\n') {
            return false;
        }
    }
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString texto = utf8(bytes);
    return !utf8.hasError() && !texto.isNull();
}

} // namespace

bool RespuestaNoTomada(const QString& respuesta) {
    // Beyond the failure words: a page of whatever stands in front of the service (a server
    // error, a proxy), and bytes that are no text, are no answer the service gave.
    return respuesta == QLatin1String("error") || respuesta.isEmpty() ||
           respuesta == QLatin1String(R"({"status":500})") ||
           respuesta.contains(QLatin1String("<title>502")) ||
           respuesta.contains(QLatin1String("<html"), Qt::CaseInsensitive) ||
           respuesta.contains(QLatin1String("<title>"), Qt::CaseInsensitive) || !EsTexto(respuesta);
}

QString TextoAceptacionAutoNoTomada(const QString& numero) {
    return QStringLiteral("No se ha podido enviar la aceptación automática del pedido ") + numero +
           QStringLiteral(": el servicio no ha respondido. Se volverá a enviar en la próxima "
                          "consulta de pedidos.");
}

QString TextoAceptacionAutoTomada(const QString& numero) {
    return QStringLiteral("Se ha enviado la aceptación automática del pedido ") + numero +
           QLatin1Char('.');
}

namespace {

void Imprimir(ModuloPrincipal& m) {
    ImprimirPedidoSegunEstado(m, m.PedidoActual.Estado, m.PedidoActual.FormaEntrega, true, false);
}

void Aceptado(ModuloPrincipal& m) {
    m.PedidoActual.Estado = QStringLiteral("Aceptado");
    Imprimir(m);
}

QString EnviarAceptado(ModuloPrincipal& m) {
    const QString r = m.ConsultarServidor(RutaRespuesta(
        m, QStringLiteral("Accepted"), m.PedidoActual.TiempoEstimado + QStringLiteral("_Minutos")));
    if (RespuestaNoTomada(r)) {
        qCWarning(diarioPedidos).noquote()
            << "pedido" << m.UltimoIdPedido << "aceptación no tomada por el servicio";
    } else {
        qCInfo(diarioPedidos).noquote() << "pedido" << m.UltimoIdPedido << "aceptado,"
                                        << m.PedidoActual.TiempoEstimado << "minutos";
    }
    return r;
}

// Once the service took an answer, the order is done with when its tickets are out, even if
// something on the way escapes: the flag drops and polling resumes, or the desk would wait for
// an answer that was already given.
class AlTerminar {
public:
    AlTerminar(ModuloPrincipal& m, std::function<void()> f) : m_(m), f_(std::move(f)) {}
    ~AlTerminar() {
        m_.PedidoNuevoPendiente = false;
        if (f_) {
            f_();
        }
    }
    AlTerminar(const AlTerminar&) = delete;
    AlTerminar& operator=(const AlTerminar&) = delete;

private:
    ModuloPrincipal& m_;
    std::function<void()> f_;
};

} // namespace

bool EnviarAceptacion(ModuloPrincipal& m, const std::function<void()>& alResponder,
                      const std::function<void()>& alTerminar) {
    if (m.ImprimirAntesAceptar) {
        Aceptado(m);
    }
    if (RespuestaNoTomada(EnviarAceptado(m))) {
        m.cajas().mostrar(SinConexion, estilo::SoloAceptar);
        return false;
    }
    const AlTerminar fin(m, alTerminar);
    if (alResponder) {
        alResponder();
    }
    if (!m.ImprimirAntesAceptar) {
        Aceptado(m);
    }
    return true;
}

bool EnviarAceptacionAutomatica(ModuloPrincipal& m, const std::function<void()>& alResponder) {
    bool impreso = false;
    const bool reintento = m.AceptacionPendiente.has_value();
    if (reintento) {
        m.PedidoActual = m.AceptacionPendiente->pedido;
        m.UltimoIdPedido = m.AceptacionPendiente->id;
        impreso = m.AceptacionPendiente->impreso;
    }
    if (m.ImprimirAntesAceptar && !impreso) {
        Aceptado(m);
        impreso = true;
    }
    if (RespuestaNoTomada(EnviarAceptado(m))) {
        m.AceptacionPendiente =
            ModuloPrincipal::AceptacionSinTomar{m.PedidoActual, m.UltimoIdPedido, impreso};
        Q_EMIT m.textoInfo(TextoAceptacionAutoNoTomada(m.UltimoIdPedido));
        return false;
    }
    m.AceptacionPendiente.reset();
    if (reintento) {
        Q_EMIT m.textoInfo(TextoAceptacionAutoTomada(m.UltimoIdPedido));
    }
    const AlTerminar fin(m, nullptr);
    if (alResponder) {
        alResponder();
    }
    if (!impreso) {
        Aceptado(m);
    }
    return true;
}

bool EnviarRechazo(ModuloPrincipal& m, const QString& seleccion, const QString& masInfo,
                   const std::function<void()>& alResponder,
                   const std::function<void()>& alTerminar) {
    const QString r = m.ConsultarServidor(
        RutaRespuesta(m, QStringLiteral("Rejected"), ComponerMotivo(seleccion, masInfo)));
    if (RespuestaNoTomada(r)) {
        qCWarning(diarioPedidos).noquote()
            << "pedido" << m.UltimoIdPedido << "rechazo no tomado por el servicio";
        m.cajas().mostrar(SinConexion, estilo::Exclamacion);
        return false;
    }
    qCInfo(diarioPedidos).noquote()
        << "pedido" << m.UltimoIdPedido << "rechazado:" << ComponerMotivo(seleccion, masInfo);
    const AlTerminar fin(m, alTerminar);
    if (alResponder) {
        alResponder();
    }
    m.PedidoActual.Estado = QStringLiteral("Rechazado");
    m.PedidoActual.MotivoRechazo = seleccion;
    Imprimir(m);
    return true;
}

QString TextoCancelado(const QString& estadoPago) {
    return estadoPago.compare(QLatin1String("PAGADO"), Qt::CaseInsensitive) == 0
               ? CanceladoPagado
               : CanceladoNoPagado;
}

QString MensajeClienteCancelado(const QString& estadoPago, const QString& masInfo) {
    const bool pagado = estadoPago.compare(QLatin1String("PAGADO"), Qt::CaseInsensitive) == 0;
    return (pagado
                ? QStringLiteral("Se ha cancelado el pedido y se ha devuelto el importe del pago. ")
                : QStringLiteral("Se ha cancelado el pedido. ")) +
           masInfo;
}

} // namespace respuesta_pedido
