#include "platform/AccesosSesion.h"

#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace accesos {

namespace {
const QString kNombre = QStringLiteral("TarvimentaPedidos");
}

Rutas CalcularRutas(const QProcessEnvironment& entorno) {
    const QString home = entorno.value(QStringLiteral("HOME"));
    QString config = entorno.value(QStringLiteral("XDG_CONFIG_HOME"));
    if (config.isEmpty()) {
        config = home + QStringLiteral("/.config");
    }
    Rutas r;
    r.escritorio = home + QStringLiteral("/Desktop/") + kNombre + QStringLiteral(".desktop");
    r.carpetaInicio = config + QStringLiteral("/autostart");
    r.inicio = r.carpetaInicio + QLatin1Char('/') + kNombre + QStringLiteral(".desktop");
    r.registro = config + QLatin1Char('/') + kNombre + QStringLiteral("/inicio");
    return r;
}

void PrepararRutas(ModuloPrincipal& m, const QProcessEnvironment& entorno) {
    const Rutas r = CalcularRutas(entorno);
    m.RutaAccesoEscritorio = r.escritorio;
    m.RutaAccesoInicio = r.inicio;
}

} // namespace accesos

namespace {

void escribir(const QString& ruta, const QByteArray& contenido) {
    QSaveFile f(ruta);
    if (!f.open(QIODevice::WriteOnly) || f.write(contenido) != contenido.size() || !f.commit()) {
        constexpr int kRutaNoEncontrada = 76;
        throw ErrorEjecucion(QFileInfo(ruta).absoluteDir().exists()
                                 ? ErrorEjecucion::PermisoDenegado
                                 : kRutaNoEncontrada);
    }
}

QString rutaEscritorio(ModuloPrincipal& m, const QProcessEnvironment& entorno) {
    if (m.RutaAccesoEscritorio.isEmpty()) {
        accesos::PrepararRutas(m, entorno);
    }
    return m.RutaAccesoEscritorio;
}

// Exec of a desktop entry: a path with blanks or quotes goes between double quotes.
QString comillas(QString ruta) {
    ruta.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    ruta.replace(QLatin1Char('"'), QLatin1String("\\\""));
    ruta.replace(QLatin1Char('`'), QLatin1String("\\`"));
    ruta.replace(QLatin1Char('$'), QLatin1String("\\$"));
    return QLatin1Char('"') + ruta + QLatin1Char('"');
}

} // namespace

void CrearAccesoEscritorio(ModuloPrincipal& m, const QProcessEnvironment& entorno) {
    const QString destino = m.CarpetaAplicacion + QStringLiteral("/TarvimentaPedidos");
    const QString contenido = QStringLiteral("[Desktop Entry]\nType=Application\n"
                                             "Name=TarvimentaPedidos\nExec=") +
                              comillas(destino) + QLatin1Char('\n');
    escribir(rutaEscritorio(m, entorno), contenido.toUtf8());
}

void AgregarInicioWindows(ModuloPrincipal& m, const QProcessEnvironment& entorno) {
    const accesos::Rutas r = accesos::CalcularRutas(entorno);
    try {
        if (QFileInfo(r.carpetaInicio).isDir()) {
            const QString escritorio = rutaEscritorio(m, entorno);
            if (!QFileInfo::exists(escritorio)) {
                CrearAccesoEscritorio(m, entorno);
            }
            const QString inicio = m.RutaAccesoInicio.isEmpty() ? r.inicio : m.RutaAccesoInicio;
            // A copy replaces whatever is there.
            QFile::remove(inicio);
            if (!QFile::copy(escritorio, inicio)) {
                throw ErrorEjecucion(QFileInfo::exists(escritorio)
                                         ? ErrorEjecucion::PermisoDenegado
                                         : ErrorEjecucion::ArchivoNoEncontrado);
            }
        } else {
            // The fallback line names the running file.
            if (!QDir().mkpath(QFileInfo(r.registro).absolutePath())) {
                throw ErrorEjecucion(ErrorEjecucion::PermisoDenegado);
            }
            escribir(r.registro,
                     (m.CarpetaAplicacion + QLatin1Char('/') + m.NombreEjecutable + '\n').toUtf8());
        }
    } catch (const ErrorEjecucion& e) {
        Q_EMIT m.textoInfo(e.descripcion());
    }
}

void QuitarInicioWindows(ModuloPrincipal& m, const QProcessEnvironment& entorno) {
    const accesos::Rutas r = accesos::CalcularRutas(entorno);
    if (QFileInfo(r.carpetaInicio).isDir()) {
        const QString inicio = m.RutaAccesoInicio.isEmpty() ? r.inicio : m.RutaAccesoInicio;
        if (QFileInfo::exists(inicio)) {
            QFile::remove(inicio);
        }
        return;
    }
    // Errors ignored: a missing line is nothing to remove.
    QFile f(r.registro);
    if (f.open(QIODevice::ReadOnly) && !f.readAll().trimmed().isEmpty()) {
        f.close();
        QFile::remove(r.registro);
    }
}
