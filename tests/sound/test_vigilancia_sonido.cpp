#include "common/DatosEsperados.h"
#include "common/Entorno.h"
#include "platform/SalidaAudio.h"
#include "shell/Form1.h"
#include "sound/VigilanciaSonido.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QMap>
#include <gtest/gtest.h>

namespace {

// What the programs of the sound server answer; a program not in the map is not installed.
using Respuestas = QMap<QString, RespuestaPrograma>;

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
    const QJsonArray casos = JsonDatos(QStringLiteral("salida_sonido.json"))["casos"].toArray();
    ASSERT_EQ(casos.size(), 12);
    for (const auto& valor : casos) {
        const QJsonObject c = valor.toObject();
        SCOPED_TRACE(c["caso"].toString().toStdString());
        Respuestas respuestas;
        const QJsonObject programas = c["respuestas"].toObject();
        for (auto p = programas.begin(); p != programas.end(); ++p) {
            const QJsonArray r = p.value().toArray();
            respuestas[p.key()] = RespuestaPrograma{true, r[0].toInt(), r[1].toString()};
        }
        Entorno e;
        e.m.CancelarSonido = c["desactivado"].toBool();
        e.m.TipoReproAudio = 1;
        e.m.VolumenMelodiaWmp = static_cast<qint16>(c["volumen"].toInt(100));
        VigilanciaSonido v(e.m,
                           std::make_unique<SalidaFalsa>(c["dispositivo"].toBool(), respuestas));
        v.comprobar();
        const QString causa = c["causa"].toString();
        if (causa.isEmpty()) {
            EXPECT_EQ(v.aviso(), QString());
        } else {
            EXPECT_TRUE(v.aviso().startsWith(QStringLiteral("No se oirá la melodía")));
            EXPECT_TRUE(v.aviso().contains(causa)) << v.aviso().toStdString();
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
