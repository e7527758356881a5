// The alert melody over recording players: which file, which player, the captions and
// LabelInfo texts, the repeat rule, the switch-off and the failures.
#include "base/ModuloPrincipal.h"
#include "common/DatosEsperados.h"
#include "common/ImprimirQString.h"
#include "common/ReproductorGrabador.h"
#include "sound/AlertaSonora.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class AlertaSonoraTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        carpeta = dir.path();
        for (const char* nombre : {"corneta.mp3", "bolero.wav", "tono.MP3", "sinext"}) {
            crearArchivo(nombre);
        }
        ASSERT_TRUE(QDir(carpeta).mkdir(QStringLiteral("carpeta.mp3")));
        ASSERT_TRUE(QDir(carpeta).mkdir(QStringLiteral(".oculta.mp3")));
        m.CarpetaAplicacion = carpeta;
        m.MelodiaPedNuevo = QStringLiteral("bolero.wav");
        m.sonido().setReproductores(std::make_unique<ReproductorGrabador>(mci),
                                    std::make_unique<ReproductorGrabador>(wmp));
        QObject::connect(&m, &ModuloPrincipal::textoInfo, [this](const QString& t) { info << t; });
        QObject::connect(&m.sonido(), &AlertaSonora::textoMusica,
                         [this](const QString& t) { musica << t; });
    }

    void crearArchivo(const QString& nombre) {
        QFile f(carpeta + QLatin1Char('/') + nombre);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("x");
    }
    QString ruta(const QString& nombre) const { return carpeta + QLatin1Char('/') + nombre; }
    void olvidar() {
        mci->llamadas.clear();
        wmp->llamadas.clear();
        info.clear();
        musica.clear();
    }

    QTemporaryDir dir;
    QString carpeta;
    ModuloPrincipal m;
    AlertaSonora& s = m.sonido();
    std::shared_ptr<ReproductorGrabador::Registro> mci =
        std::make_shared<ReproductorGrabador::Registro>();
    std::shared_ptr<ReproductorGrabador::Registro> wmp =
        std::make_shared<ReproductorGrabador::Registro>();
    QStringList info;
    QStringList musica;
};

TEST_F(AlertaSonoraTest, PrepararMelodiaTomaElArchivoElegidoSoloSiExisteYEsMelodia) {
    m.TipoReproAudio = 1;
    const QString corneta = ruta(QStringLiteral("corneta.mp3"));
    struct Caso {
        const char* melodia;
        QString esperada;
    };
    const Caso casos[] = {
        {"bolero.wav", ruta(QStringLiteral("bolero.wav"))},
        {"falta.mp3", corneta},               // not there
        {"tono.MP3", corneta},                // the extension test is case-sensitive
        {"sinext", corneta},                  // there, but no melody extension
        {"carpeta.mp3", corneta},             // a plain folder counts as absent
        {".oculta.mp3", ruta(".oculta.mp3")}, // a hidden folder does not
        {"", corneta},
    };
    for (const auto& c : casos) {
        m.MelodiaPedNuevo = QString::fromUtf8(c.melodia);
        s.PrepararMelodia();
        EXPECT_EQ(s.RutaMelodia(), c.esperada) << c.melodia;
    }
    // Mode 0 takes the form a command can carry: the same path while the file exists.
    m.TipoReproAudio = 0;
    m.MelodiaPedNuevo = QStringLiteral("bolero.wav");
    s.PrepararMelodia();
    EXPECT_EQ(s.RutaMelodia(), ruta(QStringLiteral("bolero.wav")));

    // The fallback itself is not checked: without corneta.mp3 mode 2 still names it and
    // mode 0 is left with nothing.
    ASSERT_TRUE(QFile::remove(corneta));
    m.MelodiaPedNuevo = QStringLiteral("falta.mp3");
    m.TipoReproAudio = 2;
    s.PrepararMelodia();
    EXPECT_EQ(s.RutaMelodia(), corneta);
    m.TipoReproAudio = 0;
    s.PrepararMelodia();
    EXPECT_EQ(s.RutaMelodia(), QString());
    EXPECT_TRUE(info.isEmpty()) << "choosing the melody reports nothing";
}

