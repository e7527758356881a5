#pragma once

class ModuloPrincipal;
struct ClassConfigImpresora;

// One copy of the customer ticket of PedidoActual on a raw printer. Failures end in a box.
void ImprimirTicketEP(ModuloPrincipal& m, const ClassConfigImpresora& impresora);
