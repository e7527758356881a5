#include "base/ArchivosLocales.h"
#include "base/CifradoAjustes.h"
#include "common/DocumentoConfiguracion.h"
#include "common/Entorno.h"
#include "platform/Controles_ui.h"
#include "platform/Temporizador.h"
#include "settings/FormAdmin.h"
#include "shell/Form1.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace {

struct Form1Configuracion_ : ::testing::Test {
    Entorno e;
    Form1 f{e.m, {}};

    Form1Configuracion_() {
        e.m.IdEstablecimiento = 7;
        e.m.PasswordConfig = QStringLiteral("clave");
        e.m.NumConfig = 1;
    }
    template <typename T = QWidget> T* control(const char* nombre) {
        return f.findChild<T*>(QLatin1String(nombre));
    }
    QString texto(const char* nombre) { return control<QLineEdit>(nombre)->text(); }
    QAction* entrada(const char* nombre) {
        return control<QMenu>("Menu")->findChild<QAction*>(QLatin1String(nombre));
    }
};

} // namespace

TEST_F(Form1Configuracion_, UnaLecturaBuenaSeAplicaALaVentanaYALosTimers) {
    QJsonObject d = DocumentoConfiguracion();
    d["cancelarsonido"] = 1;
    e.canales.directo->responder(BytesJson(d));
    e.canales.directo->responder(R"({"categorias":[]})");
    f.TimerPrimeraConfig().setInterval(3000);
    f.TimerPrimeraConfig().setEnabled(true);
    ASSERT_TRUE(f.RefrescarConfiguracion());
    EXPECT_EQ(texto("TextEstablecimiento"), QStringLiteral("Mesón Ñu"));
    EXPECT_EQ(Fondo(control("TextEstablecimiento")), ColorVB(65280));
    EXPECT_EQ(texto("TextEstadoConexion"), QStringLiteral("En línea"));
    EXPECT_EQ(Fondo(control("TextEstadoConexion")), ColorVB(65280));
    EXPECT_TRUE(f.TimerPedidos().enabled());
    EXPECT_EQ(f.TimerPedidos().interval(), 1500);
    EXPECT_TRUE(f.TimerConfig().enabled());
    EXPECT_EQ(f.TimerConfig().interval(), 600);
    EXPECT_TRUE(f.TimerMusica().enabled());
    EXPECT_FALSE(f.TimerPrimeraConfig().enabled());
    EXPECT_FALSE(entrada("Musica")->isVisible());
    EXPECT_EQ(control<QTreeWidget>("ListViewProductosNoIngredientes")->font().pointSize(), 11);

    // Interval 0: the configuration timer keeps the interval it had.
    d["intervaloescaneoconfiguracion"] = 0;
    d["cancelarsonido"] = 0;
    e.canales.directo->responder(BytesJson(d));
    ASSERT_TRUE(f.RefrescarConfiguracion());
    EXPECT_EQ(f.TimerConfig().interval(), 600);
    EXPECT_TRUE(f.TimerConfig().enabled());
    EXPECT_TRUE(entrada("Musica")->isVisible());
}

TEST_F(Form1Configuracion_, UnaLecturaFallidaNoCambiaNadaYLaPrimeraConfigSigue) {
    f.TimerPrimeraConfig().setInterval(3000);
    f.TimerPrimeraConfig().setEnabled(true);
    e.canales.directo->responder("{\"status\":500}");
    e.canales.directo->responder("{\"status\":500}");
    EXPECT_FALSE(f.RefrescarConfiguracion());
    EXPECT_TRUE(f.TimerPrimeraConfig().enabled());
    EXPECT_FALSE(f.TimerPedidos().enabled());
    EXPECT_EQ(texto("TextEstablecimiento"), QStringLiteral("No configurado"));
    // The menu entry says so in a box.
    e.cajas->limpiar();
    entrada("Actualizar")->trigger();
    ASSERT_EQ(e.cajas->cajas().size(), 1);
    EXPECT_EQ(e.cajas->cajas()[0].texto,
              QStringLiteral("No se ha podido actualizar la configuración. Por favor, compruebe "
                             "su conexión a Internet."));
    EXPECT_EQ(e.cajas->cajas()[0].estilo, 16);
}

