#include "orders/VigilanciaEstado.h"

#include "base/Conversiones.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "server/TextoServidor.h"
#include "server/ValorJson.h"

namespace vigilancia {

namespace {

QString Identificacion(const ModuloPrincipal& m) {
    return QStringLiteral("?idEstablecimiento=") + QString::number(m.IdEstablecimiento) +
           QStringLiteral("&passwordconfig=") + m.PasswordConfig + QStringLiteral("&numconfig=") +
           QString::number(m.NumConfig);
}

QString Version() {
    return QStringLiteral("&modeloImpresora=3&version=") + ModuloPrincipal::Version;
}

// A status of 2 or above, read as the classic integer conversion reads it.
bool Resuelto(const QString& estado) {
    if (!clasico::IsNumeric(estado)) {
        return false;
    }
    try {
        const auto valor = clasico::Decimal::leer(estado);
        return valor && valor->redondeado() >= clasico::Decimal(2);
    } catch (const ErrorEjecucion&) {
        return false; // beyond any range: no status the service sends
    }
}

} // namespace

QString RutaEstadoPedido(const ModuloPrincipal& m) {
    return QStringLiteral("pedidosgprs/obtenerEstadoPedido") + Identificacion(m) +
           QStringLiteral("&idPedidoEst=") + m.PedidoActual.NumPedido + Version();
}

QString RutaEstadoMensaje(const ModuloPrincipal& m) {
    QString id;
    if (m.MensajeActual && m.MensajeActual->Exists(QStringLiteral("id"))) {
        id = m.MensajeActual->Item(QStringLiteral("id")).aTexto();
    }
    return QStringLiteral("pedidosgprs/obtenerEstadoMensaje") + Identificacion(m) +
           QStringLiteral("&idMensaje=") + id + Version();
}

bool PedidoResuelto(const QString& respuesta) {
    if (!EsLineaPedido(respuesta)) {
        return false;
    }
    QString estado = respuesta;
    estado.remove(QLatin1Char('#'));
    return Resuelto(estado);
}

std::optional<QString> MensajeResuelto(QString respuesta) {
    if (!EsLineaPedido(respuesta)) {
        return std::nullopt;
    }
    ArreglarUtf8(respuesta);
    respuesta.remove(QLatin1Char('#'));
    const QStringList piezas = clasico::Split(respuesta, QStringLiteral(";"));
    if (piezas.isEmpty() || !Resuelto(piezas.first())) {
        return std::nullopt;
    }
    // A reply without its answer still settles the message, with an empty answer.
    return piezas.size() > 1 ? piezas.at(1) : QString();
}

} // namespace vigilancia
