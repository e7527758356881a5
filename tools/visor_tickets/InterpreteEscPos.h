#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// A raw ticket read back: lines of runs of text with their print size, and the cuts.
struct Tramo {
    QString texto;
    bool dobleAncho = false;
    bool dobleAlto = false;
    bool negrita = false;
};

struct LineaTicket {
    QList<Tramo> tramos;
    bool corte = false; // the paper is cut here; the line has no text
};

struct TicketLeido {
    QList<LineaTicket> lineas;
    QStringList avisos; // commands that were skipped without being understood
};

// Reads initialise, code page, emphasis and size (ESC ! and GS !, ESC E), line feeds, ESC d,
// the cut (GS V) and plain text in the code page selected (PaginasCodigos.h; PC858 until
// one is). A carriage return is dropped.
TicketLeido InterpretarEscPos(const QByteArray& bytes);

// The physical rows of a line on paper `columnas` wide: a double-width character takes two.
QList<QList<Tramo>> FilasDeLinea(const LineaTicket& linea, int columnas);
