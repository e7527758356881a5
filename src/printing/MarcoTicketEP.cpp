#include "printing/MarcoTicketEP.h"

#include "base/Diario.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "printing/CanalEP.h"

QString TextoPuertoNoEncontrado(const QString& nombreImpresora) {
    return QStringLiteral("La conexión indicada para la impresora ") + nombreImpresora +
           QStringLiteral(" no se corresponde con ningún puerto de impresora.");
}

QString EjecutarMarcoEP(ModuloPrincipal& m, const QString& nombreImpresora,
                        const std::function<void(CanalEP&)>& cuerpo) {
    CanalEP& canal = m.canalEP();
    try {
        cuerpo(canal);
        canal.Cerrar();
        qCInfo(diarioImpresion).noquote() << ('"' + nombreImpresora + '"') << "ticket impreso";
        return {};
    } catch (const ErrorEjecucion& e) {
        canal.Abortar();
        qCWarning(diarioImpresion).noquote()
            << ('"' + nombreImpresora + '"') << "ticket NO impreso: error" << e.numero()
            << e.descripcion();
        const QString texto = e.numero() == ErrorEjecucion::ArchivoNoEncontrado
                                  ? TextoPuertoNoEncontrado(nombreImpresora)
                                  : QStringLiteral("Se ha producido un error. Tipo de error = ") +
                                        QString::number(e.numero()) +
                                        QStringLiteral(". Descripción: ") + e.descripcion();
        m.cajas().mostrar(texto, estilo::SoloAceptar);
        return texto;
    }
}
