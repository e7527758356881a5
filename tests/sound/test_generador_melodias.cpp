// The melody generator: the same name always gives the same bytes, the ones that were
// shipped beside the executable; a name it does not know is refused without a file.
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

const QString Generador = QStringLiteral(CARPETA_BIN "/generador_melodias");

QByteArray leer(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

int generar(const QString& nombre, const QString& salida) {
    QProcess p;
    p.start(Generador, {nombre, salida});
    if (!p.waitForFinished(60000)) {
        p.kill();
        p.waitForFinished(5000);
        return -1;
    }
    return p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
}

TEST(GeneradorMelodias, EsDeterministaYReproduceLoEntregado) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString primera = dir.filePath(QStringLiteral("a.wav"));
    const QString segunda = dir.filePath(QStringLiteral("b.wav"));
    ASSERT_EQ(generar(QStringLiteral("telefon1.wav"), primera), 0);
    ASSERT_EQ(generar(QStringLiteral("telefon1.wav"), segunda), 0);
    const QByteArray a = leer(primera);
    ASSERT_GT(a.size(), 44);
    EXPECT_EQ(a, leer(segunda));
    EXPECT_EQ(a, leer(QStringLiteral(CARPETA_BIN "/telefon1.wav")));
    // The two arrangements that share a stem are not the same sound.
    ASSERT_EQ(generar(QStringLiteral("telefon1.mp3"), segunda), 0);
    EXPECT_NE(a.mid(44), leer(segunda).mid(44));
}

TEST(GeneradorMelodias, NombreDesconocidoNoDejaArchivo) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString salida = dir.filePath(QStringLiteral("x.wav"));
    EXPECT_EQ(generar(QStringLiteral("desconocida.mp3"), salida), 2);
    EXPECT_EQ(generar(QStringLiteral("CORNETA.MP3"), salida), 2);
    EXPECT_FALSE(QFile::exists(salida));
    // An output that cannot be written is a failure, not a silent success.
    EXPECT_EQ(generar(QStringLiteral("corneta.wav"), dir.filePath(QStringLiteral("no/hay/x.wav"))),
              1);
}

} // namespace
