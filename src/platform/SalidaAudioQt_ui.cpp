#include "platform/SalidaAudioQt_ui.h"

#include <QAudioDevice>
#include <QMediaDevices>

EstadoSalidaAudio SalidaAudioSistema::leer() {
    EstadoSalidaAudio e;
    e.hayDispositivo = !QMediaDevices::audioOutputs().isEmpty();
    LeerServidorSonido(e, [](const QString& programa, const QStringList& argumentos) {
        return EjecutarAcotado(programa, argumentos);
    });
    return e;
}
