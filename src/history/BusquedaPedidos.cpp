#include "history/BusquedaPedidos.h"

#include "base/CaminoPedido.h"
#include "base/Conversiones.h"
#include "base/ModuloPrincipal.h"
#include "base/Pedido.h"
#include "platform/CajaMensajes.h"
#include "printing/RutasImpresion.h"
#include "server/LectorJson.h"
#include "server/TextoServidor.h"
#include "server/ValorJson.h"

namespace historial {

namespace {

// "0" both, "1" the first alone, "2" the second alone.
QString par(bool primero, bool segundo) {
    if (primero && segundo) {
        return QStringLiteral("0");
    }
    return primero ? QStringLiteral("1") : QStringLiteral("2");
}

QString fecha(const QDate& d) {
    return d.toString(QStringLiteral("dd/MM/yyyy")).remove(u'/');
}

QString texto(const ValorJson& doc, const char* clave) {
    const ValorJson& v = doc.Item(QLatin1String(clave));
    return v.esNull() ? QString() : v.aTexto();
}

} // namespace

QString TextoSinSeleccion() {
    return QStringLiteral("Debe seleccionar un pedido");
}

QString TextoSinImpresoraTickets() {
    return QStringLiteral(
        "Debe seleccionar una impresora de tickets en configuración de impresoras");
}

QString RutaObtenerPedidos(const ModuloPrincipal& m, const Filtros& f) {
    const QString fp = QStringLiteral("&fp=") + QString::number(f.formaPago);
    const QString resto = QStringLiteral("&estado=") + par(f.aceptados, f.rechazados) +
                          QStringLiteral("&fe=") + QString::number(f.formaEnvio) +
                          QStringLiteral("&origen=") + par(f.origenTarvimenta, f.origenWeb);
    QString ruta = QStringLiteral("pedidosgprs/obtenerPedidos?idEstablecimiento=") +
                   QString::number(m.IdEstablecimiento) + QStringLiteral("&passwordconfig=") +
                   m.PasswordConfig + QStringLiteral("&numconfig=") + QString::number(m.NumConfig) +
                   QStringLiteral("&opcion=") + QString::number(f.periodo) + fp;
    if (f.periodo == 2) {
        ruta += QStringLiteral("&fechaini=") + fecha(f.desde) + QStringLiteral("&fechafin=") +
                fecha(f.hasta);
    } else if (f.periodo == 3) {
        ruta += QStringLiteral("&numeroPedidos=") + QString::number(m.NumeroPedidosHistorico);
    }
    return ruta + resto;
}

std::optional<Resultado> LeerResultado(QString respuesta) {
    ArreglarUtf8(respuesta);
    const ValorJson doc = JSON_Parse(respuesta);
    if (doc.tipo() != ValorJson::Tipo::Diccionario) {
        return std::nullopt;
    }
    Resultado r;
    r.numPedidos = texto(doc, "totalnumpedidos");
    r.importeTotal = texto(doc, "totalimportepedidos") + u'€';
    r.importeBruto = texto(doc, "totalimportepedidosbruto") + u'€';
    r.filas = clasico::Split(texto(doc, "pedidos"), QStringLiteral("#"));
    r.mensaje = texto(doc, "mensaje");
    return r;
}

std::optional<QString> NumeroDeFila(const QString& fila) {
    const QStringList piezas = clasico::Split(fila, QStringLiteral(" - "));
    if (piezas.size() < 3) {
        return std::nullopt;
    }
    return piezas.first();
}

bool CancelacionPermitida(const Pedido& p, qint16 rechazarAceptado) {
    static const QStringList aceptados = {QStringLiteral("Aceptado"), QStringLiteral("Preparado"),
                                          QStringLiteral("En reparto"),
                                          QStringLiteral("Entregado")};
    if (!aceptados.contains(p.Estado)) {
        return false;
    }
    const bool pagado = clasico::UCase(p.EstadoPago) == QLatin1String("PAGADO");
    switch (rechazarAceptado) {
    case 1:
        return true;
    case 2:
        return pagado;
    case 3:
        return !pagado;
    default:
        return false;
    }
}

int RanuraReimpresion(const ModuloPrincipal& m) {
    for (int n = 1; n <= 10; ++n) {
        const ClassConfigImpresora& imp = m.Impresoras.at(static_cast<size_t>(n - 1));
        if (!imp.NombreImpresora.isEmpty() && (n == 1 || !imp.Cocina)) {
            return n;
        }
    }
    return 0;
}

int ReimprimirTicket(ModuloPrincipal& m) {
    const int ranura = RanuraReimpresion(m);
    if (ranura == 0) {
        m.cajas().mostrar(TextoSinImpresoraTickets());
        return 0;
    }
    // No order is taken while the copy is out (a printer's box runs its own event loop).
    const OcupacionCamino ocupado(m);
    ImprimirPedido(m, m.Impresora(ranura), 1);
    return ranura;
}

void ReimprimirSegunEstado(ModuloPrincipal& m, bool soloCocina) {
    const OcupacionCamino ocupado(m);
    ImprimirPedidoSegunEstado(m, m.PedidoActual.Estado, m.PedidoActual.FormaEntrega, false,
                              soloCocina);
}

} // namespace historial
