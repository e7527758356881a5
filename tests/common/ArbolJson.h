#pragma once

#include "server/ValorJson.h"

#include <QString>

// The whole of a JSON tree as one text, kinds, keys in order, decimals with their scale
// and sign, so that two trees read alike exactly when their texts are equal.
inline QString volcarArbol(const ValorJson& v) {
    switch (v.tipo()) {
    case ValorJson::Tipo::Diccionario: {
        QString r = QStringLiteral("{");
        for (const auto& [clave, valor] : v.diccionario().entradas()) {
            r += QString::number(clave.size()) + u'\'' + clave + u'=' + volcarArbol(valor) + u';';
        }
        return r + u'}';
    }
    case ValorJson::Tipo::Coleccion: {
        QString r = QStringLiteral("[");
        for (const ValorJson& item : v.coleccion().items()) {
            r += volcarArbol(item) + u';';
        }
        return r + u']';
    }
    case ValorJson::Tipo::Decimal: {
        const auto d = v.aDecimal();
        return u'D' + d.aTexto() + u'/' + QString::number(d.escala()) +
               (d.negativo() ? QStringLiteral("-") : QString());
    }
    case ValorJson::Tipo::Texto:
        return QString::number(v.aTexto().size()) + u'"' + v.aTexto();
    case ValorJson::Tipo::Booleano:
        return v.aBooleano() ? QStringLiteral("T") : QStringLiteral("F");
    default:
        return v.TypeName();
    }
}
