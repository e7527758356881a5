#pragma once

#include <QString>
#include <functional>

class ModuloPrincipal;

// Cancels the jobs waiting in the local print queues. Every call to the print system is
// bounded by `limiteMs`. Returns the number of jobs cancelled, or -1 when the print system
// could not be reached.
int CancelarTrabajosPendientes(int limiteMs = 5000);

// "¿Esta seguro que desea limpiar las colas de impresión?"
QString TextoPreguntaLimpiarColas();

// The printer reset: asks first; on Yes empties the queues through `vaciarColas` and, when an
// order is loaded, prints that order again by its state after `esperaMs`, without blocking
// the event loop but keeping the order road busy meanwhile (no order is taken). Returns
// whether the queues were emptied.
bool ReiniciarImpresoras(ModuloPrincipal& m, const std::function<int()>& vaciarColas,
                         int esperaMs = 10000);
