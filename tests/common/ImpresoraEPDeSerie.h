#pragma once

#include "base/ClassConfigImpresora.h"

// A raw printer of 48 columns with the usual command bytes, one accepted copy and none of the
// optional blocks: the settings a new raw printer gets from the service.
inline ClassConfigImpresora ImpresoraEPDeSerie(const QString& nombre, const QString& conexion) {
    ClassConfigImpresora i;
    i.TipoImpresion = QStringLiteral("EP");
    i.NombreImpresora = nombre;
    i.EPConexion = conexion;
    i.NumeroCopiasAceptado = 1;
    i.NumeroCopiasAceptadoRecoger = -1;
    i.SeparadorLineas = QString(48, u'-');
    i.EPNumColumnas = 48;
    i.EPComInicializar = QStringLiteral("27,64");
    i.EPComDobleAltoActivar = QStringLiteral("27,33,48");
    i.EPComDobleAltoDesact = QStringLiteral("27,33,0");
    i.EPComSubirYCotarPapel = QStringLiteral("29,86,66,0");
    i.EPComConfigCaracteres = QStringLiteral("27,116,19");
    i.EPComSubirLineas = QStringLiteral("27,100,3");
    return i;
}
