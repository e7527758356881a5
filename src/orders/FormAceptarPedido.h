#pragma once

#include <QList>
#include <QWidget>

class QLabel;
class QPushButton;

// The minutes window of an order for now: how long it will take. The handlers live with the
// answer flow; this window only holds the buttons and the guard against a second click.
class FormAceptarPedido : public QWidget {
    Q_OBJECT
public:
    explicit FormAceptarPedido(QWidget* padre = nullptr);

    // Index 16, "No especificar", is shown only when the service allows it.
    void MostrarSinTiempo(bool mostrar);
    QPushButton* AceptarMinutos(int indice) const { return minutos_.at(indice); }

    // True while an answer is on its way: queued clicks during the send are dropped.
    bool Respondiendo = false;

Q_SIGNALS:
    void minutosPulsado(int indice);
    void atrasPulsado();

private:
    QList<QPushButton*> minutos_;
};

// The window of a scheduled order: it only asks for a yes.
class FormAceptarPedidoProg : public QWidget {
    Q_OBJECT
public:
    explicit FormAceptarPedidoProg(QWidget* padre = nullptr);

    QLabel* LabelParaProg() const { return labelParaProg_; }
    bool Respondiendo = false;

Q_SIGNALS:
    void aceptarPulsado();
    void atrasPulsado();

private:
    QLabel* labelParaProg_;
};
