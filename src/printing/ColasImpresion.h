#pragma once

#include "platform/ColasSistema.h"

#include <QString>
#include <functional>

class ModuloPrincipal;

// "¿Esta seguro que desea limpiar las colas de impresión?"
QString TextoPreguntaLimpiarColas();

// The printer reset: asks first; on Yes empties the queues through `vaciarColas` and, when an
// order is loaded, prints that order again by its state after `esperaMs`, without blocking
// the event loop but keeping the order road busy meanwhile (no order is taken). Returns
// whether the queues were emptied.
bool ReiniciarImpresoras(ModuloPrincipal& m, const std::function<int()>& vaciarColas,
                         int esperaMs = 10000);
