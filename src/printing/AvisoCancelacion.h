#pragma once

class ImpresoraDW;
class ModuloPrincipal;
struct ClassConfigImpresora;

// The notice that an accepted order of PedidoActual was cancelled, for the kitchens that got
// a part of it. Customer printers get nothing, and a notice is always one copy whatever the
// printer's copy settings.

// Every slot from 1 to 10, in order. A printer that fails costs its own notice only; the
// boxes of the failures come after the last printer.
void ImprimirCancelacion(ModuloPrincipal& m);

// The notice on one printer: raw or driver kitchens only.
void ImprimirCancelacionEnImpresora(ModuloPrincipal& m, const ClassConfigImpresora& impresora);

// The raw notice: nothing at all (the port stays shut) unless the kitchen ticket of the order
// would have printed something here. Failures end in the raw channel's boxes.
void ImprimirCancelacionEP(ModuloPrincipal& m, const ClassConfigImpresora& impresora);

// The driver notice on `impresora`: no page unless the order has a product of the printer's
// categories (or the printer takes every category). Failures are thrown as ErrorEjecucion.
void ImprimirCancelacionDW(ModuloPrincipal& m, ImpresoraDW& impresora,
                           const ClassConfigImpresora& config);
