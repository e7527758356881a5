#pragma once

#include <QWidget>

class Actualizador;
class QLabel;
class QProgressBar;

// The updater's window: one line of text and a bar fed by the bytes received. Always on
// top, so that the staff see why the desk is away.
class FormActualizaTV : public QWidget {
    Q_OBJECT
public:
    static inline const QString Titulo = QStringLiteral("Actualización TarvimentaPedidos");

    explicit FormActualizaTV(Actualizador& actualizador, QWidget* padre = nullptr);

    // The bar counts bytes; past what its integer holds, it counts kilobytes.
    void mostrarProgreso(qint64 recibidos, qint64 total);

private:
    QLabel* label1_;
    QProgressBar* progressBar1_;
};
