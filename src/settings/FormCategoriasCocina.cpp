#include "settings/FormCategoriasCocina.h"

#include "base/ModuloPrincipal.h"
#include "platform/EjecucionProtegida.h"
#include "settings/ControlesAjustes_ui.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using controles_ajustes::crear;

namespace {

const QString kPrefijoClave = QStringLiteral("ca-");
constexpr int kRolClave = Qt::UserRole;
// Widths were given in twips: 15 to a pixel on the usual screen.
constexpr int kAnchoNula = 300 / 15;
constexpr int kMargenDerecho = 320 / 15;

} // namespace

FormCategoriasCocina::FormCategoriasCocina(ModuloPrincipal& m, QWidget* padre)
    : QWidget(padre, Qt::Window), m_(m),
      checkFEADomicilio_(
          crear<QCheckBox>(this, "CheckFEADomicilio", QStringLiteral("A domicilio"))),
      checkFERecogen_(crear<QCheckBox>(this, "CheckFERecogen", QStringLiteral("Recogen"))),
      checkMostrarNombreImp_(crear<QCheckBox>(this, "CheckMostrarNombreImp",
                                              QStringLiteral("Mostrar nombre impresora"))),
      listViewCategoriasCocina_(crear<QTreeWidget>(this, "ListViewCategoriasCocina")),
      commandHecho_(crear<QPushButton>(this, "CommandHecho", QStringLiteral("Hecho"))),
      butCancelar_(crear<QPushButton>(this, "butCancelar", QStringLiteral("Cancelar"))) {
    setObjectName(QStringLiteral("FormCategoriasCocina"));
    setWindowTitle(QStringLiteral("Categorías Cocina"));
    auto* frame1 = crear<QGroupBox>(this, "Frame1", QStringLiteral("Forma de envío"));
    auto* filaEnvio = new QHBoxLayout(frame1);
    filaEnvio->addWidget(checkFEADomicilio_);
    filaEnvio->addWidget(checkFERecogen_);
    listViewCategoriasCocina_->setRootIsDecorated(false);
    listViewCategoriasCocina_->setSelectionBehavior(QAbstractItemView::SelectRows);
    listViewCategoriasCocina_->setMinimumSize(360, 260);

    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(commandHecho_);
    botones->addWidget(butCancelar_);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(frame1);
    columna->addWidget(checkMostrarNombreImp_);
    columna->addWidget(listViewCategoriasCocina_, 1);
    columna->addLayout(botones);
    setTabOrder(checkFEADomicilio_, checkFERecogen_);
    setTabOrder(checkFERecogen_, checkMostrarNombreImp_);
    setTabOrder(checkMostrarNombreImp_, listViewCategoriasCocina_);
    setTabOrder(listViewCategoriasCocina_, commandHecho_);
    setTabOrder(commandHecho_, butCancelar_);

    connect(commandHecho_, &QPushButton::clicked, this,
            [this] { protegido([this] { CommandHechoClick(); }); });
    connect(butCancelar_, &QPushButton::clicked, this,
            [this] { protegido([this] { butCancelarClick(); }); });
    controles_ajustes::InstalarTeclado(this, commandHecho_,
                                       [this] { protegido([this] { butCancelarClick(); }); });
}

void FormCategoriasCocina::protegido(const std::function<void()>& manejador) {
    EjecutarProtegido(m_.cajas(), manejador);
}

void FormCategoriasCocina::Mostrar() {
    show();
    raise();
    activateWindow();
    protegido([this] { activar(); });
}

void FormCategoriasCocina::activar() {
    const ClassConfigImpresora& r = m_.Impresora(m_.ImpresoraActual);
    const auto formas = categorias_cocina::DeFormaEnvio(r.FormaEnvio);
    checkFEADomicilio_->setChecked(formas.ADomicilio);
    checkFERecogen_->setChecked(formas.Recogen);
    checkMostrarNombreImp_->setChecked(r.MostrarNombreImpresora);

    const QString ids = r.CategoriasIds;
    QList<CategoriaCocina> filas = categorias_cocina::PedirCategorias(m_, ids);
    QTreeWidget* lista = listViewCategoriasCocina_;
    lista->clear();
    lista->setColumnCount(2);
    lista->setHeaderLabels({QString(), QStringLiteral("Categoría")});
    lista->headerItem()->setData(0, kRolClave, QStringLiteral("Nula"));
    lista->headerItem()->setData(1, kRolClave, QStringLiteral("Categoria"));
    lista->setColumnWidth(0, kAnchoNula);
    lista->setColumnWidth(1, qMax(60, lista->width() - kAnchoNula - kMargenDerecho));
    for (const CategoriaCocina& c : filas) {
        auto* fila = new QTreeWidgetItem(lista); // owned by the list
        fila->setFlags(fila->flags() | Qt::ItemIsUserCheckable);
        fila->setCheckState(0, c.Marcada ? Qt::Checked : Qt::Unchecked);
        fila->setText(1, c.Nombre);
        fila->setData(0, kRolClave, kPrefijoClave + c.Id);
    }
}

QList<CategoriaCocina> FormCategoriasCocina::Filas() const {
    QList<CategoriaCocina> filas;
    for (int i = 0; i < listViewCategoriasCocina_->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* fila = listViewCategoriasCocina_->topLevelItem(i);
        CategoriaCocina c;
        c.Id = fila->data(0, kRolClave).toString().mid(kPrefijoClave.size());
        c.Nombre = fila->text(1);
        c.Marcada = fila->checkState(0) == Qt::Checked;
        filas.append(c);
    }
    return filas;
}

void FormCategoriasCocina::CommandHechoClick() {
    if (categorias_cocina::Aplicar(m_.cajas(), m_.Impresora(m_.ImpresoraActual),
                                   checkFEADomicilio_->isChecked(), checkFERecogen_->isChecked(),
                                   checkMostrarNombreImp_->isChecked(), Filas())) {
        hide();
    }
}

void FormCategoriasCocina::butCancelarClick() {
    hide();
}

void FormCategoriasCocina::closeEvent(QCloseEvent* e) {
    e->ignore();
    hide();
}
