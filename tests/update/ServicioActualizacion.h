#pragma once

#include "common/SimuladorPrueba.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

// The update side of the stand-in service, for the update tests: what it answers for the
// version and the descriptor, the files it serves, and the cut of the next downloads.
inline bool PonerActualizacion(SimuladorPrueba& sim, const QJsonObject& ajustes) {
    const auto r = sim.peticion("PUT", "/__control/actualizacion",
                                QJsonDocument(ajustes).toJson(QJsonDocument::Compact));
    return r.respondida && r.estado == 200;
}

// Serves `bytes` as descargas/<nombre>, through a file in `dir`.
inline bool ServirFichero(SimuladorPrueba& sim, const QTemporaryDir& dir, const QString& nombre,
                          const QByteArray& bytes) {
    const QString ruta = dir.filePath(QStringLiteral("servido-") + nombre);
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(bytes) != bytes.size()) {
        return false;
    }
    f.close();
    return PonerActualizacion(sim, {{QStringLiteral("ficheros"), QJsonObject{{nombre, ruta}}}});
}

// The bytes of a file; empty when it cannot be read.
inline QByteArray LeerFichero(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

inline QString UrlDescargas(const SimuladorPrueba& sim) {
    return QStringLiteral("http://127.0.0.1:%1/api/descargas/").arg(sim.puerto());
}

inline QByteArray BytesDePrueba(qsizetype n, int semilla) {
    QByteArray b(n, '\0');
    for (qsizetype i = 0; i < n; ++i) {
        b[i] = static_cast<char>((i * 131 + semilla * 17 + (i >> 9)) & 0xFF);
    }
    return b;
}
