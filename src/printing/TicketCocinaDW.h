#pragma once

class ImpresoraDW;
class ModuloPrincipal;
struct ClassConfigImpresora;

// One copy of the kitchen ticket of PedidoActual on a driver printer: the products of the
// printer's categories only. When nothing belongs, no page is started at all. Failures are
// thrown to the caller as ErrorEjecucion.
void ImprimirTicketCocinaDW(ModuloPrincipal& m, ImpresoraDW& impresora,
                            const ClassConfigImpresora& config);
