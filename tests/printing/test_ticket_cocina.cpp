// The kitchen ticket, byte by byte: routing by category, exception, extra product and option
// item, the head that waits for the first line, the foot, and printers that get nothing.
#include "common/DatosEsperados.h"
#include "common/EscritorioPruebaEP.h"
#include "printing/TicketClienteEP.h"
#include "printing/TicketCocinaEP.h"

namespace {

using namespace esperado;

class TicketCocina : public EscritorioPrueba {
protected:
    TicketCocina() {
        pedidoDomicilio();
        Pedido& p = m.PedidoActual;
        p.FormaEntrega = "Recogen";
        p.Productos = {
            {3, "Entrecot - Punto: Poco hecho", "18,00", 5, 9,
             "Plancha//2//Sin sal&&TEXTOLIBRE//Poco hecho&&Freidora//1//Patatas: Grandes, Con sal"},
            {2, "Pizza Margarita", "9,50", 10, 3, ""},
            {1, "Coca-Cola", "2,00", 7, 8, ""},
            {1, u"Ensalada César"_qs, "6,00", 11, 2, ""}};
    }

    static ClassConfigImpresora cocina(const QString& nombre, const QString& categorias) {
        ClassConfigImpresora i = impresoraEP(nombre, nombre.toLower());
        i.Cocina = true;
        i.CategoriasIds = categorias;
        return i;
    }

    QByteArray imprimir(const ClassConfigImpresora& i) {
        ImprimirTicketCocinaEP(m, i);
        return captura.bytes(i.EPConexion);
    }

