#include "printing/PruebaImpresoraEP.h"

#include "base/Conversiones.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "printing/CanalEP.h"
#include "printing/EscritorTicketEP.h"
#include "printing/SalidaEP.h"
#include "printing/TablasCaracteresEP.h"

namespace prueba_ep {

namespace {

const QString kCaracteres = QStringLiteral("áéíóú ÁÉÍÓÚ ñÑ çÇ üÜ € º ° ¡ ¿");

// The code pages worth trying: those that printers of this kind number.
bool codigoProbado(int codigo) {
    return codigo <= 10 || (codigo >= 16 && codigo <= 32) || codigo >= 50;
}

void escribirPagina(ModuloPrincipal& m, CanalEP& canal, ClassConfigImpresora& imp) {
    EscritorTicketEP t(m, canal, imp);
    t.abrir();
    t.comando(imp.EPComInicializar);
    t.comando(imp.EPComConfigCaracteres);
    t.grande();
    t.lineaTexto(imp.NombreImpresora);
    t.normal();
    t.fechaYHora();
    t.lineaTexto(QStringLiteral("1234567890").repeated(10));

    QString precio = QStringLiteral("123.45€");
    QString producto = QStringLiteral("10 X Producto");
    if (imp.ReemplazarCaracEsp) {
        precio = QuitarCaracEsp(precio);
        producto = QuitarCaracEsp(producto);
    }
    const int w = imp.EPNumColumnas;
    t.cabezaYPrecio(producto, precio, HuecoUltimaLinea(producto.size(), w), w);
    t.lineaTexto(kCaracteres);

    const QStringList comando = clasico::Split(imp.EPComConfigCaracteres, QStringLiteral(","));
    if (comando.size() == 3) {
        for (int codigo = 0; codigo <= 96; ++codigo) {
            if (codigoProbado(codigo)) {
                ImprimirPaginaCodigosEP(canal, comando, codigo, imp.ReemplazarCaracEsp, true);
                ImprimirPaginaCodigosEP(canal, comando, codigo, imp.ReemplazarCaracEsp, false);
            }
        }
    }
    for (const QString& c : {imp.EPComSubirLineas, imp.EPComSubirYCotarPapel, imp.EPComExtrasFin}) {
        if (!c.isEmpty()) {
            t.comando(c);
        }
    }
}

} // namespace

QString TextoPuertoNoEncontrado() {
    return QStringLiteral("La conexión indicada no se corresponde con ningún puerto de impresora.");
}

void ImprimirPaginaCodigosEP(CanalEP& canal, const QStringList& comando, int codigo,
                             bool reemplazar, bool pc858) {
    EnviarComandoEP(canal,
                    comando.value(0) + u',' + comando.value(1) + u',' + QString::number(codigo));
    QString linea = QString::number(codigo) +
                    (pc858 ? QStringLiteral("-PC858 Act.: ") : QStringLiteral("-PC858 Des.: ")) +
                    kCaracteres + QStringLiteral(" ´");
    EnviarLineaEP(canal, linea, reemplazar, pc858);
}

void ImprimirPruebaEP(ModuloPrincipal& m, const ClassConfigImpresora& impresora) {
    ClassConfigImpresora imp = impresora;
    CanalEP& canal = m.canalEP();
    try {
        escribirPagina(m, canal, imp);
        canal.Cerrar();
    } catch (const ErrorEjecucion& e) {
        canal.Abortar();
        m.cajas().mostrar(e.numero() == ErrorEjecucion::ArchivoNoEncontrado
                              ? TextoPuertoNoEncontrado()
                              : QStringLiteral("Se ha producido un error. Tipo de error = ") +
                                    QString::number(e.numero()) +
                                    QStringLiteral(". Descripción: ") + e.descripcion(),
                          estilo::SoloAceptar);
    }
}

} // namespace prueba_ep
