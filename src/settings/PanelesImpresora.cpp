#include "settings/PanelesImpresora.h"

#include "base/Conversiones.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "server/TextoServidor.h"

namespace paneles_impresora {

namespace {

// The look of a record's name that marks a slot without a printer. The three hyphens are
// the service's own: a record named like the list's first item is a printer like any other.
const QString kSinImpresora = QStringLiteral("-- Ninguna ---");
const QString kSeparadorDW = QString(42, u'-');

QString numero(qint64 valor) {
    return QString::number(valor);
}

QString uno(bool valor) {
    return valor ? QStringLiteral("1") : QStringLiteral("0");
}

// The factor as a Spanish decimal, "3,8448".
QString textoFactor(double valor) {
    return QString::number(valor, 'g', 15).replace(QLatin1Char('.'), QLatin1Char(','));
}

QString cabecera(const ModuloPrincipal& m, const QString& ruta) {
    return QStringLiteral("pedidosgprs/") + ruta + QStringLiteral("?idEstablecimiento=") +
           numero(m.IdEstablecimiento) + QStringLiteral("&passwordconfig=") + m.PasswordConfig +
           QStringLiteral("&numconfig=") + numero(m.NumConfig);
}

// What the sub-windows edit and this window does not show: it survives the rebuild of the
// record. Slot 4 does not keep its prices on kitchen tickets: each save switches them off
// there, and the service knows printer 4 that way.
void conservar(ClassConfigImpresora& nuevo, const ClassConfigImpresora& viejo, int slot) {
    nuevo.SaltoLineaOpciones = viejo.SaltoLineaOpciones;
    nuevo.MostrarSeparadorProductos = viejo.MostrarSeparadorProductos;
    nuevo.NombreImpresoraGrande = viejo.NombreImpresoraGrande;
    nuevo.ProductosYComentariosGrande = viejo.ProductosYComentariosGrande;
    nuevo.ProductosYComentariosMayus = viejo.ProductosYComentariosMayus;
    nuevo.DatosClienteCocina = viejo.DatosClienteCocina;
    nuevo.DatosClienteYEnvioGrande = viejo.DatosClienteYEnvioGrande;
    nuevo.NumLineasBlancoInicio = viejo.NumLineasBlancoInicio;
    nuevo.NumLineasBlancoFinal = viejo.NumLineasBlancoFinal;
    nuevo.NumPedidoYFormaEnvFinal = viejo.NumPedidoYFormaEnvFinal;
    if (slot != 4) {
        nuevo.MostrarPreciosProdCocina = viejo.MostrarPreciosProdCocina;
    }
    nuevo.MostrarTotalBruto = viejo.MostrarTotalBruto;
    nuevo.MostrarHoraEntrega = viejo.MostrarHoraEntrega;
    if (slot >= 2) {
        nuevo.CategoriasIds = viejo.CategoriasIds;
        nuevo.ProductosExcepIds = viejo.ProductosExcepIds;
        nuevo.ProductosIds = viejo.ProductosIds;
        nuevo.FormaEnvio = viejo.FormaEnvio;
        nuevo.MostrarNombreImpresora = viejo.MostrarNombreImpresora;
    }
}

} // namespace

void CargarPanel(PanelImpresora& p, const ClassConfigImpresora& r, int slot) {
    const bool conCocina = slot >= 2;
    if (conCocina) {
        p.CocinaHabilitado = p.Cocina;
    }
    if (!r.NombreImpresora.isEmpty() && r.NombreImpresora != kSinImpresora) {
        p.ExtraHabilitado = true;
        p.CopiasHabilitadas = true;
        const auto comunes = [&] {
            p.Nombre = r.NombreImpresora;
            p.CopiasAceptado = numero(r.NumeroCopiasAceptado);
            p.CopiasAceptadoRecoger = numero(r.NumeroCopiasAceptadoRecoger);
            p.CopiasRechazado = numero(r.NumeroCopiasRechazado);
            if (conCocina) {
                p.Cocina = r.Cocina;
                p.CocinaHabilitado = r.Cocina;
            }
        };
        if (r.TipoImpresion == QLatin1String("DW")) {
            p.OpcionDW = true;
            p.OpcionEP = false;
            comunes();
            p.AnchoPapel = numero(r.AnchoPapel);
            p.Fuente = r.Font;
            p.FactorFuente = textoFactor(r.FactorFuente);
            p.TamannoFuentePeque = numero(r.TamannoFuentePequenna);
            p.TamannoFuenteGrande = numero(r.TamannoFuenteGrande);
            p.MargenLineas = numero(r.MargenEntreLineas);
            p.InicioX = numero(r.InicioX);
            p.InicioY = numero(r.InicioY);
        } else if (r.TipoImpresion == QLatin1String("EP")) {
            p.OpcionEP = true;
            p.OpcionDW = false;
            comunes();
            p.Conexion = r.EPConexion;
            p.NColumnas = numero(r.EPNumColumnas);
            p.Inicializar = r.EPComInicializar;
            p.ConfigCaracteres = r.EPComConfigCaracteres;
            p.ActDobleAlto = r.EPComDobleAltoActivar;
            p.DesactDobleAlto = r.EPComDobleAltoDesact;
            p.CortarPapel = r.EPComSubirYCotarPapel;
            p.SubirLineas = r.EPComSubirLineas;
            p.ExtrasFin = r.EPComExtrasFin;
            p.ReempCEsp = r.ReemplazarCaracEsp;
            p.PC858 = r.ReemplazarCaracEscPosPC858;
        }
        p.CopiasAceptadoRecoger =
            r.NumeroCopiasAceptadoRecoger > -1 ? numero(r.NumeroCopiasAceptadoRecoger) : QString();
    } else {
        p.Nombre = PanelImpresora::Ninguna;
        p.OpcionDW = false;
        p.OpcionEP = false;
        p.CopiasHabilitadas = false;
        p.ExtraHabilitado = false;
    }
}

void ElegirImpresora(PanelImpresora& p, ClassConfigImpresora& r, const QString& nombre) {
    p.Nombre = nombre;
    if (nombre == PanelImpresora::Ninguna) {
        p.CopiasHabilitadas = false;
        p.ExtraHabilitado = false;
        p.OpcionDW = false;
        p.OpcionEP = false;
        return;
    }
    p.CopiasHabilitadas = true;
    p.ExtraHabilitado = true;
    if (r.NombreImpresora.isEmpty()) {
        r.SaltoLineaOpciones = true;
        r.MostrarSeparadorProductos = true;
        r.MostrarHoraEntrega = true;
    }
}

QString InicioRutaCompartida(const QString& equipo) {
    return QStringLiteral("\\\\") + equipo + QStringLiteral("\\");
}

namespace {

// The raw frame's port and commands, as the test page and the save both take them.
void ValoresEP(ClassConfigImpresora& r, const PanelImpresora& p) {
    r.TipoImpresion = QStringLiteral("EP");
    r.EPNumColumnas = clasico::CInt(p.NColumnas);
    r.EPConexion = p.Conexion;
    r.EPComInicializar = p.Inicializar;
    r.EPComConfigCaracteres = p.ConfigCaracteres;
    r.EPComDobleAltoActivar = p.ActDobleAlto;
    r.EPComDobleAltoDesact = p.DesactDobleAlto;
    r.EPComSubirYCotarPapel = p.CortarPapel;
    r.EPComSubirLineas = p.SubirLineas;
    r.EPComExtrasFin = p.ExtrasFin;
}

// The driver frame's page and fonts; the separator is the slot's saved one (the panel has
// no field for it), or the driver's default.
void ValoresDW(ClassConfigImpresora& r, const PanelImpresora& p, const QString& separador,
               qint16 tamannoSeparador) {
    r.TipoImpresion = QStringLiteral("DW");
    r.SeparadorLineas = separador.isEmpty() ? kSeparadorDW : separador;
    r.TamannoFuenteSeparador = tamannoSeparador == 0 ? qint16(4) : tamannoSeparador;
    r.AnchoPapel = clasico::CInt(p.AnchoPapel);
    r.Font = p.Fuente;
    r.FactorFuente = clasico::CDec(p.FactorFuente).aDouble();
    r.TamannoFuentePequenna = clasico::CInt(p.TamannoFuentePeque);
    r.TamannoFuenteGrande = clasico::CInt(p.TamannoFuenteGrande);
    r.MargenEntreLineas = clasico::CInt(p.MargenLineas);
    r.InicioX = clasico::CInt(p.InicioX);
    r.InicioY = clasico::CInt(p.InicioY);
}

} // namespace

ClassConfigImpresora RegistroDePrueba(const PanelImpresora& p) {
    ClassConfigImpresora r;
    ValoresEP(r, p);
    r.NombreImpresora = p.Nombre;
    r.ReemplazarCaracEsp = p.ReempCEsp;
    r.ReemplazarCaracEscPosPC858 = p.PC858;
    return r;
}

ClassConfigImpresora RegistroDePruebaDW(const PanelImpresora& p,
                                        const ClassConfigImpresora& guardado) {
    ClassConfigImpresora r;
    ValoresDW(r, p, guardado.SeparadorLineas, guardado.TamannoFuenteSeparador);
    r.NombreImpresora = p.Nombre;
    return r;
}

QString ComprobarPaneles(const PanelesImpresora& paneles) {
    for (int slot = 1; slot <= 10; ++slot) {
        const PanelImpresora& p = paneles.at(static_cast<size_t>(slot - 1));
        const bool conTipo = p.OpcionDW || p.OpcionEP;
        if (p.Nombre != PanelImpresora::Ninguna && !conTipo) {
            return FaltaTipo + p.Nombre;
        }
        if (p.Nombre == PanelImpresora::Ninguna && conTipo) {
            return FaltaImpresora + numero(slot);
        }
    }
    return {};
}

QString PeticionEliminar(const ModuloPrincipal& m, int slot) {
    return cabecera(m, QStringLiteral("eliminarConfigImpresora")) +
           QStringLiteral("&numeroimpresora=") + numero(slot);
}

QString PeticionActualizar(const ModuloPrincipal& m, int slot) {
    const ClassConfigImpresora& r = m.Impresoras.at(static_cast<size_t>(slot - 1));
    QString q =
        cabecera(m, QStringLiteral("actualizarConfigImpresora")) + QStringLiteral("&version=") +
        ModuloPrincipal::Version + QStringLiteral("&numeroimpresora=") + numero(slot) +
        QStringLiteral("&nombreimpresora=") + UrlCodificar(r.NombreImpresora) +
        QStringLiteral("&tipoimpresion=") + r.TipoImpresion +
        QStringLiteral("&numerocopiasaceptado=") + numero(r.NumeroCopiasAceptado) +
        QStringLiteral("&numerocopiasaceptadorecoger=") + numero(r.NumeroCopiasAceptadoRecoger) +
        QStringLiteral("&numerocopiasrechazado=") + numero(r.NumeroCopiasRechazado);
    if (r.TipoImpresion == QLatin1String("DW")) {
        q += QStringLiteral("&anchopapel=") + numero(r.AnchoPapel) + QStringLiteral("&fuente=") +
             r.Font + QStringLiteral("&factorfuente=") +
             textoFactor(r.FactorFuente).replace(QLatin1Char(','), QLatin1Char('.')) +
             QStringLiteral("&tamannofuentepequenna=") + numero(r.TamannoFuentePequenna) +
             QStringLiteral("&tamannofuentegrande=") + numero(r.TamannoFuenteGrande) +
             QStringLiteral("&margenentrelineas=") + numero(r.MargenEntreLineas) +
             QStringLiteral("&iniciox=") + numero(r.InicioX) + QStringLiteral("&inicioy=") +
             numero(r.InicioY) + QStringLiteral("&separadorlineas=") + r.SeparadorLineas +
             QStringLiteral("&tamannofuenteseparador=") + numero(r.TamannoFuenteSeparador);
    } else {
        q += QStringLiteral("&epconexion=") + r.EPConexion + QStringLiteral("&epnumcolumnas=") +
             numero(r.EPNumColumnas) + QStringLiteral("&epcominicializar=") + r.EPComInicializar +
             QStringLiteral("&epcomconfigcaracteres=") + r.EPComConfigCaracteres +
             QStringLiteral("&epcomdoblealtoactivar=") + r.EPComDobleAltoActivar +
             QStringLiteral("&epcomdoblealtodesact=") + r.EPComDobleAltoDesact +
             QStringLiteral("&epcomcotarpapel=") + r.EPComSubirYCotarPapel +
             QStringLiteral("&epcomsubirlineas=") + r.EPComSubirLineas +
             QStringLiteral("&epcomextrasfin=") + r.EPComExtrasFin +
             QStringLiteral("&separadorlineas=") + r.SeparadorLineas;
    }
    q += QStringLiteral("&cocina=") + uno(r.Cocina) + QStringLiteral("&categoriasids=") +
         r.CategoriasIds + QStringLiteral("&formaenvio=") + numero(r.FormaEnvio) +
         QStringLiteral("&mostrarnombreimpresora=") + uno(r.MostrarNombreImpresora) +
         QStringLiteral("&saltolineaopciones=") + uno(r.SaltoLineaOpciones) +
         QStringLiteral("&mostrarseparadorproductos=") + uno(r.MostrarSeparadorProductos) +
         QStringLiteral("&nombreimpresoragrande=") + uno(r.NombreImpresoraGrande) +
         QStringLiteral("&productosycomentariosgrande=") + uno(r.ProductosYComentariosGrande) +
         QStringLiteral("&productosycomentariosmayus=") + uno(r.ProductosYComentariosMayus) +
         QStringLiteral("&datosclientecocina=") + uno(r.DatosClienteCocina) +
         QStringLiteral("&datosclienteyenviogrande=") + uno(r.DatosClienteYEnvioGrande) +
         QStringLiteral("&numlineasblancoinicio=") + numero(r.NumLineasBlancoInicio) +
         QStringLiteral("&numlineasblancofinal=") + numero(r.NumLineasBlancoFinal) +
         QStringLiteral("&numpedidoyformaenvfinal=") + numero(r.NumPedidoYFormaEnvFinal) +
         QStringLiteral("&mostrarpreciosprodcocina=") + uno(r.MostrarPreciosProdCocina) +
         QStringLiteral("&mostrartotalbruto=") + uno(r.MostrarTotalBruto) +
         QStringLiteral("&mostrarhoraentrega=") + uno(r.MostrarHoraEntrega) +
         QStringLiteral("&reemplazarcaracesp=") + uno(r.ReemplazarCaracEsp) +
         QStringLiteral("&reemplazarcaracescpospc858=") + uno(r.ReemplazarCaracEscPosPC858);
    return q;
}

bool GuardarImpresoras(ModuloPrincipal& m, const PanelesImpresora& paneles) {
    const QString problema = ComprobarPaneles(paneles);
    if (!problema.isEmpty()) {
        m.cajas().mostrar(problema);
        return false;
    }
    for (int slot = 1; slot <= 10; ++slot) {
        const PanelImpresora& p = paneles.at(static_cast<size_t>(slot - 1));
        ClassConfigImpresora& r = m.Impresora(slot);
        ClassConfigImpresora nuevo;
        conservar(nuevo, r, slot);
        const QString separador = r.SeparadorLineas;
        const qint16 tamannoSeparador = r.TamannoFuenteSeparador;
        r = nuevo;

        if (p.Nombre == PanelImpresora::Ninguna) {
            r.CategoriasIds.clear();
            r.FormaEnvio = 0;
            r.MostrarNombreImpresora = false;
            m.ConsultarServidor(PeticionEliminar(m, slot));
            continue;
        }
        r.NombreImpresora = p.Nombre;
        r.NumeroCopiasAceptado = clasico::CInt(p.CopiasAceptado);
        r.NumeroCopiasAceptadoRecoger =
            p.CopiasAceptadoRecoger.isEmpty() ? qint16(-1) : clasico::CInt(p.CopiasAceptadoRecoger);
        r.NumeroCopiasRechazado = clasico::CInt(p.CopiasRechazado);
        r.ReemplazarCaracEsp = p.ReempCEsp;
        r.ReemplazarCaracEscPosPC858 = p.PC858;
        if (slot >= 2 && p.Cocina) {
            r.Cocina = true;
        }
        if (p.OpcionDW) {
            ValoresDW(r, p, separador, tamannoSeparador);
        } else {
            ValoresEP(r, p);
            if (r.EPNumColumnas < 0) {
                throw ErrorEjecucion(ErrorEjecucion::ArgumentoNoValido);
            }
            const QChar marca = separador.isEmpty() ? QLatin1Char('-') : separador.at(0);
            r.SeparadorLineas = QString(r.EPNumColumnas, marca);
        }
        m.ConsultarServidor(PeticionActualizar(m, slot));
    }
    return true;
}

} // namespace paneles_impresora
