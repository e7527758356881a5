#pragma once

#include <QString>
#include <functional>

class ErrorEjecucion;
class ModuloPrincipal;

// The two local files, in ModuloPrincipal::CarpetaDatos.
//
// config.txt: one binary record from byte 0, integers little-endian, strings as an
// unsigned 16-bit length and that many Windows-1252 bytes: IdEstablecimiento (32 bits),
// PasswordConfig (always written empty), ImpresoraAntigua, Reservado,
// PasswordConfigCifrada (hexadecimal), AccesosCreados, MetconGuardado, NumConfig (16 bits
// each). Created for the user alone (0600).
//
// ultpedim.txt: the numbers of the orders printed in print-only mode, comma-separated.
//
// Neither file is ever truncated: a shorter record or list leaves the old tail behind,
// which the next reading of ultpedim.txt takes as further numbers. Each write goes to a
// temporary file renamed over the old one, so a full disk or a failed write leaves the old
// file whole. A folder or file that cannot be opened or written is a run-time error of the
// caller: 70 (permission), 76 (no such folder), 61 (disk full), 75 or 57 otherwise. A file
// that can only be read is read.

// What the staff are told when a file is found damaged. The damaged file is kept aside under
// the copy's name before anything is written over it.
inline const QString NombreCopiaConfigDanado = QStringLiteral("config.txt.dañado");
inline const QString NombreCopiaUltPedImDanado = QStringLiteral("ultpedim.txt.dañado");
inline const QString AvisoConfigVacio = QStringLiteral(
    "El archivo de configuración config.txt estaba vacío. Por favor, introduzca de nuevo los "
    "datos del establecimiento en Admin.");
inline const QString AvisoConfigDanado = QStringLiteral(
    "El archivo de configuración config.txt está dañado; se ha guardado una copia en "
    "config.txt.dañado. Si el programa no conecta, introduzca de nuevo los datos del "
    "establecimiento en Admin.");
// %1: why the copy could not be made; the damaged file is then left as it is.
inline const QString AvisoConfigDanadoSinCopia = QStringLiteral(
    "El archivo de configuración config.txt está dañado y no se ha podido guardar una copia "
    "(%1). Si el programa no conecta, introduzca de nuevo los datos del establecimiento en "
    "Admin.");
inline const QString AvisoUltPedImDanado = QStringLiteral(
    "El archivo ultpedim.txt tenía datos dañados; se han conservado los números de pedido que "
    "se podían leer.");

// The login worked but could not be kept.
inline const QString AvisoConfigNoGuardado = QStringLiteral(
    "No se ha podido guardar la configuración en config.txt. El programa seguirá funcionando, "
    "pero al reiniciarlo habrá que introducir de nuevo los datos del establecimiento.");

// "No se ha podido guardar <nombre> (<error>)." and what to do about it.
QString TextoFalloGuardar(const QString& nombre, const ErrorEjecucion& e);
// The box of a config.txt that cannot be read at all.
QString TextoFalloLeerConfig(const ErrorEjecucion& e);
// Runs a write of a local file where nobody may be at the counter: a failure becomes the
// lasting note ModuloPrincipal::avisoArchivos instead of an error, and a good write clears it.
bool GuardarAvisando(ModuloPrincipal& m, const QString& nombre,
                     const std::function<void(ModuloPrincipal&)>& guardar);

// Reads config.txt (creating it when absent), heals a plain password into its enciphered
// field, corrects a NumConfig of 0 or above 9 to 1 (rewriting the file in both cases),
// copies MetconGuardado to Metcon and deciphers the password into PasswordConfig.
// Returns what the staff must be told (empty when the file was sound): an empty file, or a
// record cut short or of garbage, whose readable fields are used all the same.
QString LeerConfigTxt(ModuloPrincipal& m);
// Writes the record from the first byte; PasswordConfig stays in memory only.
void GuardarConfigTxt(ModuloPrincipal& m);

// Fills UltPedIm from ultpedim.txt (creating it when absent). Fields that are no order
// number are dropped and the file is rewritten without them; the returned note says so.
QString LeerUltPedIm(ModuloPrincipal& m);
// Writes UltPedIm from the first byte, without a length or a line end.
void GuardarUltPedIm(ModuloPrincipal& m);
