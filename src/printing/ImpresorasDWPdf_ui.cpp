#include "printing/ImpresorasDWPdf_ui.h"

#include "printing/ImpresoraDWQt_ui.h"

#include <QDateTime>
#include <QDir>
#include <QRegularExpression>

namespace {
// Receipt paper: 80 mm wide; a longer ticket goes on over more pages.
const QSizeF kPapelMm(80, 297);
} // namespace

ImpresorasDWConPdf::ImpresorasDWConPdf(std::unique_ptr<ImpresorasDW> sistema,
                                       QStringList nombresPdf, QString carpeta)
    : sistema_(std::move(sistema)), nombres_(std::move(nombresPdf)), carpeta_(std::move(carpeta)),
      pdf_(static_cast<size_t>(nombres_.size())) {}

ImpresorasDWConPdf::~ImpresorasDWConPdf() = default;

QStringList ImpresorasDWConPdf::Printers() const {
    return sistema_->Printers() + nombres_;
}

void ImpresorasDWConPdf::HacerActual(qsizetype indice) {
    const qsizetype delSistema = sistema_->Printers().size();
    if (indice < delSistema) {
        sistema_->HacerActual(indice);
        actual_ = -1;
    } else if (indice - delSistema < nombres_.size()) {
        actual_ = indice - delSistema;
    }
}

ImpresoraDW& ImpresorasDWConPdf::Printer() {
    if (actual_ < 0) {
        return sistema_->Printer();
    }
    auto& impresora = pdf_[static_cast<size_t>(actual_)];
    if (!impresora) {
        QDir().mkpath(carpeta_);
        QString nombre = nombres_[actual_];
        nombre.replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9._-]+")), QStringLiteral("_"));
        const QString marca =
            QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
        impresora = ImpresoraDWQt::haciaPdf(
            QDir(carpeta_).filePath(nombre + u'-' + marca + QStringLiteral(".pdf")), kPapelMm);
    }
    return *impresora;
}

QStringList ImpresorasDWConPdf::ficheros() const {
    QStringList r;
    for (const auto& i : pdf_) {
        if (i) {
            r += i->ficherosPdf();
        }
    }
    return r;
}
