#include "shell/LineaComandos.h"

#include "platform/CajaMensajes.h"
#include "update/ComprobarActualizacion.h"

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

// Seconds as written ("0.5", "30") to milliseconds; 0 for anything out of range.
int EsperaRedMs(const QString& texto) {
    bool ok = false;
    const double segundos = texto.toDouble(&ok);
    return ok && segundos >= 0.1 && segundos <= 600 ? static_cast<int>(segundos * 1000) : 0;
}

QString carpetaPorDefecto(const QString& carpetaEjecutable) {
    // An installation for the whole system keeps no user's files in its own folder, even
    // when root, who may write there, starts it.
    if (!actualizacion::InstalacionDelSistema(carpetaEjecutable)) {
        return carpetaEjecutable;
    }
    const QString datos = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(datos);
    return datos;
}

struct OpcionConocida {
    const char* nombre;
    const char* valor; // nullptr: the option takes no value
    const char* ayuda;
};

// The options a person may give, in the order the help lists them.
constexpr OpcionConocida kOpciones[] = {
    {"servidor", "HOST[:PUERTO]/RUTA/",
     "el servicio, sin esquema; se prueba https:// y, si falla, http://\n"
     "    (variable TARVIMENTA_SERVIDOR)"},
    {"carpeta", "CARPETA",
     "donde viven config.txt y ultpedim.txt; por defecto la carpeta del\n"
     "    programa si se puede escribir en ella, si no la de datos del usuario\n"
     "    (variable TARVIMENTA_CARPETA)"},
    {"cajas", "ARCHIVO",
     "sin cajas de mensaje en pantalla: cada caja se añade a ARCHIVO\n"
     "    (variable TARVIMENTA_CAJAS)"},
    {"respuestas", "si,no,...",
     "con --cajas, las respuestas a las preguntas, en orden\n"
     "    (variable TARVIMENTA_RESPUESTAS)"},
    {"volcado", "ARCHIVO",
     "mantiene ARCHIVO con lo que muestra la ventana principal\n"
     "    (variable TARVIMENTA_VOLCADO)"},
    {"impresora-pdf", "NOMBRE",
     "una impresora de controlador NOMBRE, tras las del sistema, que escribe\n"
     "    cada ticket en un PDF (se puede repetir)"},
    {"carpeta-pdf", "CARPETA", "donde van esos PDF (por defecto, la carpeta de datos)"},
    {"espera-red", "SEGUNDOS",
     "cuánto espera cada petición la respuesta del servicio, de 0.1 a 600;\n"
     "    fuera de eso, los 60 de siempre"},
    {"help", nullptr, "muestra esta ayuda y termina"},
    {"version", nullptr, "muestra la versión y termina"},
};

} // namespace

QString LineaComandos::TextoAyuda(const QString& programa) {
    QString t = QStringLiteral("Uso: %1 [OPCIÓN]... [noactualizar]\n"
                               "Escritorio de pedidos de Tarvimenta: recibe los pedidos del "
                               "servicio,\nlos presenta, los responde e imprime sus tickets.\n\n"
                               "Opciones:\n")
                    .arg(programa);
    for (const OpcionConocida& o : kOpciones) {
        QString cabeza = QStringLiteral("  --") + QLatin1String(o.nombre);
        if (o.valor != nullptr) {
            cabeza += QLatin1Char('=') + QLatin1String(o.valor);
        }
        t += cabeza + QLatin1Char('\n') + QStringLiteral("    ") + QString::fromUtf8(o.ayuda) +
             QLatin1Char('\n');
    }
    t += QStringLiteral("\nPalabras:\n  noactualizar\n    no busca actualizaciones al arrancar\n");
    return t;
}

PeticionLinea LineaComandos::Revisar(const QStringList& argumentos) {
    const QString programa = argumentos.isEmpty() || argumentos.first().isEmpty()
                                 ? QStringLiteral("TarvimentaPedidos")
                                 : QFileInfo(argumentos.first()).fileName();
    auto error = [&](const QString& que) {
        return PeticionLinea{PeticionLinea::Error,
                             QStringLiteral("%1: %2\nPruebe «%1 --help» para ver las opciones.\n")
                                 .arg(programa, que)};
    };
    PeticionLinea peticion;
    for (qsizetype i = 1; i < argumentos.size(); ++i) {
        const QString& a = argumentos[i];
        if (a == QLatin1String("-h")) {
            peticion.tipo = PeticionLinea::Ayuda;
            continue;
        }
        if (!a.startsWith(QLatin1String("--"))) {
            continue;
        }
        const qsizetype igual = a.indexOf(QLatin1Char('='));
        const QString nombre = a.mid(2, igual < 0 ? -1 : igual - 2);
        const OpcionConocida* conocida = nullptr;
        for (const OpcionConocida& o : kOpciones) {
            if (nombre == QLatin1String(o.nombre)) {
                conocida = &o;
            }
        }
        if (conocida == nullptr) {
            return error(QStringLiteral("opción desconocida «%1»").arg(a));
        }
        if (conocida->valor == nullptr && igual >= 0) {
            return error(QStringLiteral("la opción «--%1» no lleva valor").arg(nombre));
        }
        if (conocida->valor != nullptr && (igual < 0 || igual + 1 == a.size())) {
            return error(QStringLiteral("la opción «--%1» necesita un valor: --%1=%2")
                             .arg(nombre, QLatin1String(conocida->valor)));
        }
        // Help wins over version, wherever each stands.
        if (nombre == QLatin1String("help")) {
            peticion.tipo = PeticionLinea::Ayuda;
        } else if (nombre == QLatin1String("version") && peticion.tipo != PeticionLinea::Ayuda) {
            peticion.tipo = PeticionLinea::Version;
        }
    }
    if (peticion.tipo == PeticionLinea::Ayuda) {
        peticion.texto = TextoAyuda(programa);
    }
    return peticion;
}

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
    l.esperaRedMs = EsperaRedMs(valorOpcion(opciones, QStringLiteral("espera-red")));
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
