#include "shell/LineaInfo_ui.h"

#include "platform/Controles_ui.h"

#include <QLabel>

LineaInfo::LineaInfo(QLabel* etiqueta) : QObject(etiqueta), etiqueta_(etiqueta) {}

void LineaInfo::setTexto(const QString& texto) {
    texto_ = texto;
    pintar();
}

void LineaInfo::setAviso(const QString& clase, const QString& texto) {
    if (texto.isEmpty()) {
        avisos_.remove(clase);
    } else {
        avisos_.insert(clase, texto);
    }
    pintar();
}

void LineaInfo::pintar() {
    QStringList lineas;
    if (!texto_.isEmpty()) {
        lineas << texto_;
    }
    lineas << avisos_.values();
    etiqueta_->setText(lineas.join(QLatin1Char('\n')));
    QFont f = etiqueta_->font();
    f.setBold(!avisos_.isEmpty());
    etiqueta_->setFont(f);
    PonerColorTexto(etiqueta_, avisos_.isEmpty() ? QColor(Qt::darkRed) : QColor(Qt::red));
}
