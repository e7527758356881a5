// The melody files beside the executable: all there, each one a distinct, short file
// that the real media stack loads with a duration.
#include "sound/Melodias.h"

#include <QAudioOutput>
#include <QCryptographicHash>
#include <QFile>
#include <QMediaPlayer>
#include <QSet>
#include <QTest>
#include <QUrl>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

QString rutaMelodia(const QString& nombre) {
    return QStringLiteral(CARPETA_BIN) + QLatin1Char('/') + nombre;
}

// Written out here rather than taken from the program, so that a slip in either shows.
const QStringList Esperadas{
    "cuarteto.mp3", "neonita.mp3",  "caballer.mp3", "trovador.mp3", "corneta.mp3",  "hockey.mp3",
    "metalera.mp3", "pinzel.mp3",   "bolero.mp3",   "arrecifa.mp3", "ritmo.mp3",    "caderas.mp3",
    "sirena.mp3",   "tecno2.mp3",   "tecno.mp3",    "telef1_1.mp3", "telef1_2.mp3", "telef1_3.mp3",
    "telef2_1.mp3", "telef2_2.mp3", "telef2_3.mp3", "telef3_1.mp3", "telef3_2.mp3", "telef3_3.mp3",
    "telefon1.mp3", "telefon2.mp3", "titania.mp3",  "corneta.wav",  "bolero.wav",   "ritmo.wav",
    "telefon1.wav", "telefon2.wav"};

TEST(Melodias, LaListaOfrecidaEsLaDeLosArchivos) {
    EXPECT_EQ(ListaMelodias(), Esperadas);
    EXPECT_EQ(QSet<QString>(Esperadas.begin(), Esperadas.end()).size(), 32);
}

TEST(Melodias, CadaArchivoEstaTieneSuFormatoYEsDistinto) {
    QHash<QByteArray, QString> vistos;
    for (const QString& nombre : Esperadas) {
        QFile f(rutaMelodia(nombre));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << nombre.toStdString();
        const QByteArray datos = f.readAll();
        ASSERT_GT(datos.size(), 1000) << nombre.toStdString();
        if (nombre.endsWith(QLatin1String(".wav"))) {
            EXPECT_TRUE(datos.startsWith("RIFF") && datos.mid(8, 8) == "WAVEfmt ")
                << nombre.toStdString();
        } else {
            // An ID3 tag or straight an MPEG audio frame (11 sync bits set).
            const bool id3 = datos.startsWith("ID3");
            const bool trama = static_cast<unsigned char>(datos[0]) == 0xFF &&
                               (static_cast<unsigned char>(datos[1]) & 0xE0) == 0xE0;
            EXPECT_TRUE(id3 || trama) << nombre.toStdString();
        }
        const QByteArray resumen = QCryptographicHash::hash(datos, QCryptographicHash::Sha256);
        EXPECT_FALSE(vistos.contains(resumen))
            << nombre.toStdString() << " repeats " << vistos.value(resumen).toStdString();
        vistos.insert(resumen, nombre);
    }
}

std::vector<std::string> nombresEsperados() {
    std::vector<std::string> v;
    for (const QString& n : Esperadas) {
        v.push_back(n.toStdString());
    }
    return v;
}

class MelodiaCarga : public ::testing::TestWithParam<std::string> {};

TEST_P(MelodiaCarga, ElReproductorRealLaCargaConDuracion) {
    const QString nombre = QString::fromStdString(GetParam());
    QAudioOutput salida;
    QMediaPlayer jugador;
    jugador.setAudioOutput(&salida);
    jugador.setSource(QUrl::fromLocalFile(rutaMelodia(nombre)));
    const bool cargada = QTest::qWaitFor(
        [&] {
            const auto s = jugador.mediaStatus();
            return s == QMediaPlayer::InvalidMedia ||
                   ((s == QMediaPlayer::LoadedMedia || s == QMediaPlayer::BufferedMedia) &&
                    jugador.duration() > 0);
        },
        15000);
    ASSERT_TRUE(cargada) << nombre.toStdString() << ": status " << jugador.mediaStatus();
    ASSERT_NE(jugador.mediaStatus(), QMediaPlayer::InvalidMedia)
        << nombre.toStdString() << ": " << jugador.errorString().toStdString();
    // A few seconds: long enough to be heard, short enough to repeat every five.
    EXPECT_GE(jugador.duration(), 1000) << nombre.toStdString();
    EXPECT_LE(jugador.duration(), 6000) << nombre.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Todas, MelodiaCarga, ::testing::ValuesIn(nombresEsperados()),
                         [](const auto& info) {
                             std::string n = info.param;
                             std::replace(n.begin(), n.end(), '.', '_');
                             return n;
                         });

} // namespace
