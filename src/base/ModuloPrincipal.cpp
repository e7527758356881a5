#include "base/ModuloPrincipal.h"

ModuloPrincipal::ModuloPrincipal(QObject* padre) : QObject(padre) {
    setServidor(ServidorPorDefecto);
}

void ModuloPrincipal::setServidor(const QString& baseSinEsquema) {
    UrlBaseHttps = QStringLiteral("https://") + baseSinEsquema;
    UrlBaseHttp = QStringLiteral("http://") + baseSinEsquema;
    UrlBase = UrlBaseHttps;
}
