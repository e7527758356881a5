#pragma once

#include <QString>
#include <array>

class ModuloPrincipal;

// Closing the establishment for a while and opening it again: the requests and what the
// open/closed display shows after them.
namespace cierre {

struct Tiempo {
    QString texto;
    QString minutos; // empty when unused
    QString dias;    // empty when unused
};
// The ten closing buttons, by index.
const std::array<Tiempo, 10>& Tiempos();

QString RutaCerrar(const ModuloPrincipal& m, int indice);
QString RutaAbrir(const ModuloPrincipal& m);

// The service's reply with every double quotation mark removed.
QString SinComillas(QString respuesta);

// What the display does after a reopening reply.
struct TrasAbrir {
    QString texto;
    bool cambiaBotones = false; // false: only the text changes
    unsigned colorFondo = 0;
};
TrasAbrir LeerApertura(const QString& respuesta);

inline const QString HayPendiente = QStringLiteral(
    "Hay un pedido o mensaje sin responder, por favor, atienda el pedido/mensaje y luego "
    "cierre el programa si lo desea.");

} // namespace cierre
