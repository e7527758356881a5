#include "platform/EjecucionProtegida.h"

#include "base/ErrorEjecucion.h"
#include "platform/CajaMensajes.h"

#include <new>

bool EjecutarProtegido(CajaMensajes& cajas, const std::function<void()>& manejador) {
    try {
        manejador();
        return true;
    } catch (const ErrorEjecucion& e) {
        cajas.critico(e.textoInforme());
    } catch (const std::bad_alloc&) {
        cajas.critico(ErrorEjecucion(7).textoInforme());
    } catch (const std::exception&) {
        cajas.critico(ErrorEjecucion(5).textoInforme());
    }
    return false;
}
