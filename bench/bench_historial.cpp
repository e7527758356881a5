// A history search that brings 500 orders: from the service's reply to the painted list, in
// the window the staff use. The peer fills the same list the plain way, one row at a time
// with updates on and rows of free height, from the same reply.
#include "base/ModuloPrincipal.h"
#include "base/Windows1252.h"
#include "common/CanalFalso.h"
#include "history/BusquedaPedidos.h"
#include "history/FormPedidosAnteriores.h"
#include "platform/CajaMensajes.h"

#include <QApplication>
#include <QListWidget>
#include <benchmark/benchmark.h>

namespace {

QByteArray Respuesta500() {
    QStringList filas;
    for (int i = 0; i < 500; ++i) {
        filas << QStringLiteral("%1 - %2:%3 - María Núñez %4 - Calle Mayor %5 - %6,50€ - Aceptado")
                     .arg(7000 + i)
                     .arg(12 + i / 60)
                     .arg(i % 60, 2, 10, QLatin1Char('0'))
                     .arg(i)
                     .arg(i % 90)
                     .arg(10 + i % 40);
    }
    return (QStringLiteral(R"({"totalnumpedidos":500,"totalimportepedidos":"15.250,00",)"
                           R"("totalimportepedidosbruto":"15.900,00","pedidos":")") +
            filas.join(u'#') + QStringLiteral(R"(","mensaje":""})"))
        .toUtf8();
}

struct Escritorio {
    ModuloPrincipal m;
    CanalFalso* canal = nullptr;
    Escritorio() {
        m.setCajas(std::make_unique<RegistroCajas>());
        auto d = std::make_unique<CanalFalso>();
        canal = d.get();
        m.setCanales(std::move(d), std::make_unique<CanalFalso>(), std::make_unique<CanalFalso>());
        m.setServidor(QStringLiteral("servidor.prueba/api/"));
        canal->porDefecto = {true, Respuesta500()};
    }
};

void pintar(QWidget* w) {
    w->repaint();
    QApplication::processEvents();
}

void BM_BusquedaQuinientos(benchmark::State& state) {
    Escritorio e;
    FormPedidosAnteriores v(e.m, [](const QString&) {});
    v.resize(1024, 700);
    v.show();
    pintar(&v);
    for (auto _ : state) {
        v.BuscarPedidos();
        pintar(v.lista());
    }
    if (v.lista()->count() != 500) {
        state.SkipWithError("la lista no tiene 500 filas");
    }
}
BENCHMARK(BM_BusquedaQuinientos)->Unit(benchmark::kMillisecond);

void BM_BusquedaQuinientosFilaAFila(benchmark::State& state) {
    Escritorio e;
    FormPedidosAnteriores v(e.m, [](const QString&) {});
    v.resize(1024, 700);
    v.show();
    QListWidget* lista = v.lista();
    lista->setUniformItemSizes(false);
    pintar(&v);
    historial::Filtros f;
    for (auto _ : state) {
        lista->clear();
        const auto r =
            historial::LeerResultado(e.m.ConsultarServidor(historial::RutaObtenerPedidos(e.m, f)));
        for (const QString& fila : r->filas) {
            lista->addItem(fila);
        }
        pintar(lista);
    }
}
BENCHMARK(BM_BusquedaQuinientosFilaAFila)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
