#pragma once

#include <QString>
#include <QStringList>

// The driver printer as the tickets see it: the current font, a pen position in twips and a
// print method that ends the line the way the driver does. The real one draws on a page; tests
// use a recording one.
class ImpresoraDW {
public:
    virtual ~ImpresoraDW() = default;

    virtual QString Font() const = 0;
    virtual void setFont(const QString& nombre) = 0;
    virtual double FontSize() const = 0;
    virtual void setFontSize(double puntos) = 0;

    virtual double CurrentX() const = 0;
    virtual void setCurrentX(double twips) = 0;
    virtual double CurrentY() const = 0;
    virtual void setCurrentY(double twips) = 0;

    // The coordinate of the page's left and top edges: a negative value moves the origin
    // into the page.
    virtual double ScaleLeft() const = 0;
    virtual void setScaleLeft(double twips) = 0;
    virtual double ScaleTop() const = 0;
    virtual void setScaleTop(double twips) = 0;

    // Prints the text at the pen and moves the pen to the start of the next line; a text with
    // line breaks prints as several lines.
    virtual void Imprimir(const QString& texto) = 0;

    // Ends the document: the page goes to the printer.
    virtual void EndDoc() = 0;
    // Drops the document begun so far (after a failure in the middle of a ticket).
    virtual void KillDoc() = 0;
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
