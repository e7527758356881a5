#include "common/Entorno.h"
#include "platform/SalidaAudio.h"
#include "shell/Form1.h"
#include "sound/VigilanciaSonido.h"

#include <QLabel>
#include <QMap>
#include <gtest/gtest.h>

namespace {

// What the programs of the sound server answer; a program not in the map is not installed.
using Respuestas = QMap<QString, RespuestaPrograma>;

RespuestaPrograma responde(int codigo, const char* salida) {
    return RespuestaPrograma{true, codigo, QString::fromUtf8(salida)};
}

const char* const kVolumenLleno =
    "Volume: front-left: 65536 / 100% / 0.00 dB,   front-right: 65536 / 100% / 0.00 dB\n"
    "        balance 0.00\n";

// The system as a test describes it: the device list and the server's programs.
class SalidaFalsa : public SalidaAudio {
public:
    SalidaFalsa(bool hayDispositivo, Respuestas respuestas)
        : hayDispositivo_(hayDispositivo), respuestas_(std::move(respuestas)) {}
    EstadoSalidaAudio leer() override {
        EstadoSalidaAudio e;
        e.hayDispositivo = hayDispositivo_;
        LeerServidorSonido(e, [this](const QString& programa, const QStringList& argumentos) {
            return respuestas_.value(programa + u' ' + argumentos.first());
        });
        return e;
    }
    bool hayDispositivo_;
    Respuestas respuestas_;
};

} // namespace

TEST(VigilanciaSonido, DiceSiLaMelodiaNoSePuedeOir) {
    struct Caso {
        const char* nombre;
        bool hayDispositivo;
        Respuestas respuestas;
        const char* causa; // the part of the note that names the cause; "" when none
        bool sonidoDesactivado = false;
        qint16 volumenMelodia = 100;
    };
    const QString mute = QStringLiteral("pactl get-sink-mute");
    const QString volumen = QStringLiteral("pactl get-sink-volume");
    const QString wpctl = QStringLiteral("wpctl get-volume");
    const Caso casos[] = {
        {"sin dispositivo ni servidor", false, {}, "ninguna salida de sonido"},
        {"servidor sin salida",
         true,
         {{mute, responde(1, "Failure: No such entity\n")}},
         "ninguna salida de sonido"},
        {"silenciado",
         true,
         {{mute, responde(0, "Mute: yes\n")}, {volumen, responde(0, kVolumenLleno)}},
         "está silenciado"},
        {"volumen a cero",
         true,
         {{mute, responde(0, "Mute: no\n")},
          {volumen, responde(0, "Volume: front-left: 0 /   0% / -inf dB,   front-right: 0 /   "
                                "0% / -inf dB\n")}},
         "volumen del equipo está a cero"},
        // Turned to one side: still heard there.
        {"balance a un lado",
         true,
         {{mute, responde(0, "Mute: no\n")},
          {volumen, responde(0, "Volume: front-left: 0 /   0% / -inf dB,   front-right: 26214 "
                                "/  40% / -23.88 dB\n")}},
         ""},
        {"bien",
         true,
         {{mute, responde(0, "Mute: no\n")}, {volumen, responde(0, kVolumenLleno)}},
         ""},
        {"wpctl silenciado",
         true,
         {{wpctl, responde(0, "Volume: 0.40 [MUTED]\n")}},
         "está silenciado"},
        {"wpctl a cero",
         true,
         {{wpctl, responde(0, "Volume: 0.00\n")}},
         "volumen del equipo está a cero"},
        // No server that answers: the device list decides.
        {"servidor ausente",
         true,
         {{mute, responde(1, "Connection failure: Connection refused\n")}},
         ""},
        {"servidor colgado", true, {{mute, responde(-1, "")}}, ""},
        {"sonido desactivado", false, {}, "", true},
        {"melodía a volumen cero", true, {}, "volumen de la melodía está a cero", false, 0},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.nombre);
        Entorno e;
        e.m.CancelarSonido = c.sonidoDesactivado;
        e.m.TipoReproAudio = 1;
        e.m.VolumenMelodiaWmp = c.volumenMelodia;
        VigilanciaSonido v(e.m, std::make_unique<SalidaFalsa>(c.hayDispositivo, c.respuestas));
        v.comprobar();
        if (*c.causa == '\0') {
            EXPECT_EQ(v.aviso(), QString());
        } else {
            EXPECT_TRUE(v.aviso().startsWith(QStringLiteral("No se oirá la melodía")));
            EXPECT_TRUE(v.aviso().contains(QString::fromUtf8(c.causa))) << v.aviso().toStdString();
        }
    }
}

// The note stays in LabelInfo whatever else the label says, and goes once the sound is back.
TEST(VigilanciaSonido, LabelInfoLoDiceEnRojoHastaQueSePuedeOir) {
    Entorno e;
    Form1 f(e.m, {});
    auto salida = std::make_unique<SalidaFalsa>(false, Respuestas{});
    SalidaFalsa* sistema = salida.get();
    f.vigilarSonido(std::move(salida));
    auto* etiqueta = f.findChild<QLabel*>(QStringLiteral("LabelInfo"));
    ASSERT_NE(etiqueta, nullptr);
    const QString aviso = f.findChild<VigilanciaSonido*>()->aviso();
    ASSERT_FALSE(aviso.isEmpty());
    EXPECT_EQ(etiqueta->text(), aviso);
    EXPECT_EQ(etiqueta->palette().color(QPalette::WindowText), QColor(Qt::red));

    // Each start of the melody clears the label's passing text; the note stays.
    Q_EMIT e.m.textoInfo(QStringLiteral("Avi 001: x"));
    EXPECT_EQ(etiqueta->text(), QStringLiteral("Avi 001: x\n") + aviso);
    Q_EMIT e.m.textoInfo(QString());
    EXPECT_EQ(etiqueta->text(), aviso);

    sistema->hayDispositivo_ = true;
    f.findChild<VigilanciaSonido*>()->comprobar();
    EXPECT_EQ(etiqueta->text(), QString());
    EXPECT_NE(etiqueta->palette().color(QPalette::WindowText), QColor(Qt::red));
}
