#include "settings/FormImpresoras.h"

#include "base/ModuloPrincipal.h"
#include "platform/EjecucionProtegida.h"
#include "printing/ImpresoraDW.h"
#include "printing/PruebaImpresoraDW.h"
#include "printing/PruebaImpresoraEP.h"
#include "settings/ControlesAjustes_ui.h"
#include "settings/FormCategoriasCocina.h"
#include "settings/FormExtraConfigImpr.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSysInfo>
#include <QTabWidget>
#include <QVBoxLayout>

using controles_ajustes::crear;
using controles_ajustes::Teclas;

namespace {

// What a raw printer's connection may be, shown under the field.
const QString kAyudaConexion = QStringLiteral(
    "Formas: equipo:puerto (impresora de red, p. ej. 192.168.1.50:9100), COMn[:9600,n,8,1] "
    "(puerto serie), LPTn (puerto paralelo o USB), USBnnn (USB001 es /dev/usb/lp0), nombre "
    "de una cola de impresión del sistema o \\\\equipo\\cola, ruta de dispositivo "
    "(/dev/usb/lp0) o ruta completa de un fichero (/home/...).");

template <typename T>
T* control(QWidget* padre, const char* nombre, int slot, const QString& texto = {}) {
    T* c = crear<T>(padre, nombre, texto);
    c->setProperty("Index", slot - 1);
    return c;
}

} // namespace

struct FormImpresoras::Controles {
    QWidget* picture1 = nullptr;
    QComboBox* comImpresora = nullptr;
    QLineEdit* txtNCopiasAceptado = nullptr;
    QLineEdit* txtNCopiasAceptadoRecoger = nullptr;
    QLineEdit* txtNCopiasRechazado = nullptr;
    QRadioButton* optionDriversWindows = nullptr;
    QRadioButton* optionESCPOS = nullptr;
    QCheckBox* checkCocina = nullptr; // slots 2 to 10
    QPushButton* butCocina = nullptr; // slots 2 to 10
    QPushButton* butExtraConf = nullptr;
    QGroupBox* frmDriverWindows = nullptr;
    QLineEdit* txtAnchoPapel = nullptr;
    QLineEdit* txtFuente = nullptr;
    QLineEdit* txtFactorFuente = nullptr;
    QLineEdit* txtTamannoFuentePeque = nullptr;
    QLineEdit* txtTamannoFuenteGrande = nullptr;
    QLineEdit* txtMargenLineas = nullptr;
    QLineEdit* txtInicioX = nullptr;
    QLineEdit* txtInicioY = nullptr;
    QGroupBox* frmESCPOS = nullptr;
    QLineEdit* txtConexion = nullptr;
    QLineEdit* txtNColumnas = nullptr;
    QLineEdit* txtInicializar = nullptr;
    QLineEdit* txtConfigCaracteres = nullptr;
    QLineEdit* txtActDobleAlto = nullptr;
    QLineEdit* txtDesactDobleAlto = nullptr;
    QLineEdit* txtCortarPapel = nullptr;
    QLineEdit* txtSubirLineas = nullptr;
    QLineEdit* txtExtrasFin = nullptr;
    QCheckBox* checkReempCEsp = nullptr;
    QCheckBox* checkPC858 = nullptr;
    QPushButton* testImprimirESCPOS = nullptr;
    QPushButton* testImprimirDW = nullptr;
};

