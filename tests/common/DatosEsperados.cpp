#include "common/DatosEsperados.h"

#include "base/Windows1252.h"

#include <QFile>
#include <QHash>
#include <gtest/gtest.h>

namespace {

// Calls `texto` for each run of plain text and `marca` for each "{...}" of a line.
template <typename Texto, typename Marca>
void Recorrer(const QString& linea, Texto texto, Marca marca) {
    qsizetype desde = 0;
    while (desde < linea.size()) {
        const qsizetype abre = linea.indexOf(u'{', desde);
        const qsizetype cierra = abre < 0 ? -1 : linea.indexOf(u'}', abre);
        if (cierra < 0) {
            texto(linea.mid(desde));
            return;
        }
        if (abre > desde) {
            texto(linea.mid(desde, abre - desde));
        }
        marca(linea.mid(abre + 1, cierra - abre - 1));
        desde = cierra + 1;
    }
}

} // namespace

QStringList LineasDatos(const QString& nombre) {
    QFile f(QStringLiteral(CARPETA_FUENTES "/tests/data/") + nombre);
    if (!f.open(QIODevice::ReadOnly)) {
        ADD_FAILURE() << "cannot read tests/data/" << nombre.toStdString();
        return {};
    }
    QStringList lineas = QString::fromUtf8(f.readAll()).split(u'\n');
    lineas.removeLast(); // what follows the file's last line feed
    lineas.removeIf([](const QString& l) { return l.startsWith(u'#'); });
    return lineas;
}

QJsonDocument JsonDatos(const QString& nombre) {
    QFile f(QStringLiteral(CARPETA_FUENTES "/tests/data/") + nombre);
    QJsonParseError error{};
    const QJsonDocument d =
        QJsonDocument::fromJson(f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray(), &error);
    if (d.isNull()) {
        ADD_FAILURE() << "tests/data/" << nombre.toStdString() << ": "
                      << error.errorString().toStdString();
    }
    return d;
}

QString SinMarcas(const QString& linea) {
    QString r;
    Recorrer(
        linea, [&](const QString& t) { r += t; },
        [&](const QString& m) { r += QChar(m.toUShort(nullptr, 16)); });
    return r;
}

QByteArray TicketEPDatos(const QString& nombre) {
    static const QHash<QString, QByteArray> kComandos = {
        {"INI", QByteArray::fromHex("1b40")},     {"CP", QByteArray::fromHex("1b7413")},
        {"GR", QByteArray::fromHex("1b2130")},    {"NO", QByteArray::fromHex("1b2100")},
        {"SUBIR", QByteArray::fromHex("1b6403")}, {"CORTE", QByteArray::fromHex("1d564200")}};
    QByteArray r;
    for (const QString& linea : LineasDatos(nombre)) {
        bool texto = linea.isEmpty();
        Recorrer(
            linea,
            [&](const QString& t) {
                r += cp1252::aBytes(t);
                texto = true;
            },
            [&](const QString& m) { r += kComandos.value(m, QByteArray::fromHex(m.toLatin1())); });
        if (texto) {
            r += '\n';
        }
    }
    return r;
}
