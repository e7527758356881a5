// A menu of 2,000 products into the menu window's check list: the out-of-stock reply read,
// the marks written into the kept menu, the rows built, the list filled, shown and painted.
// The peer fills a plain QStandardItemModel behind a QTreeView with the same rows already
// made (three columns, check boxes) and paints it: what any list of that size costs. Also a
// tick: the marking, the refresh of the main list and the put-back test.
#include "base/ModuloPrincipal.h"
#include "platform/CanalHttp.h"
#include "products/Carta.h"
#include "products/FormProductosRechazarIngredientes.h"
#include "products/ListaProductos_ui.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QStandardItemModel>
#include <QTreeView>
#include <benchmark/benchmark.h>

namespace {

constexpr int kProductos = 2000;

// The service: the menu, twenty products out of stock, and "ok" to every marking.
class ServicioFijo : public CanalHttp {
public:
    ServicioFijo() {
        QByteArray carta = R"({"categorias":[)";
        for (int c = 0; c < 20; ++c) {
            carta += (c ? ",{" : "{") + QByteArray(R"("nombre":"Categoría )") +
                     QByteArray::number(c) + R"(","productos":[)";
            for (int p = 0; p < kProductos / 20; ++p) {
                const int id = c * 1000 + p;
                carta += (p ? ",{" : "{") + QByteArray(R"("id":)") + QByteArray::number(id) +
                         R"(,"nombre":"Plato número )" + QByteArray::number(id) +
                         R"( con guarnición","pvp":)" + QByteArray::number(5 + p % 9) +
                         R"(.5,"nocarro":null,"fechahoraagotado":null})";
            }
            carta += "]}";
        }
        carta_ = carta + "]}";
        agotados_ = "[";
        for (int i = 0; i < 20; ++i) {
            agotados_ += (i ? ",{" : "{") + QByteArray(R"("id":)") + QByteArray::number(i * 1000) +
                         R"(,"nombre":"Plato","pvp":5.5,"fechahoraagotado":"23/11/2026 10:00:00"})";
        }
        agotados_ += "]";
    }
    RespuestaHttp obtener(const QByteArray& url) override {
        if (url.contains("carta2")) {
            return {true, carta_};
        }
        if (url.contains("obtenerProductosAgotados")) {
            return {true, agotados_};
        }
        return {true, R"("ok")"};
    }

private:
    QByteArray carta_;
    QByteArray agotados_;
};

void Instalar(ModuloPrincipal& m) {
    m.setServidor(QStringLiteral("servidor.prueba/api/"));
    m.setCanales(std::make_unique<ServicioFijo>(), std::make_unique<ServicioFijo>(),
                 std::make_unique<ServicioFijo>());
    m.IdEstablecimiento = 7;
}

// Runs the event loop until `w` has painted, at most two seconds.
class EsperaPintado : public QObject {
public:
    explicit EsperaPintado(QWidget* w) : w_(w) { qApp->installEventFilter(this); }
    ~EsperaPintado() override { qApp->removeEventFilter(this); }
    bool esperar() {
        pintado_ = false;
        QElapsedTimer t;
        t.start();
        while (!pintado_ && t.elapsed() < 2000) {
            QApplication::processEvents();
        }
        return pintado_;
    }

protected:
    bool eventFilter(QObject* o, QEvent* e) override {
        if (e->type() == QEvent::Paint && o->isWidgetType() &&
            (o == w_ || w_->isAncestorOf(static_cast<QWidget*>(o)))) {
            pintado_ = true;
        }
        return false;
    }

private:
    QWidget* w_;
    bool pintado_ = false;
};

void BM_CartaEnLista(benchmark::State& state) {
    ModuloPrincipal m;
    Instalar(m);
    m.carta().CargarCarta();
    FormProductosRechazarIngredientes ventana(m);
    EsperaPintado espera(&ventana);
    for (auto _ : state) {
        state.PauseTiming();
        ventana.hide();
        QApplication::processEvents();
        state.ResumeTiming();
        ventana.CargarListaProductos();
        ventana.show();
        if (!espera.esperar()) {
            state.SkipWithError("la lista no se pintó");
            break;
        }
    }
    if (ventana.ListViewProductosNoIngredientes()->topLevelItemCount() != kProductos) {
        state.SkipWithError("la lista no tiene 2.000 filas");
    }
}

void BM_ModeloDeSerie(benchmark::State& state) {
    ModuloPrincipal m;
    Instalar(m);
    const QList<FilaProducto> filas = m.carta().CargarListaProductos(Carta::ListaCarta);
    QStandardItemModel modelo;
    QTreeView vista;
    vista.setModel(&modelo);
    vista.setRootIsDecorated(false);
    vista.resize(520, 560);
    EsperaPintado espera(&vista);
    for (auto _ : state) {
        state.PauseTiming();
        vista.hide();
        QApplication::processEvents();
        state.ResumeTiming();
        modelo.clear();
        modelo.setHorizontalHeaderLabels(
            {QString(), QStringLiteral("Producto"), QStringLiteral("Precio(€)")});
        for (const FilaProducto& f : filas) {
            auto* marca = new QStandardItem; // owned by the model once appended
            marca->setCheckable(true);
            marca->setCheckState(f.agotado ? Qt::Checked : Qt::Unchecked);
            modelo.appendRow({marca, new QStandardItem(f.nombre), new QStandardItem(f.precio)});
        }
        vista.show();
        if (!espera.esperar()) {
            state.SkipWithError("la vista no se pintó");
            break;
        }
    }
    if (modelo.rowCount() != kProductos) {
        state.SkipWithError("el modelo no tiene 2.000 filas");
    }
}

// One tick on the menu list: the marking, the main list read again, the rows kept.
void BM_Marcar(benchmark::State& state) {
    ModuloPrincipal m;
    Instalar(m);
    FormProductosRechazarIngredientes ventana(m);
    ventana.CargarListaProductos();
    ListaProductos& lista = *ventana.ListViewProductosNoIngredientes();
    lista.esperaTrasMarcarMs = 0;
    QTreeWidgetItem* fila = lista.topLevelItem(kProductos / 2);
    bool marcado = false;
    for (auto _ : state) {
        marcado = !marcado;
        fila->setCheckState(0, marcado ? Qt::Checked : Qt::Unchecked);
        QApplication::processEvents(); // the tick is handled once the click is over
    }
}

BENCHMARK(BM_CartaEnLista)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(10)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_ModeloDeSerie)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(10)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_Marcar)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
