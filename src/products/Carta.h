#pragma once

#include "server/ValorJson.h"

#include <QList>
#include <QObject>
#include <QString>

class ModuloPrincipal;
struct Pedido;

// One row of a product list: the check box, the name, the price column; the key is "pr-"
// and the product's id.
struct FilaProducto {
    QString clave;
    QString nombre;
    QString precio;
    bool agotado = false;

    friend bool operator==(const FilaProducto&, const FilaProducto&) = default;
};

// The menu of the establishment, read once and kept for the run as a live cache of what is
// out of stock, and the three product lists built from it and from the service.
class Carta : public QObject {
    Q_OBJECT
public:
    // The windows whose lists are built here, by the names the desk gives them.
    static inline const QString Form1 = QStringLiteral("Form1");
    static inline const QString ListaCarta = QStringLiteral("FormProductosRechazarIngredientes");
    static inline const QString ListaPedido =
        QStringLiteral("FormProductosRechazarIngredientesPedido");

    explicit Carta(ModuloPrincipal& m);

    // The menu document as the service sent it, with the marks written back; not an object
    // while nothing could be read.
    const ValorJson& Documento() const { return documento_; }
    bool hayCarta() const { return documento_.tipo() == ValorJson::Tipo::Diccionario; }

    // Reads the menu again and keeps it (replaces what was kept, even with nothing).
    void CargarCarta();
    // Reads what is out of stock now: the reply replaces the marks of the menu, and the
    // main window's rows go out through agotadosLeidos (none when the reply is unusable).
    QList<FilaProducto> ObtenerProductosAgotados();
    // The rows of the list of window `nombreVentana`, one of the three names above; the
    // menu is read first when there is none, the marks otherwise.
    QList<FilaProducto> CargarListaProductos(const QString& nombreVentana);
    // Marks a product out of stock ("s") or available ("n") on the service; true when the
    // service said so. The main list is refreshed in any case.
    bool MarcarDesmarcarProducto(qint32 idProducto, const QString& agotado);

    // Whether some line of the order is product `nombre` (the options behind " - " aside).
    static bool ProductoEnPedido(const Pedido& pedido, const QString& nombre);
    // The exact word of a successful marking, blanks around it allowed.
    static bool MarcaAceptada(const QString& respuesta);

Q_SIGNALS:
    // The main window's list, rebuilt whole from the service's reply.
    void agotadosLeidos(const QList<FilaProducto>& filas);

private:
    // Calls `f` for each product of the menu, category by category, in their order.
    template <typename F> void recorrer(F&& f) const;

    ModuloPrincipal& m_;
    ValorJson documento_ = ValorJson::nada();
};
