// The product lists and the closing of the establishment, as the staff use them, against
// the stand-in service over loopback.
#include "common/Entorno.h"
#include "common/MostradorSimulado.h"
#include "platform/Controles_ui.h"
#include "products/FormProductosRechazarIngredientes.h"
#include "products/ListaProductos_ui.h"
#include "shell/FormCerrarEstablec.h"

#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

namespace {

const QString kMarcar = QStringLiteral("pedidosgprs/marcarDesmarcarProductoAgotado");
const QString kCerrar = QStringLiteral("establecimiento/cerrarAbrirEstablecHasta");

struct Listas : MostradorSimulado {
    void configurar() override {
        DarEstablecimiento(m, 1);
        m.RestId = 7;
    }
    static QStringList nombres(const ListaProductos& l) {
        QStringList r;
        for (int i = 0; i < l.topLevelItemCount(); ++i) {
            r << l.topLevelItem(i)->text(1);
        }
        return r;
    }
    // Ticks or unticks a row as a click would, and waits for the marking to finish.
    void marcar(ListaProductos& l, const QString& nombre, bool agotado) {
        l.esperaTrasMarcarMs = 0;
        const int antes = static_cast<int>(sim.consultas(kMarcar).size());
        QTreeWidgetItem* fila = nullptr;
        for (int i = 0; i < l.topLevelItemCount(); ++i) {
            if (l.topLevelItem(i)->text(1) == nombre) {
                fila = l.topLevelItem(i);
            }
        }
        ASSERT_NE(fila, nullptr) << qPrintable(nombre);
        fila->setCheckState(0, agotado ? Qt::Checked : Qt::Unchecked);
        ASSERT_TRUE(QTest::qWaitFor([&] { return sim.consultas(kMarcar).size() > antes; }, 5000));
        ASSERT_TRUE(QTest::qWaitFor([&] { return !l.MarcandoProducto; }, 5000));
    }
    QLineEdit* apertura() { return f->findChild<QLineEdit*>(QStringLiteral("TextEstadoApertura")); }
    QPushButton* boton(const char* nombre) {
        return f->findChild<QPushButton*>(QLatin1String(nombre), Qt::FindDirectChildrenOnly) !=
                       nullptr
                   ? f->findChild<QPushButton*>(QLatin1String(nombre), Qt::FindDirectChildrenOnly)
                   : f->centralWidget()->findChild<QPushButton*>(QLatin1String(nombre),
                                                                 Qt::FindDirectChildrenOnly);
    }
};

} // namespace

TEST_F(Listas, MarcarEnLaCartaLlegaAlServicioYALaListaPrincipal) {
    QTest::mouseClick(boton("CommandProductosSinIngredientes"), Qt::LeftButton);
    FormProductosRechazarIngredientes& v = f->formProductos();
    ASSERT_TRUE(v.isVisible());
    EXPECT_EQ(v.windowTitle(), QStringLiteral("Productos - Selección Agotados"));
    // Activation reads the list; the product kept out of the cart is not offered.
    v.CargarListaProductos();
    ListaProductos& carta = *v.ListViewProductosNoIngredientes();
    const QStringList todos = nombres(carta);
    EXPECT_TRUE(todos.contains(QStringLiteral("Tarta de queso")));
    EXPECT_FALSE(todos.contains(QStringLiteral("Bolsa de hielo 2 kg")));
    EXPECT_EQ(carta.headerItem()->text(2), QStringLiteral("Precio(€)"));

    marcar(carta, QStringLiteral("Tarta de queso"), true);
    EXPECT_EQ(sim.consultas(kMarcar).last(),
              QStringLiteral("idEstablecimiento=7&passwordconfig=clave&numconfig=1&idProducto=501"
                             "&agotado=s"));
    EXPECT_EQ(nombres(f->listaAgotados()), QStringList{"Tarta de queso"});
    EXPECT_EQ(f->listaAgotados().topLevelItem(0)->checkState(0), Qt::Checked);
    EXPECT_TRUE(cajas->cajas().isEmpty());

    // Unticking on the main list makes the product available, and its row goes at once.
    marcar(f->listaAgotados(), QStringLiteral("Tarta de queso"), false);
    EXPECT_TRUE(
        sim.consultas(kMarcar).last().endsWith(QStringLiteral("&idProducto=501&agotado=n")));
    EXPECT_EQ(f->listaAgotados().topLevelItemCount(), 0);
    EXPECT_TRUE(cajas->cajas().isEmpty());
}

