#include "orders/RegistroPedido.h"

#include "base/Conversiones.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "server/TextoServidor.h"

namespace {

const QString kCrLf = QStringLiteral("\r\n");
const QString kEuro = QStringLiteral("€");

// A piece that the reply does not have is the classic "subscript out of range".
const QString& en(const QStringList& piezas, qsizetype i) {
    if (i < 0 || i >= piezas.size()) {
        throw ErrorEjecucion(ErrorEjecucion::SubindiceFueraDeIntervalo);
    }
    return piezas[i];
}

// Left(texto, Len(texto) - 1): an empty text has nothing to cut and is an invalid call.
QString sinUltimo(const QString& texto) {
    if (texto.isEmpty()) {
        throw ErrorEjecucion(ErrorEjecucion::ArgumentoNoValido);
    }
    return texto.left(texto.size() - 1);
}

class Resumen {
public:
    explicit Resumen(QString inicio) : texto_(std::move(inicio)) {}
    void bloque(const QString& t) { texto_ += kCrLf + kCrLf + t; }
    void seguir(const QString& t) { texto_ += t; }
    QString& texto() { return texto_; }

private:
    QString texto_;
};

void leerProductos(Pedido& p, const QString& lista, Resumen& r) {
    const QStringList piezas = clasico::Split(lista, QStringLiteral(";"));
    r.bloque(QStringLiteral("Productos: "));
    // The list ends in ";": its last piece is empty and is no product. An empty list, or
    // one without the closing separator, leaves no room for any product at all.
    const qsizetype ultimo = piezas.size() - 1;
    if (ultimo < 1) {
        throw ErrorEjecucion(ErrorEjecucion::SubindiceFueraDeIntervalo);
    }
    p.Productos.resize(ultimo);
    for (qsizetype i = 0; i < ultimo; ++i) {
        const QStringList campos = clasico::Split(piezas[i], QStringLiteral("%"));
        ProductoPedido& pp = p.Productos[i];
        pp.Cantidad = clasico::CInt(en(campos, 0));
        pp.Nombre = en(campos, 1);
        pp.Precio = en(campos, 2);
        pp.IdProducto = clasico::CLng(en(campos, 3));
        pp.IdCategoria = clasico::CLng(en(campos, 4));
        if (campos.size() >= 6) {
            pp.Opciones = campos[5];
        }
        p.TextoProductos += kCrLf + campos[0] + QStringLiteral(" X ") + campos[1] +
                            QLatin1Char(' ') + campos[2] + kEuro;
    }
    r.seguir(p.TextoProductos);
}

QString quienAsumeTexto(const QString& codigo) {
    if (codigo == QLatin1String("0")) {
        return QStringLiteral(" (Asume Tarvimenta)");
    }
    if (codigo == QLatin1String("1")) {
        return QStringLiteral(" (Asume Establecimiento)");
    }
    if (codigo == QLatin1String("2")) {
        return QStringLiteral(" (Asume Establecimiento y Tarvimenta)");
    }
    return {};
}

QString parsear(ModuloPrincipal& m, const QStringList& n1) {
    Pedido& p = m.PedidoActual;
    p.Establecimiento = m.TextoEstablecimiento;
    p.NumPedido = en(n1, 2);
    Resumen r(p.NumPedido);

    leerProductos(p, en(n1, 3), r);

    r.bloque(QStringLiteral("Importe envío: ") + en(n1, 4) + kEuro);
    p.ImporteEnvio = n1[4] + kEuro;

    const QStringList d = clasico::Split(en(n1, 5), QStringLiteral(";"));
    r.bloque(QStringLiteral("Comisión Paypal: ") + en(d, 13) + kEuro);
    p.ComisionPaypal = d[13] + kEuro;
    r.bloque(QStringLiteral("Importe descuento: ") + en(d, 0) + kEuro);
    p.ImporteDescuento = d[0] + kEuro;

    if (!en(d, 12).isEmpty()) {
        if (m.MostrarCpr) {
            r.bloque(QStringLiteral("Código de Promoción: ") + d[12]);
        }
        p.CodigoPromocion = d[12];
        if (!en(d, 14).isEmpty()) {
            p.QuienAsume = clasico::CInt(d[14]);
            if (m.MostrarQuienA) {
                r.seguir(quienAsumeTexto(d[14]));
            }
        }
    }

    r.bloque(QStringLiteral("TOTAL PEDIDO: ") + en(d, 1) + kEuro);
    p.TotalPedido = d[1] + kEuro;
    p.TotalBruto = en(d, 16) + kEuro;

    r.bloque(QStringLiteral("Cliente: ") + en(d, 3));
    p.Cliente = d[3];
    r.bloque(QStringLiteral("Forma de entrega / dirección: ") + en(d, 4));
    p.FormaEntrega = d[4];

    const QStringList t = clasico::Split(en(d, 5), QStringLiteral("%%"));
    r.bloque(QStringLiteral("Realizado el: ") + en(t, 0));
    p.RealizadoEl = t[0];
    if (t.size() - 1 != 3) {
        r.bloque(en(t, 1));
        p.Para = t[1];
    } else {
        // A scheduled order: its time shows only on screen and on the tickets.
        p.Para = t[1];
        p.ParaDia = t[2];
        p.ImprimirEnCocina = t[3] != QLatin1String("n");
    }

    r.bloque(QStringLiteral("Pedidos anteriores: ") + en(d, 6));
    p.PedidosAnteriores = d[6];

    // The record and the summary spell the unpaid state differently on purpose.
    if (en(d, 7) == QLatin1String("6")) {
        r.bloque(QStringLiteral("PAGADO"));
        p.EstadoPago = QStringLiteral("PAGADO");
    } else {
        r.bloque(QStringLiteral("No Pagado"));
        p.EstadoPago = QStringLiteral("NO Pagado");
    }

    const QString& pago = en(d, 8);
    if (!pago.contains(QLatin1String("Cambio"))) {
        r.bloque(QStringLiteral("Forma de Pago: ") + pago);
        p.FormaPago = pago;
    } else {
        const QStringList partes = clasico::Split(pago, QStringLiteral(" Cambio: "));
        r.bloque(QStringLiteral("Forma de Pago: ") + en(partes, 0));
        p.FormaPago = clasico::Trim(partes[0]);
        r.bloque(QStringLiteral("Cambio: ") + en(partes, 1));
        p.Cambio = partes[1];
    }

    r.bloque(QStringLiteral("Teléfono: ") + en(d, 9));
    p.Telefono = d[9];

    // A comment holding "*" arrives cut at each one: join it back.
    r.bloque(QStringLiteral("Comentarios: ") + en(n1, 6));
    p.Comentarios = n1[6];
    for (qsizetype i = 7; i < n1.size(); ++i) {
        r.seguir(QLatin1Char('*') + n1[i]);
        p.Comentarios += QLatin1Char('*') + n1[i];
    }
    // The closing "#" of the line is the last character of both.
    r.texto() = sinUltimo(r.texto());
    p.Comentarios = sinUltimo(p.Comentarios);

    p.Estado = en(d, 10);
    if (estado::esConocido(p.Estado)) {
        r.bloque(QStringLiteral("Estado: ") + p.Estado);
        if (estado::esAceptado(p.Estado)) {
            p.TiempoEstimado = en(d, 11);
            r.bloque(QStringLiteral("Tiempo Estimado: ") + d[11] + QStringLiteral(" Minutos"));
        } else {
            p.MotivoRechazo = en(d, 11);
            r.bloque(QStringLiteral("Motivo Rechazo: ") + d[11]);
        }
    }

    p.WebParticular = en(d, 15) == QLatin1String("1");

    const QString& hora = en(d, 17);
    if (!hora.isEmpty() && clasico::IsDate(hora)) {
        p.HoraAceptacion = clasico::CDate(hora);
    }
    return r.texto();
}

} // namespace

