#pragma once

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QString>
#include <zip.h>

// Writes a zip archive for a test, each entry with its Unix mode (a name ending in "/" is a
// folder). True when the archive was written.
struct EntradaZip {
    QString nombre;
    QByteArray contenido;
    unsigned modo = 0644;
};

inline bool CrearZip(const QString& ruta, const QList<EntradaZip>& entradas) {
    int error = 0;
    zip_t* z = zip_open(QFile::encodeName(ruta).constData(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    if (z == nullptr) {
        return false;
    }
    for (const EntradaZip& e : entradas) {
        const QByteArray nombre = e.nombre.toUtf8();
        zip_int64_t i;
        if (nombre.endsWith('/')) {
            i = zip_dir_add(z, nombre.constData(), ZIP_FL_ENC_UTF_8);
        } else {
            // The entries' bytes stay alive in `entradas` until zip_close below.
            zip_source_t* s = zip_source_buffer(z, e.contenido.constData(),
                                                static_cast<zip_uint64_t>(e.contenido.size()), 0);
            i = zip_file_add(z, nombre.constData(), s, ZIP_FL_ENC_UTF_8 | ZIP_FL_OVERWRITE);
            if (i < 0) {
                zip_source_free(s);
            }
        }
        if (i < 0 ||
            zip_file_set_external_attributes(z, static_cast<zip_uint64_t>(i), 0, ZIP_OPSYS_UNIX,
                                             (0100000u | e.modo) << 16) != 0) {
            zip_discard(z);
            return false;
        }
    }
    return zip_close(z) == 0;
}
