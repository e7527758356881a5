#pragma once

#include "products/Carta.h"

#include <QTreeWidget>

class ModuloPrincipal;

// The check list of products that the main window and the two product windows share: a
// row ticked is marked out of stock on the service at once, a row unticked is available
// again. Each list keeps its own MarcandoProducto while a tick travels.
class ListaProductos : public QTreeWidget {
    Q_OBJECT
public:
    // `cabeceraPrecio`: "Precio(€)" on the product windows, "Precio" on the main window.
    ListaProductos(ModuloPrincipal& m, QString cabeceraPrecio, QWidget* padre = nullptr);

    // Rebuilds the rows (and the columns) from scratch.
    void Rellenar(const QList<FilaProducto>& filas);
    // The row with key "pr-<id>", or none.
    QTreeWidgetItem* fila(const QString& clave) const;

    bool MarcandoProducto = false;
    // The pause after a tick, with the thread held, before the next click counts as a
    // click of its own.
    int esperaTrasMarcarMs = 200;

protected:
    void mouseReleaseEvent(QMouseEvent* e) override;

private:
    void marcar(const QString& clave, bool marcado);

    ModuloPrincipal& m_;
    QString cabeceraPrecio_;
};
