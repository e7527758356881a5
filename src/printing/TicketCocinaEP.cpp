#include "printing/TicketCocinaEP.h"

#include "base/Conversiones.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "printing/CanalEP.h"
#include "printing/EscritorTicketEP.h"
#include "printing/MarcoTicketEP.h"
#include "printing/PrimitivasTicket.h"
#include "printing/TablasCaracteresEP.h"

#include <limits>

namespace {

const QString& pieza(const QStringList& piezas, qsizetype i) {
    if (i < 0 || i >= piezas.size()) {
        throw ErrorEjecucion(ErrorEjecucion::SubindiceFueraDeIntervalo);
    }
    return piezas[i];
}

// A list of ids as the platform reads them: a piece that isn't a number is kept as such and
// is a type mismatch when a comparison reaches it.
using ListaIds = QList<std::optional<double>>;

ListaIds leerLista(const QString& texto) {
    ListaIds lista;
    for (const QString& n : clasico::Split(texto, QStringLiteral(","))) {
        lista.append(clasico::Valor(n));
    }
    return lista;
}

bool estaEnLista(qint32 id, const ListaIds& lista) {
    for (const auto& v : lista) {
        if (!v) {
            throw ErrorEjecucion(ErrorEjecucion::NoCoincidenLosTipos);
        }
        if (*v == static_cast<double>(id)) {
            return true;
        }
    }
    return false;
}

class TicketCocina {
public:
    TicketCocina(ModuloPrincipal& m, CanalEP& canal, ClassConfigImpresora& imp)
        : p_(m.PedidoActual), imp_(imp), t_(m, canal, imp) {}

    void escribir() {
        const QString recogen = QStringLiteral("Recogen");
        if (imp_.FormaEnvio == 1 && p_.FormaEntrega == recogen) {
            return;
        }
        if (imp_.FormaEnvio == 2 && p_.FormaEntrega != recogen) {
            return;
        }
        categorias_ = leerLista(imp_.CategoriasIds);
        excepciones_ = leerLista(imp_.ProductosExcepIds);
        extras_ = leerLista(imp_.ProductosIds);
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
        if (estaEnLista(prod.IdProducto, excepciones_)) {
            tratado = true;
        }
        if (tratado) {
            return;
        }
        const bool pertenece = categorias_.isEmpty() ||
                               estaEnLista(prod.IdCategoria, categorias_) ||
                               estaEnLista(prod.IdProducto, extras_);
        if (!pertenece) {
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
        QList<QStringList> items;
        for (const QString& item : clasico::Split(prod.Opciones, QStringLiteral("&&"))) {
            items.append(clasico::Split(item, QStringLiteral("//")));
        }
        for (const QStringList& campos : items) {
            if (pieza(campos, 0) == u"TEXTOLIBRE") {
                bool paraEsta = false;
                for (const QStringList& otro : items) {
                    if (pieza(otro, 0) == imp_.NombreImpresora) {
                        paraEsta = true;
                        break;
                    }
                }
                if (!paraEsta) {
                    continue;
                }
                antesDeLinea();
                QString texto = pieza(campos, 1);
                if (imp_.ProductosYComentariosMayus) {
                    texto = clasico::UCase(texto);
                }
                t_.escribirLinea(texto);
                t_.normal();
            } else if (pieza(campos, 0) == imp_.NombreImpresora) {
                const qint64 unidades = clasico::EnteroEnIntervalo(pieza(campos, 1), -32768, 32767);
                const qint64 total = clasico::EnteroEnIntervalo(
                    static_cast<double>(prod.Cantidad * unidades), -32768, 32767);
                QString linea = QString::number(total) + QStringLiteral(" X ") + pieza(campos, 2);
                if (imp_.SaltoLineaOpciones) {
                    linea = ReformatearOpciones(linea);
                }
                if (imp_.ReemplazarCaracEsp) {
                    // The plain form keeps only the option's text.
                    linea = QuitarCaracEsp(pieza(campos, 2));
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
        t_.abrir();
        t_.comando(imp_.EPComInicializar);
        t_.comando(imp_.EPComConfigCaracteres);
        if (imp_.NumLineasBlancoInicio > 0) {
            t_.normal();
            t_.lineasEnBlanco(imp_.NumLineasBlancoInicio);
        }
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
        t_.lineasEnBlanco(imp_.NumLineasBlancoFinal);
        t_.comando(imp_.EPComSubirLineas);
        t_.comando(imp_.EPComSubirYCotarPapel);
        t_.comando(imp_.EPComExtrasFin);
    }

    Pedido& p_;
    ClassConfigImpresora& imp_;
    EscritorTicketEP t_;
    ListaIds categorias_, excepciones_, extras_;
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
