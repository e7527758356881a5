#include "printing/TicketClienteEP.h"

#include "base/Conversiones.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "printing/CanalEP.h"
#include "printing/EscritorTicketEP.h"
#include "printing/MarcoTicketEP.h"
#include "printing/PrimitivasTicket.h"
#include "printing/SalidaEP.h"
#include "printing/TablasCaracteresEP.h"

namespace {

void productos(EscritorTicketEP& t, const Pedido& p, const ClassConfigImpresora& imp) {
    const int w =
        ColumnasEP(imp.EPNumColumnas, imp.EPComDobleAltoActivar, imp.ProductosYComentariosGrande);
    for (const ProductoPedido& prod : p.Productos) {
        if (imp.MostrarSeparadorProductos) {
            t.normal();
            t.separador();
            t.grandeSi(imp.ProductosYComentariosGrande);
        }
        QString precio = u' ' + prod.Precio + u'€';
        QString texto = QString::number(prod.Cantidad) + QStringLiteral(" X ") + prod.Nombre;
        if (imp.ReemplazarCaracEsp) {
            precio = QuitarCaracEsp(precio);
            texto = QuitarCaracEsp(texto);
        }
        const QStringList piezas = clasico::Split(texto, QStringLiteral(" - "), 2);
        QString cabeza = piezas.value(0);
        const int r = HuecoUltimaLinea(cabeza.size(), w);
        if (imp.ProductosYComentariosMayus) {
            cabeza = clasico::UCase(cabeza);
        }
        t.cabezaYPrecio(cabeza, precio, r, w);
        if (piezas.size() > 1) {
            QString opciones = QStringLiteral(" -") + piezas[1];
            if (imp.SaltoLineaOpciones) {
                opciones = ReformatearOpciones(opciones);
            }
            if (imp.ProductosYComentariosMayus) {
                opciones = clasico::UCase(opciones);
            }
            t.escribirLinea(opciones);
        }
    }
}

// The state block; it may switch the delivery time off for this copy.
void bloqueEstado(EscritorTicketEP& t, Pedido& p, ClassConfigImpresora& imp) {
    if (estado::esAceptado(p.Estado)) {
        if (!EsParaAhora(p)) {
            imp.MostrarHoraEntrega = false;
            t.linea(p.Estado);
        } else if (!imp.MostrarHoraEntrega) {
            t.linea(p.Estado);
            t.lineaTexto(p.TiempoEstimado + QStringLiteral(" Minutos"));
        } else {
            const auto minutos = clasico::Valor(p.TiempoEstimado);
            if (!minutos) {
                throw ErrorEjecucion(ErrorEjecucion::NoCoincidenLosTipos);
            }
            if (*minutos == 0.0) {
                t.lineaTexto(p.Estado + QStringLiteral(": No especificado"));
                imp.MostrarHoraEntrega = false;
            } else {
                t.lineaTexto(p.Estado + QStringLiteral(": ") + p.TiempoEstimado +
                             QStringLiteral(" Minutos"));
            }
        }
    } else if (p.Estado == estado::Rechazado) {
        t.linea(p.Estado);
        t.linea(p.MotivoRechazo);
    }
}

void escribirTicket(ModuloPrincipal& m, CanalEP& canal, ClassConfigImpresora& imp) {
    Pedido& p = m.PedidoActual;
    EscritorTicketEP t(m, canal, imp);

    t.principio();
    t.grande();
    t.linea(m.NombreEstablecimiento);
    t.normal();
    t.separador();
    t.fechaYHora();
    t.grande();
    t.linea(m.TextoCabecera);
    t.normal();
    t.separador();
    t.grande();
    t.lineaTexto(QStringLiteral("Ped. Nº: ") + p.NumPedido);
    t.grandeSi(imp.ProductosYComentariosGrande);

    productos(t, p, imp);

    t.normal();
    if (!p.Comentarios.isEmpty()) {
        t.separador();
        t.lineaTexto(QStringLiteral("Comentarios:"));
        if (imp.ProductosYComentariosGrande) {
            t.grande();
        }
        if (imp.ProductosYComentariosMayus) {
            t.lineaTexto(clasico::UCase(p.Comentarios));
        } else {
            t.linea(p.Comentarios);
        }
    }
    t.normal();
    t.separador();
    t.lineaTexto(QStringLiteral("Importe envío: ") + p.ImporteEnvio);
    if (imp.MostrarTotalBruto) {
        t.lineaTexto(QStringLiteral("Total Bruto: ") + p.TotalBruto);
    }
    if (clasico::IsNumeric(p.ComisionPaypal) &&
        clasico::Valor(QString(p.ComisionPaypal).remove(u'€')).value_or(0.0) > 0.0) {
        t.lineaTexto(QStringLiteral("Comisión Paypal: ") + p.ComisionPaypal);
    }
    t.lineaTexto(QStringLiteral("Descuento: ") + p.ImporteDescuento);
    if (!p.CodigoPromocion.isEmpty() && m.MostrarCprTic) {
        t.lineaTexto(QStringLiteral("Promoción: ") + p.CodigoPromocion);
    }

    t.grande();
    {
        const int anchoGrande = ColumnasEP(imp.EPNumColumnas, imp.EPComDobleAltoActivar, true);
        QString total = p.TotalPedido;
        const QString blancos = Espacios(anchoGrande - 6 - static_cast<int>(total.size()));
        if (imp.ReemplazarCaracEsp) {
            total = QuitarCaracEsp(total);
        }
        if (imp.ReemplazarCaracEscPosPC858) {
            total = ConvertirPC858(total);
        }
        EscribirTextoEP(canal, QStringLiteral("Total:") + blancos + total + u'\n');
    }
    t.normal();
    t.separador();

    t.grandeSi(imp.DatosClienteYEnvioGrande);
    t.lineaTexto(QStringLiteral("Cliente:"));
    t.lineaTexto(t.partir(p.Cliente, imp.DatosClienteYEnvioGrande));
    t.linea(p.Telefono);
    t.lineaTexto(t.partir(p.FormaEntrega, imp.DatosClienteYEnvioGrande));
    t.normal();
    t.separador();
    t.lineaTexto(QStringLiteral("Realizado el:"));
    t.linea(p.RealizadoEl);
    if (!EsParaAhora(p)) {
        t.grande();
        t.lineaTexto(t.partir(p.Para, true));
        if (!p.ParaDia.isEmpty()) {
            t.lineaTexto(t.partir(p.ParaDia, true));
        }
    } else {
        t.lineaTexto(t.partir(p.Para, false));
    }
    t.normal();
    t.lineaTexto(QStringLiteral("Pedidos anteriores: ") + p.PedidosAnteriores);
    t.grande();
    t.linea(p.EstadoPago);
    t.normal();
    t.lineaTexto(QStringLiteral("Método de pago: ") + p.FormaPago);
    if (!p.Cambio.isEmpty()) {
        t.lineaTexto(QStringLiteral("Cambio: ") + p.Cambio);
    }
    t.separador();

    bloqueEstado(t, p, imp);

    t.grande();
    if (estado::esAceptado(p.Estado) && !p.TiempoEstimado.isEmpty() &&
        clasico::IsNumeric(p.TiempoEstimado) && imp.MostrarHoraEntrega) {
        t.grande();
        t.lineaTexto(HoraEntregaEstimada(p));
    }
    t.normal();
    t.separador();
    t.linea(m.TextoPiePagina);
    t.pie();
}

} // namespace

QString ImprimirTicketEP(ModuloPrincipal& m, const ClassConfigImpresora& impresora) {
    ClassConfigImpresora imp = impresora; // this copy's settings; the state block may change one
    return EjecutarMarcoEP(m, imp.NombreImpresora,
                           [&](CanalEP& canal) { escribirTicket(m, canal, imp); });
}
