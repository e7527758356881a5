#include "sound/ReproductoresQt_ui.h"

#include "sound/AlertaSonora.h"

#include <QAudioOutput>
#include <QFileInfo>
#include <QMediaPlayer>
#include <QUrl>
#include <algorithm>

namespace {

QString textoEstado(QMediaPlayer::PlaybackState estado) {
    switch (estado) {
    case QMediaPlayer::PlayingState:
        return QStringLiteral("Reproduciendo");
    case QMediaPlayer::PausedState:
        return QStringLiteral("En pausa");
    case QMediaPlayer::StoppedState:
        break;
    }
    return ReproductorAudio::Detenido;
}

} // namespace

// --- mode 0 ------------------------------------------------------------------------------

ReproductorComandos::ReproductorComandos() = default;

ReproductorComandos::~ReproductorComandos() = default;

void ReproductorComandos::reproducir(const QString& ruta) {
    if (ruta.isEmpty() || !QFileInfo(ruta).isFile()) {
        return;
    }
    auto encontrado = dispositivos_.find(ruta);
    if (encontrado == dispositivos_.end()) {
        // A finished device closes, so only what still sounds keeps a player.
        std::erase_if(dispositivos_, [](const auto& d) {
            return d.second.jugador->playbackState() != QMediaPlayer::PlayingState;
        });
        Dispositivo d;
        d.salida = std::make_unique<QAudioOutput>();
        d.jugador = std::make_unique<QMediaPlayer>();
        d.jugador->setAudioOutput(d.salida.get());
        d.jugador->setSource(QUrl::fromLocalFile(ruta));
        encontrado = dispositivos_.emplace(ruta, std::move(d)).first;
    }
    QMediaPlayer& jugador = *encontrado->second.jugador;
    if (jugador.playbackState() != QMediaPlayer::PlayingState) {
        jugador.play();
    }
}

void ReproductorComandos::detener(const QString& ruta) {
    const auto encontrado = dispositivos_.find(ruta);
    if (encontrado != dispositivos_.end()) {
        encontrado->second.jugador->stop();
    }
}

void ReproductorComandos::setVolumen(int /*volumen*/) {}

QString ReproductorComandos::estado() const {
    const bool alguno = std::any_of(dispositivos_.begin(), dispositivos_.end(), [](const auto& d) {
        return d.second.jugador->playbackState() == QMediaPlayer::PlayingState;
    });
    return alguno ? textoEstado(QMediaPlayer::PlayingState) : Detenido;
}

// --- mode 1 ------------------------------------------------------------------------------

ReproductorMedios::ReproductorMedios() = default;

ReproductorMedios::~ReproductorMedios() = default;

void ReproductorMedios::crear() {
    if (jugador_) {
        return;
    }
    salida_ = std::make_unique<QAudioOutput>();
    salida_->setVolume(static_cast<float>(volumen_) / 100.0F);
    jugador_ = std::make_unique<QMediaPlayer>();
    jugador_->setAudioOutput(salida_.get());
}

void ReproductorMedios::reproducir(const QString& ruta) {
    crear();
    jugador_->stop();
    const QUrl url = QUrl::fromLocalFile(ruta);
    if (jugador_->source() != url) {
        jugador_->setSource(url);
    }
    jugador_->play();
}

void ReproductorMedios::detener(const QString& /*ruta*/) {
    crear();
    jugador_->stop();
}

void ReproductorMedios::setVolumen(int volumen) {
    crear();
    volumen_ = std::clamp(volumen, 0, 100);
    salida_->setVolume(static_cast<float>(volumen_) / 100.0F);
}

QString ReproductorMedios::estado() const {
    return jugador_ ? textoEstado(jugador_->playbackState()) : Detenido;
}

void InstalarReproductoresQt(AlertaSonora& alerta) {
    alerta.setReproductores(std::make_unique<ReproductorComandos>(),
                            std::make_unique<ReproductorMedios>());
}
