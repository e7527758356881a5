#include "shell/Logotipo_ui.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

QPixmap Logotipo(int ancho, int alto) {
    QPixmap p(ancho, alto);
    p.fill(Qt::transparent);
    QPainter g(&p);
    g.setRenderHint(QPainter::Antialiasing);
    QLinearGradient degradado(0, 0, ancho, alto);
    degradado.setColorAt(0, QColor(0xE8, 0x4A, 0x1B));
    degradado.setColorAt(1, QColor(0xF2, 0x9C, 0x1F));
    QPainterPath marco;
    marco.addRoundedRect(QRectF(1, 1, ancho - 2, alto - 2), alto / 4.0, alto / 4.0);
    g.fillPath(marco, degradado);
    QFont f = g.font();
    f.setBold(true);
    f.setPixelSize(alto / 2);
    g.setFont(f);
    g.setPen(Qt::white);
    g.drawText(QRect(0, 0, ancho, alto), Qt::AlignCenter, QStringLiteral("Tarvimenta"));
    return p;
}
