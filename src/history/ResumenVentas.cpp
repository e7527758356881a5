#include "history/ResumenVentas.h"

#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "platform/Reloj.h"
#include "printing/CanalEP.h"
#include "printing/EscritorTicketDW.h"
#include "printing/ImpresoraDW.h"
#include "printing/SalidaEP.h"
#include "server/LectorJson.h"
#include "server/TextoServidor.h"
#include "server/ValorJson.h"

namespace resumen {

namespace {

QString fechaSinBarras(const QDate& d) {
    return d.toString(QStringLiteral("dd/MM/yyyy")).remove(u'/');
}

// The service's figures, read once: texts stay blank and counts 0 when the reply held no
// object or lacked the key.
class Cifras {
public:
    explicit Cifras(const ValorJson& doc)
        : objeto_(doc.tipo() == ValorJson::Tipo::Diccionario), doc_(doc) {}

    QString texto(const QString& clave) const {
        if (!objeto_ || !doc_.diccionario().Exists(clave)) {
            return {};
        }
        const ValorJson& v = doc_.Item(clave);
        return v.esNull() ? QString() : v.aTexto();
    }
    QString numero(const QString& clave) const {
        const QString t = texto(clave);
        return t.isEmpty() ? QStringLiteral("0") : t;
    }

private:
    bool objeto_;
    const ValorJson& doc_;
};

} // namespace

QString TextoFechasInvertidas() {
    return QStringLiteral("La fecha desde no puede ser mayor que la fecha hasta");
}

QString RutaObtenerTotales(const ModuloPrincipal& m, qint16 opcion,
                           const std::optional<Fechas>& fechas) {
    QString ruta = QStringLiteral("pedidosgprs/obtenerTotales?idEstablecimiento=") +
                   QString::number(m.IdEstablecimiento) + QStringLiteral("&passwordconfig=") +
                   m.PasswordConfig + QStringLiteral("&numconfig=") + QString::number(m.NumConfig) +
                   QStringLiteral("&opcion=") + QString::number(opcion) +
                   QStringLiteral("&fp=0&estado=1&fe=0&origen=0");
    if (opcion == PorFechas && fechas) {
        ruta += QStringLiteral("&fechaini=") + fechaSinBarras(fechas->desde) +
                QStringLiteral("&fechafin=") + fechaSinBarras(fechas->hasta);
    }
    return ruta;
}

QString TextoPeriodo(qint16 opcion, const QString& inicio, const QString& fin) {
    const auto sesion = [&](const QString& cabeza) {
        return cabeza + inicio + (fin.isEmpty() ? QString() : QStringLiteral(" - ") + fin) + u')';
    };
    switch (opcion) {
    case Hoy:
        return QStringLiteral("Hoy (") + inicio + u')';
    case Ayer:
        return QStringLiteral("Ayer (") + inicio + u')';
    case PorFechas:
        return inicio == fin ? inicio : inicio + QStringLiteral(" - ") + fin;
    case UltimaSesionHoy:
        return sesion(QStringLiteral("Última sesión hoy ("));
    case UltimaSesionAyer:
        return sesion(QStringLiteral("Última sesión ayer ("));
    default:
        return {};
    }
}

QList<Linea> LineasResumen(qint16 opcion, const ValorJson& respuesta, const QDateTime& ahora) {
    const Cifras c(respuesta);
    QList<Linea> l;
    const auto texto = [&l](const QString& t) { l.append({Linea::Tipo::Texto, t}); };
    const auto blanco = [&] { texto(QString()); };
    const auto separador = [&l] { l.append({Linea::Tipo::Separador, QString()}); };
    // A heading and its two figures; `sufijo` picks the pair of keys.
    const auto bloque = [&](const QString& cabecera, const QString& sufijo) {
        texto(cabecera);
        texto(QStringLiteral("Pedidos: ") + c.numero(QStringLiteral("totalnumpedidos") + sufijo));
        texto(QStringLiteral("Importe: ") +
              c.texto(QStringLiteral("totalimportepedidos") + sufijo) + u'€');
    };

    l.append({Linea::Tipo::Titulo, QStringLiteral("RESUMEN VENTAS")});
    texto(QStringLiteral("Hora: ") + ahora.date().toString(QStringLiteral("dd/MM/yyyy")) + u' ' +
          ahora.time().toString(QStringLiteral("H:mm:ss")));
    texto(QStringLiteral("Periodo: ") +
          TextoPeriodo(opcion, c.texto(QStringLiteral("fechaHoraInicioSesion")),
                       c.texto(QStringLiteral("fechaHoraFinSesion"))));
    blanco();
    bloque(QStringLiteral("= VENTAS P. ONLINE RECOGER ="), QStringLiteral("OnlineRecoger"));
    blanco();
    bloque(QStringLiteral("= VENTAS P. ONLINE DOMICILIO ="), QStringLiteral("OnlineDomicilio"));
    separador();
    bloque(QStringLiteral("== TOTAL VENTAS P. ONLINE =="), QStringLiteral("Online"));
    blanco();
    blanco();
    bloque(QStringLiteral("= VENTAS EFECTIVO RECOGER ="), QStringLiteral("EfectivoRecoger"));
    blanco();
    bloque(QStringLiteral("= VENTAS EFECTIVO DOMICILIO ="), QStringLiteral("EfectivoDomicilio"));
    separador();
    bloque(QStringLiteral("== TOTAL VENTAS EFECTIVO =="), QStringLiteral("Efectivo"));
    blanco();
    separador();
    separador();
    blanco();
    bloque(QStringLiteral("=== TOTAL VENTAS RECOGER ==="), QStringLiteral("Recoger"));
    blanco();
    bloque(QStringLiteral("=== TOTAL VENTAS DOMICILIO ==="), QStringLiteral("Domicilio"));
    separador();
    bloque(QStringLiteral("==== TOTAL VENTAS ===="), QString());
    return l;
}

} // namespace resumen

