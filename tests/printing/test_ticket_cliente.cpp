// The customer ticket, byte by byte, for the kinds of order and the printer's options.
#include "common/DatosEsperados.h"
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
};

TEST_F(TicketCliente, DomicilioAceptadoParaAhoraConLaImpresoraDeSerie) {
    pedidoDomicilio();
    EXPECT_EQ(imprimir(impresoraEP("Barra", "barra")),
              TicketEPDatos("ticket_cliente_domicilio.txt"));
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

    EXPECT_EQ(imprimir(i), TicketEPDatos("ticket_cliente_recogida_grande.txt"));
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
    EXPECT_EQ(imprimir(i), TicketEPDatos("ticket_cliente_pc858.txt"));
    EXPECT_EQ(m.TextoPiePagina, u"¡Buen provecho!"_qs) << "PC858 leaves the variables alone";
}

class TicketClienteLlano : public TicketCliente, public ::testing::WithParamInterface<bool> {};

TEST_P(TicketClienteLlano, ReemplazarCaracEspConYSinPC858) {
    pedidoDomicilio();
    ClassConfigImpresora i = impresoraEP("Barra", "barra");
    i.ReemplazarCaracEsp = true;
    i.ReemplazarCaracEscPosPC858 = GetParam();
    EXPECT_EQ(imprimir(i), TicketEPDatos("ticket_cliente_llano.txt"));
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
