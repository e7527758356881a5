// Writes one of the desk's melodies as a WAV file:
//   generador_melodias <melody file name> <output.wav>
// The mp3 melodies are encoded from this output by the build.
#include "Repertorio.h"
#include "Sintetizador.h"

#include <cstdio>
#include <exception>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "uso: %s <melodía> <salida.wav>\n", argv[0]);
        return 2;
    }
    const sinte::Melodia* m = BuscarMelodia(argv[1]);
    if (m == nullptr) {
        std::fprintf(stderr, "melodía desconocida: %s\n", argv[1]);
        return 2;
    }
    try {
        if (!sinte::EscribirWav(argv[2], sinte::Renderizar(*m))) {
            std::fprintf(stderr, "no se puede escribir %s\n", argv[2]);
            return 1;
        }
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s: %s\n", argv[1], e.what());
        return 1;
    }
    return 0;
}
