// The menu, the out-of-stock list and the markings, against scripted replies.
#include "base/Pedido.h"
#include "common/Entorno.h"
#include "products/Carta.h"

#include <gtest/gtest.h>

namespace {

// Two categories; 12 stands in both, 13 is kept out of the cart, 14 has no date at all.
const QByteArray kCarta = R"({"categorias":[
 {"nombre":"Pizzas","productos":[
  {"id":11,"nombre":"Pizza Margarita","pvp":9.5,"nocarro":null,"fechahoraagotado":null},
  {"id":12,"nombre":"Tarta de queso","pvp":4.9,"nocarro":false,"fechahoraagotado":"22/11/2026"},
  {"id":13,"nombre":"Bolsa de hielo","pvp":2,"nocarro":true,"fechahoraagotado":"x"}]},
 {"nombre":"Postres","productos":[
  {"id":12,"nombre":"Tarta de queso","pvp":4.9,"nocarro":0,"fechahoraagotado":null},
  {"id":14,"nombre":"Flan","pvp":"3,5"}]}]})";

struct Carta_ : ::testing::Test {
    Entorno e;
    Carta& c = e.m.carta();
    QList<QList<FilaProducto>> principal;

    Carta_() {
        DarEstablecimiento(e.m, 2);
        QObject::connect(&c, &Carta::agotadosLeidos,
                         [this](const QList<FilaProducto>& f) { principal << f; });
    }
    void responder(const QByteArray& cuerpo) { e.canales.directo->responder(cuerpo); }
    QByteArrayList& urls() { return e.canales.directo->urls; }
    static QByteArray sinSello(QByteArray url) { return url.left(url.indexOf("&fha=")); }
};

FilaProducto Fila(const char* clave, const char* nombre, const char* precio, bool agotado) {
    return {QString::fromUtf8(clave), QString::fromUtf8(nombre), QString::fromUtf8(precio),
            agotado};
}

QList<ProductoPedido> Lineas(std::initializer_list<const char*> nombres) {
    QList<ProductoPedido> r;
    for (const char* n : nombres) {
        ProductoPedido p;
        p.Nombre = QString::fromUtf8(n);
        r << p;
    }
    return r;
}

} // namespace

TEST_F(Carta_, LaPrimeraListaLeeSoloLaCartaYElige) {
    e.m.PedidoActual.Productos =
        Lineas({"Tarta de queso - Con nata", "Bolsa de hielo", "Pizza margarita"});
    responder(kCarta);
    const QList<FilaProducto> todas = c.CargarListaProductos(Carta::ListaCarta);
    ASSERT_EQ(urls().size(), 1);
    EXPECT_EQ(sinSello(urls()[0]), "https://servidor.prueba/api/establecimiento/carta2?id=7");
    EXPECT_EQ(todas, (QList<FilaProducto>{Fila("pr-11", "Pizza Margarita", "9,5", false),
                                          Fila("pr-12", "Tarta de queso", "4,9", true),
                                          Fila("pr-12", "Tarta de queso", "4,9", false),
                                          Fila("pr-14", "Flan", "3,5", true)}));
    EXPECT_TRUE(principal.isEmpty());

    // With the menu kept, every list first brings the marks up to date: the reply replaces
    // them, on every category where the product stands.
    struct Caso {
        QString ventana;
        QList<FilaProducto> filas;
    };
    const Caso casos[] = {
        {Carta::Form1,
         {Fila("pr-11", "Pizza Margarita", "9,5", true),
          Fila("pr-12", "Tarta de queso", "4,9", true),
          Fila("pr-12", "Tarta de queso", "4,9", true)}},
        {Carta::ListaPedido,
         {Fila("pr-12", "Tarta de queso", "4,9 €", true),
          Fila("pr-12", "Tarta de queso", "4,9 €", true)}},
    };
    for (const Caso& caso : casos) {
        responder(R"([{"id":11,"nombre":"Pizza Margarita","pvp":9.5,"fechahoraagotado":"a"},
                      {"id":12,"nombre":"Tarta de queso","pvp":4.9,"fechahoraagotado":"b"},
                      {"id":14,"nombre":"Flan","pvp":3.5,"fechahoraagotado":null}])");
        EXPECT_EQ(c.CargarListaProductos(caso.ventana), caso.filas) << qPrintable(caso.ventana);
        EXPECT_EQ(sinSello(urls().last()), "https://servidor.prueba/api/pedidosgprs/"
                                           "obtenerProductosAgotados?idEstablecimiento=7");
        ASSERT_FALSE(principal.isEmpty());
        // The main list takes the reply as it is, available rows included.
        EXPECT_EQ(principal.last(),
                  (QList<FilaProducto>{Fila("pr-11", "Pizza Margarita", "9,5", true),
                                       Fila("pr-12", "Tarta de queso", "4,9", true),
                                       Fila("pr-14", "Flan", "3,5", false)}));
    }
}