TEST_F(Listas, UnaMarcaFallidaDevuelveLaCasillaYLoDice) {
    FormProductosRechazarIngredientes& v = f->formProductos();
    v.CargarListaProductos();
    ListaProductos& carta = *v.ListViewProductosNoIngredientes();
    sim.fallo(QStringLiteral("error"), 0, 1, kMarcar);
    const int lecturasAntes = static_cast<int>(
        sim.consultas(QStringLiteral("pedidosgprs/obtenerProductosAgotados")).size());
    marcar(carta, QStringLiteral("Crema catalana"), true);
    QTreeWidgetItem* fila = carta.fila(QStringLiteral("pr-502"));
    ASSERT_NE(fila, nullptr);
    EXPECT_EQ(fila->checkState(0), Qt::Unchecked);
    ASSERT_EQ(cajas->cajas().size(), 1);
    EXPECT_EQ(cajas->cajas()[0].estilo, estilo::Exclamacion);
    EXPECT_EQ(cajas->cajas()[0].titulo, QStringLiteral("Tarvimenta"));
    EXPECT_EQ(cajas->cajas()[0].texto,
              QStringLiteral("Error al intentar marcar/desmarcar el producto como agotado, por "
                             "favor, inténtelo de nuevo"));
    // The main list was read again all the same, and nothing is out of stock.
    EXPECT_EQ(sim.consultas(QStringLiteral("pedidosgprs/obtenerProductosAgotados")).size(),
              lecturasAntes + 1);
    EXPECT_EQ(f->listaAgotados().topLevelItemCount(), 0);
}

TEST_F(Listas, CerrarUnRatoYVolverAAbrir) {
    QTest::mouseClick(boton("butCerrar"), Qt::LeftButton); // disabled until the first state
    EXPECT_FALSE(f->formCerrarEstablec().isVisible());
    f->ComprobarPedidosNuevos();
    ASSERT_TRUE(boton("butCerrar")->isEnabled());
    QTest::mouseClick(boton("butCerrar"), Qt::LeftButton);
    FormCerrarEstablec& v = f->formCerrarEstablec();
    ASSERT_TRUE(v.isVisible());
    EXPECT_TRUE(v.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(v.TiempoCerrar(2)->text(), QStringLiteral("Cerrar 45 minutos"));

    QTest::mouseClick(v.TiempoCerrar(2), Qt::LeftButton);
    EXPECT_EQ(sim.consultas(kCerrar), QStringList{"id=7&accion=C&minutos=45&dias="});
    // The reply comes quoted and shows without its quotes.
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^Cerrado hasta \\d\\d:\\d\\d$"))
                    .match(apertura()->text())
                    .hasMatch())
        << qPrintable(apertura()->text());
    EXPECT_EQ(Fondo(apertura()), ColorVB(65535));
    EXPECT_FALSE(v.isVisible());
    EXPECT_TRUE(boton("butCerrar")->isHidden());
    ASSERT_FALSE(boton("butCancelarCerrar")->isHidden());

    QTest::mouseClick(boton("butCancelarCerrar"), Qt::LeftButton);
    EXPECT_EQ(sim.consultas(kCerrar).last(), QStringLiteral("id=7&accion=A"));
    EXPECT_EQ(apertura()->text(), QStringLiteral("Abierto"));
    EXPECT_EQ(Fondo(apertura()), ColorVB(65280));
    EXPECT_TRUE(boton("butCancelarCerrar")->isHidden());
    EXPECT_FALSE(boton("butCerrar")->isHidden());
    EXPECT_TRUE(boton("butCerrar")->isEnabled());

    // The rest of the day travels as one day and no minutes.
    f->CerrarTemporalmente(9);
    EXPECT_EQ(sim.consultas(kCerrar).last(), QStringLiteral("id=7&accion=C&minutos=&dias=1"));
    EXPECT_EQ(apertura()->text(), QStringLiteral("Cerrado hasta 23:59"));
    EXPECT_TRUE(cajas->cajas().isEmpty());

    // A reopening answered with anything else changes only the text.
    sim.encolar(kCerrar, {QStringLiteral("\"Ya veremos\"")});
    f->CancelarCerrar();
    EXPECT_EQ(apertura()->text(), QStringLiteral("Ya veremos"));
    EXPECT_EQ(Fondo(apertura()), ColorVB(65535));
    EXPECT_FALSE(boton("butCancelarCerrar")->isHidden());

    // Not while an order waits: a box, and nothing goes out.
    m.PedidoNuevoPendiente = true;
    v.show();
    const auto enviadas = sim.consultas(kCerrar).size();
    QTest::mouseClick(v.TiempoCerrar(0), Qt::LeftButton);
    EXPECT_EQ(sim.consultas(kCerrar).size(), enviadas);
    ASSERT_EQ(cajas->cajas().size(), 1);
    EXPECT_TRUE(cajas->cajas()[0].texto.startsWith(QStringLiteral("Hay un pedido o mensaje")));
    EXPECT_TRUE(v.isVisible());
}
