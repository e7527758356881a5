#pragma once

#include <QProcessEnvironment>
#include <QString>

class ModuloPrincipal;

// The desk's place in the user's session: an entry on the desktop and an entry that
// starts the desk with the session (XDG desktop entries). The autostart folder is the
// session's start-up folder; where it does not exist the desk keeps a line of its own
// under its configuration folder instead, naming the running file. Failures go to
// LabelInfo (ModuloPrincipal::textoInfo) and the desk goes on.
namespace accesos {

struct Rutas {
    QString escritorio;    // $HOME/Desktop/TarvimentaPedidos.desktop
    QString inicio;        // $XDG_CONFIG_HOME/autostart/TarvimentaPedidos.desktop
    QString carpetaInicio; // the autostart folder
    QString registro;      // $XDG_CONFIG_HOME/TarvimentaPedidos/inicio: the fallback line
};

// XDG_CONFIG_HOME defaults to $HOME/.config.
Rutas CalcularRutas(const QProcessEnvironment& entorno);

// Puts the two paths into the module (RutaAccesoEscritorio, RutaAccesoInicio).
void PrepararRutas(ModuloPrincipal& m, const QProcessEnvironment& entorno);

} // namespace accesos

// Writes the desktop entry; its target is always the application folder +
// "/TarvimentaPedidos", whatever the running file is called.
void CrearAccesoEscritorio(ModuloPrincipal& m, const QProcessEnvironment& entorno =
                                                   QProcessEnvironment::systemEnvironment());
// Makes the desk start with the session: a copy of the desktop entry in the autostart
// folder (the desktop entry is made first when missing), or else the fallback line.
void AgregarInicioWindows(ModuloPrincipal& m, const QProcessEnvironment& entorno =
                                                  QProcessEnvironment::systemEnvironment());
// Undoes it; the desktop entry stays.
void QuitarInicioWindows(ModuloPrincipal& m, const QProcessEnvironment& entorno =
                                                 QProcessEnvironment::systemEnvironment());
