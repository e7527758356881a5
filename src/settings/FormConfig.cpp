#include "settings/FormConfig.h"

#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "platform/EjecucionProtegida.h"
#include "settings/ControlesAjustes_ui.h"
#include "sound/AlertaSonora.h"
#include "sound/Melodias.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QVBoxLayout>

using controles_ajustes::crear;

FormConfig::FormConfig(ModuloPrincipal& m, std::function<void()> aplicarTamannosFuente,
                       QWidget* padre)
    : QWidget(padre, Qt::Window), m_(m), aplicarTamannos_(std::move(aplicarTamannosFuente)),
      prueba_(m), txtTamannoFuentePrinc_(crear<QLineEdit>(this, "txtTamannoFuentePrinc")),
      txtTamannoFuenteListasCheck_(crear<QLineEdit>(this, "txtTamannoFuenteListasCheck")),
      comMelodias_(crear<QComboBox>(this, "ComMelodias")),
      butReproducir_(crear<QPushButton>(this, "butReproducir", PruebaMelodia::Play)),
      sliderVolumenWMP_(crear<QSlider>(this, "SliderVolumenWMP")),
      checkMinimizarTrasResp_(crear<QCheckBox>(
          this, "CheckMinimizarTrasResp", QStringLiteral("Minimizar al iniciar y tras responder"))),
      checkImprimirAntesEnviaAceptar_(
          crear<QCheckBox>(this, "CheckImprimrAntesEnviaAceptar",
                           QStringLiteral("Imprimir antes de enviar aceptar"))),
      butAceptarConfig_(crear<QPushButton>(this, "butAceptarConfig", QStringLiteral("Aceptar"))),
      butCancelar_(crear<QPushButton>(this, "butCancelar", QStringLiteral("Cancelar"))) {
    setObjectName(QStringLiteral("FormConfig"));
    setWindowTitle(QStringLiteral("Configuración General"));

    auto* interfaz = crear<QGroupBox>(this, "LabInterfaz", QStringLiteral("Interfaz"));
    auto* filasInterfaz = new QFormLayout(interfaz);
    filasInterfaz->addRow(QStringLiteral("Tamaño fuente datos principales:"),
                          txtTamannoFuentePrinc_);
    filasInterfaz->addRow(QStringLiteral("Tamaño fuente listados checks:"),
                          txtTamannoFuenteListasCheck_);
    controles_ajustes::FiltrarTeclas(txtTamannoFuentePrinc_, controles_ajustes::Teclas::Digitos);

    auto* audio = crear<QGroupBox>(this, "LabAudio", QStringLiteral("Audio"));
    auto* modo = crear<QGroupBox>(audio, "ModoReproAudio", QStringLiteral("Modo de reproducción"));
    auto* filaModo = new QHBoxLayout(modo);
    const std::array<QString, 2> modos = {QStringLiteral("MCI"), QStringLiteral("WMP")};
    for (int i = 0; i < 2; ++i) {
        auto* opcion = crear<QRadioButton>(modo, "OptModoRepro", modos.at(static_cast<size_t>(i)));
        opcion->setProperty("Index", i);
        filaModo->addWidget(opcion);
        optModoRepro_.at(static_cast<size_t>(i)) = opcion;
    }
    comMelodias_->addItems(ListaMelodias());
    auto* filaMelodia = new QHBoxLayout;
    filaMelodia->addWidget(comMelodias_, 1);
    filaMelodia->addWidget(butReproducir_);
    sliderVolumenWMP_->setOrientation(Qt::Horizontal);
    sliderVolumenWMP_->setRange(0, 100);
    sliderVolumenWMP_->setPageStep(10);
    auto* filasAudio = new QFormLayout(audio);
    filasAudio->addRow(modo);
    filasAudio->addRow(QStringLiteral("Melodía:"), filaMelodia);
    filasAudio->addRow(QStringLiteral("Volumen (Solo WMP)"), sliderVolumenWMP_);

    auto* otros = crear<QGroupBox>(this, "LabOtros", QStringLiteral("Otros"));
    auto* columnaOtros = new QVBoxLayout(otros);
    columnaOtros->addWidget(checkMinimizarTrasResp_);
    columnaOtros->addWidget(checkImprimirAntesEnviaAceptar_);

    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(butAceptarConfig_);
    botones->addWidget(butCancelar_);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(interfaz);
    columna->addWidget(audio);
    columna->addWidget(otros);
    columna->addStretch(1);
    columna->addLayout(botones);

    setTabOrder(txtTamannoFuentePrinc_, txtTamannoFuenteListasCheck_);
    setTabOrder(txtTamannoFuenteListasCheck_, optModoRepro_[0]);
    setTabOrder(optModoRepro_[0], optModoRepro_[1]);
    setTabOrder(optModoRepro_[1], comMelodias_);
    setTabOrder(comMelodias_, butReproducir_);
    setTabOrder(butReproducir_, sliderVolumenWMP_);
    setTabOrder(sliderVolumenWMP_, checkMinimizarTrasResp_);
    setTabOrder(checkMinimizarTrasResp_, checkImprimirAntesEnviaAceptar_);
    setTabOrder(checkImprimirAntesEnviaAceptar_, butAceptarConfig_);
    setTabOrder(butAceptarConfig_, butCancelar_);

    connect(butReproducir_, &QPushButton::clicked, this,
            [this] { protegido([this] { butReproducirClick(); }); });
    connect(butAceptarConfig_, &QPushButton::clicked, this,
            [this] { protegido([this] { butAceptarConfigClick(); }); });
    connect(butCancelar_, &QPushButton::clicked, this,
            [this] { protegido([this] { butCancelarClick(); }); });
    connect(sliderVolumenWMP_, &QSlider::valueChanged, this,
            [this](int v) { protegido([this, v] { SliderVolumenWMPCambiado(v); }); });
    controles_ajustes::InstalarTeclado(this, butAceptarConfig_,
                                       [this] { protegido([this] { butCancelarClick(); }); });
    AplicarTamannoListas();
}

