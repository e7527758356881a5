#pragma once

#include <QWidget>
#include <functional>

class ModuloPrincipal;
class QDateEdit;

// The sales summaries: one button per period, and a range of days.
class FormInformes : public QWidget {
    Q_OBJECT
public:
    explicit FormInformes(ModuloPrincipal& m, QWidget* padre = nullptr);

private:
    void imprimir(qint16 opcion);

    ModuloPrincipal& m_;
    QDateEdit* desde_;
    QDateEdit* hasta_;
};
