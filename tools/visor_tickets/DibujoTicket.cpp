#include "DibujoTicket.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QPen>

namespace {

constexpr int kMargen = 24;

QFont fuente(bool negrita) {
    QFont f(QStringLiteral("DejaVu Sans Mono"));
    f.setStyleHint(QFont::Monospace);
    f.setPixelSize(20);
    f.setBold(negrita);
    return f;
}

bool filaAlta(const QList<Tramo>& fila) {
    for (const Tramo& t : fila) {
        if (t.dobleAlto) {
            return true;
        }
    }
    return false;
}

} // namespace

QImage DibujarTicket(const TicketLeido& ticket, int columnas) {
    const QFontMetrics fm(fuente(false));
    const int celdaAncho = fm.horizontalAdvance(u'M');
    const int celdaAlto = fm.height() + 2;

    int alto = 2 * kMargen;
    for (const LineaTicket& l : ticket.lineas) {
        if (l.corte) {
            alto += celdaAlto * 2;
            continue;
        }
        for (const auto& fila : FilasDeLinea(l, columnas)) {
            alto += celdaAlto * (filaAlta(fila) ? 2 : 1);
        }
    }
    const int ancho = columnas * celdaAncho + 2 * kMargen;
    QImage imagen(ancho, std::max(alto, 2 * kMargen + celdaAlto), QImage::Format_RGB32);
    imagen.fill(Qt::white);

    QPainter p(&imagen);
    p.setRenderHint(QPainter::TextAntialiasing);
    p.setPen(Qt::black);
    int y = kMargen;
    for (const LineaTicket& l : ticket.lineas) {
        if (l.corte) {
            const int yc = y + celdaAlto;
            QPen discontinua(Qt::darkGray, 2, Qt::DashLine);
            p.setPen(discontinua);
            p.drawLine(0, yc, ancho, yc);
            p.setPen(Qt::black);
            p.setFont(fuente(false));
            p.fillRect(QRect(kMargen, yc - celdaAlto / 2, celdaAncho * 8, celdaAlto), Qt::white);
            p.drawText(QRect(kMargen, yc - celdaAlto / 2, celdaAncho * 8, celdaAlto),
                       Qt::AlignCenter, QString::fromUtf16(u"\u2702 corte"));
            y += celdaAlto * 2;
            continue;
        }
        for (const auto& fila : FilasDeLinea(l, columnas)) {
            const int filas = filaAlta(fila) ? 2 : 1;
            const int base = y + celdaAlto * filas - fm.descent() * filas - 1;
            int x = kMargen;
            for (const Tramo& t : fila) {
                p.save();
                p.setFont(fuente(t.negrita));
                p.translate(x, base);
                p.scale(t.dobleAncho ? 2.0 : 1.0, t.dobleAlto ? 2.0 : 1.0);
                for (int k = 0; k < t.texto.size(); ++k) {
                    p.drawText(QPointF(k * celdaAncho, 0), QString(t.texto[k]));
                }
                p.restore();
                x += static_cast<int>(t.texto.size()) * celdaAncho * (t.dobleAncho ? 2 : 1);
            }
            y += celdaAlto * filas;
        }
    }
    return imagen;
}

QString TextoTicket(const TicketLeido& ticket, int columnas) {
    QString r;
    const QString borde = u'+' + QString(columnas, u'-') + QStringLiteral("+\n");
    r += borde;
    for (const LineaTicket& l : ticket.lineas) {
        if (l.corte) {
            r += QString::fromUtf16(u"\u2702") + QString(columnas + 1, u'-') + u'\n';
            continue;
        }
        for (const auto& fila : FilasDeLinea(l, columnas)) {
            QString texto;
            for (const Tramo& t : fila) {
                for (const QChar c : t.texto) {
                    texto += c;
                    if (t.dobleAncho) {
                        texto += u' ';
                    }
                }
            }
            r += u'|' + texto.leftJustified(columnas, u' ') + QStringLiteral("|\n");
            if (filaAlta(fila)) {
                r += u'|' + QString(columnas, u' ') + QStringLiteral("|\n");
            }
        }
    }
    r += borde;
    return r;
}
