#include "sound/RutasArchivo.h"

#include <QFileInfo>

namespace rutas {

int Atributos(const QString& ruta) {
    if (ruta.isEmpty()) {
        return -1;
    }
    const QFileInfo info(ruta);
    if (!info.exists()) {
        return -1;
    }
    int atributos = info.isDir() ? Directorio : Archivo;
    if (info.fileName().startsWith(QLatin1Char('.'))) {
        atributos |= Oculto;
    }
    if (!info.isWritable()) {
        atributos |= SoloLectura;
    }
    return atributos;
}

bool ExisteArchivo(const QString& ruta) {
    const int atributos = Atributos(ruta);
    if (atributos < 0) {
        return false;
    }
    return (atributos & ~Directorio) != 0;
}

QString RutaCorta(const QString& ruta) {
    return QFileInfo::exists(ruta) ? ruta : QString();
}

} // namespace rutas
