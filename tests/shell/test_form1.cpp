#include "base/ArchivosLocales.h"
#include "base/CifradoAjustes.h"
#include "common/DatosEsperados.h"
#include "common/DocumentoConfiguracion.h"
#include "common/Entorno.h"
#include "common/ImprimirQString.h"
#include "platform/Controles_ui.h"
#include "platform/Temporizador.h"
#include "products/ListaProductos_ui.h"
#include "settings/FormAdmin.h"
#include "shell/Form1.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace {

struct Form1_ : ::testing::Test {
    Entorno e;
    Form1 f{e.m, {}};

    template <typename T = QWidget> T* control(const char* nombre) {
        auto* c = f.findChild<T*>(QLatin1String(nombre));
        EXPECT_NE(c, nullptr) << nombre;
        return c;
    }
    QString texto(const char* nombre) { return control<QLineEdit>(nombre)->text(); }
    QColor fondo(const char* nombre) { return Fondo(control(nombre)); }

    void activar() {
        f.show();
        f.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&f, 3000));
    }
};

// The main window with an establishment and its credentials, as a configuration reading
// needs them.
struct Form1Configuracion_ : Form1_ {
    Form1Configuracion_() { DarEstablecimiento(e.m, 1); }
    QAction* entrada(const char* nombre) {
        return control<QMenu>("Menu")->findChild<QAction*>(QLatin1String(nombre));
    }
};

} // namespace

TEST_F(Form1_, LosControlesTienenSusTextosYVisibilidadDeDisenno) {
    EXPECT_EQ(f.windowTitle(), QStringLiteral("Tarvimenta"));
    f.show();
    const QStringList filas = LineasDatos(QStringLiteral("form1_controles.txt"));
    ASSERT_FALSE(filas.isEmpty());
    for (const QString& fila : filas) {
        QStringList c = fila.split(u'|');
        ASSERT_EQ(c.size(), 4) << fila.toStdString();
        for (QString& campo : c) {
            campo = campo.trimmed();
        }
        QWidget* w = control(c[0].toLatin1().constData());
        ASSERT_NE(w, nullptr);
        QString visto = w->property("text").toString();
        if (c[1] != u"-") {
            EXPECT_EQ(visto, c[1]) << fila.toStdString();
        }
        if (c[2] != u"-") {
            EXPECT_EQ(w->isVisible(), c[2] == u"1") << fila.toStdString();
        }
        if (c[3] != u"-") {
            EXPECT_EQ(w->isEnabled(), c[3] == u"1") << fila.toStdString();
        }
    }
    auto* menu = control<QMenu>("Menu");
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->title(), QStringLiteral("Menú"));
    QStringList entradas;
    for (QAction* a : menu->actions()) {
        entradas << a->objectName() + QLatin1Char('=') + a->text();
    }
    EXPECT_EQ(entradas, LineasDatos(QStringLiteral("form1_menu.txt")));
}

TEST_F(Form1_, SinEstablecimientoLaPrimeraActivacionSondeaUnaVezYNadaMas) {
    // Every activation reads what is out of stock first.
    e.canales.directo->responder(R"([{"id":7,"nombre":"Flan","pvp":3.5,"fechahoraagotado":"x"}])");
    e.canales.directo->responder("estadoapertura:Abierto");
    activar();
    ASSERT_EQ(e.canales.directo->urls.size(), 2);
    EXPECT_EQ(e.canales.directo->urls[0],
              "https://servidor.prueba/api/pedidosgprs/obtenerProductosAgotados?"
              "idEstablecimiento=0&fha=2026111490507");
    EXPECT_EQ(e.canales.directo->urls[1],
              "https://servidor.prueba/api/pedidosgprs/pedidosnuevos?restid=0&password=&numconfig=0"
              "&modeloImpresora=3&version=1.6.2&printresumenauto=Falso&fha=2026111490507");
    ASSERT_EQ(f.listaAgotados().topLevelItemCount(), 1);
    EXPECT_EQ(f.listaAgotados().topLevelItem(0)->text(1), QStringLiteral("Flan"));
    EXPECT_EQ(f.listaAgotados().topLevelItem(0)->text(2), QStringLiteral("3,5"));
    EXPECT_EQ(f.listaAgotados().headerItem()->text(2), QStringLiteral("Precio"));
    EXPECT_TRUE(e.m.InicioHecho);
    for (const char* t : {"TimerPedidos", "TimerConfig", "TimerPrimeraConfig",
                          "TimerPedActualizado", "TimerMusica"}) {
        EXPECT_FALSE(f.findChild<Temporizador*>(QLatin1String(t))->enabled()) << t;
    }
    EXPECT_EQ(texto("TextEstablecimiento"), QStringLiteral("No configurado"));
    EXPECT_EQ(texto("TextEstadoApertura"), QStringLiteral("Abierto"));
    EXPECT_EQ(fondo("TextEstadoApertura"), ColorVB(65280));
    EXPECT_TRUE(control("butCerrar")->isEnabled());

    // Becoming active again polls only when the configuration asks for it; an unreadable
    // list leaves the main list empty.
    QEvent activacion(QEvent::WindowActivate);
    e.canales.directo->responder("no es una lista");
    QApplication::sendEvent(&f, &activacion);
    EXPECT_EQ(e.canales.directo->urls.size(), 3);
    EXPECT_EQ(f.listaAgotados().topLevelItemCount(), 0);
    e.m.ComprobarPedidoTrasAceptar = true;
    e.canales.directo->responder("[]");
    e.canales.directo->responder("estadoapertura:Abierto");
    QApplication::sendEvent(&f, &activacion);
    EXPECT_EQ(e.canales.directo->urls.size(), 5);
    // Nothing at all while an order waits.
    e.m.PedidoNuevoPendiente = true;
    QApplication::sendEvent(&f, &activacion);
    EXPECT_EQ(e.canales.directo->urls.size(), 5);
}

