#include "printing/TicketsSinImprimir.h"

#include "base/CaminoPedido.h"
#include "base/ClassConfigImpresora.h"
#include "base/Diario.h"
#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "platform/EjecucionProtegida.h"
#include "printing/RutasImpresion.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <utility>

namespace {

// The order's texts by their key in the file.
const std::pair<const char*, QString Pedido::*> kTextos[] = {
    {"establecimiento", &Pedido::Establecimiento},
    {"numpedido", &Pedido::NumPedido},
    {"textoproductos", &Pedido::TextoProductos},
    {"importeenvio", &Pedido::ImporteEnvio},
    {"comisionpaypal", &Pedido::ComisionPaypal},
    {"importedescuento", &Pedido::ImporteDescuento},
    {"totalpedido", &Pedido::TotalPedido},
    {"cliente", &Pedido::Cliente},
    {"telefono", &Pedido::Telefono},
    {"formaentrega", &Pedido::FormaEntrega},
    {"realizadoel", &Pedido::RealizadoEl},
    {"para", &Pedido::Para},
    {"paradia", &Pedido::ParaDia},
    {"pedidosanteriores", &Pedido::PedidosAnteriores},
    {"estadopago", &Pedido::EstadoPago},
    {"formapago", &Pedido::FormaPago},
    {"cambio", &Pedido::Cambio},
    {"comentarios", &Pedido::Comentarios},
    {"estado", &Pedido::Estado},
    {"tiempoestimado", &Pedido::TiempoEstimado},
    {"motivorechazo", &Pedido::MotivoRechazo},
    {"codigopromocion", &Pedido::CodigoPromocion},
    {"totalbruto", &Pedido::TotalBruto},
};

const auto kFormatoHora = Qt::ISODateWithMs;

QJsonObject pedidoAJson(const Pedido& p) {
    QJsonObject o;
    for (const auto& [clave, campo] : kTextos) {
        o.insert(QLatin1String(clave), p.*campo);
    }
    o.insert(QStringLiteral("imprimirencocina"), p.ImprimirEnCocina);
    o.insert(QStringLiteral("quienasume"), p.QuienAsume);
    o.insert(QStringLiteral("webparticular"), p.WebParticular);
    o.insert(QStringLiteral("horaaceptacion"),
             p.HoraAceptacion.isValid() ? p.HoraAceptacion.toString(kFormatoHora) : QString());
    QJsonArray productos;
    for (const ProductoPedido& pr : p.Productos) {
        productos.append(QJsonObject{{QStringLiteral("cantidad"), pr.Cantidad},
                                     {QStringLiteral("nombre"), pr.Nombre},
                                     {QStringLiteral("precio"), pr.Precio},
                                     {QStringLiteral("idproducto"), pr.IdProducto},
                                     {QStringLiteral("idcategoria"), pr.IdCategoria},
                                     {QStringLiteral("opciones"), pr.Opciones}});
    }
    o.insert(QStringLiteral("productos"), productos);
    return o;
}

Pedido pedidoDeJson(const QJsonObject& o) {
    Pedido p;
    for (const auto& [clave, campo] : kTextos) {
        p.*campo = o.value(QLatin1String(clave)).toString();
    }
    p.ImprimirEnCocina = o.value(QStringLiteral("imprimirencocina")).toBool();
    p.QuienAsume = static_cast<qint16>(o.value(QStringLiteral("quienasume")).toInt());
    p.WebParticular = o.value(QStringLiteral("webparticular")).toBool();
    p.HoraAceptacion =
        QDateTime::fromString(o.value(QStringLiteral("horaaceptacion")).toString(), kFormatoHora);
    for (const QJsonValue& v : o.value(QStringLiteral("productos")).toArray()) {
        const QJsonObject pr = v.toObject();
        p.Productos.append({static_cast<qint16>(pr.value(QStringLiteral("cantidad")).toInt()),
                            pr.value(QStringLiteral("nombre")).toString(),
                            pr.value(QStringLiteral("precio")).toString(),
                            pr.value(QStringLiteral("idproducto")).toInt(),
                            pr.value(QStringLiteral("idcategoria")).toInt(),
                            pr.value(QStringLiteral("opciones")).toString()});
    }
    return p;
}

} // namespace

QString RutaTicketsSinImprimir(const QString& carpetaDatos) {
    return QDir(carpetaDatos).filePath(QStringLiteral("ticketssinimprimir.json"));
}

QByteArray TicketsSinImprimirAJson(const QList<TicketSinImprimir>& lista) {
    QJsonArray a;
    for (const TicketSinImprimir& t : lista) {
        a.append(QJsonObject{{QStringLiteral("hueco"), t.hueco},
                             {QStringLiteral("impresora"), t.impresora},
                             {QStringLiteral("hora"), t.hora.toString(kFormatoHora)},
                             {QStringLiteral("error"), t.error},
                             {QStringLiteral("pedido"), pedidoAJson(t.pedido)}});
    }
    return QJsonDocument(a).toJson(QJsonDocument::Indented);
}

