#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>

class ModuloPrincipal;
struct Pedido;

// The order history as the service gives it: the query from the window's filters, the reply
// read into what the window shows, and the rules of the actions on one past order.
namespace historial {

// The filters as the window holds them: the index of each option group and the two pairs of
// check boxes (at least one of each pair is on).
struct Filtros {
    int periodo = 0; // 0 today, 1 yesterday, 2 by dates, 3 the last orders
    int formaPago = 0;
    int formaEnvio = 0;
    bool aceptados = true;
    bool rechazados = true;
    bool origenTarvimenta = true;
    bool origenWeb = true;
    QDate desde;
    QDate hasta;
};

// "pedidosgprs/obtenerPedidos?..." for the filters, parameters in the service's order.
QString RutaObtenerPedidos(const ModuloPrincipal& m, const Filtros& f);

// What a search shows. Without an object in the reply, nothing: the list keeps its
// "Cargando..." row.
struct Resultado {
    QString numPedidos;
    QString importeTotal; // with "€"
    QString importeBruto; // with "€"
    QStringList filas;    // as they come, empty ones included
    QString mensaje;
};
std::optional<Resultado> LeerResultado(QString respuesta);

inline const QString Cargando = QStringLiteral("Cargando...");

// The order number of a row: its first " - " piece; none for a row of fewer than three.
std::optional<QString> NumeroDeFila(const QString& fila);

// Whether a past order may be cancelled here, by its state, the configuration's rule and its
// payment.
bool CancelacionPermitida(const Pedido& p, qint16 rechazarAceptado);

// The slot of a customer-ticket reprint: slot 1 when it has a printer, kitchen or not, else
// the first later one with a printer that isn't a kitchen's; 0 when there is none.
int RanuraReimpresion(const ModuloPrincipal& m);

// One copy of PedidoActual on the reprint slot, or the box that asks for a ticket printer.
// Returns the slot used, 0 for none.
int ReimprimirTicket(ModuloPrincipal& m);
// The kitchen tickets only, or everything the printers give for the order's state.
void ReimprimirSegunEstado(ModuloPrincipal& m, bool soloCocina);

// "Debe seleccionar un pedido"
QString TextoSinSeleccion();
// "Debe seleccionar una impresora de tickets en configuración de impresoras"
QString TextoSinImpresoraTickets();

} // namespace historial
