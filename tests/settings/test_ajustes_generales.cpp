#include "common/Entorno.h"
#include "common/NumeroDeError.h"
#include "common/ReproductorGrabador.h"
#include "settings/AjustesGenerales.h"
#include "sound/AlertaSonora.h"

#include <gtest/gtest.h>

namespace ag = ajustes_generales;

namespace {

struct AjustesGenerales_ : ::testing::Test {
    Entorno e;
    std::shared_ptr<ReproductorGrabador::Registro> mci =
        std::make_shared<ReproductorGrabador::Registro>();
    std::shared_ptr<ReproductorGrabador::Registro> wmp =
        std::make_shared<ReproductorGrabador::Registro>();

    AjustesGenerales_() {
        DarEstablecimiento(e.m, 2);
        e.m.CarpetaAplicacion = QStringLiteral(CARPETA_BIN); // the melodies are there
        e.m.MelodiaPedNuevo = QStringLiteral("corneta.mp3");
        e.canales.directo->porDefecto = {true, "OK"};
        e.m.sonido().setReproductores(std::make_unique<ReproductorGrabador>(mci),
                                      std::make_unique<ReproductorGrabador>(wmp));
    }
    static ValoresGenerales valores(const QString& principal) {
        ValoresGenerales v;
        v.TamannoFuentePrinc = principal;
        v.TamannoFuenteListasCheck = QStringLiteral("11");
        v.TipoReproAudio = 1;
        v.Melodia = QStringLiteral("telefon2.wav");
        v.Volumen = 35;
        v.MinimizarTrasResp = true;
        return v;
    }
};

} // namespace

TEST_F(AjustesGenerales_, ElTamannoPrincipalSeAceptaDe8A16) {
    const QList<std::pair<QString, QString>> casos = {
        {"", ag::TamannoVacio},
        {"7", ag::TamannoFueraDeRango},
        {"17", ag::TamannoFueraDeRango},
        {"8", ""},
        {"16", ""},
        {"99999", ag::TamannoFueraDeRango},
    };
    for (const auto& [texto, caja] : casos) {
        e.cajas->limpiar();
        e.canales.directo->urls.clear();
        e.m.TamannoFuentePrincipales = 10;
        const bool guardado = ag::GuardarConfigGeneral(e.m, valores(texto));
        EXPECT_EQ(guardado, caja.isEmpty()) << texto.toStdString();
        if (caja.isEmpty()) {
            EXPECT_TRUE(e.cajas->cajas().isEmpty());
            EXPECT_EQ(e.m.TamannoFuentePrincipales, texto.toInt());
            EXPECT_EQ(e.canales.directo->urls.size(), 1);
        } else {
            ASSERT_EQ(e.cajas->cajas().size(), 1);
            EXPECT_EQ(e.cajas->cajas()[0].texto, caja);
            EXPECT_EQ(e.cajas->cajas()[0].estilo, 48);
            EXPECT_EQ(e.m.TamannoFuentePrincipales, 10);
            EXPECT_TRUE(e.canales.directo->urls.isEmpty());
        }
    }
    // Letters can only be pasted; they do not convert.
    EXPECT_EQ(numeroDeError([&] { ag::GuardarConfigGeneral(e.m, valores("diez")); }), 13);
}

TEST_F(AjustesGenerales_, ElGuardadoEnviaLaPeticionExactaYRigeAlMomento) {
    e.m.ImprimirAntesAceptar = true;
    ASSERT_TRUE(ag::GuardarConfigGeneral(e.m, valores("12")));
    ASSERT_EQ(e.canales.directo->urls.size(), 1);
    EXPECT_EQ(e.canales.directo->urls[0],
              "https://servidor.prueba/api/pedidosgprs/actualizarConfigGeneral?"
              "idEstablecimiento=7&passwordconfig=clave&numconfig=2"
              "&tamannofuenteprincipales=12&tamannofuentelistascheck=11&tiporeproaudio=1"
              "&melodiapednuevo=telefon2%2Ewav&volumenmelodiawmp=35&minimizartrasresp=1"
              "&fha=2026111490507");
    EXPECT_EQ(e.m.TipoReproAudio, 1);
    EXPECT_EQ(e.m.VolumenMelodiaWmp, 35);
    EXPECT_TRUE(e.m.MinimizarTrasResp);
    EXPECT_TRUE(e.m.ImprimirAntesAceptar); // not the window's to change
    // The next alert rings with the new melody, through the player of the new mode.
    EXPECT_TRUE(e.m.sonido().RutaMelodia().endsWith(QStringLiteral("/telefon2.wav")));
    e.m.sonido().ReproducirSonido();
    ASSERT_EQ(wmp->llamadas.size(), 1);
    EXPECT_TRUE(wmp->llamadas[0].endsWith(QStringLiteral("telefon2.wav")));
}

