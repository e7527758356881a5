#include "update/Actualizador.h"

#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "platform/InstanciaUnica.h"
#include "update/ComprobarActualizacion.h"
#include "update/Descarga.h"
#include "update/Desempaquetado.h"
#include "update/Instalador.h"
#include "update/Procesos.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QUrl>
#include <cstdio>

using actualizacion::Campo;

Actualizador::Actualizador(ModuloPrincipal& m, std::unique_ptr<Procesos> procesos, QObject* padre)
    : QObject(padre), m_(m), procesos_(std::move(procesos)), inet1_(new Descarga(this)),
      inet2_(new Descarga(this)) {
    inet1_->setObjectName(QStringLiteral("Inet1"));
    inet2_->setObjectName(QStringLiteral("Inet2"));
    inet1_->setEjecutable(true);
    for (Descarga* d : {inet1_, inet2_}) {
        connect(d, &Descarga::progreso, this, &Actualizador::progreso);
    }
    connect(inet1_, &Descarga::terminada, this, [this](Descarga::Resultado r, const QString& d) {
        descargaEjecutable(static_cast<int>(r), d);
    });
    connect(inet2_, &Descarga::terminada, this, [this](Descarga::Resultado r, const QString& d) {
        descargaZip(static_cast<int>(r), d);
    });
}

Actualizador::~Actualizador() = default;

QString Actualizador::rutaPrincipal() const {
    return QDir(m_.CarpetaAplicacion).filePath(actualizacion::NombrePrincipal);
}

void Actualizador::terminar() {
    if (Terminar) {
        Terminar();
    }
}

void Actualizador::ComprobarActualizacion(bool manual) {
    if (actualizacion::Comprobar(m_, manual) == actualizacion::Decision::Lanzar) {
        LanzarActualizador();
    }
}

void Actualizador::LanzarActualizador() {
    if (actualizacion::InstalacionDelSistema(m_.CarpetaAplicacion)) {
        return;
    }
    const QDir carpeta(m_.CarpetaAplicacion);
    const QString origen = carpeta.filePath(m_.NombreEjecutable);
    const QString destino = carpeta.filePath(actualizacion::NombreActualizador);
    // Copied beside and renamed over the old copy, so a failed copy leaves no torn updater.
    const QString copia = destino + QStringLiteral(".nuevo");
    QFile::remove(copia);
    const bool copiado =
        QFile::copy(origen, copia) &&
        QFile::setPermissions(copia, QFile::permissions(origen) | QFileDevice::ExeOwner) &&
        std::rename(QFile::encodeName(copia).constData(), QFile::encodeName(destino).constData()) ==
            0;
    if (!copiado || !procesos_->iniciar(destino, QStringList{QString::number(m_.IdEstablecimiento),
                                                             m_.PasswordConfig} +
                                                     OpcionesPasadas)) {
        QFile::remove(copia);
        m_.cajas().exclamacion(
            QStringLiteral("No se ha podido iniciar la actualización: no se puede preparar el "
                           "actualizador en %1. El programa sigue funcionando.")
                .arg(QDir::toNativeSeparators(m_.CarpetaAplicacion)));
        return;
    }
    terminar();
}

void Actualizador::IniciarActualizacion(const QStringList& palabras) {
    Q_EMIT mostrarVentana();
    IdEstablecimientoArg = palabras.value(0);
    PasswordConfigArg = palabras.value(1);
    try {
        const auto campos = actualizacion::LeerDescriptor(m_.ConsultarServidor(
            actualizacion::RutaDatosActualizacion(IdEstablecimientoArg, PasswordConfigArg)));
        if (!campos) {
            // Nothing to install: quietly back to the desk as it was.
            volverSinActualizar();
            return;
        }
        ActualizacionSilenciosa = Campo(*campos, 4);
        InstalacionSilenciosa = Campo(*campos, 5);
        ArchivoActualizacion = Campo(*campos, 2);
        const QString url = Campo(*campos, 1) + ArchivoActualizacion;
        // An archive's name is a file of this folder, never a path out of it.
        const bool zip =
            ArchivoActualizacion.contains(QRegularExpression(QStringLiteral(".zip$"))) &&
            !ArchivoActualizacion.contains(QLatin1Char('/'));
        if (ArchivoActualizacion.contains(QRegularExpression(QStringLiteral(".exe$")))) {
            DescargarEjecutable(url);
        } else if (zip) {
            DescargarZip(url);
        } else {
            m_.cajas().exclamacion(
                QStringLiteral("La actualización ofrecida (%1) no se puede instalar en este "
                               "equipo. El programa se abrirá sin actualizar.")
                    .arg(ArchivoActualizacion));
            volverSinActualizar();
        }
    } catch (const ErrorEjecucion& e) {
        m_.cajas().critico(e.textoInforme());
        volverSinActualizar();
    }
}

