#pragma once

#include "ListaTickets.h"

#include <QHash>
#include <QImage>
#include <QSet>
#include <QWidget>

class QFileSystemWatcher;
class QLabel;
class QTimer;
class QVBoxLayout;

// A small window beside the desk that shows every ticket of a printers' folder as it
// prints, newest first: raw tickets drawn as paper, driver documents through their pictures.
class VentanaTickets : public QWidget {
    Q_OBJECT
public:
    explicit VentanaTickets(const QString& carpeta, QWidget* padre = nullptr);

    // Reads the folder again; the window changes only when the tickets did.
    void refrescar();
    qsizetype mostrados() const { return mostrados_.size(); }

private:
    QImage imagenDe(const TicketEnCarpeta& t);
    void dibujarPdf(const QString& archivo);

    QString carpeta_;
    QLabel* estado_;
    QVBoxLayout* lista_;
    QFileSystemWatcher* vigia_;
    QTimer* espera_;
    QList<std::pair<QString, QDateTime>> mostrados_;
    QHash<QString, std::pair<QDateTime, QImage>> dibujos_; // by file, redrawn when it changes
    QSet<QString> pdfPedidos_;                             // PDFs whose picture was asked for
};
