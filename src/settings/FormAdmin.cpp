#include "settings/FormAdmin.h"

#include "base/ArchivosLocales.h"
#include "base/CifradoAjustes.h"
#include "base/Conversiones.h"
#include "base/ModuloPrincipal.h"
#include "platform/AccesosSesion.h"
#include "platform/CajaMensajes.h"
#include "platform/EjecucionProtegida.h"
#include "server/Configuracion.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

template <typename T> T* crear(QWidget* padre, const char* nombre, const QString& texto = {}) {
    auto* c = new T(padre); // owned by the window
    c->setObjectName(QLatin1String(nombre));
    if constexpr (!std::is_base_of_v<QComboBox, T>) {
        c->setText(texto);
    }
    return c;
}

} // namespace

FormAdmin::FormAdmin(ModuloPrincipal& m, std::function<void()> aplicarConfiguracion, QWidget* padre)
    : QWidget(padre, Qt::Window), m_(m), aplicar_(std::move(aplicarConfiguracion)),
      txtIdEstablecimiento_(crear<QLineEdit>(this, "txtIdEstablecimiento")),
      txtPassword_(crear<QLineEdit>(this, "txtPassword")),
      botVerpass_(crear<QPushButton>(this, "botVerpass", QStringLiteral("Ver"))),
      comboNumConfig_(crear<QComboBox>(this, "ComboNumConfig")),
      checkInicioWindows_(crear<QCheckBox>(this, "CheckInicioWindows",
                                           QStringLiteral("Incluir en Inicio Windows"))),
      butAceptar_(crear<QPushButton>(this, "butAceptar", QStringLiteral("Aceptar"))),
      label3_(crear<QLabel>(this, "Label3", QStringLiteral("--"))) {
    setObjectName(QStringLiteral("FormAdmin"));
    setWindowTitle(QStringLiteral("Admin"));
    txtPassword_->setEchoMode(QLineEdit::Password);

    auto* formulario = new QFormLayout;
    auto* filaPassword = new QHBoxLayout;
    filaPassword->addWidget(txtPassword_);
    filaPassword->addWidget(botVerpass_);
    formulario->addRow(QStringLiteral("Id Establecimiento:"), txtIdEstablecimiento_);
    formulario->addRow(QStringLiteral("Password:"), filaPassword);
    formulario->addRow(QStringLiteral("Num. Config:"), comboNumConfig_);
    formulario->addRow(checkInicioWindows_);
    formulario->addRow(QStringLiteral("Versión:"), label3_);
    auto* columna = new QVBoxLayout(this);
    columna->addLayout(formulario);
    columna->addWidget(butAceptar_);

    connect(botVerpass_, &QPushButton::clicked, this,
            [this] { protegido([this] { botVerpassClick(); }); });
    connect(butAceptar_, &QPushButton::clicked, this,
            [this] { protegido([this] { butAceptarClick(); }); });
    Load();
}

void FormAdmin::Load() {
    label3_->setText(ModuloPrincipal::Version);
    if (m_.IdEstablecimiento >= 1) {
        checkInicioWindows_->setChecked(m_.AccesosCreados != 1);
    }
    for (int i = 1; i <= 9; ++i) {
        comboNumConfig_->addItem(QString::number(i));
    }
    comboNumConfig_->setCurrentIndex(m_.NumConfig >= 1 && m_.NumConfig <= 9 ? m_.NumConfig - 1
                                                                            : -1);
}

void FormAdmin::protegido(const std::function<void()>& manejador) {
    EjecutarProtegido(m_.cajas(), manejador);
}

void FormAdmin::closeEvent(QCloseEvent* e) {
    // Closing only hides: the window keeps its state for the next opening.
    e->ignore();
    hide();
}

void FormAdmin::botVerpassClick() {
    if (txtPassword_->echoMode() != QLineEdit::Password) {
        txtPassword_->setEchoMode(QLineEdit::Password);
        botVerpass_->setText(QStringLiteral("Ver"));
    } else {
        txtPassword_->setEchoMode(QLineEdit::Normal);
        botVerpass_->setText(QStringLiteral("Ocul."));
    }
}

void FormAdmin::butAceptarClick() {
    const QString id = txtIdEstablecimiento_->text();
    const QString password = txtPassword_->text();
    if (id.isEmpty() || password.isEmpty()) {
        m_.cajas().exclamacion(QStringLiteral("Debe introducir Id Establecimiento y Password"),
                               QStringLiteral("Error"));
        return;
    }
    // A text that is no number leaves the id in force, and the login goes on with it.
    if (clasico::IsNumeric(id)) {
        m_.IdEstablecimiento = clasico::CLng(id);
    }
    m_.PasswordConfig = password;
    m_.PasswordConfigCifrada = CifrarAjuste(password, ModuloPrincipal::ClaveAjustes);
    // With nothing selected the empty text does not convert: a run-time error.
    m_.NumConfig = clasico::CInt(comboNumConfig_->currentText());

    bool parametro = true;
    if (ObtenerConfiguracion(m_, parametro)) {
        if (aplicar_) {
            aplicar_();
        }
        if (checkInicioWindows_->isChecked()) {
            m_.AccesosCreados = 0;
            AgregarInicioWindows(m_);
        } else {
            m_.AccesosCreados = 1;
            QuitarInicioWindows(m_);
        }
        if (!GuardarAvisando(m_, QStringLiteral("config.txt"), GuardarConfigTxt)) {
            m_.cajas().exclamacion(AvisoConfigNoGuardado);
        }
        txtIdEstablecimiento_->clear();
        txtPassword_->clear();
        hide();
    } else {
        m_.cajas().exclamacion(QStringLiteral("Datos erróneos"), QStringLiteral("Error"));
    }
}
