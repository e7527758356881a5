#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

struct ClassConfigImpresora;
struct Pedido;
struct ProductoPedido;

// Which kitchen an order's products go to: the delivery form a kitchen takes, its lists of
// categories, excepted and extra products, and the option items that name a printer. The
// kitchen tickets and the cancellation notices ask the same questions here, so a kitchen gets
// a notice exactly when it got something of the order.
namespace destino_cocina {

// FormaEnvio 1 takes deliveries only, 2 pick-ups only, anything else both.
bool AdmiteFormaEntrega(int formaEnvio, const QString& formaEntrega);

// A list of ids as the platform reads them: a piece that isn't a number is kept as such and
// is a type mismatch when a comparison reaches it.
using ListaIds = QList<std::optional<double>>;
ListaIds LeerLista(const QString& texto);
bool EstaEnLista(qint32 id, const ListaIds& lista);

struct ListasCocina {
    ListaIds categorias, excepciones, extras;
    static ListasCocina De(const ClassConfigImpresora& impresora);
};

// A product without option items belongs by its category (an empty list takes them all) and,
// failing that, as an extra product. Exceptions are the caller's to test first.
bool PerteneceProducto(const ProductoPedido& prod, const ListasCocina& listas);
// The driver's only filter: the category.
bool PerteneceCategoria(qint32 idCategoria, const ListaIds& categorias);

// The option items of a product, each cut into its fields ("printer//units//text" or
// "TEXTOLIBRE//text").
QList<QStringList> ItemsOpciones(const QString& opciones);
// Field `i` of an item; a missing one is a subscript error where it is read.
const QString& Campo(const QStringList& campos, qsizetype i);
// Whether some item names this printer: only then do its items (the free text too) print here.
bool AlgunItemDe(const QList<QStringList>& items, const QString& nombreImpresora);

// Whether the order gives a raw kitchen anything to print, and the same for a driver kitchen.
bool ConcierneEP(const Pedido& p, const ClassConfigImpresora& impresora);
bool ConcierneDW(const Pedido& p, const ClassConfigImpresora& impresora);

} // namespace destino_cocina
