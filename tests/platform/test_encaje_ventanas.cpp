// Windows open whole and centred on the screen they show on, the new-order window with a long
// order and the largest font included. Run also on a 1024x768 screen (tests/CMakeLists.txt).
#include "base/ModuloPrincipal.h"
#include "orders/FormAceptarPedido.h"
#include "orders/FormPedidoNuevo.h"
#include "orders/FormRechazarPedido.h"
#include "orders/VentanaPedido_ui.h"
#include "platform/CajaMensajes.h"
#include "platform/EncajeVentanas_ui.h"
#include "settings/FormAdmin.h"
#include "shell/Form1.h"

#include <QApplication>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace {

TEST(GeometriaEncajada, CabeCentradaYNuncaMenorQueSuMinimo) {
    const QRect area(0, 0, 1024, 740); // a panel takes the bottom 28 pixels
    const QMargins marco(4, 24, 4, 4);
    struct Caso {
        QSize pedido, minimo;
        QRect esperada;
    };
    const Caso casos[] = {
        // Fits: its own size, centred with its frame.
        {{640, 480}, {100, 100}, {QPoint(192, 140), QSize(640, 480)}},
        // Too tall: as tall as the area less the frame, at the top.
        {{640, 820}, {300, 400}, {QPoint(192, 24), QSize(640, 712)}},
        // Too wide and too tall.
        {{2000, 2000}, {300, 400}, {QPoint(4, 24), QSize(1016, 712)}},
        // A minimum larger than the area wins, and the title bar stays on screen.
        {{640, 900}, {300, 800}, {QPoint(192, 24), QSize(640, 800)}},
    };
    for (const Caso& c : casos) {
        EXPECT_EQ(GeometriaEncajada(area, c.pedido, c.minimo, marco), c.esperada)
            << c.pedido.width() << "x" << c.pedido.height();
    }
    // An area that does not start at the origin (a second screen, a panel on the left).
    EXPECT_EQ(GeometriaEncajada(QRect(1280, 30, 800, 600), {400, 300}, {}, {}),
              QRect(QPoint(1480, 180), QSize(400, 300)));
}

class EncajeVentanasPrueba : public ::testing::Test {
protected:
    EncajeVentanasPrueba() {
        qApp->installEventFilter(&encaje);
        m.setCajas(std::make_unique<RegistroCajas>());
    }

    static QRect area() { return QGuiApplication::primaryScreen()->availableGeometry(); }

    // Inside the area, and centred in it (within a pixel of rounding).
    static bool entera(const QRect& f) {
        const QRect a = area();
        return a.contains(f) && std::abs((f.left() - a.left()) - (a.right() - f.right())) <= 1 &&
               std::abs((f.top() - a.top()) - (a.bottom() - f.bottom())) <= 1;
    }

    static void comprobarEntera(QWidget& w) {
        SCOPED_TRACE(w.objectName().toStdString());
        w.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&w, 5000));
        // A window manager frames the window a moment after it shows: the placement may be
        // put right once the real frame is known.
        const bool bien = QTest::qWaitFor([&w] { return entera(w.frameGeometry()); }, 3000);
        const QRect f = w.frameGeometry();
        EXPECT_TRUE(bien) << f.x() << "," << f.y() << " " << f.width() << "x" << f.height()
                          << " in " << area().width() << "x" << area().height();
    }

    EncajeVentanas encaje;
    ModuloPrincipal m;
};

TEST_F(EncajeVentanasPrueba, PedidoDeCuarentaProductosConLasRespuestasALaVista) {
    Pedido& p = m.PedidoActual;
    p.NumPedido = "7001";
    for (int i = 0; i < 40; ++i) {
        p.Productos.append(
            {1, QStringLiteral("Producto %1 - Extra de queso").arg(i + 1), "3,50", i, 1, ""});
    }
    p.ImporteEnvio = p.ComisionPaypal = p.ImporteDescuento = u"0€"_qs;
    p.TotalPedido = p.TotalBruto = u"140€"_qs;
    p.Cliente = "Ana Ruiz";
    p.Telefono = "600111222";
    p.FormaEntrega = "Calle Mayor 5, 2º B";
    p.RealizadoEl = "22/11/2026 21:00";
    p.Para = "Para: Ahora";
    p.FormaPago = "Tarjeta";
    p.Comentarios = "Llamar al timbre\nSegunda puerta";

    for (const int fuente : {8, 16}) {
        SCOPED_TRACE(fuente);
        FormPedidoNuevo w(m);
        m.TamannoFuentePrincipales = fuente;
        AplicarTamannosFuente(m, &w);
        RellenarVentanaPedido(m, &w);
        comprobarEntera(w);
        for (const char* nombre : {"Aceptar", "Rechazar", "Imprimir", "Silenciar"}) {
            auto* b = w.findChild<QPushButton*>(QLatin1String(nombre));
            ASSERT_NE(b, nullptr);
            const QRect global(b->mapToGlobal(QPoint(0, 0)), b->size());
            EXPECT_TRUE(b->isVisible()) << nombre;
            EXPECT_TRUE(area().contains(global)) << nombre;
            EXPECT_GE(b->height(), b->minimumSizeHint().height()) << nombre;
        }
        auto* lista = w.findChild<QTreeWidget*>(QStringLiteral("ListViewProductos"));
        ASSERT_NE(lista, nullptr);
        EXPECT_GT(lista->verticalScrollBar()->maximum(), 0) << "the list scrolls";
        EXPECT_GE(lista->viewport()->height(), 3 * lista->fontMetrics().height())
            << "and shows some rows";
        // Units and prices whole, at every size.
        for (const int columna : {1, 3}) {
            const QString texto = lista->topLevelItem(0)->text(columna);
            EXPECT_GT(lista->columnWidth(columna), lista->fontMetrics().horizontalAdvance(texto))
                << texto.toStdString();
        }
    }
}

TEST_F(EncajeVentanasPrueba, LasDemasVentanasTambien) {
    Form1 principal(m, {});
    FormAceptarPedido aceptar;
    FormRechazarPedido rechazar;
    FormAdmin admin(m, [] {});
    for (QWidget* w : std::initializer_list<QWidget*>{&principal, &aceptar, &rechazar, &admin}) {
        comprobarEntera(*w);
        w->hide();
    }
}

TEST_F(EncajeVentanasPrueba, UnaVentanaQueCreceVuelveEnteraAlMostrarse) {
    FormAceptarPedido w;
    comprobarEntera(w);
    w.hide();
    // Moved half off the screen and made taller than it while hidden.
    w.setGeometry(area().right() - 50, area().bottom() - 50, w.width(), area().height() + 200);
    comprobarEntera(w);
}

} // namespace
