// The two real players over the media stack, on real melody files: states, restarts,
// stops by name, and the end of a melody reading "Detenido" so that the repeat can act.
#include "sound/ReproductoresQt_ui.h"

#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString Detenido = QStringLiteral("Detenido");
const QString Reproduciendo = QStringLiteral("Reproduciendo");

QString enBin(const char* nombre) {
    return QStringLiteral(CARPETA_BIN) + QLatin1Char('/') + QString::fromUtf8(nombre);
}

bool esperarEstado(const ReproductorAudio& r, const QString& estado, int ms) {
    return QTest::qWaitFor([&] { return r.estado() == estado; }, ms);
}

TEST(ReproductorMedios, SuenaTerminaEnDetenidoYVuelveAEmpezar) {
    ReproductorMedios r;
    EXPECT_EQ(r.estado(), Detenido) << "before it was ever used";
    r.setVolumen(150); // out of range is clamped, not refused
    r.setVolumen(40);

    r.reproducir(enBin("telef3_3.mp3"));
    ASSERT_TRUE(esperarEstado(r, Reproduciendo, 5000));
    // With no sound card the stream still runs to its end, and the player reads stopped.
    ASSERT_TRUE(esperarEstado(r, Detenido, 20000)) << r.estado().toStdString();

    // A new start of the same file plays it again; a stop is immediate.
    r.reproducir(enBin("telef3_3.mp3"));
    ASSERT_TRUE(esperarEstado(r, Reproduciendo, 5000));
    r.detener(QString());
    EXPECT_EQ(r.estado(), Detenido);

    // Another file replaces the first.
    r.reproducir(enBin("bolero.wav"));
    ASSERT_TRUE(esperarEstado(r, Reproduciendo, 5000));
    r.detener(enBin("cualquiera.mp3"));
    EXPECT_EQ(r.estado(), Detenido);
}

TEST(ReproductorComandos, CadaArchivoSuenaYSeParaPorSuNombre) {
    ReproductorComandos r;
    EXPECT_EQ(r.estado(), Detenido);
    // Names that cannot play are ignored, like a failed command.
    r.reproducir(QString());
    r.reproducir(enBin("no-existe.mp3"));
    r.detener(enBin("no-existe.mp3"));
    EXPECT_EQ(r.estado(), Detenido);

    const QString corneta = enBin("corneta.mp3");
    r.reproducir(corneta);
    ASSERT_TRUE(esperarEstado(r, Reproduciendo, 5000));
    r.reproducir(corneta); // sent again while sounding: it goes on
    EXPECT_EQ(r.estado(), Reproduciendo);
    r.detener(enBin("bolero.mp3")); // a stop naming another file leaves it sounding
    EXPECT_EQ(r.estado(), Reproduciendo);
    r.detener(corneta);
    EXPECT_EQ(r.estado(), Detenido);

    // Two files at once are two devices: stopping one leaves the other, and a file that
    // was stopped before starts again.
    const QString bolero = enBin("bolero.wav");
    r.reproducir(bolero);
    r.reproducir(corneta);
    ASSERT_TRUE(esperarEstado(r, Reproduciendo, 5000));
    r.detener(bolero);
    EXPECT_EQ(r.estado(), Reproduciendo);
    r.detener(corneta);
    EXPECT_EQ(r.estado(), Detenido);
}

} // namespace
