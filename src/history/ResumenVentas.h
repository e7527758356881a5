#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <optional>

class ModuloPrincipal;
class ValorJson;

// The sales ticket of a period: the service sums, the desk asks and lays the figures out on
// printer slot 1, raw or through the driver.
namespace resumen {

// Period codes of "opcion".
constexpr qint16 Hoy = 0;
constexpr qint16 Ayer = 1;
constexpr qint16 PorFechas = 2;
constexpr qint16 UltimaSesionHoy = 4;
constexpr qint16 UltimaSesionAyer = 5;

// A range of days for the period by dates.
struct Fechas {
    QDate desde;
    QDate hasta;
};

// "pedidosgprs/obtenerTotales?..."; the dates are added for the period by dates only.
QString RutaObtenerTotales(const ModuloPrincipal& m, qint16 opcion,
                           const std::optional<Fechas>& fechas);

// The period line's text from the two display texts the service sends.
QString TextoPeriodo(qint16 opcion, const QString& inicio, const QString& fin);

// One line of the ticket: the title, a text line, or the printer's separator.
struct Linea {
    enum class Tipo { Titulo, Texto, Separador };
    Tipo tipo = Tipo::Texto;
    QString texto;
};

// Every line of the ticket, title first, from the service's reply (anything that is not an
// object prints with blank texts and zero counts) and the moment of printing.
QList<Linea> LineasResumen(qint16 opcion, const ValorJson& respuesta, const QDateTime& ahora);

// "La fecha desde no puede ser mayor que la fecha hasta"
QString TextoFechasInvertidas();

} // namespace resumen

// Asks for the figures of `opcion` and prints them on slot 1 by its mode. A reversed range
// gives its box and nothing is sent. A raw printer that cannot be opened is a run-time error
// for the caller; a driver failure is reported here.
void ImprimirResumenVentas(ModuloPrincipal& m, qint16 opcion,
                           const std::optional<resumen::Fechas>& fechas = std::nullopt);