FormImpresoras::FormImpresoras(ModuloPrincipal& m, std::function<bool()> refrescarConfiguracion,
                               QWidget* padre)
    : QWidget(padre, Qt::Window), m_(m), refrescar_(std::move(refrescarConfiguracion)),
      tabStrip1_(crear<QTabWidget>(this, "TabStrip1")),
      butGuardar_(crear<QPushButton>(this, "butGuardar", QStringLiteral("Guardar"))),
      butCancelar_(crear<QPushButton>(this, "butCancelar", QStringLiteral("Cancelar"))),
      butCerrarPedAnt_(crear<QPushButton>(this, "butCerrarPedAnt", QStringLiteral("Cerrar"))) {
    setObjectName(QStringLiteral("FormImpresoras"));
    setWindowTitle(QStringLiteral("Configurar Impresoras"));
    // Ten tabs side by side, none hidden behind scroll arrows.
    tabStrip1_->setStyleSheet(QStringLiteral("QTabBar::tab { padding: 4px 7px; }"));
    for (int slot = 1; slot <= 10; ++slot) {
        construirPanel(slot);
    }
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(butGuardar_);
    botones->addWidget(butCancelar_);
    botones->addWidget(butCerrarPedAnt_);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(tabStrip1_, 1);
    columna->addLayout(botones);

    connect(butGuardar_, &QPushButton::clicked, this,
            [this] { protegido([this] { butGuardarClick(); }); });
    connect(butCancelar_, &QPushButton::clicked, this,
            [this] { protegido([this] { butCancelarClick(); }); });
    connect(butCerrarPedAnt_, &QPushButton::clicked, this,
            [this] { protegido([this] { butCerrarPedAntClick(); }); });
    controles_ajustes::InstalarTeclado(this, butGuardar_,
                                       [this] { protegido([this] { butCerrarPedAntClick(); }); });
    protegido([this] { Obtener_Impresoras(); });
    // Wide enough for the ten tabs side by side, low enough for a 1024x768 screen.
    resize(960, 660);
}

FormImpresoras::~FormImpresoras() = default;