TEST_F(AlertaSonoraTest, ReproducirUsaElReproductorDelModoYCambiaElRotulo) {
    const QString bolero = ruta(QStringLiteral("bolero.wav"));
    for (int modo : {0, 1, 2}) {
        olvidar();
        m.TipoReproAudio = static_cast<qint16>(modo);
        s.PrepararMelodia();
        s.ReproducirSonido();
        const QStringList esperado{QStringLiteral("reproducir ") + bolero};
        EXPECT_EQ(wmp->llamadas, modo == 1 ? esperado : QStringList()) << modo;
        EXPECT_EQ(mci->llamadas, modo == 1 ? QStringList() : esperado) << modo;
        EXPECT_EQ(info, QStringList{QString()}) << "LabelInfo is cleared, mode " << modo;
        EXPECT_EQ(musica, QStringList{QStringLiteral("Parar Música")}) << modo;
    }
    // The media player is handed the file on every start, even the same one.
    olvidar();
    m.TipoReproAudio = 1;
    s.ReproducirSonido();
    s.ReproducirSonido();
    EXPECT_EQ(wmp->llamadas.size(), 2);
}

TEST_F(AlertaSonoraTest, SinExtensionAlReproducirAvisaYTocaLaDeReserva) {
    // Before any choice the path is empty: the warning carries nothing behind it and the
    // fallback plays, and it stays chosen for the next start.
    m.TipoReproAudio = 1;
    s.ReproducirSonido();
    EXPECT_EQ(info, (QStringList{QString(), QStringLiteral("Avi 001: ")}));
    EXPECT_EQ(wmp->llamadas,
              QStringList{QStringLiteral("reproducir ") + ruta(QStringLiteral("corneta.mp3"))});
    EXPECT_EQ(musica, QStringList{QStringLiteral("Parar Música")});
    olvidar();
    s.ReproducirSonido();
    EXPECT_EQ(info, QStringList{QString()});

    // Mode 0 without corneta.mp3: nothing can be shortened, every start warns and the
    // bare command still goes out; playing goes on as far as the caption is concerned.
    ASSERT_TRUE(QFile::remove(ruta(QStringLiteral("corneta.mp3"))));
    m.TipoReproAudio = 0;
    m.MelodiaPedNuevo = QStringLiteral("falta.mp3");
    s.PrepararMelodia();
    for (int vez = 0; vez < 2; ++vez) {
        olvidar();
        s.ReproducirSonido();
        EXPECT_EQ(info, (QStringList{QString(), QStringLiteral("Avi 001: ")}));
        EXPECT_EQ(mci->llamadas, QStringList{QStringLiteral("reproducir ")});
        EXPECT_EQ(musica, QStringList{QStringLiteral("Parar Música")});
    }
}

TEST_F(AlertaSonoraTest, ConSonidoCanceladoNadaSeTocaNiSeRepite) {
    m.CancelarSonido = true;
    m.PedidoNuevoPendiente = true;
    m.MensajeNuevoPendiente = true;
    s.PrepararMelodia();
    for (int modo : {0, 1}) {
        m.TipoReproAudio = static_cast<qint16>(modo);
        s.ReproducirSonido();
        s.DetenerSonido();
        s.tickMusica();
        s.alternarMusica();
    }
    EXPECT_TRUE(mci->llamadas.isEmpty());
    EXPECT_TRUE(wmp->llamadas.isEmpty());
    EXPECT_TRUE(info.isEmpty());
    EXPECT_TRUE(musica.isEmpty());
    EXPECT_FALSE(s.musicaOfrecida());
    m.CancelarSonido = false;
    EXPECT_TRUE(s.musicaOfrecida());
}

TEST_F(AlertaSonoraTest, FallosDelReproductorVanALabelInfoSinCambiarElRotulo) {
    m.TipoReproAudio = 1;
    s.PrepararMelodia();
    wmp->fallo = 70;
    s.ReproducirSonido();
    EXPECT_EQ(info, (QStringList{QString(), QStringLiteral("Permiso denegado")}));
    EXPECT_TRUE(musica.isEmpty());

    olvidar();
    s.DetenerSonido();
    EXPECT_EQ(info, (QStringList{QString(), QStringLiteral("Problema al detener sonido. Por "
                                                           "favor, compruebe los conectores.")}));
    EXPECT_TRUE(musica.isEmpty());

    // An alert with no players set reports the missing object instead of going down.
    ModuloPrincipal desnudo;
    desnudo.CarpetaAplicacion = carpeta;
    QStringList textos;
    QObject::connect(&desnudo, &ModuloPrincipal::textoInfo,
                     [&textos](const QString& t) { textos << t; });
    desnudo.sonido().PrepararMelodia();
    desnudo.sonido().ReproducirSonido();
    EXPECT_EQ(textos, (QStringList{QString(), QStringLiteral("Variable de objeto o bloque With no "
                                                             "establecido")}));
}