TEST_F(AjustesGenerales_, UnTamannoDeListasQueNoEsNumeroFallaTrasTomarElPrincipal) {
    ValoresGenerales v = valores("9");
    v.TamannoFuenteListasCheck.clear();
    EXPECT_EQ(numeroDeError([&] { ag::GuardarConfigGeneral(e.m, v); }), 13);
    EXPECT_EQ(e.m.TamannoFuentePrincipales, 9);
    EXPECT_TRUE(e.canales.directo->urls.isEmpty());
}

TEST_F(AjustesGenerales_, LaPruebaSuenaEnSuModoYDevuelveLosGuardados) {
    PruebaMelodia prueba(e.m);
    EXPECT_EQ(prueba.alternar(QStringLiteral("Play"), 1, QStringLiteral("bolero.wav")),
              QStringLiteral("Stop"));
    const QString bolero = QStringLiteral("/bolero.wav");
    EXPECT_EQ(wmp->llamadas, QStringList{"reproducir " + e.m.CarpetaAplicacion + bolero});
    EXPECT_TRUE(mci->llamadas.isEmpty());
    // While it plays, the desk's own alert is still the saved one.
    EXPECT_EQ(e.m.TipoReproAudio, 0);
    EXPECT_TRUE(e.m.sonido().RutaMelodia().endsWith(QStringLiteral("corneta.mp3")));
    EXPECT_TRUE(e.m.sonido().musicaSonando());

    // The stop goes to the preview's player and melody, whatever the window shows now.
    EXPECT_EQ(prueba.alternar(QStringLiteral("Stop"), 0, QStringLiteral("sirena.mp3")),
              QStringLiteral("Play"));
    EXPECT_EQ(wmp->llamadas.value(1), "detener " + e.m.CarpetaAplicacion + bolero);
    EXPECT_FALSE(e.m.sonido().musicaSonando());
    EXPECT_EQ(e.m.TipoReproAudio, 0);
    EXPECT_EQ(e.m.MelodiaPedNuevo, QStringLiteral("corneta.mp3"));
    // A caption other than "Play" always turns to "Play".
    EXPECT_EQ(prueba.alternar(QStringLiteral("Reproducir"), 0, QStringLiteral("sirena.mp3")),
              QStringLiteral("Play"));
    EXPECT_EQ(mci->llamadas.size(), 1);
}

TEST_F(AjustesGenerales_, SalirParaLaMusicaDelMenuEnElModoDeLaPrueba) {
    PruebaMelodia prueba(e.m);
    prueba.detenerSiSuena(); // nothing plays: nothing happens
    EXPECT_TRUE(mci->llamadas.isEmpty() && wmp->llamadas.isEmpty());

    e.m.sonido().PrepararMelodia();
    e.m.sonido().alternarMusica(); // the Musica menu entry, mode 0
    ASSERT_EQ(mci->llamadas.size(), 1);
    prueba.detenerSiSuena();
    EXPECT_FALSE(e.m.sonido().musicaSonando());
    ASSERT_EQ(mci->llamadas.size(), 2);
    EXPECT_TRUE(mci->llamadas[1].startsWith(QStringLiteral("detener ")));
    EXPECT_EQ(e.m.MelodiaPedNuevo, QStringLiteral("corneta.mp3"));
}
