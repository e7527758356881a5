#include "printing/TicketCocinaEP.h"

#include "base/Conversiones.h"
#include "base/ModuloPrincipal.h"
#include "printing/CanalEP.h"
#include "printing/DestinoCocina.h"
#include "printing/EscritorTicketEP.h"
#include "printing/MarcoTicketEP.h"
#include "printing/PrimitivasTicket.h"
#include "printing/TablasCaracteresEP.h"

namespace {

using namespace destino_cocina;

class TicketCocina {
public:
    TicketCocina(ModuloPrincipal& m, CanalEP& canal, ClassConfigImpresora& imp)
        : p_(m.PedidoActual), imp_(imp), t_(m, canal, imp) {}

    void escribir() {
        if (!AdmiteFormaEntrega(imp_.FormaEnvio, p_.FormaEntrega)) {
            return;
        }
        listas_ = ListasCocina::De(imp_);
        w_ = ColumnasEP(imp_.EPNumColumnas, imp_.EPComDobleAltoActivar,
                        imp_.ProductosYComentariosGrande);

        for (const ProductoPedido& prod : p_.Productos) {
            producto(prod);
        }
        if (cabeceraHecha_) {
            pie();
        }
    }

private:
    void producto(const ProductoPedido& prod) {
        bool tratado = false;
        if (!prod.Opciones.isEmpty()) {
            tratado = true;
            opciones(prod);
        }
        if (EstaEnLista(prod.IdProducto, listas_.excepciones)) {
            tratado = true;
        }
        if (tratado) {
            return;
        }
        if (!PerteneceProducto(prod, listas_)) {
            return;
        }
        QString precio;
        if (imp_.MostrarPreciosProdCocina) {
            precio = u' ' + prod.Precio + u'€';
        }
        QString linea = QString::number(prod.Cantidad) + QStringLiteral(" X ") + prod.Nombre;
        if (imp_.SaltoLineaOpciones) {
            linea = ReformatearOpciones(linea);
        }
        if (imp_.ReemplazarCaracEsp) {
            linea = QuitarCaracEsp(linea);
            // Only an empty price is made plain, so the euro sign of a shown price stays.
            if (!imp_.MostrarPreciosProdCocina) {
                precio = QuitarCaracEsp(precio);
            }
        }
        int r = 0;
        if (imp_.MostrarPreciosProdCocina) {
            r = HuecoUltimaLinea(linea.size(), w_);
        }
        antesDeLinea();
        if (imp_.ProductosYComentariosMayus) {
            linea = clasico::UCase(linea);
        }
        if (imp_.MostrarPreciosProdCocina) {
            t_.cabezaYPrecio(linea, precio, r, w_);
        } else {
            t_.escribirLinea(linea);
        }
        t_.normal();
    }

    void opciones(const ProductoPedido& prod) {
        // Every item cut into its fields once; a missing field fails where it is read.
        const QList<QStringList> items = ItemsOpciones(prod.Opciones);
        for (const QStringList& campos : items) {
            if (Campo(campos, 0) == u"TEXTOLIBRE") {
                if (!AlgunItemDe(items, imp_.NombreImpresora)) {
                    continue;
                }
                antesDeLinea();
                QString texto = Campo(campos, 1);
                if (imp_.ProductosYComentariosMayus) {
                    texto = clasico::UCase(texto);
                }
                t_.escribirLinea(texto);
                t_.normal();
            } else if (Campo(campos, 0) == imp_.NombreImpresora) {
                const qint64 unidades = clasico::EnteroEnIntervalo(Campo(campos, 1), -32768, 32767);
                const qint64 total = clasico::EnteroEnIntervalo(
                    static_cast<double>(prod.Cantidad * unidades), -32768, 32767);
                QString linea = QString::number(total) + QStringLiteral(" X ") + Campo(campos, 2);
                if (imp_.SaltoLineaOpciones) {
                    linea = ReformatearOpciones(linea);
                }
                if (imp_.ReemplazarCaracEsp) {
                    // The plain form keeps only the option's text.
                    linea = QuitarCaracEsp(Campo(campos, 2));
                }
                antesDeLinea();
                if (imp_.ProductosYComentariosMayus) {
                    linea = clasico::UCase(linea);
                }
                t_.escribirLinea(linea);
                t_.normal();
            }
        }
    }