    // The head of a pick-up order for as soon as possible, without the printer's name.
    static QByteArray cabecera() {
        return INI + CP + NO + L("22/11/2026 13:05:09") + GR + L(u"Ped. Nº: 1234"_qs) + NO +
               L("Recogen") + NO;
    }
};

TEST_F(TicketCocina, PlanchaRecibeSusOpcionesSuCategoriaYSuProductoExtra) {
    ClassConfigImpresora plancha = cocina("Plancha", "3");
    plancha.ProductosIds = "7";
    EXPECT_EQ(imprimir(plancha), TicketEPDatos("ticket_cocina_plancha.txt"));
    EXPECT_EQ(captura.cierres("plancha"), 1);
    EXPECT_TRUE(boxes().isEmpty());
}

TEST_F(TicketCocina, FreidoraConNombreGrandeDatosDelClientePieYSaltosDeOpciones) {
    ClassConfigImpresora freidora = cocina("Freidora", "6");
    freidora.MostrarNombreImpresora = true;
    freidora.NombreImpresoraGrande = true;
    freidora.SaltoLineaOpciones = true;
    freidora.ProductosYComentariosGrande = true;
    freidora.MostrarSeparadorProductos = true;
    freidora.DatosClienteCocina = true;
    freidora.NumPedidoYFormaEnvFinal = 2;
    freidora.NumLineasBlancoInicio = 1;
    freidora.MostrarHoraEntrega = false;
    EXPECT_EQ(imprimir(freidora), TicketEPDatos("ticket_cocina_freidora.txt"));
}

TEST_F(TicketCocina, ImpresoraSinNadaQueImprimirNoRecibeNiUnByte) {
    ImprimirTicketCocinaEP(m, cocina("Postres", "5"));
    EXPECT_EQ(captura.aperturas("postres"), 0) << "the port is never opened";
    EXPECT_TRUE(captura.bytes("postres").isEmpty());

    // A free text alone doesn't make a printer that no item of the product names print.
    m.PedidoActual.Productos = {{1, "Flan", "3,00", 40, 5, "TEXTOLIBRE//Sin nata"}};
    ImprimirTicketCocinaEP(m, cocina("Postres", "5"));
    EXPECT_EQ(captura.aperturas("postres"), 0);
    EXPECT_TRUE(boxes().isEmpty());
}

TEST_F(TicketCocina, PreciosEnCocinaConservanElEuroAunLlanos) {
    ClassConfigImpresora barra = cocina("Barra", "");
    barra.MostrarPreciosProdCocina = true;
    barra.ReemplazarCaracEsp = true;
    EXPECT_EQ(imprimir(barra), TicketEPDatos("ticket_cocina_precios_llana.txt"));
}

TEST_F(TicketCocina, ExcepcionesGananACategoriasYExtras) {
    ClassConfigImpresora bebidas = cocina("Bebidas", "8");
    bebidas.ProductosIds = "7";
    bebidas.ProductosExcepIds = "7";
    ImprimirTicketCocinaEP(m, bebidas);
    EXPECT_EQ(captura.aperturas("bebidas"), 0);

    ClassConfigImpresora todo = cocina("Todo", "");
    todo.ProductosExcepIds = "99, 10";
    const QByteArray b = imprimir(todo);
    EXPECT_FALSE(b.contains("Pizza"));
    EXPECT_TRUE(b.contains(L("1 X Coca-Cola") + NO + L(u"1 X Ensalada César"_qs) + NO));
}

TEST_F(TicketCocina, OpcionEnImpresoraLlanaPierdeLaCantidad) {
    ClassConfigImpresora plancha = cocina("Plancha", "99");
    plancha.ReemplazarCaracEsp = true;
    plancha.ProductosYComentariosMayus = true;
    const QByteArray b = imprimir(plancha);
    EXPECT_TRUE(b.contains(NO + L("SIN SAL") + NO + L("POCO HECHO") + NO + NO + SEP()));
    EXPECT_FALSE(b.contains("6 X"));
}

TEST_F(TicketCocina, DomicilioProgramadoEnCabeceraYPie) {
    Pedido& p = m.PedidoActual;
    p.FormaEntrega = u"Calle Mayor 5, 2ºB"_qs;
    p.Para = "Para: 21:30";
    p.ParaDia = u"Sábado 28/11/2026"_qs;
    ClassConfigImpresora pizzas = cocina("Pizzas", "3");
    pizzas.NumPedidoYFormaEnvFinal = 1;
    const QByteArray b = imprimir(pizzas);
    EXPECT_TRUE(b.startsWith(INI + CP + NO + L("22/11/2026 13:05:09") + GR + SEP() +
                             L("Para: 21:30") + L(u"Sábado 28/11/2026"_qs) + SEP() +
                             L(u"Ped. Nº: 1234"_qs) + NO + L(u"Envío a domicilio"_qs) + NO +
                             L("2 X Pizza Margarita") + NO));
    EXPECT_TRUE(b.endsWith(NO + SEP() + blancas(1) + GR + L(u"1234 Envío a Dom."_qs) + NO + SEP() +
                           GR + L("13:30") + NO + SUBIR + CORTE));
}

struct CasoFormaEnvio {
    int formaEnvio;
    bool recogen;
    bool imprime;
};

class FormaEnvio : public TicketCocina, public ::testing::WithParamInterface<CasoFormaEnvio> {};

TEST_P(FormaEnvio, FiltraPorLaFormaDeEntrega) {
    if (!GetParam().recogen) {
        m.PedidoActual.FormaEntrega = "Avenida del Puerto 12";
    }
    ClassConfigImpresora pizzas = cocina("Pizzas", "3");
    pizzas.FormaEnvio = static_cast<qint16>(GetParam().formaEnvio);
    const QByteArray b = imprimir(pizzas);
    EXPECT_EQ(!b.isEmpty(), GetParam().imprime);
    EXPECT_EQ(b.contains(L("2 X Pizza Margarita")), GetParam().imprime);
}

INSTANTIATE_TEST_SUITE_P(
    Casos, FormaEnvio,
    ::testing::Values(CasoFormaEnvio{1, true, false}, CasoFormaEnvio{1, false, true},
                      CasoFormaEnvio{2, true, true}, CasoFormaEnvio{2, false, false},
                      CasoFormaEnvio{0, true, true}, CasoFormaEnvio{0, false, true},
                      CasoFormaEnvio{7, true, true}));

TEST_F(TicketCocina, ListaConAlgoQueNoEsNumeroCortaElTicketYCierraElCanal) {
    ClassConfigImpresora plancha = cocina("Plancha", "3,x");
    const QByteArray b = imprimir(plancha);
    // The entrecot's items need no list; the pizza's category matches before the "x" is
    // reached; the cola's category runs into it.
    EXPECT_EQ(b, cabecera() + L("6 X Sin sal") + NO + L("Poco hecho") + NO +
                     L("2 X Pizza Margarita") + NO);
    ASSERT_EQ(boxes().size(), 1);
    EXPECT_EQ(boxes()[0].texto,
              "Se ha producido un error. Tipo de error = 13. Descripción: No coinciden los tipos");
    EXPECT_EQ(captura.cierres("plancha"), 0);
    EXPECT_FALSE(m.canalEP().abierto());

    // The next ticket is not refused for a channel left open.
    EXPECT_FALSE(imprimir(cocina("Pizzas", "3")).isEmpty());
    EXPECT_EQ(boxes().size(), 1);
}

// A customer printer that makes texts plain changes the order itself: a kitchen printer
// printed after it, without that option, prints the plain comment too.
TEST_F(TicketCocina, ImpresoraLlanaAntesDeLaCocinaLaDejaLlana) {
    m.PedidoActual.Comentarios = u"Añadir limón"_qs;
    ClassConfigImpresora cliente = impresoraEP("Barra", "barra");
    cliente.ReemplazarCaracEsp = true;
    ClassConfigImpresora pizzas = cocina("Pizzas", "3");

    ImprimirTicketCocinaEP(m, pizzas);
    EXPECT_TRUE(captura.bytes("pizzas").contains(L(u"Añadir limón"_qs)));

    captura.limpiar();
    ImprimirTicketEP(m, cliente);
    ImprimirTicketCocinaEP(m, pizzas);
    EXPECT_TRUE(captura.bytes("barra").contains(L("Anadir limon")));
    EXPECT_TRUE(captura.bytes("pizzas").contains(L("Comentarios:") + L("Anadir limon")));
    EXPECT_EQ(m.PedidoActual.Comentarios, "Anadir limon");
}

} // namespace
