// visor_tickets: shows a raw ticket byte stream the way the paper would look.
//   visor_tickets entrada.bin --png salida.png [--texto] [--columnas 48]
#include "DibujoTicket.h"
#include "InterpreteEscPos.h"

#include <QFile>
#include <QGuiApplication>
#include <QStringList>
#include <cstdio>

namespace {

int uso() {
    std::fputs("uso: visor_tickets entrada.bin [--png salida.png] [--texto] [--columnas N]\n"
               "  Al menos una de --png y --texto.\n",
               stderr);
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments().mid(1);
    QString entrada, png;
    bool texto = false;
    int columnas = 48;
    for (int i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        if (a == u"--png" && i + 1 < args.size()) {
            png = args[++i];
        } else if (a == u"--texto") {
            texto = true;
        } else if (a == u"--columnas" && i + 1 < args.size()) {
            bool ok = false;
            columnas = args[++i].toInt(&ok);
            if (!ok || columnas < 8 || columnas > 200) {
                return uso();
            }
        } else if (!a.startsWith(u"--") && entrada.isEmpty()) {
            entrada = a;
        } else {
            return uso();
        }
    }
    if (entrada.isEmpty() || (png.isEmpty() && !texto)) {
        return uso();
    }
    QFile f(entrada);
    if (!f.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "visor_tickets: no se puede leer %s\n", qPrintable(entrada));
        return 1;
    }
    const TicketLeido ticket = InterpretarEscPos(f.readAll());
    for (const QString& aviso : ticket.avisos) {
        std::fprintf(stderr, "visor_tickets: %s\n", qPrintable(aviso));
    }
    if (texto) {
        std::fputs(TextoTicket(ticket, columnas).toUtf8().constData(), stdout);
    }
    if (!png.isEmpty() && !DibujarTicket(ticket, columnas).save(png, "PNG")) {
        std::fprintf(stderr, "visor_tickets: no se puede escribir %s\n", qPrintable(png));
        return 1;
    }
    return 0;
}
