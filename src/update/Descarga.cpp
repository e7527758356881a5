#include "update/Descarga.h"

#include <QDir>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTemporaryFile>
#include <QTimer>
#include <cstdio>
#include <unistd.h>

Descarga::Descarga(QObject* padre)
    : QObject(padre), red_(std::make_unique<QNetworkAccessManager>()), silencio_(new QTimer(this)) {
    silencio_->setSingleShot(true);
    connect(silencio_, &QTimer::timeout, this, [this] {
        fallar(Resultado::Fallida, QStringLiteral("el servidor dejó de enviar datos"));
    });
}

Descarga::~Descarga() {
    soltar();
}

void Descarga::soltar() {
    silencio_->stop();
    if (respuesta_ != nullptr) {
        respuesta_->disconnect(this);
        respuesta_->abort();
        respuesta_->deleteLater();
        respuesta_ = nullptr;
    }
    temporal_.reset(); // removes the temporary file unless it became the target
}

void Descarga::iniciar(const QUrl& url, const QString& destino) {
    soltar();
    destino_ = destino;
    recibidos_ = 0;
    total_ = -1;
    errorEscritura_ = false;
    const QFileInfo info(destino);
    temporal_ = std::make_unique<QTemporaryFile>(
        QDir(info.absolutePath())
            .filePath(QLatin1Char('.') + info.fileName() + QStringLiteral(".descarga-XXXXXX")));
    if (!temporal_->open()) {
        // Reported from the event loop, as every other end.
        QTimer::singleShot(0, this, [this] {
            fallar(Resultado::SinEscribir,
                   QStringLiteral("no se puede escribir en %1").arg(QFileInfo(destino_).path()));
        });
        return;
    }
    QNetworkRequest peticion(url);
    peticion.setTransferTimeout(0); // a long transfer is fine; a silence is not (below)
    peticion.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                          QNetworkRequest::NoLessSafeRedirectPolicy);
    respuesta_ = red_->get(peticion);
    // Read in slices: tens of megabytes never sit in memory, and the bar moves with each.
    respuesta_->setReadBufferSize(256 * 1024);
    connect(respuesta_, &QNetworkReply::metaDataChanged, this, [this] {
        const QVariant largo = respuesta_->header(QNetworkRequest::ContentLengthHeader);
        total_ = largo.isValid() ? largo.toLongLong() : -1;
        Q_EMIT progreso(recibidos_, total_);
    });
    connect(respuesta_, &QNetworkReply::readyRead, this, &Descarga::leer);
    connect(respuesta_, &QNetworkReply::finished, this, &Descarga::acabar);
    silencio_->start(esperaSinDatosMs_);
}

void Descarga::leer() {
    silencio_->start(esperaSinDatosMs_);
    const QByteArray bloque = respuesta_->readAll();
    if (bloque.isEmpty()) {
        return;
    }
    if (!errorEscritura_ && temporal_->write(bloque) != bloque.size()) {
        errorEscritura_ = true;
    }
    recibidos_ += bloque.size();
    Q_EMIT progreso(recibidos_, total_);
}

void Descarga::acabar() {
    leer();
    const int estado = respuesta_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QNetworkReply::NetworkError error = respuesta_->error();
    const QString textoError = respuesta_->errorString();
    if (errorEscritura_) {
        fallar(Resultado::SinEscribir, temporal_->errorString());
        return;
    }
    if (total_ >= 0 && recibidos_ < total_) {
        fallar(Resultado::Incompleta,
               QStringLiteral("llegaron %1 de %2 bytes").arg(recibidos_).arg(total_));
        return;
    }
    if (error != QNetworkReply::NoError || estado != 200) {
        fallar(Resultado::Fallida, estado != 0 && estado != 200
                                       ? QStringLiteral("el servidor respondió %1").arg(estado)
                                       : textoError);
        return;
    }
    if (recibidos_ == 0) {
        fallar(Resultado::Fallida, QStringLiteral("el fichero descargado está vacío"));
        return;
    }
    // On disk before it takes the target's name, so a power cut cannot leave a torn file.
    if (!temporal_->flush() || ::fsync(temporal_->handle()) != 0) {
        fallar(Resultado::SinEscribir, temporal_->errorString());
        return;
    }
    QFileDevice::Permissions permisos = QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                        QFileDevice::ReadGroup | QFileDevice::ReadOther;
    if (ejecutable_) {
        permisos |= QFileDevice::ExeOwner | QFileDevice::ExeGroup | QFileDevice::ExeOther;
    }
    const QString temporal = temporal_->fileName();
    if (!temporal_->setPermissions(permisos) ||
        std::rename(QFile::encodeName(temporal).constData(),
                    QFile::encodeName(destino_).constData()) != 0) {
        fallar(Resultado::SinEscribir, QStringLiteral("no se puede reemplazar %1").arg(destino_));
        return;
    }
    temporal_->setAutoRemove(false);
    soltar();
    Q_EMIT terminada(Resultado::Completa, QString());
}

void Descarga::fallar(Resultado r, const QString& detalle) {
    soltar();
    Q_EMIT terminada(r, detalle);
}
