#include "base/ArchivosLocales.h"
#include "base/CifradoAjustes.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "common/ImprimirQString.h"
#include "common/NumeroDeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// The settings key's first RC4 key stream bytes, from the published algorithm:
// 3D 29 BD 3B ...; so "abc" enciphers to 61^3D 62^29 63^BD = 5C 4B DE.
const QString kAbcCifrado = QStringLiteral("5C4BDE");

QByteArray bytes(std::initializer_list<int> b) {
    QByteArray r;
    for (int x : b) {
        r.append(static_cast<char>(x));
    }
    return r;
}

class ArchivosLocales : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(carpeta.isValid());
        m.CarpetaDatos = carpeta.path();
    }
    QString ruta(const char* nombre) const { return QDir(carpeta.path()).filePath(nombre); }
    QByteArray contenido(const char* nombre) const {
        QFile f(ruta(nombre));
        EXPECT_TRUE(f.open(QIODevice::ReadOnly));
        return f.readAll();
    }
    void escribir(const char* nombre, const QByteArray& datos) const {
        QFile f(ruta(nombre));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(datos);
    }

    QTemporaryDir carpeta;
    ModuloPrincipal m;
};

} // namespace

TEST_F(ArchivosLocales, ConfigNuevoSonDieciochoBytesSoloParaElUsuario) {
    LeerConfigTxt(m);
    EXPECT_EQ(contenido("config.txt"),
              bytes({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0}));
    EXPECT_EQ(m.NumConfig, 1);
    EXPECT_EQ(m.IdEstablecimiento, 0);
    EXPECT_EQ(m.PasswordConfig, QString());
    EXPECT_EQ(m.RutaConfigTxt, ruta("config.txt"));
    struct stat estado {};
    ASSERT_EQ(::stat(QFile::encodeName(ruta("config.txt")).constData(), &estado), 0);
    EXPECT_EQ(estado.st_mode & 0777, 0600u);
}

TEST_F(ArchivosLocales, ContrasennaEnClaroSeCifraAlLeer) {
    // Id 42, plain password "abc", nothing else, NumConfig 3.
    escribir("config.txt",
             bytes({42, 0, 0, 0, 3, 0, 'a', 'b', 'c', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3, 0}));
    LeerConfigTxt(m);
    EXPECT_EQ(m.PasswordConfigCifrada, kAbcCifrado);
    EXPECT_EQ(m.PasswordConfig, QStringLiteral("abc"));
    // Field 2 empty, field 5 six hexadecimal digits; the old 21 bytes are overwritten by 24.
    EXPECT_EQ(contenido("config.txt"), bytes({42,  0,   0,   0,   0,   0,   0, 0, 0, 0, 6, 0,
                                              '5', 'C', '4', 'B', 'D', 'E', 0, 0, 0, 0, 3, 0}));
}

TEST_F(ArchivosLocales, NumConfigFueraDeRangoYMetcon) {
    // MetconGuardado 2, NumConfig 10, enciphered password "abc".
    escribir("config.txt", bytes({5,   1,   0,   0,   0,   0,   0, 0, 0, 0, 6,  0,
                                  '5', 'C', '4', 'B', 'D', 'E', 1, 0, 2, 0, 10, 0}));
    LeerConfigTxt(m);
    EXPECT_EQ(m.IdEstablecimiento, 261);
    EXPECT_EQ(m.NumConfig, 1);
    EXPECT_EQ(m.AccesosCreados, 1);
    EXPECT_EQ(m.MetconGuardado, 2);
    EXPECT_EQ(m.Metcon, 2);
    EXPECT_EQ(m.PasswordConfig, QStringLiteral("abc"));
    EXPECT_EQ(contenido("config.txt"), bytes({5,   1,   0,   0,   0,   0,   0, 0, 0, 0, 6, 0,
                                              '5', 'C', '4', 'B', 'D', 'E', 1, 0, 2, 0, 1, 0}));
    // A negative number stays, and the file is left alone.
    const QByteArray negativo = bytes({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF});
    escribir("config.txt", negativo);
    LeerConfigTxt(m);
    EXPECT_EQ(m.NumConfig, -1);
    EXPECT_EQ(contenido("config.txt"), negativo);
}

