// Building the raw customer ticket and three kitchen tickets, to memory, for an order of 50
// products. The whole order should take well under a millisecond.
#include "base/ModuloPrincipal.h"
#include "common/ImpresoraEPDeSerie.h"
#include "platform/Reloj.h"
#include "printing/CanalEP.h"
#include "printing/TicketClienteEP.h"
#include "printing/TicketCocinaEP.h"

#include <QCoreApplication>
#include <benchmark/benchmark.h>

namespace {

ClassConfigImpresora impresora(const QString& nombre, bool cocina, const QString& categorias) {
    ClassConfigImpresora i = ImpresoraEPDeSerie(nombre, nombre);
    i.MostrarHoraEntrega = true;
    i.ReemplazarCaracEscPosPC858 = true;
    i.SaltoLineaOpciones = true;
    i.MostrarSeparadorProductos = true;
    i.Cocina = cocina;
    i.CategoriasIds = categorias;
    i.MostrarPreciosProdCocina = cocina;
    i.DatosClienteCocina = cocina;
    return i;
}

void pedido50(Pedido& p) {
    p.NumPedido = "98765";
    p.ImporteEnvio = u"2,00€"_qs;
    p.ComisionPaypal = u"0,45€"_qs;
    p.ImporteDescuento = u"5,00€"_qs;
    p.TotalPedido = u"312,40€"_qs;
    p.Cliente = u"María José Fernández de la Vega"_qs;
    p.Telefono = "600111222";
    p.FormaEntrega = u"Avenida de la Constitución 123, 4º izquierda, junto a la farmacia"_qs;
    p.RealizadoEl = "22/11/2026 20:58";
    p.Para = "Para: Ahora";
    p.EstadoPago = "PAGADO";
    p.FormaPago = "Tarjeta";
    p.Comentarios = u"Llamar al timbre dos veces, por favor. ¡Gracias!"_qs;
    p.Estado = "Aceptado";
    p.TiempoEstimado = "45";
    p.HoraAceptacion = QDateTime(QDate(2026, 11, 22), QTime(21, 0));
    for (int n = 0; n < 50; ++n) {
        ProductoPedido pr;
        pr.Cantidad = static_cast<qint16>(1 + n % 3);
        pr.IdProducto = 100 + n;
        pr.IdCategoria = 1 + n % 3;
        pr.Precio = QString::number(4 + n % 7) + ",50";
        if (n % 5 == 0) {
            pr.Nombre =
                u"Hamburguesa de la casa - Punto: Poco hecha - Extras: Queso, Bacon, Huevo"_qs;
            pr.Opciones =
                u"Plancha//1//Poco hecha&&Freidora//1//Patatas: Grandes, Sin sal&&TEXTOLIBRE//Sin cebolla"_qs;
        } else {
            pr.Nombre = u"Pizza número "_qs + QString::number(n) + u" - Masa: Fina"_qs;
        }
        p.Productos.append(pr);
    }
}

void BM_PedidoCompletoEP(benchmark::State& estado) {
    ModuloPrincipal m;
    m.setReloj(std::make_unique<RelojFijo>(QDateTime(QDate(2026, 11, 22), QTime(21, 0, 5))));
    m.NombreEstablecimiento = "Casa Tarvi";
    m.TextoCabecera = "Gracias por su pedido";
    m.TextoPiePagina = u"¡Buen provecho!"_qs;
    pedido50(m.PedidoActual);
    auto bytes = std::make_shared<QByteArray>();
    auto cierres = std::make_shared<int>(0);
    bytes->reserve(64 * 1024);
    m.canalEP().setAbridor([&](const QString&) -> std::unique_ptr<DestinoEP> {
        return std::make_unique<DestinoMemoria>(bytes, cierres);
    });
    const ClassConfigImpresora cliente = impresora("Barra", false, "");
    const ClassConfigImpresora plancha = impresora("Plancha", true, "1");
    const ClassConfigImpresora freidora = impresora("Freidora", true, "2");
    const ClassConfigImpresora horno = impresora("Horno", true, "3");
    qint64 total = 0;
    for (auto _ : estado) {
        bytes->clear();
        ImprimirTicketEP(m, cliente);
        ImprimirTicketCocinaEP(m, plancha);
        ImprimirTicketCocinaEP(m, freidora);
        ImprimirTicketCocinaEP(m, horno);
        total += bytes->size();
        benchmark::DoNotOptimize(bytes->data());
    }
    estado.counters["bytes_por_pedido"] =
        static_cast<double>(total) / static_cast<double>(estado.iterations());
    if (*cierres != 4 * static_cast<int>(estado.iterations())) {
        estado.SkipWithError("a ticket failed");
    }
}
BENCHMARK(BM_PedidoCompletoEP)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