namespace {

using resumen::Linea;

void ResumenVentasEP(ModuloPrincipal& m, const ClassConfigImpresora& imp,
                     const QList<Linea>& lineas) {
    CanalEP& canal = m.canalEP();
    const bool reemplazar = imp.ReemplazarCaracEsp;
    const bool pc858 = imp.ReemplazarCaracEscPosPC858;
    try {
        canal.Abrir(imp.EPConexion);
        EnviarComandoEP(canal, imp.EPComInicializar);
        EnviarComandoEP(canal, imp.EPComConfigCaracteres);
        if (imp.NumLineasBlancoInicio > 0) {
            EnviarComandoEP(canal, imp.EPComDobleAltoDesact);
            canal.Escribir(QByteArray(imp.NumLineasBlancoInicio, '\n'));
        }
        for (const Linea& l : lineas) {
            QString texto = l.tipo == Linea::Tipo::Separador ? imp.SeparadorLineas : l.texto;
            if (l.tipo == Linea::Tipo::Titulo) {
                EnviarComandoEP(canal, imp.EPComDobleAltoActivar);
                EnviarLineaEP(canal, texto, reemplazar, pc858);
                EnviarComandoEP(canal, imp.EPComDobleAltoDesact);
            } else {
                EnviarLineaEP(canal, texto, reemplazar, pc858);
            }
        }
        if (imp.NumLineasBlancoFinal > 0) {
            canal.Escribir(QByteArray(imp.NumLineasBlancoFinal, '\n'));
        }
        for (const QString& c :
             {imp.EPComSubirLineas, imp.EPComSubirYCotarPapel, imp.EPComExtrasFin}) {
            if (!c.isEmpty()) {
                EnviarComandoEP(canal, c);
            }
        }
        canal.Cerrar();
    } catch (const ErrorEjecucion&) {
        // The channel is freed for the next ticket; the failure itself goes on to the
        // run-time report of whoever asked for the summary.
        canal.Abortar();
        throw;
    }
}

void ResumenVentasDW(ModuloPrincipal& m, const ClassConfigImpresora& imp,
                     const QList<Linea>& lineas) {
    ImpresoraDW* impresora = nullptr;
    try {
        impresora = &m.impresorasDW().Printer();
        EscritorTicketDW t(m, *impresora, imp);
        t.prepararPagina();
        for (const Linea& l : lineas) {
            switch (l.tipo) {
            case Linea::Tipo::Titulo:
                t.grande();
                t.partir(l.texto);
                t.pequenna();
                break;
            case Linea::Tipo::Separador:
                t.separador();
                break;
            case Linea::Tipo::Texto:
                if (l.texto.isEmpty()) {
                    t.imprimir(QString());
                } else {
                    t.partir(l.texto);
                }
                break;
            }
        }
        for (int i = 0; i < imp.NumLineasBlancoFinal; ++i) {
            t.imprimir(QString());
        }
        t.imprimir(QStringLiteral("."));
        t.fin();
    } catch (const ErrorEjecucion& e) {
        if (impresora != nullptr) {
            impresora->KillDoc();
        }
        m.cajas().mostrar(QStringLiteral("Se ha producido un error. Tipo de error = ") +
                              QString::number(e.numero()) + QStringLiteral(". Descripción: ") +
                              e.descripcion(),
                          estilo::SoloAceptar);
    }
}

} // namespace

void ImprimirResumenVentas(ModuloPrincipal& m, qint16 opcion,
                           const std::optional<resumen::Fechas>& fechas) {
    if (opcion == resumen::PorFechas && fechas && fechas->desde > fechas->hasta) {
        m.cajas().exclamacion(resumen::TextoFechasInvertidas());
        return;
    }
    QString respuesta = m.ConsultarServidor(resumen::RutaObtenerTotales(m, opcion, fechas));
    ArreglarUtf8(respuesta);
    const ValorJson doc = JSON_Parse(respuesta);
    const QList<Linea> lineas = resumen::LineasResumen(opcion, doc, m.reloj().ahora());
    const ClassConfigImpresora& imp = m.Impresora(1);
    if (imp.TipoImpresion == QLatin1String("EP")) {
        ResumenVentasEP(m, imp, lineas);
    } else {
        HacerActualPorNombre(m.impresorasDW(), imp.NombreImpresora);
        ResumenVentasDW(m, imp, lineas);
    }
}
