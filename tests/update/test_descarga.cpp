#include "common/EscritorioPrueba.h"
#include "update/Descarga.h"
#include "update/ServicioActualizacion.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

// One download over loopback into a folder that already holds the old executable.
struct Descarga_ : ::testing::Test {
    SimuladorPrueba sim;
    QTemporaryDir servidos;
    QTemporaryDir carpeta;
    QString destino = carpeta.filePath(QStringLiteral("TarvimentaPedidos"));
    const QByteArray viejo = BytesDePrueba(200 * 1024, 1);
    Descarga descarga;
    QSignalSpy fin{&descarga, &Descarga::terminada};
    QList<QPair<qint64, qint64>> avances;

    void SetUp() override {
        ASSERT_TRUE(sim.enMarcha());
        QFile f(destino);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(viejo);
        f.close();
        ASSERT_TRUE(f.setPermissions(QFile::permissions(destino) | QFileDevice::ExeOwner));
        descarga.setEjecutable(true);
        QObject::connect(&descarga, &Descarga::progreso, [this](qint64 r, qint64 t) {
            avances.append({r, t});
        });
    }

    Descarga::Resultado Bajar(const QString& nombre, int msMax = 30000) {
        descarga.iniciar(QUrl(UrlDescargas(sim) + nombre), destino);
        if (!EsperarHasta([this] { return !fin.isEmpty(); }, msMax)) {
            ADD_FAILURE() << "la descarga no terminó";
            return Descarga::Resultado::Fallida;
        }
        return fin.first().first().value<Descarga::Resultado>();
    }

    // Nothing but the target is left in the folder: no temporary file survives.
    QStringList Contenido() const {
        return QDir(carpeta.path()).entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
    }
};

TEST_F(Descarga_, CompletaReemplazaConBitDeEjecucionYAvanceHastaElTotal) {
    const QByteArray nuevo = BytesDePrueba(12 * 1024 * 1024 + 3, 2);
    ASSERT_TRUE(ServirFichero(sim, servidos, QStringLiteral("nuevo.exe"), nuevo));

    ASSERT_EQ(Bajar(QStringLiteral("nuevo.exe")), Descarga::Resultado::Completa);

    EXPECT_TRUE(LeerFichero(destino) == nuevo);
    EXPECT_EQ(Contenido(), QStringList{QStringLiteral("TarvimentaPedidos")});
    ASSERT_FALSE(avances.isEmpty());
    EXPECT_EQ(avances.last(), qMakePair(qint64(nuevo.size()), qint64(nuevo.size())));
    for (qsizetype i = 1; i < avances.size(); ++i) {
        EXPECT_LE(avances[i - 1].first, avances[i].first);
    }
    EXPECT_GT(avances.size(), 3) << "a long transfer shows its progress on the way";
}

TEST_F(Descarga_, LoQueNoLlegaEnteroDejaElEjecutableViejo) {
    const struct {
        const char* nombre;
        QByteArray servido; // empty name: not served at all
        bool cortar;
        Descarga::Resultado esperado;
    } casos[] = {
        {"cortado.exe", BytesDePrueba(4 * 1024 * 1024, 3), true, Descarga::Resultado::Incompleta},
        {"vacio.exe", QByteArray(), false, Descarga::Resultado::Fallida},
        {"no_servido.exe", QByteArray("-"), false, Descarga::Resultado::Fallida},
    };
    for (const auto& c : casos) {
        const QString nombre = QString::fromLatin1(c.nombre);
        if (c.servido != "-") {
            ASSERT_TRUE(ServirFichero(sim, servidos, nombre, c.servido));
        }
        if (c.cortar) {
            ASSERT_TRUE(PonerActualizacion(
                sim, {{QStringLiteral("cortar"), QJsonObject{{QStringLiteral("fraccion"), 0.5},
                                                             {QStringLiteral("veces"), 1}}}}));
        }
        fin.clear();
        EXPECT_EQ(Bajar(nombre), c.esperado) << c.nombre;
        EXPECT_TRUE(LeerFichero(destino) == viejo) << c.nombre;
        EXPECT_TRUE(QFileInfo(destino).isExecutable()) << c.nombre;
        EXPECT_EQ(Contenido(), QStringList{QStringLiteral("TarvimentaPedidos")}) << c.nombre;
    }
}

TEST_F(Descarga_, UnServidorQueCallaSeDejaTrasLaEsperaSinDatos) {
    // Silent from the start, and silent half way through a body.
    ASSERT_TRUE(ServirFichero(sim, servidos, QStringLiteral("lento.exe"), "x"));
    ASSERT_TRUE(
        ServirFichero(sim, servidos, QStringLiteral("parado.exe"), BytesDePrueba(1 << 20, 4)));
    sim.fallo(QStringLiteral("colgar"), 20, 1, QStringLiteral("descargas/lento.exe"));
    descarga.setEsperaSinDatos(700);
    for (const char* nombre : {"lento.exe", "parado.exe"}) {
        if (QByteArray(nombre) == "parado.exe") {
            ASSERT_TRUE(PonerActualizacion(
                sim, {{QStringLiteral("cortar"), QJsonObject{{QStringLiteral("fraccion"), 0.5},
                                                             {QStringLiteral("segundos"), 20}}}}));
        }
        fin.clear();
        QElapsedTimer reloj;
        reloj.start();
        EXPECT_EQ(Bajar(QString::fromLatin1(nombre), 10000), Descarga::Resultado::Fallida)
            << nombre;
        EXPECT_LT(reloj.elapsed(), 8000) << nombre;
        EXPECT_TRUE(LeerFichero(destino) == viejo) << nombre;
        EXPECT_EQ(Contenido(), QStringList{QStringLiteral("TarvimentaPedidos")}) << nombre;
    }
}

} // namespace
