// Any reply that passes the order-line test goes through the parser and then through
// everything that works out the order window: no crash, no hang, only the error box or
// the run-time errors of the window.
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "base/Windows1252.h"
#include "orders/RegistroPedido.h"
#include "orders/VistaPedido.h"
#include "platform/CajaMensajes.h"
#include "server/TextoServidor.h"

#include <QCoreApplication>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace {

struct Estado {
    int argc = 1;
    char nombre[16] = "fuzz_pedido";
    char* argv[2] = {nombre, nullptr};
    QCoreApplication app{argc, argv};
    ModuloPrincipal m;
    RegistroCajas* cajas = nullptr;

    Estado() {
        auto c = std::make_unique<RegistroCajas>();
        cajas = c.get();
        m.setCajas(std::move(c));
        m.TamannoFuentePrincipales = 8;
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t n) {
    static Estado estado;
    ModuloPrincipal& m = estado.m;
    if (n < 1) {
        return 0;
    }
    // The first byte varies the settings the summary and the window read.
    const uint8_t ajustes = datos[0];
    m.MostrarCpr = (ajustes & 1) != 0;
    m.MostrarQuienA = (ajustes & 2) != 0;
    m.TamannoFuentePrincipales = static_cast<qint16>(4 + (ajustes >> 4));

    // Keep the parser's callers' guarantee half of the time; the other half it meets
    // anything at all.
    QString respuesta =
        cp1252::aTexto(reinterpret_cast<const char*>(datos + 1), static_cast<qsizetype>(n - 1));
    if ((ajustes & 4) != 0 && !EsLineaPedido(respuesta)) {
        return 0;
    }
    const QString resumen = ParsearPedido(m, respuesta);
    // An empty summary means exactly one error box; a good parse shows none.
    if (resumen.isEmpty() != (estado.cajas->cajas().size() == 1)) {
        __builtin_trap();
    }
    estado.cajas->limpiar();

    const Pedido& p = m.PedidoActual;
    try {
        (void)vista::FilasProductos(p, vista::AnchoLinea(m.TamannoFuentePrincipales));
    } catch (const ErrorEjecucion&) {
    }
    try {
        (void)vista::TextoTiempoEstimado(p.TiempoEstimado);
    } catch (const ErrorEjecucion&) {
    }
    (void)vista::ComisionVisible(p.ComisionPaypal);
    (void)vista::TextoPromocion(m);
    (void)vista::TextoPara(p);
    return 0;
}
