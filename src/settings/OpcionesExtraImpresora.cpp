#include "settings/OpcionesExtraImpresora.h"

#include "base/Conversiones.h"
#include "platform/CajaMensajes.h"

#include <cmath>

namespace opciones_extra {

bool EnteroHasta100(const QString& texto) {
    if (!clasico::IsNumeric(texto)) {
        return false;
    }
    const std::optional<double> valor = clasico::Valor(texto);
    return valor && std::floor(*valor) == *valor && *valor >= 0 && *valor <= 100;
}

OpcionesExtra DesdeRegistro(const ClassConfigImpresora& r) {
    OpcionesExtra o;
    o.SaltoLineaOpciones = r.SaltoLineaOpciones;
    o.SeparadorProductos = r.MostrarSeparadorProductos;
    o.NombreImprGrande = r.NombreImpresoraGrande;
    o.ProdComenGrande = r.ProductosYComentariosGrande;
    o.ProdComenMayus = r.ProductosYComentariosMayus;
    o.DatosCliCocina = r.DatosClienteCocina;
    o.DatosCliYEnvGrande = r.DatosClienteYEnvioGrande;
    o.PreciosProdCocina = r.MostrarPreciosProdCocina;
    o.MostrarTotalBruto = r.MostrarTotalBruto;
    o.MostrarHoraEntrega = r.MostrarHoraEntrega;
    o.NPedEnvFin = QString::number(r.NumPedidoYFormaEnvFinal);
    o.NumLinBlanIni = QString::number(r.NumLineasBlancoInicio);
    o.NumLinBlanFin = QString::number(r.NumLineasBlancoFinal);
    return o;
}

QStringList Problemas(const OpcionesExtra& o) {
    QStringList problemas;
    if (!EnteroHasta100(o.NPedEnvFin)) {
        problemas << MalNPedEnvFin;
    }
    if (!EnteroHasta100(o.NumLinBlanIni)) {
        problemas << MalLinBlanIni;
    }
    if (!EnteroHasta100(o.NumLinBlanFin)) {
        problemas << MalLinBlanFin;
    }
    return problemas;
}

bool Aplicar(CajaMensajes& cajas, ClassConfigImpresora& r, const OpcionesExtra& o) {
    const QStringList problemas = Problemas(o);
    for (const QString& p : problemas) {
        cajas.mostrar(p);
    }
    if (!problemas.isEmpty()) {
        return false;
    }
    r.SaltoLineaOpciones = o.SaltoLineaOpciones;
    r.MostrarSeparadorProductos = o.SeparadorProductos;
    r.NombreImpresoraGrande = o.NombreImprGrande;
    r.ProductosYComentariosGrande = o.ProdComenGrande;
    r.ProductosYComentariosMayus = o.ProdComenMayus;
    r.DatosClienteCocina = o.DatosCliCocina;
    r.DatosClienteYEnvioGrande = o.DatosCliYEnvGrande;
    r.MostrarPreciosProdCocina = o.PreciosProdCocina;
    r.NumPedidoYFormaEnvFinal = clasico::CInt(o.NPedEnvFin);
    r.NumLineasBlancoInicio = clasico::CInt(o.NumLinBlanIni);
    r.NumLineasBlancoFinal = clasico::CInt(o.NumLinBlanFin);
    r.MostrarTotalBruto = o.MostrarTotalBruto;
    r.MostrarHoraEntrega = o.MostrarHoraEntrega;
    return true;
}

} // namespace opciones_extra
