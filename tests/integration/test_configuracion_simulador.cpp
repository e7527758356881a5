#include "base/ArchivosLocales.h"
#include "base/CifradoAjustes.h"
#include "base/ModuloPrincipal.h"
#include "common/DocumentoConfiguracion.h"
#include "common/EscritorioPrueba.h"
#include "common/SimuladorPrueba.h"
#include "platform/CajaMensajes.h"
#include "platform/Temporizador.h"
#include "settings/FormAdmin.h"
#include "shell/Form1.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

QByteArray Contenido(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<no existe>");
}

QList<SimuladorPrueba::Entrada> De(const QList<SimuladorPrueba::Entrada>& registro,
                                   const QString& ruta, const QString& esquema = {}) {
    QList<SimuladorPrueba::Entrada> r;
    for (const auto& e : registro) {
        if (e.ruta == ruta && (esquema.isEmpty() || e.esquema == esquema)) {
            r.append(e);
        }
    }
    return r;
}

// A desk in this process against the real stand-in service: its own data folder and
// home, real HTTP channels, boxes recorded.
struct DeskEnProceso : ::testing::Test {
    SimuladorPrueba sim;
    // The process's own home is put back after the test.
    const QByteArray homeAnterior = qgetenv("HOME");
    const QByteArray configAnterior = qgetenv("XDG_CONFIG_HOME");
    QTemporaryDir home;
    QTemporaryDir datos;
    ModuloPrincipal m;
    RegistroCajas* cajas = nullptr;
    std::unique_ptr<Form1> f;

    DeskEnProceso() {
        qputenv("HOME", home.path().toUtf8());
        qputenv("XDG_CONFIG_HOME", QDir(home.path()).filePath(".config").toUtf8());
        QDir(home.path()).mkpath(QStringLiteral("Desktop"));
        QDir(home.path()).mkpath(QStringLiteral(".config/autostart"));
        auto c = std::make_unique<RegistroCajas>();
        cajas = c.get();
        m.setCajas(std::move(c));
        m.setServidor(sim.base());
        m.CarpetaDatos = datos.path();
        m.CarpetaAplicacion = QStringLiteral("/opt/tarvimenta");
        f = std::make_unique<Form1>(m, QStringList{QStringLiteral("noactualizar")});
    }
    ~DeskEnProceso() override {
        f->Unload();
        qputenv("HOME", homeAnterior);
        qputenv("XDG_CONFIG_HOME", configAnterior);
    }

    QString enHome(const char* r) const { return QDir(home.path()).filePath(QLatin1String(r)); }
    QByteArray configTxt() const { return Contenido(QDir(datos.path()).filePath("config.txt")); }

    void arrancar() {
        ASSERT_TRUE(sim.enMarcha());
        ASSERT_TRUE(f->Initialize());
        f->show();
        f->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(f.get(), 5000));
        ASSERT_TRUE(m.InicioHecho);
    }
    void entrar(const QString& id, const QString& password, const QString& numero, bool inicio) {
        FormAdmin& a = f->AbrirAdmin();
        a.findChild<QLineEdit*>("txtIdEstablecimiento")->setText(id);
        a.findChild<QLineEdit*>("txtPassword")->setText(password);
        a.findChild<QComboBox*>("ComboNumConfig")->setCurrentText(numero);
        a.findChild<QCheckBox*>("CheckInicioWindows")->setChecked(inicio);
        QTest::mouseClick(a.findChild<QPushButton*>("butAceptar"), Qt::LeftButton);
    }
};

} // namespace

TEST_F(DeskEnProceso, DesdeUnaCarpetaVaciaElLoginDejaConfigTxtYEmpiezaASondear) {
    arrancar();
    // A fresh config.txt of 18 bytes, and both entries made before any login.
    EXPECT_EQ(configTxt(), QByteArray::fromHex("00000000"
                                               "0000"
                                               "0000"
                                               "0000"
                                               "0000"
                                               "0000"
                                               "0000"
                                               "0100"));
    EXPECT_TRUE(QFile::exists(enHome("Desktop/TarvimentaPedidos.desktop")));
    EXPECT_TRUE(QFile::exists(enHome(".config/autostart/TarvimentaPedidos.desktop")));
    EXPECT_FALSE(f->TimerPedidos().enabled());
    EXPECT_FALSE(f->TimerPrimeraConfig().enabled());

    sim.limpiarRegistro();
    entrar(QStringLiteral("7"), QStringLiteral("clave"), QStringLiteral("1"), false);
    EXPECT_TRUE(cajas->cajas().isEmpty());
    ASSERT_NE(f->findChild<FormAdmin*>(), nullptr);
    EXPECT_FALSE(f->findChild<FormAdmin*>()->isVisible());
    EXPECT_EQ(m.NombreEstablecimiento, QStringLiteral("Mesón La Española"));
    EXPECT_EQ(f->findChild<QLineEdit*>("TextEstablecimiento")->text(),
              QStringLiteral("Mesón La Española"));
    // Id 7, empty plain password, no old printer, nothing reserved, "clave" enciphered
    // (ten digits), the start-up entry refused, transport 0, configuration 1.
    EXPECT_EQ(configTxt(), QByteArray::fromHex("07000000"
                                               "0000"
                                               "0000"
                                               "0000"
                                               "0A00") +
                               "5E45DC4D88" +
                               QByteArray::fromHex("0100"
                                                   "0000"
                                                   "0100"));
    EXPECT_FALSE(QFile::exists(enHome(".config/autostart/TarvimentaPedidos.desktop")));
    EXPECT_EQ(Contenido(enHome("Desktop/TarvimentaPedidos.desktop")),
              QByteArray("[Desktop Entry]\nType=Application\nName=TarvimentaPedidos\n"
                         "Exec=\"/opt/tarvimenta/TarvimentaPedidos\"\n"));

    const auto lecturas = De(sim.registro(), QStringLiteral("pedidosgprs/obtenerConfiguracionV2"));
    ASSERT_FALSE(lecturas.isEmpty());
    EXPECT_TRUE(lecturas.last().consulta.startsWith(QStringLiteral(
        "idEstablecimiento=7&passwordconfig=clave&numconfig=1&modeloImpresora=3&fha=")))
        << lecturas.last().consulta.toStdString();

    // Polling at the configured second, with the identity the reading gave.
    ASSERT_TRUE(EsperarHasta(
        [&] { return De(sim.registro(), QStringLiteral("pedidosgprs/pedidosnuevos")).size() >= 3; },
        8000));
    const auto sondeos = De(sim.registro(), QStringLiteral("pedidosgprs/pedidosnuevos"));
    for (const auto& s : sondeos) {
        EXPECT_TRUE(s.consulta.startsWith(QStringLiteral("restid=7&password=pgprs-7&numconfig=1&")))
            << s.consulta.toStdString();
    }
    const qint64 paso = sondeos[2].ms - sondeos[1].ms;
    EXPECT_GE(paso, 800);
    EXPECT_LE(paso, 1600);
    EXPECT_EQ(f->TimerPedidos().interval(), 1000);

    // A later start does not bring the refused entry back.
    LeerConfigTxt(m);
    EXPECT_EQ(m.AccesosCreados, 1);
    m.IdEstablecimiento = 0; // no configuration reading in this second start
    Form1 otra(m, {});
    otra.IniciarPrograma();
    EXPECT_FALSE(QFile::exists(enHome(".config/autostart/TarvimentaPedidos.desktop")));
    EXPECT_TRUE(QFile::exists(enHome("Desktop/TarvimentaPedidos.desktop")));
}

