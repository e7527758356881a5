#pragma once

#include <QObject>

class QSocketNotifier;

// Turns SIGTERM, SIGINT and SIGHUP into a Qt signal on the event loop, so that a desk told
// to stop by the system (end of session, service manager, Ctrl-C) closes like a window
// closed by the session: no question, timers stopped, windows closed.
class SenalesTerminacion : public QObject {
    Q_OBJECT
public:
    explicit SenalesTerminacion(QObject* padre = nullptr);
    ~SenalesTerminacion() override;

Q_SIGNALS:
    void terminar();

private:
    QSocketNotifier* notificador_ = nullptr;
};
