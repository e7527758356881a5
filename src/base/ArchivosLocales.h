#pragma once

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
// which the next reading of ultpedim.txt takes as further numbers. A folder or file that
// cannot be opened or written is a run-time error of the caller: 70 (permission), 76 (no
// such folder), 61 (disk full), 75 or 57 otherwise.

// Reads config.txt (creating it when absent), heals a plain password into its enciphered
// field, corrects a NumConfig of 0 or above 9 to 1 (rewriting the file in both cases),
// copies MetconGuardado to Metcon and deciphers the password into PasswordConfig.
void LeerConfigTxt(ModuloPrincipal& m);
// Writes the record from the first byte; PasswordConfig stays in memory only.
void GuardarConfigTxt(ModuloPrincipal& m);

// Fills UltPedIm from ultpedim.txt (creating it when absent).
void LeerUltPedIm(ModuloPrincipal& m);
// Writes UltPedIm from the first byte, without a length or a line end.
void GuardarUltPedIm(ModuloPrincipal& m);
