#pragma once

// A small deterministic synthesiser for the desk's alert melodies: note sequences in a
// plain text notation, a few dozen lines of signal per instrument, a light room echo,
// 16-bit mono PCM out. The same input gives the same samples on every run.

#include <cstdint>
#include <string>
#include <vector>

namespace sinte {

constexpr int Muestreo = 44100;

enum class Timbre {
    Arco,     // bowed string
    Flauta,   // whistle / flute
    Campana,  // FM bell
    Celesta,  // small bright bell
    Cuerda,   // plucked string
    Metal,    // brass
    Organo,   // drawbar organ
    Cuadrada, // square wave, chip sound
    Pulso,    // narrow pulse
    Marimba,
    Acero, // steel pan
    Piano,
    Distorsion, // overdriven guitar
    Bajo,
    Supersierra, // detuned saws
    Acido,       // resonant bass
    Bombo,
    Caja,
    Charles,
    Palmas,
    Clave,
    Conga,
    Maracas,
    Telefono,   // two bells struck by a hammer
    Campanilla, // one bell struck fast
    Trino,      // electronic two-tone warble
    Sirena,     // rising and falling sweep
};

// One voice. `notas` is a list of tokens separated by blanks; "|" is ignored.
// A token is one pitch ("C5", "F#4", "Bb3"), a chord ("C4+E4+G4"), a rest ("-") or a hit
// ("x", drums, pitch unused), then optionally "." and a length in sixteenths; without it
// the previous length holds. A "!" anywhere in the token makes it accented.
// `parametro` tunes some instruments (hammer or warble rate in Hz, sweeps per note, pulse
// width); 0 keeps the instrument's own value.
struct Pista {
    Timbre timbre;
    double ganancia;
    std::string notas;
    double parametro = 0.0;
};

struct Melodia {
    double pulsosPorMinuto;
    std::vector<Pista> pistas;
    double eco = 0.12; // share of the room echo
};

// Samples between -1 and 1, peak-normalised, with a short fade at the end.
std::vector<float> Renderizar(const Melodia& m);

// Writes a RIFF/WAVE file, 16-bit mono at Muestreo Hz. Returns false when it cannot.
bool EscribirWav(const std::string& ruta, const std::vector<float>& muestras);

} // namespace sinte
