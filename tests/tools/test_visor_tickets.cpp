// The ticket preview: a hand-made byte stream read back as text, and real tickets of the
// desk turned into pictures.
#include "common/EscritorioPruebaEP.h"
#include "printing/PruebaImpresoraEP.h"
#include "printing/TicketClienteEP.h"
#include "printing/TicketCocinaEP.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

struct Salida {
    int codigo = -1;
    QString texto;
};

Salida visor(const QStringList& args) {
    QProcess p;
    p.start(QStringLiteral(CARPETA_BIN "/visor_tickets"), args);
    Salida s;
    if (p.waitForFinished(30000)) {
        s.codigo = p.exitCode();
        s.texto = QString::fromUtf8(p.readAllStandardOutput());
    } else {
        p.kill();
        p.waitForFinished(5000);
    }
    return s;
}

bool guardar(const QString& ruta, const QByteArray& bytes) {
    QFile f(ruta);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

int filasConTinta(const QImage& img) {
    int filas = 0;
    for (int y = 0; y < img.height(); ++y) {
        for (int x = 0; x < img.width(); ++x) {
            if (qGray(img.pixel(x, y)) < 128) {
                ++filas;
                break;
            }
        }
    }
    return filas;
}

TEST(VisorTickets, LeeTamannosPaginasAvancesYCorte) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString bin = dir.filePath("t.bin");
    // ESC @, ESC t 19 (PC858), large "Casa", normal "Total: " and the PC858 euro (0xD5), CR LF,
    // then Windows-1252 (ESC t 16) and its euro (0x80), ESC d 2, GS V 66 0.
    ASSERT_TRUE(guardar(bin, QByteArray::fromHex("1b40 1b7413 1b2130 43617361 0a"
                                                 "1b2100 546f74616c3a20 d5 0d0a"
                                                 "1b7410 80 0a 1b6402 1d564200")));
    const Salida s = visor({bin, "--texto", "--columnas", "16"});
    ASSERT_EQ(s.codigo, 0);
    const QString esperado = u"+----------------+\n"
                             u"|C a s a         |\n"
                             u"|                |\n"
                             u"|Total: €        |\n"
                             u"|€               |\n"
                             u"|                |\n"
                             u"|                |\n"
                             u"✂-----------------\n"
                             u"+----------------+\n"_qs;
    EXPECT_EQ(s.texto, esperado);

    // A line longer than the paper goes on in the next row.
    ASSERT_TRUE(guardar(bin, QByteArray("0123456789ab\n\x1b\x21\x30"
                                        "abcde\n")));
    const Salida largo = visor({bin, "--texto", "--columnas", "8"});
    ASSERT_EQ(largo.codigo, 0);
    EXPECT_EQ(largo.texto, "+--------+\n|01234567|\n|89ab    |\n|a b c d |\n|        |\n"
                           "|e       |\n|        |\n+--------+\n");
}

TEST(VisorTickets, ArgumentosYFicherosQueFaltan) {
    EXPECT_EQ(visor({}).codigo, 2);
    EXPECT_EQ(visor({"/nonexistent/t.bin"}).codigo, 2) << "neither --png nor --texto";
    EXPECT_EQ(visor({"/nonexistent/t.bin", "--texto"}).codigo, 1);
}

class VisorTicketsDelEscritorio : public EscritorioPrueba {};

