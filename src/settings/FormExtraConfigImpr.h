#pragma once

#include "settings/OpcionesExtraImpresora.h"

#include <QWidget>
#include <functional>

class ModuloPrincipal;
class QCheckBox;
class QLineEdit;
class QPushButton;

// The less common options of the printer being edited (ModuloPrincipal::ImpresoraActual):
// line breaks, separators, large print, blank lines. "Hecho" changes only the record in
// memory; the printers' save carries it to the service.
class FormExtraConfigImpr : public QWidget {
    Q_OBJECT
public:
    explicit FormExtraConfigImpr(ModuloPrincipal& m, QWidget* padre = nullptr);

    // Fills the window from the record and brings it up.
    void Mostrar();
    OpcionesExtra Opciones() const;

    void CommandHechoClick();
    void butCancelarClick();

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    void protegido(const std::function<void()>& manejador);

    ModuloPrincipal& m_;
    QCheckBox* checkSaltoLineaOpciones_;
    QCheckBox* checkSeparadorProductos_;
    QCheckBox* checkNombreImprGrande_;
    QCheckBox* checkProdComenGrande_;
    QCheckBox* checkProdComenMayus_;
    QCheckBox* checkDatosCliCocina_;
    QCheckBox* checkDatosCliYEnvGrande_;
    QCheckBox* checkPreciosProdCocina_;
    QCheckBox* checkMostrarTotalBruto_;
    QCheckBox* checkMostrarHoraEntrega_;
    QLineEdit* textNPedEnvFin_;
    QLineEdit* textNumLinBlanIni_;
    QLineEdit* textNumLinBlanFin_;
    QWidget* notaNombreGrande_;
    QWidget* notaDatosCliente_;
    QWidget* notaTotalBruto_;
    QPushButton* commandHecho_;
    QPushButton* butCancelar_;
};
