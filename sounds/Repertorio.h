#pragma once

#include "Sintetizador.h"

#include <string>

// The desk's own melodies, by file name ("corneta.mp3", "corneta.wav", ...). The two
// files that share a stem are different arrangements. Null for an unknown name.
const sinte::Melodia* BuscarMelodia(const std::string& nombre);
