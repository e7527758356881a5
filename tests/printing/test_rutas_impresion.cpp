// Which printers print an order, how many copies and which ticket: the ten slots by state,
// pick-up, scheduled orders, kitchen-only reprints and the new-order window's print button.
#include "common/EscritorioPruebaEP.h"
#include "common/ImpresoraDWGrabadora.h"
#include "impresora_dw_prueba.h"
#include "printing/ColasImpresion.h"
#include "printing/ImpresorasDWNinguna.h"
#include "printing/RutasImpresion.h"

#include <QElapsedTimer>
#include <cups/cups.h>

namespace {

struct CasoCopias {
    int aceptado, recoger, rechazado;
    const char* estado;
    const char* forma;
    int copias;
};

TEST(CopiasSegunEstado, PorEstadoYRecogida) {
    // The cases the routing tests below don't reach.
    const CasoCopias casos[] = {
        {0, 3, 0, "Preparado", "Recogen", 3},
        {2, 5, 0, "Aceptado", "Calle Mayor 5", 2}, // delivery ignores the pick-up copies
        {1, -1, 0, "En reparto", "Calle Mayor 5", 1},
        {3, -1, 0, "Entregado", "Calle Mayor 5", 3},
        // Rejected orders only count the rejected copies, collected or not.
        {2, 3, 0, "Rechazado", "Recogen", 0},
        {2, 3, 1, "Rechazado", "Recogen", 1},
        // Words compared exactly; any other state prints nowhere.
        {2, 2, 2, "aceptado", "Recogen", 0},
        {2, 2, 2, "Aceptado ", "Calle Mayor 5", 0},
        {2, 2, 2, "Pendiente", "Calle Mayor 5", 0},
        {2, 2, 2, "", "Calle Mayor 5", 0},
        {2, -1, 2, "Aceptado", "recogen", 2},
    };
    for (const auto& c : casos) {
        ClassConfigImpresora i;
        i.NumeroCopiasAceptado = static_cast<qint16>(c.aceptado);
        i.NumeroCopiasAceptadoRecoger = static_cast<qint16>(c.recoger);
        i.NumeroCopiasRechazado = static_cast<qint16>(c.rechazado);
        EXPECT_EQ(CopiasSegunEstado(i, c.estado, c.forma), c.copias)
            << c.estado << " / " << c.forma << " A" << c.aceptado << " R" << c.recoger << " X"
            << c.rechazado;
    }
}

// Slot 1: driver customer printer "Mostrador" (2 accepted copies, 1 rejected); slot 2: raw
// kitchen printer "Cocina"; slot 3: driver kitchen printer "Horno". The system lists "PDF"
// (current at the start), "Mostrador" and "Horno".
class Rutas : public EscritorioPrueba {
protected:
    Rutas() {
        auto imp =
            std::make_unique<ImpresorasDWGrabadoras>(QStringList{"PDF", "Mostrador", "Horno"});
        sistema = imp.get();
        m.setImpresorasDW(std::move(imp));

        ClassConfigImpresora mostrador = impresoraDW("Mostrador");
        mostrador.NumeroCopiasAceptado = 2;
        mostrador.NumeroCopiasRechazado = 1;
        m.Impresora(1) = mostrador;
        ClassConfigImpresora cocina = impresoraEP("Cocina", "cocina");
        cocina.Cocina = true;
        m.Impresora(2) = cocina;
        m.Impresora(3) = impresoraDW("Horno", true);
        pedidoDomicilio();
    }

    int docs(const QString& nombre) { return sistema->de(nombre).documentos; }
    int cocinaEP() const { return captura.cierres("cocina"); }
    bool esTicketDeCocina(const QString& nombre) {
        return sistema->de(nombre).textos().contains(u"Envío a domicilio"_qs) ||
               sistema->de(nombre).textos().contains("Recogen");
    }

    void imprimirSegunEstado(bool automatico, bool soloCocina) {
        ImprimirPedidoSegunEstado(m, m.PedidoActual.Estado, m.PedidoActual.FormaEntrega, automatico,
                                  soloCocina);
    }

