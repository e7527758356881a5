#pragma once

#include "base/ClassConfigImpresora.h"

#include <QStringList>
#include <QVariant>

// The printer record's members reached by their names at run time, for the printer
// settings window that loads and stores a record field by field. Names are the members'
// own ("TipoImpresion", "NumeroCopiasAceptado", ...), compared exactly.
namespace miembros_impresora {

// Every member name, in the record's order.
QStringList Nombres();

// The member's value (QString, qint16 as int, double or bool); an invalid QVariant for an
// unknown name.
QVariant Leer(const ClassConfigImpresora& impresora, const QString& nombre);

// Sets the member from a value of a convertible type (a text "12" for an integer, any
// number for a Boolean). False, and the record untouched, for an unknown name or a value
// that does not convert.
bool Poner(ClassConfigImpresora& impresora, const QString& nombre, const QVariant& valor);

} // namespace miembros_impresora
