#include "update/Desempaquetado.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <memory>
#include <zip.h>

namespace {

struct CerrarZip {
    void operator()(zip_t* z) const { zip_discard(z); }
};
struct CerrarEntrada {
    void operator()(zip_file_t* f) const { zip_fclose(f); }
};

// A relative name that stays below the folder: no leading "/", no "..", no empty step
// other than a trailing one (a folder entry).
bool NombreSeguro(const QString& nombre) {
    if (nombre.isEmpty() || nombre.startsWith(QLatin1Char('/')) ||
        nombre.contains(QLatin1Char('\\'))) {
        return false;
    }
    const QStringList pasos = nombre.split(QLatin1Char('/'));
    for (qsizetype i = 0; i < pasos.size(); ++i) {
        const QString& p = pasos[i];
        if (p == QLatin1String("..") || (p.isEmpty() && i != pasos.size() - 1)) {
            return false;
        }
    }
    return true;
}

QString Extraer(zip_t* zip, zip_uint64_t i, const QString& destino) {
    std::unique_ptr<zip_file_t, CerrarEntrada> entrada(zip_fopen_index(zip, i, 0));
    if (!entrada) {
        return QStringLiteral("no se puede leer %1 del archivo").arg(destino);
    }
    QFile salida(destino);
    if (!salida.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        return QStringLiteral("no se puede escribir %1").arg(destino);
    }
    char bloque[64 * 1024];
    zip_int64_t leidos;
    while ((leidos = zip_fread(entrada.get(), bloque, sizeof bloque)) > 0) {
        if (salida.write(bloque, leidos) != leidos) {
            return QStringLiteral("no se puede escribir %1").arg(destino);
        }
    }
    if (leidos < 0) {
        return QStringLiteral("el archivo está dañado (%1)").arg(destino);
    }
    zip_uint8_t sistema = 0;
    zip_uint32_t atributos = 0;
    if (zip_file_get_external_attributes(zip, i, 0, &sistema, &atributos) == 0 &&
        sistema == ZIP_OPSYS_UNIX && ((atributos >> 16) & 0111) != 0) {
        salida.setPermissions(salida.permissions() | QFileDevice::ExeOwner | QFileDevice::ExeGroup |
                              QFileDevice::ExeOther);
    }
    return salida.flush() ? QString() : QStringLiteral("no se puede escribir %1").arg(destino);
}

} // namespace

QString Desempaquetar(const QString& archivo, const QString& carpeta) {
    int error = 0;
    std::unique_ptr<zip_t, CerrarZip> zip(
        zip_open(QFile::encodeName(archivo).constData(), ZIP_RDONLY | ZIP_CHECKCONS, &error));
    if (!zip) {
        return QStringLiteral("no es un archivo zip válido");
    }
    const zip_int64_t total = zip_get_num_entries(zip.get(), 0);
    QStringList nombres;
    for (zip_int64_t i = 0; i < total; ++i) {
        const char* n = zip_get_name(zip.get(), static_cast<zip_uint64_t>(i), ZIP_FL_ENC_GUESS);
        const QString nombre = n != nullptr ? QString::fromUtf8(n) : QString();
        if (!NombreSeguro(nombre)) {
            return QStringLiteral("el archivo contiene un nombre no permitido: %1").arg(nombre);
        }
        nombres.append(nombre);
    }
    const QDir raiz(carpeta);
    if (!QDir().mkpath(carpeta)) {
        return QStringLiteral("no se puede crear la carpeta %1").arg(carpeta);
    }
    for (zip_int64_t i = 0; i < total; ++i) {
        const QString destino = raiz.filePath(nombres[i]);
        if (nombres[i].endsWith(QLatin1Char('/'))) {
            if (!QDir().mkpath(destino)) {
                return QStringLiteral("no se puede crear la carpeta %1").arg(destino);
            }
            continue;
        }
        if (!QDir().mkpath(QFileInfo(destino).absolutePath())) {
            return QStringLiteral("no se puede crear la carpeta de %1").arg(destino);
        }
        const QString fallo = Extraer(zip.get(), static_cast<zip_uint64_t>(i), destino);
        if (!fallo.isEmpty()) {
            return fallo;
        }
    }
    return {};
}
