#include "sound/VigilanciaSonido.h"

#include "base/ModuloPrincipal.h"
#include "platform/SalidaAudio.h"
#include "platform/Temporizador.h"

namespace {

QString noSeOira(const char* causa, const char* remedio) {
    return QStringLiteral("No se oirá la melodía de los pedidos nuevos: %1. Por favor, %2.")
        .arg(QString::fromUtf8(causa), QString::fromUtf8(remedio));
}

} // namespace

QString AvisoSonido(const EstadoSalidaAudio& e, const ModuloPrincipal& m) {
    if (m.CancelarSonido) {
        return QString();
    }
    using Servidor = EstadoSalidaAudio::Servidor;
    if (!e.hayDispositivo || e.servidor == Servidor::SinSalida) {
        return noSeOira("el equipo no tiene ninguna salida de sonido",
                        "compruebe los altavoces y los conectores");
    }
    if (e.servidor == Servidor::Respondio && e.silenciada) {
        return noSeOira("el sonido del equipo está silenciado", "active el sonido");
    }
    if (e.servidor == Servidor::Respondio && e.volumen <= 0) {
        return noSeOira("el volumen del equipo está a cero", "suba el volumen");
    }
    // The media player plays at the configured volume; the other player ignores it.
    if (m.TipoReproAudio == 1 && m.VolumenMelodiaWmp <= 0) {
        return noSeOira("el volumen de la melodía está a cero en la configuración",
                        "súbalo en Configuración");
    }
    return QString();
}

VigilanciaSonido::VigilanciaSonido(ModuloPrincipal& m, std::unique_ptr<SalidaAudio> salida,
                                   QObject* padre)
    : QObject(padre), m_(m), salida_(std::move(salida)), timer_(new Temporizador(this)) {
    connect(timer_, &Temporizador::tick, this, &VigilanciaSonido::comprobar);
}

VigilanciaSonido::~VigilanciaSonido() = default;

void VigilanciaSonido::iniciar() {
    comprobar();
    timer_->setInterval(IntervaloMs);
    timer_->setEnabled(true);
}

void VigilanciaSonido::comprobar() {
    const QString nuevo = AvisoSonido(salida_->leer(), m_);
    if (nuevo != aviso_) {
        aviso_ = nuevo;
        Q_EMIT avisoCambiado(aviso_);
    }
}