bool TicketsSinImprimirDeJson(const QByteArray& json, QList<TicketSinImprimir>& lista) {
    QJsonParseError error{};
    const QJsonDocument d = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError || !d.isArray()) {
        return false;
    }
    QList<TicketSinImprimir> leida;
    for (const QJsonValue& v : d.array()) {
        const QJsonObject o = v.toObject();
        const int hueco = o.value(QStringLiteral("hueco")).toInt();
        if (!v.isObject() || hueco < 1 || hueco > 10 ||
            !o.value(QStringLiteral("pedido")).isObject()) {
            return false;
        }
        leida.append(
            {pedidoDeJson(o.value(QStringLiteral("pedido")).toObject()), hueco,
             o.value(QStringLiteral("impresora")).toString(),
             QDateTime::fromString(o.value(QStringLiteral("hora")).toString(), kFormatoHora),
             o.value(QStringLiteral("error")).toString()});
    }
    lista = std::move(leida);
    return true;
}

TicketsSinImprimir::TicketsSinImprimir(QString ruta) : ruta_(std::move(ruta)) {
    cargar();
}

void TicketsSinImprimir::cargar() {
    QFile f(ruta_);
    if (ruta_.isEmpty() || !f.exists()) {
        return;
    }
    if (f.open(QIODevice::ReadOnly) && TicketsSinImprimirDeJson(f.readAll(), lista_)) {
        return;
    }
    f.close();
    // Kept for whoever wants to look at it; the next change writes a good list in its place.
    const QString aparte = ruta_ + QStringLiteral(".ilegible");
    QFile::remove(aparte);
    QFile::rename(ruta_, aparte);
    qCWarning(diarioImpresion).noquote()
        << "lista de tickets sin imprimir ilegible, apartada en" << aparte;
}

void TicketsSinImprimir::guardar() {
    if (ruta_.isEmpty()) {
        return;
    }
    QSaveFile f(ruta_);
    if (f.open(QIODevice::WriteOnly) && f.write(TicketsSinImprimirAJson(lista_)) >= 0 &&
        f.commit()) {
        errorGuardado_.clear();
        return;
    }
    errorGuardado_ = f.errorString();
    qCWarning(diarioImpresion).noquote()
        << "no se ha podido guardar la lista de tickets sin imprimir:" << errorGuardado_;
}

void TicketsSinImprimir::anotar(TicketSinImprimir t) {
    qCWarning(diarioImpresion).noquote()
        << "ticket sin imprimir: pedido" << t.pedido.NumPedido << "en" << ('"' + t.impresora + '"');
    lista_.append(std::move(t));
    guardar();
    emit cambiada();
}

TicketSinImprimir TicketsSinImprimir::quitar(qsizetype i) {
    TicketSinImprimir t = lista_.takeAt(i);
    guardar();
    emit cambiada();
    return t;
}

TicketsSinImprimir& ModuloPrincipal::ticketsSinImprimir() const {
    if (!ticketsSinImprimir_) {
        ticketsSinImprimir_ = std::make_shared<TicketsSinImprimir>(
            CarpetaDatos.isEmpty() ? QString() : RutaTicketsSinImprimir(CarpetaDatos));
    }
    return *ticketsSinImprimir_;
}

namespace {

enum class Reimpresion { Impreso, FalloOtraVez, SinImpresora };

Reimpresion reimprimir(ModuloPrincipal& m, qsizetype i) {
    TicketsSinImprimir& lista = m.ticketsSinImprimir();
    const ClassConfigImpresora& imp = m.Impresora(lista.lista().at(i).hueco);
    if (imp.NombreImpresora.isEmpty() ||
        (imp.TipoImpresion != u"DW" && imp.TipoImpresion != u"EP")) {
        return Reimpresion::SinImpresora;
    }
    const OcupacionCamino ocupado(m);
    TicketSinImprimir copia = lista.quitar(i);
    const qsizetype antes = lista.cantidad();
    Pedido actual = std::exchange(m.PedidoActual, std::move(copia.pedido));
    EjecutarProtegido(m.cajas(), [&] { ImprimirPedido(m, imp, 1); });
    m.PedidoActual = std::move(actual);
    return lista.cantidad() == antes ? Reimpresion::Impreso : Reimpresion::FalloOtraVez;
}

} // namespace

bool ReimprimirTicket(ModuloPrincipal& m, qsizetype i) {
    const AplazarCajas aplazadas(m);
    const Reimpresion r = reimprimir(m, i);
    if (r == Reimpresion::SinImpresora) {
        m.cajas().mostrar(TextoSinImpresora());
    }
    return r == Reimpresion::Impreso;
}

int ReimprimirTodos(ModuloPrincipal& m) {
    const AplazarCajas aplazadas(m);
    // Each copy is tried once: one that fails again goes to the end of the list, behind those
    // not tried yet; one whose slot has no printer stays where it was.
    int hechos = 0;
    bool sinImpresora = false;
    qsizetype i = 0;
    for (qsizetype n = m.ticketsSinImprimir().cantidad(); n > 0; --n) {
        switch (reimprimir(m, i)) {
        case Reimpresion::Impreso:
            ++hechos;
            break;
        case Reimpresion::FalloOtraVez:
            break;
        case Reimpresion::SinImpresora:
            sinImpresora = true;
            ++i;
            break;
        }
    }
    if (sinImpresora) {
        m.cajas().mostrar(TextoSinImpresora());
    }
    return hechos;
}
