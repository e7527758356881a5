// The history search: its queries, the reading of its reply, the rules of the actions on a
// past order, and the window's filters as a person clicks them.
#include "base/Windows1252.h"
#include "common/Entorno.h"
#include "common/ImprimirQString.h"
#include "history/BusquedaPedidos.h"
#include "history/FormPedidosAnteriores.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QByteArray kCabeza =
    "pedidosgprs/obtenerPedidos?idEstablecimiento=7&passwordconfig=clave&numconfig=2";

struct Historial : ::testing::Test {
    Entorno e;
    Historial() {
        DarEstablecimiento(e.m, 2);
        e.m.NumeroPedidosHistorico = 30;
    }
};

} // namespace

TEST_F(Historial, LaConsultaDeCadaFiltroEnSuOrden) {
    struct Caso {
        historial::Filtros f;
        QByteArray resto;
    };
    const QDate d1(2026, 11, 2), d2(2026, 11, 14);
    const Caso casos[] = {
        {{0, 0, 0, true, true, true, true, {}, {}}, "&opcion=0&fp=0&estado=0&fe=0&origen=0"},
        {{1, 2, 1, true, false, false, true, {}, {}}, "&opcion=1&fp=2&estado=1&fe=1&origen=2"},
        {{2, 1, 2, false, true, true, false, d1, d2},
         "&opcion=2&fp=1&fechaini=02112026&fechafin=14112026&estado=2&fe=2&origen=1"},
        {{3, 0, 0, true, true, true, true, d1, d2},
         "&opcion=3&fp=0&numeroPedidos=30&estado=0&fe=0&origen=0"},
    };
    for (const Caso& c : casos) {
        EXPECT_EQ(historial::RutaObtenerPedidos(e.m, c.f).toLatin1(), kCabeza + c.resto);
    }
}

