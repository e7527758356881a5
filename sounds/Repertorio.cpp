#include "Repertorio.h"

#include <map>

namespace {

using sinte::Melodia;
using T = sinte::Timbre;

std::string veces(const std::string& s, int n) {
    std::string r;
    for (int i = 0; i < n; ++i) {
        r += s + " ";
    }
    return r;
}

const std::map<std::string, Melodia>& repertorio() {
    static const std::map<std::string, Melodia> todas{
        // Four bowed voices, a short cadence that stops on an open question.
        {"cuarteto.mp3",
         {132,
          {{T::Arco, 0.9, "B5.4 D6.4 C6.2 B5.2 A5.4 G5.4 A5.2 B5.2 A5.8"},
           {T::Arco, 0.7, "G5.4 B5.4 A5.4 F#5.4 E5.4 F#5.4 F#5.8"},
           {T::Arco, 0.6, "D5.4 G5.4 E5.4 D5.4 C5.4 D5.4 D5.8"},
           {T::Arco, 0.8, "G3.8 C4.4 D4.4 E3.4 C3.4 D3.8"}},
          0.2}},
        // Neon arpeggios over a walking bass.
        {"neonita.mp3",
         {128,
          {{T::Pulso, 0.8,
            "A4.1 C5 E5 A5 F4 A4 C5 F5 C5 E5 G5 C6 G4 B4 D5 G5 "
            "A4 C5 E5 A5 F4 A4 C5 F5 C5 E5 G5 C6 B5.4",
            0.25},
           {T::Bajo, 0.7, "A2.4 F2.4 C3.4 G2.4 A2.4 F2.4 C3.4 G2.4"},
           {T::Charles, 0.3, veces("x.2", 16)}},
          0.25}},
        // A galloping brass call.
        {"caballer.mp3",
         {160,
          {{T::Metal, 0.9, "G4.2 G4.1 G4.1 C5.2 C5.1 C5.1 E5.2 E5.1 E5.1 G5!.4 E5.2 G5!.8"},
           {T::Metal, 0.6, "E4.2 E4.1 E4.1 G4.2 G4.1 G4.1 C5.2 C5.1 C5.1 E5.4 C5.2 E5.8"},
           {T::Caja, 0.5, "x.2 x.1 x.1 x.2 x.1 x.1 x.2 x.1 x.1 x.4 x.2 x!.8"},
           {T::Bombo, 0.6, "x.4 x.4 x.4 x.4 -.2 x!.8"}},
          0.12}},
        // A plucked tune in the old mode of D over a drone.
        {"trovador.mp3",
         {130,
          {{T::Cuerda, 1.0, "D4.2 A4.2 D5.2 F5.2 E5.2 C5.2 D5.4 A4.2 F5.2 E5.2 C5.2 D5.8"},
           {T::Cuerda, 0.6, "D3.8 C3.8 A2.8 D3.8"}},
          0.2}},
        // A bugle call on the natural notes.
        {"corneta.mp3",
         {120, {{T::Metal, 1.0, "C5.1 C5.1 G4.2 C5.2 E5.2 G5!.4 E5.2 C5.2 G5!.8"}}, 0.18}},
        {"corneta.wav",
         {108,
          {{T::Metal, 1.0, "D5.2 D5.1 D5.1 A5!.4 F#5.2 A5.2 D6!.8"},
           {T::Metal, 0.7, "A4.2 A4.1 A4.1 F#5.4 D5.2 F#5.2 A5.8"},
           {T::Bombo, 0.4, "x.4 -.4 x.2 x.2 x!.8"}},
          0.22}},
        // Rink organ with hand claps.
        {"hockey.mp3",
         {140,
          {{T::Organo, 0.9, "C5.2 D5.2 E5.2 G5.2 -.2 E5.2 G5.4 C6!.8"},
           {T::Organo, 0.5, "C4+G4.8 -.2 C4+G4.6 C4+E4+G4.8"},
           {T::Palmas, 0.6, "-.8 -.2 x.2 x.4 x.2 x.2 x.4"}},
          0.3}},
        // A muted power-chord riff.
        {"metalera.mp3",
         {150,
          {{T::Distorsion, 1.0,
            "E2+B2.1 E2+B2.1 E2+B2.1 -.1 G2+D3.2 E2+B2.1 E2+B2.1 A2+E3.2 G2+D3.2 F#2+C#3.2 "
            "E2+B2!.8"},
           {T::Bombo, 0.8, "x.1 x x x x.2 x.1 x x.2 x.2 x.2 x!.8"},
           {T::Caja, 0.6, "-.4 x.2 -.2 x.2 -.4 x!.8"}},
          0.08}},
        // A whistled tune over soft mallets.
        {"pinzel.mp3",
         {150,
          {{T::Flauta, 0.9, "E6.2 C6.2 G5.2 C6.2 E6.2 G6.4 -.2 F6.2 D6.2 B5.2 D6.2 G6.8"},
           {T::Marimba, 0.5, "C4.4 G4.4 C4.4 -.4 G3.4 D4.4 G3.8"},
           {T::Maracas, 0.3, veces("x.2", 16)}},
          0.2}},
        // Strings over the snare figure of a slow three.
        {"bolero.mp3",
         {96,
          {{T::Arco, 0.9, "C5.6 B4.1 C5.1 D5.1 C5.1 B4.1 A4.1 G4.4 A4.2 B4.2 C5.4"},
           {T::Caja, 0.45, veces("x.2 x.1 x.1 x.2 x.1 x.1 x.2 x.2", 2)},
           {T::Cuerda, 0.6, "C3.4 G2.4 G2.4 C3.4 G2.4 C3.4"}},
          0.25}},
        {"bolero.wav",
         {88,
          {{T::Cuerda, 1.0, "E5.3 D5.1 C5.2 B4.2 A4.4 C5.3 B4.1 A4.2 G#4.2 A4.4"},
           {T::Maracas, 0.2, veces("x.2 x.1 x.1 x.2 x.1 x.1 x.2 x.2", 2)},
           {T::Bajo, 0.5, "A2.4 E2.4 A2.4 E2.4 A2.8"}},
          0.25}},
        // Steel pans in a calypso lilt.
        {"arrecifa.mp3",
         {136,
          {{T::Acero, 1.0, "G5.2 E5.2 C5.2 E5.2 G5.3 G5.1 A5.2 G5.2 F5.2 D5.2 B4.2 D5.2 F5.4 E5.4"},
           {T::Bajo, 0.6, "C3.3 C3.3 G2.2 C3.3 C3.3 G2.2 G2.3 G2.3 D3.2 C3.8"},
           {T::Maracas, 0.3, veces("x.2", 16)}},
          0.2}},
        // A drum groove with a mallet call on top.
        {"ritmo.mp3",
         {118,
          {{T::Bombo, 1.0, "x.4 -.2 x.2 x.4 -.4 x.4 -.2 x.2 x.2 x.2 x.4"},
           {T::Caja, 0.7, "-.4 x.4 -.4 x.4 -.4 x.4 -.2 x.1 x.1 x!.4"},
           {T::Charles, 0.4, veces("x.2", 16)},
           {T::Marimba, 0.6, "G5.2 G5.2 -.4 D6.2 -.2 B5.4 G5.2 G5.2 -.4 D6.2 E6.2 G6.4"}},
          0.1}},
        {"ritmo.wav",
         {104,
          {{T::Conga, 0.8, veces("G3.2 C4.1 C4.1 G3.2 C4.2 G3.2 C4.1 C4.1 D4.2 C4.2", 2)},
           {T::Clave, 0.5, veces("x.3 x.3 x.4 -.2 x.2 x.2", 2)},
           {T::Marimba, 0.6, veces("C6.2 G5.2 C6.1 C6.1 G5.2 C6.2 G5.2 D6.4", 2)},
           {T::Bombo, 0.5, veces("x.4 -.4", 4)}},
          0.12}},
        // A piano figure in a clave pattern, fast.
        {"caderas.mp3",
         {180,
          {{T::Piano, 0.9,
            "C5+E5.2 G5.1 C5+E5.2 G5.1 C5+F5.2 A5.1 C5+F5.2 A5.1 B4+D5.2 G5.2 "
            "B4+D5.2 G5.1 B4+D5.2 G5.1 C5+E5.2 G5.2 C5+E5+G5!.6"},
           {T::Clave, 0.5, veces("x.3 x.3 x.4 -.2 x.2 x.2", 2)},
           {T::Conga, 0.6, veces("-.2 G3.1 G3.1 -.2 C4.1 C4.1 -.2 G3.1 G3.1 -.2 C4.2", 2)},
           {T::Bajo, 0.6, "C3.6 G2.2 F2.6 C3.2 G2.6 D3.2 C3.8"}},
          0.15}},
        // Two slow rises and falls.
        {"sirena.mp3",
         {60, {{T::Sirena, 1.0, "A4.12", 2.0}, {T::Sirena, 0.3, "A3.12", 2.0}}, 0.15}},
        // Four on the floor with chord stabs.
        {"tecno.mp3",
         {128,
          {{T::Bombo, 1.0, veces("x.4", 8)},
           {T::Charles, 0.4, veces("-.2 x.2", 8)},
           {T::Supersierra, 0.8,
            "A4+C5+E5.1 -.2 A4+C5+E5.1 -.2 A4+C5+E5.2 -.1 G4+B4+D5.1 -.2 G4+B4+D5.4 "
            "F4+A4+C5.1 -.2 F4+A4+C5.1 -.2 F4+A4+C5.2 -.1 G4+B4+E5.4 -.3"},
           {T::Palmas, 0.4, veces("-.4 x.4", 4)}},
          0.2}},
        // A squelching bass line with a bell on top.
        {"tecno2.mp3",
         {132,
          {{T::Acido, 0.9, veces("A2.1 A2 A3 A2 C3 A2 G3 A2 A2 A2 E3 A2 D3 C3 A3 G3", 2)},
           {T::Bombo, 0.9, veces("x.4", 8)},
           {T::Palmas, 0.5, veces("-.4 x.4", 4)},
           {T::Celesta, 0.4, "-.16 E6.2 -.2 E6.2 -.2 G6.4 -.4"}},
          0.15}},
        // Bell telephones: one long ring, double rings, triple rings.
        {"telef1_1.mp3", {60, {{T::Telefono, 1.0, "C6.6 -.2 C6.6", 20.0}}, 0.1}},
        {"telef1_2.mp3", {60, {{T::Telefono, 1.0, "A5.2 -.1 A5.2 -.3 A5.2 -.1 A5.2", 18.0}}, 0.1}},
        {"telef1_3.mp3",
         {60,
          {{T::Telefono, 1.0, "E6.1 -.1 E6.1 -.1 E6.1 -.3 E6.1 -.1 E6.1 -.1 E6.1", 24.0}},
          0.1}},
        // Electronic warbles.
        {"telef2_1.mp3", {60, {{T::Trino, 1.0, "A5.5 -.2 A5.5", 16.0}}, 0.05}},
        {"telef2_2.mp3", {60, {{T::Trino, 1.0, "D6.2 -.1 D6.2 -.3 D6.2 -.1 D6.2", 20.0}}, 0.05}},
        {"telef2_3.mp3",
         {60,
          {{T::Trino, 1.0, "F5.3 -.1 F5.3 -.1 F5.3", 11.0},
           {T::Trino, 0.3, "F4.3 -.1 F4.3 -.1 F4.3", 11.0}},
          0.05}},
        // Chip beeps.
        {"telef3_1.mp3",
         {140, {{T::Cuadrada, 1.0, veces("E6.1 C6.1 E6.1 C6.1 E6.1 C6.1 -.2", 4)}}, 0.1}},
        {"telef3_2.mp3",
         {140,
          {{T::Pulso, 1.0,
            "C6.1 E6.1 G6.1 C7.1 -.4 C6.1 E6.1 G6.1 C7.1 -.4 D6.1 F#6.1 A6.1 D7.1 -.4 D6.1 "
            "F#6.1 A6.1 D7.4",
            0.125}},
          0.15}},
        {"telef3_3.mp3",
         {120, {{T::Cuadrada, 1.0, veces("A6.2 -.1 A6.2 -.5", 2) + "A6.2 -.1 A6.2"}}, 0.1}},
        // A single fast-struck bell.
        {"telefon1.mp3", {60, {{T::Campanilla, 1.0, "D6.6 -.2 D6.6", 25.0}}, 0.12}},
        {"telefon1.wav", {60, {{T::Campanilla, 1.0, "B5.4 -.1 B5.4 -.3 B5.4", 30.0}}, 0.12}},
        // Ring tunes: mallets, then bells.
        {"telefon2.mp3",
         {150,
          {{T::Marimba, 1.0,
            "C6.1 G5.1 E6.2 D6.1 C6.1 G5.2 A5.1 C6.1 F6.2 E6.1 D6.1 C6.2 C6.1 G5.1 E6.2 D6.1 "
            "C6.1 G6!.4"},
           {T::Marimba, 0.5, "C4.8 F4.8 C4.10"}},
          0.15}},
        {"telefon2.wav",
         {132,
          {{T::Campana, 0.9, "G5.2 B5.2 D6.2 G6.2 F#6.2 D6.2 A5.4 G5.2 B5.2 D6.2 B6.2 A6.4 G6.4"}},
          0.2}},
        // Sparkling bells in three.
        {"titania.mp3",
         {150,
          {{T::Celesta, 0.9,
            "C6.2 E6.2 G6.2 C7.2 B6.2 G6.2 A6.2 F6.2 D6.2 B5.2 D6.2 F6.2 E6.2 G6.2 C7.2 E7.6"},
           {T::Campana, 0.4, "C5.12 F5.12 C5.12"},
           {T::Flauta, 0.3, "E5.12 D5.12 E5.12"}},
          0.35}},
    };
    return todas;
}

} // namespace

const sinte::Melodia* BuscarMelodia(const std::string& nombre) {
    const auto& todas = repertorio();
    const auto it = todas.find(nombre);
    return it == todas.end() ? nullptr : &it->second;
}