void FormConfig::protegido(const std::function<void()>& manejador) {
    EjecutarProtegido(m_.cajas(), manejador);
}

void FormConfig::AplicarTamannoListas() {
    QFont f = comMelodias_->font();
    f.setPointSize(qMax<int>(1, m_.TamannoFuenteListasCheck));
    comMelodias_->setFont(f);
}

void FormConfig::IniciarValores() {
    txtTamannoFuentePrinc_->setText(QString::number(m_.TamannoFuentePrincipales));
    txtTamannoFuenteListasCheck_->setText(QString::number(m_.TamannoFuenteListasCheck));
    if (m_.TipoReproAudio < 0 || m_.TipoReproAudio > 1) {
        throw ErrorEjecucion(340,
                             QStringLiteral("El elemento de la matriz de controles no existe"));
    }
    optModoRepro_.at(static_cast<size_t>(m_.TipoReproAudio))->setChecked(true);
    {
        // Filling the slider is not the user moving it: the player keeps its volume.
        const QSignalBlocker quieto(sliderVolumenWMP_);
        sliderVolumenWMP_->setValue(m_.VolumenMelodiaWmp);
    }
    checkMinimizarTrasResp_->setChecked(m_.MinimizarTrasResp);
    const int melodia = comMelodias_->findText(m_.MelodiaPedNuevo, Qt::MatchExactly);
    if (melodia >= 0) {
        comMelodias_->setCurrentIndex(melodia);
    }
}

qint16 FormConfig::modoElegido() const {
    return optModoRepro_[1]->isChecked() ? qint16(1) : qint16(0);
}

void FormConfig::butReproducirClick() {
    butReproducir_->setText(
        prueba_.alternar(butReproducir_->text(), modoElegido(), comMelodias_->currentText()));
}

void FormConfig::SliderVolumenWMPCambiado(int valor) {
    m_.sonido().setVolumenReproductor(valor);
}

void FormConfig::butCancelarClick() {
    prueba_.detenerSiSuena();
    hide();
}

void FormConfig::butAceptarConfigClick() {
    prueba_.detenerSiSuena();
    ValoresGenerales v;
    v.TamannoFuentePrinc = txtTamannoFuentePrinc_->text();
    v.TamannoFuenteListasCheck = txtTamannoFuenteListasCheck_->text();
    v.MinimizarTrasResp = checkMinimizarTrasResp_->isChecked();
    v.TipoReproAudio = modoElegido();
    v.Volumen = static_cast<qint16>(sliderVolumenWMP_->value());
    v.Melodia = comMelodias_->currentText();
    if (!ajustes_generales::GuardarConfigGeneral(m_, v)) {
        return;
    }
    if (aplicarTamannos_) {
        aplicarTamannos_();
    }
    AplicarTamannoListas();
    hide();
}

void FormConfig::closeEvent(QCloseEvent* e) {
    // The window's own close button leaves it like Cancelar.
    e->ignore();
    protegido([this] { butCancelarClick(); });
}
