#include "server/Configuracion.h"

#include "base/ArchivosLocales.h"
#include "base/Conversiones.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "server/LectorJson.h"
#include "server/LecturaImpresoras.h"
#include "server/TextoServidor.h"
#include "server/ValorJson.h"

namespace configuracion {

namespace {

const QString kNoEncontrado =
    QStringLiteral("\"No se ha encontrado establecimento con el id y password indicado\"");

// The document's keys, read in their fixed order. Keys without a default give the empty
// text, 0 or false when missing, and stop the reading when null.
class Lectura {
public:
    explicit Lectura(const ValorJson& documento) : doc_(documento) {}

    const ValorJson& item(const char* clave) const { return doc_.Item(QLatin1String(clave)); }

    QString texto(const char* clave) const { return item(clave).aTexto(); }
    qint32 largo(const char* clave) const { return item(clave).aEntero32(); }
    qint16 entero(const char* clave) const { return item(clave).aEntero16(); }
    // True only for the integer 1; a bare JSON true is -1 and so false.
    bool bandera(const char* clave) const { return UnoAVerdadero(item(clave).aEntero16()); }

    // Keys added over time: missing (Empty) or null take the default.
    bool sinValor(const char* clave) const {
        const ValorJson& v = item(clave);
        return v.esEmpty() || v.esNull();
    }
    qint16 entero(const char* clave, qint16 omision) const {
        return sinValor(clave) ? omision : item(clave).aEntero16();
    }
    qint32 largo(const char* clave, qint32 omision) const {
        return sinValor(clave) ? omision : item(clave).aEntero32();
    }
    QString texto(const char* clave, const QString& omision) const {
        return sinValor(clave) ? omision : item(clave).aTexto();
    }

private:
    const ValorJson& doc_;
};

} // namespace

bool RespuestaMala(const QString& respuesta) {
    return respuesta == QLatin1String("error") || respuesta.isEmpty() ||
           respuesta == kNoEncontrado || respuesta == QLatin1String("{\"status\":500}") ||
           respuesta.contains(QLatin1String("<title>502"));
}

int LeerDocumento(ModuloPrincipal& m, const QString& texto) {
    const ValorJson doc = JSON_Parse(texto);
    m.RestId = m.IdEstablecimiento;
    const Lectura l(doc);

    m.Pgprs = l.texto("pgprs");
    m.NombreEstablecimiento = l.texto("nombre");
    m.IntervaloEscaneoPedido = l.largo("intervaloescaneopedido");
    m.IntervaloEscaneoConfiguracion = l.largo("intervaloescaneoconfiguracion");
    m.NumeroPedidosHistorico = l.largo("numeropedidoshistorico");
    m.AbreDialogImpresion = l.bandera("abredialogimpresion");
    m.TextoCabecera = l.texto("textocabecera");
    m.TextoPiePagina = l.texto("textopiepagina");
    m.MostrarQuienA = l.bandera("mostrarquiena");
    m.MostrarCpr = l.bandera("mostrarcpr");
    m.MostrarCprTic = l.bandera("mostrarcprtic");
    m.MinimizarTrasResp = l.bandera("minimizartrasresp");
    m.CancelarSonido = l.bandera("cancelarsonido");
    m.ParpadeoPedNuevo = l.bandera("parpadeopednuevo");
    {
        const qint16 v = l.entero("intensidadparpadeo", 160);
        m.IntensidadParpadeo = (v >= 0 && v < 255) ? v : 160;
    }
    m.IntervaloEscaneoPedActualizado = l.largo("intervaloescaneopedactualizado", 0);
    m.Metcon = l.entero("metcon", 0);
    if (m.Metcon != m.MetconGuardado) {
        m.MetconGuardado = m.Metcon;
        // A file that cannot be written must not fail the reading (nor move it to http).
        GuardarAvisando(m, QStringLiteral("config.txt"), GuardarConfigTxt);
    }
    m.TamannoFuentePrincipales = l.entero("tamannofuenteprincipales", 8);
    m.TamannoFuenteListasCheck = l.entero("tamannofuentelistascheck", 10);
    m.TipoReproAudio = l.entero("tiporeproaudio", 0);
    m.MelodiaPedNuevo = l.texto("melodiapednuevo", QStringLiteral("corneta.mp3"));
    {
        // An empty text also takes the default volume.
        const ValorJson& v = l.item("volumenmelodiawmp");
        const bool vacio = l.sinValor("volumenmelodiawmp") ||
                           (v.tipo() == ValorJson::Tipo::Texto && v.aTexto().isEmpty());
        m.VolumenMelodiaWmp = vacio ? qint16(100) : v.aEntero16();
    }
    m.WebParticular = l.bandera("webparticular");
    m.OcultarDatosPerson = l.bandera("ocultardatosperson");
    m.PrintResumenAuto = l.bandera("printresumenauto");
    m.AceptarAutoDomicilio = l.entero("aceptarautodomicilio", -1);
    m.AceptarAutoRecoger = l.entero("aceptarautorecoger", -1);
    m.ActualizarConfigConPedido = l.bandera("actualizarconfigconpedido");
    m.ComprobarActualizar = l.bandera("comprobaractualizar");
    m.MostrarSinTiempo = l.bandera("mostrarsintiempo");
    m.RechazarAceptado = l.entero("rechazaraceptado", 0);
    m.ImprimirAntesAceptar = l.bandera("imprimirantesaceptar");
    m.ComprobarPedidoTrasAceptar = l.bandera("comprobarpedidotrasaceptar");
    m.Modo = l.entero("modo", 0);

    const bool modoImpresion = m.Modo == 1 || m.Modo == 2;
    Q_EMIT m.modoCambiado(m.Modo);
    if (modoImpresion) {
        // An unreadable list keeps the one in memory: printing an order twice is better than
        // a desk that no longer reads its configuration.
        try {
            const QString aviso = LeerUltPedIm(m);
            if (!aviso.isEmpty()) {
                Q_EMIT m.avisoArchivos(aviso);
            }
        } catch (const ErrorEjecucion& e) {
            Q_EMIT m.avisoArchivos(
                QStringLiteral("No se ha podido leer ultpedim.txt (%1).").arg(e.descripcion()));
        }
    }

    // An empty list is an error here: the service must send at least one reason.
    m.MotivosRechazo = ColeccionAVector(l.item("motivosrechazo").coleccion());

    const ValorJson& agotados = l.item("actualizaragotados");
    if (!agotados.esEmpty() && !agotados.esNull() && agotados.aDecimal() == clasico::Decimal(1)) {
        Q_EMIT m.actualizarAgotados();
    }

    return LeerConfigImpresoras(m.Impresoras, l.item("configimpresoras"));
}

void MigrarImpresoraAntigua(ModuloPrincipal& m) {
    const QString respuesta = m.ConsultarServidor(
        QStringLiteral("pedidosgprs/obtenerConfiguracion?idEstablecimiento=") +
        QString::number(m.IdEstablecimiento) + QStringLiteral("&passwordconfig=") +
        m.PasswordConfig + QStringLiteral("&modeloImpresora=3"));
    if (!EsLineaPedido(respuesta)) {
        return;
    }
    QString interior = respuesta.mid(1, respuesta.size() - 2);
    const QStringList c = clasico::Split(ArreglarUtf8(interior), QStringLiteral("*"));
    auto campo = [&c](int n) -> const QString& {
        if (n >= c.size()) {
            throw ErrorEjecucion(ErrorEjecucion::SubindiceFueraDeIntervalo);
        }
        return c.at(n);
    };
    ClassConfigImpresora& i = m.Impresora(1);
    i.TipoImpresion = QStringLiteral("DW");
    i.NombreImpresora = m.ImpresoraAntigua;
    i.NumeroCopiasAceptado = clasico::CInt(campo(4));
    i.NumeroCopiasRechazado = clasico::CInt(campo(5));
    i.AnchoPapel = clasico::CInt(campo(6));
    i.Font = campo(7);
    i.FactorFuente =
        clasico::CDec(QString(campo(8)).replace(QLatin1Char('.'), QLatin1Char(','))).aDouble();
    i.TamannoFuentePequenna = clasico::CInt(campo(9));
    i.TamannoFuenteGrande = clasico::CInt(campo(10));
    i.TamannoFuenteSeparador = clasico::CInt(campo(11));
    i.SeparadorLineas = campo(12);
    i.MargenEntreLineas = clasico::CInt(campo(13));
    i.InicioX = clasico::CInt(campo(14));
    i.InicioY = clasico::CInt(campo(15));

    // The factor goes back with a decimal point, as the service writes it.
    const QString factor = QString::number(i.FactorFuente, 'g', 15);
    auto n = [](qint16 v) { return QString::number(v); };
    m.ConsultarServidor(
        QStringLiteral("pedidosgprs/actualizarConfigImpresora?idEstablecimiento=") +
        QString::number(m.IdEstablecimiento) + QStringLiteral("&passwordconfig=") +
        m.PasswordConfig + QStringLiteral("&numconfig=") + QString::number(m.NumConfig) +
        QStringLiteral("&numeroimpresora=1&nombreimpresora=") + UrlCodificar(i.NombreImpresora) +
        QStringLiteral("&tipoimpresion=") + i.TipoImpresion +
        QStringLiteral("&numerocopiasaceptado=") + n(i.NumeroCopiasAceptado) +
        QStringLiteral("&numerocopiasrechazado=") + n(i.NumeroCopiasRechazado) +
        QStringLiteral("&anchopapel=") + n(i.AnchoPapel) + QStringLiteral("&fuente=") + i.Font +
        QStringLiteral("&factorfuente=") + factor + QStringLiteral("&tamannofuentepequenna=") +
        n(i.TamannoFuentePequenna) + QStringLiteral("&tamannofuentegrande=") +
        n(i.TamannoFuenteGrande) + QStringLiteral("&margenentrelineas=") + n(i.MargenEntreLineas) +
        QStringLiteral("&iniciox=") + n(i.InicioX) + QStringLiteral("&inicioy=") + n(i.InicioY) +
        QStringLiteral("&separadorlineas=") + i.SeparadorLineas +
        QStringLiteral("&tamannofuenteseparador=") + n(i.TamannoFuenteSeparador));
}

} // namespace configuracion

