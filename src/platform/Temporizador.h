#pragma once

#include <QObject>
#include <QTimer>

// A timer with the classic rules: an interval of 0 never fires; switching it on, or
// changing the interval while it is on, starts the count again; switching on a timer
// that is already on changes nothing. `Enabled` and `Interval` stay readable whatever
// the interval, so a timer can be "on" with interval 0 and simply never tick.
class Temporizador : public QObject {
    Q_OBJECT
public:
    explicit Temporizador(QObject* padre = nullptr);

    bool enabled() const { return enabled_; }
    void setEnabled(bool on);
    int interval() const { return interval_; }
    void setInterval(int ms);

    // The tick itself, also for tests that must not wait for the real time.
    void disparar() { Q_EMIT tick(); }

Q_SIGNALS:
    void tick();

private:
    void reiniciar();

    QTimer timer_;
    bool enabled_ = false;
    int interval_ = 0;
};
