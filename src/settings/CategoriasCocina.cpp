#include "settings/CategoriasCocina.h"

#include "base/Conversiones.h"
#include "base/ModuloPrincipal.h"
#include "platform/CajaMensajes.h"
#include "server/LectorJson.h"
#include "server/TextoServidor.h"

namespace categorias_cocina {

FormasEnvio DeFormaEnvio(qint16 formaEnvio) {
    return {formaEnvio != 2, formaEnvio != 1};
}

QString PeticionCategorias(const ModuloPrincipal& m) {
    return QStringLiteral("categoria/find?estId=") + QString::number(m.IdEstablecimiento);
}

QList<CategoriaCocina> LeerCategorias(const QString& respuesta, const QString& categoriasIds) {
    QList<CategoriaCocina> filas;
    const ValorJson documento = JSON_Parse(respuesta);
    if (documento.tipo() != ValorJson::Tipo::Coleccion) {
        return filas;
    }
    const QStringList elegidas = clasico::Split(categoriasIds, QStringLiteral(","));
    for (const ValorJson& item : documento.coleccion().items()) {
        if (!item.Item(QStringLiteral("fechabaja")).esNull()) {
            continue;
        }
        const ValorJson& id = item.Item(QStringLiteral("id"));
        CategoriaCocina fila;
        fila.Id = id.aTexto();
        fila.Nombre = item.Item(QStringLiteral("nombre")).aTexto();
        fila.Marcada = elegidas.isEmpty();
        for (const QString& e : elegidas) {
            if (clasico::CLng(e) == id.aEntero32()) {
                fila.Marcada = true;
            }
        }
        filas.append(fila);
    }
    return filas;
}

QList<CategoriaCocina> PedirCategorias(ModuloPrincipal& m, const QString& categoriasIds) {
    QString respuesta = m.ConsultarServidor(PeticionCategorias(m));
    ArreglarUtf8(respuesta);
    return LeerCategorias(respuesta, categoriasIds);
}

QString IdsMarcadas(const QList<CategoriaCocina>& filas) {
    QStringList ids;
    for (const CategoriaCocina& f : filas) {
        if (f.Marcada) {
            ids << f.Id;
        }
    }
    return ids.join(QLatin1Char(','));
}

bool Aplicar(CajaMensajes& cajas, ClassConfigImpresora& r, bool aDomicilio, bool recogen,
             bool mostrarNombre, const QList<CategoriaCocina>& filas) {
    if (!aDomicilio && !recogen) {
        cajas.mostrar(FaltaFormaEnvio);
        return false;
    }
    r.FormaEnvio = 0;
    if (aDomicilio && !recogen) {
        r.FormaEnvio = 1;
    } else if (recogen && !aDomicilio) {
        r.FormaEnvio = 2;
    }
    r.MostrarNombreImpresora = mostrarNombre;
    r.CategoriasIds = IdsMarcadas(filas);
    return true;
}

} // namespace categorias_cocina