TEST_F(VisorTicketsDelEscritorio, TicketDeClienteYDeCocinaComoImagen) {
    pedidoDomicilio();
    ClassConfigImpresora barra = impresoraEP("Barra", "barra");
    barra.ReemplazarCaracEscPosPC858 = true;
    ImprimirTicketEP(m, barra);
    ClassConfigImpresora plancha = impresoraEP("Plancha", "plancha");
    plancha.Cocina = true;
    plancha.MostrarNombreImpresora = true;
    plancha.NombreImpresoraGrande = true;
    plancha.ReemplazarCaracEscPosPC858 = true;
    ImprimirTicketCocinaEP(m, plancha);

    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    QList<QSize> tamannos;
    for (const QString& nombre : {QStringLiteral("barra"), QStringLiteral("plancha")}) {
        const QString bin = dir.filePath(nombre + ".bin");
        const QString png = dir.filePath(nombre + ".png");
        ASSERT_TRUE(guardar(bin, captura.bytes(nombre)));
        const Salida s = visor({bin, "--png", png, "--texto"});
        ASSERT_EQ(s.codigo, 0) << nombre.toStdString();
        // Large lines are spaced out and accents read back from PC858, where "º" was sent as
        // the degree sign's byte; the ticket is cut.
        EXPECT_TRUE(s.texto.contains(u"|P e d .   N ° :   1 2 3 4"_qs)) << s.texto.toStdString();
        EXPECT_TRUE(s.texto.contains(u"✂"_qs));
        const QImage img(png);
        ASSERT_FALSE(img.isNull());
        EXPECT_GT(filasConTinta(img), 100);
        tamannos.append(img.size());
    }
    ASSERT_EQ(tamannos.size(), 2);
    EXPECT_EQ(tamannos[0].width(), tamannos[1].width()) << "the same paper";
    EXPECT_GT(tamannos[0].height(), 2 * tamannos[1].height()) << "the customer ticket is longer";
    const Salida cliente = visor({dir.filePath("barra.bin"), "--texto"});
    EXPECT_TRUE(cliente.texto.contains(u"|Importe envío: 1,50€"_qs));
    // 24 large characters fill the 48 columns: "Total:", 12 blanks, the amount.
    EXPECT_TRUE(
        cliente.texto.contains(u"|T o t a l : "_qs + QString(24, u' ') + u"2 5 , 7 5 € |"_qs));
}

TEST_F(VisorTicketsDelEscritorio, PaginaDePruebaConCadaPaginaDeCodigosComoEnElPapel) {
    prueba_ep::ImprimirPruebaEP(m, impresoraEP("Barra", "barra"));
    QTemporaryDir dir;
    const QString bin = dir.filePath("prueba.bin");
    ASSERT_TRUE(guardar(bin, captura.bytes("barra")));
    const Salida s = visor({bin, "--texto"});
    ASSERT_EQ(s.codigo, 0);
    QStringList filas;
    for (const QString& l : s.texto.split(u'\n')) {
        filas << l.mid(1, l.size() - 2).trimmed();
    }
    auto fila = [&filas](const QString& inicio) {
        for (const QString& f : filas) {
            if (f.startsWith(inicio)) {
                return f.mid(inicio.size());
            }
        }
        return QStringLiteral("(falta)");
    };
    // The bytes of the PC858 table read in the printer's pages: right in PC858 itself (º and °
    // share a byte; the acute accent has no pair and goes as its Windows byte), box drawing
    // for the capitals in PC437, a dotless i for the euro in PC850; the Windows bytes are right
    // in Windows-1252 alone.
    const QString act = QStringLiteral("-PC858 Act.: ");
    const QString des = QStringLiteral("-PC858 Des.: ");
    EXPECT_EQ(fila("19" + act), u"áéíóú ÁÉÍÓÚ ñÑ çÇ üÜ € ° ° ¡ ¿ ┤"_qs);
    EXPECT_EQ(fila("0" + act), u"áéíóú ╡É╓αΘ ñÑ çÇ üÜ ╒ ° ° ¡ ¿ ┤"_qs);
    EXPECT_EQ(fila("2" + act), u"áéíóú ÁÉÍÓÚ ñÑ çÇ üÜ ı ° ° ¡ ¿ ┤"_qs);
    EXPECT_EQ(fila("16" + des), u"áéíóú ÁÉÍÓÚ ñÑ çÇ üÜ € º ° ¡ ¿ ´"_qs);
    // A code the printer doesn't know leaves the last page it knew.
    EXPECT_EQ(fila("1" + act), fila("0" + act));
    EXPECT_EQ(fila("96" + des), fila("52" + des));
}

} // namespace
