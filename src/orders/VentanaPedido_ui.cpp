#include "orders/VentanaPedido_ui.h"

#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "orders/VistaPedido.h"
#include "platform/Controles_ui.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTreeWidget>

namespace {

// Controls are found by name, so that every order window is served by the same code.
template <typename T> T* control(QWidget* ventana, const char* nombre) {
    auto* c = ventana->findChild<T*>(QLatin1String(nombre));
    if (c == nullptr) {
        throw ErrorEjecucion(ErrorEjecucion::VariableDeObjetoNoEstablecida);
    }
    return c;
}

QWidget* widget(QWidget* ventana, const char* nombre) {
    return control<QWidget>(ventana, nombre);
}

void texto(QWidget* ventana, const char* nombre, const QString& t) {
    QWidget* c = widget(ventana, nombre);
    if (auto* l = qobject_cast<QLabel*>(c)) {
        l->setText(t);
    } else if (auto* e = qobject_cast<QLineEdit*>(c)) {
        e->setText(t);
        e->setCursorPosition(0);
    } else if (auto* p = qobject_cast<QPlainTextEdit*>(c)) {
        p->setPlainText(t);
    } else {
        throw ErrorEjecucion(ErrorEjecucion::VariableDeObjetoNoEstablecida);
    }
}

void visible(QWidget* ventana, const char* nombre, bool v) {
    widget(ventana, nombre)->setVisible(v);
}

void colorTexto(QWidget* ventana, const char* nombre, const QString& colorVb) {
    PonerColorTexto(widget(ventana, nombre), ColorVB(ColorVBDeTexto(colorVb)));
}

int twipsAPixeles(const QWidget* w, int twips) {
    return twips * w->logicalDpiX() / 1440;
}

void tamanno(QWidget* ventana, const char* nombre, int puntos) {
    if (puntos <= 0) {
        return;
    }
    QWidget* c = widget(ventana, nombre);
    QFont f = c->font();
    f.setPointSize(puntos);
    c->setFont(f);
}

void rellenarProductos(ModuloPrincipal& m, QWidget* ventana) {
    auto* lista = control<QTreeWidget>(ventana, "ListViewProductos");
    lista->clear();
    lista->setColumnCount(4);
    lista->setHeaderLabels({QString(), QStringLiteral("Uds."), QStringLiteral("Producto"),
                            QStringLiteral("Precio(€)")});
    lista->headerItem()->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
    lista->header()->setMinimumSectionSize(0);
    lista->setColumnWidth(0, 0);
    lista->setColumnWidth(1, twipsAPixeles(lista, 670));
    lista->setColumnWidth(3, twipsAPixeles(lista, 900));
    // The product column takes what the units and the price leave of the visible width, so
    // the scroll bar of a long order never pushes the prices out of sight.
    lista->header()->setStretchLastSection(false);
    lista->header()->setSectionResizeMode(2, QHeaderView::Stretch);

    // Worked out before the first row goes in: a failure leaves the list empty.
    const QList<vista::Fila> filas =
        vista::FilasProductos(m.PedidoActual, vista::AnchoLinea(m.TamannoFuentePrincipales));
    QList<QTreeWidgetItem*> items;
    items.reserve(filas.size());
    for (const vista::Fila& f : filas) {
        auto* item = new QTreeWidgetItem(QStringList{QString(), f.cantidad, f.texto, f.precio});
        item->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
        items.append(item);
    }
    lista->addTopLevelItems(items); // the list owns them
    // Units and prices are never cut: when a large font leaves them no room, their columns
    // widen to what they and their headings hold.
    const QFontMetrics fm(lista->font());
    const int holgura = fm.horizontalAdvance(QLatin1Char('0'));
    for (const int columna : {1, 3}) {
        int necesario = 0;
        for (const QTreeWidgetItem* item : items) {
            necesario = std::max(necesario, fm.horizontalAdvance(item->text(columna)) + holgura);
        }
        if (lista->columnWidth(columna) < necesario) {
            lista->setColumnWidth(columna,
                                  std::max(necesario, lista->header()->sectionSizeHint(columna)));
        }
    }
}

// Every control that shows a value of an order, emptied before the next order is painted: a
// painting that fails part way must not leave the previous customer beside the new number.
void vaciar(QWidget* ventana) {
    for (const char* n :
         {"LabNPedido",   "LabComisionPaypal", "LabImporteEnvio", "LabDescuento",
          "LabPromocion", "LabTotal",          "labTotalBruto",   "LabCliente",
          "LabTelefono",  "LabFormaEnvio",     "TxtDireccion",    "LabRealizadoEl",
          "labPara",      "LabPedAnteriores",  "LabEstadoPago",   "LabMetodoPago",
          "LabCambio",    "TxtComentarios",    "LabEstado",       "LabTiempoEstMotivo",
          "LabOrigen"}) {
        if (ventana->findChild<QWidget*>(QLatin1String(n)) != nullptr) {
            texto(ventana, n, QString());
        }
    }
    if (auto* lista = ventana->findChild<QTreeWidget*>(QStringLiteral("ListViewProductos"))) {
        lista->clear();
    }
}

} // namespace

