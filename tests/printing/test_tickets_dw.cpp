// The driver tickets on a recording printer: which lines, at which size and height. The
// recorder moves down 20 twips per point of the font for each printed line.
#include "base/ErrorEjecucion.h"
#include "common/EscritorioPruebaEP.h"
#include "common/ImpresoraDWGrabadora.h"
#include "impresora_dw_prueba.h"
#include "printing/TicketClienteDW.h"
#include "printing/TicketCocinaDW.h"

namespace {

using esperado::sp;

struct L {
    QString texto;
    double tamanno;
    double y;
};

void PrintTo(const L& l, std::ostream* os) {
    *os << '"' << l.texto.toStdString() << "\" " << l.tamanno << "pt y=" << l.y;
}

bool operator==(const L& a, const L& b) {
    return a.texto == b.texto && a.tamanno == b.tamanno && a.y == b.y;
}

QList<L> lineas(const ImpresoraDWGrabadora& r) {
    QList<L> v;
    for (const auto& l : r.lineas) {
        v.append({l.texto, l.tamanno, l.y});
    }
    return v;
}

const QString CRLF = QStringLiteral("\r\n");

class TicketsDW : public EscritorioPrueba {
protected:
    ImpresoraDWGrabadora r;
};

TEST_F(TicketsDW, ClienteDomicilioAceptadoLineaALinea) {
    pedidoDomicilio();
    const ClassConfigImpresora i = impresoraDW("Mostrador");
    ImprimirTicketDW(m, r, i);

    // Gaps of 60 before every separator (4 points: 80 twips) and at each GAP.
    const QList<L> esperado = {
        {"Casa Tarvi", 14, 0},
        {"----", 4, 340},
        {"22/11/2026 13:05:09", 10, 480},
        {"Gracias por su pedido", 14, 740},
        {"----", 4, 1080},
        {u"Ped. Nº: 1234"_qs, 14, 1220},
        // 31 characters at 10 points: 19 + 6 blanks + 6 of the price.
        {"2 X Pizza Margarita" + sp(6) + u" 9,50€"_qs, 10, 1560},
        // The wrap keeps the blank; 28 left on the last line, 3 free: price on its own line.
        {"1 X Hamburguesa - Punto: Poco " + CRLF + "hecha - Extras: Queso, Bacon" + CRLF + sp(25) +
             u" 7,25€"_qs,
         10, 1760},
        {"----", 4, 2420},
        {"Comentarios:", 12, 2500},
        {"Sin cebolla", 10, 2740},
        {"----", 4, 3000},
        {u"Importe envío: 1,50€"_qs, 10, 3140},
        {u"Descuento: 0€"_qs, 10, 3400},
        // 22 characters at 14 points: 22 - 7 - 6 = 9 blanks.
        {"Total: " + sp(9) + u"25,75€"_qs, 14, 3660},
        {"----", 4, 4000},
        {"Cliente: " + CRLF + u"Ana Pérez"_qs, 10, 4140},
        {u"Teléfono: 600111222"_qs, 10, 4540},
        {u"Calle Mayor 5, 2ºB"_qs, 10, 4740},
        {"----", 4, 5000},
        {"Realizado el:", 10, 5140},
        {"22/11/2026 12:58", 10, 5340},
        {"Para: Ahora", 10, 5600},
        {"Pedidos anteriores: 3", 10, 5800},
        {"NO Pagado", 14, 6060},
        {u"Método de pago: Efectivo"_qs, 10, 6340},
        {"Cambio: 50", 10, 6540},
        {"----", 4, 6800},
        {"Aceptado: 30 Minutos", 10, 6940},
        {"13:30", 14, 7140},
        {"----", 4, 7480},
        {u"¡Buen provecho!"_qs, 10, 7560},
    };
    EXPECT_EQ(lineas(r), esperado);
    EXPECT_EQ(r.documentos, 1);
    EXPECT_EQ(r.Font(), "Lucida Console");
    EXPECT_DOUBLE_EQ(r.ScaleLeft(), -100);
    EXPECT_DOUBLE_EQ(r.ScaleTop(), -50);
    for (const auto& l : r.lineas) {
        EXPECT_DOUBLE_EQ(l.x, 0) << l.texto.toStdString();
    }
}

TEST_F(TicketsDW, ClienteRechazadoProgramadoConTodasLasOpciones) {
    pedidoDomicilio();
    Pedido& p = m.PedidoActual;
    p.Estado = "Rechazado";
    p.MotivoRechazo = "Cerrado por hoy";
    p.FormaEntrega = "Recogen";
    p.Para = "Para: 21:30";
    p.ParaDia = u"Sábado 28/11/2026"_qs;
    p.Cliente = "X";
    p.ComisionPaypal = u"0,35€"_qs;
    p.CodigoPromocion = "OTONO10";
    p.TotalBruto = u"27,50€"_qs;
    p.Cambio.clear();
    p.Productos.insert(1, {1, "Tortilla de patata", "6,00", 30, 3, ""});
    m.MostrarCprTic = true;

    ClassConfigImpresora i = impresoraDW("Mostrador");
    i.ProductosYComentariosGrande = true;
    i.ProductosYComentariosMayus = true;
    i.SaltoLineaOpciones = true;
    i.MostrarSeparadorProductos = true;
    i.NumLineasBlancoInicio = 2;
    i.NumLineasBlancoFinal = 3;
    i.MostrarTotalBruto = true;
    ImprimirTicketDW(m, r, i);

    const QStringList esperado = {
        "", "", "Casa Tarvi", "----", "22/11/2026 13:05:09", "Gracias por su pedido", "----",
        u"Ped. Nº: 1234"_qs,
        // Large products, 22 a line: 19 leave 3, the price goes below, right-aligned.
        "----", "2 X PIZZA MARGARITA", sp(16) + u" 9,50€"_qs,
        // Exactly 22: no room at all on the line.
        "----", "1 X TORTILLA DE PATATA", sp(16) + u" 6,00€"_qs,
        // Options one to a line; the price follows the last one.
        "----", "1 X HAMBURGUESA", " -PUNTO: POCO HECHA", " -EXTRAS: ", "  QUESO",
        "  BACON" + sp(9) + u" 7,25€"_qs, "----", "Comentarios:", "SIN CEBOLLA", "----",
        u"Importe envío: 1,50€"_qs, u"Total Bruto: 27,50€"_qs, u"Comisión Paypal: 0,35€"_qs,
        u"Descuento: 0€"_qs, u"Promoción: OTONO10"_qs, "Total: " + sp(9) + u"25,75€"_qs, "----",
        // A one-character name is lost by the wrap; the label stays.
        "Cliente: ", u"Teléfono: 600111222"_qs, "Recogen", "----",
        "Realizado el:", "22/11/2026 12:58", "Para: 21:30", u"Sábado 28/11/2026"_qs,
        "Pedidos anteriores: 3", "NO Pagado", u"Método de pago: Efectivo"_qs, "----", "Rechazado",
        "Cerrado por hoy", "----", u"¡Buen provecho!"_qs, "", "", "", "."};
    EXPECT_EQ(r.textos(), esperado);

    auto tamannoDe = [this](const QString& texto) {
        for (const auto& l : r.lineas) {
            if (l.texto.startsWith(texto)) {
                return l.tamanno;
            }
        }
        return -1.0;
    };
    EXPECT_EQ(tamannoDe("2 X PIZZA"), 14);
    EXPECT_EQ(tamannoDe("SIN CEBOLLA"), 14);
    EXPECT_EQ(tamannoDe("Para: 21:30"), 14) << "a scheduled time is large";
    EXPECT_EQ(tamannoDe("Cliente: "), 10);
    EXPECT_EQ(tamannoDe("Rechazado"), 10);
    EXPECT_EQ(r.documentos, 1);
}

TEST_F(TicketsDW, ClienteHoraDeEntregaSegunElBloqueDeEstado) {
    pedidoDomicilio();
    ClassConfigImpresora i = impresoraDW("Mostrador");

    // Time not specified: the words say so and the time doesn't follow.
    m.PedidoActual.TiempoEstimado = "0";
    ImprimirTicketDW(m, r, i);
    EXPECT_TRUE(r.textos().contains("Aceptado: No especificado"));
    EXPECT_FALSE(r.textos().contains("13:00"));

    // Without the delivery time the state and the minutes go on two lines.
    r = ImpresoraDWGrabadora{};
    m.PedidoActual.TiempoEstimado = "45";
    i.MostrarHoraEntrega = false;
    ImprimirTicketDW(m, r, i);
    const QStringList t = r.textos();
    const qsizetype e = t.indexOf("Aceptado");
    ASSERT_GE(e, 0);
    EXPECT_EQ(t.value(e + 1), "45 Minutos");
    EXPECT_EQ(t.value(e + 2), "----");

    // A scheduled accepted order: the state alone, no delivery time.
    r = ImpresoraDWGrabadora{};
    i.MostrarHoraEntrega = true;
    m.PedidoActual.Para = "Para: 21:30";
    m.PedidoActual.Estado = "En reparto";
    ImprimirTicketDW(m, r, i);
    const QStringList t2 = r.textos();
    const qsizetype e2 = t2.indexOf("En reparto");
    ASSERT_GE(e2, 0);
    EXPECT_EQ(t2.value(e2 + 1), "----");

    // Minutes that aren't a number stop the ticket before its end.
    r = ImpresoraDWGrabadora{};
    m.PedidoActual.Para = "Para: Ahora";
    m.PedidoActual.TiempoEstimado = "pronto";
    EXPECT_THROW(ImprimirTicketDW(m, r, i), ErrorEjecucion);
    EXPECT_EQ(r.documentos, 0);
}

TEST_F(TicketsDW, CocinaCabeceraProductosYPieLineaALinea) {
    pedidoDomicilio();
    ClassConfigImpresora i = impresoraDW("Cocina", true);
    i.CategoriasIds = "4";
    i.MostrarNombreImpresora = true;
    i.NombreImpresoraGrande = true;
    i.DatosClienteCocina = true;
    i.NumPedidoYFormaEnvFinal = 2;
    i.NumLineasBlancoFinal = 1;
    ImprimirTicketCocinaDW(m, r, i);

    const QList<L> esperado = {
        {"Cocina", 14, 0},
        {"22/11/2026 13:05:09", 10, 280},
        {u"Ped. Nº: 1234"_qs, 14, 480},
        {u"Envío a domicilio"_qs, 10, 760},
        // Only the category-4 product, whole name, no price and no trailing blanks.
        {"1 X Hamburguesa - Punto: Poco " + CRLF + "hecha - Extras: Queso, Bacon", 10, 1020},
        {"----", 4, 1480},
        {"Comentarios:", 12, 1560},
        {"Sin cebolla", 10, 1800},
        {"----", 4, 2060},
        {"Cliente: " + CRLF + u"Ana Pérez"_qs, 10, 2140},
        {u"Teléfono: 600111222"_qs, 10, 2540},
        {u"Calle Mayor 5, 2ºB"_qs, 10, 2740},
        {"----", 4, 3000},
        {"", 10, 3080},
        {"", 10, 3280},
        {u"1234 Envío a Dom."_qs, 14, 3480},
        {"----", 4, 3820},
        {"13:30", 14, 3900},
        {"", 10, 4180},
        {".", 10, 4380},
    };
    EXPECT_EQ(lineas(r), esperado);
    EXPECT_EQ(r.documentos, 1);
    EXPECT_DOUBLE_EQ(r.ScaleLeft(), -100);
}

TEST_F(TicketsDW, CocinaSinNadaQueLePertenezcaNoEmpiezaPagina) {
    pedidoDomicilio();
    ClassConfigImpresora i = impresoraDW("Cocina", true);
    i.CategoriasIds = "9";
    i.ProductosIds = "10,20"; // only raw kitchen tickets add products by id
    ImprimirTicketCocinaDW(m, r, i);
    EXPECT_TRUE(r.lineas.isEmpty());
    EXPECT_EQ(r.documentos, 0);
    EXPECT_EQ(r.Font(), "Arial") << "not even the page set-up runs";

    // Delivery filter: 1 leaves out collected orders, 2 the ones with an address.
    i.CategoriasIds.clear();
    i.FormaEnvio = 2;
    ImprimirTicketCocinaDW(m, r, i);
    EXPECT_EQ(r.documentos, 0);
    m.PedidoActual.FormaEntrega = "Recogen";
    i.FormaEnvio = 1;
    ImprimirTicketCocinaDW(m, r, i);
    EXPECT_EQ(r.documentos, 0);
    i.FormaEnvio = 2;
    ImprimirTicketCocinaDW(m, r, i);
    EXPECT_EQ(r.documentos, 1);
    EXPECT_TRUE(r.textos().contains("Recogen"));
    EXPECT_TRUE(r.textos().contains("2 X Pizza Margarita")) << "no categories take everything";
}

TEST_F(TicketsDW, CocinaProgramadaConPreciosYSeparadores) {
    pedidoDomicilio();
    m.PedidoActual.Para = "Para: 21:30";
    m.PedidoActual.ParaDia = u"Sábado 28/11/2026"_qs;
    m.PedidoActual.Productos[1].Opciones = "Barra:Punto: Poco hecha"; // plays no part here
    ClassConfigImpresora i = impresoraDW("Cocina", true);
    i.CategoriasIds = "3, 4";
    i.MostrarPreciosProdCocina = true;
    i.MostrarSeparadorProductos = true;
    i.ProductosYComentariosMayus = true;
    i.MostrarHoraEntrega = false;
    ImprimirTicketCocinaDW(m, r, i);

    const QStringList esperado = {"22/11/2026 13:05:09",
                                  "----",
                                  "Para: 21:30",
                                  u"Sábado 28/11/2026"_qs,
                                  "----",
                                  u"Ped. Nº: 1234"_qs,
                                  u"Envío a domicilio"_qs,
                                  "----",
                                  "2 X PIZZA MARGARITA" + sp(6) + u" 9,50€"_qs,
                                  "----",
                                  "1 X HAMBURGUESA - PUNTO: POCO ",
                                  "HECHA - EXTRAS: QUESO, BACON",
                                  sp(25) + u" 7,25€"_qs,
                                  "----",
                                  "Comentarios:",
                                  "SIN CEBOLLA"};
    EXPECT_EQ(r.textos(), esperado);
    EXPECT_EQ(r.documentos, 1);
}

TEST_F(TicketsDW, CocinaConUnaCategoriaQueNoEsNumeroFallaAlCompararla) {
    pedidoDomicilio();
    ClassConfigImpresora i = impresoraDW("Cocina", true);
    i.CategoriasIds = "3,postres";
    // The pizza (3) matches before the bad piece is reached; the burger (4) reaches it.
    try {
        ImprimirTicketCocinaDW(m, r, i);
        ADD_FAILURE() << "no error";
    } catch (const ErrorEjecucion& e) {
        EXPECT_EQ(e.numero(), 13);
    }
    EXPECT_TRUE(r.textos().contains("2 X Pizza Margarita"));
    EXPECT_EQ(r.documentos, 0);
}

} // namespace
