#pragma once

#include <QString>
#include <QStringList>
#include <functional>

// What the system says about where the alert melody would sound.
struct EstadoSalidaAudio {
    // The session's sound server: none that answers, one without any output, or one that
    // told the state of its default output.
    enum class Servidor { Ausente, SinSalida, Respondio };

    bool hayDispositivo = false; // the system lists at least one audio output
    Servidor servidor = Servidor::Ausente;
    bool silenciada = false; // the default output, when the server answered
    int volumen = 100;       // percent of the default output, when the server answered
};

// The question the desk asks every few minutes; the window side answers it from the
// system, tests from a table.
class SalidaAudio {
public:
    virtual ~SalidaAudio() = default;
    virtual EstadoSalidaAudio leer() = 0;
};

// One run of a program of the sound server.
struct RespuestaPrograma {
    bool arranco = false; // false: the program is not installed
    int codigo = -1;      // exit code; -1 when it did not end in time
    QString salida;       // standard output and error
};
using EjecutarPrograma =
    std::function<RespuestaPrograma(const QString& programa, const QStringList& argumentos)>;

// Runs a program in the C locale and waits at most `esperaMs` for it (then kills it).
RespuestaPrograma EjecutarAcotado(const QString& programa, const QStringList& argumentos,
                                  int esperaMs = 1000);

// Fills the server's part of `e`: asks pactl for the default output's mute and volume, or
// wpctl where there is no pactl. A server that does not answer in time, or answers what
// cannot be read, counts as absent: the device list alone then decides.
void LeerServidorSonido(EstadoSalidaAudio& e, const EjecutarPrograma& ejecutar);
