#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
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

ImpresorasDW& ModuloPrincipal::impresorasDW() const {
    if (!impresorasDW_) {
        impresorasDW_ = std::make_shared<ImpresorasDWNinguna>();
    }
    return *impresorasDW_;
}

void ModuloPrincipal::setImpresorasDW(std::unique_ptr<ImpresorasDW> i) {
    impresorasDW_ = std::move(i);
}
