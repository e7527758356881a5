#include "settings/FormExtraConfigImpr.h"

#include "base/ModuloPrincipal.h"
#include "platform/EjecucionProtegida.h"
#include "settings/ControlesAjustes_ui.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using controles_ajustes::crear;

namespace {

QLabel* nota(QWidget* padre, const QString& texto) {
    auto* l = new QLabel(texto, padre);
    l->setWordWrap(true);
    l->setIndent(24);
    QFont f = l->font();
    f.setItalic(true);
    l->setFont(f);
    return l;
}

} // namespace

FormExtraConfigImpr::FormExtraConfigImpr(ModuloPrincipal& m, QWidget* padre)
    : QWidget(padre, Qt::Window), m_(m),
      checkSaltoLineaOpciones_(
          crear<QCheckBox>(this, "CheckSaltoLineaOpciones",
                           QStringLiteral("Realizar salto de línea entre opciones"))),
      checkSeparadorProductos_(crear<QCheckBox>(
          this, "CheckSeparadorProductos", QStringLiteral("Mostrar separador entre productos"))),
      checkNombreImprGrande_(crear<QCheckBox>(this, "CheckNombreImprGrande",
                                              QStringLiteral("Mostrar nombre impresora grande"))),
      checkProdComenGrande_(
          crear<QCheckBox>(this, "CheckProdComenGrande",
                           QStringLiteral("Mostrar productos y comentarios en grande"))),
      checkProdComenMayus_(
          crear<QCheckBox>(this, "CheckProdComenMayus",
                           QStringLiteral("Mostrar productos y comentarios en mayúsculas"))),
      checkDatosCliCocina_(crear<QCheckBox>(this, "CheckDatosCliCocina",
                                            QStringLiteral("Mostrar datos cliente en cocina"))),
      checkDatosCliYEnvGrande_(
          crear<QCheckBox>(this, "CheckDatosCliYEnvGrande",
                           QStringLiteral("Mostrar datos cliente y envio en grande"))),
      checkPreciosProdCocina_(crear<QCheckBox>(
          this, "CheckPreciosProdCocina", QStringLiteral("Mostrar precios en productos cocina"))),
      checkMostrarTotalBruto_(
          crear<QCheckBox>(this, "CheckMostrarTotalBruto", QStringLiteral("Mostrar Total Bruto"))),
      checkMostrarHoraEntrega_(crear<QCheckBox>(this, "CheckMostrarHoraEntrega",
                                                QStringLiteral("Mostrar Hora Entrega Estimada"))),
      textNPedEnvFin_(crear<QLineEdit>(this, "TextNPedEnvFin")),
      textNumLinBlanIni_(crear<QLineEdit>(this, "TextNumLinBlanIni")),
      textNumLinBlanFin_(crear<QLineEdit>(this, "TextNumLinBlanFin")),
      notaNombreGrande_(
          nota(this, QStringLiteral("Solo para cocina. Tiene que estar marcado el "
                                    "check de mostrar impresora en configuración cocina"))),
      notaDatosCliente_(nota(this, QStringLiteral("Nombre y apellidos, teléfono y dirección"))),
      notaTotalBruto_(nota(this, QStringLiteral("Solo para ticket de venta"))),
      commandHecho_(crear<QPushButton>(this, "CommandHecho", QStringLiteral("Hecho"))),
      butCancelar_(crear<QPushButton>(this, "butCancelar", QStringLiteral("Cancelar"))) {
    setObjectName(QStringLiteral("FormExtraConfigImpr"));
    setWindowTitle(QStringLiteral("Extra Configuración Impresora"));

    auto* columna = new QVBoxLayout(this);
    columna->addWidget(checkSaltoLineaOpciones_);
    columna->addWidget(checkSeparadorProductos_);
    columna->addWidget(checkNombreImprGrande_);
    columna->addWidget(notaNombreGrande_);
    columna->addWidget(checkProdComenGrande_);
    columna->addWidget(checkProdComenMayus_);
    columna->addWidget(checkDatosCliCocina_);
    columna->addWidget(notaDatosCliente_);
    columna->addWidget(checkDatosCliYEnvGrande_);
    columna->addWidget(checkPreciosProdCocina_);
    auto* filaTotal = new QHBoxLayout;
    filaTotal->addWidget(checkMostrarTotalBruto_);
    filaTotal->addWidget(notaTotalBruto_, 1);
    columna->addLayout(filaTotal);
    columna->addWidget(checkMostrarHoraEntrega_);
    auto* numeros = new QFormLayout;
    numeros->addRow(QStringLiteral("Mostrar nº pedido y forma envío al final cocina:"),
                    textNPedEnvFin_);
    numeros->addRow(nota(this, QStringLiteral("Si es 0 no se muestra, si es 1 o mayor es el número "
                                              "de retornos de carro entre la última línea del "
                                              "ticket y esta línea")));
    numeros->addRow(QStringLiteral("Nº líneas en blanco inicio ticket:"), textNumLinBlanIni_);
    numeros->addRow(QStringLiteral("Nº líneas en blanco fin ticket:"), textNumLinBlanFin_);
    columna->addLayout(numeros);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(commandHecho_);
    botones->addWidget(butCancelar_);
    columna->addLayout(botones);

    for (QLineEdit* t : {textNPedEnvFin_, textNumLinBlanIni_, textNumLinBlanFin_}) {
        t->setMaximumWidth(60);
        controles_ajustes::FiltrarTeclas(t, controles_ajustes::Teclas::DigitosConPitido);
    }
    // Tab order follows the window from top to bottom.
    const QList<QWidget*> orden = {checkSaltoLineaOpciones_,
                                   checkSeparadorProductos_,
                                   checkNombreImprGrande_,
                                   checkProdComenGrande_,
                                   checkProdComenMayus_,
                                   checkDatosCliCocina_,
                                   checkDatosCliYEnvGrande_,
                                   checkPreciosProdCocina_,
                                   checkMostrarTotalBruto_,
                                   checkMostrarHoraEntrega_,
                                   textNPedEnvFin_,
                                   textNumLinBlanIni_,
                                   textNumLinBlanFin_,
                                   commandHecho_,
                                   butCancelar_};
    for (qsizetype i = 1; i < orden.size(); ++i) {
        setTabOrder(orden.at(i - 1), orden.at(i));
    }

    connect(commandHecho_, &QPushButton::clicked, this,
            [this] { protegido([this] { CommandHechoClick(); }); });
    connect(butCancelar_, &QPushButton::clicked, this,
            [this] { protegido([this] { butCancelarClick(); }); });
    controles_ajustes::InstalarTeclado(this, commandHecho_,
                                       [this] { protegido([this] { butCancelarClick(); }); });
}

