#include "update/Instalador.h"

#include "update/Procesos.h"

#include <QDir>
#include <QFileInfo>

namespace instalador {

QString SinZip(const QString& archivo) {
    QString nombre = archivo;
    return nombre.remove(QStringLiteral(".zip"));
}

QString CarpetaDesempaquetado(const QString& carpetaAplicacion, const QString& archivo) {
    return QDir(carpetaAplicacion).filePath(SinZip(archivo));
}

QString RutaInstalador(const QString& carpetaAplicacion, const QString& archivo) {
    return QDir(CarpetaDesempaquetado(carpetaAplicacion, archivo)).filePath(NombreInstalador);
}

QString RutaRegistro(const QString& carpetaAplicacion) {
    return QDir(carpetaAplicacion).filePath(NombreRegistro);
}

QStringList Parametros(const QString& instalacionSilenciosa, const QString& carpetaAplicacion) {
    if (instalacionSilenciosa != QLatin1String("true")) {
        return {};
    }
    const QString registro = RutaRegistro(carpetaAplicacion);
    QStringList p{QStringLiteral("/s")};
    if (QFileInfo::exists(registro)) {
        p.append(registro);
    }
    return p;
}

int ShellSync(Procesos& procesos, const QString& programa, const QStringList& argumentos,
              const QString& carpeta, int msMax) {
    return procesos.ejecutarYEsperar(programa, argumentos, carpeta, msMax);
}

} // namespace instalador
