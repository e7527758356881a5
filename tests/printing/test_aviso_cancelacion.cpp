// The cancellation notice: which kitchens are concerned, its bytes on a raw kitchen, its lines
// on a driver kitchen, and one notice per kitchen whatever the copies.
#include "common/DatosEsperados.h"
#include "common/EscritorioPruebaEP.h"
#include "common/ImpresoraDWGrabadora.h"
#include "impresora_dw_prueba.h"
#include "printing/AvisoCancelacion.h"

namespace {

class AvisoCancelacion : public EscritorioPrueba {
protected:
    AvisoCancelacion() {
        pedidoDomicilio();
        m.PedidoActual.Estado = estado::Rechazado;
        m.PedidoActual.Productos = {
            {3, "Entrecot - Punto: Poco hecho", "18,00", 5, 9,
             "Plancha//2//Sin sal&&TEXTOLIBRE//Poco hecho&&Freidora//1//Patatas"},
            {2, "Pizza Margarita", "9,50", 10, 3, ""},
            {1, "Coca-Cola", "2,00", 7, 8, ""}};
    }

    static ClassConfigImpresora cocina(const QString& nombre, const QString& categorias) {
        ClassConfigImpresora i = impresoraEP(nombre, nombre.toLower());
        i.Cocina = true;
        i.CategoriasIds = categorias;
        return i;
    }
};

struct Caso {
    const char* nombre;
    const char* impresora;
    const char* categorias;
    const char* excepciones;
    const char* extras;
    int formaEnvio;
    bool recogida; // the order is picked up
    bool cocina;
    int copias; // accepted and rejected copies
    bool avisa;
};

void PrintTo(const Caso& c, std::ostream* os) {
    *os << c.nombre;
}

// Which kitchens get a notice of the order above; none of them ever gets two.
const Caso kCasos[] = {
    {"SuCategoria", "Cocina", "3", "", "", 0, false, true, 1, true},
    {"OtraCategoria", "Cocina", "5,6", "", "", 0, false, true, 1, false},
    {"TodasLasCategorias", "Cocina", "", "", "", 0, false, true, 1, true},
    {"UnaOpcionLaNombra", "Freidora", "5", "", "", 0, false, true, 1, true},
    {"LasOpcionesSeSaltanLaCategoria", "Cocina", "9", "", "", 0, false, true, 1, false},
    {"ExceptuadoAunqueSeaDeSuCategoria", "Cocina", "3", "10", "", 0, false, true, 1, false},
    {"ProductoExtra", "Cocina", "5", "", "7", 0, false, true, 1, true},
    {"SoloDomicilioConUnaRecogida", "Cocina", "3", "", "", 1, true, true, 1, false},
    {"SoloRecogidasConUnDomicilio", "Cocina", "3", "", "", 2, false, true, 1, false},
    {"SoloRecogidasConUnaRecogida", "Cocina", "3", "", "", 2, true, true, 1, true},
    {"NoEsCocinaAunqueImprimaDosCopias", "Cocina", "3", "", "", 0, false, false, 2, false},
    {"TresCopiasDanUnAviso", "Cocina", "3", "", "", 0, false, true, 3, true},
};

class QueCocina : public AvisoCancelacion, public ::testing::WithParamInterface<Caso> {};

} // namespace

TEST_P(QueCocina, RecibeElAvisoUnaVezONadaEnAbsoluto) {
    const Caso& c = GetParam();
    ClassConfigImpresora i = cocina(c.impresora, c.categorias);
    i.EPConexion = "cocina";
    i.ProductosExcepIds = c.excepciones;
    i.ProductosIds = c.extras;
    i.FormaEnvio = c.formaEnvio;
    i.Cocina = c.cocina;
    i.NumeroCopiasAceptado = i.NumeroCopiasRechazado = static_cast<qint16>(c.copias);
    if (c.recogida) {
        m.PedidoActual.FormaEntrega = "Recogen";
    }
    m.Impresora(2) = i;
    ImprimirCancelacion(m);
    if (c.avisa) {
        EXPECT_EQ(captura.aperturas("cocina"), 1);
        EXPECT_TRUE(captura.bytes("cocina").contains("SE HA CANCELADO EL PEDIDO 1234\n"));
    } else {
        EXPECT_EQ(captura.aperturas("cocina"), 0) << "the port is never opened";
    }
    EXPECT_TRUE(boxes().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Casos, QueCocina, ::testing::ValuesIn(kCasos),
                         [](const auto& info) { return std::string(info.param.nombre); });

TEST_F(AvisoCancelacion, BytesConLineasEnBlancoYPC858) {
    ClassConfigImpresora i = cocina("Cocina", "3");
    i.NumLineasBlancoInicio = 2;
    i.NumLineasBlancoFinal = 1;
    i.ReemplazarCaracEscPosPC858 = true;
    ImprimirCancelacionEP(m, i);
    EXPECT_EQ(captura.bytes("cocina"), TicketEPDatos("aviso_cancelacion_pc858.txt"));
    EXPECT_EQ(captura.cierres("cocina"), 1);
}

TEST_F(AvisoCancelacion, DriverConLineasEnBlancoALaLetraPequenna) {
    ImpresoraDWGrabadora r;
    ClassConfigImpresora i = impresoraDW("Horno", true);
    i.CategoriasIds = "8";
    i.AnchoPapel = 150; // 41 characters at 14 points: the notice fits on one line
    i.TamannoFuentePequenna = 8;
    i.NumLineasBlancoInicio = 1;
    i.NumLineasBlancoFinal = 2;
    ImprimirCancelacionDW(m, r, i);
    // Text, size and height: 20 twips a point per line, 60 twips of gap after the date.
    const QList<std::tuple<QString, double, double>> esperado = {
        {"", 8, 0},
        {"22/11/2026 13:05:09", 8, 160},
        {u"ATENCIÓN: SE HA CANCELADO EL PEDIDO 1234"_qs, 14, 380},
        {"", 8, 660},
        {"", 8, 820},
        {".", 8, 980}};
    QList<std::tuple<QString, double, double>> impreso;
    for (const auto& l : r.lineas) {
        impreso.append({l.texto, l.tamanno, l.y});
    }
    EXPECT_EQ(impreso, esperado);
    EXPECT_EQ(r.documentos, 1);

    // A driver kitchen looks at categories only: product 7 as an extra doesn't count there.
    ImpresoraDWGrabadora otra;
    i.CategoriasIds = "5";
    i.ProductosIds = "7";
    ImprimirCancelacionDW(m, otra, i);
    EXPECT_TRUE(otra.lineas.isEmpty());
    EXPECT_EQ(otra.documentos, 0);
}

TEST_F(AvisoCancelacion, LasCocinasDeDriverSeHacenActualesYAvisanUnaVez) {
    auto sistema = std::make_unique<ImpresorasDWGrabadoras>(QStringList{"Horno", "Barra"});
    ImpresorasDWGrabadoras* dw = sistema.get();
    m.setImpresorasDW(std::move(sistema));
    m.Impresora(4) = impresoraDW("Horno", true);
    m.Impresora(4).CategoriasIds = "3";
    m.Impresora(4).NumeroCopiasAceptado = 2;
    m.Impresora(5) = impresoraDW("Barra", true);
    m.Impresora(5).CategoriasIds = "5";
    ImprimirCancelacion(m);
    EXPECT_EQ(dw->de("Horno").documentos, 1);
    EXPECT_EQ(dw->de("Barra").documentos, 0);
}
