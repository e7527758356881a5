#pragma once

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QString>
#include <QWidget>
#include <functional>
#include <type_traits>

class QPushButton;

namespace controles_ajustes {

// A control of a settings window under the name the desk's flows and tests know it by.
template <typename T> T* crear(QWidget* padre, const char* nombre, const QString& texto = {}) {
    auto* c = new T(padre); // owned by its window
    c->setObjectName(QLatin1String(nombre));
    if constexpr (std::is_base_of_v<QGroupBox, T>) {
        c->setTitle(texto);
    } else if constexpr (std::is_base_of_v<QLineEdit, T> || std::is_base_of_v<QLabel, T> ||
                         std::is_base_of_v<QAbstractButton, T>) {
        c->setText(texto);
    }
    return c;
}

// Keys a text field lets through as it is typed (pasting is not filtered).
enum class Teclas {
    Digitos,          // digits and backspace; anything else is swallowed
    DigitosConPitido, // the same, with the system's beep on a swallowed key
    DecimalConComa,   // digits, backspace and one "," ("." is typed as ",")
};
void FiltrarTeclas(QLineEdit* campo, Teclas teclas);

// The keyboard of a settings window: Enter presses the button that has the focus, or else
// `guardar` (none: Enter does nothing); Escape calls `cerrar`.
void InstalarTeclado(QWidget* ventana, QPushButton* guardar, std::function<void()> cerrar);

} // namespace controles_ajustes
