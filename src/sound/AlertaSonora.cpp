#include "sound/AlertaSonora.h"

#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "sound/ReproductorAudio.h"
#include "sound/RutasArchivo.h"

#include <exception>

namespace {

// The extension test is a plain, case-sensitive search anywhere in the path: ".MP3" is
// not a melody, "x.mp3.bak" is.
bool pareceMelodia(const QString& ruta) {
    return ruta.contains(QLatin1String(".wav")) || ruta.contains(QLatin1String(".mp3"));
}

bool pregunta(const std::function<bool()>& f) {
    return f ? f() : false;
}

} // namespace

AlertaSonora::AlertaSonora(ModuloPrincipal& modulo, QObject* padre) : QObject(padre), m_(modulo) {}

AlertaSonora::~AlertaSonora() = default;

void AlertaSonora::setReproductores(std::unique_ptr<ReproductorAudio> comandos,
                                    std::unique_ptr<ReproductorAudio> medios) {
    comandos_ = std::move(comandos);
    medios_ = std::move(medios);
}

QString AlertaSonora::rutaFallback() const {
    return m_.CarpetaAplicacion + QLatin1Char('/') + MelodiaPorDefecto;
}

ReproductorAudio& AlertaSonora::comandos() const {
    if (!comandos_) {
        throw ErrorEjecucion(ErrorEjecucion::VariableDeObjetoNoEstablecida);
    }
    return *comandos_;
}

ReproductorAudio& AlertaSonora::medios() const {
    if (!medios_) {
        throw ErrorEjecucion(ErrorEjecucion::VariableDeObjetoNoEstablecida);
    }
    return *medios_;
}

void AlertaSonora::informar(const QString& texto) {
    Q_EMIT m_.textoInfo(texto);
}

void AlertaSonora::PrepararMelodia() {
    QString candidata = m_.CarpetaAplicacion + QLatin1Char('/') + m_.MelodiaPedNuevo;
    if (!rutas::ExisteArchivo(candidata) || !pareceMelodia(candidata)) {
        // The fallback itself is not checked: a missing one shows up when it is played.
        candidata = rutaFallback();
    }
    rutaMelodia_ = m_.TipoReproAudio == 0 ? rutas::RutaCorta(candidata) : candidata;
}

void AlertaSonora::PrepararMelodiaYVolumen() {
    PrepararMelodia();
    if (m_.TipoReproAudio == 1) {
        setVolumenReproductor(m_.VolumenMelodiaWmp);
    }
}

void AlertaSonora::ReproducirSonido() {
    if (m_.CancelarSonido) {
        return;
    }
    try {
        informar(QString());
        if (!pareceMelodia(rutaMelodia_)) {
            informar(TextoAviso + rutaMelodia_);
            rutaMelodia_ =
                m_.TipoReproAudio == 0 ? rutas::RutaCorta(rutaFallback()) : rutaFallback();
        }
        if (m_.TipoReproAudio == 1) {
            medios().reproducir(rutaMelodia_);
        } else {
            comandos().reproducir(rutaMelodia_);
        }
        Q_EMIT textoMusica(TextoParar);
    } catch (const ErrorEjecucion& e) {
        informar(e.descripcion());
    } catch (const std::exception& e) {
        informar(QString::fromLocal8Bit(e.what()));
    }
}

void AlertaSonora::DetenerSonido() {
    if (m_.CancelarSonido) {
        return;
    }
    try {
        informar(QString());
        if (m_.TipoReproAudio == 1) {
            medios().detener(rutaMelodia_);
        } else {
            comandos().detener(rutaMelodia_);
        }
        Q_EMIT textoMusica(TextoReproducir);
    } catch (const std::exception&) {
        informar(TextoProblemaDetener);
    }
}

void AlertaSonora::tickMusica() {
    const auto& s = silenciadores_;
    const bool pedido = m_.PedidoNuevoPendiente && !pregunta(s.TimerSilenciarActivo) &&
                        !pregunta(s.ProductosRechazarIngredientesPedidoVisible) &&
                        !pregunta(s.RechazarPedidoVisible) && !pregunta(s.AceptarPedidoVisible);
    const bool mensaje = m_.MensajeNuevoPendiente && !pregunta(s.TimerSilenciarMensajeActivo);
    if (!pedido && !mensaje) {
        return;
    }
    if (m_.TipoReproAudio == 0) {
        // No check whether it still sounds: the start is simply sent again.
        ReproducirSonido();
    } else if (m_.TipoReproAudio == 1) {
        QString estado;
        try {
            estado = medios().estado();
        } catch (const ErrorEjecucion& e) {
            informar(e.descripcion());
            return;
        }
        if (estado == ReproductorAudio::Detenido) {
            ReproducirSonido();
        }
    }
}

void AlertaSonora::alternarMusica() {
    // The flag decides, not the caption: after an automatic start the first click starts
    // the melody once more and only the second one stops it.
    if (musicaSonando_) {
        DetenerSonido();
        musicaSonando_ = false;
    } else {
        ReproducirSonido();
        musicaSonando_ = true;
    }
}

void AlertaSonora::setVolumenReproductor(int volumen) {
    medios().setVolumen(volumen);
}

bool AlertaSonora::musicaOfrecida() const {
    return !m_.CancelarSonido;
}

AlertaSonora& ModuloPrincipal::sonido() {
    if (!sonido_) {
        sonido_ = std::make_shared<AlertaSonora>(*this);
    }
    return *sonido_;
}
