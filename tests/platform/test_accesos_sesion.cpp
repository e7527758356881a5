#include "common/Entorno.h"
#include "platform/AccesosSesion.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

QByteArray Contenido(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<no existe>");
}

bool Escribir(const QString& ruta, const QByteArray& texto) {
    QDir().mkpath(QFileInfo(ruta).absolutePath());
    QFile f(ruta);
    return f.open(QIODevice::WriteOnly) && f.write(texto) == texto.size();
}

// A fresh account: its own HOME and nothing else unless a test makes it.
struct AccesosSesion_ : ::testing::Test {
    Entorno e;
    QTemporaryDir home;
    QProcessEnvironment entorno;
    QSignalSpy info{&e.m, &ModuloPrincipal::textoInfo};

    AccesosSesion_() {
        entorno.insert(QStringLiteral("HOME"), home.path());
        e.m.CarpetaAplicacion = QStringLiteral("/opt/tarvi menta");
        e.m.NombreEjecutable = QStringLiteral("TVcopia");
    }
    QString en(const QString& relativa) const { return QDir(home.path()).filePath(relativa); }
};

// What a desktop entry for the fixed target holds, written out by hand.
const QByteArray kEntrada = "[Desktop Entry]\nType=Application\nName=TarvimentaPedidos\n"
                            "Exec=\"/opt/tarvi menta/TarvimentaPedidos\"\n";

} // namespace

TEST_F(AccesosSesion_, ElEscritorioEsElDeLaSesionEnSuIdioma) {
    const struct {
        const char* dirs; // user-dirs.dirs, or none
        const char* escritorio;
    } casos[] = {
        {nullptr, "Desktop"},
        {"XDG_DESKTOP_DIR=\"$HOME/Escritorio\"\n", "Escritorio"},
        {"# c\nXDG_DOWNLOAD_DIR=\"$HOME/D\"\nXDG_DESKTOP_DIR=\"$HOME/Mesa de trabajo\"\n",
         "Mesa de trabajo"},
        {"XDG_DESKTOP_DIR=\"$HOME/\"\n", "Desktop"}, // the home itself: none of its own
    };
    for (const auto& c : casos) {
        QFile::remove(en(".config/user-dirs.dirs"));
        ASSERT_TRUE(c.dirs == nullptr || Escribir(en(".config/user-dirs.dirs"), c.dirs));
        EXPECT_EQ(accesos::CarpetaEscritorio(entorno), en(c.escritorio)) << c.escritorio;
    }
    // An absolute path, read from XDG_CONFIG_HOME.
    QTemporaryDir config;
    entorno.insert(QStringLiteral("XDG_CONFIG_HOME"), config.path());
    ASSERT_TRUE(Escribir(config.filePath("user-dirs.dirs"), "XDG_DESKTOP_DIR=\"/srv/mesa\"\n"));
    const accesos::Rutas r = accesos::CalcularRutas(entorno);
    EXPECT_EQ(r.escritorio, QStringLiteral("/srv/mesa/TarvimentaPedidos.desktop"));
    EXPECT_EQ(r.inicio, config.filePath("autostart/TarvimentaPedidos.desktop"));
}

TEST_F(AccesosSesion_, UnaCuentaNuevaArrancaConLaSesionConYSinSusCarpetas) {
    const struct {
        QStringList carpetas; // made before the desk starts
        bool configPropia;    // XDG_CONFIG_HOME set elsewhere
    } casos[] = {{{}, false}, {{"Escritorio", ".config/autostart"}, false}, {{}, true}};
    for (const auto& c : casos) {
        SCOPED_TRACE(c.carpetas.join(' ').toStdString() + (c.configPropia ? " XDG" : ""));
        QTemporaryDir h;
        QTemporaryDir config;
        QProcessEnvironment env;
        env.insert(QStringLiteral("HOME"), h.path());
        const QString raiz = c.configPropia ? config.path() : h.filePath(".config");
        env.insert(QStringLiteral("XDG_CONFIG_HOME"), raiz);
        ASSERT_TRUE(Escribir(raiz + "/user-dirs.dirs", "XDG_DESKTOP_DIR=\"$HOME/Escritorio\"\n"));
        for (const QString& carpeta : c.carpetas) {
            QDir(h.path()).mkpath(carpeta);
        }
        accesos::PrepararRutas(e.m, env);
        AgregarInicioWindows(e.m, env);
        EXPECT_EQ(Contenido(h.filePath("Escritorio/TarvimentaPedidos.desktop")), kEntrada);
        EXPECT_EQ(Contenido(raiz + "/autostart/TarvimentaPedidos.desktop"), kEntrada);
        EXPECT_FALSE(QFile::exists(h.filePath("Desktop")));
        EXPECT_FALSE(QFile::exists(raiz + "/TarvimentaPedidos")) << "no inert file";
        QuitarInicioWindows(e.m, env);
        EXPECT_FALSE(QFile::exists(raiz + "/autostart/TarvimentaPedidos.desktop"));
        EXPECT_TRUE(QFile::exists(h.filePath("Escritorio/TarvimentaPedidos.desktop")));
    }
    EXPECT_TRUE(info.isEmpty());
}

TEST_F(AccesosSesion_, LaEntradaDelEscritorioSeCopiaTalCualYQuitarDosVecesNoSeQueja) {
    accesos::PrepararRutas(e.m, entorno);
    ASSERT_TRUE(
        Escribir(en("Desktop/TarvimentaPedidos.desktop"), "[Desktop Entry]\nName=A mano\n"));
    AgregarInicioWindows(e.m, entorno);
    EXPECT_EQ(Contenido(en(".config/autostart/TarvimentaPedidos.desktop")),
              QByteArray("[Desktop Entry]\nName=A mano\n"));
    QuitarInicioWindows(e.m, entorno);
    QuitarInicioWindows(e.m, entorno);
    EXPECT_FALSE(QFile::exists(en(".config/autostart/TarvimentaPedidos.desktop")));
    EXPECT_TRUE(info.isEmpty());
}

TEST_F(AccesosSesion_, LosFallosVanALabelInfoYNadaSeRompe) {
    // A file where the desktop folder should be: no desktop entry, but the desk still starts
    // with the session.
    ASSERT_TRUE(Escribir(en("Desktop"), "tapon"));
    accesos::PrepararRutas(e.m, entorno);
    AgregarInicioWindows(e.m, entorno);
    ASSERT_EQ(info.size(), 1);
    EXPECT_EQ(info[0].at(0).toString(), QStringLiteral("No se ha encontrado la ruta de acceso"));
    EXPECT_EQ(Contenido(en(".config/autostart/TarvimentaPedidos.desktop")), kEntrada);

    // A configuration folder that cannot hold the autostart folder (a file in its place).
    QTemporaryDir otro;
    QProcessEnvironment e2;
    e2.insert(QStringLiteral("HOME"), otro.path());
    ASSERT_TRUE(Escribir(QDir(otro.path()).filePath(".config"), "tapon"));
    e.m.RutaAccesoEscritorio.clear();
    e.m.RutaAccesoInicio.clear();
    AgregarInicioWindows(e.m, e2);
    ASSERT_EQ(info.size(), 2);
    EXPECT_EQ(info[1].at(0).toString(), QStringLiteral("Permiso denegado"));
}
