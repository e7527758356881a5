#pragma once

#include <QString>
#include <QStringList>
#include <optional>

class ModuloPrincipal;

// Whether there is a new version, and what the service says about it.
namespace actualizacion {

// The updater copy's name and the main executable's, both in the application folder.
inline const QString NombreActualizador = QStringLiteral("TVU");
inline const QString NombrePrincipal = QStringLiteral("TarvimentaPedidos");

QString RutaUltimaVersion(const ModuloPrincipal& m);
// Note the capitals of the path, unlike the version's.
QString RutaDatosActualizacion(const QString& id, const QString& password);

// A version reply offers an update when it is not "error", has at least five characters
// and is not this program's version (plain text equality: an older version updates too).
bool HayVersionNueva(const QString& respuesta);

// The descriptor "#f0*f1*...#" cut into its fields; nothing when it is not of that form.
std::optional<QStringList> LeerDescriptor(const QString& respuesta);
// Field `i`, or run-time error 9 when the descriptor has fewer.
QString Campo(const QStringList& campos, int i);

// An installation the desk may not rewrite: below /usr (the system's package) or in a
// folder this user cannot write. The package manager updates it.
bool InstalacionDelSistema(const QString& carpetaAplicacion);

enum class Decision { Nada, Lanzar };
// The check, automatic (`manual` false) or from the menu, with every box it shows.
// Lanzar: the caller starts the updater.
Decision Comprobar(ModuloPrincipal& m, bool manual);

} // namespace actualizacion
