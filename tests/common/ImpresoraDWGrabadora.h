#pragma once

#include "printing/ImpresoraDW.h"

#include <QList>
#include <QString>
#include <QStringList>

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
        QString fuente;
        int documento = 0; // documents ended before this line
    };

    void Imprimir(const QString& texto) override {
        lineas.append({texto, tamanno_, x_, y_, fuente_, documentos});
        y_ += tamanno_ * 20.0 * static_cast<double>(texto.count(u'\n') + 1);
        x_ = 0;
    }
    void EndDoc() override {
        ++documentos;
        x_ = 0;
        y_ = 0;
    }

    void KillDoc() override {
        ++descartados;
        x_ = 0;
        y_ = 0;
    }

    // The printed texts, each split at its line breaks, in order.
    QStringList textos() const {
        QStringList r;
        for (const Linea& l : lineas) {
            r += l.texto.split(QStringLiteral("\r\n"));
        }
        return r;
    }

    QList<Linea> lineas;
    int documentos = 0;
    int descartados = 0;

private:
};

// A printers collection of named recording printers; the current one starts at `actual`.
class ImpresorasDWGrabadoras : public ImpresorasDW {
public:
    explicit ImpresorasDWGrabadoras(QStringList nombres, qsizetype actual = 0)
        : nombres_(std::move(nombres)), impresoras_(nombres_.size()), actual_(actual) {}

    QStringList Printers() const override { return nombres_; }
    void HacerActual(qsizetype indice) override { actual_ = indice; }
    ImpresoraDW& Printer() override { return impresoras_[actual_]; }

    ImpresoraDWGrabadora& de(const QString& nombre) {
        return impresoras_[nombres_.indexOf(nombre)];
    }
    qsizetype actual() const { return actual_; }

private:
    QStringList nombres_;
    QList<ImpresoraDWGrabadora> impresoras_;
    qsizetype actual_;
};
