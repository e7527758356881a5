#pragma once

#include <QWidget>

class QPushButton;

// The small window that closes the establishment for a while: ten closing times and a way
// back that does nothing.
class FormCerrarEstablec : public QWidget {
    Q_OBJECT
public:
    explicit FormCerrarEstablec(QWidget* padre = nullptr);

    QPushButton* TiempoCerrar(int indice) const;

Q_SIGNALS:
    void tiempoPulsado(int indice);
};
