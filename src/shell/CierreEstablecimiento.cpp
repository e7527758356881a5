#include "shell/CierreEstablecimiento.h"

#include "base/ModuloPrincipal.h"
#include "orders/Sondeo.h"

namespace cierre {

const std::array<Tiempo, 10>& Tiempos() {
    static const std::array<Tiempo, 10> t = {{
        {QStringLiteral("Cerrar 15 minutos"), QStringLiteral("15"), {}},
        {QStringLiteral("Cerrar 30 minutos"), QStringLiteral("30"), {}},
        {QStringLiteral("Cerrar 45 minutos"), QStringLiteral("45"), {}},
        {QStringLiteral("Cerrar 1 hora"), QStringLiteral("60"), {}},
        {QStringLiteral("Cerrar 1 hora y 30 minutos"), QStringLiteral("90"), {}},
        {QStringLiteral("Cerrar 2 horas"), QStringLiteral("120"), {}},
        {QStringLiteral("Cerrar 3 horas"), QStringLiteral("180"), {}},
        {QStringLiteral("Cerrar 4 horas"), QStringLiteral("240"), {}},
        {QStringLiteral("Cerrar 5 horas"), QStringLiteral("300"), {}},
        {QStringLiteral("Cerrar resto del día"), {}, QStringLiteral("1")},
    }};
    return t;
}

namespace {
QString Base(const ModuloPrincipal& m) {
    return QStringLiteral("establecimiento/cerrarAbrirEstablecHasta?id=") +
           QString::number(m.RestId);
}
} // namespace

QString RutaCerrar(const ModuloPrincipal& m, int indice) {
    const Tiempo& t = Tiempos().at(static_cast<size_t>(indice));
    return Base(m) + QStringLiteral("&accion=C&minutos=") + t.minutos + QStringLiteral("&dias=") +
           t.dias;
}

QString RutaAbrir(const ModuloPrincipal& m) {
    return Base(m) + QStringLiteral("&accion=A");
}

QString SinComillas(QString respuesta) {
    return respuesta.remove(QLatin1Char('"'));
}

TrasAbrir LeerApertura(const QString& respuesta) {
    TrasAbrir a{SinComillas(respuesta)};
    if (a.texto == QLatin1String("Abierto")) {
        a.cambiaBotones = true;
        a.colorFondo = colores::Verde;
    } else if (a.texto == QLatin1String("Cerrado")) {
        a.cambiaBotones = true;
        a.colorFondo = colores::Rojo;
    }
    return a;
}

} // namespace cierre
