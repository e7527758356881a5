#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <optional>

// The few classic conversions the ticket code needs (Spanish regional rules), kept here
// until the shared set of the server folder is in; same names and behaviour.
namespace conv_ep {

// The classic numeric test: blanks, a sign, thousands dots, a decimal comma, an exponent and
// a leading or trailing "€" are allowed.
bool EsNumerico(const QString& texto);

// The value of a text that passes EsNumerico; nothing otherwise.
std::optional<double> Valor(const QString& texto);

// Integer conversion with round-half-to-even: error 13 for a text that isn't a number,
// error 6 outside [minimo, maximo].
qint64 AEntero(const QString& texto, qint64 minimo, qint64 maximo);
qint64 AEntero(double valor, qint64 minimo, qint64 maximo);

// The classic split: an empty text gives no element; "a," gives "a" and "".
QStringList Partir(const QString& texto, const QString& separador, int limite = -1);

// Upper case of the letters a ticket can carry; characters without a single-byte capital
// stay as they are.
QString Mayusculas(const QString& texto);

// Default text of a moment: "dd/MM/yyyy H:mm:ss", the date alone at midnight.
QString TextoFechaHora(const QDateTime& momento);

// The zero moment of the classic dates, stand-in for an unset date.
QDateTime FechaCero();

} // namespace conv_ep
