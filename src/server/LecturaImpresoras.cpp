#include "server/LecturaImpresoras.h"

#include "base/ErrorEjecucion.h"
#include "server/TextoServidor.h"
#include "server/ValorJson.h"

namespace {

// One element of the array, read by key. Keys the record cannot do without must be
// there; the others fall back to their default when missing or null.
class Elemento {
public:
    explicit Elemento(DiccionarioJson& d) : d_(d) {}

    const ValorJson& requerido(const char* clave) {
        const QString k = QLatin1String(clave);
        if (!d_.Exists(k)) {
            throw ErrorEjecucion(ErrorEjecucion::ArgumentoNoValido);
        }
        return d_.Item(k);
    }
    // Null for a missing or null key.
    const ValorJson* opcional(const char* clave) {
        const QString k = QLatin1String(clave);
        if (!d_.Exists(k)) {
            return nullptr;
        }
        const ValorJson& v = d_.Item(k);
        return v.esNull() || v.esEmpty() ? nullptr : &v;
    }

    QString texto(const char* clave) { return requerido(clave).aTexto(); }
    qint16 entero(const char* clave) { return requerido(clave).aEntero16(); }
    QString texto(const char* clave, const QString& omision) {
        const ValorJson* v = opcional(clave);
        return v ? v->aTexto() : omision;
    }
    qint16 entero(const char* clave, qint16 omision) {
        const ValorJson* v = opcional(clave);
        return v ? v->aEntero16() : omision;
    }
    bool booleano(const char* clave) {
        const ValorJson* v = opcional(clave);
        return v ? v->aBooleano() : false;
    }
    // The members that hold whatever the reader gave: anything true or non-zero counts,
    // and a value of no Boolean sense counts as false rather than stopping the reading.
    bool sinTipo(const char* clave) {
        const ValorJson* v = opcional(clave);
        if (v == nullptr) {
            return false;
        }
        try {
            return v->aBooleano();
        } catch (const ErrorEjecucion&) {
            return false;
        }
    }

private:
    DiccionarioJson& d_;
};

} // namespace

int LeerConfigImpresoras(std::array<ClassConfigImpresora, 10>& impresoras,
                         const ValorJson& configimpresoras) {
    for (ClassConfigImpresora& i : impresoras) {
        i = ClassConfigImpresora{};
    }
    ColeccionJson& lista = configimpresoras.coleccion();
    ClassConfigImpresora* destino = nullptr;
    int leidos = 0;
    for (int n = 1; n <= lista.Count(); ++n) {
        DiccionarioJson& d = lista.Item(n).diccionario();
        Elemento e(d);
        // A missing number reads as 0: like any number out of 1 to 10, it keeps the target.
        const qint16 numero = d.Item(QStringLiteral("numeroimpresora")).aEntero16();
        if (numero >= 1 && numero <= 10) {
            destino = &impresoras.at(static_cast<size_t>(numero - 1));
        }
        ++leidos;
        if (destino == nullptr) {
            throw ErrorEjecucion(ErrorEjecucion::VariableDeObjetoNoEstablecida);
        }
        ClassConfigImpresora& i = *destino;
        i.NombreImpresora = UrlDecodificar(e.texto("nombreimpresora"));
        i.TipoImpresion = e.texto("tipoimpresion");
        i.NumeroCopiasAceptado = e.entero("numerocopiasaceptado");
        i.NumeroCopiasAceptadoRecoger = e.entero("numerocopiasaceptadorecoger", -1);
        i.NumeroCopiasRechazado = e.entero("numerocopiasrechazado");
        i.SeparadorLineas = e.texto("separadorlineas");
        i.ReemplazarCaracEsp = e.booleano("reemplazarcaracesp");
        i.ReemplazarCaracEscPosPC858 = e.sinTipo("reemplazarcaracescpospc858");
        i.SaltoLineaOpciones = e.booleano("saltolineaopciones");
        i.ProductosYComentariosGrande = e.booleano("productosycomentariosgrande");
        i.DatosClienteYEnvioGrande = e.sinTipo("datosclienteyenviogrande");
        i.ProductosYComentariosMayus = e.sinTipo("productosycomentariosmayus");
        i.NumLineasBlancoInicio = e.entero("numlineasblancoinicio", 0);
        i.NumLineasBlancoFinal = e.entero("numlineasblancofinal", 0);
        i.MostrarSeparadorProductos = e.booleano("mostrarseparadorproductos");
        i.MostrarTotalBruto = e.booleano("mostrartotalbruto");
        i.MostrarHoraEntrega = e.booleano("mostrarhoraentrega");
        i.Cocina = e.booleano("cocina");
        if (i.Cocina) {
            i.CategoriasIds = e.texto("categoriasids", QString());
            i.ProductosExcepIds = e.texto("productosexcepids", QString());
            i.ProductosIds = e.texto("productosids", QString());
            i.FormaEnvio = e.entero("formaenvio", 0);
            i.MostrarNombreImpresora = e.booleano("mostrarnombreimpresora");
            i.NombreImpresoraGrande = e.booleano("nombreimpresoragrande");
            i.DatosClienteCocina = e.booleano("datosclientecocina");
            i.MostrarPreciosProdCocina = e.booleano("mostrarpreciosprodcocina");
            i.NumPedidoYFormaEnvFinal = e.entero("numpedidoyformaenvfinal", 0);
        }
        if (i.TipoImpresion == QLatin1String("DW")) {
            i.TamannoFuenteSeparador = e.entero("tamannofuenteseparador");
            i.AnchoPapel = e.entero("anchopapel");
            i.FactorFuente = e.requerido("factorfuente").aDecimal().aDouble();
            i.Font = e.texto("fuente");
            i.InicioX = e.entero("iniciox");
            i.InicioY = e.entero("inicioy");
            i.MargenEntreLineas = e.entero("margenentrelineas");
            i.TamannoFuenteGrande = e.entero("tamannofuentegrande");
            i.TamannoFuentePequenna = e.entero("tamannofuentepequenna");
        } else if (i.TipoImpresion == QLatin1String("EP")) {
            i.EPConexion = e.texto("epconexion");
            i.EPNumColumnas = e.entero("epnumcolumnas");
            i.EPComInicializar = e.texto("epcominicializar");
            i.EPComConfigCaracteres = e.texto("epcomconfigcaracteres");
            i.EPComDobleAltoActivar = e.texto("epcomdoblealtoactivar");
            i.EPComDobleAltoDesact = e.texto("epcomdoblealtodesact");
            i.EPComSubirYCotarPapel = e.texto("epcomcotarpapel");
            i.EPComSubirLineas = e.texto("epcomsubirlineas", QString());
            i.EPComExtrasFin = e.texto("epcomextrasfin", QString());
        }
    }
    return leidos;
}