void FormImpresoras::construirPanel(int slot) {
    auto c = std::make_unique<Controles>();
    auto* panel = new QWidget;
    panel->setObjectName(QStringLiteral("Picture1"));
    panel->setProperty("Index", slot - 1);
    c->picture1 = panel;
    // The seventh tab's caption has always been written without its blank.
    tabStrip1_->addTab(panel, slot == 7 ? QStringLiteral("Impresora7")
                                        : QStringLiteral("Impresora ") + QString::number(slot));

    c->comImpresora = control<QComboBox>(panel, "comImpresora", slot);
    c->comImpresora->setEditable(true);
    c->comImpresora->setInsertPolicy(QComboBox::NoInsert);
    c->comImpresora->setMinimumContentsLength(30);
    c->txtNCopiasAceptado = control<QLineEdit>(panel, "txtNCopiasAceptado", slot, "2");
    c->txtNCopiasAceptadoRecoger = control<QLineEdit>(panel, "txtNCopiasAceptadoRecoger", slot);
    c->txtNCopiasRechazado = control<QLineEdit>(panel, "txtNCopiasRechazado", slot, "0");
    auto* arriba = new QGridLayout;
    arriba->addWidget(new QLabel(QStringLiteral("Impresora:"), panel), 0, 0);
    arriba->addWidget(c->comImpresora, 0, 1, 1, 4);
    arriba->addWidget(new QLabel(QStringLiteral("Nº Copias Pedido Aceptado:"), panel), 1, 0);
    arriba->addWidget(c->txtNCopiasAceptado, 1, 1);
    arriba->addWidget(new QLabel(QStringLiteral("A Recoger:"), panel), 1, 2);
    arriba->addWidget(c->txtNCopiasAceptadoRecoger, 1, 3);
    arriba->addWidget(new QLabel(QStringLiteral("(Solo si es distinto nº que a domicilio)"), panel),
                      1, 4);
    arriba->addWidget(new QLabel(QStringLiteral("Nº Copias Pedido Rechazado:"), panel), 2, 0);
    arriba->addWidget(c->txtNCopiasRechazado, 2, 1);
    for (QLineEdit* t :
         {c->txtNCopiasAceptado, c->txtNCopiasAceptadoRecoger, c->txtNCopiasRechazado}) {
        t->setMaximumWidth(60);
    }
    arriba->setColumnStretch(4, 1);

    auto* frmTipo = control<QGroupBox>(panel, "frmTipoImpresion", slot, "Tipo de impresión");
    c->optionDriversWindows =
        control<QRadioButton>(frmTipo, "OptionDriversWindows", slot, "Drivers Windows");
    c->optionESCPOS = control<QRadioButton>(frmTipo, "OptionESCPOS", slot, "ESC/POS");
    // Both may be cleared (a slot without a printer), which exclusive buttons cannot show.
    c->optionDriversWindows->setAutoExclusive(false);
    c->optionESCPOS->setAutoExclusive(false);
    auto* filaTipo = new QHBoxLayout(frmTipo);
    filaTipo->addWidget(c->optionDriversWindows);
    filaTipo->addWidget(c->optionESCPOS);
    auto* medio = new QHBoxLayout;
    medio->addWidget(frmTipo);
    if (slot >= 2) {
        c->checkCocina = control<QCheckBox>(panel, "CheckCocina", slot, "Cocina");
        c->butCocina = control<QPushButton>(panel, "butCocina", slot, "Configurar");
        c->butCocina->setEnabled(false);
        medio->addWidget(c->checkCocina);
        medio->addWidget(c->butCocina);
    }
    c->butExtraConf = control<QPushButton>(panel, "butExtraConf", slot, "Extra");
    medio->addWidget(c->butExtraConf);
    medio->addStretch(1);

    c->frmDriverWindows = control<QGroupBox>(panel, "frmDriverWindows", slot, "Drivers Windows");
    auto campo = [&](QWidget* padre, const char* nombre, const char* texto, Teclas* teclas) {
        auto* t = control<QLineEdit>(padre, nombre, slot, QString::fromUtf8(texto));
        if (teclas != nullptr) {
            controles_ajustes::FiltrarTeclas(t, *teclas);
        }
        return t;
    };
    Teclas digitos = Teclas::Digitos;
    Teclas decimal = Teclas::DecimalConComa;
    for (QLineEdit* t :
         {c->txtNCopiasAceptado, c->txtNCopiasAceptadoRecoger, c->txtNCopiasRechazado}) {
        controles_ajustes::FiltrarTeclas(t, digitos);
    }
    QWidget* dw = c->frmDriverWindows;
    c->txtAnchoPapel = campo(dw, "txtAnchoPapel", "80", &digitos);
    c->txtFuente = campo(dw, "txtFuente", "Lucida Console", nullptr);
    c->txtFactorFuente = campo(dw, "txtFactorFuente", "3,8448", &decimal);
    c->txtTamannoFuentePeque = campo(dw, "txtTamannoFuentePeque", "10", &digitos);
    c->txtTamannoFuenteGrande = campo(dw, "txtTamannoFuenteGrande", "14", &digitos);
    c->txtMargenLineas = campo(dw, "txtMargenLineas", "60", &digitos);
    c->txtInicioX = campo(dw, "txtInicioX", "0", &digitos);
    c->txtInicioY = campo(dw, "txtInicioY", "0", &digitos);
    auto* filasDW = new QFormLayout(dw);
    filasDW->addRow(QStringLiteral("Ancho papel (mm):"), c->txtAnchoPapel);
    filasDW->addRow(QStringLiteral("Fuente:"), c->txtFuente);
    filasDW->addRow(QStringLiteral("Factor Fuente:"), c->txtFactorFuente);
    filasDW->addRow(QStringLiteral("Tamaño fuente pequeña:"), c->txtTamannoFuentePeque);
    filasDW->addRow(QStringLiteral("Tamaño fuente grande:"), c->txtTamannoFuenteGrande);
    filasDW->addRow(QStringLiteral("Margen entre líneas (twips):"), c->txtMargenLineas);
    filasDW->addRow(QStringLiteral("Inicio X (twips):"), c->txtInicioX);
    filasDW->addRow(QStringLiteral("Inicio Y (twips):"), c->txtInicioY);
    // The driver's counterpart of the raw printer's test page.
    c->testImprimirDW = control<QPushButton>(dw, "TestImprimirDW", slot, "Test");
    auto* filaTestDW = new QHBoxLayout;
    filaTestDW->addStretch(1);
    filaTestDW->addWidget(c->testImprimirDW);
    filasDW->addRow(filaTestDW);

    c->frmESCPOS = control<QGroupBox>(panel, "frmESCPOS", slot, "ESCPOS");
    QWidget* ep = c->frmESCPOS;
    c->txtConexion = campo(ep, "txtConexion", "Com1:9600,n,8,1", nullptr);
    c->txtNColumnas = campo(ep, "txtNColumnas", "48", &digitos);
    c->txtInicializar = campo(ep, "txtInicializar", "27,64", nullptr);
    c->txtConfigCaracteres = campo(ep, "txtConfigCaracteres", "27,116,19", nullptr);
    c->txtActDobleAlto = campo(ep, "txtActDobleAlto", "27,33,48", nullptr);
    c->txtDesactDobleAlto = campo(ep, "txtDesactDobleAlto", "27,33,0", nullptr);
    c->txtCortarPapel = campo(ep, "txtCortarPapel", "29,86,66,0", nullptr);
    c->txtSubirLineas = campo(ep, "txtSubirLineas", "27,100,3", nullptr);
    c->txtExtrasFin = campo(ep, "txtExtrasFin", "", nullptr);
    c->checkReempCEsp = control<QCheckBox>(ep, "CheckReempCEsp", slot, "Reemp. C. Esp.");
    c->checkPC858 = control<QCheckBox>(ep, "CheckPC858", slot, "PC858");
    c->testImprimirESCPOS = control<QPushButton>(ep, "TestImprimirESCPOS", slot, "Test");
    auto* filaConexion = new QHBoxLayout;
    filaConexion->addWidget(c->txtConexion, 1);
    QPushButton* command1 = nullptr;
    if (slot == 1) {
        command1 = control<QPushButton>(ep, "Command1", slot, "<-");
        command1->setToolTip(
            QStringLiteral("Empezar la ruta de una impresora compartida de este equipo"));
        filaConexion->addWidget(command1);
    }
    auto* ayuda = control<QLabel>(ep, "LabAyudaConexion", slot, kAyudaConexion);
    ayuda->setWordWrap(true);
    QFont pequenna = ayuda->font();
    pequenna.setPointSizeF(pequenna.pointSizeF() * 0.85);
    ayuda->setFont(pequenna);
    auto* filasEP = new QFormLayout(ep);
    filasEP->addRow(QStringLiteral("Conexión:"), filaConexion);
    filasEP->addRow(ayuda);
    filasEP->addRow(QStringLiteral("Nº de columnas:"), c->txtNColumnas);
    filasEP->addRow(QStringLiteral("Inicializar:"), c->txtInicializar);
    filasEP->addRow(QStringLiteral("Config. caracteres:"), c->txtConfigCaracteres);
    filasEP->addRow(QStringLiteral("Activar formato resaltado:"), c->txtActDobleAlto);
    filasEP->addRow(QStringLiteral("Desactivar formato res.:"), c->txtDesactDobleAlto);
    filasEP->addRow(QStringLiteral("Cortar papel:"), c->txtCortarPapel);
    filasEP->addRow(QStringLiteral("Subir líneas:"), c->txtSubirLineas);
    filasEP->addRow(QStringLiteral("Extras Fin (Sep: \"/\"):"), c->txtExtrasFin);
    auto* filaChecks = new QHBoxLayout;
    filaChecks->addWidget(c->checkReempCEsp);
    filaChecks->addWidget(c->checkPC858);
    filaChecks->addStretch(1);
    filaChecks->addWidget(c->testImprimirESCPOS);
    filasEP->addRow(filaChecks);
    c->frmDriverWindows->hide();
    c->frmESCPOS->hide();

    auto* abajo = new QHBoxLayout;
    c->frmDriverWindows->setMinimumWidth(560);
    c->frmESCPOS->setMinimumWidth(560);
    abajo->addWidget(c->frmDriverWindows);
    abajo->addWidget(c->frmESCPOS);
    abajo->addStretch(1);
    auto* columna = new QVBoxLayout(panel);
    columna->addLayout(arriba);
    columna->addLayout(medio);
    columna->addLayout(abajo);
    columna->addStretch(1);

    // Tab order: top to bottom, left to right.
    QList<QWidget*> orden = {
        c->comImpresora,        c->txtNCopiasAceptado,   c->txtNCopiasAceptadoRecoger,
        c->txtNCopiasRechazado, c->optionDriversWindows, c->optionESCPOS};
    if (c->checkCocina != nullptr) {
        orden << c->checkCocina << c->butCocina;
    }
    orden << c->butExtraConf << c->txtAnchoPapel << c->txtFuente << c->txtFactorFuente
          << c->txtTamannoFuentePeque << c->txtTamannoFuenteGrande << c->txtMargenLineas
          << c->txtInicioX << c->txtInicioY << c->testImprimirDW << c->txtConexion;
    if (command1 != nullptr) {
        orden << command1;
    }
    orden << c->txtNColumnas << c->txtInicializar << c->txtConfigCaracteres << c->txtActDobleAlto
          << c->txtDesactDobleAlto << c->txtCortarPapel << c->txtSubirLineas << c->txtExtrasFin
          << c->checkReempCEsp << c->checkPC858 << c->testImprimirESCPOS;
    for (qsizetype i = 1; i < orden.size(); ++i) {
        setTabOrder(orden.at(i - 1), orden.at(i));
    }

    connect(c->comImpresora, &QComboBox::activated, this,
            [this, slot](int indice) { protegido([=, this] { elegirImpresora(slot, indice); }); });
    connect(c->optionDriversWindows, &QRadioButton::clicked, this,
            [this, slot] { protegido([=, this] { elegirTipo(slot, true); }); });
    connect(c->optionESCPOS, &QRadioButton::clicked, this,
            [this, slot] { protegido([=, this] { elegirTipo(slot, false); }); });
    if (c->checkCocina != nullptr) {
        connect(c->checkCocina, &QCheckBox::clicked, this,
                [this, slot] { protegido([=, this] { cocinaPulsada(slot); }); });
        connect(c->butCocina, &QPushButton::clicked, this,
                [this, slot] { protegido([=, this] { abrirCategorias(slot); }); });
    }
    connect(c->butExtraConf, &QPushButton::clicked, this,
            [this, slot] { protegido([=, this] { abrirExtra(slot); }); });
    connect(c->testImprimirESCPOS, &QPushButton::clicked, this, [this, slot] {
        protegido([=, this] {
            prueba_ep::ImprimirPruebaEP(m_, paneles_impresora::RegistroDePrueba(Panel(slot)));
        });
    });
    connect(c->testImprimirDW, &QPushButton::clicked, this, [this, slot] {
        protegido([=, this] {
            prueba_dw::ImprimirPruebaDW(
                m_, paneles_impresora::RegistroDePruebaDW(Panel(slot), m_.Impresora(slot)));
        });
    });
    if (command1 != nullptr) {
        connect(command1, &QPushButton::clicked, this, [this] {
            protegido([this] {
                paneles_[0]->txtConexion->setText(
                    paneles_impresora::InicioRutaCompartida(QSysInfo::machineHostName()));
            });
        });
    }
    paneles_.at(static_cast<size_t>(slot - 1)) = std::move(c);
}

