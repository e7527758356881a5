#include "common/CapturaEP.h"
#include "common/Entorno.h"
#include "common/ImpresoraDWGrabadora.h"
#include "common/NumeroDeError.h"
#include "common/ReproductorGrabador.h"
#include "settings/FormCategoriasCocina.h"
#include "settings/FormConfig.h"
#include "settings/FormExtraConfigImpr.h"
#include "settings/FormImpresoras.h"
#include "sound/AlertaSonora.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSysInfo>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace {

// Control `nombre` of panel `slot` (controls of a panel share a name and differ by Index).
template <typename T> T* de(QWidget* ventana, const char* nombre, int slot) {
    for (T* c : ventana->findChildren<T*>(QLatin1String(nombre))) {
        if (c->property("Index").toInt() == slot - 1) {
            return c;
        }
    }
    ADD_FAILURE() << nombre << " " << slot;
    return nullptr;
}

struct Ventanas_ : ::testing::Test {
    Entorno e;
    std::shared_ptr<ReproductorGrabador::Registro> mci =
        std::make_shared<ReproductorGrabador::Registro>();
    Ventanas_() {
        e.m.IdEstablecimiento = 7;
        e.m.PasswordConfig = QStringLiteral("clave");
        e.m.NumConfig = 1;
        e.m.CarpetaAplicacion = QStringLiteral(CARPETA_BIN);
        e.canales.directo->porDefecto = {true, "OK"};
        InstalarGrabadores(e.m.sonido(), mci);
    }
};

} // namespace

TEST_F(Ventanas_, ConfiguracionGeneralSeRellenaFiltraYGuardaConIntro) {
    e.m.TamannoFuentePrincipales = 10;
    e.m.TamannoFuenteListasCheck = 9;
    e.m.TipoReproAudio = 1;
    e.m.VolumenMelodiaWmp = 40;
    e.m.MelodiaPedNuevo = QStringLiteral("ritmo.wav");
    int aplicados = 0;
    FormConfig f(e.m, [&] { ++aplicados; });
    f.show();
    f.IniciarValores();
    auto* melodias = f.findChild<QComboBox*>("ComMelodias");
    ASSERT_EQ(melodias->count(), 32);
    EXPECT_EQ(melodias->itemText(0), QStringLiteral("cuarteto.mp3"));
    EXPECT_EQ(melodias->currentText(), QStringLiteral("ritmo.wav"));
    EXPECT_EQ(melodias->font().pointSize(), 9);
    EXPECT_TRUE(de<QRadioButton>(&f, "OptModoRepro", 2)->isChecked());

    auto* principal = f.findChild<QLineEdit*>("txtTamannoFuentePrinc");
    auto* listas = f.findChild<QLineEdit*>("txtTamannoFuenteListasCheck");
    principal->clear();
    QTest::keyClicks(principal, QStringLiteral("1x4."));
    EXPECT_EQ(principal->text(), QStringLiteral("14"));
    listas->clear();
    QTest::keyClicks(listas, QStringLiteral("1a"));
    EXPECT_EQ(listas->text(), QStringLiteral("1a")); // this one has no filter
    listas->setText(QStringLiteral("12"));

    // Enter in a field saves; a refused size keeps the window up.
    principal->setText(QStringLiteral("17"));
    QTest::keyClick(principal, Qt::Key_Return);
    EXPECT_TRUE(f.isVisible());
    ASSERT_EQ(e.cajas->cajas().size(), 1);
    principal->setText(QStringLiteral("14"));
    QTest::keyClick(principal, Qt::Key_Return);
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(aplicados, 1);
    EXPECT_EQ(e.m.TamannoFuentePrincipales, 14);
    EXPECT_EQ(melodias->font().pointSize(), 12);
    ASSERT_EQ(e.canales.directo->urls.size(), 1);
    EXPECT_TRUE(e.canales.directo->urls[0].contains(
        "&tamannofuenteprincipales=14&tamannofuentelistascheck=12&tiporeproaudio=1"
        "&melodiapednuevo=ritmo%2Ewav&volumenmelodiawmp=40&minimizartrasresp=0&"));

    // Escape leaves without a request.
    f.show();
    QTest::keyClick(listas, Qt::Key_Escape);
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(e.canales.directo->urls.size(), 1);

    e.m.TipoReproAudio = 2;
    EXPECT_EQ(numeroDeError([&] { f.IniciarValores(); }), 340);
}

