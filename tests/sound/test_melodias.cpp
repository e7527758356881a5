// The melody files beside the executable: all there, each one a distinct, short
// file that the real media stack loads with a duration.
#include "sound/Melodias.h"

#include <QAudioOutput>
#include <QCryptographicHash>
#include <QFile>
#include <QMediaPlayer>
#include <QTest>
#include <QUrl>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

QString rutaMelodia(const QString& nombre) {
    return QStringLiteral(CARPETA_BIN) + QLatin1Char('/') + nombre;
}

// Every melody the settings window offers must be there, each one distinct: a
// copied file would ring the same for two choices. The fallback is among them.
TEST(Melodias, CadaMelodiaOfrecidaEstaYEsDistinta) {
    const QStringList ofrecidas = ListaMelodias();
    EXPECT_TRUE(ofrecidas.contains(QStringLiteral("corneta.mp3")));
    QHash<QByteArray, QString> vistos;
    for (const QString& nombre : ofrecidas) {
        QFile f(rutaMelodia(nombre));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << nombre.toStdString();
        const QByteArray resumen =
            QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha256);
        EXPECT_FALSE(vistos.contains(resumen))
            << nombre.toStdString() << " repeats " << vistos.value(resumen).toStdString();
        vistos.insert(resumen, nombre);
    }
}

std::vector<std::string> nombresEsperados() {
    std::vector<std::string> v;
    for (const QString& n : ListaMelodias()) {
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
