#pragma once

#include <QString>
#include <functional>

class CanalEP;
class ModuloPrincipal;

// Runs the writing of one ticket copy on the channel and reports its failure: error 53 with
// the printer's name, any other with its number and text. The channel is closed whatever
// happened, so that the next ticket can open it. Returns the box's text, empty when the copy
// went out.
QString EjecutarMarcoEP(ModuloPrincipal& m, const QString& nombreImpresora,
                        const std::function<void(CanalEP&)>& cuerpo);

// "La conexión indicada para la impresora X no se corresponde con ningún puerto de impresora."
QString TextoPuertoNoEncontrado(const QString& nombreImpresora);
