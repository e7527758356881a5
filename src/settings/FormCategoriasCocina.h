#pragma once

#include "settings/CategoriasCocina.h"

#include <QList>
#include <QWidget>
#include <functional>

class ModuloPrincipal;
class QCheckBox;
class QPushButton;
class QTreeWidget;

// What a kitchen printer receives: which delivery forms and which of the establishment's
// categories, read from the service each time the window comes up. Writes only into the
// record being edited (ModuloPrincipal::ImpresoraActual).
class FormCategoriasCocina : public QWidget {
    Q_OBJECT
public:
    explicit FormCategoriasCocina(ModuloPrincipal& m, QWidget* padre = nullptr);

    // Brings the window up and fills it from the record and the service.
    void Mostrar();
    // The rows as the list shows them now, in order.
    QList<CategoriaCocina> Filas() const;

    void CommandHechoClick();
    void butCancelarClick();

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    void protegido(const std::function<void()>& manejador);
    void activar();

    ModuloPrincipal& m_;
    QCheckBox* checkFEADomicilio_;
    QCheckBox* checkFERecogen_;
    QCheckBox* checkMostrarNombreImp_;
    QTreeWidget* listViewCategoriasCocina_;
    QPushButton* commandHecho_;
    QPushButton* butCancelar_;
};
