#pragma once

#include "base/ClassConfigImpresora.h"

#include <array>

class ValorJson;

// The printers of an establishment's configuration: the `configimpresoras` array read
// into the ten slots. Every slot is emptied first, so a printer that the service no
// longer lists is gone. Each element's `numeroimpresora` (1 to 10) picks its slot; any
// other number keeps the slot of the element before it, and as the first element it has
// none (error 91). Returns the number of elements read. A missing required key, a null
// or a value out of range is a run-time error (ErrorEjecucion) with the slots read so far
// kept.
int LeerConfigImpresoras(std::array<ClassConfigImpresora, 10>& impresoras,
                         const ValorJson& configimpresoras);
