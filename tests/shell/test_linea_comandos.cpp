#include "platform/CajaMensajes.h"
#include "shell/LineaComandos.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(LineaComandos, LasOpcionesSalenAntesDeLeerLasPalabras) {
    QTemporaryDir tmp;
    const QString datos = tmp.filePath(QStringLiteral("datos"));
    const auto l = LineaComandos::Leer(
        {QStringLiteral("/opt/x/TarvimentaPedidos"),
         QStringLiteral("--servidor=127.0.0.1:8080/api"), QStringLiteral("noactualizar"),
         QStringLiteral("--carpeta=") + datos, QStringLiteral("--respuestas=si,No,x"),
         QStringLiteral("clave con"), QStringLiteral("x")},
        QProcessEnvironment(), tmp.path());
    EXPECT_EQ(l.servidor, QStringLiteral("127.0.0.1:8080/api/"));
    EXPECT_EQ(l.carpetaDatos, QDir(datos).absolutePath());
    EXPECT_TRUE(QDir(datos).exists());
    // A word holding a blank is two words.
    EXPECT_EQ(l.palabras, (QStringList{QStringLiteral("noactualizar"), QStringLiteral("clave"),
                                       QStringLiteral("con"), QStringLiteral("x")}));
    EXPECT_EQ(l.respuestasCajas, (QList<int>{respuesta::Si, respuesta::No, respuesta::Si}));
}

TEST(LineaComandos, ElEntornoSuplePorDefectoYLaCarpetaDelEjecutable) {
    QTemporaryDir tmp;
    QProcessEnvironment entorno;
    entorno.insert(QStringLiteral("TARVIMENTA_SERVIDOR"), QStringLiteral("h:1/api/"));
    const auto l = LineaComandos::Leer({QStringLiteral("prog")}, entorno, tmp.path());
    EXPECT_EQ(l.servidor, QStringLiteral("h:1/api/"));
    EXPECT_EQ(l.carpetaDatos, tmp.path());
    EXPECT_TRUE(l.palabras.isEmpty());
    // The option beats the environment.
    const auto l2 = LineaComandos::Leer(
        {QStringLiteral("prog"), QStringLiteral("--servidor=o:2/api/")}, entorno, tmp.path());
    EXPECT_EQ(l2.servidor, QStringLiteral("o:2/api/"));
}

// An installed desk keeps its files in the user's data folder, even for root, who could write
// beside the executable; a desk unpacked in a folder of its own keeps them there.
TEST(LineaComandos, LaCarpetaDeDatosDeUnaInstalacionDelSistemaEsLaDelUsuario) {
    QStandardPaths::setTestModeEnabled(true);
    QTemporaryDir tmp;
    const QString delUsuario = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    const struct {
        QString carpetaEjecutable;
        QString esperada;
    } casos[] = {
        {QStringLiteral("/usr/lib/tarvimentapedidos"), delUsuario},
        {QStringLiteral("/usr/local/bin"), delUsuario},
        {tmp.path(), tmp.path()},
    };
    for (const auto& c : casos) {
        SCOPED_TRACE(c.carpetaEjecutable.toStdString());
        EXPECT_EQ(
            LineaComandos::Leer({QStringLiteral("p")}, QProcessEnvironment(), c.carpetaEjecutable)
                .carpetaDatos,
            c.esperada);
    }
    QStandardPaths::setTestModeEnabled(false);
}

namespace {

struct CasoRevision {
    QStringList argumentos;
    PeticionLinea::Tipo tipo;
    const char* enElTexto; // a piece the answer must hold ("" for none)
};

} // namespace