TEST_F(ArchivosLocales, RegistroMasCortoDejaLaColaVieja) {
    m.IdEstablecimiento = 7;
    m.ImpresoraAntigua = QStringLiteral("EPSON");
    m.NumConfig = 2;
    m.PasswordConfig = QStringLiteral("secreto");
    GuardarConfigTxt(m);
    EXPECT_EQ(m.PasswordConfig, QStringLiteral("secreto"));
    EXPECT_EQ(contenido("config.txt"), bytes({7,   0, 0, 0, 0, 0, 5, 0, 'E', 'P', 'S', 'O',
                                              'N', 0, 0, 0, 0, 0, 0, 0, 0,   2,   0}));
    m.ImpresoraAntigua.clear();
    GuardarConfigTxt(m);
    // 18 new bytes, then the last five bytes of the old record.
    EXPECT_EQ(contenido("config.txt"),
              bytes({7, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0}));
    ModuloPrincipal otro;
    otro.CarpetaDatos = carpeta.path();
    LeerConfigTxt(otro);
    EXPECT_EQ(otro.IdEstablecimiento, 7);
    EXPECT_EQ(otro.ImpresoraAntigua, QString());
    EXPECT_EQ(otro.NumConfig, 2);
}

TEST_F(ArchivosLocales, UltPedImLecturaYColas) {
    LeerUltPedIm(m);
    EXPECT_EQ(m.UltPedIm, QString());
    EXPECT_TRUE(QFileInfo::exists(ruta("ultpedim.txt")));
    EXPECT_EQ(m.RutaUltPedIm, ruta("ultpedim.txt"));

    escribir("ultpedim.txt", "12,11");
    LeerUltPedIm(m);
    EXPECT_EQ(m.UltPedIm, QStringLiteral("12,11"));

    // Blanks around fields, a line end, empty leading fields and a trailing comma.
    escribir("ultpedim.txt", ",, 15 ,\"14\", 13\r\n12,");
    LeerUltPedIm(m);
    EXPECT_EQ(m.UltPedIm, QStringLiteral("15,14,13,12"));

    // A shorter list leaves the old tail, which reads as further numbers.
    escribir("ultpedim.txt", "12,34,56");
    m.UltPedIm = QStringLiteral("99,12");
    GuardarUltPedIm(m);
    EXPECT_EQ(contenido("ultpedim.txt"), QByteArray("99,12,56"));
    LeerUltPedIm(m);
    EXPECT_EQ(m.UltPedIm, QStringLiteral("99,12,56"));
    // Mid-number, the tail glues onto the last number.
    m.UltPedIm = QStringLiteral("7,1");
    GuardarUltPedIm(m);
    LeerUltPedIm(m);
    EXPECT_EQ(m.UltPedIm, QStringLiteral("7,112,56"));

    m.UltPedIm = QStringLiteral("100,99,12,56");
    GuardarUltPedIm(m);
    EXPECT_EQ(contenido("ultpedim.txt"), QByteArray("100,99,12,56"));
}

