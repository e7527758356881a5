#include "orders/Sondeo.h"

#include "base/ModuloPrincipal.h"
#include "server/TextoServidor.h"

namespace sondeo {

Respuesta Clasificar(const QString& r) {
    if (EsLineaPedido(r)) {
        return Respuesta::Pedido;
    }
    if (r == QLatin1String("IMPSESION")) {
        return Respuesta::ImprimirSesion;
    }
    if (r == QLatin1String("IMPDIA")) {
        return Respuesta::ImprimirDia;
    }
    if (r.contains(QLatin1String("estadoapertura"))) {
        return Respuesta::EstadoApertura;
    }
    if (r.contains(QLatin1String("mensajeestablec"))) {
        return Respuesta::Mensaje;
    }
    if (r.contains(QLatin1String("forzaractualizarahora:si"))) {
        return Respuesta::ForzarActualizacion;
    }
    return Respuesta::Nada;
}

QString RutaPedidosNuevos(const ModuloPrincipal& m) {
    // The Boolean travels as the classic conversion writes it.
    const QString resumen =
        m.PrintResumenAuto ? QStringLiteral("Verdadero") : QStringLiteral("Falso");
    return QStringLiteral("pedidosgprs/pedidosnuevos?restid=") + QString::number(m.RestId) +
           QStringLiteral("&password=") + m.Pgprs + QStringLiteral("&numconfig=") +
           QString::number(m.NumConfig) + QStringLiteral("&modeloImpresora=3&version=") +
           ModuloPrincipal::Version + QStringLiteral("&printresumenauto=") + resumen;
}

Apertura LeerApertura(const QString& respuesta) {
    Apertura a;
    a.texto = respuesta;
    a.texto.remove(QStringLiteral("estadoapertura:"));
    if (a.texto == QLatin1String("Abierto")) {
        a.colorFondo = colores::Verde;
    } else if (a.texto == QLatin1String("Cerrado")) {
        a.colorFondo = colores::Rojo;
    } else {
        // A closing with an end time, or any other word: yellow, and the way to reopen.
        a.colorFondo = colores::Amarillo;
        a.cancelarCerrarVisible = true;
        a.cerrarVisible = false;
        a.habilitarCerrar = false;
    }
    return a;
}

} // namespace sondeo
