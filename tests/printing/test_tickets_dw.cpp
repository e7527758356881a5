// The driver tickets on a recording printer: which lines, at which size and height. The
// recorder moves down 20 twips per point of the font for each printed line.
#include "base/ErrorEjecucion.h"
#include "common/DatosEsperados.h"
#include "common/EscritorioPruebaEP.h"
#include "common/ImpresoraDWGrabadora.h"
#include "common/NumeroDeError.h"
#include "impresora_dw_prueba.h"
#include "printing/TicketClienteDW.h"
#include "printing/TicketCocinaDW.h"

namespace {

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

// A ticket kept under tests/data/: "size height text" a line.
QList<L> lineasDatos(const QString& nombre) {
    QList<L> v;
    for (const QString& l : LineasDatos(nombre)) {
        v.append({SinMarcas(l.section(u' ', 2)), l.section(u' ', 0, 0).toDouble(),
                  l.section(u' ', 1, 1).toDouble()});
    }
    return v;
}

QStringList textosDatos(const QString& nombre) {
    QStringList r;
    for (const QString& l : LineasDatos(nombre)) {
        r << SinMarcas(l);
    }
    return r;
}

class TicketsDW : public EscritorioPrueba {
protected:
    ImpresoraDWGrabadora r;
};

TEST_F(TicketsDW, ClienteDomicilioAceptadoLineaALinea) {
    pedidoDomicilio();
    const ClassConfigImpresora i = impresoraDW("Mostrador");
    ImprimirTicketDW(m, r, i);

    // Gaps of 60 before every separator (4 points: 80 twips) and at each GAP.
    EXPECT_EQ(lineas(r), lineasDatos("ticket_dw_cliente_domicilio.txt"));
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

    EXPECT_EQ(r.textos(), textosDatos("ticket_dw_cliente_rechazado.txt"));

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

    EXPECT_EQ(lineas(r), lineasDatos("ticket_dw_cocina.txt"));
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

    EXPECT_EQ(r.textos(), textosDatos("ticket_dw_cocina_programada.txt"));
    EXPECT_EQ(r.documentos, 1);
}

TEST_F(TicketsDW, CocinaConUnaCategoriaQueNoEsNumeroFallaAlCompararla) {
    pedidoDomicilio();
    ClassConfigImpresora i = impresoraDW("Cocina", true);
    i.CategoriasIds = "3,postres";
    // The pizza (3) matches before the bad piece is reached; the burger (4) reaches it.
    EXPECT_EQ(numeroDeError([&] { ImprimirTicketCocinaDW(m, r, i); }), 13);
    EXPECT_TRUE(r.textos().contains("2 X Pizza Margarita"));
    EXPECT_EQ(r.documentos, 0);
}

} // namespace
