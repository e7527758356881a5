// TarvimentaPedidos: the order desk. Reads its command line, builds the one
// ModuloPrincipal, and hands over to the main window and the event loop.
#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "platform/CajaMensajesQt_ui.h"
#include "platform/DiarioSistema.h"
#include "platform/EncajeVentanas_ui.h"
#include "platform/InstanciaUnica.h"
#include "platform/SalidaAudioQt_ui.h"
#include "platform/SenalesTerminacion.h"
#include "printing/ImpresoraDWQt_ui.h"
#include "printing/ImpresorasDWPdf_ui.h"
#include "server/Pasarela.h"
#include "shell/Form1.h"
#include "shell/Icono_ui.h"
#include "shell/LineaComandos.h"
#include "update/Actualizador.h"
#include "update/ComprobarActualizacion.h"

#include <QApplication>
#include <QFileInfo>
#include <cstdio>
#include <optional>

int main(int argc, char** argv) {
    // Help, version and mistakes are answered before any window system is needed.
    QStringList argumentos;
    for (int i = 0; i < argc; ++i) {
        argumentos.append(QString::fromLocal8Bit(argv[i]));
    }
    const PeticionLinea peticion = LineaComandos::Revisar(argumentos);
    switch (peticion.tipo) {
    case PeticionLinea::Ayuda:
        std::fputs(peticion.texto.toUtf8().constData(), stdout);
        return 0;
    case PeticionLinea::Version:
        std::printf("TarvimentaPedidos %s\n", qPrintable(ModuloPrincipal::Version));
        return 0;
    case PeticionLinea::Error:
        std::fputs(peticion.texto.toUtf8().constData(), stderr);
        return 2;
    case PeticionLinea::Arrancar:
        break;
    }
    // Journal lines carry the time, for support; QT_MESSAGE_PATTERN still wins.
    qSetMessagePattern(QStringLiteral("%{time yyyy-MM-dd hh:mm:ss} %{category}: %{message}"));
    diario::Instalar();
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("TarvimentaPedidos"));
    QApplication::setQuitOnLastWindowClosed(false);
    // The name of the installed menu entry, so a desktop groups the windows under its icon.
    QGuiApplication::setDesktopFileName(QStringLiteral("tarvimentapedidos"));
    QApplication::setWindowIcon(IconoAplicacion());
    // Every window opens whole and centred on its screen, whatever its size and fonts.
    EncajeVentanas encaje;
    app.installEventFilter(&encaje);

    const LineaComandos linea =
        LineaComandos::Leer(QApplication::arguments(), QProcessEnvironment::systemEnvironment(),
                            QApplication::applicationDirPath());
    ModuloPrincipal m;
    m.CarpetaAplicacion = QApplication::applicationDirPath();
    m.NombreEjecutable = QFileInfo(QApplication::applicationFilePath()).completeBaseName();
    m.CarpetaDatos = linea.carpetaDatos;
    if (!linea.servidor.isEmpty()) {
        m.setServidor(linea.servidor);
    }
    if (linea.esperaRedMs > 0) {
        m.pasarela().setEsperaRed(linea.esperaRedMs);
    }
    if (!linea.registroCajas.isEmpty()) {
        // A desk without a person in front of it (tests, demos): boxes are written to a file.
        auto registro = std::make_unique<RegistroCajas>(linea.registroCajas);
        registro->responder(linea.respuestasCajas);
        m.setCajas(std::move(registro));
    } else {
        m.setCajas(std::make_unique<CajaMensajesQt>());
    }

    if (linea.impresorasPdf.isEmpty()) {
        m.setImpresorasDW(std::make_unique<ImpresorasDWQt>());
    } else {
        m.setImpresorasDW(std::make_unique<ImpresorasDWConPdf>(
            std::make_unique<ImpresorasDWQt>(), linea.impresorasPdf, linea.carpetaPdf));
    }

    // A second start of the same installation ends at once, silently. The updater copy
    // runs while the desk that started it is still ending, so it takes no part in this.
    std::optional<InstanciaUnica> instancia;
    if (m.NombreEjecutable != actualizacion::NombreActualizador) {
        instancia.emplace(m.CarpetaDatos);
        if (instancia->hayOtra()) {
            return 0;
        }
    }

    Form1 form1(m, linea.palabras);
    form1.setVolcado(linea.volcado);
    form1.actualizador().OpcionesPasadas = linea.opciones;
    if (!form1.Initialize()) {
        return 0;
    }
    // Stopped by the system: close as at the end of a session, without a question.
    SenalesTerminacion senales;
    QObject::connect(&senales, &SenalesTerminacion::terminar, &form1, [&form1] {
        if (form1.QueryUnload(2)) {
            form1.Unload();
        }
    });
    if (!m.ModoActualizador) {
        form1.vigilarSonido(std::make_unique<SalidaAudioSistema>());
        form1.show();
        form1.activateWindow();
    }
    form1.volcar();
    return QApplication::exec();
}
