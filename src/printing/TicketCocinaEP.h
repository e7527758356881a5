#pragma once

#include <QString>

class ModuloPrincipal;
struct ClassConfigImpresora;

// One copy of the kitchen ticket of PedidoActual on a raw kitchen printer: only what is routed
// to this printer. A printer that nothing is for gets no bytes at all (the port stays shut).
// Returns the text of the failure's box, empty when the copy printed or had nothing to print.
QString ImprimirTicketCocinaEP(ModuloPrincipal& m, const ClassConfigImpresora& impresora);
