#include "printing/PrimitivasTicket.h"

#include "base/Conversiones.h"
#include "base/ErrorEjecucion.h"
#include "base/Pedido.h"
#include "printing/ImpresoraDW.h"

#include <limits>

QString Espacios(int n) {
    return n > 0 ? QString(n, u' ') : QString();
}

int ColumnasEP(int columnas, const QString& comandoResaltado, bool grande) {
    if (!grande) {
        return columnas;
    }
    const QStringList piezas = clasico::Split(comandoResaltado, QStringLiteral(","));
    if (piezas.isEmpty()) {
        return columnas;
    }
    const auto x = clasico::EnteroEnIntervalo(piezas.back(), -32768, 32767);
    if (x < 32 || (x >= 64 && x <= 95)) {
        return columnas;
    }
    return columnas / 2;
}

int CaracteresPorLineaDW(const ImpresoraDW& impresora, int anchoPapel, double factorFuente) {
    const double tamanno = impresora.FontSize();
    if (tamanno == 0.0) {
        throw ErrorEjecucion(11); // division by zero
    }
    return static_cast<int>(
        clasico::EnteroEnIntervalo(anchoPapel * factorFuente / tamanno, -32768, 32767));
}

QString PartirLineas(const QString& texto, int w) {
    if (w <= 0) {
        // No character fits: the wrap would never advance.
        throw ErrorEjecucion(ErrorEjecucion::ArgumentoNoValido);
    }
    QString resultado;
    auto anadir = [&](const QString& parte) {
        if (resultado.isEmpty()) {
            resultado = parte;
        } else {
            resultado += QStringLiteral("\r\n") + parte;
        }
    };
    const QStringList parrafos = texto.split(QStringLiteral("\r\n"));
    for (const QString& parrafo : parrafos) {
        const qsizetype largo = parrafo.size();
        qsizetype p = 0; // 0-based
        while (p + 1 < largo) {
            const QString trozo = parrafo.mid(p, w);
            if (p + trozo.size() >= largo || trozo.size() < w) {
                anadir(trozo);
                break;
            }
            const qsizetype blanco = trozo.lastIndexOf(u' ');
            const QString guardar = blanco >= 0 ? trozo.left(blanco + 1) : trozo;
            anadir(guardar);
            p += guardar.size();
        }
    }
    return resultado;
}

QString PartirLineasEP(const QString& texto, int columnas, const QString& comandoResaltado,
                       bool grande) {
    return PartirLineas(texto, ColumnasEP(columnas, comandoResaltado, grande));
}

QString PartirLineasDW(const ImpresoraDW& impresora, const QString& texto, int anchoPapel,
                       double factorFuente) {
    return PartirLineas(texto, CaracteresPorLineaDW(impresora, anchoPapel, factorFuente));
}

void ImprimirLineaDW(ImpresoraDW& impresora, int margen, double tamanno, const QString& texto) {
    const double anterior = impresora.FontSize();
    impresora.setCurrentY(impresora.CurrentY() + margen);
    impresora.setFontSize(tamanno);
    impresora.Imprimir(texto);
    impresora.setFontSize(anterior);
}

QString HoraEntregaEstimada(const Pedido& pedido) {
    const qint64 minutos =
        clasico::EnteroEnIntervalo(pedido.TiempoEstimado, std::numeric_limits<qint32>::min(),
                                   std::numeric_limits<qint32>::max());
    const QDateTime aceptada =
        pedido.HoraAceptacion.isValid() ? pedido.HoraAceptacion : clasico::FechaCero();
    // Clock arithmetic on the wall time, as the classic dates do: no daylight-saving jumps.
    const QDateTime base(aceptada.date(), aceptada.time(), Qt::UTC);
    const QStringList piezas = clasico::TextoFecha(base.addSecs(minutos * 60)).split(u' ');
    if (piezas.size() < 2) {
        return QStringLiteral("0:00");
    }
    const QStringList hm = piezas[1].split(u':');
    return hm.value(0) + u':' + hm.value(1);
}