TEST_F(Ventanas_, LaPruebaDeMelodiaSeParaAlSalirYElBotonQuedaEnStop) {
    e.m.MelodiaPedNuevo = QStringLiteral("corneta.mp3");
    FormConfig f(e.m, {});
    f.show();
    f.IniciarValores();
    auto* play = f.findChild<QPushButton*>("butReproducir");
    f.findChild<QComboBox*>("ComMelodias")->setCurrentText(QStringLiteral("sirena.mp3"));
    QTest::mouseClick(play, Qt::LeftButton);
    EXPECT_EQ(play->text(), QStringLiteral("Stop"));
    ASSERT_EQ(mci->llamadas.size(), 1);
    EXPECT_TRUE(mci->llamadas[0].contains(QStringLiteral("sirena")));
    QTest::mouseClick(f.findChild<QPushButton*>("butCancelar"), Qt::LeftButton);
    EXPECT_FALSE(f.isVisible());
    ASSERT_EQ(mci->llamadas.size(), 2);
    EXPECT_TRUE(mci->llamadas[1].startsWith(QStringLiteral("detener ")));
    EXPECT_FALSE(e.m.sonido().musicaSonando());
    EXPECT_EQ(play->text(), QStringLiteral("Stop"));
    EXPECT_EQ(e.m.MelodiaPedNuevo, QStringLiteral("corneta.mp3"));
}

TEST_F(Ventanas_, ImpresorasListadasElegidasYGuardadas) {
    e.m.setImpresorasDW(std::make_unique<ImpresorasDWGrabadoras>(
        QStringList{QStringLiteral("Caja"), QStringLiteral("Oficina PDF")}));
    ClassConfigImpresora& uno = e.m.Impresora(1);
    uno.TipoImpresion = QStringLiteral("DW");
    uno.NombreImpresora = QStringLiteral("Oficina PDF");
    uno.NumeroCopiasAceptado = 1;
    uno.FactorFuente = 3.8448;
    int refrescos = 0;
    FormImpresoras f(e.m, [&] {
        ++refrescos;
        return true;
    });
    f.CargarDatosImpresora();
    f.show();
    auto* tabs = f.findChild<QTabWidget*>("TabStrip1");
    ASSERT_EQ(tabs->count(), 10);
    EXPECT_EQ(tabs->tabText(6), QStringLiteral("Impresora7"));
    EXPECT_EQ(tabs->tabText(9), QStringLiteral("Impresora 10"));
    auto* com1 = de<QComboBox>(&f, "comImpresora", 1);
    ASSERT_EQ(com1->count(), 3);
    EXPECT_EQ(com1->itemText(0), QStringLiteral("-- Ninguna --"));
    EXPECT_EQ(com1->currentText(), QStringLiteral("Oficina PDF"));
    EXPECT_TRUE(de<QGroupBox>(&f, "frmDriverWindows", 1)->isVisible());
    EXPECT_EQ(de<QLineEdit>(&f, "txtFactorFuente", 1)->text(), QStringLiteral("3,8448"));
    EXPECT_EQ(f.findChildren<QCheckBox*>("CheckCocina").size(), 9);

    // Slot 3: nothing yet. Choosing a printer opens its copies and sets the new defaults.
    tabs->setCurrentIndex(2);
    auto* com3 = de<QComboBox>(&f, "comImpresora", 3);
    EXPECT_FALSE(de<QLineEdit>(&f, "txtNCopiasAceptado", 3)->isEnabled());
    com3->setCurrentIndex(1);
    Q_EMIT com3->activated(1);
    EXPECT_TRUE(de<QLineEdit>(&f, "txtNCopiasAceptado", 3)->isEnabled());
    EXPECT_TRUE(de<QPushButton>(&f, "butExtraConf", 3)->isEnabled());
    EXPECT_TRUE(e.m.Impresora(3).MostrarHoraEntrega);
    QTest::mouseClick(de<QRadioButton>(&f, "OptionESCPOS", 3), Qt::LeftButton);
    EXPECT_TRUE(de<QGroupBox>(&f, "frmESCPOS", 3)->isVisible());
    EXPECT_FALSE(de<QGroupBox>(&f, "frmDriverWindows", 3)->isVisible());
    QTest::mouseClick(de<QRadioButton>(&f, "OptionESCPOS", 3), Qt::LeftButton);
    EXPECT_TRUE(de<QRadioButton>(&f, "OptionESCPOS", 3)->isChecked()); // a second click keeps it
    auto* conexion = de<QLineEdit>(&f, "txtConexion", 3);
    conexion->setText(QStringLiteral("127.0.0.1:9100"));
    // The test page goes out with the panel's values, before any save.
    CapturaEP captura(e.m);
    QTest::mouseClick(de<QPushButton>(&f, "TestImprimirESCPOS", 3), Qt::LeftButton);
    EXPECT_TRUE(
        captura.bytes(QStringLiteral("127.0.0.1:9100")).startsWith("\x1b@\x1bt\x13\x1b!0Caja\n"));
    EXPECT_TRUE(e.canales.directo->urls.isEmpty());

    // The factor takes one comma; a point is typed as one.
    auto* factor = de<QLineEdit>(&f, "txtFactorFuente", 1);
    factor->setText(QStringLiteral("3"));
    factor->setCursorPosition(1);
    QTest::keyClicks(factor, QStringLiteral(".5,2a"));
    EXPECT_EQ(factor->text(), QStringLiteral("3,52"));

    QTest::mouseClick(de<QPushButton>(&f, "Command1", 1), Qt::LeftButton);
    EXPECT_EQ(de<QLineEdit>(&f, "txtConexion", 1)->text(),
              QStringLiteral("\\\\") + QSysInfo::machineHostName() + QStringLiteral("\\"));

    QTest::keyClick(conexion, Qt::Key_Enter);
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(refrescos, 1);
    const QByteArrayList& urls = e.canales.directo->urls;
    ASSERT_EQ(urls.size(), 10);
    EXPECT_TRUE(urls[0].contains("&nombreimpresora=Oficina+PDF&tipoimpresion=DW"));
    EXPECT_TRUE(urls[0].contains("&factorfuente=3.52&"));
    EXPECT_TRUE(urls[2].contains("&nombreimpresora=Caja&tipoimpresion=EP&numerocopiasaceptado=2"
                                 "&numerocopiasaceptadorecoger=-1&numerocopiasrechazado=0"
                                 "&epconexion=127.0.0.1:9100&epnumcolumnas=48&"));
    EXPECT_TRUE(urls[1].contains("eliminarConfigImpresora"));
}

