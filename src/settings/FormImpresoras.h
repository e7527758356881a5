#pragma once

#include "settings/PanelesImpresora.h"

#include <QWidget>
#include <array>
#include <functional>

class ModuloPrincipal;
class FormExtraConfigImpr;
class FormCategoriasCocina;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;

// The ten printer slots, one panel behind each tab. Saving writes every slot to the service
// and reads the whole configuration back, so the records in memory are the service's.
// Controls of a panel carry the slot number less one as their "Index" property.
class FormImpresoras : public QWidget {
    Q_OBJECT
public:
    // `refrescarConfiguracion` reads the configuration again and applies it to the desk.
    FormImpresoras(ModuloPrincipal& m, std::function<bool()> refrescarConfiguracion,
                   QWidget* padre = nullptr);
    ~FormImpresoras() override;

    // Fills all ten panels from the records.
    void CargarDatosImpresora();
    // Fills the ten printer lists with the system's printers.
    void Obtener_Impresoras();

    // What panel `slot` (1 to 10) shows now, and drawing a panel state on it.
    PanelImpresora Panel(int slot) const;
    void MostrarPanel(int slot, const PanelImpresora& p);

    void butGuardarClick();
    void butCancelarClick();
    void butCerrarPedAntClick();

    FormExtraConfigImpr* formExtraSiExiste() const { return formExtra_; }
    FormCategoriasCocina* formCategoriasSiExiste() const { return formCategorias_; }

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    struct Controles;
    void construirPanel(int slot);
    void protegido(const std::function<void()>& manejador);
    void elegirImpresora(int slot, int indice);
    void elegirTipo(int slot, bool dw);
    void cocinaPulsada(int slot);
    void abrirExtra(int slot);
    void abrirCategorias(int slot);

    ModuloPrincipal& m_;
    std::function<bool()> refrescar_;
    QTabWidget* tabStrip1_;
    std::array<std::unique_ptr<Controles>, 10> paneles_;
    QPushButton* butGuardar_;
    QPushButton* butCancelar_;
    QPushButton* butCerrarPedAnt_;
    FormExtraConfigImpr* formExtra_ = nullptr;
    FormCategoriasCocina* formCategorias_ = nullptr;
};
