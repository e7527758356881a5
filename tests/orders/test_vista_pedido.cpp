#include "base/ErrorEjecucion.h"
#include "common/Entorno.h"
#include "common/NumeroDeError.h"
#include "orders/AceptacionAutomatica.h"
#include "orders/PartirEnLineas.h"
#include "orders/VistaPedido.h"

#include <gtest/gtest.h>

namespace {

unsigned rgb(unsigned r, unsigned g, unsigned b) {
    return r + g * 256 + b * 65536;
}

} // namespace

TEST(PartirEnLineas, CortaTrasElUltimoBlancoConSusRarezas) {
    struct Caso {
        const char* texto;
        int ancho;
        QStringList lineas;
    };
    const Caso casos[] = {
        {"", 10, {}},
        {"a", 10, {}}, // one character gives no line
        {"ab", 10, {"ab"}},
        {"Pizza grande", 90, {"Pizza grande"}},
        {"uno dos tres", 5, {"uno ", "dos ", "tres"}},
        {"abcde", 5, {"abcde"}},                 // the piece reaches the end exactly
        {"abcd e", 5, {"abcd "}},                // a cut one short of the end drops the last one
        {"ab cdefgh", 3, {"ab ", "cde", "fgh"}}, // no blank: the previous cut length again
    };
    for (const Caso& c : casos) {
        EXPECT_EQ(PartirEnLineas(QString::fromUtf8(c.texto), c.ancho), c.lineas) << c.texto;
    }
}

TEST(PartirEnLineas, UnaPalabraSinCorteAnteriorTerminaEnErrorYNoEnBucle) {
    EXPECT_EQ(numeroDeError([] { PartirEnLineas(QStringLiteral("abcdefgh"), 3); }), 7);
    EXPECT_EQ(numeroDeError([] { PartirEnLineas(QStringLiteral("abc"), 0); }), 7);
    EXPECT_EQ(numeroDeError([] { PartirEnLineas(QStringLiteral("abc"), -1); }), 5);
}

TEST(VistaPedido, AnchoDeLineaYFilasDeProductos) {
    EXPECT_EQ(vista::AnchoLinea(8), 90);
    EXPECT_EQ(vista::AnchoLinea(7), 103); // 102,86
    EXPECT_EQ(vista::AnchoLinea(160), 4); // 4,5 to the even one
    EXPECT_EQ(vista::AnchoLinea(96), 8);  // 7,5 to the even one
    EXPECT_EQ(numeroDeError([] { vista::AnchoLinea(0); }), 11);

    Pedido p;
    p.Productos = {
        ProductoPedido{2,
                       QStringLiteral("Pizza - Extra de queso - Sin sal"),
                       QStringLiteral("9.50"),
                       1,
                       2,
                       {}},
        ProductoPedido{1, QStringLiteral("Ensalada de la casa"), QStringLiteral("4.00"), 3, 4, {}},
    };
    const QList<vista::Fila> filas = vista::FilasProductos(p, 10);
    const QList<QStringList> esperadas = {
        {"2", "Pizza", "9.50"},
        {"", "Extra de ", ""},
        {"", "queso", ""},
        {"", "Sin sal", ""},
        {"1", "Ensalada ", "4.00"},
        {"", "de la casa", ""},
        {"", "==== FIN DE LOS PRODUCTOS ==== ", ""},
    };
    ASSERT_EQ(filas.size(), esperadas.size());
    for (qsizetype i = 0; i < filas.size(); ++i) {
        EXPECT_EQ((QStringList{filas[i].cantidad, filas[i].texto, filas[i].precio}), esperadas[i])
            << i;
    }

    // An option of one character, or an empty name, gives no line: a run-time error.
    p.Productos = {ProductoPedido{1, QStringLiteral("Pizza - X"), QStringLiteral("1"), 1, 1, {}}};
    EXPECT_EQ(numeroDeError([&] { vista::FilasProductos(p, 90); }), 9);
    p.Productos = {ProductoPedido{1, QString(), QStringLiteral("1"), 1, 1, {}}};
    EXPECT_EQ(numeroDeError([&] { vista::FilasProductos(p, 90); }), 9);
}

TEST(VistaPedido, ColorDelParpadeoEnDieciseisBits) {
    EXPECT_EQ(vista::ColorParpadeo(0), rgb(255, 130, 0));
    EXPECT_EQ(vista::ColorParpadeo(100), rgb(255, 179, 100));       // 12500 / 255 = 49,02
    EXPECT_EQ(vista::ColorParpadeo(200), rgb(255, 228, 200));       // 25000 / 255 = 98,04
    EXPECT_EQ(vista::ColorParpadeo(262), rgb(255, 255, 255));       // 258 and 262 count as 255
    EXPECT_EQ(numeroDeError([] { vista::ColorParpadeo(263); }), 6); // 32875 overflows
    EXPECT_EQ(numeroDeError([] { vista::ColorParpadeo(-1); }), 5);
}

