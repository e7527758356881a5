#include "ListaTickets.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>

namespace {

// The copy number of a raw ticket or the k of a PDF, so that two tickets of the same second
// still come newest first.
struct Clave {
    QDateTime cuando;
    qint64 numero = 0;
};

QString nombreLegible(QString nombre) {
    return nombre.replace(QLatin1Char('_'), QLatin1Char(' '));
}

} // namespace

QList<TicketEnCarpeta> ListarTickets(const QString& carpeta) {
    static const QRegularExpression copiaEP(QStringLiteral("^(.+)-(\\d+)\\.ep$"));
    static const QRegularExpression documento(
        QStringLiteral("^(.+)-(\\d{8}-\\d{6})(?:-(\\d+))?\\.pdf$"));

    QList<std::pair<TicketEnCarpeta, Clave>> hallados;
    QSet<QString> conCopias;
    QList<QFileInfo> binarios;
    const QDir dir(carpeta);
    for (const QFileInfo& f : dir.entryInfoList(QDir::Files, QDir::Name)) {
        if (f.size() == 0) {
            continue; // still being written
        }
        const QString nombre = f.fileName();
        TicketEnCarpeta t;
        t.archivo = f.absoluteFilePath();
        t.cuando = f.lastModified();
        Clave clave{t.cuando, 0};
        if (const auto m = copiaEP.match(nombre); m.hasMatch()) {
            t.impresora = nombreLegible(m.captured(1));
            clave.numero = m.captured(2).toLongLong();
            conCopias.insert(m.captured(1));
        } else if (const auto d = documento.match(nombre); d.hasMatch()) {
            t.impresora = nombreLegible(d.captured(1));
            t.pdf = true;
            clave.numero = d.captured(3).isEmpty() ? 1 : d.captured(3).toLongLong();
            const QString imagen = dir.filePath(f.completeBaseName() + QStringLiteral(".png"));
            if (QFileInfo(imagen).size() > 0) {
                t.imagen = imagen;
            }
        } else if (f.suffix() == QLatin1String("bin")) {
            binarios.append(f);
            continue;
        } else {
            continue;
        }
        hallados.append({t, clave});
    }
    for (const QFileInfo& f : binarios) {
        if (!conCopias.contains(f.completeBaseName())) {
            TicketEnCarpeta t;
            t.impresora = nombreLegible(f.completeBaseName());
            t.archivo = f.absoluteFilePath();
            t.cuando = f.lastModified();
            hallados.append({t, Clave{t.cuando, 0}});
        }
    }
    std::stable_sort(hallados.begin(), hallados.end(), [](const auto& a, const auto& b) {
        if (a.second.cuando != b.second.cuando) {
            return a.second.cuando > b.second.cuando;
        }
        return a.second.numero > b.second.numero;
    });
    QList<TicketEnCarpeta> r;
    r.reserve(hallados.size());
    for (auto& h : hallados) {
        r.append(std::move(h.first));
    }
    return r;
}
