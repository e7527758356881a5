// What the settings windows add to their logic: filling, key filters, Enter and Escape, the
// record written at once by a tick, and the buttons that reach the sub-windows and the printer.
// A printer saved against the service is in integration/test_ajustes_simulador.cpp.
#include "common/CapturaEP.h"
#include "common/ControlDeHueco.h"
#include "common/Entorno.h"
#include "common/ImpresoraDWGrabadora.h"
#include "common/ImpresoraEPDeSerie.h"
#include "common/NumeroDeError.h"
#include "common/ReproductorGrabador.h"
#include "settings/FormConfig.h"
#include "settings/FormExtraConfigImpr.h"
#include "settings/FormImpresoras.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct Ventanas_ : ::testing::Test {
    Entorno e;
    Ventanas_() {
        e.m.IdEstablecimiento = 7;
        e.m.CarpetaAplicacion = QStringLiteral(CARPETA_BIN);
        e.canales.directo->porDefecto = {true, "OK"};
        InstalarGrabadores(e.m.sonido(), std::make_shared<ReproductorGrabador::Registro>());
    }
};

} // namespace

TEST_F(Ventanas_, ConfiguracionGeneralSeRellenaFiltraYGuardaConIntro) {
    e.m.TamannoFuentePrincipales = 10;
    e.m.TamannoFuenteListasCheck = 9;
    e.m.TipoReproAudio = 1;
    e.m.MelodiaPedNuevo = QStringLiteral("ritmo.wav");
    int aplicados = 0;
    FormConfig f(e.m, [&] { ++aplicados; });
    f.show();
    f.IniciarValores();
    auto* melodias = f.findChild<QComboBox*>("ComMelodias");
    EXPECT_EQ(melodias->currentText(), QStringLiteral("ritmo.wav"));
    EXPECT_EQ(melodias->font().pointSize(), 9);
    EXPECT_TRUE(ControlDeHueco<QRadioButton>(&f, "OptModoRepro", 2)->isChecked());

    auto* principal = f.findChild<QLineEdit*>("txtTamannoFuentePrinc");
    auto* listas = f.findChild<QLineEdit*>("txtTamannoFuenteListasCheck");
    principal->clear();
    QTest::keyClicks(principal, QStringLiteral("1x7."));
    EXPECT_EQ(principal->text(), QStringLiteral("17"));
    listas->clear();
    QTest::keyClicks(listas, QStringLiteral("1a"));
    EXPECT_EQ(listas->text(), QStringLiteral("1a")); // this one has no filter
    listas->setText(QStringLiteral("12"));

    // Enter in a field saves; a refused size keeps the window up.
    QTest::keyClick(principal, Qt::Key_Return);
    EXPECT_TRUE(f.isVisible());
    EXPECT_EQ(e.cajas->cajas().size(), 1);
    principal->setText(QStringLiteral("14"));
    QTest::keyClick(principal, Qt::Key_Return);
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(aplicados, 1);
    EXPECT_EQ(melodias->font().pointSize(), 12);
    EXPECT_EQ(e.canales.directo->urls.size(), 1);

    // Escape leaves without a request.
    f.show();
    QTest::keyClick(listas, Qt::Key_Escape);
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(e.canales.directo->urls.size(), 1);

    e.m.TipoReproAudio = 2;
    EXPECT_EQ(numeroDeError([&] { f.IniciarValores(); }), 340);
}

