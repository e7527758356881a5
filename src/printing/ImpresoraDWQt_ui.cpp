#include "printing/ImpresoraDWQt_ui.h"

#include "base/ErrorEjecucion.h"
#include "platform/ColasSistema.h"

#include <QFileInfo>
#include <QFont>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPrinter>
#include <QPrinterInfo>

namespace {
constexpr double TwipsPorPulgada = 1440.0;
constexpr int ErrorImpresora = 482;
// Installed with the desk (fonts-dejavu-core); the style hint finds another one without it.
const QString kFuenteMonoespaciada = QStringLiteral("DejaVu Sans Mono");
} // namespace

QFont FuenteTicketDW(const QString& familia, double puntos) {
    QFont fuente(familia);
    fuente.setPointSizeF(puntos > 0 ? puntos : 1.0);
    const QFontInfo hallada(fuente);
    if (hallada.family().compare(familia, Qt::CaseInsensitive) == 0 && hallada.fixedPitch()) {
        return fuente;
    }
    QFont mono(kFuenteMonoespaciada);
    mono.setStyleHint(QFont::Monospace);
    mono.setFixedPitch(true);
    mono.setPointSizeF(fuente.pointSizeF());
    return mono;
}

ImpresoraDWQt::ImpresoraDWQt() : printer_(std::make_unique<QPrinter>(QPrinter::HighResolution)) {}

ImpresoraDWQt::ImpresoraDWQt(const QString& nombreSistema) : ImpresoraDWQt() {
    printer_->setPrinterName(nombreSistema);
}

std::unique_ptr<ImpresoraDWQt> ImpresoraDWQt::haciaPdf(const QString& ruta, QSizeF papelMm) {
    std::unique_ptr<ImpresoraDWQt> i(new ImpresoraDWQt());
    i->printer_->setOutputFormat(QPrinter::PdfFormat);
    i->printer_->setPageSize(QPageSize(papelMm, QPageSize::Millimeter));
    i->printer_->setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
    i->rutaPdf_ = ruta;
    return i;
}

ImpresoraDWQt::~ImpresoraDWQt() {
    if (painter_.isActive()) {
        painter_.end();
    }
}

double ImpresoraDWQt::aPixeles(double twips) const {
    return twips * printer_->resolution() / TwipsPorPulgada;
}

void ImpresoraDWQt::empezar() {
    if (painter_.isActive()) {
        return;
    }
    if (!rutaPdf_.isEmpty()) {
        QString ruta = rutaPdf_;
        if (!pdfs_.isEmpty()) {
            const QFileInfo info(rutaPdf_);
            ruta = info.path() + u'/' + info.completeBaseName() + u'-' +
                   QString::number(pdfs_.size() + 1) + u'.' + info.suffix();
        }
        printer_->setOutputFileName(ruta);
        pdfs_.append(ruta);
    } else if (const EstadoCola estado = EstadoColaSistema(printer_->printerName());
               estado != EstadoCola::Lista) {
        // A stopped queue takes the job and keeps it; one that is gone or refuses loses it.
        // Either way the ticket would not come out, and the staff must know now.
        throw ErrorEjecucion(ErrorImpresora, TextoEstadoCola(printer_->printerName(), estado));
    }
    if (!painter_.begin(printer_.get())) {
        throw ErrorEjecucion(ErrorImpresora, QStringLiteral("Error de impresora"));
    }
}

void ImpresoraDWQt::Imprimir(const QString& texto) {
    empezar();
    const QFont fuente = FuenteTicketDW(fuente_, tamanno_);
    painter_.setFont(fuente);
    painter_.setPen(Qt::black);
    const QFontMetricsF metricas(fuente, printer_.get());
    const double altoTwips = metricas.height() * TwipsPorPulgada / printer_->resolution();
    const double altoPagina = printer_->pageRect(QPrinter::DevicePixel).height();
    const QStringList lineas = texto.split(QStringLiteral("\r\n"));
    for (const QString& linea : lineas) {
        if (aPixeles(y_ - arriba_ + altoTwips) > altoPagina && y_ - arriba_ > 0) {
            printer_->newPage();
            y_ = arriba_ < 0 ? 0 : arriba_;
        }
        const QPointF punto(aPixeles(x_ - izquierda_), aPixeles(y_ - arriba_) + metricas.ascent());
        painter_.drawText(punto, linea);
        y_ += altoTwips;
        x_ = 0;
    }
}

void ImpresoraDWQt::EndDoc() {
    if (painter_.isActive()) {
        painter_.end();
    }
    x_ = 0;
    y_ = 0;
}

void ImpresoraDWQt::KillDoc() {
    if (painter_.isActive()) {
        printer_->abort();
        painter_.end();
    }
    x_ = 0;
    y_ = 0;
}

ImpresorasDWQt::ImpresorasDWQt() {
    const QString porDefecto = QPrinterInfo::defaultPrinterName();
    if (!porDefecto.isEmpty()) {
        actual_ = std::make_unique<ImpresoraDWQt>(porDefecto);
    }
}

ImpresorasDWQt::~ImpresorasDWQt() = default;

QStringList ImpresorasDWQt::Printers() const {
    return QPrinterInfo::availablePrinterNames();
}

void ImpresorasDWQt::HacerActual(qsizetype indice) {
    const QStringList nombres = Printers();
    if (indice >= 0 && indice < nombres.size()) {
        actual_ = std::make_unique<ImpresoraDWQt>(nombres[indice]);
    }
}

ImpresoraDW& ImpresorasDWQt::Printer() {
    if (!actual_) {
        throw ErrorEjecucion(ErrorImpresora, QStringLiteral("Error de impresora"));
    }
    return *actual_;
}
