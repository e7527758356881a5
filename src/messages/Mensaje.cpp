#include "messages/Mensaje.h"

#include "base/Conversiones.h"
#include "base/ModuloPrincipal.h"
#include "orders/RegistroPedido.h"
#include "orders/RespuestaPedido.h"
#include "platform/CajaMensajes.h"
#include "printing/PrimitivasTicket.h"
#include "server/LectorJson.h"
#include "server/TextoServidor.h"
#include "server/ValorJson.h"

namespace mensaje {

bool LeerMensaje(ModuloPrincipal& m, QString respuesta) {
    ArreglarUtf8(respuesta);
    const ValorJson documento = JSON_Parse(respuesta);
    if (documento.tipo() != ValorJson::Tipo::Diccionario) {
        return false;
    }
    m.MensajeActual = documento.diccionarioCompartido();
    return true;
}

QString Campo(const ModuloPrincipal& m, const QString& clave) {
    if (!m.MensajeActual || !m.MensajeActual->Exists(clave)) {
        return {};
    }
    const ValorJson& v = m.MensajeActual->Item(clave);
    switch (v.tipo()) {
    case ValorJson::Tipo::Texto:
    case ValorJson::Tipo::Decimal:
    case ValorJson::Tipo::Booleano:
        return v.aTexto();
    default:
        return {};
    }
}

bool EsCancelacion(const ModuloPrincipal& m) {
    const QString tipo = Campo(m, QStringLiteral("tipo"));
    return clasico::IsNumeric(tipo) && clasico::CDec(tipo) == clasico::CDec(u"2");
}

Remitente QuienEnvia(const ModuloPrincipal& m) {
    const QString quien = Campo(m, QStringLiteral("quienenvia"));
    if (quien == QLatin1String("US") || quien == QLatin1String("RE")) {
        return Remitente::Cliente;
    }
    return quien == QLatin1String("TV") ? Remitente::Tarvimenta : Remitente::Otro;
}

std::optional<Cabecera> CabeceraDe(const ModuloPrincipal& m, bool cancelacion) {
    switch (QuienEnvia(m)) {
    case Remitente::Cliente:
        return Cabecera{CabeceraCliente, cancelacion ? InfoCancelarCliente : InfoCliente};
    case Remitente::Tarvimenta:
        return Cabecera{CabeceraTarvimenta, cancelacion ? InfoCancelarTarvimenta : InfoTarvimenta};
    case Remitente::Otro:
        break;
    }
    return std::nullopt;
}

QString TituloPedido(const Pedido& p) {
    const QString cabeza =
        QStringLiteral("Pedido ") + p.NumPedido + QStringLiteral(" (") + p.Estado;
    if (!estado::esAceptado(p.Estado)) {
        return cabeza + u')';
    }
    const QString& t = p.TiempoEstimado;
    // A time that is no number counts as none, like the word "null".
    const bool sinTiempo =
        t == QLatin1String("null") || !clasico::IsNumeric(t) || clasico::CDec(t).esCero();
    if (sinTiempo) {
        return cabeza + QStringLiteral(" - Tiempo estimado no especificado)");
    }
    return cabeza + QStringLiteral(" - ") + t + QStringLiteral(" minutos - Hora prev. entrega: ") +
           HoraEntregaEstimada(p) + u')';
}

bool LeerPedidoDelMensaje(ModuloPrincipal& m) {
    const QString numero = Campo(m, QStringLiteral("numeropedidoest"));
    if (numero.isEmpty()) {
        return false;
    }
    QString respuesta = m.ConsultarServidor(RutaObtenerPedido(m, numero));
    if (!EsLineaPedido(respuesta)) {
        return false;
    }
    ParsearPedido(m, respuesta);
    return true;
}

QString RutaRespuesta(const ModuloPrincipal& m, const QString& id, const QString& texto) {
    return QStringLiteral("pedidosgprs/respuestamensajes?a=") + QString::number(m.RestId) +
           QStringLiteral("&im=") + id + QStringLiteral("&mr=") + texto + QStringLiteral("&p=") +
           m.Pgprs;
}

bool EnviarRespuesta(ModuloPrincipal& m, const QString& id, const QString& texto) {
    const QString respuesta = m.ConsultarServidor(RutaRespuesta(m, id, texto));
    if (respuesta_pedido::RespuestaNoTomada(respuesta)) {
        m.cajas().mostrar(SinConexion);
        return false;
    }
    return true;
}

QString RespuestaGuardada(const QString& texto) {
    return texto.isEmpty() ? Visto : texto;
}

void GuardarRespuesta(ModuloPrincipal& m, const QString& texto) {
    if (m.MensajeActual) {
        m.MensajeActual->Item(QStringLiteral("respuesta")) = ValorJson(RespuestaGuardada(texto));
    }
}

} // namespace mensaje
