#pragma once

#include <QString>

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

    virtual double ScaleLeft() const = 0;
    virtual double ScaleTop() const = 0;

    // Prints the text at the pen and moves the pen to the start of the next line; a text with
    // line breaks prints as several lines.
    virtual void Imprimir(const QString& texto) = 0;

    // Ends the document: the page goes to the printer.
    virtual void EndDoc() = 0;
};
