#include "platform/CajaMensajes.h"
#include "shell/LineaComandos.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(LineaComandos, LasOpcionesSalenAntesDeLeerLasPalabras) {
    QTemporaryDir tmp;
    const QString datos = tmp.filePath(QStringLiteral("datos"));
    const auto l =
        LineaComandos::Leer({QStringLiteral("/opt/x/TarvimentaPedidos"),
                             QStringLiteral("--servidor=127.0.0.1:8080/api"),
                             QStringLiteral("noactualizar"), QStringLiteral("--carpeta=") + datos,
                             QStringLiteral("--respuestas=si,No,x"), QStringLiteral("otra")},
                            QProcessEnvironment(), tmp.path());
    EXPECT_EQ(l.servidor, QStringLiteral("127.0.0.1:8080/api/"));
    EXPECT_EQ(l.carpetaDatos, QDir(datos).absolutePath());
    EXPECT_TRUE(QDir(datos).exists());
    EXPECT_EQ(l.palabras, (QStringList{QStringLiteral("noactualizar"), QStringLiteral("otra")}));
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

TEST(LineaComandos, LasPalabrasSePartenEnBlancosSimples) {
    QTemporaryDir tmp;
    const auto l = LineaComandos::Leer({QStringLiteral("TVU"), QStringLiteral("12"),
                                        QStringLiteral("clave con"), QStringLiteral("x")},
                                       QProcessEnvironment(), tmp.path());
    EXPECT_EQ(l.palabras, (QStringList{QStringLiteral("12"), QStringLiteral("clave"),
                                       QStringLiteral("con"), QStringLiteral("x")}));
}
