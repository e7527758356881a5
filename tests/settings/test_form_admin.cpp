#include "base/ArchivosLocales.h"
#include "base/CifradoAjustes.h"
#include "common/DocumentoConfiguracion.h"
#include "common/Entorno.h"
#include "settings/FormAdmin.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct FormAdmin_ : ::testing::Test {
    Entorno e;
    // The process's own home is put back after the test.
    const QByteArray homeAnterior = qgetenv("HOME");
    const QByteArray configAnterior = qgetenv("XDG_CONFIG_HOME");
    QTemporaryDir home;
    int aplicada = 0;
    std::unique_ptr<FormAdmin> admin;

    FormAdmin_() {
        // The start-up entries of these tests stay inside a home of their own.
        qputenv("HOME", home.path().toUtf8());
        qputenv("XDG_CONFIG_HOME", QDir(home.path()).filePath(".config").toUtf8());
    }
    ~FormAdmin_() override {
        qputenv("HOME", homeAnterior);
        qputenv("XDG_CONFIG_HOME", configAnterior);
    }
    FormAdmin& abrir() {
        admin = std::make_unique<FormAdmin>(e.m, [this] { ++aplicada; });
        admin->show();
        return *admin;
    }
    template <typename T> T* control(const char* nombre) {
        return admin->findChild<T*>(QLatin1String(nombre));
    }
    void rellenar(const QString& id, const QString& password) {
        control<QLineEdit>("txtIdEstablecimiento")->setText(id);
        control<QLineEdit>("txtPassword")->setText(password);
    }
    void aceptar() { QTest::mouseClick(control<QPushButton>("butAceptar"), Qt::LeftButton); }
    QByteArray configTxt() const {
        QFile f(QDir(e.carpeta.path()).filePath(QStringLiteral("config.txt")));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<no existe>");
    }
};

} // namespace

TEST_F(FormAdmin_, LaCargaMuestraVersionCasillaYNumeroSegunConfigTxt) {
    // No establishment yet: the box keeps its designed state, no number selected.
    abrir();
    EXPECT_FALSE(control<QCheckBox>("CheckInicioWindows")->isChecked());
    EXPECT_EQ(control<QComboBox>("ComboNumConfig")->currentIndex(), -1);

    e.m.IdEstablecimiento = 7;
    e.m.NumConfig = 3;
    e.m.AccesosCreados = 0;
    abrir();
    EXPECT_TRUE(control<QCheckBox>("CheckInicioWindows")->isChecked());
    EXPECT_EQ(control<QComboBox>("ComboNumConfig")->currentText(), QStringLiteral("3"));
    e.m.AccesosCreados = 1;
    abrir();
    EXPECT_FALSE(control<QCheckBox>("CheckInicioWindows")->isChecked());
}

TEST_F(FormAdmin_, VerMuestraYOcultaLaPassword) {
    abrir();
    auto* ver = control<QPushButton>("botVerpass");
    for (auto modo : {QLineEdit::Normal, QLineEdit::Password}) {
        QTest::mouseClick(ver, Qt::LeftButton);
        EXPECT_EQ(control<QLineEdit>("txtPassword")->echoMode(), modo);
    }
}

TEST_F(FormAdmin_, DatosQueFaltanODatosErroneos) {
    e.m.NumConfig = 1;
    abrir();
    for (const auto& [id, pw] : {std::pair{"", "x"}, std::pair{"7", ""}}) {
        rellenar(QLatin1String(id), QLatin1String(pw));
        aceptar();
    }
    ASSERT_EQ(e.cajas->cajas().size(), 2);
    for (const auto& c : e.cajas->cajas()) {
        EXPECT_EQ(c.texto, QStringLiteral("Debe introducir Id Establecimiento y Password"));
    }
    EXPECT_TRUE(e.canales.directo->urls.isEmpty());

    // Refused by the service: the box, nothing written, the window stays with its data,
    // and the new values stay in memory.
    e.cajas->limpiar();
    const QByteArray antes = configTxt();
    e.canales.directo->responder(
        "\"No se ha encontrado establecimento con el id y password indicado\"");
    e.canales.directo->responder(
        "\"No se ha encontrado establecimento con el id y password indicado\"");
    rellenar(QStringLiteral("9"), QStringLiteral("mala"));
    aceptar();
    ASSERT_EQ(e.cajas->cajas().size(), 1);
    EXPECT_EQ(e.cajas->cajas()[0].texto, QStringLiteral("Datos erróneos"));
    EXPECT_EQ(configTxt(), antes);
    EXPECT_TRUE(admin->isVisible());
    EXPECT_EQ(control<QLineEdit>("txtPassword")->text(), QStringLiteral("mala"));
    EXPECT_EQ(e.m.IdEstablecimiento, 9);
    EXPECT_EQ(e.m.PasswordConfig, QStringLiteral("mala"));
    EXPECT_EQ(e.m.PasswordConfigCifrada,
              CifrarAjuste(QStringLiteral("mala"), ModuloPrincipal::ClaveAjustes));
    EXPECT_EQ(aplicada, 0);
}

TEST_F(FormAdmin_, UnIdQueNoEsNumeroDejaElAnteriorYSinNumeroEsUnErrorDeEjecucion) {
    e.m.IdEstablecimiento = 7;
    e.m.NumConfig = 2;
    abrir();
    control<QCheckBox>("CheckInicioWindows")->setChecked(false);
    e.canales.directo->responder(BytesJson(DocumentoConfiguracion()));
    rellenar(QStringLiteral("12a"), QStringLiteral("clave"));
    aceptar();
    ASSERT_EQ(e.canales.directo->urls.size(), 1);
    EXPECT_TRUE(e.canales.directo->urls[0].contains(
        "obtenerConfiguracionV2?idEstablecimiento=7&passwordconfig=clave&numconfig=2&"));
    EXPECT_FALSE(admin->isVisible());
    EXPECT_EQ(aplicada, 1);
    EXPECT_EQ(e.m.AccesosCreados, 1);
    // Id 7, empty plain password, no old printer, nothing reserved, "clave" enciphered,
    // the entry refused, transport 0, number 2.
    EXPECT_EQ(configTxt(), QByteArray::fromHex("07000000"
                                               "0000"
                                               "0000"
                                               "0000"
                                               "0A00") +
                               "5E45DC4D88" +
                               QByteArray::fromHex("0100"
                                                   "0000"
                                                   "0200"));

    e.m.NumConfig = 0;
    abrir();
    e.cajas->limpiar();
    rellenar(QStringLiteral("7"), QStringLiteral("clave"));
    aceptar();
    ASSERT_EQ(e.cajas->cajas().size(), 1);
    EXPECT_EQ(e.cajas->cajas()[0].texto,
              QStringLiteral("Error en tiempo de ejecución '13': No coinciden los tipos"));
}