void FormImpresoras::protegido(const std::function<void()>& manejador) {
    EjecutarProtegido(m_.cajas(), manejador);
}

void FormImpresoras::Obtener_Impresoras() {
    const QStringList sistema = m_.impresorasDW().Printers();
    for (int slot = 1; slot <= 10; ++slot) {
        QComboBox* combo = paneles_.at(static_cast<size_t>(slot - 1))->comImpresora;
        combo->clear();
        combo->addItem(PanelImpresora::Ninguna);
        combo->addItems(sistema);
        const int elegido = combo->findText(m_.Impresora(slot).NombreImpresora, Qt::MatchExactly);
        if (elegido >= 0) {
            combo->setCurrentIndex(elegido);
        }
    }
}

PanelImpresora FormImpresoras::Panel(int slot) const {
    const Controles& c = *paneles_.at(static_cast<size_t>(slot - 1));
    PanelImpresora p;
    p.Nombre = c.comImpresora->currentText();
    p.OpcionDW = c.optionDriversWindows->isChecked();
    p.OpcionEP = c.optionESCPOS->isChecked();
    p.CopiasAceptado = c.txtNCopiasAceptado->text();
    p.CopiasAceptadoRecoger = c.txtNCopiasAceptadoRecoger->text();
    p.CopiasRechazado = c.txtNCopiasRechazado->text();
    p.Cocina = c.checkCocina != nullptr && c.checkCocina->isChecked();
    p.AnchoPapel = c.txtAnchoPapel->text();
    p.Fuente = c.txtFuente->text();
    p.FactorFuente = c.txtFactorFuente->text();
    p.TamannoFuentePeque = c.txtTamannoFuentePeque->text();
    p.TamannoFuenteGrande = c.txtTamannoFuenteGrande->text();
    p.MargenLineas = c.txtMargenLineas->text();
    p.InicioX = c.txtInicioX->text();
    p.InicioY = c.txtInicioY->text();
    p.Conexion = c.txtConexion->text();
    p.NColumnas = c.txtNColumnas->text();
    p.Inicializar = c.txtInicializar->text();
    p.ConfigCaracteres = c.txtConfigCaracteres->text();
    p.ActDobleAlto = c.txtActDobleAlto->text();
    p.DesactDobleAlto = c.txtDesactDobleAlto->text();
    p.CortarPapel = c.txtCortarPapel->text();
    p.SubirLineas = c.txtSubirLineas->text();
    p.ExtrasFin = c.txtExtrasFin->text();
    p.ReempCEsp = c.checkReempCEsp->isChecked();
    p.PC858 = c.checkPC858->isChecked();
    p.CopiasHabilitadas = c.txtNCopiasAceptado->isEnabled();
    p.ExtraHabilitado = c.butExtraConf->isEnabled();
    p.CocinaHabilitado = c.butCocina != nullptr && c.butCocina->isEnabled();
    return p;
}

