#include "products/ListaProductos_ui.h"

#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "platform/EjecucionProtegida.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QThread>

namespace {

const QString kErrorMarcar = QStringLiteral(
    "Error al intentar marcar/desmarcar el producto como agotado, por favor, inténtelo de "
    "nuevo");

enum Columna { Nula = 0, Producto = 1, Precio = 2 };

int Pixeles(const QWidget* w, int twips) {
    return twips * w->logicalDpiX() / 1440;
}

} // namespace

ListaProductos::ListaProductos(ModuloPrincipal& m, QString cabeceraPrecio, QWidget* padre)
    : QTreeWidget(padre), m_(m), cabeceraPrecio_(std::move(cabeceraPrecio)) {
    setObjectName(QStringLiteral("ListViewProductosNoIngredientes"));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(false);
    // Grid lines, and a selected row that stays readable under them.
    setStyleSheet(
        QStringLiteral("QTreeView::item { border-bottom: 1px solid #d0d0d0; "
                       "border-right: 1px solid #d0d0d0; }"
                       "QTreeView::item:selected { background: #cfe3fb; color: black; }"));
    Rellenar({});
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int columna) {
        if (columna != Nula) {
            return;
        }
        // Handled once the click is over: the marking rebuilds the main list, and the row
        // being clicked must not go away under the click.
        const QString clave = item->data(Nula, Qt::UserRole).toString();
        const bool marcado = item->checkState(Nula) == Qt::Checked;
        QMetaObject::invokeMethod(
            this,
            [this, clave, marcado] {
                EjecutarProtegido(m_.cajas(), [&] { marcar(clave, marcado); });
            },
            Qt::QueuedConnection);
    });
}

void ListaProductos::Rellenar(const QList<FilaProducto>& filas) {
    const QSignalBlocker bloqueo(this);
    clear();
    setColumnCount(3);
    setHeaderLabels({QString(), QStringLiteral("Producto"), cabeceraPrecio_});
    headerItem()->setTextAlignment(Precio, Qt::AlignRight | Qt::AlignVCenter);
    // The name takes what the check and the price columns leave of the visible width.
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(Nula, QHeaderView::Fixed);
    header()->setSectionResizeMode(Producto, QHeaderView::Stretch);
    header()->setSectionResizeMode(Precio, QHeaderView::Fixed);
    setColumnWidth(Nula, Pixeles(this, 500));
    setColumnWidth(Precio, Pixeles(this, 850));
    QList<QTreeWidgetItem*> items;
    items.reserve(filas.size());
    for (const FilaProducto& f : filas) {
        auto* item = new QTreeWidgetItem({QString(), f.nombre, f.precio});
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Nula, f.agotado ? Qt::Checked : Qt::Unchecked);
        item->setTextAlignment(Precio, Qt::AlignRight | Qt::AlignVCenter);
        item->setData(Nula, Qt::UserRole, f.clave);
        items.append(item);
    }
    addTopLevelItems(items); // the list owns them
}

QTreeWidgetItem* ListaProductos::fila(const QString& clave) const {
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = topLevelItem(i);
        if (item->data(Nula, Qt::UserRole).toString() == clave) {
            return item;
        }
    }
    return nullptr;
}

void ListaProductos::marcar(const QString& clave, bool marcado) {
    MarcandoProducto = true;
    // The flag comes down whatever happens on the way.
    const auto bajar = qScopeGuard([this] { MarcandoProducto = false; });
    if (QTreeWidgetItem* item = fila(clave)) {
        setCurrentItem(item);
    }
    // The marking refreshes the main list, which may be this one: the row is looked up
    // again by its key afterwards, and may be gone.
    const bool hecho =
        m_.carta().MarcarDesmarcarProducto(clasico::CLng(QStringView(clave).mid(3)),
                                           marcado ? QStringLiteral("s") : QStringLiteral("n"));
    if (!hecho) {
        if (QTreeWidgetItem* otra = fila(clave)) {
            {
                const QSignalBlocker bloqueo(this);
                otra->setCheckState(Nula, marcado ? Qt::Unchecked : Qt::Checked);
            }
            m_.cajas().mostrar(kErrorMarcar, estilo::Exclamacion, QStringLiteral("Tarvimenta"));
        }
    }
    if (esperaTrasMarcarMs > 0) {
        QThread::msleep(static_cast<unsigned long>(esperaTrasMarcarMs));
    }
}

void ListaProductos::mouseReleaseEvent(QMouseEvent* e) {
    QTreeWidget::mouseReleaseEvent(e);
    if (MarcandoProducto) {
        // A click that comes in while a tick travels is undone by a blank key press on the
        // focused control.
        if (QWidget* foco = QApplication::focusWidget()) {
            QApplication::postEvent(foco, new QKeyEvent(QEvent::KeyPress, Qt::Key_Space,
                                                        Qt::NoModifier, QStringLiteral(" ")));
            QApplication::postEvent(foco, new QKeyEvent(QEvent::KeyRelease, Qt::Key_Space,
                                                        Qt::NoModifier, QStringLiteral(" ")));
        }
    }
}