void RellenarVentanaPedido(ModuloPrincipal& m, QWidget* ventana) {
    const Pedido& p = m.PedidoActual;
    vaciar(ventana);
    texto(ventana, "LabNPedido", p.NumPedido);
    rellenarProductos(m, ventana);

    texto(ventana, "LabComisionPaypal", p.ComisionPaypal);
    texto(ventana, "LabImporteEnvio", p.ImporteEnvio);
    const bool comision = vista::ComisionVisible(p.ComisionPaypal);
    visible(ventana, "LabCabComisionPaypal", comision);
    visible(ventana, "LabComisionPaypal", comision);

    texto(ventana, "LabDescuento", p.ImporteDescuento);

    const bool promocion = vista::PromocionVisible(m);
    visible(ventana, "LabCabPromocion", promocion);
    visible(ventana, "LabPromocion", promocion);
    if (!p.CodigoPromocion.isEmpty()) {
        texto(ventana, "LabPromocion", vista::TextoPromocion(m));
    }

    texto(ventana, "LabTotal", p.TotalPedido);
    texto(ventana, "labTotalBruto", p.TotalBruto);
    texto(ventana, "LabCliente", p.Cliente);
    texto(ventana, "LabTelefono", p.Telefono);

    if (p.FormaEntrega == QLatin1String("Recogen")) {
        texto(ventana, "LabFormaEnvio", QStringLiteral("Recogen"));
        colorTexto(ventana, "LabFormaEnvio", vista::VerdeAsentado);
        visible(ventana, "LabCabDireccion", false);
        visible(ventana, "TxtDireccion", false);
    } else {
        texto(ventana, "LabFormaEnvio", QStringLiteral("Envío a domicilio"));
        colorTexto(ventana, "LabFormaEnvio", vista::AzulAtencion);
        visible(ventana, "LabCabDireccion", true);
        visible(ventana, "TxtDireccion", true);
        texto(ventana, "TxtDireccion", p.FormaEntrega);
    }

    texto(ventana, "LabRealizadoEl", p.RealizadoEl);

    // A scheduled order stands out as a white-on-blue block.
    auto* para = control<QLabel>(ventana, "labPara");
    QFont fuentePara = para->font();
    if (vista::ParaEsAhora(p)) {
        para->setAutoFillBackground(false);
        PonerColorTexto(para, Qt::black);
        if (m.TamannoFuentePrincipales - 1 > 0) {
            fuentePara.setPointSize(m.TamannoFuentePrincipales - 1);
        }
    } else {
        PonerFondo(para, ColorVB(ColorVBDeTexto(vista::AzulAtencion)));
        PonerColorTexto(para, Qt::white);
        if (m.TamannoFuentePrincipales + 1 > 0) {
            fuentePara.setPointSize(m.TamannoFuentePrincipales + 1);
        }
    }
    para->setFont(fuentePara);
    para->setText(vista::TextoPara(p));

    texto(ventana, "LabPedAnteriores", p.PedidosAnteriores);

    texto(ventana, "LabEstadoPago", p.EstadoPago);
    colorTexto(ventana, "LabEstadoPago",
               p.EstadoPago.toUpper() == QLatin1String("PAGADO") ? vista::VerdeAsentado
                                                                 : vista::AzulAtencion);
    texto(ventana, "LabMetodoPago", p.FormaPago);
    const bool efectivo = p.FormaPago == QLatin1String("Efectivo");
    visible(ventana, "LabCabCambio", efectivo);
    visible(ventana, "LabCambio", efectivo);
    if (efectivo) {
        texto(ventana, "LabCambio", p.Cambio);
    }
    colorTexto(ventana, "LabMetodoPago", efectivo ? vista::AzulAtencion : vista::VerdeAsentado);

    texto(ventana, "TxtComentarios", p.Comentarios);

    for (const char* n :
         {"LabCabEstado", "LabCabTiempoEstMotivo", "LabEstado", "LabTiempoEstMotivo"}) {
        visible(ventana, n, false);
    }
    if (estado::esConocido(p.Estado)) {
        for (const char* n :
             {"LabCabEstado", "LabCabTiempoEstMotivo", "LabEstado", "LabTiempoEstMotivo"}) {
            visible(ventana, n, true);
        }
        texto(ventana, "LabEstado", p.Estado);
        if (estado::esAceptado(p.Estado)) {
            texto(ventana, "LabCabTiempoEstMotivo", QStringLiteral("Tiempo est.:"));
            texto(ventana, "LabTiempoEstMotivo", vista::TextoTiempoEstimado(p.TiempoEstimado));
        } else {
            texto(ventana, "LabCabTiempoEstMotivo", QStringLiteral("Motivo:"));
            texto(ventana, "LabTiempoEstMotivo", p.MotivoRechazo);
        }
    }

    visible(ventana, "LabCabOrigen", m.WebParticular);
    visible(ventana, "LabOrigen", m.WebParticular);
    if (m.WebParticular) {
        texto(ventana, "LabOrigen",
              p.WebParticular ? QStringLiteral("Web particular") : QStringLiteral("Tarvimenta"));
    }
}

void AplicarTamannosFuente(const ModuloPrincipal& m, QWidget* ventana) {
    const int t = m.TamannoFuentePrincipales;
    for (const char* n :
         {"ListViewProductos", "TxtComentarios", "LabImporteEnvio", "LabDescuento", "LabFormaEnvio",
          "TxtDireccion", "LabTelefono", "LabMetodoPago", "LabCambio"}) {
        tamanno(ventana, n, t);
    }
    if (t > 0) {
        tamanno(ventana, "LabTotal", t + 4);
    }
}