TEST_F(ArchivosLocales, FallosDeDiscoSonErroresDelLlamador) {
    m.CarpetaDatos = QDir(carpeta.path()).filePath(QStringLiteral("no-existe"));
    EXPECT_EQ(numeroDeError([&] { LeerConfigTxt(m); }), 76);
    EXPECT_EQ(numeroDeError([&] { GuardarUltPedIm(m); }), 76);

    // A folder where the file should be (a full disk has its own test below).
    m.CarpetaDatos = carpeta.path();
    ASSERT_TRUE(QDir(carpeta.path()).mkdir(QStringLiteral("config.txt")));
    EXPECT_EQ(numeroDeError([&] { LeerConfigTxt(m); }), 75);

    if (geteuid() != 0) {
        // Read-only folder (root writes anyway, so only an ordinary user can see it).
        QTemporaryDir soloLectura;
        QFile::setPermissions(soloLectura.path(), QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        m.CarpetaDatos = soloLectura.path();
        EXPECT_EQ(numeroDeError([&] { LeerConfigTxt(m); }), 70);
        QFile::setPermissions(soloLectura.path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                      QFileDevice::ExeOwner);
    }
}

TEST(CifradoAjustes, IdaYVuelta) {
    const QString clave = ModuloPrincipal::ClaveAjustes;
    EXPECT_EQ(CifrarAjuste(QStringLiteral("abc"), clave), kAbcCifrado);
    // Where the key stream byte equals the text byte (3D "=", 29 ")", 3B ";") the byte goes
    // out unchanged instead of as 0; BD ^ 78 ("x") is C5.
    EXPECT_EQ(CifrarAjuste(QStringLiteral("=)x;"), clave), QStringLiteral("3D29C53B"));
    for (const QString& t : {QStringLiteral("=)x;"), QStringLiteral("abc"),
                             QStringLiteral("Año€ 2026"), QString(300, u'z'), QString()}) {
        const QString cifrado = CifrarAjuste(t, clave);
        EXPECT_EQ(cifrado.size(), t.size() * 2);
        EXPECT_EQ(DescifrarAjuste(cifrado, clave), t);
        EXPECT_EQ(TransformarRC4(TransformarRC4(t, clave), clave), t);
        EXPECT_FALSE(TransformarRC4(t, clave).contains(QChar(0)));
    }
    // Lower-case digits read too; another key gives another text.
    EXPECT_EQ(DescifrarAjuste(QStringLiteral("5c4bde"), clave), QStringLiteral("abc"));
    EXPECT_NE(DescifrarAjuste(kAbcCifrado, QStringLiteral("otra")), QStringLiteral("abc"));
}

TEST(CifradoAjustes, ParesQueNoSonNumeros) {
    auto error = [](const QString& t) {
        return numeroDeError([&] { DescifrarAjuste(t, ModuloPrincipal::ClaveAjustes); });
    };
    EXPECT_EQ(error(QStringLiteral("5CZZ")), 13);
    EXPECT_EQ(error(QStringLiteral("G1")), 13);
    EXPECT_EQ(error(QStringLiteral("5C 4")), 13);
    EXPECT_EQ(error(QStringLiteral("5C4BDE")), 0);
}

namespace {

// Writes past `bytes` fail as on a full disk (EFBIG) for as long as it lives.
class DiscoLleno {
public:
    explicit DiscoLleno(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &antes_);
        anterior_ = ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limite{bytes, antes_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limite);
    }
    ~DiscoLleno() {
        ::setrlimit(RLIMIT_FSIZE, &antes_);
        ::signal(SIGXFSZ, anterior_);
    }
    DiscoLleno(const DiscoLleno&) = delete;
    DiscoLleno& operator=(const DiscoLleno&) = delete;

private:
    rlimit antes_{};
    sighandler_t anterior_ = SIG_DFL;
};

QByteArray alAzar(int n) {
    QRandomGenerator g(21);
    QByteArray r;
    for (int i = 0; i < n; ++i) {
        r.append(static_cast<char>(g.bounded(256)));
    }
    return r;
}

// Id 42, the enciphered "abc", AccesosCreados 0, MetconGuardado 0, NumConfig 3: 24 bytes.
const QByteArray kRegistroBueno =
    bytes({42, 0, 0, 0, 0, 0, 0, 0, 0, 0, 6, 0, '5', 'C', '4', 'B', 'D', 'E', 0, 0, 0, 0, 3, 0});

} // namespace