void FormImpresoras::MostrarPanel(int slot, const PanelImpresora& p) {
    Controles& c = *paneles_.at(static_cast<size_t>(slot - 1));
    c.comImpresora->setCurrentText(p.Nombre);
    c.optionDriversWindows->setChecked(p.OpcionDW);
    c.optionESCPOS->setChecked(p.OpcionEP);
    c.txtNCopiasAceptado->setText(p.CopiasAceptado);
    c.txtNCopiasAceptadoRecoger->setText(p.CopiasAceptadoRecoger);
    c.txtNCopiasRechazado->setText(p.CopiasRechazado);
    if (c.checkCocina != nullptr) {
        c.checkCocina->setChecked(p.Cocina);
        c.butCocina->setEnabled(p.CocinaHabilitado);
    }
    c.txtAnchoPapel->setText(p.AnchoPapel);
    c.txtFuente->setText(p.Fuente);
    c.txtFactorFuente->setText(p.FactorFuente);
    c.txtTamannoFuentePeque->setText(p.TamannoFuentePeque);
    c.txtTamannoFuenteGrande->setText(p.TamannoFuenteGrande);
    c.txtMargenLineas->setText(p.MargenLineas);
    c.txtInicioX->setText(p.InicioX);
    c.txtInicioY->setText(p.InicioY);
    c.txtConexion->setText(p.Conexion);
    c.txtNColumnas->setText(p.NColumnas);
    c.txtInicializar->setText(p.Inicializar);
    c.txtConfigCaracteres->setText(p.ConfigCaracteres);
    c.txtActDobleAlto->setText(p.ActDobleAlto);
    c.txtDesactDobleAlto->setText(p.DesactDobleAlto);
    c.txtCortarPapel->setText(p.CortarPapel);
    c.txtSubirLineas->setText(p.SubirLineas);
    c.txtExtrasFin->setText(p.ExtrasFin);
    c.checkReempCEsp->setChecked(p.ReempCEsp);
    c.checkPC858->setChecked(p.PC858);
    for (QLineEdit* t :
         {c.txtNCopiasAceptado, c.txtNCopiasAceptadoRecoger, c.txtNCopiasRechazado}) {
        t->setEnabled(p.CopiasHabilitadas);
    }
    c.butExtraConf->setEnabled(p.ExtraHabilitado);
    c.frmDriverWindows->setVisible(p.OpcionDW);
    c.frmESCPOS->setVisible(p.OpcionEP);
}

