#pragma once

class ModuloPrincipal;
struct ClassConfigImpresora;

// One copy of the kitchen ticket of PedidoActual on a raw kitchen printer: only what is routed
// to this printer. A printer that nothing is for gets no bytes at all (the port stays shut).
void ImprimirTicketCocinaEP(ModuloPrincipal& m, const ClassConfigImpresora& impresora);
