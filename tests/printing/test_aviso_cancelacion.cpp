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

} // namespace

// Which kitchens get a notice of the order above, a line of the data file each; none of them
// ever gets two, and a kitchen left out never has its port opened.
TEST_F(AvisoCancelacion, CadaCocinaRecibeElAvisoUnaVezONadaEnAbsoluto) {
    const QString domicilio = m.PedidoActual.FormaEntrega;
    const QStringList filas = LineasDatos(QStringLiteral("aviso_cancelacion_cocinas.txt"));
    ASSERT_EQ(filas.size(), 12);
    for (const QString& fila : filas) {
        SCOPED_TRACE(fila.toStdString());
        QStringList c = fila.split(u'|');
        ASSERT_EQ(c.size(), 10);
        for (QString& campo : c) {
            campo = campo.trimmed();
        }
        ClassConfigImpresora i = cocina(c[1], c[2]);
        i.EPConexion = "cocina";
        i.ProductosExcepIds = c[3];
        i.ProductosIds = c[4];
        i.FormaEnvio = static_cast<decltype(i.FormaEnvio)>(c[5].toInt());
        i.Cocina = c[7] == u"1";
        i.NumeroCopiasAceptado = i.NumeroCopiasRechazado = static_cast<qint16>(c[8].toInt());
        m.PedidoActual.FormaEntrega = c[6] == u"1" ? QStringLiteral("Recogen") : domicilio;
        m.Impresora(2) = i;
        captura.limpiar();
        ImprimirCancelacion(m);
        EXPECT_EQ(captura.aperturas("cocina"), c[9] == u"1" ? 1 : 0);
        EXPECT_EQ(captura.bytes("cocina").contains("SE HA CANCELADO EL PEDIDO 1234\n"),
                  c[9] == u"1");
        EXPECT_TRUE(boxes().isEmpty());
    }
}

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
