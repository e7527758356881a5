#include "update/Desempaquetado.h"
#include "update/ServicioActualizacion.h"
#include "update/ZipPrueba.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

TEST(Desempaquetado, SacaCarpetasFicherosYElBitDeEjecucion) {
    QTemporaryDir dir;
    const QString zip = dir.filePath(QStringLiteral("act.zip"));
    QByteArray grande(300 * 1024, '\0');
    for (qsizetype i = 0; i < grande.size(); ++i) {
        grande[i] = static_cast<char>((i * 7919) % 251);
    }
    ASSERT_TRUE(CrearZip(zip, {{QStringLiteral("setup.sh"), "#!/bin/sh\nexit 0\n", 0755},
                               {QStringLiteral("vacia/"), {}, 0755},
                               {QStringLiteral("datos/uno/a.bin"), grande, 0644}}));
    const QString destino = dir.filePath(QStringLiteral("act"));

    EXPECT_EQ(Desempaquetar(zip, destino), QString());

    EXPECT_EQ(LeerFichero(destino + QStringLiteral("/setup.sh")), "#!/bin/sh\nexit 0\n");
    EXPECT_EQ(LeerFichero(destino + QStringLiteral("/datos/uno/a.bin")), grande);
    EXPECT_TRUE(QFileInfo(destino + QStringLiteral("/vacia")).isDir());
    EXPECT_TRUE(QFileInfo(destino + QStringLiteral("/setup.sh")).isExecutable());
    EXPECT_FALSE(QFileInfo(destino + QStringLiteral("/datos/uno/a.bin")).isExecutable());
}

TEST(Desempaquetado, NombresQueSalenDeLaCarpetaRechazanTodoSinEscribirNada) {
    const QList<QString> malos{QStringLiteral("../fuera.txt"), QStringLiteral("a/../../fuera.txt"),
                               QStringLiteral("/tmp/absoluto.txt"), QStringLiteral("a//b.txt")};
    for (const QString& malo : malos) {
        QTemporaryDir dir;
        const QString zip = dir.filePath(QStringLiteral("act.zip"));
        ASSERT_TRUE(
            CrearZip(zip, {{QStringLiteral("setup.sh"), "echo\n", 0755}, {malo, "x", 0644}}))
            << malo.toStdString();
        const QString destino = dir.filePath(QStringLiteral("sub/act"));

        EXPECT_FALSE(Desempaquetar(zip, destino).isEmpty()) << malo.toStdString();
        EXPECT_FALSE(QFileInfo::exists(destino)) << malo.toStdString();
        EXPECT_FALSE(QFileInfo::exists(dir.filePath(QStringLiteral("sub/fuera.txt"))));
    }
}

TEST(Desempaquetado, LoQueNoEsZipSeDiceSinRomper) {
    QTemporaryDir dir;
    const struct {
        const char* nombre;
        QByteArray bytes;
    } casos[] = {{"texto", "esto no es un zip"}, {"cortado", {}}};
    for (const auto& c : casos) {
        const QString ruta = dir.filePath(QString::fromLatin1(c.nombre) + QStringLiteral(".zip"));
        QByteArray bytes = c.bytes;
        if (QByteArray(c.nombre) == "cortado") {
            // A good archive with its last half missing (a download cut short).
            ASSERT_TRUE(
                CrearZip(ruta, {{QStringLiteral("setup.sh"), QByteArray(4096, 'x'), 0755}}));
            bytes = LeerFichero(ruta);
            bytes.truncate(bytes.size() / 2);
        }
        QFile f(ruta);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(bytes);
        f.close();
        EXPECT_FALSE(Desempaquetar(ruta, dir.filePath(QStringLiteral("d"))).isEmpty()) << c.nombre;
    }
    EXPECT_FALSE(Desempaquetar(dir.filePath(QStringLiteral("no_existe.zip")),
                               dir.filePath(QStringLiteral("d")))
                     .isEmpty());
}

} // namespace
