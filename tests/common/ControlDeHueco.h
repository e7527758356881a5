#pragma once

#include <QWidget>
#include <gtest/gtest.h>

// Control `nombre` of the printer panel of `slot` (the panels' controls share a name and differ
// by their Index).
template <typename T> T* ControlDeHueco(QWidget* ventana, const char* nombre, int slot) {
    for (T* c : ventana->findChildren<T*>(QLatin1String(nombre))) {
        if (c->property("Index").toInt() == slot - 1) {
            return c;
        }
    }
    ADD_FAILURE() << nombre << " " << slot;
    return nullptr;
}
