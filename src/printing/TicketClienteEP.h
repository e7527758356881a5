#pragma once

class ModuloPrincipal;
struct ClassConfigImpresora;

#include <QString>

// One copy of the customer ticket of PedidoActual on a raw printer. Failures end in a box,
// whose text is returned (empty when the copy printed).
QString ImprimirTicketEP(ModuloPrincipal& m, const ClassConfigImpresora& impresora);
