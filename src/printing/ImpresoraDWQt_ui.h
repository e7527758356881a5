#pragma once

#include "printing/ImpresoraDW.h"

#include <QPainter>
#include <QSizeF>
#include <memory>

class QFont;
class QPrinter;

// The face a driver ticket is drawn in. Tickets line up prices and totals with blanks, so the
// face must give every character the same width: when the configured one is missing (the
// default "Lucida Console" on a machine without it) or proportional, the desk's monospace
// face stands in for it.
QFont FuenteTicketDW(const QString& familia, double puntos);

// A driver printer over QPrinter: a system printer (the print system's queue) or a PDF file.
// Positions are in twips from the printable area's corner, moved by ScaleLeft/ScaleTop. The
// document starts with the first printed line and goes out at EndDoc; a text that passes the
// foot of the page continues on a new one.
class ImpresoraDWQt : public ImpresoraDW {
public:
    explicit ImpresoraDWQt(const QString& nombreSistema);
    // Each document becomes a PDF file: `ruta` for the first, then "-2", "-3"... before the
    // extension. `papelMm` is the page size in millimetres.
    static std::unique_ptr<ImpresoraDWQt> haciaPdf(const QString& ruta, QSizeF papelMm);
    ~ImpresoraDWQt() override;

    void Imprimir(const QString& texto) override;
    void EndDoc() override;
    void KillDoc() override;

    // The files written so far in PDF mode.
    const QStringList& ficherosPdf() const { return pdfs_; }

private:
    ImpresoraDWQt();
    void empezar();
    double aPixeles(double twips) const;

    std::unique_ptr<QPrinter> printer_;
    QPainter painter_;
    QString rutaPdf_;
    QStringList pdfs_;
};

// The system's printers (QPrinterInfo) with the default one current at the start.
class ImpresorasDWQt : public ImpresorasDW {
public:
    ImpresorasDWQt();
    ~ImpresorasDWQt() override;

    QStringList Printers() const override;
    void HacerActual(qsizetype indice) override;
    ImpresoraDW& Printer() override;

private:
    std::unique_ptr<ImpresoraDWQt> actual_;
};
