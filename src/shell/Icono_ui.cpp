#include "shell/Icono_ui.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

QImage DibujarIcono(int lado) {
    QImage imagen(lado, lado, QImage::Format_ARGB32_Premultiplied);
    imagen.fill(Qt::transparent);
    QPainter g(&imagen);
    g.setRenderHint(QPainter::Antialiasing);
    const qreal l = lado;

    // The same orange as the main window's logo, in a rounded square.
    QLinearGradient degradado(0, 0, l, l);
    degradado.setColorAt(0, QColor(0xE8, 0x4A, 0x1B));
    degradado.setColorAt(1, QColor(0xF2, 0x9C, 0x1F));
    QPainterPath fondo;
    fondo.addRoundedRect(QRectF(0.03 * l, 0.03 * l, 0.94 * l, 0.94 * l), 0.2 * l, 0.2 * l);
    g.fillPath(fondo, degradado);

    // A ticket with a torn lower edge.
    const qreal x0 = 0.27 * l, x1 = 0.73 * l, y0 = 0.16 * l, y1 = 0.80 * l;
    QPainterPath ticket;
    ticket.moveTo(x0, y0);
    ticket.lineTo(x1, y0);
    ticket.lineTo(x1, y1);
    constexpr int kDientes = 5;
    const qreal paso = (x1 - x0) / kDientes;
    for (int i = 0; i < kDientes; ++i) {
        ticket.lineTo(x1 - (i + 0.5) * paso, y1 - 0.05 * l);
        ticket.lineTo(x1 - (i + 1) * paso, y1);
    }
    ticket.closeSubpath();
    g.fillPath(ticket, Qt::white);

    // Its lines: a wide heading, then the items; below 24 pixels only the heading shows.
    const QColor tinta(0x5A, 0x2A, 0x12);
    g.setPen(Qt::NoPen);
    g.setBrush(tinta);
    const qreal grosor = qMax(1.0, 0.055 * l);
    g.drawRect(QRectF(x0 + 0.06 * l, y0 + 0.08 * l, (x1 - x0) - 0.12 * l, grosor));
    if (lado >= 24) {
        for (int i = 0; i < 3; ++i) {
            const qreal y = y0 + 0.22 * l + i * 0.11 * l;
            const qreal ancho = i == 2 ? 0.18 * l : 0.30 * l;
            g.drawRect(QRectF(x0 + 0.06 * l, y, ancho, grosor * 0.6));
        }
    }
    return imagen;
}

QIcon IconoAplicacion() {
    QIcon icono;
    for (int lado : {16, 24, 32, 48, 64, 128, 256}) {
        icono.addPixmap(QPixmap::fromImage(DibujarIcono(lado)));
    }
    return icono;
}
