// A printer that fails costs its own copies only: the others print, and the boxes come after
// the last printer, each naming its printer.
#include "base/CaminoPedido.h"
#include "base/ErrorEjecucion.h"
#include "common/EscritorioPruebaEP.h"
#include "orders/RespuestaPedido.h"
#include "printing/CanalEP.h"
#include "printing/ColasImpresion.h"
#include "printing/RutasImpresion.h"

#include <QHash>

namespace {

// Boxes noted with the number of raw tickets that were out when each came up.
class CajasContadas : public CajaMensajes {
public:
    struct Caja {
        QString texto;
        int estilo = 0;
        int ticketsFuera = 0;
    };
    std::function<int()> tickets;
    QList<Caja> cajas;
    int mostrar(const QString& texto, int estilo, const QString&) override {
        cajas.append({texto, estilo, tickets ? tickets() : 0});
        return (estilo & 0x7) == estilo::SiNo ? respuesta::Si : respuesta::Aceptar;
    }
};

struct FallosImpresoras : EscritorioPrueba {
    // Raw tickets by connection; a connection named "rota..." does not exist.
    QHash<QString, std::shared_ptr<QByteArray>> bytes;
    std::shared_ptr<int> cerrados = std::make_shared<int>(0);
    CajasContadas* contadas = nullptr;

    FallosImpresoras() {
        m.canalEP().setAbridor([this](const QString& conexion) -> std::unique_ptr<DestinoEP> {
            if (conexion.startsWith(u"rota")) {
                throw ErrorEjecucion(ErrorEjecucion::ArchivoNoEncontrado);
            }
            auto& b = bytes[conexion];
            if (!b) {
                b = std::make_shared<QByteArray>();
            }
            return std::make_unique<DestinoMemoria>(b, cerrados);
        });
        auto c = std::make_unique<CajasContadas>();
        contadas = c.get();
        contadas->tickets = [this] { return *cerrados; };
        m.setCajas(std::move(c));
        pedidoDomicilio();
    }

    void ep(int slot, const QString& nombre, const QString& conexion) {
        m.Impresora(slot) = impresoraEP(nombre, conexion);
        m.Impresora(slot).NumeroCopiasAceptado = 1;
    }
    void dw(int slot, const QString& nombre) {
        ClassConfigImpresora& i = m.Impresora(slot);
        i.TipoImpresion = QStringLiteral("DW");
        i.NombreImpresora = nombre;
        i.NumeroCopiasAceptado = 1;
        i.NumeroCopiasAceptadoRecoger = -1;
    }
};

} // namespace

TEST_F(FallosImpresoras, LasDemasImpresorasImprimenYLosAvisosVienenDespues) {
    const QString puertoRoto = QStringLiteral(
        "La conexión indicada para la impresora Barra no se corresponde con ningún puerto de "
        "impresora.");
    const struct {
        const char* caso;
        std::function<void()> preparar;
        QStringList avisos; // the start of each box, in order
    } casos[] = {
        {"la impresora de controlador del hueco 1 no existe",
         [this] { dw(1, QStringLiteral("Impresora caja")); },
         {QStringLiteral("Error en tiempo de ejecución '482': Error de impresora\n\nLa impresora "
                         "\"Impresora caja\" no ha podido imprimir el pedido 1234. Compruebe")}},
        {"la conexión del hueco 1 no existe",
         [this] { ep(1, QStringLiteral("Barra"), QStringLiteral("rota1")); },
         {puertoRoto}},
        {"fallan el hueco 1 y el 2",
         [this] {
             dw(1, QStringLiteral("Impresora caja"));
             ep(2, QStringLiteral("Barra"), QStringLiteral("rota2"));
         },
         {QStringLiteral("Error en tiempo de ejecución '482'"), puertoRoto}},
    };
    for (const auto& c : casos) {
        SCOPED_TRACE(c.caso);
        m.Impresoras = {};
        bytes.clear();
        *cerrados = 0;
        contadas->cajas.clear();
        ep(3, QStringLiteral("Mostrador"), QStringLiteral("mostrador"));
        ep(4, QStringLiteral("Horno"), QStringLiteral("horno"));
        m.Impresora(4).Cocina = true;
        m.Impresora(4).CategoriasIds = QStringLiteral("3,4");
        c.preparar();

        ImprimirPedidoSegunEstado(m, QStringLiteral("Aceptado"), m.PedidoActual.FormaEntrega, true,
                                  false);
        EXPECT_TRUE(bytes.value(QStringLiteral("mostrador"))->contains("Pizza Margarita"));
        EXPECT_TRUE(bytes.value(QStringLiteral("horno"))->contains("Pizza Margarita"));
        EXPECT_EQ(*cerrados, 2);
        ASSERT_EQ(contadas->cajas.size(), c.avisos.size());
        for (qsizetype i = 0; i < c.avisos.size(); ++i) {
            EXPECT_TRUE(contadas->cajas[i].texto.startsWith(c.avisos[i]))
                << contadas->cajas[i].texto.toStdString();
            EXPECT_EQ(contadas->cajas[i].ticketsFuera, 2) << "the box came before a ticket";
        }
    }
}

TEST(RespuestaNoTomada, SoloLoQueNoEsUnaRespuestaDelServicio) {
    const struct {
        QString respuesta;
        bool noTomada;
    } casos[] = {
        {QStringLiteral("error"), true},
        {QString(), true},
        {QStringLiteral(R"({"status":500})"), true},
        {QStringLiteral("<html><head><title>502 Bad Gateway</title></head></html>"), true},
        {QStringLiteral("OK"), false},
        {QStringLiteral("Pedido ya respondido"), false},
        {QStringLiteral(R"({"status":5000})"), false},
        {QStringLiteral("Error"), false},
        {QStringLiteral("<HTML><TITLE>503 Service Unavailable</TITLE></HTML>"), true},
        {QStringLiteral("<title>500 Internal Server Error</title>"), true},
        {QString::fromLatin1("\xff\x80\xfe\x90"), true},
        {QStringLiteral("OK\x01"), true},
        {QString::fromLatin1("OK \xc3\xb1\r\n"), false}, // "ñ" in UTF-8 is text
    };
    for (const auto& c : casos) {
        EXPECT_EQ(respuesta_pedido::RespuestaNoTomada(c.respuesta), c.noTomada)
            << c.respuesta.toStdString();
    }
}

TEST_F(FallosImpresoras, ElReinicioReimprimeElPedidoDelMomentoYNoDejaTomarOtro) {
    ep(1, QStringLiteral("Mostrador"), QStringLiteral("mostrador"));
    int vaciados = 0;
    EXPECT_TRUE(ReiniciarImpresoras(
        m,
        [&] {
            ++vaciados;
            return 0;
        },
        50));
    EXPECT_EQ(vaciados, 1);
    EXPECT_FALSE(CaminoLibre(m));
    // Something else fills the record during the wait.
    m.PedidoActual.NumPedido = QStringLiteral("9999");
    m.PedidoActual.Estado = QStringLiteral("Rechazado");

    ASSERT_TRUE(EsperarHasta([this] { return *cerrados == 1; }, 5000));
    const QByteArray ticket = *bytes.value(QStringLiteral("mostrador"));
    EXPECT_TRUE(ticket.contains(": 1234"));
    EXPECT_FALSE(ticket.contains("9999"));
    EXPECT_EQ(m.PedidoActual.NumPedido, QStringLiteral("9999"));
    EXPECT_TRUE(CaminoLibre(m));
}
