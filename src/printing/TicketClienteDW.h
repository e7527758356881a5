#pragma once

class ImpresoraDW;
class ModuloPrincipal;
struct ClassConfigImpresora;

// One copy of the customer ticket of PedidoActual on a driver printer. A failure of the
// printer or of a value is thrown to the caller as ErrorEjecucion.
void ImprimirTicketDW(ModuloPrincipal& m, ImpresoraDW& impresora,
                      const ClassConfigImpresora& config);