TEST_F(Form1_, LaPantallaDeConexionSigueALaUltimaPeticion) {
    // (A failed poll's red display is the real gateway's test.)
    e.m.UrlBase = e.m.UrlBaseHttp;
    e.canales.directo->responder("estadoapertura:Cerrado hasta 23:45");
    f.ComprobarPedidosNuevos();
    EXPECT_EQ(texto("TextEstadoConexion"), QStringLiteral("En línea"));
    EXPECT_EQ(fondo("TextEstadoConexion"), ColorVB(65280));
    EXPECT_EQ(texto("TextEstadoApertura"), QStringLiteral("Cerrado hasta 23:45"));
    EXPECT_EQ(fondo("TextEstadoApertura"), ColorVB(65535));
    f.show();
    EXPECT_TRUE(control("butCancelarCerrar")->isVisible());
    EXPECT_FALSE(control("butCerrar")->isVisible());

    e.canales.directo->responder("estadoapertura:Cerrado");
    f.ComprobarPedidosNuevos();
    EXPECT_EQ(fondo("TextEstadoApertura"), ColorVB(255));
    EXPECT_FALSE(control("butCancelarCerrar")->isVisible());
    EXPECT_TRUE(control("butCerrar")->isVisible());
    EXPECT_TRUE(control("butCerrar")->isEnabled());
}

TEST_F(Form1_, CerrarPreguntaYCierraElEstablecimiento) {
    const QString pendiente = QStringLiteral(
        "Hay un pedido o mensaje sin responder, por favor, atienda el pedido/mensaje y luego "
        "cierre el programa si lo desea.");
    const QString seguro = QStringLiteral(
        "¿Está seguro que desea cerrar el programa? Si lo que desea es NO RECIBIR MÁS PEDIDOS POR "
        "UN TIEMPO, por favor, responda No y utilice el botón Cerrar Temporalmente de la "
        "pantalla principal.");
    e.m.RestId = 12;

    e.m.MensajeNuevoPendiente = true;
    EXPECT_FALSE(f.QueryUnload(0));
    ASSERT_EQ(e.cajas->cajas().size(), 1);
    EXPECT_EQ(e.cajas->cajas()[0].texto, pendiente);
    EXPECT_EQ(e.cajas->cajas()[0].estilo, 0);
    e.m.MensajeNuevoPendiente = false;

    e.cajas->responder({respuesta::No});
    EXPECT_FALSE(f.QueryUnload(0));
    ASSERT_EQ(e.cajas->cajas().size(), 2);
    EXPECT_EQ(e.cajas->cajas()[1].texto, seguro);
    EXPECT_EQ(e.cajas->cajas()[1].estilo, 36);
    EXPECT_TRUE(e.canales.directo->urls.isEmpty());

    e.cajas->responder({respuesta::Si});
    e.canales.directo->responder("\"Cerrado\"");
    EXPECT_TRUE(f.QueryUnload(0));
    ASSERT_EQ(e.canales.directo->urls.size(), 1);
    EXPECT_EQ(e.canales.directo->urls[0],
              "https://servidor.prueba/api/establecimiento/"
              "cerrarAbrirEstablecHasta?id=12&accion=C&fha=2026111490507");

    // Establishment 3 is never closed on the way out.
    e.m.RestId = 3;
    e.cajas->responder({respuesta::Si});
    EXPECT_TRUE(f.QueryUnload(0));
    EXPECT_EQ(e.canales.directo->urls.size(), 1);

    // Closing for any other reason asks nothing and sends nothing.
    e.m.PedidoNuevoPendiente = true;
    EXPECT_TRUE(f.QueryUnload(2));
    EXPECT_EQ(e.cajas->cajas().size(), 4);
    EXPECT_EQ(e.canales.directo->urls.size(), 1);
}

