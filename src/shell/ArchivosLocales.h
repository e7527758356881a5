#pragma once

#include <QString>

class ModuloPrincipal;

// The two small files the desk keeps beside itself: config.txt (who this desk is) and
// ultpedim.txt (orders already printed in print-only mode). Neither is ever truncated:
// a shorter record leaves the old tail behind it. A file that cannot be opened is a
// run-time error (ErrorEjecucion) of the caller.

// Loads config.txt into the module, creating it when absent; heals an old plain password
// and a configuration number out of 1 to 9.
void LeerConfigTxt(ModuloPrincipal& m);
// Writes the record from the first byte; the plain password is never written.
void GuardarConfigTxt(ModuloPrincipal& m);

void LeerUltPedIm(ModuloPrincipal& m);
void GuardarUltPedIm(ModuloPrincipal& m);

// The settings cipher: a stream cipher whose output never holds a zero byte, as upper-case
// hexadecimal pairs. One transform serves both ways.
QString CifrarAjuste(const QString& texto, const QString& clave);
QString DescifrarAjuste(const QString& texto, const QString& clave);
