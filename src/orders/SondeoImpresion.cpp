#include "orders/SondeoImpresion.h"

#include "base/ArchivosLocales.h"
#include "base/CaminoPedido.h"
#include "base/Conversiones.h"
#include "base/Diario.h"
#include "base/ModuloPrincipal.h"
#include "orders/RegistroPedido.h"
#include "printing/RutasImpresion.h"
#include "server/Configuracion.h"
#include "server/TextoServidor.h"

namespace sondeo_impresion {

namespace {
constexpr qsizetype kMaximoImpresos = 20;
}

QString RutaPedidosAceptadosImprimir(const ModuloPrincipal& m) {
    return QStringLiteral("pedidosgprs/pedidosaceptadosimprimir?restid=") +
           QString::number(m.RestId) + QStringLiteral("&password=") + m.Pgprs +
           QStringLiteral("&numconfig=") + QString::number(m.NumConfig) +
           QStringLiteral("&modeloImpresora=3&version=") + ModuloPrincipal::Version +
           QStringLiteral("&pedexec=") + m.UltPedIm;
}

Respuesta Clasificar(const QString& respuesta, qint16 modo) {
    if (EsLineaPedido(respuesta)) {
        return Respuesta::Pedido;
    }
    if (modo == 2 && respuesta.contains(QLatin1String("mensajeestablec"))) {
        return Respuesta::Mensaje;
    }
    return Respuesta::Nada;
}

QString AnadirImpreso(const QString& lista, const QString& numero) {
    QStringList numeros = clasico::Split(lista, QStringLiteral(","));
    numeros.prepend(numero);
    if (numeros.size() > kMaximoImpresos) {
        numeros.removeLast();
    }
    return numeros.join(QLatin1Char(','));
}

void ImprimirPedidoAceptado(ModuloPrincipal& m, QString respuesta) {
    if (m.ActualizarConfigConPedido) {
        // Only the variables change: nothing is applied to the windows here.
        bool parametro = true;
        ObtenerConfiguracion(m, parametro);
    }
    ParsearPedido(m, respuesta);
    m.UltimoIdPedido = m.PedidoActual.NumPedido;
    qCInfo(diarioPedidos).noquote() << "pedido" << m.UltimoIdPedido << "aceptado, a imprimir";
    {
        // No other poll may take an order while this one prints (a printer's box may be up).
        const OcupacionCamino ocupado(m);
        ImprimirPedidoSegunEstado(m, m.PedidoActual.Estado, m.PedidoActual.FormaEntrega, true,
                                  false);
    }
    m.UltPedIm = AnadirImpreso(m.UltPedIm, m.UltimoIdPedido);
    // Nobody may be at the counter: a write that fails is a lasting line, not a box that
    // stops the printing, and the list in memory still keeps this order from a second print.
    GuardarAvisando(m, QStringLiteral("ultpedim.txt"), GuardarUltPedIm);
}

} // namespace sondeo_impresion