TEST(LineaComandos, RevisarDistingueArranqueAyudaVersionYError) {
    const CasoRevision casos[] = {
        {{"noactualizar", "--carpeta=/x", "-platform", "offscreen", "12", "clave"},
         PeticionLinea::Arrancar,
         ""},
        {{"--impresora-pdf=A", "--impresora-pdf=B b"}, PeticionLinea::Arrancar, ""},
        {{"--version"}, PeticionLinea::Version, ""},
        {{"--help"}, PeticionLinea::Ayuda, "--carpeta-pdf=CARPETA"},
        {{"--version", "-h"}, PeticionLinea::Ayuda, "noactualizar"},
        {{"--foo"}, PeticionLinea::Error, "opción desconocida «--foo»"},
        {{"--version", "--foo"}, PeticionLinea::Error, "«--foo»"},
        {{"--help", "--servidorx=h/"}, PeticionLinea::Error, "«--servidorx=h/»"},
        {{"--servidor"}, PeticionLinea::Error, "«--servidor» necesita un valor"},
        {{"--carpeta="}, PeticionLinea::Error, "«--carpeta» necesita un valor"},
        {{"--version=2"}, PeticionLinea::Error, "«--version» no lleva valor"},
        {{"--"}, PeticionLinea::Error, "desconocida"},
    };
    for (const CasoRevision& c : casos) {
        SCOPED_TRACE(c.argumentos.join(QLatin1Char(' ')).toStdString());
        const PeticionLinea p = LineaComandos::Revisar(
            QStringList{QStringLiteral("/usr/lib/x/TarvimentaPedidos")} + c.argumentos);
        EXPECT_EQ(p.tipo, c.tipo);
        EXPECT_TRUE(p.texto.contains(QString::fromUtf8(c.enElTexto))) << p.texto.toStdString();
        if (c.tipo == PeticionLinea::Error) {
            // The program's own name, not its path, and where to look next.
            EXPECT_TRUE(p.texto.startsWith(QStringLiteral("TarvimentaPedidos: ")));
            EXPECT_TRUE(p.texto.contains(QStringLiteral("«TarvimentaPedidos --help»")));
        }
    }
}

// Every option of the README's table is accepted with a value and listed by the help, so
// neither can fall behind what the desk reads.
TEST(LineaComandos, LaAyudaYLaRevisionConocenCadaOpcionDelReadme) {
    QFile readme(QStringLiteral(CARPETA_FUENTES "/README.md"));
    ASSERT_TRUE(readme.open(QIODevice::ReadOnly));
    const QRegularExpression fila(QStringLiteral("^\\| `(--[a-z-]+)=[^`]*` \\|"),
                                  QRegularExpression::MultilineOption);
    QStringList opciones;
    for (auto it = fila.globalMatch(QString::fromUtf8(readme.readAll())); it.hasNext();) {
        opciones.append(it.next().captured(1));
    }
    ASSERT_GE(opciones.size(), 7);
    const QString ayuda = LineaComandos::TextoAyuda(QStringLiteral("TarvimentaPedidos"));
    for (const QString& o : opciones) {
        SCOPED_TRACE(o.toStdString());
        EXPECT_TRUE(ayuda.contains(QStringLiteral("  ") + o + QLatin1Char('=')));
        EXPECT_EQ(LineaComandos::Revisar({QStringLiteral("p"), o + QStringLiteral("=v")}).tipo,
                  PeticionLinea::Arrancar);
    }
}

// The real program answers before it needs a screen: help on standard output, a mistake on
// standard error with exit code 2 and no desk started.
TEST(LineaComandos, ElProgramaResponde) {
    struct Caso {
        QStringList argumentos;
        int codigo;
        const char* salida;
        const char* error;
    };
    const Caso casos[] = {
        {{"--help"}, 0, "Uso: TarvimentaPedidos", ""},
        {{"--version"}, 0, "TarvimentaPedidos 1.", ""},
        {{"--servidr=h/"}, 2, "", "opción desconocida «--servidr=h/»"},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.argumentos.join(QLatin1Char(' ')).toStdString());
        QProcess p;
        QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
        entorno.remove(QStringLiteral("QT_QPA_PLATFORM"));
        entorno.remove(QStringLiteral("DISPLAY"));
        p.setProcessEnvironment(entorno);
        p.start(QStringLiteral(TARVIMENTA_EXE), c.argumentos);
        ASSERT_TRUE(p.waitForFinished(20000));
        EXPECT_EQ(p.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(p.exitCode(), c.codigo);
        const QString salida = QString::fromUtf8(p.readAllStandardOutput());
        const QString error = QString::fromUtf8(p.readAllStandardError());
        EXPECT_TRUE(salida.contains(QString::fromUtf8(c.salida))) << salida.toStdString();
        EXPECT_TRUE(error.contains(QString::fromUtf8(c.error))) << error.toStdString();
        EXPECT_EQ(salida.isEmpty(), *c.salida == '\0');
    }
}
