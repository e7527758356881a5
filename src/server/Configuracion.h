#pragma once

class ModuloPrincipal;
class QString;

// The establishment's configuration: one document of the service fills the configuration
// variables, the reasons for rejection and the ten printer slots of the module.
//
// True on success. A bad reply (refused credentials, a failure word, a 500 or 502 page)
// or a failure while reading it moves the run to plain http and tries once more there;
// on http it gives false, and a reading failure writes its description to LabelInfo
// (ModuloPrincipal::textoInfo). A failure part-way keeps the variables read before it.
// The window side follows through ModuloPrincipal's signals: modoCambiado at every
// reading, actualizarAgotados when the service asks for it, textoInfo.
// `parametro` has no effect; it is only handed on to the second attempt.
bool ObtenerConfiguracion(ModuloPrincipal& m, bool& parametro);

namespace configuracion {

// True when a reply cannot be a configuration document.
bool RespuestaMala(const QString& respuesta);

// Reads a repaired reply text into the module; throws ErrorEjecucion where the reading
// stops. Returns the number of printer elements read.
int LeerDocumento(ModuloPrincipal& m, const QString& texto);

// The old single printer, filled from the old configuration answer and written back to
// the service as printer 1, when the service lists no printer for this desk.
void MigrarImpresoraAntigua(ModuloPrincipal& m);

} // namespace configuracion
