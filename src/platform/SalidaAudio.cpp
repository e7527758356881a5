#include "platform/SalidaAudio.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <algorithm>

RespuestaPrograma EjecutarAcotado(const QString& programa, const QStringList& argumentos,
                                  int esperaMs) {
    RespuestaPrograma r;
    QProcess proceso;
    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    // The replies are read in English whatever the desk's language.
    entorno.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    proceso.setProcessEnvironment(entorno);
    proceso.setProcessChannelMode(QProcess::MergedChannels);
    proceso.start(programa, argumentos);
    if (!proceso.waitForStarted(esperaMs)) {
        return r;
    }
    r.arranco = true;
    if (!proceso.waitForFinished(esperaMs)) {
        proceso.kill();
        proceso.waitForFinished(esperaMs);
        return r;
    }
    r.codigo = proceso.exitStatus() == QProcess::NormalExit ? proceso.exitCode() : -1;
    r.salida = QString::fromLocal8Bit(proceso.readAll());
    return r;
}

namespace {

// The highest "N%" of the reply: a balance to one side is still heard on the other.
int volumenMaximo(const QString& texto) {
    static const QRegularExpression porCiento(QStringLiteral("(\\d+)%"));
    int maximo = -1;
    for (auto it = porCiento.globalMatch(texto); it.hasNext();) {
        maximo = std::max(maximo, it.next().captured(1).toInt());
    }
    return maximo;
}

bool leerPactl(EstadoSalidaAudio& e, const RespuestaPrograma& silencio,
               const EjecutarPrograma& ejecutar) {
    if (silencio.codigo != 0) {
        // The server is there but has no output to name.
        if (silencio.salida.contains(QLatin1String("No such entity"))) {
            e.servidor = EstadoSalidaAudio::Servidor::SinSalida;
            return true;
        }
        return false;
    }
    static const QRegularExpression mute(QStringLiteral("Mute:\\s*(yes|no)"));
    const auto m = mute.match(silencio.salida);
    if (!m.hasMatch()) {
        return false;
    }
    const RespuestaPrograma volumen =
        ejecutar(QStringLiteral("pactl"),
                 {QStringLiteral("get-sink-volume"), QStringLiteral("@DEFAULT_SINK@")});
    const int v = volumen.codigo == 0 ? volumenMaximo(volumen.salida) : -1;
    if (v < 0) {
        return false;
    }
    e.servidor = EstadoSalidaAudio::Servidor::Respondio;
    e.silenciada = m.captured(1) == QLatin1String("yes");
    e.volumen = v;
    return true;
}

// "Volume: 0.40" or "Volume: 0.40 [MUTED]".
bool leerWpctl(EstadoSalidaAudio& e, const RespuestaPrograma& r) {
    static const QRegularExpression volumen(QStringLiteral("Volume:\\s*([0-9.]+)"));
    const auto m = r.codigo == 0 ? volumen.match(r.salida) : QRegularExpressionMatch();
    if (!m.hasMatch()) {
        return false;
    }
    e.servidor = EstadoSalidaAudio::Servidor::Respondio;
    e.silenciada = r.salida.contains(QLatin1String("[MUTED]"));
    e.volumen = qRound(m.captured(1).toDouble() * 100);
    return true;
}

} // namespace

void LeerServidorSonido(EstadoSalidaAudio& e, const EjecutarPrograma& ejecutar) {
    e.servidor = EstadoSalidaAudio::Servidor::Ausente;
    const RespuestaPrograma pactl =
        ejecutar(QStringLiteral("pactl"),
                 {QStringLiteral("get-sink-mute"), QStringLiteral("@DEFAULT_SINK@")});
    if (pactl.arranco) {
        if (!leerPactl(e, pactl, ejecutar)) {
            e.servidor = EstadoSalidaAudio::Servidor::Ausente;
        }
        return;
    }
    const RespuestaPrograma wpctl =
        ejecutar(QStringLiteral("wpctl"),
                 {QStringLiteral("get-volume"), QStringLiteral("@DEFAULT_AUDIO_SINK@")});
    if (wpctl.arranco && !leerWpctl(e, wpctl)) {
        e.servidor = EstadoSalidaAudio::Servidor::Ausente;
    }
}
