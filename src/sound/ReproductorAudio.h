#pragma once

#include <QString>

// One way of sounding a melody file. The desk keeps two: the fire-and-forget player of
// mode 0 (every start names the file, a start of a file already sounding lets it go on,
// a stop names the file it stops) and the media player of mode 1 (one source that each
// start loads again from the beginning, a volume and a state text). Both return at once
// and the sound runs on by itself. A player may throw ErrorEjecucion when it cannot act.
class ReproductorAudio {
public:
    // The state text of a player that is not sounding.
    static inline const QString Detenido = QStringLiteral("Detenido");

    virtual ~ReproductorAudio() = default;

    virtual void reproducir(const QString& ruta) = 0;
    // A player with a single source stops it whatever the path.
    virtual void detener(const QString& ruta) = 0;
    // 0 to 100.
    virtual void setVolumen(int volumen) = 0;
    // "Detenido" when stopped or finished; another word while loading or sounding.
    virtual QString estado() const = 0;
};