TEST_F(Form1Configuracion_, ElModoCambiaLoQueMuestraLaVentana) {
    f.show();
    struct Caso {
        int modo;
        bool modoVisible;
        const char* textoModo;
        bool cancelarHabilitado;
    };
    for (const Caso& c :
         {Caso{1, true, "Modo impresión", false}, Caso{2, true, "Modo impresión y mensajes", false},
          Caso{0, false, nullptr, true}, Caso{5, false, nullptr, true}}) {
        control<QPushButton>("butCerrar")->setEnabled(true);
        QJsonObject d = DocumentoConfiguracion();
        d["modo"] = c.modo;
        e.canales.directo->responder(BytesJson(d));
        ASSERT_TRUE(f.RefrescarConfiguracion()) << c.modo;
        EXPECT_EQ(control("TextModo")->isVisible(), c.modoVisible) << c.modo;
        EXPECT_EQ(control("TextEstadoApertura")->isVisible(), !c.modoVisible) << c.modo;
        EXPECT_FALSE(control("butCerrar")->isEnabled()) << c.modo;
        EXPECT_EQ(control("butCancelarCerrar")->isEnabled(), c.cancelarHabilitado) << c.modo;
        if (c.textoModo != nullptr) {
            EXPECT_EQ(texto("TextModo"), QString::fromUtf8(c.textoModo));
        }
    }
}

TEST_F(Form1Configuracion_, AdminAbreSiempreLaMismaVentana) {
    entrada("Admin")->trigger();
    auto* admin = f.findChild<FormAdmin*>();
    ASSERT_NE(admin, nullptr);
    EXPECT_TRUE(admin->isVisible());
    admin->close();
    entrada("Admin")->trigger();
    EXPECT_EQ(f.findChildren<FormAdmin*>().size(), 1);
    EXPECT_TRUE(admin->isVisible());
}

TEST_F(Form1Configuracion_, InitializeLeeConfigTxtYUnFalloEsUnaCajaSinMas) {
    e.m.MetconGuardado = 1;
    e.m.IdEstablecimiento = 12;
    e.m.NumConfig = 4;
    e.m.PasswordConfigCifrada = CifrarAjuste(QStringLiteral("abc"), ModuloPrincipal::ClaveAjustes);
    GuardarConfigTxt(e.m);
    Entorno otro;
    otro.m.CarpetaDatos = e.carpeta.path();
    Form1 g(otro.m, {});
    EXPECT_TRUE(g.Initialize());
    EXPECT_EQ(otro.m.PasswordConfig, QStringLiteral("abc"));
    EXPECT_EQ(otro.m.Metcon, 1);
    EXPECT_TRUE(otro.cajas->cajas().isEmpty());

    // config.txt that cannot be opened (a folder of that name): a box that says so, and on.
    Entorno roto;
    ASSERT_TRUE(QDir(roto.carpeta.path()).mkdir(QStringLiteral("config.txt")));
    Form1 h(roto.m, {QStringLiteral("noactualizar")});
    EXPECT_TRUE(h.Initialize());
    ASSERT_EQ(roto.cajas->cajas().size(), 1);
    EXPECT_EQ(roto.cajas->cajas()[0].estilo, estilo::Exclamacion);
    EXPECT_TRUE(roto.cajas->cajas()[0].texto.startsWith(
        QStringLiteral("No se ha podido leer el archivo de configuración config.txt (")))
        << roto.cajas->cajas()[0].texto.toStdString();
    EXPECT_TRUE(roto.m.NoActualizar);
    EXPECT_EQ(roto.m.IdEstablecimiento, 0);
}
