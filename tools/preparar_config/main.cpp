// preparar_config: writes config.txt into a desk's data folder, so that the desk starts
// already bound to an establishment (the demo's restaurant by default) and with the
// start-up entry refused, leaving the user's session alone.
//
//   preparar_config --carpeta=DIR [--id=7] [--password=clave] [--numconfig=1]
#include "base/ArchivosLocales.h"
#include "base/CifradoAjustes.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"

#include <QCoreApplication>
#include <QDir>
#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QString carpeta;
    QString id = QStringLiteral("7");
    QString password = QStringLiteral("clave");
    QString numconfig = QStringLiteral("1");
    for (const QString& a : QCoreApplication::arguments().mid(1)) {
        const auto valor = [&a](const char* nombre, QString& destino) {
            const QString prefijo = QLatin1String(nombre) + QLatin1Char('=');
            if (!a.startsWith(prefijo)) {
                return false;
            }
            destino = a.mid(prefijo.size());
            return true;
        };
        if (!valor("--carpeta", carpeta) && !valor("--id", id) && !valor("--password", password) &&
            !valor("--numconfig", numconfig)) {
            std::fprintf(stderr, "preparar_config: opción desconocida: %s\n", qPrintable(a));
            return 2;
        }
    }
    bool idOk = false;
    bool numOk = false;
    const int numeroId = id.toInt(&idOk);
    const int numero = numconfig.toInt(&numOk);
    if (carpeta.isEmpty() || !idOk || numeroId < 1 || !numOk || numero < 1 || numero > 9) {
        std::fprintf(stderr, "uso: preparar_config --carpeta=DIR [--id=N>=1] [--password=P] "
                             "[--numconfig=1..9]\n");
        return 2;
    }
    ModuloPrincipal m;
    m.CarpetaDatos = carpeta;
    m.IdEstablecimiento = numeroId;
    m.PasswordConfigCifrada = CifrarAjuste(password, ModuloPrincipal::ClaveAjustes);
    m.NumConfig = static_cast<qint16>(numero);
    m.AccesosCreados = 1;
    try {
        QDir().mkpath(carpeta);
        GuardarConfigTxt(m);
    } catch (const ErrorEjecucion& e) {
        std::fprintf(stderr, "preparar_config: %s\n", qPrintable(e.descripcion()));
        return 1;
    }
    return 0;
}
