#include "platform/ErrorEjecucion.h"
#include "printing/ImpresoraDW.h"
#include "printing/ImpresorasDWNinguna.h"

bool HacerActualPorNombre(ImpresorasDW& impresoras, const QString& nombre) {
    const QStringList nombres = impresoras.Printers();
    const qsizetype indice = nombres.lastIndexOf(nombre);
    if (indice < 0) {
        return false;
    }
    impresoras.HacerActual(indice);
    return true;
}

ImpresoraDW& ImpresorasDWNinguna::Printer() {
    throw ErrorEjecucion(482, QStringLiteral("Error de impresora"));
}