void LimpiarPedido(ModuloPrincipal& m) {
    m.PedidoActual = Pedido{};
}

QString ParsearPedido(ModuloPrincipal& m, QString& respuesta) {
    try {
        ArreglarUtf8(respuesta);
        const QStringList n1 = clasico::Split(respuesta, QStringLiteral("*"));
        LimpiarPedido(m);
        return parsear(m, n1);
    } catch (const ErrorEjecucion& e) {
        m.cajas().mostrar(QStringLiteral("Se ha producido un error. Tipo de error = ") +
                              QString::number(e.numero()) + QStringLiteral(". Descripción: ") +
                              e.descripcion(),
                          estilo::SoloAceptar);
        return {};
    }
}

QString RutaObtenerPedido(const ModuloPrincipal& m, const QString& numero) {
    return QStringLiteral("pedidosgprs/obtenerPedido?idEstablecimiento=") +
           QString::number(m.IdEstablecimiento) + QStringLiteral("&passwordconfig=") +
           m.PasswordConfig + QStringLiteral("&numconfig=") + QString::number(m.NumConfig) +
           QStringLiteral("&idPedidoEst=") + numero +
           QStringLiteral("&modeloImpresora=3&version=") + ModuloPrincipal::Version;
}

bool ObtenerPedido(ModuloPrincipal& m, const QString& numero, QString* resumen) {
    QString respuesta = m.ConsultarServidor(RutaObtenerPedido(m, numero));
    if (EsLineaPedido(respuesta)) {
        const QString texto = ParsearPedido(m, respuesta);
        if (resumen != nullptr) {
            *resumen = texto;
        }
    }
    return true;
}
