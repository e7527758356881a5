#include "platform/ListaInforme_ui.h"

#include <QPainter>
#include <QProxyStyle>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QStyledItemDelegate>
#include <QTreeWidget>

namespace {

const QColor kRejilla(200, 200, 200);

class DelegadoRejilla : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* p, const QStyleOptionViewItem& opcion,
               const QModelIndex& indice) const override {
        const QRect& r = opcion.rect;
        const bool seleccionada = opcion.state.testFlag(QStyle::State_Selected);
        if (seleccionada) {
            p->fillRect(r, opcion.palette.highlight());
        }
        const QRect caja = r.adjusted(kMargen, 0, -kMargen, 0);
        QString texto = indice.data(Qt::DisplayRole).toString();
        if (!texto.isEmpty()) {
            QColor tinta = seleccionada ? opcion.palette.highlightedText().color()
                                        : opcion.palette.text().color();
            const QVariant primerPlano = indice.data(Qt::ForegroundRole);
            if (!seleccionada && primerPlano.canConvert<QBrush>()) {
                tinta = primerPlano.value<QBrush>().color();
            }
            // What does not fit ends in "…", as in the stock list; measuring only the texts
            // that might not fit keeps the usual row to a single layout pass.
            const QFontMetrics medidas(opcion.font);
            if (texto.size() * medidas.maxWidth() > caja.width() &&
                medidas.horizontalAdvance(texto) > caja.width()) {
                texto = medidas.elidedText(texto, Qt::ElideRight, caja.width());
            }
            const auto alineacion = Qt::Alignment(indice.data(Qt::TextAlignmentRole).toInt()) &
                                    Qt::AlignHorizontal_Mask;
            p->setPen(tinta);
            p->setFont(opcion.font);
            p->drawText(caja,
                        int(alineacion ? alineacion : Qt::AlignLeft) | Qt::AlignVCenter |
                            Qt::TextSingleLine,
                        texto);
        }
        // The grid as one-pixel rectangles: the raster engine fills solid rectangles directly,
        // while outlines, gradients and patterns go through span lists that it hands to worker
        // threads once a shape is taller than about a hundred pixels.
        p->fillRect(QRect(r.left(), r.bottom(), r.width(), 1), kRejilla);
        p->fillRect(QRect(r.right(), r.top(), 1, r.height()), kRejilla);
    }

private:
    // The stock delegate's text margin.
    static constexpr int kMargen = 3;
};

// Flat scroll bars: a plain groove, a plain handle and the style's own arrows.
class EstiloBarrasPlanas : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* opcion, QPainter* p,
                            const QWidget* w) const override {
        const auto* barra = qstyleoption_cast<const QStyleOptionSlider*>(opcion);
        if (control != CC_ScrollBar || barra == nullptr) {
            QProxyStyle::drawComplexControl(control, opcion, p, w);
            return;
        }
        const QPalette& pal = opcion->palette;
        p->fillRect(opcion->rect, pal.window().color().darker(105));

        const QRect asa = subControlRect(control, barra, SC_ScrollBarSlider, w);
        if (asa.isValid()) {
            const bool pulsada = barra->activeSubControls.testFlag(SC_ScrollBarSlider) &&
                                 barra->state.testFlag(State_Sunken);
            p->fillRect(asa, pal.button().color().darker(pulsada ? 130 : 115));
        }
        const bool vertical = barra->orientation == Qt::Vertical;
        const std::pair<SubControl, PrimitiveElement> flechas[] = {
            {SC_ScrollBarSubLine, vertical ? PE_IndicatorArrowUp : PE_IndicatorArrowLeft},
            {SC_ScrollBarAddLine, vertical ? PE_IndicatorArrowDown : PE_IndicatorArrowRight},
        };
        for (const auto& [parte, flecha] : flechas) {
            QStyleOption o(*opcion);
            o.rect = subControlRect(control, barra, parte, w);
            if (!o.rect.isValid()) {
                continue;
            }
            const bool pulsado =
                barra->activeSubControls.testFlag(parte) && barra->state.testFlag(State_Sunken);
            p->fillRect(o.rect, pulsado ? pal.button().color().darker(115) : pal.button().color());
            o.rect.adjust(3, 3, -3, -3);
            drawPrimitive(flecha, &o, p, w);
        }
    }
};

} // namespace

void PrepararListaInforme(QTreeWidget* lista) {
    lista->setRootIsDecorated(false);
    lista->setSelectionBehavior(QAbstractItemView::SelectRows);
    lista->setAllColumnsShowFocus(true);
    lista->setUniformRowHeights(true);
    lista->setItemDelegate(new DelegadoRejilla(lista)); // the list owns it

    // A plain one-pixel box in the grid's grey: the frame of a plain box takes the
    // window-text colour, which nothing else in a list uses.
    lista->setFrameStyle(QFrame::Box | QFrame::Plain);
    lista->setLineWidth(1);
    QPalette pal = lista->palette();
    pal.setColor(QPalette::WindowText, kRejilla.darker(130));
    lista->setPalette(pal);

    auto* estilo = new EstiloBarrasPlanas; // based on the application's style
    estilo->setParent(lista);
    lista->verticalScrollBar()->setStyle(estilo);
    lista->horizontalScrollBar()->setStyle(estilo);
}