void FormExtraConfigImpr::protegido(const std::function<void()>& manejador) {
    EjecutarProtegido(m_.cajas(), manejador);
}

void FormExtraConfigImpr::Mostrar() {
    const ClassConfigImpresora& r = m_.Impresora(m_.ImpresoraActual);
    const bool cocina = r.Cocina;
    checkNombreImprGrande_->setVisible(cocina);
    notaNombreGrande_->setVisible(cocina);
    checkDatosCliCocina_->setVisible(cocina);
    notaDatosCliente_->setVisible(cocina);
    checkPreciosProdCocina_->setVisible(cocina);
    textNPedEnvFin_->setEnabled(cocina);
    checkMostrarTotalBruto_->setVisible(!cocina);
    notaTotalBruto_->setVisible(!cocina);

    const OpcionesExtra o = opciones_extra::DesdeRegistro(r);
    checkSaltoLineaOpciones_->setChecked(o.SaltoLineaOpciones);
    checkSeparadorProductos_->setChecked(o.SeparadorProductos);
    checkNombreImprGrande_->setChecked(o.NombreImprGrande);
    checkProdComenGrande_->setChecked(o.ProdComenGrande);
    checkProdComenMayus_->setChecked(o.ProdComenMayus);
    checkDatosCliCocina_->setChecked(o.DatosCliCocina);
    checkDatosCliYEnvGrande_->setChecked(o.DatosCliYEnvGrande);
    checkPreciosProdCocina_->setChecked(o.PreciosProdCocina);
    checkMostrarTotalBruto_->setChecked(o.MostrarTotalBruto);
    checkMostrarHoraEntrega_->setChecked(o.MostrarHoraEntrega);
    textNPedEnvFin_->setText(o.NPedEnvFin);
    textNumLinBlanIni_->setText(o.NumLinBlanIni);
    textNumLinBlanFin_->setText(o.NumLinBlanFin);
    show();
    raise();
    activateWindow();
}

OpcionesExtra FormExtraConfigImpr::Opciones() const {
    OpcionesExtra o;
    o.SaltoLineaOpciones = checkSaltoLineaOpciones_->isChecked();
    o.SeparadorProductos = checkSeparadorProductos_->isChecked();
    o.NombreImprGrande = checkNombreImprGrande_->isChecked();
    o.ProdComenGrande = checkProdComenGrande_->isChecked();
    o.ProdComenMayus = checkProdComenMayus_->isChecked();
    o.DatosCliCocina = checkDatosCliCocina_->isChecked();
    o.DatosCliYEnvGrande = checkDatosCliYEnvGrande_->isChecked();
    o.PreciosProdCocina = checkPreciosProdCocina_->isChecked();
    o.MostrarTotalBruto = checkMostrarTotalBruto_->isChecked();
    o.MostrarHoraEntrega = checkMostrarHoraEntrega_->isChecked();
    o.NPedEnvFin = textNPedEnvFin_->text();
    o.NumLinBlanIni = textNumLinBlanIni_->text();
    o.NumLinBlanFin = textNumLinBlanFin_->text();
    return o;
}

void FormExtraConfigImpr::CommandHechoClick() {
    if (opciones_extra::Aplicar(m_.cajas(), m_.Impresora(m_.ImpresoraActual), Opciones())) {
        hide();
    }
}

void FormExtraConfigImpr::butCancelarClick() {
    hide();
}

void FormExtraConfigImpr::closeEvent(QCloseEvent* e) {
    e->ignore();
    hide();
}
