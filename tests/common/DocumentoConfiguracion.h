#pragma once

#include "common/DatosEsperados.h"

#include <QJsonArray>
#include <QJsonObject>

// A document with every key, values chosen to differ from every default.
inline QJsonObject DocumentoConfiguracion() {
    return JsonDatos(QStringLiteral("configuracion_completa.json")).object();
}

inline QByteArray BytesJson(const QJsonObject& o) {
    return QJsonDocument(o).toJson(QJsonDocument::Compact);
}
