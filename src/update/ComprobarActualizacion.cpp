#include "update/ComprobarActualizacion.h"

#include "base/ArchivosLocales.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "server/TextoServidor.h"

#include <QDir>
#include <QFileInfo>

namespace actualizacion {

QString RutaUltimaVersion(const ModuloPrincipal& m) {
    return QStringLiteral("pedidosgprs/obtenerUltimaVersionVB?idEstablecimiento=") +
           QString::number(m.IdEstablecimiento) + QStringLiteral("&passwordconfig=") +
           m.PasswordConfig;
}

QString RutaDatosActualizacion(const QString& id, const QString& password) {
    return QStringLiteral("pedidosGPRS/obtenerDatosActualizacionVB?idEstablecimiento=") + id +
           QStringLiteral("&passwordconfig=") + password;
}

bool HayVersionNueva(const QString& respuesta) {
    return respuesta != QLatin1String("error") && respuesta.size() >= 5 &&
           respuesta != ModuloPrincipal::Version;
}

std::optional<QStringList> LeerDescriptor(const QString& respuesta) {
    if (!EsLineaPedido(respuesta)) {
        return std::nullopt;
    }
    return respuesta.mid(1, respuesta.size() - 2).split(QLatin1Char('*'));
}

QString Campo(const QStringList& campos, int i) {
    if (i >= campos.size()) {
        throw ErrorEjecucion(ErrorEjecucion::SubindiceFueraDeIntervalo);
    }
    return campos[i];
}

bool InstalacionDelSistema(const QString& carpetaAplicacion) {
    const QString carpeta = QDir::cleanPath(QFileInfo(carpetaAplicacion).absoluteFilePath());
    return carpeta.startsWith(QLatin1String("/usr/")) || !QFileInfo(carpeta).isWritable();
}

Decision Comprobar(ModuloPrincipal& m, bool manual) {
    if (!manual && m.NoActualizar) {
        return Decision::Nada;
    }
    if (InstalacionDelSistema(m.CarpetaAplicacion)) {
        // Nothing to offer: this copy is the system's, and only its package manager may
        // replace it.
        if (manual) {
            m.cajas().informacion(QStringLiteral(
                "Este programa está instalado para todo el equipo y se actualiza con el gestor "
                "de paquetes del sistema, no desde aquí."));
        }
        return Decision::Nada;
    }
    if (m.IdEstablecimiento == 0) {
        LeerConfigTxt(m);
        if (!manual && m.IdEstablecimiento < 1) {
            return Decision::Nada;
        }
    }
    const QString version = m.ConsultarServidor(RutaUltimaVersion(m));
    if (version == QLatin1String("error") && manual) {
        m.cajas().critico(QStringLiteral("No se ha podido comprobar si hay actualizaciones. Por "
                                         "favor, compruebe su conexión a Internet."));
    }
    if (HayVersionNueva(version)) {
        const auto campos = LeerDescriptor(m.ConsultarServidor(
            RutaDatosActualizacion(QString::number(m.IdEstablecimiento), m.PasswordConfig)));
        if (!campos) {
            return Decision::Nada;
        }
        if (Campo(*campos, 3) == QLatin1String("true")) {
            return Decision::Lanzar;
        }
        return m.cajas().preguntarSiNo(QStringLiteral(
                   "Hay una nueva actualización disponible, le recomendamos actualizar el "
                   "programa ahora, pulse Sí para iniciar la actualización."))
                   ? Decision::Lanzar
                   : Decision::Nada;
    }
    if (!manual) {
        return Decision::Nada;
    }
    return m.cajas().preguntarSiNo(
               QStringLiteral("Ya tiene la última versión, no es necesario actualizar ¿desea en "
                              "cualquier caso actualizar el programa?"))
               ? Decision::Lanzar
               : Decision::Nada;
}

} // namespace actualizacion
