#pragma once

#include <QString>
#include <functional>

class ModuloPrincipal;
struct ClassConfigImpresora;
class ErrorEjecucion;
class ImpresoraDW;

// Copies of an order in state `estado` on one printer: accepted orders take the pick-up copies
// when the order is collected and they are 0 or more, else the accepted copies; rejected
// orders the rejected copies. Any other state word gives 0.
int CopiasSegunEstado(const ClassConfigImpresora& impresora, const QString& estado,
                      const QString& formaEntrega);

// A scheduled order that the service holds back from the kitchens while it is being answered.
bool Diferido(const QString& paraDia, bool automatico, bool imprimirEnCocina);

// `copias` documents on a driver printer, made current by its name first (the current one
// stays when the name isn't there). A failure drops the document begun, ends in the box of a
// failed driver printer and stops this printer's copies only; the copies that did not come out
// and why are returned (none when all did).
struct CopiasSinImprimir {
    int copias = 0;
    QString error;
};
CopiasSinImprimir ImprimirEnImpresoraDW(ModuloPrincipal& m, const ClassConfigImpresora& impresora,
                                        int copias, const std::function<void(ImpresoraDW&)>& copia);

// PedidoActual on this one printer, `copias` times, by its mode and kind. A driver printer is
// made current by its name first (the current one stays when the name isn't there). A failed
// driver ticket ends in the run-time report box and stops this printer's copies only.
void ImprimirPedido(ModuloPrincipal& m, const ClassConfigImpresora& impresora, int copias);

// The box of a driver printer that failed: the run-time report, then which printer, which
// order and what to do about it.
QString TextoFalloImpresoraDW(const ErrorEjecucion& e, const QString& nombreImpresora,
                              const QString& numPedido);

// PedidoActual on all ten slots, each with the copies its state calls for. `automatico` is
// true when the order is being answered now (scheduled orders then skip the kitchens);
// `soloCocina` leaves out every printer that isn't a kitchen one. A printer that fails costs
// its own copies only; the boxes of the failures come after the last printer.
void ImprimirPedidoSegunEstado(ModuloPrincipal& m, const QString& estado,
                               const QString& formaEntrega, bool automatico, bool soloCocina);

// The print button of the new-order window: one copy on slot 1, or on slot 2 when slot 1 has
// no printer; with neither, the box "Debe seleccionar una impresora en configuración de
// impresoras". Returns the slot printed on, 0 for none.
int ImprimirPedidoNuevo(ModuloPrincipal& m);

// "Debe seleccionar una impresora en configuración de impresoras"
QString TextoSinImpresora();
