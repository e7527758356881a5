#pragma once

#include "sound/ReproductorAudio.h"

#include <QString>
#include <map>
#include <memory>

class AlertaSonora;
class QAudioOutput;
class QMediaPlayer;

// Mode 0: fire and forget. Every file gets its own player while it sounds, the way a
// command that names a file opens a device for it; a start of a file that is already sounding lets
// it go on, one that has finished starts it again; a stop stops only the file it names. A file that
// cannot be played is ignored, as such a command's result is. The volume is not used.
class ReproductorComandos final : public ReproductorAudio {
public:
    ReproductorComandos();
    ~ReproductorComandos() override;

    void reproducir(const QString& ruta) override;
    void detener(const QString& ruta) override;
    void setVolumen(int volumen) override;
    QString estado() const override;

private:
    struct Dispositivo {
        std::unique_ptr<QAudioOutput> salida;
        std::unique_ptr<QMediaPlayer> jugador;
    };
    std::map<QString, Dispositivo> dispositivos_;
};

// Mode 1: one media player, made on first use. Each start loads the file again and plays
// it from the beginning; the volume is kept; the state reads "Detenido" when stopped or
// finished, "Reproduciendo" while it sounds or loads, "En pausa" when paused.
class ReproductorMedios final : public ReproductorAudio {
public:
    ReproductorMedios();
    ~ReproductorMedios() override;

    void reproducir(const QString& ruta) override;
    void detener(const QString& ruta) override;
    void setVolumen(int volumen) override;
    QString estado() const override;

private:
    void crear();

    std::unique_ptr<QAudioOutput> salida_;
    std::unique_ptr<QMediaPlayer> jugador_;
    int volumen_ = 100;
};

// Gives the alert its two real players. The main window calls it once, at start.
void InstalarReproductoresQt(AlertaSonora& alerta);