TEST(VistaPedido, TextosDeTiempoComisionPromocionYHora) {
    EXPECT_EQ(vista::TextoTiempoEstimado(QStringLiteral("null")),
              QStringLiteral("No especificado"));
    EXPECT_EQ(vista::TextoTiempoEstimado(QStringLiteral("0")), QStringLiteral("No especificado"));
    EXPECT_EQ(vista::TextoTiempoEstimado(QStringLiteral("00")), QStringLiteral("No especificado"));
    EXPECT_EQ(vista::TextoTiempoEstimado(QStringLiteral("45")), QStringLiteral("45 Minutos"));
    EXPECT_EQ(numeroDeError([] { vista::TextoTiempoEstimado(QStringLiteral("pronto")); }), 13);
    EXPECT_EQ(numeroDeError([] { vista::TextoTiempoEstimado(QString()); }), 13);

    EXPECT_TRUE(vista::ComisionVisible(QStringLiteral("0.35€")));
    EXPECT_TRUE(vista::ComisionVisible(QStringLiteral("1,5€")));
    EXPECT_FALSE(vista::ComisionVisible(QStringLiteral("0.00€")));
    EXPECT_FALSE(vista::ComisionVisible(QStringLiteral("-2€")));
    EXPECT_FALSE(vista::ComisionVisible(QStringLiteral("n/a€")));
    EXPECT_FALSE(vista::ComisionVisible(QStringLiteral("€")));
    // A figure beyond the decimal range still reads as a number above 0, with no error.
    EXPECT_TRUE(vista::ComisionVisible(QStringLiteral("1e40€")));

    Entorno e;
    e.m.PedidoActual.CodigoPromocion = QStringLiteral("HOLA");
    EXPECT_FALSE(vista::PromocionVisible(e.m));
    e.m.MostrarQuienA = true;
    EXPECT_TRUE(vista::PromocionVisible(e.m));
    // No wire value is bearer 0 here.
    EXPECT_EQ(vista::TextoPromocion(e.m), QStringLiteral(" (Asume Tarvimenta)"));
    e.m.MostrarCpr = true;
    e.m.PedidoActual.QuienAsume = 2;
    EXPECT_EQ(vista::TextoPromocion(e.m),
              QStringLiteral("HOLA (Asume Establecimiento y Tarvimenta)"));
    e.m.PedidoActual.QuienAsume = 5;
    EXPECT_EQ(vista::TextoPromocion(e.m), QStringLiteral("HOLA"));
    e.m.PedidoActual.CodigoPromocion.clear();
    EXPECT_FALSE(vista::PromocionVisible(e.m));

    Pedido p;
    p.Para = QStringLiteral("Para: Ahora");
    EXPECT_TRUE(vista::ParaEsAhora(p));
    EXPECT_EQ(vista::TextoPara(p), QStringLiteral("Ahora"));
    p.Para = QStringLiteral("Para: 21:30");
    p.ParaDia = QStringLiteral("Sábado 15");
    EXPECT_FALSE(vista::ParaEsAhora(p));
    EXPECT_EQ(vista::TextoPara(p), QStringLiteral("21:30 sábado 15"));
    p.ParaDia.clear();
    EXPECT_EQ(vista::TextoPara(p), QStringLiteral("21:30 "));
}

TEST(AceptacionAutomatica, CadaFormaDeEntregaSigueSuAjuste) {
    Entorno e;
    e.m.PedidoActual.FormaEntrega = QStringLiteral("Calle Mayor 5");
    e.m.AceptarAutoDomicilio = 30;
    e.m.AceptarAutoRecoger = 0;
    EXPECT_EQ(DecidirAceptacionAutomatica(e.m), 30);
    EXPECT_EQ(e.m.PedidoActual.TiempoEstimado, QStringLiteral("30"));
    EXPECT_EQ(e.m.PedidoActual.HoraAceptacion, QDateTime(QDate(2026, 11, 14), QTime(9, 5, 7)));
    EXPECT_EQ(e.m.AceptarAutoDomicilio, 30);

    // A pick-up is not touched by the delivery setting.
    e.m.PedidoActual = Pedido{};
    e.m.PedidoActual.FormaEntrega = QStringLiteral("Recogen");
    EXPECT_FALSE(DecidirAceptacionAutomatica(e.m).has_value());
    EXPECT_TRUE(e.m.PedidoActual.TiempoEstimado.isEmpty());
    EXPECT_FALSE(e.m.PedidoActual.HoraAceptacion.isValid());

    // -1: one order with 0 minutes, then the setting stays at 0.
    e.m.AceptarAutoRecoger = -1;
    EXPECT_EQ(DecidirAceptacionAutomatica(e.m), 0);
    EXPECT_EQ(e.m.PedidoActual.TiempoEstimado, QStringLiteral("0"));
    EXPECT_EQ(e.m.AceptarAutoRecoger, 0);
    EXPECT_FALSE(DecidirAceptacionAutomatica(e.m).has_value());

    e.m.PedidoActual.FormaEntrega = QStringLiteral("recogen");
    e.m.AceptarAutoDomicilio = -2;
    EXPECT_FALSE(DecidirAceptacionAutomatica(e.m).has_value());
}