bool ObtenerConfiguracion(ModuloPrincipal& m, bool& parametro) {
    // Both failures end the same way: once more over http, then false.
    auto otraVezPorHttp = [&]() -> bool {
        if (m.enHttps()) {
            m.UrlBase = m.UrlBaseHttp;
            return ObtenerConfiguracion(m, parametro);
        }
        return false;
    };
    try {
        QString respuesta = m.ConsultarServidor(
            QStringLiteral("pedidosgprs/obtenerConfiguracionV2?idEstablecimiento=") +
            QString::number(m.IdEstablecimiento) + QStringLiteral("&passwordconfig=") +
            m.PasswordConfig + QStringLiteral("&numconfig=") + QString::number(m.NumConfig) +
            QStringLiteral("&modeloImpresora=3"));
        if (configuracion::RespuestaMala(respuesta)) {
            return otraVezPorHttp();
        }
        ArreglarUtf8(respuesta);
        const int elementos = configuracion::LeerDocumento(m, respuesta);
        if (!m.ImpresoraAntigua.isEmpty() && elementos == 0) {
            configuracion::MigrarImpresoraAntigua(m);
        }
        Q_EMIT m.textoInfo(QString());
        return true;
    } catch (const ErrorEjecucion& e) {
        if (m.enHttps()) {
            return otraVezPorHttp();
        }
        Q_EMIT m.textoInfo(e.descripcion());
        return false;
    }
}
