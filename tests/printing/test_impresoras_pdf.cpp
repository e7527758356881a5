// A driver printer that exists only as PDF files: chosen by its name beside the system's
// printers, one file per document.
#include "common/EscritorioPruebaEP.h"
#include "common/ImpresoraDWGrabadora.h"
#include "printing/ImpresorasDWPdf_ui.h"
#include "printing/RutasImpresion.h"
#include "shell/LineaComandos.h"

#include <QProcess>
#include <QTemporaryDir>

namespace {

QString textoPdf(const QString& ruta) {
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {ruta, QStringLiteral("-")});
    if (!p.waitForFinished(30000) || p.exitCode() != 0) {
        ADD_FAILURE() << "pdftotext: " << ruta.toStdString();
        return {};
    }
    return QString::fromUtf8(p.readAllStandardOutput());
}

struct ImpresorasPdf : EscritorioPrueba {
    QTemporaryDir carpeta;
    ImpresorasDWGrabadoras* sistema = nullptr;
    ImpresorasDWConPdf* impresoras = nullptr;

    ImpresorasPdf() {
        auto s = std::make_unique<ImpresorasDWGrabadoras>(QStringList{"Caja", "Barra"}, 1);
        sistema = s.get();
        auto i = std::make_unique<ImpresorasDWConPdf>(
            std::move(s), QStringList{"Impresora caja", "Terraza"}, carpeta.path() + "/tickets");
        impresoras = i.get();
        m.setImpresorasDW(std::move(i));
    }
};

} // namespace

TEST_F(ImpresorasPdf, SeEligenPorNombreYCadaDocumentoEsUnFichero) {
    EXPECT_EQ(impresoras->Printers(), (QStringList{"Caja", "Barra", "Impresora caja", "Terraza"}));
    // The system's current printer stays the current one until a name is chosen.
    impresoras->Printer().Imprimir(QStringLiteral("en Barra"));
    EXPECT_EQ(sistema->de("Barra").textos(), QStringList{"en Barra"});

    ASSERT_TRUE(HacerActualPorNombre(*impresoras, QStringLiteral("Impresora caja")));
    for (const char* texto : {"primer ticket", "segundo ticket"}) {
        impresoras->Printer().Imprimir(QString::fromLatin1(texto));
        impresoras->Printer().EndDoc();
    }
    const QStringList ficheros = impresoras->ficheros();
    ASSERT_EQ(ficheros.size(), 2);
    EXPECT_TRUE(ficheros[0].contains(QStringLiteral("/tickets/Impresora_caja-")));
    EXPECT_TRUE(ficheros[1].endsWith(QStringLiteral("-2.pdf")));
    EXPECT_TRUE(textoPdf(ficheros[0]).contains(QStringLiteral("primer ticket")));
    EXPECT_TRUE(textoPdf(ficheros[1]).contains(QStringLiteral("segundo ticket")));

    ASSERT_TRUE(HacerActualPorNombre(*impresoras, QStringLiteral("Caja")));
    impresoras->Printer().Imprimir(QStringLiteral("en Caja"));
    EXPECT_EQ(sistema->de("Caja").textos(), QStringList{"en Caja"});
    EXPECT_EQ(impresoras->ficheros().size(), 2);
}

TEST(LineaComandosPdf, VariasImpresorasYSuCarpeta) {
    QTemporaryDir datos;
    const QProcessEnvironment vacio;
    const LineaComandos con =
        LineaComandos::Leer({"desk", "--impresora-pdf=Impresora caja", "--carpeta=" + datos.path(),
                             "--impresora-pdf=Terraza 2",
                             "--impresora-pdf=", "--carpeta-pdf=/tmp/pdfs", "noactualizar"},
                            vacio, datos.path());
    EXPECT_EQ(con.impresorasPdf, (QStringList{"Impresora caja", "Terraza 2"}));
    EXPECT_EQ(con.carpetaPdf, QStringLiteral("/tmp/pdfs"));
    EXPECT_EQ(con.palabras, QStringList{"noactualizar"});

    const LineaComandos sin =
        LineaComandos::Leer({"desk", "--carpeta=" + datos.path()}, vacio, datos.path());
    EXPECT_TRUE(sin.impresorasPdf.isEmpty());
    EXPECT_EQ(sin.carpetaPdf, sin.carpetaDatos);
}
