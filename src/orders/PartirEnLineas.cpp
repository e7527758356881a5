#include "orders/PartirEnLineas.h"

#include "base/ErrorEjecucion.h"

QStringList PartirEnLineas(const QString& texto, int ancho) {
    if (ancho < 0) {
        throw ErrorEjecucion(ErrorEjecucion::ArgumentoNoValido);
    }
    QStringList lineas;
    const qsizetype n = texto.size();
    qsizetype p = 1; // 1-based, as the classic Mid counts
    qsizetype c = 0; // the last cut length, kept from round to round
    while (p < n) {
        const QString trozo = texto.mid(p - 1, ancho);
        if (trozo.size() >= ancho && p + trozo.size() != n + 1) {
            for (qsizetype i = trozo.size(); i >= 1; --i) {
                if (trozo[i - 1] == QLatin1Char(' ')) {
                    c = i;
                    break;
                }
            }
            if (c == 0) {
                // No blank and no earlier cut: p would never move.
                throw ErrorEjecucion(7);
            }
            lineas << texto.mid(p - 1, c);
            p += c;
        } else {
            lineas << trozo;
            p = n;
        }
    }
    return lineas;
}
