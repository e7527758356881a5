#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

// One product line of an order, in wire order.
struct ProductoPedido {
    qint16 Cantidad = 0;
    QString Nombre; // product name, then its options, joined by " - "
    QString Precio; // wire amount, without the euro sign
    qint32 IdProducto = 0;
    qint32 IdCategoria = 0;
    QString Opciones; // kitchen option groups; empty when the wire had five pieces
};

// The one order record of the desk. Whoever parses next overwrites it; amounts are the
// service's text with "€" appended (except a product's Precio).
struct Pedido {
    QString Establecimiento;
    QString NumPedido;
    QString TextoProductos;
    QList<ProductoPedido> Productos;
    QString ImporteEnvio;
    QString ComisionPaypal;
    QString ImporteDescuento;
    QString TotalPedido;
    QString Cliente;
    QString Telefono;
    QString FormaEntrega; // "Recogen" or the delivery address
    QString RealizadoEl;
    QString Para; // "Para: Ahora" or "Para: " and the hour
    QString ParaDia;
    bool ImprimirEnCocina = false;
    QString PedidosAnteriores;
    QString EstadoPago; // "PAGADO" or "NO Pagado"
    QString FormaPago;
    QString Cambio;
    QString Comentarios;
    QString Estado;
    QString TiempoEstimado;
    QString MotivoRechazo;
    QString CodigoPromocion;
    qint16 QuienAsume = 0;
    bool WebParticular = false;
    QString TotalBruto;
    QDateTime HoraAceptacion; // invalid while unset (the zero date)
};

// The state words that mean something to the desk; compared exactly.
namespace estado {
inline const QString Aceptado = QStringLiteral("Aceptado");
inline const QString Preparado = QStringLiteral("Preparado");
inline const QString EnReparto = QStringLiteral("En reparto");
inline const QString Entregado = QStringLiteral("Entregado");
inline const QString Rechazado = QStringLiteral("Rechazado");

inline bool esAceptado(const QString& e) {
    return e == Aceptado || e == Preparado || e == EnReparto || e == Entregado;
}
inline bool esConocido(const QString& e) {
    return esAceptado(e) || e == Rechazado;
}
} // namespace estado
