#pragma once

#include <functional>

class CajaMensajes;

// The top of every event handler: a run-time error that nothing else caught shows the
// platform's report box ("Error en tiempo de ejecución 'n': texto") and abandons only
// this event; the desk goes on. Returns false when the handler was abandoned.
bool EjecutarProtegido(CajaMensajes& cajas, const std::function<void()>& manejador);