void Actualizador::DescargarEjecutable(const QString& url) {
    Q_EMIT progreso(0, -1);
    inet1_->iniciar(QUrl(url), rutaPrincipal());
}

void Actualizador::DescargarZip(const QString& url) {
    Q_EMIT progreso(0, -1);
    inet2_->iniciar(QUrl(url), QDir(m_.CarpetaAplicacion).filePath(ArchivoActualizacion));
}

namespace {
QString TextoDescargaFallida(const QString& detalle) {
    return QStringLiteral("No se ha podido descargar la actualización (%1). El programa se abrirá "
                          "con la versión que ya tenía, que no ha sido modificada.")
        .arg(detalle);
}
} // namespace

void Actualizador::descargaEjecutable(int resultado, const QString& detalle) {
    if (static_cast<Descarga::Resultado>(resultado) != Descarga::Resultado::Completa) {
        m_.cajas().exclamacion(TextoDescargaFallida(detalle));
        volverSinActualizar();
        return;
    }
    Q_EMIT progreso(0, -1);
    FinalizarActualizacion(QStringLiteral("simple"), true);
}

void Actualizador::descargaZip(int resultado, const QString& detalle) {
    if (static_cast<Descarga::Resultado>(resultado) != Descarga::Resultado::Completa) {
        m_.cajas().exclamacion(TextoDescargaFallida(detalle));
        volverSinActualizar();
        return;
    }
    Q_EMIT ocultarVentana();
    Q_EMIT mostrarPrincipal();
    const QString archivo = QDir(m_.CarpetaAplicacion).filePath(ArchivoActualizacion);
    const QString fallo = Desempaquetar(
        archivo, instalador::CarpetaDesempaquetado(m_.CarpetaAplicacion, ArchivoActualizacion));
    if (!fallo.isEmpty()) {
        FinalizarActualizacion(QStringLiteral("completa"), false);
        return;
    }
    EjecutarInstalador();
    Q_EMIT progreso(0, -1);
}

void Actualizador::EjecutarInstalador() {
    const QString carpeta =
        instalador::CarpetaDesempaquetado(m_.CarpetaAplicacion, ArchivoActualizacion);
    bool correcto = false;
    try {
        correcto = instalador::ShellSync(
                       *procesos_, instalador::Interprete,
                       QStringList{
                           instalador::RutaInstalador(m_.CarpetaAplicacion, ArchivoActualizacion)} +
                           instalador::Parametros(InstalacionSilenciosa, m_.CarpetaAplicacion),
                       carpeta) == 0;
    } catch (const ErrorEjecucion&) {
        // An installer that cannot be run is a failed installation: the desk comes back
        // as it was.
        correcto = false;
    }
    FinalizarActualizacion(QStringLiteral("completa"), correcto);
}

void Actualizador::FinalizarActualizacion(const QString& modo, bool correcto) {
    Q_EMIT rotulo(QStringLiteral("Finalizando actualización"));
    if (!correcto) {
        m_.cajas().informacion(QStringLiteral(
            "Vaya, ha ocurrido algo inesperado durante la instalación, póngase en contacto con "
            "Tarvimenta, por favor. Pulse aceptar para abrir el programa sin actualizar ahora."));
        volverSinActualizar();
        return;
    }
    if (ActualizacionSilenciosa != QLatin1String("true")) {
        m_.cajas().informacion(QStringLiteral(
            "La actualización ha finalizado. Pulse aceptar para abrir el programa ahora."));
    }
    if (modo == QLatin1String("completa")) {
        // What cannot be removed stays for the next update to overwrite; it never keeps the
        // desk from coming back.
        QFile::remove(QDir(m_.CarpetaAplicacion).filePath(ArchivoActualizacion));
        QDir(instalador::CarpetaDesempaquetado(m_.CarpetaAplicacion, ArchivoActualizacion))
            .removeRecursively();
    }
    arrancarPrincipal({});
}

void Actualizador::volverSinActualizar() {
    arrancarPrincipal({QStringLiteral("noactualizar")});
}

void Actualizador::arrancarPrincipal(const QStringList& palabras) {
    // The old desk may still be ending: a desk started before it lets go of the data folder
    // would see "another desk" and leave quietly.
    InstanciaUnica::esperarLibre(m_.CarpetaDatos, EsperaDeskAnteriorMs);
    if (!procesos_->iniciar(rutaPrincipal(), palabras + OpcionesPasadas)) {
        m_.cajas().mostrar(QStringLiteral("Se ha producido un error al abrir el programa "
                                          "TarvimentaPedidos, ábralo manualmente por favor."));
    }
    terminar();
}
