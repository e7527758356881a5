#pragma once

#include "printing/ImpresoraDW.h"

#include <QList>
#include <QString>

// A driver printer that draws nothing and records every printed line with the font size and
// pen position it was printed at. A line advances the pen by the font size in twips
// (20 twips a point) per printed line.
class ImpresoraDWGrabadora : public ImpresoraDW {
public:
    struct Linea {
        QString texto;
        double tamanno = 0;
        double x = 0;
        double y = 0;
    };

    QString Font() const override { return fuente_; }
    void setFont(const QString& nombre) override { fuente_ = nombre; }
    double FontSize() const override { return tamanno_; }
    void setFontSize(double puntos) override { tamanno_ = puntos; }
    double CurrentX() const override { return x_; }
    void setCurrentX(double twips) override { x_ = twips; }
    double CurrentY() const override { return y_; }
    void setCurrentY(double twips) override { y_ = twips; }
    double ScaleLeft() const override { return 0; }
    double ScaleTop() const override { return 0; }
    void Imprimir(const QString& texto) override {
        lineas.append({texto, tamanno_, x_, y_});
        y_ += tamanno_ * 20.0 * static_cast<double>(texto.count(u'\n') + 1);
        x_ = 0;
    }
    void EndDoc() override { ++documentos; }

    QList<Linea> lineas;
    int documentos = 0;

private:
    QString fuente_ = QStringLiteral("Lucida Console");
    double tamanno_ = 10;
    double x_ = 0;
    double y_ = 0;
};
