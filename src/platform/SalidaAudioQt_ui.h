#pragma once

#include "platform/SalidaAudio.h"

// The system's answer: Qt Multimedia's list of audio outputs, and the session's sound
// server through pactl or wpctl (each run bounded to a second).
class SalidaAudioSistema : public SalidaAudio {
public:
    EstadoSalidaAudio leer() override;
};
