#include "shell/ModuloPrincipal.h"

#include "platform/CajaMensajes.h"
#include "platform/CanalHttp.h"
#include "platform/Reloj.h"
#include "printing/CanalEP.h"
#include "printing/ImpresoraDW.h"
#include "printing/ImpresorasDWNinguna.h"
#include "server/Pasarela.h"
#include "sound/AlertaSonora.h"

ModuloPrincipal::ModuloPrincipal(QObject* padre)
    : QObject(padre), reloj_(std::make_unique<RelojSistema>()),
      cajas_(std::make_unique<RegistroCajas>()), pasarela_(std::make_unique<Pasarela>(*this)),
      sonido_(std::make_unique<AlertaSonora>(*this)), canalEP_(std::make_unique<CanalEP>()),
      impresorasDW_(std::make_unique<ImpresorasDWNinguna>()) {
    setServidor(ServidorPorDefecto);
}

ModuloPrincipal::~ModuloPrincipal() = default;

void ModuloPrincipal::setReloj(std::unique_ptr<Reloj> r) {
    reloj_ = std::move(r);
}

void ModuloPrincipal::setImpresorasDW(std::unique_ptr<ImpresorasDW> i) {
    impresorasDW_ = std::move(i);
}

void ModuloPrincipal::setCajas(std::unique_ptr<CajaMensajes> c) {
    cajas_ = std::move(c);
}

void ModuloPrincipal::setCanales(std::unique_ptr<CanalHttp> directo,
                                 std::unique_ptr<CanalHttp> inet1,
                                 std::unique_ptr<CanalHttp> inet2) {
    pasarela_->setCanales(std::move(directo), std::move(inet1), std::move(inet2));
}

QString ModuloPrincipal::ConsultarServidor(const QString& ruta) {
    return pasarela_->ConsultarServidor(ruta);
}

void ModuloPrincipal::setServidor(const QString& baseSinEsquema) {
    UrlBaseHttps = QStringLiteral("https://") + baseSinEsquema;
    UrlBaseHttp = QStringLiteral("http://") + baseSinEsquema;
    UrlBase = UrlBaseHttps;
}