TEST_F(Form1_, AplicarConfiguracionArrancaLosTimersEnSuOrden) {
    e.m.NombreEstablecimiento = QStringLiteral("Casa Pepe");
    e.m.IntervaloEscaneoPedido = 1500;
    e.m.IntervaloEscaneoConfiguracion = 0;
    f.TimerConfig().setInterval(9000);
    // The menu is read last.
    e.canales.directo->responder(R"({"categorias":[]})");
    f.AplicarConfiguracion();
    ASSERT_EQ(e.canales.directo->urls.size(), 1);
    EXPECT_EQ(e.canales.directo->urls[0],
              "https://servidor.prueba/api/establecimiento/carta2?id=0&fha=2026111490507");
    EXPECT_EQ(texto("TextEstablecimiento"), QStringLiteral("Casa Pepe"));
    EXPECT_EQ(fondo("TextEstablecimiento"), ColorVB(65280));
    EXPECT_EQ(texto("TextEstadoConexion"), QStringLiteral("En línea"));
    EXPECT_TRUE(f.TimerPedidos().enabled());
    EXPECT_EQ(f.TimerPedidos().interval(), 1500);
    // 0 leaves TimerConfig as it was.
    EXPECT_FALSE(f.TimerConfig().enabled());
    EXPECT_EQ(f.TimerConfig().interval(), 9000);
    EXPECT_TRUE(f.TimerMusica().enabled());
    EXPECT_EQ(f.TimerMusica().interval(), 5000);
    e.m.IntervaloEscaneoConfiguracion = 600;
    f.AplicarConfiguracion();
    EXPECT_TRUE(f.TimerConfig().enabled());
    EXPECT_EQ(f.TimerConfig().interval(), 600);
}

TEST_F(Form1_, TimerConfigLeeSoloCuandoPasaronLosSegundos) {
    e.m.IntervaloEscaneoConfiguracion = 600;
    EXPECT_FALSE(f.UltimaLecturaConfig.isValid());
    f.TimerConfig().disparar();
    const QDateTime primera = e.reloj->ahora();
    EXPECT_EQ(f.UltimaLecturaConfig, primera) << "the first tick always reads";
    e.reloj->avanzarSegundos(599);
    f.TimerConfig().disparar();
    EXPECT_EQ(f.UltimaLecturaConfig, primera);
    e.reloj->avanzarSegundos(1);
    f.TimerConfig().disparar();
    EXPECT_EQ(f.UltimaLecturaConfig, e.reloj->ahora());
    e.reloj->avanzarSegundos(900);
    e.m.PedidoNuevoPendiente = true;
    const QDateTime antes = f.UltimaLecturaConfig;
    f.TimerConfig().disparar();
    EXPECT_EQ(f.UltimaLecturaConfig, antes);
}

TEST_F(Form1_, LaEntradaDeArranqueVuelveEnCadaInicioSalvoSiSeRehuso) {
    const QString entrada = QDir(qEnvironmentVariable("XDG_CONFIG_HOME"))
                                .filePath("autostart/TarvimentaPedidos.desktop");
    for (const qint16 creados : {1, 0}) {
        QFile::remove(entrada);
        e.m.AccesosCreados = creados;
        f.IniciarPrograma();
        EXPECT_EQ(QFile::exists(entrada), creados == 0) << creados;
    }
}

TEST_F(Form1Configuracion_, UnaLecturaBuenaSeAplicaALaVentanaYALosTimers) {
    QJsonObject d = DocumentoConfiguracion();
    d["cancelarsonido"] = 1;
    e.canales.directo->responder(BytesJson(d));
    e.canales.directo->responder(R"({"categorias":[]})");
    f.TimerPrimeraConfig().setInterval(3000);
    f.TimerPrimeraConfig().setEnabled(true);
    // The timers' own rules are the main window's test above; here the reading reaches them.
    ASSERT_TRUE(f.RefrescarConfiguracion());
    EXPECT_EQ(texto("TextEstablecimiento"), QStringLiteral("Mesón Ñu"));
    EXPECT_EQ(f.TimerPedidos().interval(), 1500);
    EXPECT_EQ(f.TimerConfig().interval(), 600);
    EXPECT_FALSE(f.TimerPrimeraConfig().enabled());
    EXPECT_FALSE(entrada("Musica")->isVisible());
    EXPECT_EQ(control<QTreeWidget>("ListViewProductosNoIngredientes")->font().pointSize(), 11);
    d["cancelarsonido"] = 0;
    e.canales.directo->responder(BytesJson(d));
    ASSERT_TRUE(f.RefrescarConfiguracion());
    EXPECT_TRUE(entrada("Musica")->isVisible());
}

TEST_F(Form1Configuracion_, UnaLecturaFallidaNoCambiaNadaYLaPrimeraConfigSigue) {
    // With an establishment, the activation arms the first reading every three seconds.
    activar();
    EXPECT_EQ(f.TimerPrimeraConfig().interval(), 3000);
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
