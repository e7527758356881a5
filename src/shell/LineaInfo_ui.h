#pragma once

#include <QMap>
#include <QObject>
#include <QString>

class QLabel;

// LabelInfo says two kinds of things: the passing text of the last step (a failed reading,
// a melody file not found), which the next step replaces or clears, and lasting warnings
// (the alarm cannot be heard, a local file could not be written), which stay below it in
// red until their cause is gone.
class LineaInfo : public QObject {
    Q_OBJECT
public:
    explicit LineaInfo(QLabel* etiqueta);

    void setTexto(const QString& texto);
    // An empty text takes the warning of that kind away.
    void setAviso(const QString& clase, const QString& texto);

private:
    void pintar();

    QLabel* etiqueta_;
    QString texto_;
    QMap<QString, QString> avisos_;
};
