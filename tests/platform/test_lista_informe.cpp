// The report-style list paints its rows itself: what staff see of each row is checked on the
// pixels of the painted list.
#include "platform/ListaInforme_ui.h"

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace {

struct ListaPintada : ::testing::Test {
    QTreeWidget lista;

    void SetUp() override {
        PrepararListaInforme(&lista);
        lista.setColumnCount(3);
        lista.setHeaderLabels(
            {QStringLiteral("Uds."), QStringLiteral("Producto"), QStringLiteral("Precio(€)")});
        lista.setColumnWidth(0, 40);
        lista.setColumnWidth(1, 200);
        lista.setColumnWidth(2, 80);
        lista.resize(360, 200);
        for (const char* producto : {"Pizza", "Tarta", "Agua"}) {
            auto* fila = new QTreeWidgetItem(
                &lista, {QStringLiteral("1"), QString::fromUtf8(producto), QStringLiteral("4.50")});
            fila->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        }
        lista.show();
        QApplication::processEvents();
    }

    // The cell as painted, in the list's own pixels.
    QImage celda(int fila, int columna) {
        const QImage todo = lista.grab().toImage();
        QRect r = lista.visualItemRect(lista.topLevelItem(fila));
        r.setLeft(lista.header()->sectionViewportPosition(columna));
        r.setWidth(lista.columnWidth(columna));
        return todo.copy(r.translated(lista.viewport()->pos()));
    }
    // How many pixels of a strip of the cell are close to a colour.
    static int pixeles(const QImage& img, const QRect& franja, const QColor& c) {
        int n = 0;
        for (int y = franja.top(); y <= franja.bottom(); ++y) {
            for (int x = franja.left(); x <= franja.right(); ++x) {
                const QColor p = img.pixelColor(x, y);
                n += std::abs(p.red() - c.red()) + std::abs(p.green() - c.green()) +
                                 std::abs(p.blue() - c.blue()) <
                             60
                         ? 1
                         : 0;
            }
        }
        return n;
    }
    static QRect mitad(const QImage& img, bool derecha) {
        const int w = img.width() / 2;
        return QRect(derecha ? w : 0, 1, w - 1, img.height() - 3);
    }
};

TEST_F(ListaPintada, TextosAlineadosRejillaYFilaSeleccionadaEntera) {
    const QColor tinta = lista.palette().text().color();

    // Row 2: neither current (the view frames that one) nor selected.
    // Text on the side its alignment asks for.
    const QImage precio = celda(2, 2);
    EXPECT_GT(pixeles(precio, mitad(precio, true), tinta), 5);
    EXPECT_EQ(pixeles(precio, mitad(precio, false), tinta), 0);
    const QImage producto = celda(2, 1);
    EXPECT_GT(pixeles(producto, mitad(producto, false), tinta), 5);
    EXPECT_EQ(pixeles(producto, mitad(producto, true), tinta), 0);

    // The grid: a grey line under the row and one at the right edge of each cell.
    const QColor gris(200, 200, 200);
    const int alto = precio.height();
    EXPECT_EQ(pixeles(precio, QRect(0, alto - 1, precio.width(), 1), gris), precio.width());
    EXPECT_EQ(pixeles(precio, QRect(precio.width() - 1, 0, 1, alto), gris), alto);

    // A selected row is highlighted across every column, its text in the highlighted ink.
    lista.topLevelItem(1)->setSelected(true);
    QApplication::processEvents();
    const QColor resalte = lista.palette().highlight().color();
    for (int columna = 0; columna < 3; ++columna) {
        const QImage c = celda(1, columna);
        EXPECT_GT(pixeles(c, QRect(0, 0, c.width(), c.height() - 1), resalte),
                  c.width() * (c.height() - 1) / 2)
            << columna;
    }
    EXPECT_GT(
        pixeles(celda(1, 1), mitad(celda(1, 1), false), lista.palette().highlightedText().color()),
        5);
    EXPECT_EQ(pixeles(celda(2, 1), QRect(0, 0, 10, 10), resalte), 0);
}

TEST_F(ListaPintada, UnColorPropioDeLaFilaSeRespeta) {
    lista.topLevelItem(2)->setForeground(1, Qt::red);
    QApplication::processEvents();
    const QImage c = celda(2, 1);
    EXPECT_GT(pixeles(c, mitad(c, false), Qt::red), 5);
    EXPECT_EQ(pixeles(c, mitad(c, false), lista.palette().text().color()), 0);
}

TEST_F(ListaPintada, UnTextoQueNoCabeAcabaEnPuntosSuspensivos) {
    // Letters that ink every column from top to bottom: cut at the edge, they would leave
    // ink in the upper half of the cell's last pixels; shortened, only the dots end the text.
    lista.topLevelItem(2)->setText(1, QString(40, QLatin1Char('X')));
    lista.setColumnWidth(1, 80);
    QApplication::processEvents();
    const QImage c = celda(2, 1);
    const QColor tinta = lista.palette().text().color();
    const QRect final(c.width() - 9, 1, 5, c.height() / 2 - 2);
    EXPECT_EQ(pixeles(c, final, tinta), 0);
    EXPECT_GT(pixeles(c, QRect(0, 1, c.width() / 2, c.height() / 2 - 2), tinta), 5);
    EXPECT_GT(pixeles(c, QRect(c.width() - 20, c.height() / 2, 16, c.height() / 2 - 1), tinta), 0);
}

} // namespace
