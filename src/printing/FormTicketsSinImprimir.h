#pragma once

#include <QWidget>

class ModuloPrincipal;
class QLabel;
class QPushButton;
class QTableWidget;

// The copies that could not be printed: order, printer, time and error of each, with the
// buttons to print the chosen one again, print them all, or drop one from the list.
class FormTicketsSinImprimir : public QWidget {
    Q_OBJECT
public:
    explicit FormTicketsSinImprimir(ModuloPrincipal& m, QWidget* padre = nullptr);

    // The main window's button: "Tickets sin imprimir", with the count when there are any.
    static QString TextoBoton(qsizetype cantidad);
    // Makes `boton` that button: its text follows the list, in red while it holds copies, and
    // it opens the window (made on first use, one for the desk).
    static void PrepararBoton(ModuloPrincipal& m, QPushButton* boton);

private:
    void rellenar();
    int elegido() const;
    void quitarElegido();

    ModuloPrincipal& m_;
    QTableWidget* lista_ = nullptr;
    QLabel* aviso_ = nullptr;
    QPushButton* imprimir_ = nullptr;
    QPushButton* todos_ = nullptr;
    QPushButton* quitar_ = nullptr;
};
