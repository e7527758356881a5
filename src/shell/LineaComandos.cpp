#include "shell/LineaComandos.h"

#include "platform/CajaMensajes.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

QString valorOpcion(const QStringList& opciones, const QString& nombre) {
    const QString prefijo = QStringLiteral("--") + nombre + QLatin1Char('=');
    QString valor;
    for (const QString& o : opciones) {
        if (o.startsWith(prefijo)) {
            valor = o.mid(prefijo.size()); // the last one wins
        }
    }
    return valor;
}

QString carpetaPorDefecto(const QString& carpetaEjecutable) {
    if (QFileInfo(carpetaEjecutable).isWritable()) {
        return carpetaEjecutable;
    }
    const QString datos = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(datos);
    return datos;
}

} // namespace

LineaComandos LineaComandos::Leer(const QStringList& argumentos, const QProcessEnvironment& entorno,
                                  const QString& carpetaEjecutable) {
    QStringList opciones;
    QStringList resto;
    for (qsizetype i = 1; i < argumentos.size(); ++i) {
        (argumentos[i].startsWith(QLatin1String("--")) ? opciones : resto).append(argumentos[i]);
    }

    LineaComandos l;
    l.opciones = opciones;
    auto leer = [&](const QString& nombre, const QString& variable) {
        const QString v = valorOpcion(opciones, nombre);
        return v.isEmpty() ? entorno.value(variable) : v;
    };
    l.servidor = leer(QStringLiteral("servidor"), QStringLiteral("TARVIMENTA_SERVIDOR"));
    if (!l.servidor.isEmpty() && !l.servidor.endsWith(QLatin1Char('/'))) {
        l.servidor.append(QLatin1Char('/'));
    }
    l.carpetaDatos = leer(QStringLiteral("carpeta"), QStringLiteral("TARVIMENTA_CARPETA"));
    if (l.carpetaDatos.isEmpty()) {
        l.carpetaDatos = carpetaPorDefecto(carpetaEjecutable);
    } else {
        QDir().mkpath(l.carpetaDatos);
        l.carpetaDatos = QDir(l.carpetaDatos).absolutePath();
    }
    l.volcado = leer(QStringLiteral("volcado"), QStringLiteral("TARVIMENTA_VOLCADO"));
    l.registroCajas = leer(QStringLiteral("cajas"), QStringLiteral("TARVIMENTA_CAJAS"));
    const QString respuestas =
        leer(QStringLiteral("respuestas"), QStringLiteral("TARVIMENTA_RESPUESTAS"));
    for (const QString& r : respuestas.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        l.respuestasCajas.append(r.trimmed().compare(QLatin1String("no"), Qt::CaseInsensitive) == 0
                                     ? respuesta::No
                                     : respuesta::Si);
    }
    const QString prefijoPdf = QStringLiteral("--impresora-pdf=");
    for (const QString& o : opciones) {
        if (o.startsWith(prefijoPdf) && o.size() > prefijoPdf.size()) {
            l.impresorasPdf.append(o.mid(prefijoPdf.size()));
        }
    }
    l.carpetaPdf = valorOpcion(opciones, QStringLiteral("carpeta-pdf"));
    if (l.carpetaPdf.isEmpty()) {
        l.carpetaPdf = l.carpetaDatos;
    }
    // The words are split at single blanks, as the program always read its command line.
    l.palabras = resto.join(QLatin1Char(' ')).split(QLatin1Char(' '));
    if (l.palabras == QStringList{QString()}) {
        l.palabras.clear();
    }
    return l;
}
