#pragma once

#include "base/ClassConfigImpresora.h"

#include <QString>
#include <QStringList>

class CanalEP;
class ModuloPrincipal;

// The test page of a raw printer, printed with the values on a settings panel before they are
// saved: whether the port answers, where a line wraps, the large format, a product line, and
// a row of Spanish characters for each code page the printer may know, so the operator can
// read off the code and the PC858 setting that print them right.
namespace prueba_ep {

// "La conexión indicada no se corresponde con ningún puerto de impresora."
QString TextoPuertoNoEncontrado();

// One code page row: the code page command with its last value replaced by `codigo`, then
// the characters with PC858 on or off.
void ImprimirPaginaCodigosEP(CanalEP& canal, const QStringList& comando, int codigo,
                             bool reemplazar, bool pc858);

// Prints the page on `impresora.EPConexion`. Uses the name, the two character options, the
// connection, the columns and the command settings of the record. A failure shows its box
// (a port that cannot be opened: the text above) and the channel is closed all the same.
void ImprimirPruebaEP(ModuloPrincipal& m, const ClassConfigImpresora& impresora);

} // namespace prueba_ep
