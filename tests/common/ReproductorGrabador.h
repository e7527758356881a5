#pragma once

#include "base/ErrorEjecucion.h"
#include "sound/AlertaSonora.h"
#include "sound/ReproductorAudio.h"

#include <QString>
#include <QStringList>
#include <memory>

// A player for tests: logs every call as one line ("reproducir <ruta>", "detener <ruta>",
// "volumen <n>") into a log the test keeps, answers `estado` from a field the test sets,
// and throws ErrorEjecucion on every call while `fallo` is non-zero.
class ReproductorGrabador final : public ReproductorAudio {
public:
    struct Registro {
        QStringList llamadas;
        QString estado = ReproductorAudio::Detenido;
        int fallo = 0;
    };

    explicit ReproductorGrabador(std::shared_ptr<Registro> r) : r_(std::move(r)) {}

    void reproducir(const QString& ruta) override { anotar(QStringLiteral("reproducir ") + ruta); }
    void detener(const QString& ruta) override { anotar(QStringLiteral("detener ") + ruta); }
    void setVolumen(int volumen) override {
        anotar(QStringLiteral("volumen ") + QString::number(volumen));
    }
    QString estado() const override {
        if (r_->fallo != 0) {
            throw ErrorEjecucion(r_->fallo);
        }
        return r_->estado;
    }

private:
    void anotar(const QString& linea) {
        if (r_->fallo != 0) {
            throw ErrorEjecucion(r_->fallo);
        }
        r_->llamadas << linea;
    }

    std::shared_ptr<Registro> r_;
};

// Both players of the alert recording: the mode-0 one into `registro`, the mode-1 one into a
// record of its own (the order windows' tests never use it).
inline void InstalarGrabadores(AlertaSonora& sonido,
                               std::shared_ptr<ReproductorGrabador::Registro> registro) {
    sonido.setReproductores(
        std::make_unique<ReproductorGrabador>(std::move(registro)),
        std::make_unique<ReproductorGrabador>(std::make_shared<ReproductorGrabador::Registro>()));
}