    ImpresorasDWGrabadoras* sistema = nullptr;
};

TEST_F(Rutas, AceptadoADomicilioEnTodasLasImpresoras) {
    imprimirSegunEstado(true, false);
    EXPECT_EQ(docs("Mostrador"), 2);
    EXPECT_EQ(docs("Horno"), 1);
    EXPECT_EQ(cocinaEP(), 1);
    EXPECT_EQ(docs("PDF"), 0);
    EXPECT_TRUE(
        sistema->de("Mostrador").textos().contains("Total: " + esperado::sp(9) + u"25,75€"_qs));
    EXPECT_TRUE(esTicketDeCocina("Horno"));
    EXPECT_FALSE(esTicketDeCocina("Mostrador"));
    EXPECT_TRUE(boxes().isEmpty());
}

TEST_F(Rutas, RecogidaConCopiasPropiasDeRecogida) {
    m.PedidoActual.FormaEntrega = "Recogen";
    m.Impresora(1).NumeroCopiasAceptadoRecoger = 0; // no customer copy for pick-ups
    m.Impresora(2).NumeroCopiasAceptadoRecoger = 3;
    imprimirSegunEstado(true, false);
    EXPECT_EQ(docs("Mostrador"), 0);
    EXPECT_EQ(cocinaEP(), 3);
    EXPECT_EQ(docs("Horno"), 1) << "-1 falls back to the accepted copies";
}

TEST_F(Rutas, RechazadoSoloDondeHayCopiasDeRechazo) {
    m.PedidoActual.Estado = "Rechazado";
    m.PedidoActual.MotivoRechazo = "Cerrado";
    m.Impresora(3).NumeroCopiasRechazado = 1;
    imprimirSegunEstado(true, false);
    EXPECT_EQ(docs("Mostrador"), 1);
    EXPECT_EQ(cocinaEP(), 0);
    EXPECT_EQ(docs("Horno"), 1);
    EXPECT_TRUE(esTicketDeCocina("Horno")) << "a kitchen printer prints its own ticket";
    EXPECT_TRUE(sistema->de("Mostrador").textos().contains("Cerrado"));
}

TEST_F(Rutas, ProgramadoSinCocinaAlAceptarPeroSiAlReimprimir) {
    m.PedidoActual.Para = "Para: 21:30";
    m.PedidoActual.ParaDia = u"Sábado 28/11/2026"_qs;
    m.PedidoActual.ImprimirEnCocina = false;
    imprimirSegunEstado(true, false);
    EXPECT_EQ(docs("Mostrador"), 2);
    EXPECT_EQ(docs("Horno"), 0);
    EXPECT_EQ(cocinaEP(), 0);

    // The same order reprinted by hand reaches the kitchens.
    imprimirSegunEstado(false, false);
    EXPECT_EQ(docs("Mostrador"), 4);
    EXPECT_EQ(docs("Horno"), 1);
    EXPECT_EQ(cocinaEP(), 1);

    // When the service already lets it into the kitchens, acceptance prints there too.
    m.PedidoActual.ImprimirEnCocina = true;
    imprimirSegunEstado(true, false);
    EXPECT_EQ(docs("Horno"), 2);
    EXPECT_EQ(cocinaEP(), 2);
}

TEST_F(Rutas, SoloCocinaConYSinImpresorasDeCocina) {
    imprimirSegunEstado(false, true);
    EXPECT_EQ(docs("Mostrador"), 0);
    EXPECT_EQ(docs("Horno"), 1);
    EXPECT_EQ(cocinaEP(), 1);

    m.Impresora(2) = ClassConfigImpresora{};
    m.Impresora(3) = ClassConfigImpresora{};
    imprimirSegunEstado(false, true);
    EXPECT_EQ(docs("Mostrador"), 0);
    EXPECT_EQ(docs("Horno"), 1);
    EXPECT_EQ(cocinaEP(), 1);
    EXPECT_TRUE(boxes().isEmpty());
}

TEST_F(Rutas, ImpresoraQueYaNoExisteImprimeEnLaActual) {
    m.Impresora(1).NombreImpresora = "Antigua";
    m.Impresora(1).NumeroCopiasAceptado = 1;
    imprimirSegunEstado(true, false);
    EXPECT_EQ(docs("PDF"), 1) << "the printer current at the start";
    EXPECT_EQ(docs("Mostrador"), 0);
    EXPECT_TRUE(boxes().isEmpty());

    // After the kitchen printer was made current, the missing one prints there.
    m.Impresora(2) = ClassConfigImpresora{};
    m.Impresora(1) = impresoraDW("Horno", true);
    m.Impresora(3) = impresoraDW("Antigua");
    imprimirSegunEstado(true, false);
    EXPECT_EQ(docs("Horno"), 1 + 2);
    EXPECT_EQ(sistema->de("Horno").lineas.back().documento, 2);
    EXPECT_EQ(sistema->de("Horno").lineas.back().texto, u"¡Buen provecho!"_qs)
        << "the last document is the customer ticket";
}

TEST(HacerActualPorNombre, ElUltimoConEseNombre) {
    ImpresorasDWGrabadoras sistema({"Caja", "Barra", "Caja", "Terraza"}, 3);
    EXPECT_TRUE(HacerActualPorNombre(sistema, "Caja"));
    EXPECT_EQ(sistema.actual(), 2);
    EXPECT_FALSE(HacerActualPorNombre(sistema, "caja"));
    EXPECT_EQ(sistema.actual(), 2);
    EXPECT_FALSE(HacerActualPorNombre(sistema, ""));
    EXPECT_EQ(sistema.actual(), 2);
}

TEST_F(Rutas, SinSistemaDeImpresionUnaCajaYSigueConLasDemas) {
    m.setImpresorasDW(std::make_unique<ImpresorasDWNinguna>());
    imprimirSegunEstado(true, false);
    ASSERT_EQ(boxes().size(), 2) << "one for each driver printer";
    EXPECT_TRUE(boxes()[0].texto.startsWith(
        u"Error en tiempo de ejecución '482': Error de impresora\n\nLa impresora \""_qs));
    EXPECT_EQ(boxes()[0].estilo, estilo::Critico);
    EXPECT_EQ(cocinaEP(), 1) << "the raw printer between them still prints";
}

TEST_F(Rutas, UnTicketQueFallaSeDescartaYLaImpresoraDejaSusCopias) {
    m.PedidoActual.TiempoEstimado = "pronto";
    m.Impresora(2) = ClassConfigImpresora{};
    m.Impresora(3) = ClassConfigImpresora{};
    imprimirSegunEstado(true, false);
    ASSERT_EQ(boxes().size(), 1) << "the second copy isn't tried";
    EXPECT_TRUE(boxes()[0].texto.startsWith(u"Error en tiempo de ejecución '13'"_qs));
    EXPECT_EQ(sistema->de("Mostrador").descartados, 1);
    EXPECT_EQ(docs("Mostrador"), 0);
}

TEST_F(Rutas, BotonImprimirDelPedidoNuevo) {
    EXPECT_EQ(ImprimirPedidoNuevo(m), 1);
    EXPECT_EQ(docs("Mostrador"), 1) << "one copy, whatever the state's copies";

    // Slot 2 is taken even when it is a kitchen printer.
    m.Impresora(1).NombreImpresora.clear();
    m.Impresora(2) = impresoraDW("Horno", true);
    EXPECT_EQ(ImprimirPedidoNuevo(m), 2);
    EXPECT_EQ(docs("Horno"), 1);
    EXPECT_TRUE(esTicketDeCocina("Horno"));

    // Slots past the second are not tried.
    m.Impresora(2).NombreImpresora.clear();
    EXPECT_EQ(ImprimirPedidoNuevo(m), 0);
    EXPECT_EQ(docs("Horno"), 1);
    ASSERT_EQ(boxes().size(), 1);
    EXPECT_EQ(boxes()[0].texto,
              u"Debe seleccionar una impresora en configuración de impresoras"_qs);
    EXPECT_EQ(boxes()[0].estilo, estilo::SoloAceptar);
}

TEST_F(Rutas, ReinicioDeColasPreguntaVaciaYReimprimeTrasLaEspera) {
    int vaciados = 0;
    auto vaciar = [&vaciados] {
        ++vaciados;
        return 0;
    };

    cajas->responder({respuesta::No});
    EXPECT_FALSE(ReiniciarImpresoras(m, vaciar, 20));
    ASSERT_EQ(boxes().size(), 1);
    EXPECT_EQ(boxes()[0].texto, u"¿Esta seguro que desea limpiar las colas de impresión?"_qs);
    EXPECT_EQ(boxes()[0].estilo, estilo::SiNo + estilo::Pregunta);
    EXPECT_EQ(vaciados, 0);

    // A scheduled order held back at acceptance: the reprint isn't automatic, so the
    // kitchens get it too.
    m.PedidoActual.Para = "Para: 21:30";
    m.PedidoActual.ParaDia = u"Sábado 28/11/2026"_qs;
    cajas->responder({respuesta::Si});
    EXPECT_TRUE(ReiniciarImpresoras(m, vaciar, 50));
    EXPECT_EQ(vaciados, 1);
    EXPECT_EQ(docs("Mostrador"), 0) << "not before the wait";
    ASSERT_TRUE(EsperarHasta([this] { return docs("Mostrador") == 2; }, 5000));
    EXPECT_EQ(docs("Horno"), 1);
    EXPECT_EQ(cocinaEP(), 1);

    // Without a loaded order nothing is printed again.
    m.PedidoActual = Pedido{};
    cajas->responder({respuesta::Si});
    EXPECT_TRUE(ReiniciarImpresoras(m, vaciar, 1));
    EXPECT_EQ(vaciados, 2);
    EsperarHasta([] { return false; }, 100);
    EXPECT_EQ(docs("Mostrador"), 2);
    EXPECT_EQ(docs("Horno"), 1);
}

TEST(CancelarTrabajosPendientes, SinServidorDeImpresionDevuelveMenosUnoEnPocoTiempo) {
    cupsSetServer("127.0.0.1:9"); // nothing listens there
    QElapsedTimer reloj;
    reloj.start();
    EXPECT_EQ(CancelarTrabajosPendientes(2000), -1);
    EXPECT_LT(reloj.elapsed(), 4000);
    cupsSetServer(nullptr);
}

} // namespace
