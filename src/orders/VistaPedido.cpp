#include "orders/VistaPedido.h"

#include "base/Conversiones.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "orders/PartirEnLineas.h"

#include <cmath>
#include <limits>

namespace vista {

namespace {

// The classic RGB(): above 255 counts as 255, below 0 is refused.
unsigned Rgb(int rojo, int verde, int azul) {
    auto canal = [](int v) {
        if (v < 0) {
            throw ErrorEjecucion(ErrorEjecucion::ArgumentoNoValido);
        }
        return static_cast<unsigned>(std::min(v, 255));
    };
    return canal(rojo) | (canal(verde) << 8) | (canal(azul) << 16);
}

// Nearest whole number of a double, halves to the even one (the classic CInt).
int EnteroCercano(double v) {
    const double r = std::nearbyint(v); // default rounding mode: to nearest, ties to even
    if (r > std::numeric_limits<qint16>::max() || r < std::numeric_limits<qint16>::min()) {
        throw ErrorEjecucion(ErrorEjecucion::Desbordamiento);
    }
    return static_cast<int>(r);
}

void anadirCortado(QList<Fila>& filas, const QString& texto, int ancho, const QString& cantidad,
                   const QString& precio) {
    const QStringList lineas = PartirEnLineas(texto, ancho);
    if (lineas.isEmpty()) {
        throw ErrorEjecucion(ErrorEjecucion::SubindiceFueraDeIntervalo);
    }
    for (qsizetype i = 0; i < lineas.size(); ++i) {
        filas.append(i == 0 ? Fila{cantidad, lineas[i], precio} : Fila{{}, lineas[i], {}});
    }
}

} // namespace

int AnchoLinea(qint16 tamannoFuente) {
    if (tamannoFuente == 0) {
        throw ErrorEjecucion(11);
    }
    return EnteroCercano(720.0 / tamannoFuente);
}

QList<Fila> FilasProductos(const Pedido& p, int ancho) {
    QList<Fila> filas;
    for (const ProductoPedido& pp : p.Productos) {
        const QStringList piezas = clasico::Split(pp.Nombre, QStringLiteral(" - "));
        // An empty name splits into nothing: its first piece is missing.
        if (piezas.isEmpty()) {
            throw ErrorEjecucion(ErrorEjecucion::SubindiceFueraDeIntervalo);
        }
        anadirCortado(filas, piezas[0], ancho, QString::number(pp.Cantidad), pp.Precio);
        for (qsizetype i = 1; i < piezas.size(); ++i) {
            anadirCortado(filas, piezas[i], ancho, {}, {});
        }
    }
    filas.append(Fila{{}, FinProductos, {}});
    return filas;
}

bool ComisionVisible(const QString& comision) {
    if (!clasico::IsNumeric(comision)) {
        return false;
    }
    // Read as the classic double reads it: a huge figure is still a figure above 0.
    const auto valor = clasico::Valor(QString(comision).remove(QStringLiteral("€")));
    return valor && *valor > 0.0;
}

bool PromocionVisible(const ModuloPrincipal& m) {
    return !m.PedidoActual.CodigoPromocion.isEmpty() && (m.MostrarCpr || m.MostrarQuienA);
}

QString TextoPromocion(const ModuloPrincipal& m) {
    QString texto;
    if (m.PedidoActual.CodigoPromocion.isEmpty()) {
        return texto;
    }
    if (m.MostrarCpr) {
        texto = m.PedidoActual.CodigoPromocion;
    }
    if (m.MostrarQuienA) {
        // Unlike the summary this reads the number: no wire value means 0.
        switch (m.PedidoActual.QuienAsume) {
        case 0:
            texto += QStringLiteral(" (Asume Tarvimenta)");
            break;
        case 1:
            texto += QStringLiteral(" (Asume Establecimiento)");
            break;
        case 2:
            texto += QStringLiteral(" (Asume Establecimiento y Tarvimenta)");
            break;
        default:
            break;
        }
    }
    return texto;
}

bool ParaEsAhora(const Pedido& p) {
    return QString(p.Para).remove(QStringLiteral("Para: ")) == QLatin1String("Ahora");
}

QString TextoPara(const Pedido& p) {
    const QString hora = QString(p.Para).remove(QStringLiteral("Para: "));
    if (hora == QLatin1String("Ahora")) {
        return hora;
    }
    return hora + QLatin1Char(' ') + p.ParaDia.toLower();
}

QString TextoTiempoEstimado(const QString& tiempo) {
    if (tiempo == QLatin1String("null") || clasico::CDec(tiempo).esCero()) {
        return QStringLiteral("No especificado");
    }
    return tiempo + QStringLiteral(" Minutos");
}

unsigned ColorParpadeo(qint16 intensidad) {
    const int producto = intensidad * 125;
    if (producto > std::numeric_limits<qint16>::max() ||
        producto < std::numeric_limits<qint16>::min()) {
        throw ErrorEjecucion(ErrorEjecucion::Desbordamiento);
    }
    const int verde = EnteroCercano(producto / 255.0) + 130;
    return Rgb(255, verde, intensidad);
}

} // namespace vista
