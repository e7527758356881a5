#pragma once

#include <QString>
#include <QStringList>

class Procesos;

// The installer of an update archive: where it is unpacked, what is run, and how its end
// is read.
namespace errores_shell {
// The numbers ShellSync raises (as the classic signed 32-bit values).
inline constexpr int SinCodigo = static_cast<int>(0x8004AA00u);
inline constexpr int SinProceso = static_cast<int>(0x8004AA01u);
inline constexpr int NoSeInicia = static_cast<int>(0x8004AA02u);
} // namespace errores_shell

namespace instalador {

// The installer inside the unpacked folder: a shell script, run through /bin/sh so that an
// archive that lost the run bit still installs.
inline const QString NombreInstalador = QStringLiteral("setup.sh");
inline const QString Interprete = QStringLiteral("/bin/sh");
inline const QString NombreRegistro = QStringLiteral("INSTALLTV.LOG");
// Long enough for any installer, short enough that a hung one cannot keep the desk away
// for good.
inline constexpr int EsperaMaximaMs = 30 * 60 * 1000;

// The archive's name with every ".zip" taken out, not only the ending.
QString SinZip(const QString& archivo);
QString CarpetaDesempaquetado(const QString& carpetaAplicacion, const QString& archivo);
QString RutaInstalador(const QString& carpetaAplicacion, const QString& archivo);
QString RutaRegistro(const QString& carpetaAplicacion);

// The installer's words after its path: "/s" and the log's path for a silent install (the
// path only when the log already exists: the short form of a missing file is empty), none
// otherwise.
QStringList Parametros(const QString& instalacionSilenciosa, const QString& carpetaAplicacion);

// Runs the program and waits for its end; its exit code. Throws ErrorEjecucion with the
// numbers above.
int ShellSync(Procesos& procesos, const QString& programa, const QStringList& argumentos,
              const QString& carpeta, int msMax = EsperaMaximaMs);

} // namespace instalador