TEST_F(Ventanas_, LasSubventanasEditanLaImpresoraDeSuPanel) {
    ClassConfigImpresora& dos = e.m.Impresora(2);
    dos.TipoImpresion = QStringLiteral("EP");
    dos.NombreImpresora = QStringLiteral("Barra");
    dos.CategoriasIds = QStringLiteral("12");
    dos.FormaEnvio = 2;
    FormImpresoras f(e.m, [] { return true; });
    f.CargarDatosImpresora();
    f.show();
    auto* cocina = de<QCheckBox>(&f, "CheckCocina", 2);
    auto* configurar = de<QPushButton>(&f, "butCocina", 2);
    EXPECT_FALSE(configurar->isEnabled());
    QTest::mouseClick(cocina, Qt::LeftButton);
    EXPECT_TRUE(configurar->isEnabled());
    EXPECT_TRUE(dos.Cocina); // at once, before any save

    e.canales.directo->responder("[{\"id\":11,\"nombre\":\"Entrantes\",\"fechabaja\":null},"
                                 "{\"id\":12,\"nombre\":\"Pizzas\",\"fechabaja\":null},"
                                 "{\"id\":15,\"nombre\":\"Postres\",\"fechabaja\":null}]");
    QTest::mouseClick(configurar, Qt::LeftButton);
    FormCategoriasCocina* cat = f.formCategoriasSiExiste();
    ASSERT_NE(cat, nullptr);
    EXPECT_TRUE(cat->isVisible());
    EXPECT_FALSE(cat->findChild<QCheckBox*>("CheckFEADomicilio")->isChecked());
    EXPECT_TRUE(cat->findChild<QCheckBox*>("CheckFERecogen")->isChecked());
    auto* lista = cat->findChild<QTreeWidget*>("ListViewCategoriasCocina");
    ASSERT_EQ(lista->topLevelItemCount(), 3);
    EXPECT_EQ(lista->topLevelItem(1)->text(1), QStringLiteral("Pizzas"));
    EXPECT_EQ(lista->topLevelItem(1)->checkState(0), Qt::Checked);
    lista->topLevelItem(2)->setCheckState(0, Qt::Checked);
    lista->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
    lista->topLevelItem(0)->setCheckState(0, Qt::Checked);
    cat->findChild<QCheckBox*>("CheckFEADomicilio")->setChecked(true);
    QTest::mouseClick(cat->findChild<QPushButton*>("CommandHecho"), Qt::LeftButton);
    EXPECT_FALSE(cat->isVisible());
    EXPECT_EQ(dos.CategoriasIds, QStringLiteral("11,15"));
    EXPECT_EQ(dos.FormaEnvio, 0);

    QTest::mouseClick(de<QPushButton>(&f, "butExtraConf", 2), Qt::LeftButton);
    FormExtraConfigImpr* extra = f.formExtraSiExiste();
    ASSERT_NE(extra, nullptr);
    EXPECT_TRUE(extra->findChild<QCheckBox*>("CheckPreciosProdCocina")->isVisible());
    EXPECT_FALSE(extra->findChild<QCheckBox*>("CheckMostrarTotalBruto")->isVisible());
    auto* lineas = extra->findChild<QLineEdit*>("TextNumLinBlanIni");
    lineas->clear();
    QTest::keyClicks(lineas, QStringLiteral("1,01"));
    EXPECT_EQ(lineas->text(), QStringLiteral("101"));
    QTest::keyClick(lineas, Qt::Key_Return);
    ASSERT_EQ(e.cajas->cajas().size(), 1);
    EXPECT_EQ(e.cajas->cajas()[0].texto,
              QStringLiteral(
                  "Nº líneas en blanco inicio ticket debe ser un número entero entre 0 y 100"));
    EXPECT_TRUE(extra->isVisible());
    lineas->setText(QStringLiteral("100"));
    QTest::mouseClick(extra->findChild<QPushButton*>("CommandHecho"), Qt::LeftButton);
    EXPECT_FALSE(extra->isVisible());
    EXPECT_EQ(dos.NumLineasBlancoInicio, 100);
}
