#pragma once

#include "printing/ImpresoraDW.h"

#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

class ImpresoraDWQt;

// The system's driver printers followed by printers that exist only as PDF files: a document
// printed on one of those becomes a PDF in `carpeta`, named after the printer and the time of
// its first document, then "-2", "-3"... A desk without a real driver printer (the demo, a
// fresh machine) prints through the same code as one with it.
class ImpresorasDWConPdf : public ImpresorasDW {
public:
    ImpresorasDWConPdf(std::unique_ptr<ImpresorasDW> sistema, QStringList nombresPdf,
                       QString carpeta);
    ~ImpresorasDWConPdf() override;

    QStringList Printers() const override;
    void HacerActual(qsizetype indice) override;
    ImpresoraDW& Printer() override;

    // Every PDF written so far, in order.
    QStringList ficheros() const;

private:
    std::unique_ptr<ImpresorasDW> sistema_;
    QStringList nombres_;
    QString carpeta_;
    // Made on first use and kept, so that the numbering of a printer's files goes on.
    std::vector<std::unique_ptr<ImpresoraDWQt>> pdf_;
    qsizetype actual_ = -1; // a PDF printer, or -1 for the system's current one
};
