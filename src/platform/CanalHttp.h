#pragma once

#include <QByteArray>
#include <memory>

class QNetworkAccessManager;

// What a transfer gave: whether an HTTP answer came at all, and its body as bytes.
struct RespuestaHttp {
    bool conectado = false;
    QByteArray cuerpo;
};

// One HTTP GET channel. A call waits for the answer in a local event loop, so timers and
// window events run meanwhile, exactly where the desk expects re-entry.
class CanalHttp {
public:
    virtual ~CanalHttp() = default;
    // `url` is pure ASCII, already percent-encoded where a request line needs it.
    virtual RespuestaHttp obtener(const QByteArray& url) = 0;
};

// The real channel over QNetworkAccessManager, with a bounded transfer time.
class CanalHttpQt : public CanalHttp {
public:
    static constexpr int EsperaPorDefectoMs = 60000;

    explicit CanalHttpQt(QByteArray agente = QByteArray(), int esperaMs = EsperaPorDefectoMs);
    ~CanalHttpQt() override;

    RespuestaHttp obtener(const QByteArray& url) override;

private:
    std::unique_ptr<QNetworkAccessManager> red_;
    QByteArray agente_;
    int esperaMs_;
};