    // The head the first time, then the separator and the size of a product line.
    void antesDeLinea() {
        if (!cabeceraHecha_) {
            cabecera();
        }
        if (imp_.MostrarSeparadorProductos) {
            t_.separador();
        }
        if (imp_.ProductosYComentariosGrande) {
            t_.grande();
        }
    }

    void cabecera() {
        cabeceraHecha_ = true;
        t_.principio();
        if (imp_.MostrarNombreImpresora) {
            if (imp_.NombreImpresoraGrande) {
                t_.grande();
            }
            t_.linea(imp_.NombreImpresora);
        }
        t_.normal();
        t_.fechaYHora();
        t_.grande();
        if (!EsParaAhora(p_)) {
            t_.separador();
            t_.lineaTexto(t_.partir(p_.Para, true));
            if (!p_.ParaDia.isEmpty()) {
                t_.lineaTexto(t_.partir(p_.ParaDia, true));
            }
            t_.separador();
        }
        t_.lineaTexto(QStringLiteral("Ped. Nº: ") + p_.NumPedido);
        t_.normal();
        t_.lineaTexto(p_.FormaEntrega == u"Recogen" ? QStringLiteral("Recogen")
                                                    : QStringLiteral("Envío a domicilio"));
        t_.normal();
    }

    void pie() {
        if (!p_.Comentarios.isEmpty()) {
            t_.normal();
            t_.separador();
            t_.lineaTexto(QStringLiteral("Comentarios:"));
            if (imp_.ProductosYComentariosGrande) {
                t_.grande();
            }
            if (imp_.ProductosYComentariosMayus) {
                t_.lineaTexto(clasico::UCase(p_.Comentarios));
            } else {
                t_.linea(p_.Comentarios);
            }
            t_.normal();
        }
        if (imp_.DatosClienteCocina) {
            t_.normal();
            t_.separador();
            t_.grandeSi(imp_.DatosClienteYEnvioGrande);
            t_.lineaTexto(QStringLiteral("Cliente:"));
            t_.lineaTexto(t_.partir(p_.Cliente, imp_.DatosClienteYEnvioGrande));
            t_.linea(p_.Telefono);
            t_.lineaTexto(t_.partir(p_.FormaEntrega, imp_.DatosClienteYEnvioGrande));
            t_.normal();
        }
        if (imp_.NumPedidoYFormaEnvFinal > 0) {
            t_.normal();
            t_.separador();
            t_.lineasEnBlanco(imp_.NumPedidoYFormaEnvFinal);
            t_.grande();
            t_.lineaTexto(p_.NumPedido + u' ' +
                          (p_.FormaEntrega == u"Recogen" ? QStringLiteral("Recogen")
                                                         : QStringLiteral("Envío a Dom.")));
        }
        if (imp_.MostrarHoraEntrega && !p_.TiempoEstimado.isEmpty() &&
            clasico::Valor(p_.TiempoEstimado).value_or(0.0) > 0.0) {
            t_.normal();
            t_.separador();
            t_.grande();
            t_.lineaTexto(HoraEntregaEstimada(p_));
        }
        t_.normal();
        t_.pie();
    }

    Pedido& p_;
    ClassConfigImpresora& imp_;
    EscritorTicketEP t_;
    ListasCocina listas_;
    int w_ = 0;
    bool cabeceraHecha_ = false;
};

} // namespace

QString ImprimirTicketCocinaEP(ModuloPrincipal& m, const ClassConfigImpresora& impresora) {
    ClassConfigImpresora imp = impresora;
    return EjecutarMarcoEP(m, imp.NombreImpresora, [&](CanalEP& canal) {
        TicketCocina ticket(m, canal, imp);
        ticket.escribir();
    });
}