TEST(DeskReal, ConElServicioCaidoPreguntaCadaTresSegundosHastaLaPrimeraLecturaBuena) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    QJsonObject doc = DocumentoConfiguracion();
    doc["intervaloescaneoconfiguracion"] = 0; // only the start-up retry reads
    sim.configurar(7, QStringLiteral("clave"), 1, doc);
    const QString ruta = QStringLiteral("pedidosgprs/obtenerConfiguracionV2");
    sim.fallo(QStringLiteral("status500"), 0, 3, ruta);

    EscritorioPrueba desk;
    {
        // The desk's identity, written the desk's own way.
        ModuloPrincipal preparado;
        preparado.CarpetaDatos = desk.carpeta();
        preparado.IdEstablecimiento = 7;
        preparado.PasswordConfigCifrada =
            CifrarAjuste(QStringLiteral("clave"), ModuloPrincipal::ClaveAjustes);
        preparado.NumConfig = 1;
        preparado.AccesosCreados = 1;
        GuardarConfigTxt(preparado);
    }
    ASSERT_TRUE(desk.iniciar(sim.base(), {QStringLiteral("noactualizar")}));

    // Three refused readings and the good fourth.
    ASSERT_TRUE(EsperarHasta(
        [&] { return De(sim.registro(), ruta, QStringLiteral("http")).size() >= 4; }, 20000));
    const auto lecturas = De(sim.registro(), ruta, QStringLiteral("http"));
    for (int i = 1; i < 4; ++i) {
        const qint64 paso = lecturas[i].ms - lecturas[i - 1].ms;
        EXPECT_GE(paso, 2500) << i;
        EXPECT_LE(paso, 3600) << i;
    }
    ASSERT_TRUE(desk.esperarVentana(
        [](const auto& v) {
            return v.value("TextEstablecimiento").texto == QStringLiteral("Mesón Ñu") &&
                   v.value("TextEstadoConexion").texto == QStringLiteral("En línea");
        },
        5000));
    // Polling now, at the configured 1500 ms, as establishment 7.
    const qint64 exito = lecturas[3].ms;
    ASSERT_TRUE(EsperarHasta(
        [&] {
            int n = 0;
            for (const auto& s : De(sim.registro(), QStringLiteral("pedidosgprs/pedidosnuevos"))) {
                n += s.ms > exito ? 1 : 0;
            }
            return n >= 2;
        },
        6000));
    QList<SimuladorPrueba::Entrada> despues;
    for (const auto& s : De(sim.registro(), QStringLiteral("pedidosgprs/pedidosnuevos"))) {
        if (s.ms > exito) {
            despues.append(s);
            EXPECT_TRUE(s.consulta.startsWith(QStringLiteral("restid=7&password=pg-7&")))
                << s.consulta.toStdString();
        }
    }
    ASSERT_GE(despues.size(), 2);
    EXPECT_GE(despues[1].ms - despues[0].ms, 1300);
    EXPECT_LE(despues[1].ms - despues[0].ms, 2100);
    // The retry has stopped: no reading for well over its three seconds.
    QTest::qWait(3500);
    EXPECT_EQ(De(sim.registro(), ruta, QStringLiteral("http")).size(), 4);
    // The good reading was applied, and the menu read once, right after it.
    const auto cartas = De(sim.registro(), QStringLiteral("establecimiento/carta2"));
    ASSERT_EQ(cartas.size(), 1);
    EXPECT_GE(cartas[0].n, lecturas[3].n);
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^id=7&fha=\\d{13,14}$"))
                    .match(cartas[0].consulta)
                    .hasMatch())
        << cartas[0].consulta.toStdString();
    EXPECT_TRUE(desk.cajas().isEmpty());
}
