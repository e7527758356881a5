// From the poll's reply to the painted new-order window, for an order of 30 products:
// parse into the order record, fill the window, show it and run the event loop until the
// window has painted. As at the counter, the window was hidden when the previous order was
// answered, and each order differs from the one before. The peer is the same window with the
// list painted the stock way (item delegate, frame and scroll bars of the application style).
#include "base/ModuloPrincipal.h"
#include "base/Windows1252.h"
#include "orders/FormPedidoNuevo.h"
#include "orders/RegistroPedido.h"
#include "orders/VentanaPedido_ui.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <benchmark/benchmark.h>

namespace {

// Counts the paint events of one window and its controls.
class ContadorPintado : public QObject {
public:
    explicit ContadorPintado(QWidget* ventana) : ventana_(ventana) {}
    int pintados = 0;

protected:
    bool eventFilter(QObject* o, QEvent* e) override {
        if (e->type() == QEvent::Paint && o->isWidgetType() &&
            (o == ventana_ || ventana_->isAncestorOf(static_cast<QWidget*>(o)))) {
            ++pintados;
        }
        return false;
    }

private:
    QWidget* ventana_;
};

QString LineaTreintaProductos() {
    const char* platos[] = {"Pizza Cuatro Quesos - Borde relleno - Sin orégano",
                            "Ensalada César con pollo - Sin picatostes",
                            "Croquetas caseras de jamón - Media ración",
                            "Hamburguesa clásica - Punto de la carne: al punto - Sin pepinillos",
                            "Tarta de queso al horno con mermelada de frutos rojos",
                            "Agua mineral 50 cl"};
    QString productos;
    for (int i = 0; i < 30; ++i) {
        const QChar pc = QLatin1Char('%');
        productos += QString::number(1 + i % 3) + pc + QString::fromUtf8(platos[i % 6]) + pc +
                     QString::number(4 + i % 7) + QStringLiteral(".50") + pc +
                     QString::number(100 + i) + pc + QStringLiteral("12;");
    }
    const QString linea = QStringLiteral("#PED*web*7001*") + productos +
                          QStringLiteral("*2.00*0.00;151.00;88;María Núñez;Calle Mayor 5, 2º B;"
                                         "22/11/2026 21:02%%Para: 21:30%%Sábado 28%%s;4;1;Efectivo "
                                         "Cambio: 200;600111222;Pendiente;;OTOÑO;0.00;1;0;153.00;*"
                                         "Timbre roto * llamar al móvil#");
    return cp1252::aTexto(linea.toUtf8());
}

// The same order under another number and customer, so that no text is left unchanged.
QString OtroPedido(QString linea) {
    return linea.replace(QStringLiteral("7001"), QStringLiteral("7002"))
        .replace(QStringLiteral("María"), QStringLiteral("José"));
}

void PintadoDeSerie(QTreeWidget* lista) {
    lista->setItemDelegate(new QStyledItemDelegate(lista));
    lista->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    lista->setPalette(QPalette());
    lista->verticalScrollBar()->setStyle(nullptr);
    lista->horizontalScrollBar()->setStyle(nullptr);
}

void PedidoEnPantalla(benchmark::State& state, bool deSerie) {
    ModuloPrincipal m;
    m.TamannoFuentePrincipales = 8;
    m.MostrarCpr = true;
    FormPedidoNuevo ventana(m);
    AplicarTamannosFuente(m, &ventana);
    if (deSerie) {
        PintadoDeSerie(ventana.findChild<QTreeWidget*>(QStringLiteral("ListViewProductos")));
    }
    ContadorPintado contador(&ventana);
    qApp->installEventFilter(&contador);
    const QString respuestas[2] = {LineaTreintaProductos(), OtroPedido(LineaTreintaProductos())};
    int n = 0;

    for (auto _ : state) {
        state.PauseTiming();
        ventana.hide();
        QApplication::processEvents();
        state.ResumeTiming();

        QString r = respuestas[n++ % 2]; // the reply is repaired in place
        const int antes = contador.pintados;
        ParsearPedido(m, r);
        RellenarVentanaPedido(m, &ventana);
        ventana.show();
        QElapsedTimer limite;
        limite.start();
        while (contador.pintados == antes && limite.elapsed() < 2000) {
            QApplication::processEvents();
        }
        if (contador.pintados == antes) {
            state.SkipWithError("la ventana no se pintó");
            break;
        }
    }
    qApp->removeEventFilter(&contador);
    if (m.PedidoActual.Productos.size() != 30) {
        state.SkipWithError("el pedido no tiene 30 productos");
    }
}

void BM_PedidoEnPantalla(benchmark::State& state) {
    PedidoEnPantalla(state, false);
}
void BM_PedidoEnPantallaPintadoDeSerie(benchmark::State& state) {
    PedidoEnPantalla(state, true);
}
BENCHMARK(BM_PedidoEnPantalla)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(40)
    ->Repetitions(25)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_PedidoEnPantallaPintadoDeSerie)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(40)
    ->Repetitions(25)
    ->ReportAggregatesOnly(true);

// The two halves on their own, to see where the time goes.
void BM_SoloParsear(benchmark::State& state) {
    ModuloPrincipal m;
    const QString respuesta = LineaTreintaProductos();
    for (auto _ : state) {
        QString r = respuesta;
        benchmark::DoNotOptimize(ParsearPedido(m, r));
    }
}
BENCHMARK(BM_SoloParsear)->Unit(benchmark::kMicrosecond);

void BM_SoloRellenar(benchmark::State& state) {
    ModuloPrincipal m;
    m.TamannoFuentePrincipales = 8;
    FormPedidoNuevo ventana(m);
    QString r = LineaTreintaProductos();
    ParsearPedido(m, r);
    for (auto _ : state) {
        RellenarVentanaPedido(m, &ventana);
    }
}
BENCHMARK(BM_SoloRellenar)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
