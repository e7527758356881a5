// Windows open whole and centred on their screen, the new-order window with a long order at
// the largest font included. Also run on a 1024x768 screen (tests/CMakeLists.txt).
#include "base/ModuloPrincipal.h"
#include "orders/FormAceptarPedido.h"
#include "orders/FormPedidoNuevo.h"
#include "orders/FormRechazarPedido.h"
#include "orders/VentanaPedido_ui.h"
#include "platform/CajaMensajes.h"
#include "platform/EncajeVentanas_ui.h"
#include "settings/FormAdmin.h"
#include "settings/FormCategoriasCocina.h"
#include "settings/FormConfig.h"
#include "settings/FormExtraConfigImpr.h"
#include "settings/FormImpresoras.h"
#include "shell/Form1.h"

#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace {

TEST(GeometriaEncajada, CabeCentradaYNuncaMenorQueSuMinimo) {
    // A panel takes the bottom 28 pixels; the frame has a 24-pixel title bar.
    const QRect area(0, 0, 1024, 740);
    const QMargins marco(4, 24, 4, 4);
    const struct {
        QSize pedido, minimo;
        QRect esperada;
    } casos[] = {
        {{640, 480}, {100, 100}, {192, 140, 640, 480}}, // fits: centred with its frame
        {{640, 820}, {300, 400}, {192, 24, 640, 712}},  // too tall
        {{2000, 2000}, {300, 400}, {4, 24, 1016, 712}}, // too wide and too tall
        {{640, 900}, {300, 800}, {192, 24, 640, 800}},  // the minimum wins, title on screen
    };
    for (const auto& c : casos) {
        EXPECT_EQ(GeometriaEncajada(area, c.pedido, c.minimo, marco), c.esperada);
    }
    // A frame read back before the window manager sized it (1x1 around a 500x460 window)
    // counts as none: centred, not with its corner at the centre of the screen.
    EXPECT_EQ(GeometriaEncajada({0, 0, 1024, 768}, {500, 460}, {}, {0, 0, -499, -459}),
              QRect(262, 154, 500, 460));
    // A second screen, or a panel on the left.
    EXPECT_EQ(GeometriaEncajada({1280, 30, 800, 600}, {400, 300}, {}, {}),
              QRect(1480, 180, 400, 300));
}

TEST(MargenesMarco, SoloUnMarcoQueRodeaLaVentana) {
    const QRect ventana(262, 161, 500, 460);
    const struct {
        QRect marco;
        QMargins esperados;
    } casos[] = {
        {{261, 141, 502, 485}, {1, 20, 1, 5}}, // framed: border, title bar, bottom handle
        {{262, 161, 500, 460}, {}},            // not framed yet
        {{262, 161, 1, 1}, {}},                // framed, the frame not sized yet
        {{511, 363, 502, 485}, {}},            // a frame left behind where the window was
    };
    for (const auto& c : casos) {
        EXPECT_EQ(MargenesMarco(c.marco, ventana), c.esperados)
            << c.marco.x() << "," << c.marco.y();
    }
}

class EncajeVentanasPrueba : public ::testing::Test {
protected:
    EncajeVentanasPrueba() {
        qApp->installEventFilter(&encaje);
        m.setCajas(std::make_unique<RegistroCajas>());
    }

    static QRect area() { return QGuiApplication::primaryScreen()->availableGeometry(); }

    // Shown, then inside the area and centred in it (a pixel of rounding). A window manager
    // frames the window a moment after it shows, and the placement may be put right then.
    static void comprobarEntera(QWidget& w) {
        SCOPED_TRACE(w.objectName().toStdString());
        w.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&w, 5000));
        const auto entera = [&w] {
            const QRect f = w.frameGeometry();
            const QRect a = area();
            return a.contains(f) &&
                   std::abs((f.left() - a.left()) - (a.right() - f.right())) <= 1 &&
                   std::abs((f.top() - a.top()) - (a.bottom() - f.bottom())) <= 1;
        };
        EXPECT_TRUE(QTest::qWaitFor(entera, 3000))
            << w.frameGeometry().y() << "+" << w.frameGeometry().height();
    }

    EncajeVentanas encaje;
    ModuloPrincipal m;
};

TEST_F(EncajeVentanasPrueba, PedidoDeCuarentaProductosConLasRespuestasALaVista) {
    Pedido& p = m.PedidoActual;
    p.NumPedido = "7001";
    for (int i = 0; i < 40; ++i) {
        p.Productos.append({12, QStringLiteral("Producto %1 - Extra").arg(i), "123,50", i, 1, ""});
    }
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
            EXPECT_TRUE(area().contains(QRect(b->mapToGlobal(QPoint(0, 0)), b->size()))) << nombre;
            EXPECT_GE(b->height(), b->minimumSizeHint().height()) << nombre;
        }
        auto* lista = w.findChild<QTreeWidget*>(QStringLiteral("ListViewProductos"));
        EXPECT_GT(lista->verticalScrollBar()->maximum(), 0) << "the list scrolls";
        EXPECT_GE(lista->viewport()->height(), 3 * lista->fontMetrics().height());
        for (const int columna : {1, 3}) { // units and prices whole
            const QString texto = lista->topLevelItem(0)->text(columna);
            EXPECT_GT(lista->columnWidth(columna), lista->fontMetrics().horizontalAdvance(texto));
        }
    }
}

TEST_F(EncajeVentanasPrueba, LasDemasVentanasYLaQueCreceEscondida) {
    Form1 principal(m, {});
    FormAceptarPedido aceptar;
    FormRechazarPedido rechazar;
    FormAdmin admin(m, [] {});
    FormConfig config(m, [] {});
    FormImpresoras impresoras(m, [] { return true; });
    FormExtraConfigImpr extra(m);
    FormCategoriasCocina categorias(m);
    for (QWidget* w : std::initializer_list<QWidget*>{&principal, &aceptar, &rechazar, &admin,
                                                      &config, &impresoras, &extra, &categorias}) {
        comprobarEntera(*w);
        w->hide();
    }
    // Moved half off the screen and made taller than it while hidden: whole again when shown.
    aceptar.setGeometry(area().right() - 50, area().bottom() - 50, 300, area().height() + 200);
    comprobarEntera(aceptar);
}

} // namespace
