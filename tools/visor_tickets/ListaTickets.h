#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

// One ticket kept in a printers' folder: a raw ticket (its bytes) or a driver document (a
// PDF, shown through the picture made beside it).
struct TicketEnCarpeta {
    QString impresora; // as the file names it, "_" read as blanks
    QString archivo;
    QString imagen; // a PDF's picture (same name, .png); empty for raw tickets or until made
    bool pdf = false;
    QDateTime cuando;
};

// The tickets of `carpeta`, newest first: each raw ticket kept as PRINTER-N.ep, each driver
// document PRINTER-date-time[-k].pdf, and the raw PRINTER.bin of a printer that has no kept
// copies (a folder written by the stand-in service alone).
QList<TicketEnCarpeta> ListarTickets(const QString& carpeta);
