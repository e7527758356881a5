// The printers' folder of the demo as the ticket window reads it: which files are tickets,
// whose they are, and which comes first.
#include "ListaTickets.h"
#include "VentanaTickets.h"
#include "common/ImprimirQString.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QDateTime kBase(QDate(2026, 11, 23), QTime(10, 45, 0));

void escribir(const QDir& dir, const QString& nombre, const QByteArray& bytes, int segundos) {
    QFile f(dir.filePath(nombre));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
    f.flush(); // or closing would stamp the time again
    ASSERT_TRUE(f.setFileTime(kBase.addSecs(segundos), QFileDevice::FileModificationTime));
}

} // namespace

TEST(ListaTickets, LosMasNuevosPrimeroYSoloLosTickets) {
    QTemporaryDir tmp;
    const QDir dir(tmp.path());
    const QByteArray ticket("\x1b@Hola\n\x1dV\x00", 10);
    escribir(dir, QStringLiteral("cliente.bin"), ticket, 0); // no copies kept: shown itself
    escribir(dir, QStringLiteral("cocina1.bin"), ticket, 1); // its copies stand for it
    escribir(dir, QStringLiteral("cocina1-1.ep"), ticket, 1);
    escribir(dir, QStringLiteral("cocina1-2.ep"), ticket, 1);       // same second, later copy
    escribir(dir, QStringLiteral("cocina2-1.ep"), QByteArray(), 3); // still empty
    escribir(dir, QStringLiteral("Impresora_caja-20261123-104502.pdf"), "%PDF", 2);
    escribir(dir, QStringLiteral("Impresora_caja-20261123-104502.png"), "png", 2);
    escribir(dir, QStringLiteral("Impresora_caja-20261123-104502-2.pdf"), "%PDF", 2);
    escribir(dir, QStringLiteral("notas.txt"), "x", 5);
    escribir(dir, QStringLiteral("cocina1.png"), "png", 5);

    const struct {
        const char* archivo;
        const char* impresora;
        bool pdf;
        bool conImagen;
    } esperados[] = {
        {"Impresora_caja-20261123-104502-2.pdf", "Impresora caja", true, false},
        {"Impresora_caja-20261123-104502.pdf", "Impresora caja", true, true},
        {"cocina1-2.ep", "cocina1", false, false},
        {"cocina1-1.ep", "cocina1", false, false},
        {"cliente.bin", "cliente", false, false},
    };
    const QList<TicketEnCarpeta> lista = ListarTickets(tmp.path());
    ASSERT_EQ(lista.size(), static_cast<qsizetype>(std::size(esperados)));
    for (size_t i = 0; i < std::size(esperados); ++i) {
        SCOPED_TRACE(esperados[i].archivo);
        const TicketEnCarpeta& t = lista[static_cast<qsizetype>(i)];
        EXPECT_EQ(t.archivo, dir.filePath(QString::fromUtf8(esperados[i].archivo)));
        EXPECT_EQ(t.impresora, QString::fromUtf8(esperados[i].impresora));
        EXPECT_EQ(t.pdf, esperados[i].pdf);
        EXPECT_EQ(t.imagen.isEmpty(), !esperados[i].conImagen);
    }
}

// The window follows the folder and keeps only the newest tickets of a long run.
TEST(ListaTickets, LaVentanaSigueLaCarpetaConUnTope) {
    QTemporaryDir tmp;
    const QDir dir(tmp.path());
    VentanaTickets v(tmp.path());
    EXPECT_EQ(v.mostrados(), 0);
    const QByteArray ticket("\x1b@Hola\n", 7);
    escribir(dir, QStringLiteral("cocina-1.ep"), ticket, 0);
    v.refrescar();
    EXPECT_EQ(v.mostrados(), 1);
    for (int i = 2; i <= 45; ++i) {
        escribir(dir, QStringLiteral("cocina-%1.ep").arg(i), ticket, i);
    }
    v.refrescar();
    EXPECT_EQ(v.mostrados(), 40);
}

// A driver document without its picture gets one, made beside it, and shows it.
TEST(ListaTickets, UnPdfSinImagenLaRecibe) {
    QTemporaryDir tmp;
    const QString pdf = tmp.filePath(QStringLiteral("Impresora_caja-20261123-104502.pdf"));
    {
        QPdfWriter escritor(pdf);
        QPainter p(&escritor);
        p.drawText(100, 100, QStringLiteral("Ticket"));
    }
    VentanaTickets v(tmp.path());
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            return QFileInfo(tmp.filePath(QStringLiteral("Impresora_caja-20261123-104502.png")))
                       .size() > 0;
        },
        20000));
    v.refrescar();
    const QList<TicketEnCarpeta> lista = ListarTickets(tmp.path());
    ASSERT_EQ(lista.size(), 1);
    EXPECT_FALSE(lista[0].imagen.isEmpty());
}
