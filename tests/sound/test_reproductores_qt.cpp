// The two real players over the media stack, on real melody files: states, restarts,
// stops by name, and the end of a melody reading "Detenido" so that the repeat can act.
#include "base/ModuloPrincipal.h"
#include "sound/AlertaSonora.h"
#include "sound/ReproductoresQt_ui.h"

#include <QTest>
#include <algorithm>
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

TEST(AlertaSonoraReal, LaRepeticionSeFiaDelEstadoDelReproductorReal) {
    ModuloPrincipal m;
    m.CarpetaAplicacion = QStringLiteral(CARPETA_BIN);
    m.MelodiaPedNuevo = QStringLiteral("telef3_3.mp3");
    m.VolumenMelodiaWmp = 30;
    auto comandos = std::make_unique<ReproductorComandos>();
    auto medios = std::make_unique<ReproductorMedios>();
    const ReproductorAudio& modo0 = *comandos;
    const ReproductorAudio& modo1 = *medios;
    AlertaSonora& s = m.sonido();
    s.setReproductores(std::move(comandos), std::move(medios));
    QStringList info;
    QObject::connect(&m, &ModuloPrincipal::textoInfo, [&info](const QString& t) { info << t; });

    m.TipoReproAudio = 1;
    s.PrepararMelodiaYVolumen();
    m.PedidoNuevoPendiente = true;
    s.ReproducirSonido();
    ASSERT_TRUE(esperarEstado(modo1, Reproduciendo, 5000));
    s.DetenerSonido();
    EXPECT_EQ(modo1.estado(), Detenido);
    s.tickMusica(); // stopped while the order waits: the tick starts it again
    ASSERT_TRUE(esperarEstado(modo1, Reproduciendo, 5000));
    m.PedidoNuevoPendiente = false;
    s.DetenerSonido();
    s.tickMusica(); // nothing waits: it stays quiet
    EXPECT_EQ(modo1.estado(), Detenido);
    EXPECT_EQ(modo0.estado(), Detenido) << "mode 1 never touches the other player";

    // Mode 0 plays and stops the same file by its name.
    m.TipoReproAudio = 0;
    s.PrepararMelodia();
    s.ReproducirSonido();
    ASSERT_TRUE(esperarEstado(modo0, Reproduciendo, 5000));
    s.DetenerSonido();
    EXPECT_EQ(modo0.estado(), Detenido);
    EXPECT_TRUE(std::all_of(info.begin(), info.end(), [](const QString& t) { return t.isEmpty(); }))
        << info.join(QLatin1Char('|')).toStdString();
}

} // namespace
