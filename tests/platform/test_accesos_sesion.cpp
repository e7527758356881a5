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
    struct Caso {
        const char* dirs; // user-dirs.dirs, or nullptr for none
        const char* escritorio;
    };
    const Caso casos[] = {
        {nullptr, "Desktop"},
        {"XDG_DESKTOP_DIR=\"$HOME/Escritorio\"\n", "Escritorio"},
        {"# comentario\nXDG_DOWNLOAD_DIR=\"$HOME/Descargas\"\n"
         "XDG_DESKTOP_DIR=\"$HOME/Mesa de trabajo\"\n",
         "Mesa de trabajo"},
        {"XDG_DESKTOP_DIR=\"$HOME/\"\n", "Desktop"}, // no desktop folder of its own
        {"XDG_MUSIC_DIR=\"$HOME/Musica\"\n", "Desktop"},
    };
    for (const Caso& c : casos) {
        QFile::remove(en(".config/user-dirs.dirs"));
        if (c.dirs != nullptr) {
            ASSERT_TRUE(Escribir(en(".config/user-dirs.dirs"), c.dirs));
        }
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
    struct Caso {
        const char* nombre;
        QStringList carpetas; // made before the desk starts
        bool configPropia;    // XDG_CONFIG_HOME set elsewhere
    };
    const Caso casos[] = {
        {"sin carpetas", {}, false},
        {"con carpetas", {"Escritorio", ".config/autostart"}, false},
        {"solo escritorio", {"Escritorio"}, false},
        {"XDG_CONFIG_HOME", {}, true},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.nombre);
        QTemporaryDir h;
        QTemporaryDir config;
        QProcessEnvironment env;
        env.insert(QStringLiteral("HOME"), h.path());
        const QString raizConfig = c.configPropia ? config.path() : h.filePath(".config");
        if (c.configPropia) {
            env.insert(QStringLiteral("XDG_CONFIG_HOME"), config.path());
        }
        ASSERT_TRUE(
            Escribir(raizConfig + "/user-dirs.dirs", "XDG_DESKTOP_DIR=\"$HOME/Escritorio\"\n"));
        for (const QString& carpeta : c.carpetas) {
            QDir(h.path()).mkpath(carpeta);
        }
        e.m.RutaAccesoEscritorio.clear();
        e.m.RutaAccesoInicio.clear();
        accesos::PrepararRutas(e.m, env);
        AgregarInicioWindows(e.m, env);
        EXPECT_EQ(Contenido(h.filePath("Escritorio/TarvimentaPedidos.desktop")), kEntrada);
        EXPECT_EQ(Contenido(raizConfig + "/autostart/TarvimentaPedidos.desktop"), kEntrada);
        EXPECT_FALSE(QFile::exists(h.filePath("Desktop"))) << "no second desktop";
        EXPECT_FALSE(QFile::exists(raizConfig + "/TarvimentaPedidos")) << "no inert file";

        QuitarInicioWindows(e.m, env);
        EXPECT_FALSE(QFile::exists(raizConfig + "/autostart/TarvimentaPedidos.desktop"));
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
