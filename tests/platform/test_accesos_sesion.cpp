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

struct AccesosSesion_ : ::testing::Test {
    Entorno e;
    QTemporaryDir home;
    QProcessEnvironment entorno;
    QSignalSpy info{&e.m, &ModuloPrincipal::textoInfo};

    AccesosSesion_() {
        entorno.insert(QStringLiteral("HOME"), home.path());
        e.m.CarpetaAplicacion = QStringLiteral("/opt/tarvi menta");
        e.m.NombreEjecutable = QStringLiteral("TVcopia");
        QDir(home.path()).mkpath(QStringLiteral("Desktop"));
    }
    QString en(const char* relativa) const {
        return QDir(home.path()).filePath(QLatin1String(relativa));
    }
};

// What a desktop entry for the fixed target holds, written out by hand.
const QByteArray kEntrada = "[Desktop Entry]\nType=Application\nName=TarvimentaPedidos\n"
                            "Exec=\"/opt/tarvi menta/TarvimentaPedidos\"\n";

} // namespace

TEST_F(AccesosSesion_, LasRutasSiguenHomeYXdgConfigHome) {
    accesos::Rutas r = accesos::CalcularRutas(entorno);
    EXPECT_EQ(r.escritorio, en("Desktop/TarvimentaPedidos.desktop"));
    EXPECT_EQ(r.inicio, en(".config/autostart/TarvimentaPedidos.desktop"));
    EXPECT_EQ(r.registro, en(".config/TarvimentaPedidos/inicio"));
    entorno.insert(QStringLiteral("XDG_CONFIG_HOME"), QStringLiteral("/x/conf"));
    r = accesos::CalcularRutas(entorno);
    EXPECT_EQ(r.inicio, QStringLiteral("/x/conf/autostart/TarvimentaPedidos.desktop"));
    EXPECT_EQ(r.registro, QStringLiteral("/x/conf/TarvimentaPedidos/inicio"));
}

TEST_F(AccesosSesion_, ConCarpetaDeInicioSeCopiaLaEntradaDelEscritorioYSeQuitaSolaElla) {
    QDir(home.path()).mkpath(QStringLiteral(".config/autostart"));
    accesos::PrepararRutas(e.m, entorno);
    AgregarInicioWindows(e.m, entorno);
    EXPECT_EQ(Contenido(en("Desktop/TarvimentaPedidos.desktop")), kEntrada);
    EXPECT_EQ(Contenido(en(".config/autostart/TarvimentaPedidos.desktop")), kEntrada);
    EXPECT_FALSE(QFile::exists(en(".config/TarvimentaPedidos/inicio")));

    // An existing desktop entry is copied as it stands, not rewritten.
    QFile propia(en("Desktop/TarvimentaPedidos.desktop"));
    ASSERT_TRUE(propia.open(QIODevice::WriteOnly));
    propia.write("[Desktop Entry]\nName=A mano\n");
    propia.close();
    AgregarInicioWindows(e.m, entorno);
    EXPECT_EQ(Contenido(en(".config/autostart/TarvimentaPedidos.desktop")),
              QByteArray("[Desktop Entry]\nName=A mano\n"));

    QuitarInicioWindows(e.m, entorno);
    EXPECT_FALSE(QFile::exists(en(".config/autostart/TarvimentaPedidos.desktop")));
    EXPECT_TRUE(QFile::exists(en("Desktop/TarvimentaPedidos.desktop")));
    QuitarInicioWindows(e.m, entorno); // nothing left to remove: no complaint
    EXPECT_TRUE(info.isEmpty());
}

TEST_F(AccesosSesion_, SinCarpetaDeInicioLaLineaPropiaLlevaElNombreDelEjecutable) {
    accesos::PrepararRutas(e.m, entorno);
    AgregarInicioWindows(e.m, entorno);
    EXPECT_EQ(Contenido(en(".config/TarvimentaPedidos/inicio")),
              QByteArray("/opt/tarvi menta/TVcopia\n"));
    // The desktop entry is not part of this road.
    EXPECT_FALSE(QFile::exists(en("Desktop/TarvimentaPedidos.desktop")));
    EXPECT_FALSE(QFile::exists(en(".config/autostart")));
    QuitarInicioWindows(e.m, entorno);
    EXPECT_FALSE(QFile::exists(en(".config/TarvimentaPedidos/inicio")));
    EXPECT_TRUE(info.isEmpty());
}

TEST_F(AccesosSesion_, LosFallosVanALabelInfoYNadaSeRompe) {
    // No desktop folder: the entry cannot be made, so nothing is copied either.
    QDir(en("Desktop")).removeRecursively();
    QDir(home.path()).mkpath(QStringLiteral(".config/autostart"));
    accesos::PrepararRutas(e.m, entorno);
    AgregarInicioWindows(e.m, entorno);
    ASSERT_EQ(info.size(), 1);
    EXPECT_EQ(info[0].at(0).toString(), QStringLiteral("No se ha encontrado la ruta de acceso"));
    EXPECT_FALSE(QFile::exists(en(".config/autostart/TarvimentaPedidos.desktop")));

    // A configuration folder that cannot hold the fallback line (a file in its place).
    QTemporaryDir otro;
    QProcessEnvironment e2;
    e2.insert(QStringLiteral("HOME"), otro.path());
    QFile tapon(QDir(otro.path()).filePath(QStringLiteral(".config")));
    ASSERT_TRUE(tapon.open(QIODevice::WriteOnly));
    tapon.close();
    AgregarInicioWindows(e.m, e2);
    ASSERT_EQ(info.size(), 2);
    EXPECT_EQ(info[1].at(0).toString(), QStringLiteral("Permiso denegado"));
}
