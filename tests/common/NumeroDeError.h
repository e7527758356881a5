#pragma once

#include "base/ErrorEjecucion.h"

#include <functional>

// The number of the run-time error an action raises, 0 when it raises none.
inline int numeroDeError(const std::function<void()>& accion) {
    try {
        accion();
    } catch (const ErrorEjecucion& e) {
        return e.numero();
    }
    return 0;
}
