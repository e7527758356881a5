// generador_iconos: writes the desk's icon in the sizes of the desktop's icon theme.
//   generador_iconos CARPETA   ->  CARPETA/NxN/apps/tarvimentapedidos.png
#include "shell/Icono_ui.h"

#include <QDir>
#include <QGuiApplication>
#include <cstdio>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        std::fputs("uso: generador_iconos CARPETA\n", stderr);
        return 2;
    }
    for (int lado : {16, 24, 32, 48, 64, 128, 256}) {
        const QString carpeta =
            QStringLiteral("%1/%2x%2/apps").arg(QString::fromLocal8Bit(argv[1])).arg(lado);
        if (!QDir().mkpath(carpeta) ||
            !DibujarIcono(lado).save(carpeta + QStringLiteral("/tarvimentapedidos.png"), "PNG")) {
            std::fprintf(stderr, "generador_iconos: no se puede escribir en %s\n",
                         qPrintable(carpeta));
            return 1;
        }
    }
    return 0;
}