TEST_F(Carta_, UnaRespuestaIlegibleDejaLasListasVaciasYLaCartaComoEstaba) {
    responder(kCarta);
    c.CargarCarta();
    for (const QByteArray& mala : {QByteArray("error"), QByteArray(R"({"id":1})"), QByteArray()}) {
        responder(mala);
        EXPECT_TRUE(c.ObtenerProductosAgotados().isEmpty()) << mala.constData();
        EXPECT_TRUE(principal.last().isEmpty());
    }
    responder("[]");
    EXPECT_TRUE(c.CargarListaProductos(Carta::Form1).isEmpty()); // every mark gone
    // A menu that cannot be read leaves no menu, and the next list reads it again.
    responder("error");
    c.CargarCarta();
    EXPECT_FALSE(c.hayCarta());
    responder(kCarta);
    EXPECT_EQ(c.CargarListaProductos(Carta::Form1).size(), 2);
    EXPECT_TRUE(sinSello(urls().last()).endsWith("carta2?id=7"));
}

TEST_F(Carta_, MarcarEnviaLaPeticionExactaYSoloOkEntreComillasEsExito) {
    const struct {
        QByteArray respuesta;
        bool exito;
    } casos[] = {
        {R"("ok")", true},     {R"(  "ok"  )", true}, {"ok", false},       {R"("OK")", false},
        {"\"ok\"\r\n", false}, {"error", false},      {R"("ok"x)", false},
    };
    for (const auto& caso : casos) {
        urls().clear();
        responder(caso.respuesta);
        responder("[]");
        EXPECT_EQ(c.MarcarDesmarcarProducto(501, QStringLiteral("s")), caso.exito)
            << caso.respuesta.constData();
        // The main list is read again whatever the answer (a failure word may add the
        // gateway's own second try of the marking).
        ASSERT_GE(urls().size(), 2);
        // A failure word moves the run to plain http: the path and query stay.
        EXPECT_TRUE(sinSello(urls()[0]).endsWith(
            "//servidor.prueba/api/pedidosgprs/marcarDesmarcarProductoAgotado?"
            "idEstablecimiento=7&passwordconfig=clave&numconfig=2&idProducto=501&agotado=s"))
            << urls()[0].constData();
        EXPECT_TRUE(urls().last().contains("obtenerProductosAgotados"));
    }
}

TEST(ProductoEnPedido, ComparaElNombreAntesDeLasOpciones) {
    Pedido p;
    p.Productos = Lineas({"Pizza Margarita - Masa fina - Extra de orégano", "Agua - 50 cl"});
    const struct {
        const char* nombre;
        bool esta;
    } casos[] = {{"Pizza Margarita", true},  {"Agua", true},          {"Masa fina", false},
                 {"Pizza margarita", false}, {"Agua - 50 cl", false}, {"Pizza", false}};
    for (const auto& caso : casos) {
        EXPECT_EQ(Carta::ProductoEnPedido(p, QString::fromUtf8(caso.nombre)), caso.esta)
            << caso.nombre;
    }
}
