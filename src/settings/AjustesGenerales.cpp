#include "settings/AjustesGenerales.h"

#include "base/Conversiones.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "server/TextoServidor.h"
#include "sound/AlertaSonora.h"

namespace ajustes_generales {

QString ProblemaTamannoFuente(const QString& texto) {
    if (texto.isEmpty()) {
        return TamannoVacio;
    }
    const std::optional<double> valor = clasico::Valor(texto);
    if (!valor) {
        throw ErrorEjecucion(ErrorEjecucion::NoCoincidenLosTipos);
    }
    return *valor < 8 || *valor > 16 ? TamannoFueraDeRango : QString();
}

QString PeticionConfigGeneral(const ModuloPrincipal& m) {
    return QStringLiteral("pedidosgprs/actualizarConfigGeneral?idEstablecimiento=") +
           QString::number(m.IdEstablecimiento) + QStringLiteral("&passwordconfig=") +
           m.PasswordConfig + QStringLiteral("&numconfig=") + QString::number(m.NumConfig) +
           QStringLiteral("&tamannofuenteprincipales=") +
           QString::number(m.TamannoFuentePrincipales) +
           QStringLiteral("&tamannofuentelistascheck=") +
           QString::number(m.TamannoFuenteListasCheck) + QStringLiteral("&tiporeproaudio=") +
           QString::number(m.TipoReproAudio) + QStringLiteral("&melodiapednuevo=") +
           UrlCodificar(m.MelodiaPedNuevo) + QStringLiteral("&volumenmelodiawmp=") +
           QString::number(m.VolumenMelodiaWmp) + QStringLiteral("&minimizartrasresp=") +
           (m.MinimizarTrasResp ? QStringLiteral("1") : QStringLiteral("0"));
}

bool GuardarConfigGeneral(ModuloPrincipal& m, const ValoresGenerales& v) {
    const QString problema = ProblemaTamannoFuente(v.TamannoFuentePrinc);
    if (!problema.isEmpty()) {
        m.cajas().exclamacion(problema);
        return false;
    }
    m.TamannoFuentePrincipales = clasico::CInt(v.TamannoFuentePrinc);
    m.TamannoFuenteListasCheck = clasico::CInt(v.TamannoFuenteListasCheck);
    m.MinimizarTrasResp = v.MinimizarTrasResp;
    m.TipoReproAudio = v.TipoReproAudio;
    m.VolumenMelodiaWmp = v.Volumen;
    m.MelodiaPedNuevo = v.Melodia;
    // The answer is dropped: the next configuration reading brings the service's values.
    m.ConsultarServidor(PeticionConfigGeneral(m));
    m.sonido().PrepararMelodia();
    return true;
}

} // namespace ajustes_generales

namespace {

// A mode kept as text; the mode of a preview never started is the first one.
qint16 tipoDeTexto(const QString& texto) {
    return texto.isEmpty() ? qint16(0) : clasico::CInt(texto);
}

} // namespace

QString PruebaMelodia::alternar(const QString& rotulo, qint16 tipoElegido,
                                const QString& melodiaElegida) {
    AlertaSonora& sonido = m_.sonido();
    if (sonido.musicaSonando()) {
        detener();
    } else {
        tipoGuardado_ = QString::number(m_.TipoReproAudio);
        tipoPrueba_ = QString::number(tipoElegido);
        m_.TipoReproAudio = tipoDeTexto(tipoPrueba_);
        melodiaGuardada_ = m_.MelodiaPedNuevo;
        melodiaPrueba_ = melodiaElegida;
        m_.MelodiaPedNuevo = melodiaPrueba_;
        sonido.PrepararMelodia();
        sonido.ReproducirSonido();
        sonido.setMusicaSonando(true);
    }
    volverAGuardados();
    return rotulo == Play ? Stop : Play;
}

void PruebaMelodia::detenerSiSuena() {
    if (m_.sonido().musicaSonando()) {
        detener();
        volverAGuardados();
    }
}

void PruebaMelodia::detener() {
    AlertaSonora& sonido = m_.sonido();
    tipoGuardado_ = QString::number(m_.TipoReproAudio);
    m_.TipoReproAudio = tipoDeTexto(tipoPrueba_);
    melodiaGuardada_ = m_.MelodiaPedNuevo;
    m_.MelodiaPedNuevo = melodiaPrueba_;
    sonido.PrepararMelodia();
    sonido.DetenerSonido();
    sonido.setMusicaSonando(false);
}

void PruebaMelodia::volverAGuardados() {
    m_.TipoReproAudio = tipoDeTexto(tipoGuardado_);
    m_.MelodiaPedNuevo = melodiaGuardada_;
    m_.sonido().PrepararMelodia();
}
