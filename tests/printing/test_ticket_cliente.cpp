// The customer ticket, byte by byte, for the kinds of order and the printer's options.
#include "common/EscritorioPruebaEP.h"
#include "printing/EscritorTicketEP.h"
#include "printing/TicketClienteEP.h"

namespace {

using namespace esperado;

class TicketCliente : public EscritorioPrueba {
protected:
    QByteArray imprimir(const ClassConfigImpresora& i) {
        ImprimirTicketEP(m, i);
        return captura.bytes(i.EPConexion);
    }

    // Steps from the start up to the order number: settings as a new printer has them.
    static QByteArray cabecera(int blancasInicio = 0) {
        QByteArray b = INI + CP;
        if (blancasInicio > 0) {
            b += NO + blancas(blancasInicio);
        }
        return b + GR + L("Casa Tarvi") + NO + SEP() + L("22/11/2026 13:05:09") + GR +
               L("Gracias por su pedido") + NO + SEP() + GR + L(u"Ped. Nº: 1234"_qs);
    }
};

TEST_F(TicketCliente, DomicilioAceptadoParaAhoraConLaImpresoraDeSerie) {
    pedidoDomicilio();
    const QByteArray esperado =
        cabecera() + NO +
        // w 48: "2 X Pizza Margarita" is 19, room 29, price 6 -> 23 blanks.
        L("2 X Pizza Margarita" + sp(23) + u" 9,50€"_qs) +
        // "1 X Hamburguesa" is 15, room 33 -> 27 blanks; options whole on the next line.
        L("1 X Hamburguesa" + sp(27) + u" 7,25€"_qs) +
        L(" -Punto: Poco hecha - Extras: Queso, Bacon") + NO + SEP() + L("Comentarios:") +
        L("Sin cebolla") + NO + SEP() + L(u"Importe envío: 1,50€"_qs) + L(u"Descuento: 0€"_qs) +
        // Large width 24: 24 - 6 - 6 = 12 blanks.
        GR + L("Total:" + sp(12) + u"25,75€"_qs) + NO + SEP() + NO + L("Cliente:") +
        L(u"Ana Pérez"_qs) + L("600111222") + L(u"Calle Mayor 5, 2ºB"_qs) + NO + SEP() +
        L("Realizado el:") + L("22/11/2026 12:58") + L("Para: Ahora") + NO +
        L("Pedidos anteriores: 3") + GR + L("NO Pagado") + NO + L(u"Método de pago: Efectivo"_qs) +
        L("Cambio: 50") + SEP() + L("Aceptado: 30 Minutos") + GR + GR + L("13:30") + NO + SEP() +
        L(u"¡Buen provecho!"_qs) + SUBIR + CORTE;
    EXPECT_EQ(imprimir(impresoraEP("Barra", "barra")), esperado);
    EXPECT_EQ(captura.cierres("barra"), 1);
    EXPECT_TRUE(boxes().isEmpty());
}

TEST_F(TicketCliente, RecogidaProgramadaConTodoGrandeMayusculasYSeparadores) {
    pedidoDomicilio();
    Pedido& p = m.PedidoActual;
    p.FormaEntrega = "Recogen";
    p.Para = "Para: 21:30";
    p.ParaDia = u"Sábado 28/11/2026"_qs;
    p.ImprimirEnCocina = true;
    p.CodigoPromocion = "OTONO10";
    p.ComisionPaypal = u"0,35€"_qs;
    p.TotalBruto = u"27,50€"_qs;
    p.EstadoPago = "PAGADO";
    p.FormaPago = "Paypal";
    p.Cambio.clear();
    p.Cliente = u"María José Fernández de la Vega"_qs;
    m.MostrarCprTic = true;

    ClassConfigImpresora i = impresoraEP("Barra", "barra");
    i.ProductosYComentariosGrande = true;
    i.ProductosYComentariosMayus = true;
    i.SaltoLineaOpciones = true;
    i.MostrarSeparadorProductos = true;
    i.DatosClienteYEnvioGrande = true;
    i.NumLineasBlancoInicio = 2;
    i.NumLineasBlancoFinal = 3;
    i.MostrarTotalBruto = true;
    i.EPComExtrasFin = "27,112,0,25,250";

    const QByteArray esperado =
        cabecera(2) + GR +
        // w 24: 19 characters leave 5, the 6 of the price don't fit: own line, 18 blanks.
        NO + SEP() + GR + L("2 X PIZZA MARGARITA") + L(sp(18) + u" 9,50€"_qs) +
        // 15 characters leave 9: 3 blanks.
        NO + SEP() + GR + L("1 X HAMBURGUESA" + sp(3) + u" 7,25€"_qs) +
        L(" -PUNTO: POCO HECHA\n -EXTRAS: \n  QUESO\n  BACON") + NO + SEP() + L("Comentarios:") +
        GR + L("SIN CEBOLLA") + NO + SEP() + L(u"Importe envío: 1,50€"_qs) +
        L(u"Total Bruto: 27,50€"_qs) + L(u"Comisión Paypal: 0,35€"_qs) + L(u"Descuento: 0€"_qs) +
        L(u"Promoción: OTONO10"_qs) + GR + L("Total:" + sp(12) + u"25,75€"_qs) + NO + SEP() + GR +
        L("Cliente:") + L(u"María José Fernández de \r\nla Vega"_qs) + L("600111222") +
        L("Recogen") + NO + SEP() + L("Realizado el:") + L("22/11/2026 12:58") + GR +
        L("Para: 21:30") + L(u"Sábado 28/11/2026"_qs) + NO + L("Pedidos anteriores: 3") + GR +
        L("PAGADO") + NO + L(u"Método de pago: Paypal"_qs) + SEP() +
        // A scheduled order shows the bare state and no delivery time.
        L("Aceptado") + GR + NO + SEP() + L(u"¡Buen provecho!"_qs) + blancas(3) + SUBIR + CORTE +
        QByteArray::fromHex("1b700019fa");
    EXPECT_EQ(imprimir(i), esperado);
}

TEST_F(TicketCliente, RechazadoLlevaElMotivoYNoLaHora) {
    pedidoDomicilio();
    m.PedidoActual.Estado = "Rechazado";
    m.PedidoActual.MotivoRechazo = "Sin repartidores";
    const QByteArray b = imprimir(impresoraEP("Barra", "barra"));
    const QByteArray cola = L("Cambio: 50") + SEP() + L("Rechazado") + L("Sin repartidores") + GR +
                            NO + SEP() + L(u"¡Buen provecho!"_qs) + SUBIR + CORTE;
    EXPECT_TRUE(b.endsWith(cola)) << b.right(cola.size()).toHex(' ').toStdString();
    EXPECT_FALSE(b.contains("13:30"));
}

TEST_F(TicketCliente, BloqueDeEstadoSegunMinutosYAjusteDeHora) {
    pedidoDomicilio();
    ClassConfigImpresora sinHora = impresoraEP("Barra", "a");
    sinHora.MostrarHoraEntrega = false;
    const QByteArray a = imprimir(sinHora);
    EXPECT_TRUE(a.contains(SEP() + L("Aceptado") + L("30 Minutos") + GR + NO + SEP()));

    m.PedidoActual.TiempoEstimado = "0";
    const QByteArray b = imprimir(impresoraEP("Barra", "b"));
    EXPECT_TRUE(b.contains(SEP() + L("Aceptado: No especificado") + GR + NO + SEP()));

    // Not a number with the delivery time wanted: the ticket stops in the state block.
    m.PedidoActual.TiempoEstimado = "null";
    const QByteArray c = imprimir(impresoraEP("Barra", "c"));
    EXPECT_TRUE(c.endsWith(L("Cambio: 50") + SEP()));
    ASSERT_EQ(boxes().size(), 1);
    EXPECT_EQ(boxes()[0].texto,
              "Se ha producido un error. Tipo de error = 13. Descripción: No coinciden los tipos");
    EXPECT_FALSE(m.canalEP().abierto());

    // Any other state word prints no state at all.
    m.PedidoActual.Estado = "Pendiente";
    m.PedidoActual.TiempoEstimado = "30";
    const QByteArray d = imprimir(impresoraEP("Barra", "d"));
    EXPECT_TRUE(d.contains(L("Cambio: 50") + SEP() + GR + NO + SEP()));
}

TEST_F(TicketCliente, PrecioQueSobrepasaLaLineaYCabezaExacta) {
    pedidoDomicilio();
    m.PedidoActual.Productos = {
        // 4 + 44 = 48 characters: no room left, the price goes on its own line.
        {1, "Menu degustacion con maridaje de vinos local", "55,00", 1, 1, ""},
        // 49 characters: one over, the last line has 47 free.
        {1, "Menu degustacion con maridaje de vinos locale", "55,00", 1, 1, ""}};
    ClassConfigImpresora i = impresoraEP("Barra", "barra");
    const QByteArray b = imprimir(i);
    // A price of 7 characters: 41 blanks on a line of its own, 40 after the 49th character.
    EXPECT_TRUE(b.contains(L("1 X Menu degustacion con maridaje de vinos local") +
                           L(sp(41) + u" 55,00€"_qs)));
    EXPECT_TRUE(b.contains(
        L("1 X Menu degustacion con maridaje de vinos locale" + sp(40) + u" 55,00€"_qs)));
}

// The same delivery ticket on the three character settings. Written line by line from the
// tables: PC858 codes, or the plain letters (the euro sign falls away).
TEST_F(TicketCliente, CaracteresPC858) {
    pedidoDomicilio();
    ClassConfigImpresora i = impresoraEP("Barra", "barra");
    i.ReemplazarCaracEscPosPC858 = true;
    const QByteArray e = "\xd5"; // euro in PC858
    const QByteArray esperado =
        INI + CP + GR + L("Casa Tarvi") + NO + SEP() + L("22/11/2026 13:05:09") + GR +
        L("Gracias por su pedido") + NO + SEP() + GR + Lb("Ped. N\xf8: 1234") + NO +
        Lb(cp1252::aBytes("2 X Pizza Margarita" + sp(23) + " 9,50") + e) +
        Lb(cp1252::aBytes("1 X Hamburguesa" + sp(27) + " 7,25") + e) +
        L(" -Punto: Poco hecha - Extras: Queso, Bacon") + NO + SEP() + L("Comentarios:") +
        L("Sin cebolla") + NO + SEP() + Lb("Importe env\xa1o: 1,50" + e) + Lb("Descuento: 0" + e) +
        GR + Lb(cp1252::aBytes("Total:" + sp(12) + "25,75") + e) + NO + SEP() + NO + L("Cliente:") +
        Lb("Ana P\x82rez") + L("600111222") +
        Lb("Calle Mayor 5, 2\xf8"
           "B") +
        NO + SEP() + L("Realizado el:") + L("22/11/2026 12:58") + L("Para: Ahora") + NO +
        L("Pedidos anteriores: 3") + GR + L("NO Pagado") + NO + Lb("M\x82todo de pago: Efectivo") +
        L("Cambio: 50") + SEP() + L("Aceptado: 30 Minutos") + GR + GR + L("13:30") + NO + SEP() +
        Lb("\xad"
           "Buen provecho!") +
        SUBIR + CORTE;
    EXPECT_EQ(imprimir(i), esperado);
    EXPECT_EQ(m.TextoPiePagina, u"¡Buen provecho!"_qs) << "PC858 leaves the variables alone";
}

class TicketClienteLlano : public TicketCliente, public ::testing::WithParamInterface<bool> {};

TEST_P(TicketClienteLlano, ReemplazarCaracEspConYSinPC858) {
    pedidoDomicilio();
    ClassConfigImpresora i = impresoraEP("Barra", "barra");
    i.ReemplazarCaracEsp = true;
    i.ReemplazarCaracEscPosPC858 = GetParam();
    const QByteArray esperado =
        INI + CP + GR + L("Casa Tarvi") + NO + SEP() + L("22/11/2026 13:05:09") + GR +
        L("Gracias por su pedido") + NO + SEP() + GR + L("Ped. N: 1234") + NO +
        // The price has lost its euro sign: 5 characters, 24 blanks.
        L("2 X Pizza Margarita" + sp(24) + " 9,50") + L("1 X Hamburguesa" + sp(28) + " 7,25") +
        L(" -Punto: Poco hecha - Extras: Queso, Bacon") + NO + SEP() + L("Comentarios:") +
        L("Sin cebolla") + NO + SEP() + L("Importe envio: 1,50") + L("Descuento: 0") +
        // Blanks counted on the total with its sign: still 12.
        GR + L("Total:" + sp(12) + "25,75") + NO + SEP() + NO + L("Cliente:") + L("Ana Perez") +
        L("600111222") + L("Calle Mayor 5, 2B") + NO + SEP() + L("Realizado el:") +
        L("22/11/2026 12:58") + L("Para: Ahora") + NO + L("Pedidos anteriores: 3") + GR +
        L("NO Pagado") + NO + L("Metodo de pago: Efectivo") + L("Cambio: 50") + SEP() +
        L("Aceptado: 30 Minutos") + GR + GR + L("13:30") + NO + SEP() + L("!Buen provecho!") +
        SUBIR + CORTE;
    EXPECT_EQ(imprimir(i), esperado);
    EXPECT_EQ(m.TextoPiePagina, "!Buen provecho!") << "the desk's own text became plain";
    EXPECT_EQ(m.PedidoActual.Cliente, u"Ana Pérez"_qs) << "a wrapped copy was printed";
}

INSTANTIATE_TEST_SUITE_P(ConYSinPC858, TicketClienteLlano, ::testing::Bool());

} // namespace

namespace {

TEST(OpcionesEnLineas, GrupoConComaSeParteTrasLosDosPuntos) {
    EXPECT_EQ(ReformatearOpciones(u" -Tamaño: Grande - Extras: Queso, Jamón"_qs),
              u" -Tamaño: Grande\n -Extras: \n  Queso\n  Jamón"_qs);
    // Without a comma after a colon only the groups are separated.
    EXPECT_EQ(ReformatearOpciones(" -Masa: Fina - Punto: Hecho"), " -Masa: Fina\n -Punto: Hecho");
    // Three elements: the comma search reaches back to the last comma of the group.
    EXPECT_EQ(ReformatearOpciones("1 X Ensalada: Tomate, Atún, Maíz"),
              u"1 X Ensalada: \n  Tomate\n  Atún\n  Maíz"_qs);
}

} // namespace
