#pragma once

class ImpresoraDW;
class ModuloPrincipal;
struct ClassConfigImpresora;

// The test page of a driver printer, printed with the values on a settings panel before they
// are saved: the name in the big size, the date, a ruler of digits wrapped at the width the
// tickets compute for each size (if the digits run off the paper, the font factor is too
// small; if they stop well short of the edge, too large), a product line with its price at
// the right edge, and the Spanish characters in the face chosen.
namespace prueba_dw {

// The page on `impresora`. Failures are thrown as ErrorEjecucion.
void ImprimirPaginaDW(ModuloPrincipal& m, ImpresoraDW& impresora,
                      const ClassConfigImpresora& config);

// The page on the system's printer of that name (or the current one when it isn't there); a
// failure drops the page and ends in the box of a failed driver printer.
void ImprimirPruebaDW(ModuloPrincipal& m, const ClassConfigImpresora& config);

} // namespace prueba_dw
