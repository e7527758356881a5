#pragma once

#include <QString>

class ModuloPrincipal;
struct ClassConfigImpresora;

// Copies of an order in state `estado` on one printer: accepted orders take the pick-up copies
// when the order is collected and they are 0 or more, else the accepted copies; rejected
// orders the rejected copies. Any other state word gives 0.
int CopiasSegunEstado(const ClassConfigImpresora& impresora, const QString& estado,
                      const QString& formaEntrega);

// A scheduled order that the service holds back from the kitchens while it is being answered.
bool Diferido(const QString& paraDia, bool automatico, bool imprimirEnCocina);

// PedidoActual on this one printer, `copias` times, by its mode and kind. A driver printer is
// made current by its name first (the current one stays when the name isn't there). A failed
// driver ticket ends in the run-time report box and stops this printer's copies only.
void ImprimirPedido(ModuloPrincipal& m, const ClassConfigImpresora& impresora, int copias);

// PedidoActual on all ten slots, each with the copies its state calls for. `automatico` is
// true when the order is being answered now (scheduled orders then skip the kitchens);
// `soloCocina` leaves out every printer that isn't a kitchen one.
void ImprimirPedidoSegunEstado(ModuloPrincipal& m, const QString& estado,
                               const QString& formaEntrega, bool automatico, bool soloCocina);

// The print button of the new-order window: one copy on slot 1, or on slot 2 when slot 1 has
// no printer; with neither, the box "Debe seleccionar una impresora en configuración de
// impresoras". Returns the slot printed on, 0 for none.
int ImprimirPedidoNuevo(ModuloPrincipal& m);

// "Debe seleccionar una impresora en configuración de impresoras"
QString TextoSinImpresora();
