#include "orders/RespuestaPedido.h"

#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "printing/RutasImpresion.h"

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
void Imprimir(ModuloPrincipal& m) {
    ImprimirPedidoSegunEstado(m, m.PedidoActual.Estado, m.PedidoActual.FormaEntrega, true, false);
}
} // namespace

bool EnviarAceptacion(ModuloPrincipal& m, const std::function<void()>& alResponder) {
    if (m.ImprimirAntesAceptar) {
        m.PedidoActual.Estado = QStringLiteral("Aceptado");
        Imprimir(m);
    }
    const QString r = m.ConsultarServidor(RutaRespuesta(
        m, QStringLiteral("Accepted"), m.PedidoActual.TiempoEstimado + QStringLiteral("_Minutos")));
    if (r == QLatin1String("error")) {
        m.cajas().mostrar(SinConexion, estilo::SoloAceptar);
        return false;
    }
    m.PedidoNuevoPendiente = false;
    if (alResponder) {
        alResponder();
    }
    if (!m.ImprimirAntesAceptar) {
        m.PedidoActual.Estado = QStringLiteral("Aceptado");
        Imprimir(m);
    }
    return true;
}

bool EnviarRechazo(ModuloPrincipal& m, const QString& seleccion, const QString& masInfo,
                   const std::function<void()>& alResponder) {
    const QString r = m.ConsultarServidor(
        RutaRespuesta(m, QStringLiteral("Rejected"), ComponerMotivo(seleccion, masInfo)));
    if (r == QLatin1String("error")) {
        m.cajas().mostrar(SinConexion, estilo::Exclamacion);
        return false;
    }
    m.PedidoNuevoPendiente = false;
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
