#pragma once

#include "settings/AjustesGenerales.h"

#include <QWidget>
#include <array>
#include <functional>

class ModuloPrincipal;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;

// The general settings: font sizes, how and which melody sounds, its volume, minimising
// after an answer. A save changes the desk at once and tells the service in one request;
// the melody can be tried before it is chosen. Created once and hidden, never closed.
class FormConfig : public QWidget {
    Q_OBJECT
public:
    // `aplicarTamannosFuente` puts the saved font sizes on the desk's windows.
    FormConfig(ModuloPrincipal& m, std::function<void()> aplicarTamannosFuente,
               QWidget* padre = nullptr);

    // Fills the controls from the settings in force.
    void IniciarValores();
    // The melody list takes the size of the check lists.
    void AplicarTamannoListas();

    void butReproducirClick();
    void butAceptarConfigClick();
    void butCancelarClick();
    void SliderVolumenWMPCambiado(int valor);

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    void protegido(const std::function<void()>& manejador);
    qint16 modoElegido() const;

    ModuloPrincipal& m_;
    std::function<void()> aplicarTamannos_;
    PruebaMelodia prueba_;
    QLineEdit* txtTamannoFuentePrinc_;
    QLineEdit* txtTamannoFuenteListasCheck_;
    std::array<QRadioButton*, 2> optModoRepro_{};
    QComboBox* comMelodias_;
    QPushButton* butReproducir_;
    QSlider* sliderVolumenWMP_;
    QCheckBox* checkMinimizarTrasResp_;
    QCheckBox* checkImprimirAntesEnviaAceptar_;
    QPushButton* butAceptarConfig_;
    QPushButton* butCancelar_;
};
