// visor_tickets: shows a raw ticket byte stream the way the paper would look.
//   visor_tickets entrada.bin --png salida.png [--texto] [--columnas 48]
//   visor_tickets --carpeta CARPETA     a window with every ticket of a printers' folder
#include "DibujoTicket.h"
#include "InterpreteEscPos.h"
#include "VentanaTickets.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <cstdio>
#include <cstring>

namespace {

int uso() {
    std::fputs("uso: visor_tickets entrada.bin [--png salida.png] [--texto] [--columnas N]\n"
               "  Al menos una de --png y --texto.\n"
               "     visor_tickets --carpeta CARPETA\n"
               "  Una ventana con cada ticket de CARPETA según se imprime.\n",
               stderr);
    return 2;
}

} // namespace

// The window beside the desk, at the right edge of the screen and as tall as it.
int ventana(int argc, char** argv, const QString& carpeta) {
    QApplication app(argc, argv);
    if (!QFileInfo(carpeta).isDir()) {
        std::fprintf(stderr, "visor_tickets: no existe la carpeta %s\n", qPrintable(carpeta));
        return 1;
    }
    VentanaTickets v(carpeta);
    const QRect pantalla = QApplication::primaryScreen()->availableGeometry();
    v.resize(v.minimumWidth(), pantalla.height() - 40);
    v.move(pantalla.right() - v.frameGeometry().width() - 4, pantalla.top());
    v.show();
    return QApplication::exec();
}

int main(int argc, char** argv) {
    for (int i = 1; i + 1 < argc; ++i) {
        if (std::strcmp(argv[i], "--carpeta") == 0) {
            return argc == 3 ? ventana(argc, argv, QString::fromLocal8Bit(argv[i + 1])) : uso();
        }
    }
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
