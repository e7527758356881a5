#include "printing/PruebaImpresoraDW.h"

#include "base/ClassConfigImpresora.h"
#include "base/Pedido.h"
#include "printing/EscritorTicketDW.h"
#include "printing/ImpresoraDW.h"
#include "printing/RutasImpresion.h"

namespace prueba_dw {

void ImprimirPaginaDW(ModuloPrincipal& m, ImpresoraDW& impresora, const ClassConfigImpresora& imp) {
    EscritorTicketDW t(m, impresora, imp);
    const QString regla = QStringLiteral("1234567890").repeated(10);
    t.prepararPagina();
    t.grande();
    t.partir(imp.NombreImpresora);
    t.pequenna();
    t.fechaYHora();
    t.hueco();
    t.partir(regla);
    t.separador();
    t.imprimir(t.textoProducto({10, QStringLiteral("Producto"), QStringLiteral("123,45"), 0, 0, {}},
                               true));
    t.imprimir(QStringLiteral("áéíóú ÁÉÍÓÚ ñÑ çÇ üÜ € º ° ¡ ¿"));
    t.separador();
    t.grande();
    t.partir(regla);
    t.imprimir(QStringLiteral("áéíóú ÁÉÍÓÚ ñÑ"));
    t.pequenna();
    t.fin();
}

void ImprimirPruebaDW(ModuloPrincipal& m, const ClassConfigImpresora& imp) {
    ImprimirEnImpresoraDW(m, imp, 1,
                          [&](ImpresoraDW& impresora) { ImprimirPaginaDW(m, impresora, imp); });
}

} // namespace prueba_dw
