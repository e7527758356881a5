#include "platform/Temporizador.h"

Temporizador::Temporizador(QObject* padre) : QObject(padre) {
    timer_.setTimerType(Qt::CoarseTimer);
    connect(&timer_, &QTimer::timeout, this, &Temporizador::tick);
}

void Temporizador::setEnabled(bool on) {
    if (on == enabled_) {
        return;
    }
    enabled_ = on;
    reiniciar();
}

void Temporizador::setInterval(int ms) {
    interval_ = ms < 0 ? 0 : ms;
    reiniciar();
}

void Temporizador::reiniciar() {
    timer_.stop();
    if (enabled_ && interval_ > 0) {
        timer_.start(interval_);
    }
}
