#include "printing/DestinoCocina.h"

#include "base/ClassConfigImpresora.h"
#include "base/Conversiones.h"
#include "base/ErrorEjecucion.h"
#include "base/Pedido.h"

namespace destino_cocina {

bool AdmiteFormaEntrega(int formaEnvio, const QString& formaEntrega) {
    const bool recogen = formaEntrega == u"Recogen";
    return !(formaEnvio == 1 && recogen) && !(formaEnvio == 2 && !recogen);
}

ListaIds LeerLista(const QString& texto) {
    ListaIds lista;
    for (const QString& n : clasico::Split(texto, QStringLiteral(","))) {
        lista.append(clasico::Valor(n));
    }
    return lista;
}

bool EstaEnLista(qint32 id, const ListaIds& lista) {
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

ListasCocina ListasCocina::De(const ClassConfigImpresora& imp) {
    return {LeerLista(imp.CategoriasIds), LeerLista(imp.ProductosExcepIds),
            LeerLista(imp.ProductosIds)};
}

bool PerteneceCategoria(qint32 idCategoria, const ListaIds& categorias) {
    return categorias.isEmpty() || EstaEnLista(idCategoria, categorias);
}

bool PerteneceProducto(const ProductoPedido& prod, const ListasCocina& listas) {
    return PerteneceCategoria(prod.IdCategoria, listas.categorias) ||
           EstaEnLista(prod.IdProducto, listas.extras);
}

QList<QStringList> ItemsOpciones(const QString& opciones) {
    QList<QStringList> items;
    for (const QString& item : clasico::Split(opciones, QStringLiteral("&&"))) {
        items.append(clasico::Split(item, QStringLiteral("//")));
    }
    return items;
}

const QString& Campo(const QStringList& campos, qsizetype i) {
    if (i < 0 || i >= campos.size()) {
        throw ErrorEjecucion(ErrorEjecucion::SubindiceFueraDeIntervalo);
    }
    return campos[i];
}

bool AlgunItemDe(const QList<QStringList>& items, const QString& nombreImpresora) {
    for (const QStringList& campos : items) {
        if (Campo(campos, 0) == nombreImpresora) {
            return true;
        }
    }
    return false;
}

bool ConcierneEP(const Pedido& p, const ClassConfigImpresora& imp) {
    if (!AdmiteFormaEntrega(imp.FormaEnvio, p.FormaEntrega)) {
        return false;
    }
    const ListasCocina listas = ListasCocina::De(imp);
    for (const ProductoPedido& prod : p.Productos) {
        // A product with option items goes by its items alone; a free text among them prints
        // only where another item of the product does, so the items decide either way.
        if (!prod.Opciones.isEmpty()) {
            if (AlgunItemDe(ItemsOpciones(prod.Opciones), imp.NombreImpresora)) {
                return true;
            }
        } else if (!EstaEnLista(prod.IdProducto, listas.excepciones) &&
                   PerteneceProducto(prod, listas)) {
            return true;
        }
    }
    return false;
}

bool ConcierneDW(const Pedido& p, const ClassConfigImpresora& imp) {
    if (!AdmiteFormaEntrega(imp.FormaEnvio, p.FormaEntrega)) {
        return false;
    }
    const ListaIds categorias = LeerLista(imp.CategoriasIds);
    if (categorias.isEmpty()) {
        return true;
    }
    for (const ProductoPedido& prod : p.Productos) {
        if (EstaEnLista(prod.IdCategoria, categorias)) {
            return true;
        }
    }
    return false;
}

} // namespace destino_cocina
