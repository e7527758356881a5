#pragma once

#include <QString>
#include <QStringList>

// The driver printer as the tickets see it: the current font, a pen position in twips and a
// print method that ends the line the way the driver does. The real one draws on a page; tests
// use a recording one.
class ImpresoraDW {
public:
    virtual ~ImpresoraDW() = default;

    // The pen: the same plain state in every printer, so it lives here.
    QString Font() const { return fuente_; }
    void setFont(const QString& nombre) { fuente_ = nombre; }
    double FontSize() const { return tamanno_; }
    void setFontSize(double puntos) { tamanno_ = puntos; }

    double CurrentX() const { return x_; }
    void setCurrentX(double twips) { x_ = twips; }
    double CurrentY() const { return y_; }
    void setCurrentY(double twips) { y_ = twips; }

    // The coordinate of the page's left and top edges: a negative value moves the origin
    // into the page.
    double ScaleLeft() const { return izquierda_; }
    void setScaleLeft(double twips) { izquierda_ = twips; }
    double ScaleTop() const { return arriba_; }
    void setScaleTop(double twips) { arriba_ = twips; }

    // Prints the text at the pen and moves the pen to the start of the next line; a text with
    // line breaks prints as several lines.
    virtual void Imprimir(const QString& texto) = 0;

    // Ends the document: the page goes to the printer.
    virtual void EndDoc() = 0;
    // Drops the document begun so far (after a failure in the middle of a ticket).
    virtual void KillDoc() = 0;

protected:
    QString fuente_ = QStringLiteral("Arial");
    double tamanno_ = 10;
    double x_ = 0;
    double y_ = 0;
    double izquierda_ = 0;
    double arriba_ = 0;
};

// The system's printers and the one that is current. The window side installs the real one;
// the logic reaches the driver only through this.
class ImpresorasDW {
public:
    virtual ~ImpresorasDW() = default;

    // The device name of each printer, in the system's order.
    virtual QStringList Printers() const = 0;
    // Makes printer `indice` of Printers() the current one.
    virtual void HacerActual(qsizetype indice) = 0;
    // The current printer. Throws ErrorEjecucion when there is none to print on.
    virtual ImpresoraDW& Printer() = 0;
};

// Makes the last printer whose device name is `nombre` the current one. Without a match the
// current printer stays as it was; the result tells whether one matched.
bool HacerActualPorNombre(ImpresorasDW& impresoras, const QString& nombre);
