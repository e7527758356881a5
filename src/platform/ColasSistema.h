#pragma once

#include <QByteArray>
#include <QString>

// The local print system, as far as the desk needs it: raw jobs on a named queue, and the
// emptying of every queue. Each call to the print system is bounded.

enum class EstadoCola {
    Lista,    // takes jobs and prints them
    NoExiste, // no queue of that name
    Detenida, // takes jobs but keeps them: nothing prints until somebody starts it again
    Rechaza,  // refuses new jobs
};

// What the print system says of `cola` now.
EstadoCola EstadoColaSistema(const QString& cola);

// The description of a queue that will not print, for the printer's box; empty when it is
// ready.
QString TextoEstadoCola(const QString& cola, EstadoCola estado);

enum class ResultadoTrabajoCrudo {
    Hecho,
    SinCola, // the queue is gone, or refused to take the job
    Fallo,   // the job was opened and the bytes did not all get through
};

// Hands `datos` to `cola` as one raw job (no filter touches the bytes), titled `titulo`.
// A job that could not be completed is cancelled.
ResultadoTrabajoCrudo EnviarTrabajoCrudo(const QString& cola, const QByteArray& datos,
                                         const QString& titulo);

// Cancels the jobs waiting in the local print queues within `limiteMs` per request. Returns
// the number of jobs cancelled, or -1 when the print system could not be reached.
int CancelarTrabajosPendientes(int limiteMs = 5000);
