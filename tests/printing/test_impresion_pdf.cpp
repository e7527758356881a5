// The driver tickets really drawn: through QPrinter into a PDF whose text is read back with
// pdftotext. TARVIMENTA_TICKETS_PDF names a folder where the PDFs are kept for a look.
#include "common/EscritorioPruebaEP.h"
#include "impresora_dw_prueba.h"
#include "printing/ImpresoraDWQt_ui.h"
#include "printing/TicketClienteDW.h"

#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

class ImpresionPdf : public EscritorioPrueba {
protected:
    ImpresionPdf() {
        const QString guardar = qEnvironmentVariable("TARVIMENTA_TICKETS_PDF");
        carpeta = guardar.isEmpty() ? tmp.path() : guardar;
        pedidoDomicilio();
    }

    std::unique_ptr<ImpresoraDWQt> pdf(const QString& nombre) {
        return ImpresoraDWQt::haciaPdf(carpeta + u'/' + nombre, QSizeF(80, 200));
    }

    // The lines of the PDF's text, blank ones left out.
    static QStringList texto(const QString& ruta) {
        QProcess p;
        p.start(QStringLiteral("pdftotext"),
                {QStringLiteral("-layout"), ruta, QStringLiteral("-")});
        if (!p.waitForFinished(30000) || p.exitCode() != 0) {
            ADD_FAILURE() << "pdftotext failed on " << ruta.toStdString() << ": "
                          << p.readAllStandardError().toStdString();
            return {};
        }
        QStringList lineas;
        for (const QString& l : QString::fromUtf8(p.readAllStandardOutput()).split(u'\n')) {
            if (!l.trimmed().isEmpty()) {
                lineas.append(l.trimmed());
            }
        }
        return lineas;
    }

    QTemporaryDir tmp;
    QString carpeta;
};

QString poppler(const QString& programa, const QStringList& argumentos) {
    QProcess p;
    p.start(programa, argumentos);
    EXPECT_TRUE(p.waitForFinished(30000) && p.exitCode() == 0) << programa.toStdString();
    return QString::fromUtf8(p.readAllStandardOutput());
}

TEST_F(ImpresionPdf, ConLaConfiguracionDeSerieLosPreciosAcabanEnLaMismaColumna) {
    // A new printer's face ("Lucida Console") is not on a Linux machine as a rule.
    auto impresora = pdf("fuente-de-serie.pdf");
    ImprimirTicketDW(m, *impresora, impresoraDW("Mostrador"));
    ASSERT_EQ(impresora->ficherosPdf().size(), 1);
    const QString ruta = impresora->ficherosPdf()[0];

    // Every face embedded is a fixed-pitch one (two heading lines, then one per face).
    const QStringList filas = poppler("pdffonts", {ruta}).split(u'\n', Qt::SkipEmptyParts);
    ASSERT_GT(filas.size(), 2);
    for (const QString& fila : filas.mid(2)) {
        EXPECT_TRUE(fila.contains("Mono") || fila.contains("Lucida")) << fila.toStdString();
    }

    // The right edge of each amount that the ticket pads to the line's end.
    const QString cajas = poppler("pdftotext", {"-bbox", ruta, "-"});
    static const QRegularExpression palabra(
        "<word xMin=\"[\\d.]+\" yMin=\"[\\d.]+\" xMax=\"([\\d.]+)\" [^>]*>([^<]*)</word>");
    QMap<QString, double> bordes;
    for (auto it = palabra.globalMatch(cajas); it.hasNext();) {
        const auto m = it.next();
        bordes.insert(m.captured(2), m.captured(1).toDouble());
    }
    for (const QString& importe : {u"9,50€"_qs, u"7,25€"_qs, u"25,75€"_qs}) {
        ASSERT_TRUE(bordes.contains(importe)) << importe.toStdString() << "\n"
                                              << cajas.toStdString();
    }
    // The product prices, at the small size, end at one x.
    EXPECT_NEAR(bordes[u"7,25€"_qs], bordes[u"9,50€"_qs], 0.5);
    // The total is at the large size, whose line holds a whole number of its characters: it
    // ends within half a character (of 14 points) of them.
    EXPECT_NEAR(bordes[u"25,75€"_qs], bordes[u"9,50€"_qs], 0.6 * 14 / 2);
}

TEST_F(ImpresionPdf, UnTicketMasLargoQueLaPaginaSigueEnOtra) {
    auto impresora = ImpresoraDWQt::haciaPdf(carpeta + "/largo.pdf", QSizeF(80, 40));
    impresora->setFont("DejaVu Sans Mono");
    impresora->setFontSize(10);
    QStringList esperadas;
    for (int n = 1; n <= 20; ++n) {
        esperadas.append(QStringLiteral("Linea %1 fin").arg(n));
    }
    // One text with line breaks and then single lines: both kinds move down the page.
    impresora->Imprimir(esperadas.mid(0, 10).join(QStringLiteral("\r\n")));
    for (const QString& l : esperadas.mid(10)) {
        impresora->Imprimir(l);
    }
    impresora->EndDoc();
    ASSERT_EQ(impresora->ficherosPdf().size(), 1);
    const QStringList lineas = texto(impresora->ficherosPdf()[0]);
    EXPECT_EQ(lineas, esperadas) << "every line once, in order, none lost past the foot";

    QProcess info;
    info.start("pdfinfo", {impresora->ficherosPdf()[0]});
    ASSERT_TRUE(info.waitForFinished(30000));
    const QString salida = QString::fromUtf8(info.readAllStandardOutput());
    const auto paginas = QRegularExpression("Pages:\\s+(\\d+)").match(salida).captured(1).toInt();
    // 20 lines of about 4 mm on 40 mm pages.
    EXPECT_GE(paginas, 2);
    EXPECT_LE(paginas, 4);
}

} // namespace
