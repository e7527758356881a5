#pragma once

#include <QProcessEnvironment>
#include <QString>

class ModuloPrincipal;

// The desk's place in the user's session: an entry on the desktop and an entry that
// starts the desk with the session (XDG desktop entries). The desktop is the user's own
// desktop folder, whatever its name in the session's language; the autostart folder is
// made when the account has none yet. Failures go to LabelInfo
// (ModuloPrincipal::textoInfo) and the desk goes on.
namespace accesos {

struct Rutas {
    QString carpetaEscritorio; // the user's desktop folder
    QString escritorio;        // carpetaEscritorio/TarvimentaPedidos.desktop
    QString carpetaInicio;     // $XDG_CONFIG_HOME/autostart
    QString inicio;            // carpetaInicio/TarvimentaPedidos.desktop
};

// The desktop folder as the session names it: XDG_DESKTOP_DIR of
// $XDG_CONFIG_HOME/user-dirs.dirs ("$HOME/Escritorio" on a Spanish desktop), else
// $HOME/Desktop. XDG_CONFIG_HOME defaults to $HOME/.config.
QString CarpetaEscritorio(const QProcessEnvironment& entorno);

Rutas CalcularRutas(const QProcessEnvironment& entorno);

// Puts the two paths into the module (RutaAccesoEscritorio, RutaAccesoInicio).
void PrepararRutas(ModuloPrincipal& m, const QProcessEnvironment& entorno);

} // namespace accesos

// Writes the desktop entry; its target is always the application folder +
// "/TarvimentaPedidos", whatever the running file is called.
void CrearAccesoEscritorio(ModuloPrincipal& m, const QProcessEnvironment& entorno =
                                                   QProcessEnvironment::systemEnvironment());
// Makes the desk start with the session: a copy of the desktop entry in the autostart
// folder (the desktop entry is made first when missing). A desktop entry that cannot be
// made is reported, and the start-up entry is written all the same.
void AgregarInicioWindows(ModuloPrincipal& m, const QProcessEnvironment& entorno =
                                                  QProcessEnvironment::systemEnvironment());
// Undoes it; the desktop entry stays.
void QuitarInicioWindows(ModuloPrincipal& m, const QProcessEnvironment& entorno =
                                                 QProcessEnvironment::systemEnvironment());