TEST_F(ArchivosLocales, ArchivosDanadosSeLeenEnLoPosibleYSeGuardaCopia) {
    struct Caso {
        const char* nombre;
        const char* archivo;
        QByteArray contenido;
        QString aviso;
        QString leido;    // "id/password" for config.txt, the list for ultpedim.txt
        QByteArray queda; // the file after the reading
    };
    const Caso casos[] = {
        {"vacío", "config.txt", QByteArray(), AvisoConfigVacio, QStringLiteral("0/"),
         bytes({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0})},
        // Cut inside the enciphered password: the id survives, the half password does not.
        {"cortado", "config.txt", kRegistroBueno.left(15), AvisoConfigDanado, QStringLiteral("42/"),
         bytes({42, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0})},
        {"al azar", "config.txt", alAzar(200), AvisoConfigDanado, QString(), QByteArray()},
        // A record of an older version ends between two fields: nothing to say.
        {"antiguo", "config.txt", kRegistroBueno.left(18), QString(), QStringLiteral("42/abc"),
         QByteArray()},
        {"lista con basura", "ultpedim.txt", QByteArray("12,\x01\xff&x=1#,11, 10\r\n", 18),
         AvisoUltPedImDanado, QStringLiteral("12,11,10"), QByteArray("12,11,10")},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.nombre);
        QDir(carpeta.path()).removeRecursively();
        QDir().mkpath(carpeta.path());
        escribir(c.archivo, c.contenido);
        ModuloPrincipal leido;
        leido.CarpetaDatos = carpeta.path();
        const bool config = QLatin1String(c.archivo) == QLatin1String("config.txt");
        EXPECT_EQ(config ? LeerConfigTxt(leido) : LeerUltPedIm(leido), c.aviso);
        if (!c.leido.isNull()) {
            EXPECT_EQ(config
                          ? QString::number(leido.IdEstablecimiento) + u'/' + leido.PasswordConfig
                          : leido.UltPedIm,
                      c.leido);
        }
        if (!c.queda.isNull()) {
            EXPECT_EQ(contenido(c.archivo), c.queda);
        }
        // What was damaged is kept as it was, beside the file.
        const QString copia = (config ? NombreCopiaConfigDanado : NombreCopiaUltPedImDanado);
        const bool danado = c.aviso != AvisoConfigVacio && !c.aviso.isEmpty();
        ASSERT_EQ(QFileInfo::exists(ruta(copia.toUtf8().constData())), danado);
        if (danado) {
            EXPECT_EQ(contenido(copia.toUtf8().constData()), c.contenido);
        }
    }
}

TEST_F(ArchivosLocales, DiscoLlenoDejaElArchivoAnteriorEntero) {
    escribir("config.txt", kRegistroBueno);
    escribir("ultpedim.txt", "12,11");
    m.IdEstablecimiento = 99;
    m.UltPedIm = QStringLiteral("13,12,11");
    // A reading that must rewrite its file (NumConfig 0) goes on with what it read.
    QTemporaryDir otraCarpeta;
    ModuloPrincipal otro;
    otro.CarpetaDatos = otraCarpeta.path();
    const QString otroConfig = QDir(otraCarpeta.path()).filePath(QStringLiteral("config.txt"));
    {
        QFile f(otroConfig);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(kRegistroBueno.left(22));
    }
    QSignalSpy avisos(&m, &ModuloPrincipal::avisoArchivos);
    QString aviso;
    {
        DiscoLleno disco(4);
        EXPECT_EQ(numeroDeError([&] { GuardarUltPedIm(m); }), 61);
        EXPECT_FALSE(GuardarAvisando(m, QStringLiteral("config.txt"), GuardarConfigTxt));
        aviso = LeerConfigTxt(otro);
    }
    EXPECT_TRUE(aviso.startsWith(QStringLiteral("No se ha podido guardar config.txt (")))
        << aviso.toStdString();
    EXPECT_EQ(otro.IdEstablecimiento, 42);
    EXPECT_EQ(otro.PasswordConfig, QStringLiteral("abc"));
    {
        QFile f(otroConfig);
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        EXPECT_EQ(f.readAll(), kRegistroBueno.left(22));
    }
    EXPECT_EQ(contenido("config.txt"), kRegistroBueno);
    EXPECT_EQ(contenido("ultpedim.txt"), QByteArray("12,11"));
    ASSERT_EQ(avisos.size(), 1);
    EXPECT_TRUE(avisos[0][0].toString().contains(ErrorEjecucion::textoDe(61)));
    // No temporary file is left behind.
    EXPECT_EQ(QDir(carpeta.path()).entryList(QDir::Files).size(), 2);

    // With room again the write goes through and the note is taken away.
    EXPECT_TRUE(GuardarAvisando(m, QStringLiteral("config.txt"), GuardarConfigTxt));
    EXPECT_EQ(avisos.last()[0].toString(), QString());
    EXPECT_EQ(contenido("config.txt").left(1), bytes({99}));
}
