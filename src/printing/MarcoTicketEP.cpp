#include "printing/MarcoTicketEP.h"

#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "printing/CanalEP.h"

QString TextoPuertoNoEncontrado(const QString& nombreImpresora) {
    return QStringLiteral("La conexión indicada para la impresora ") + nombreImpresora +
           QStringLiteral(" no se corresponde con ningún puerto de impresora.");
}

void EjecutarMarcoEP(ModuloPrincipal& m, const QString& nombreImpresora,
                     const std::function<void(CanalEP&)>& cuerpo) {
    CanalEP& canal = m.canalEP();
    try {
        cuerpo(canal);
        canal.Cerrar();
    } catch (const ErrorEjecucion& e) {
        canal.Abortar();
        if (e.numero() == ErrorEjecucion::ArchivoNoEncontrado) {
            m.cajas().mostrar(TextoPuertoNoEncontrado(nombreImpresora), estilo::SoloAceptar);
        } else {
            m.cajas().mostrar(QStringLiteral("Se ha producido un error. Tipo de error = ") +
                                  QString::number(e.numero()) + QStringLiteral(". Descripción: ") +
                                  e.descripcion(),
                              estilo::SoloAceptar);
        }
    }
}
