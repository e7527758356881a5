#pragma once

#include "printing/ImpresoraDW.h"

#include <QPainter>
#include <QSizeF>
#include <memory>

class QPrinter;

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

    QString Font() const override { return fuente_; }
    void setFont(const QString& nombre) override { fuente_ = nombre; }
    double FontSize() const override { return tamanno_; }
    void setFontSize(double puntos) override { tamanno_ = puntos; }
    double CurrentX() const override { return x_; }
    void setCurrentX(double twips) override { x_ = twips; }
    double CurrentY() const override { return y_; }
    void setCurrentY(double twips) override { y_ = twips; }
    double ScaleLeft() const override { return izquierda_; }
    void setScaleLeft(double twips) override { izquierda_ = twips; }
    double ScaleTop() const override { return arriba_; }
    void setScaleTop(double twips) override { arriba_ = twips; }
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
    QString fuente_ = QStringLiteral("Arial");
    double tamanno_ = 10;
    double x_ = 0;
    double y_ = 0;
    double izquierda_ = 0;
    double arriba_ = 0;
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
