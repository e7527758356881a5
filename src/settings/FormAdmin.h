#pragma once

#include <QWidget>
#include <functional>

class ModuloPrincipal;
class QLineEdit;
class QPushButton;
class QComboBox;
class QCheckBox;
class QLabel;

// The login window: binds the desk to one establishment. Only a successful reading of the
// establishment's configuration with the entered id, password and number counts as a
// login; then the identity is kept in config.txt. Created once and hidden, never closed.
class FormAdmin : public QWidget {
    Q_OBJECT
public:
    // `aplicarConfiguracion` writes a fresh configuration into the main window.
    FormAdmin(ModuloPrincipal& m, std::function<void()> aplicarConfiguracion,
              QWidget* padre = nullptr);

    void botVerpassClick();
    void butAceptarClick();

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    void Load();
    void protegido(const std::function<void()>& manejador);

    ModuloPrincipal& m_;
    std::function<void()> aplicar_;
    QLineEdit* txtIdEstablecimiento_;
    QLineEdit* txtPassword_;
    QPushButton* botVerpass_;
    QComboBox* comboNumConfig_;
    QCheckBox* checkInicioWindows_;
    QPushButton* butAceptar_;
    QLabel* label3_;
};