TEST_F(Historial, LaRespuestaDaFilasTotalesYMensaje) {
    // As the gateway hands it over: one character per byte of the UTF-8 reply.
    const auto r = historial::LeerResultado(cp1252::aTexto(QByteArray(
        R"({"totalnumpedidos":2,"totalimportepedidos":31.5,"totalimportepedidosbruto":33.05,)"
        R"("pedidos":"5 - 12:00 - Ana - 10.00€#6 - 12:30 - Luis - 21.50€#","mensaje":"Máx. 2"})")));
    ASSERT_TRUE(r);
    EXPECT_EQ(r->numPedidos, QStringLiteral("2"));
    EXPECT_EQ(r->importeTotal, QStringLiteral("31,5€"));
    EXPECT_EQ(r->importeBruto, QStringLiteral("33,05€"));
    EXPECT_EQ(r->filas, (QStringList{"5 - 12:00 - Ana - 10.00€", "6 - 12:30 - Luis - 21.50€", ""}));
    EXPECT_EQ(r->mensaje, QStringLiteral("Máx. 2"));
    EXPECT_FALSE(historial::LeerResultado(QStringLiteral("error")));
}

TEST(FilasHistorial, SoloUnaFilaDeTresPiezasEsUnPedido) {
    const std::pair<QString, std::optional<QString>> casos[] = {
        {"1020 - 13:05 - Ana", QStringLiteral("1020")},
        {" 7 - a - b - c", QStringLiteral(" 7")},
        {"1020 - 13:05", std::nullopt},
        {"Cargando...", std::nullopt},
        {"", std::nullopt},
        {"1020-13:05-Ana", std::nullopt},
    };
    for (const auto& [fila, numero] : casos) {
        EXPECT_EQ(historial::NumeroDeFila(fila), numero) << fila.toStdString();
    }
}

TEST(CancelarAceptado, SegunEstadoReglaYPago) {
    struct Caso {
        const char* estado;
        qint16 regla;
        const char* pago;
        bool permitido;
    };
    const Caso casos[] = {
        {"Aceptado", 1, "NO Pagado", true}, {"En reparto", 1, "PAGADO", true},
        {"Preparado", 2, "Pagado", true},   {"Entregado", 2, "NO Pagado", false},
        {"Aceptado", 3, "NO Pagado", true}, {"Aceptado", 3, "pagado", false},
        {"Aceptado", 0, "PAGADO", false},   {"Aceptado", 4, "NO Pagado", false},
        {"Rechazado", 1, "PAGADO", false},  {"Pendiente", 3, "NO Pagado", false},
    };
    for (const Caso& c : casos) {
        Pedido p;
        p.Estado = QLatin1String(c.estado);
        p.EstadoPago = QLatin1String(c.pago);
        EXPECT_EQ(historial::CancelacionPermitida(p, c.regla), c.permitido)
            << c.estado << " " << c.regla << " " << c.pago;
    }
}

TEST_F(Historial, ElTicketVaALaRanuraUnoOALaPrimeraQueNoEsCocina) {
    // Slots with a printer, as (slot, kitchen); the slot expected, 0 for the box.
    const std::pair<std::vector<std::pair<int, bool>>, int> casos[] = {
        {{{1, true}, {2, false}}, 1},
        {{{2, true}, {3, true}, {5, false}, {6, false}}, 5},
        {{{10, false}}, 10},
        {{{2, true}, {4, true}}, 0}};
    for (const auto& [ranuras, esperada] : casos) {
        e.m.Impresoras = {};
        for (const auto& [n, cocina] : ranuras) {
            e.m.Impresora(n).NombreImpresora = QStringLiteral("I%1").arg(n);
            e.m.Impresora(n).Cocina = cocina;
        }
        EXPECT_EQ(historial::RanuraReimpresion(e.m), esperada);
    }
    EXPECT_EQ(historial::ReimprimirTicket(e.m), 0);
    EXPECT_EQ(e.cajas->cajas().value(0).texto,
              u"Debe seleccionar una impresora de tickets en configuración de impresoras"_qs);
}

// The window, with the service answering every search with two orders.
struct VentanaHistorial : Historial {
    FormPedidosAnteriores v{e.m, [](const QString&) {}};
    VentanaHistorial() {
        e.canales.directo->porDefecto = {
            true, R"({"totalnumpedidos":2,"totalimportepedidos":9,"totalimportepedidosbruto":9,)"
                  R"("pedidos":"41 - 12:00 - Ana#42 - 12:30 - Luis","mensaje":""})"};
    }
    qsizetype busquedas() const { return e.canales.directo->urls.size(); }
    template <typename T> T* c(const char* nombre) {
        return v.findChild<T*>(QLatin1String(nombre));
    }
    void clic(QAbstractButton* b) { QTest::mouseClick(b, Qt::LeftButton, {}, QPoint(4, 4)); }
};

TEST_F(VentanaHistorial, QuitarLaUltimaCasillaDeUnParLaVuelveAPonerSinBuscar) {
    v.show();
    const std::tuple<const char*, const char*, QString> pares[] = {
        {"CheckEstAceptados", "CheckEstRechazados",
         QStringLiteral("Debe seleccionar al menos un estado")},
        {"CheckOriTarvimenta", "CheckOriWebParticular",
         QStringLiteral("Debe seleccionar al menos un origen")},
    };
    e.m.WebParticular = true;
    for (const auto& [uno, otro, aviso] : pares) {
        c<QWidget>("FrameOrigen")->show();
        clic(c<QCheckBox>(uno));
        EXPECT_EQ(busquedas(), 1);
        EXPECT_TRUE(e.canales.directo->urls.last().contains(uno == std::string("CheckEstAceptados")
                                                                ? "&estado=2&fe=0&origen=0"
                                                                : "&estado=0&fe=0&origen=2"));
        clic(c<QCheckBox>(otro));
        EXPECT_TRUE(c<QCheckBox>(otro)->isChecked());
        EXPECT_EQ(busquedas(), 1);
        ASSERT_EQ(e.cajas->cajas().size(), 1);
        EXPECT_EQ(e.cajas->cajas()[0].texto, aviso);
        clic(c<QCheckBox>(uno));
        EXPECT_EQ(busquedas(), 2);
        e.canales.directo->urls.clear();
        e.cajas->limpiar();
    }
}

TEST_F(VentanaHistorial, UnaFechaSoloBuscaAlCambiarDePeriodoYAplicarSiempre) {
    v.show();
    c<QDateEdit>("DTDesde")->setDate(QDate(2026, 11, 10));
    EXPECT_TRUE(c<QRadioButton>("OptBuscarPedidos2")->isChecked());
    EXPECT_EQ(busquedas(), 1);
    c<QDateEdit>("DTHasta")->setDate(QDate(2026, 11, 12));
    EXPECT_EQ(busquedas(), 1);
    clic(c<QPushButton>("botBuscarPedidos"));
    ASSERT_EQ(busquedas(), 2);
    EXPECT_TRUE(e.canales.directo->urls[1].contains("&fechaini=10112026&fechafin=12112026&"));
    EXPECT_EQ(v.lista()->count(), 2);
    EXPECT_EQ(c<QLabel>("labimportetotal")->text(), QStringLiteral("9€"));
}