void FormImpresoras::CargarDatosImpresora() {
    for (int slot = 1; slot <= 10; ++slot) {
        PanelImpresora p = Panel(slot);
        paneles_impresora::CargarPanel(p, m_.Impresora(slot), slot);
        MostrarPanel(slot, p);
    }
}

void FormImpresoras::elegirImpresora(int slot, int indice) {
    PanelImpresora p = Panel(slot);
    const QString nombre =
        paneles_.at(static_cast<size_t>(slot - 1))->comImpresora->itemText(indice);
    paneles_impresora::ElegirImpresora(p, m_.Impresora(slot), nombre);
    MostrarPanel(slot, p);
}

void FormImpresoras::elegirTipo(int slot, bool dw) {
    PanelImpresora p = Panel(slot);
    p.OpcionDW = dw;
    p.OpcionEP = !dw;
    MostrarPanel(slot, p);
}

void FormImpresoras::cocinaPulsada(int slot) {
    Controles& c = *paneles_.at(static_cast<size_t>(slot - 1));
    const bool cocina = c.checkCocina->isChecked();
    c.butCocina->setEnabled(cocina);
    m_.Impresora(slot).Cocina = cocina;
}

void FormImpresoras::abrirExtra(int slot) {
    m_.ImpresoraActual = slot;
    if (formExtra_ == nullptr) {
        formExtra_ = new FormExtraConfigImpr(m_, this);
    }
    formExtra_->Mostrar();
}

void FormImpresoras::abrirCategorias(int slot) {
    m_.ImpresoraActual = slot;
    if (formCategorias_ == nullptr) {
        formCategorias_ = new FormCategoriasCocina(m_, this);
    }
    formCategorias_->Mostrar();
}

void FormImpresoras::butGuardarClick() {
    PanelesImpresora paneles;
    for (int slot = 1; slot <= 10; ++slot) {
        paneles.at(static_cast<size_t>(slot - 1)) = Panel(slot);
    }
    if (!paneles_impresora::GuardarImpresoras(m_, paneles)) {
        return;
    }
    if (refrescar_) {
        refrescar_();
    }
    hide();
}

void FormImpresoras::butCancelarClick() {
    CargarDatosImpresora();
    hide();
}

void FormImpresoras::butCerrarPedAntClick() {
    hide();
}

void FormImpresoras::closeEvent(QCloseEvent* e) {
    // The window's own close button leaves it like Cerrar.
    e->ignore();
    hide();
}
