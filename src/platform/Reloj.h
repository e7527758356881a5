#pragma once

#include <QDateTime>

// "Now" for the whole desk: cache busters, ticket dates, acceptance times.
class Reloj {
public:
    virtual ~Reloj() = default;
    virtual QDateTime ahora() const = 0;
};

class RelojSistema : public Reloj {
public:
    QDateTime ahora() const override { return QDateTime::currentDateTime(); }
};

// A clock that stands where a test puts it.
class RelojFijo : public Reloj {
public:
    explicit RelojFijo(QDateTime momento) : momento_(std::move(momento)) {}
    QDateTime ahora() const override { return momento_; }
    void fijar(QDateTime momento) { momento_ = std::move(momento); }
    void avanzarSegundos(qint64 s) { momento_ = momento_.addSecs(s); }

private:
    QDateTime momento_;
};
