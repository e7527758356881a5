#include "platform/CanalHttp.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QTimer>
#include <QUrl>

CanalHttpQt::CanalHttpQt(QByteArray agente, int esperaMs)
    : red_(std::make_unique<QNetworkAccessManager>()), agente_(std::move(agente)),
      esperaMs_(esperaMs > 0 ? esperaMs : EsperaPorDefectoMs) {}

CanalHttpQt::~CanalHttpQt() = default;

RespuestaHttp CanalHttpQt::obtener(const QByteArray& url) {
    QNetworkRequest peticion(QUrl::fromEncoded(url));
    peticion.setTransferTimeout(esperaMs_);
    peticion.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                          QNetworkRequest::AlwaysNetwork);
    peticion.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    if (!agente_.isEmpty()) {
        peticion.setHeader(QNetworkRequest::UserAgentHeader, agente_);
    }

    QPointer<QNetworkReply> respuesta = red_->get(peticion);
    QEventLoop bucle;
    QObject::connect(respuesta.data(), &QNetworkReply::finished, &bucle, &QEventLoop::quit);
    // A second bound beside the transfer time-out: no answer ever keeps the desk waiting
    // longer than the whole allowance (a server that trickles bytes forever).
    QTimer limite;
    limite.setSingleShot(true);
    QObject::connect(&limite, &QTimer::timeout, respuesta.data(), &QNetworkReply::abort);
    limite.start(esperaMs_ * 2);
    if (!respuesta->isFinished()) {
        bucle.exec(QEventLoop::AllEvents);
    }

    RespuestaHttp r;
    if (respuesta) {
        const QVariant estado = respuesta->attribute(QNetworkRequest::HttpStatusCodeAttribute);
        const bool cancelada = respuesta->error() == QNetworkReply::OperationCanceledError ||
                               respuesta->error() == QNetworkReply::TimeoutError;
        // An HTTP status of an error passes its page on; a connection that broke after the
        // headers gave only part of a body, which is a failed transfer, not an answer.
        const bool redCaida = respuesta->error() != QNetworkReply::NoError &&
                              respuesta->error() <= QNetworkReply::UnknownNetworkError;
        r.conectado = !cancelada && !redCaida &&
                      (respuesta->error() == QNetworkReply::NoError || estado.isValid());
        if (r.conectado) {
            r.cuerpo = respuesta->readAll();
        }
        respuesta->deleteLater();
    }
    return r;
}
