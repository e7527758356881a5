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

QString carpetaConfiguracion(const QProcessEnvironment& entorno) {
    const QString config = entorno.value(QStringLiteral("XDG_CONFIG_HOME"));
    return config.isEmpty() ? entorno.value(QStringLiteral("HOME")) + QStringLiteral("/.config")
                            : config;
}

// One line of user-dirs.dirs: XDG_DESKTOP_DIR="$HOME/Escritorio" or an absolute path.
QString leerLineaEscritorio(const QString& linea, const QString& home) {
    static const QString clave = QStringLiteral("XDG_DESKTOP_DIR=");
    const QString t = linea.trimmed();
    if (!t.startsWith(clave)) {
        return {};
    }
    QString valor = t.mid(clave.size());
    if (valor.size() >= 2 && valor.startsWith(u'"') && valor.endsWith(u'"')) {
        valor = valor.mid(1, valor.size() - 2);
    }
    if (valor.startsWith(QStringLiteral("$HOME"))) {
        valor = home + valor.mid(5);
    }
    // Only "$HOME/..." and absolute paths are valid; "$HOME/" alone means no desktop folder.
    if (!valor.startsWith(u'/') || QDir::cleanPath(valor) == QDir::cleanPath(home)) {
        return {};
    }
    return QDir::cleanPath(valor);
}

} // namespace

QString CarpetaEscritorio(const QProcessEnvironment& entorno) {
    const QString home = entorno.value(QStringLiteral("HOME"));
    QFile dirs(carpetaConfiguracion(entorno) + QStringLiteral("/user-dirs.dirs"));
    QString carpeta;
    if (dirs.open(QIODevice::ReadOnly | QIODevice::Text)) {
        while (!dirs.atEnd()) {
            const QString leida = leerLineaEscritorio(QString::fromUtf8(dirs.readLine()), home);
            if (!leida.isEmpty()) {
                carpeta = leida; // the last one counts, as when the file is sourced
            }
        }
    }
    return carpeta.isEmpty() ? home + QStringLiteral("/Desktop") : carpeta;
}

Rutas CalcularRutas(const QProcessEnvironment& entorno) {
    Rutas r;
    r.carpetaEscritorio = CarpetaEscritorio(entorno);
    r.escritorio = r.carpetaEscritorio + QLatin1Char('/') + kNombre + QStringLiteral(".desktop");
    r.carpetaInicio = carpetaConfiguracion(entorno) + QStringLiteral("/autostart");
    r.inicio = r.carpetaInicio + QLatin1Char('/') + kNombre + QStringLiteral(".desktop");
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
    // A fresh account may not have the folder yet.
    QDir().mkpath(QFileInfo(ruta).absolutePath());
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

QByteArray entrada(const ModuloPrincipal& m) {
    const QString destino = m.CarpetaAplicacion + QStringLiteral("/TarvimentaPedidos");
    const QString contenido = QStringLiteral("[Desktop Entry]\nType=Application\n"
                                             "Name=TarvimentaPedidos\nExec=") +
                              comillas(destino) + QLatin1Char('\n');
    return contenido.toUtf8();
}

} // namespace

void CrearAccesoEscritorio(ModuloPrincipal& m, const QProcessEnvironment& entorno) {
    escribir(rutaEscritorio(m, entorno), entrada(m));
}

void AgregarInicioWindows(ModuloPrincipal& m, const QProcessEnvironment& entorno) {
    const accesos::Rutas r = accesos::CalcularRutas(entorno);
    const QString inicio = m.RutaAccesoInicio.isEmpty() ? r.inicio : m.RutaAccesoInicio;
    try {
        const QString escritorio = rutaEscritorio(m, entorno);
        if (!QFileInfo::exists(escritorio)) {
            try {
                CrearAccesoEscritorio(m, entorno);
            } catch (const ErrorEjecucion& e) {
                // No desktop entry: the desk still starts with the session.
                Q_EMIT m.textoInfo(e.descripcion());
                escribir(inicio, entrada(m));
                return;
            }
        }
        QDir().mkpath(QFileInfo(inicio).absolutePath());
        // A copy replaces whatever is there.
        QFile::remove(inicio);
        if (!QFile::copy(escritorio, inicio)) {
            throw ErrorEjecucion(QFileInfo::exists(escritorio)
                                     ? ErrorEjecucion::PermisoDenegado
                                     : ErrorEjecucion::ArchivoNoEncontrado);
        }
    } catch (const ErrorEjecucion& e) {
        Q_EMIT m.textoInfo(e.descripcion());
    }
}

void QuitarInicioWindows(ModuloPrincipal& m, const QProcessEnvironment& entorno) {
    const accesos::Rutas r = accesos::CalcularRutas(entorno);
    const QString inicio = m.RutaAccesoInicio.isEmpty() ? r.inicio : m.RutaAccesoInicio;
    if (QFileInfo::exists(inicio)) {
        QFile::remove(inicio);
    }
}