TEST_F(Ventanas_, PanelesDeImpresora) {
    e.m.Impresora(2) = ImpresoraEPDeSerie(QStringLiteral("Barra"), QStringLiteral("COM2"));
    FormImpresoras f(e.m, [] { return true; });
    f.CargarDatosImpresora();
    f.show();
    auto* tabs = f.findChild<QTabWidget*>("TabStrip1");
    EXPECT_EQ(tabs->tabText(6), QStringLiteral("Impresora7"));
    EXPECT_EQ(f.findChildren<QCheckBox*>("CheckCocina").size(), 9);
    EXPECT_FALSE(ControlDeHueco<QGroupBox>(&f, "frmESCPOS", 2)->isHidden());
    EXPECT_TRUE(ControlDeHueco<QGroupBox>(&f, "frmDriverWindows", 2)->isHidden());
    EXPECT_FALSE(ControlDeHueco<QLineEdit>(&f, "txtNCopiasAceptado", 3)->isEnabled());

    // A second click on the chosen type keeps it chosen.
    tabs->setCurrentIndex(2);
    auto* dw = ControlDeHueco<QRadioButton>(&f, "OptionDriversWindows", 3);
    QTest::mouseClick(dw, Qt::LeftButton);
    QTest::mouseClick(dw, Qt::LeftButton);
    EXPECT_TRUE(dw->isChecked());
    EXPECT_TRUE(ControlDeHueco<QGroupBox>(&f, "frmDriverWindows", 3)->isVisible());
    tabs->setCurrentIndex(1);

    // The factor takes one comma, a point is typed as one; copies take digits only.
    auto* factor = ControlDeHueco<QLineEdit>(&f, "txtFactorFuente", 3);
    factor->clear();
    QTest::keyClicks(factor, QStringLiteral("3.5,2a"));
    EXPECT_EQ(factor->text(), QStringLiteral("3,52"));
    auto* copias = ControlDeHueco<QLineEdit>(&f, "txtNCopiasRechazado", 2);
    copias->clear();
    QTest::keyClicks(copias, QStringLiteral("-1x"));
    EXPECT_EQ(copias->text(), QStringLiteral("1"));

    // The kitchen tick writes the record at once, before any save.
    QTest::mouseClick(ControlDeHueco<QCheckBox>(&f, "CheckCocina", 2), Qt::LeftButton);
    EXPECT_TRUE(ControlDeHueco<QPushButton>(&f, "butCocina", 2)->isEnabled());
    EXPECT_TRUE(e.m.Impresora(2).Cocina);

    // The test page goes out with the panel's values, before any save.
    ControlDeHueco<QLineEdit>(&f, "txtConexion", 2)->setText(QStringLiteral("127.0.0.1:9100"));
    CapturaEP captura(e.m);
    QTest::mouseClick(ControlDeHueco<QPushButton>(&f, "TestImprimirESCPOS", 2), Qt::LeftButton);
    EXPECT_TRUE(
        captura.bytes(QStringLiteral("127.0.0.1:9100")).startsWith("\x1b@\x1bt\x13\x1b!0Barra\n"));
    EXPECT_TRUE(e.canales.directo->urls.isEmpty());

    // The driver's test page too: 40 mm of paper at this factor hold 15 characters at 10 points.
    auto sistema = std::make_unique<ImpresorasDWGrabadoras>(QStringList{"PDF"});
    ImpresoraDWGrabadora& pdf = sistema->de("PDF");
    e.m.setImpresorasDW(std::move(sistema));
    ControlDeHueco<QLineEdit>(&f, "txtAnchoPapel", 3)->setText(QStringLiteral("40"));
    factor->setText(QStringLiteral("3,8448"));
    QTest::mouseClick(ControlDeHueco<QPushButton>(&f, "TestImprimirDW", 3), Qt::LeftButton);
    EXPECT_EQ(pdf.documentos, 1);
    EXPECT_TRUE(pdf.textos().contains(QStringLiteral("123456789012345")))
        << pdf.textos().join(u'|').toStdString();
    EXPECT_TRUE(e.cajas->cajas().isEmpty());
}

TEST_F(Ventanas_, LasOpcionesExtraRechazan101) {
    e.m.Impresora(2).NombreImpresora = QStringLiteral("Barra");
    e.m.Impresora(2).TipoImpresion = QStringLiteral("EP");
    e.m.Impresora(2).Cocina = true;
    FormImpresoras f(e.m, [] { return true; });
    f.CargarDatosImpresora();
    f.show();
    QTest::mouseClick(ControlDeHueco<QPushButton>(&f, "butExtraConf", 2), Qt::LeftButton);
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
              QStringLiteral("Nº líneas en blanco inicio ticket debe ser un número entero "
                             "entre 0 y 100"));
    EXPECT_TRUE(extra->isVisible());
    lineas->setText(QStringLiteral("100"));
    QTest::keyClick(lineas, Qt::Key_Enter);
    EXPECT_FALSE(extra->isVisible());
    EXPECT_EQ(e.m.Impresora(2).NumLineasBlancoInicio, 100);
}
