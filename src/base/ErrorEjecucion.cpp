#include "base/ErrorEjecucion.h"

ErrorEjecucion::ErrorEjecucion(int numero) : ErrorEjecucion(numero, textoDe(numero)) {}

ErrorEjecucion::ErrorEjecucion(int numero, QString descripcion)
    : numero_(numero), descripcion_(std::move(descripcion)),
      what_(QString::number(numero_).toStdString() + ": " + descripcion_.toStdString()) {}

QString ErrorEjecucion::textoDe(int numero) {
    switch (numero) {
    case 5:
        return QStringLiteral("Llamada a procedimiento o argumento no válido");
    case 6:
        return QStringLiteral("Desbordamiento");
    case 7:
        return QStringLiteral("Memoria insuficiente");
    case 9:
        return QStringLiteral("El subíndice está fuera del intervalo");
    case 11:
        return QStringLiteral("División por cero");
    case 13:
        return QStringLiteral("No coinciden los tipos");
    case 28:
        return QStringLiteral("Espacio de pila insuficiente");
    case 52:
        return QStringLiteral("Nombre o número de archivo incorrecto");
    case 53:
        return QStringLiteral("No se ha encontrado el archivo");
    case 55:
        return QStringLiteral("El archivo ya está abierto");
    case 57:
        return QStringLiteral("Error de E/S en el dispositivo");
    case 61:
        return QStringLiteral("Disco lleno");
    case 70:
        return QStringLiteral("Permiso denegado");
    case 75:
        return QStringLiteral("Error de acceso a la ruta o el archivo");
    case 76:
        return QStringLiteral("No se ha encontrado la ruta de acceso");
    case 91:
        return QStringLiteral("Variable de objeto o bloque With no establecido");
    case 94:
        return QStringLiteral("Uso no válido de Null");
    case 457:
        return QStringLiteral("Esta clave ya está asociada con un elemento de esta colección");
    default:
        return QStringLiteral("Error definido por la aplicación o por el objeto");
    }
}

QString ErrorEjecucion::textoInforme() const {
    return QStringLiteral("Error en tiempo de ejecución '%1': %2").arg(numero_).arg(descripcion_);
}