TEST_F(AlertaSonoraTest, MenuMusicaDecidePorLaVariableNoPorElRotulo) {
    m.TipoReproAudio = 1;
    s.PrepararMelodia();
    const QString reproducir = QStringLiteral("reproducir ") + ruta(QStringLiteral("bolero.wav"));
    const QString detener = QStringLiteral("detener ") + ruta(QStringLiteral("bolero.wav"));
    s.ReproducirSonido(); // an automatic start: caption now reads "Parar Música"
    EXPECT_FALSE(s.musicaSonando());
    s.alternarMusica(); // so the first click starts it once more
    EXPECT_TRUE(s.musicaSonando());
    s.alternarMusica(); // and the second stops it
    EXPECT_FALSE(s.musicaSonando());
    EXPECT_EQ(wmp->llamadas, (QStringList{reproducir, reproducir, detener}));
    EXPECT_EQ(musica, (QStringList{QStringLiteral("Parar Música"), QStringLiteral("Parar Música"),
                                   QStringLiteral("Reproducir Música")}));
    // A failed stop still clears the flag.
    s.alternarMusica();
    wmp->fallo = 5;
    s.alternarMusica();
    EXPECT_FALSE(s.musicaSonando());
}

// Each line of the data file: what waits, what is open or silenced, and whether the tick plays.
TEST_F(AlertaSonoraTest, LaRepeticionSoloMientrasEsperaAlgoYNadieLoAtiende) {
    m.TipoReproAudio = 0;
    s.PrepararMelodia();
    const QStringList casos = LineasDatos(QStringLiteral("repeticion_musica.txt"));
    ASSERT_FALSE(casos.isEmpty());
    for (const QString& caso : casos) {
        const QStringList c = caso.simplified().remove(QStringLiteral(" |")).split(u' ');
        ASSERT_EQ(c.size(), 9) << caso.toStdString();
        const auto si = [c](int i) { return c[i] == u"1"; };
        m.PedidoNuevoPendiente = si(1);
        m.MensajeNuevoPendiente = si(2);
        s.setSilenciadores({[si] { return si(3); }, [si] { return si(4); }, [si] { return si(5); },
                            [si] { return si(6); }, [si] { return si(7); }});
        olvidar();
        s.tickMusica();
        EXPECT_EQ(mci->llamadas.size(), si(8) ? 1 : 0) << c[0].toStdString();
    }
}

TEST_F(AlertaSonoraTest, RepeticionSegunModoYEstadoDelReproductor) {
    m.PedidoNuevoPendiente = true;
    s.PrepararMelodia();

    // Mode 0 sends the start again on every tick, sounding or not.
    m.TipoReproAudio = 0;
    mci->estado = QStringLiteral("Reproduciendo");
    s.tickMusica();
    s.tickMusica();
    EXPECT_EQ(mci->llamadas.size(), 2);

    // Mode 1 only when the player says exactly "Detenido".
    m.TipoReproAudio = 1;
    for (const char* estado : {"Reproduciendo", "detenido", "Stopped", "Detenido "}) {
        wmp->estado = QString::fromUtf8(estado);
        s.tickMusica();
    }
    EXPECT_TRUE(wmp->llamadas.isEmpty());
    wmp->estado = QStringLiteral("Detenido");
    s.tickMusica();
    EXPECT_EQ(wmp->llamadas,
              QStringList{QStringLiteral("reproducir ") + ruta(QStringLiteral("bolero.wav"))});

    // Any other mode never repeats.
    olvidar();
    m.TipoReproAudio = 2;
    s.tickMusica();
    EXPECT_TRUE(mci->llamadas.isEmpty());
    EXPECT_TRUE(wmp->llamadas.isEmpty());
}

} // namespace
