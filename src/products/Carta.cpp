#include "products/Carta.h"

#include "base/ModuloPrincipal.h"
#include "base/Pedido.h"
#include "server/LectorJson.h"
#include "server/TextoServidor.h"

#include <QHash>

namespace {

const QString kNoDisponible = QStringLiteral("fechahoraagotado");

// A reply repaired and read; anything that is not the expected kind counts as nothing.
ValorJson Leer(QString respuesta, ValorJson::Tipo esperado) {
    ArreglarUtf8(respuesta);
    ValorJson v = JSON_Parse(respuesta);
    return v.tipo() == esperado ? v : ValorJson::nada();
}

// A key that the document lacks is read without adding it.
ValorJson Campo(const DiccionarioJson& d, const QString& clave) {
    for (const auto& [k, v] : d.entradas()) {
        if (k == clave) {
            return v;
        }
    }
    return {};
}

QString Texto(const ValorJson& v) {
    return v.esObjeto() || v.esNothing() || v.esNull() ? QString() : v.aTexto();
}

// A product is out of stock while its date holds anything but null.
bool Agotado(const DiccionarioJson& producto) {
    return !Campo(producto, kNoDisponible).esNull();
}

// Products kept out of the cart are left out of the menu's lists.
bool EnCarro(const DiccionarioJson& producto) {
    const ValorJson v = Campo(producto, QStringLiteral("nocarro"));
    switch (v.tipo()) {
    case ValorJson::Tipo::Empty:
    case ValorJson::Tipo::Null:
        return true;
    case ValorJson::Tipo::Booleano:
    case ValorJson::Tipo::Decimal:
        return !v.aBooleano();
    default:
        return false;
    }
}

FilaProducto Fila(const DiccionarioJson& producto, const QString& sufijoPrecio) {
    return {QStringLiteral("pr-") + Texto(Campo(producto, QStringLiteral("id"))),
            Texto(Campo(producto, QStringLiteral("nombre"))),
            Texto(Campo(producto, QStringLiteral("pvp"))) + sufijoPrecio, Agotado(producto)};
}

} // namespace

Carta::Carta(ModuloPrincipal& m) : m_(m) {}

Carta& ModuloPrincipal::carta() {
    if (!carta_) {
        carta_ = std::make_shared<Carta>(*this);
    }
    return *carta_;
}

template <typename F> void Carta::recorrer(F&& f) const {
    if (!hayCarta()) {
        return;
    }
    const ValorJson categorias = Campo(documento_.diccionario(), QStringLiteral("categorias"));
    if (categorias.tipo() != ValorJson::Tipo::Coleccion) {
        return;
    }
    for (const ValorJson& categoria : categorias.coleccion().items()) {
        if (categoria.tipo() != ValorJson::Tipo::Diccionario) {
            continue;
        }
        const ValorJson productos = Campo(categoria.diccionario(), QStringLiteral("productos"));
        if (productos.tipo() != ValorJson::Tipo::Coleccion) {
            continue;
        }
        for (const ValorJson& producto : productos.coleccion().items()) {
            if (producto.tipo() == ValorJson::Tipo::Diccionario) {
                f(producto.diccionario());
            }
        }
    }
}

void Carta::CargarCarta() {
    documento_ = Leer(m_.ConsultarServidor(QStringLiteral("establecimiento/carta2?id=") +
                                           QString::number(m_.IdEstablecimiento)),
                      ValorJson::Tipo::Diccionario);
}

QList<FilaProducto> Carta::ObtenerProductosAgotados() {
    const ValorJson agotados =
        Leer(m_.ConsultarServidor(
                 QStringLiteral("pedidosgprs/obtenerProductosAgotados?idEstablecimiento=") +
                 QString::number(m_.IdEstablecimiento)),
             ValorJson::Tipo::Coleccion);
    QList<FilaProducto> filas;
    if (!agotados.esNothing()) {
        // The reply is the whole truth: every mark of the menu goes, then its own come back,
        // on every category where the product stands.
        QHash<QString, QList<DiccionarioJson*>> porId;
        recorrer([&](DiccionarioJson& producto) {
            producto.Item(kNoDisponible) = ValorJson::nulo();
            porId[Texto(Campo(producto, QStringLiteral("id")))].append(&producto);
        });
        for (const ValorJson& a : agotados.coleccion().items()) {
            if (a.tipo() != ValorJson::Tipo::Diccionario) {
                continue;
            }
            const DiccionarioJson& producto = a.diccionario();
            const FilaProducto fila = Fila(producto, QString());
            if (fila.agotado) {
                const ValorJson fecha = Campo(producto, kNoDisponible);
                for (DiccionarioJson* enCarta : porId.value(fila.clave.mid(3))) {
                    enCarta->Item(kNoDisponible) = fecha;
                }
            }
            filas.append(fila);
        }
    }
    Q_EMIT agotadosLeidos(filas);
    return filas;
}

QList<FilaProducto> Carta::CargarListaProductos(const QString& nombreVentana) {
    if (!hayCarta()) {
        // A fresh menu carries its marks already.
        CargarCarta();
    } else {
        ObtenerProductosAgotados();
    }
    QList<FilaProducto> filas;
    recorrer([&](const DiccionarioJson& producto) {
        if (!EnCarro(producto)) {
            return;
        }
        if (nombreVentana == ListaPedido) {
            if (ProductoEnPedido(m_.PedidoActual,
                                 Texto(Campo(producto, QStringLiteral("nombre"))))) {
                filas.append(Fila(producto, QStringLiteral(" €")));
            }
        } else if (nombreVentana != Form1 || Agotado(producto)) {
            filas.append(Fila(producto, QString()));
        }
    });
    return filas;
}

bool Carta::MarcarDesmarcarProducto(qint32 idProducto, const QString& agotado) {
    const QString respuesta = m_.ConsultarServidor(
        QStringLiteral("pedidosgprs/marcarDesmarcarProductoAgotado?idEstablecimiento=") +
        QString::number(m_.IdEstablecimiento) + QStringLiteral("&passwordconfig=") +
        m_.PasswordConfig + QStringLiteral("&numconfig=") + QString::number(m_.NumConfig) +
        QStringLiteral("&idProducto=") + QString::number(idProducto) + QStringLiteral("&agotado=") +
        agotado);
    const bool hecho = MarcaAceptada(respuesta);
    ObtenerProductosAgotados();
    return hecho;
}

bool Carta::MarcaAceptada(const QString& respuesta) {
    return clasico::Trim(respuesta) == QLatin1String("\"ok\"");
}

bool Carta::ProductoEnPedido(const Pedido& pedido, const QString& nombre) {
    for (const ProductoPedido& p : pedido.Productos) {
        if (p.Nombre.section(QStringLiteral(" - "), 0, 0) == nombre) {
            return true;
        }
    }
    return false;
}
