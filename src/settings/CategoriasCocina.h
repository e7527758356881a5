#pragma once

#include "base/ClassConfigImpresora.h"

#include <QList>
#include <QString>

class CajaMensajes;
class ModuloPrincipal;

// One row of the kitchen categories list: the category's id as the service wrote it, its
// name, and whether this printer gets it.
struct CategoriaCocina {
    QString Id;
    QString Nombre;
    bool Marcada = false;
};

namespace categorias_cocina {

inline const QString FaltaFormaEnvio =
    QStringLiteral("Debe de seleccionar al menos una forma de envío");

// The two delivery boxes for a FormaEnvio: 0 both, 1 delivered only, 2 collected only.
struct FormasEnvio {
    bool ADomicilio = true;
    bool Recogen = true;
};
FormasEnvio DeFormaEnvio(qint16 formaEnvio);

QString PeticionCategorias(const ModuloPrincipal& m);

// The rows of a repaired reply: the categories of a JSON list in order, without those that
// carry a removal date (only a null "fechabaja" is a live category). A category is ticked
// when its id is among `categoriasIds`, or when that text is empty (a new kitchen printer
// gets everything). A reply that is not a list gives no rows. An element of `categoriasIds`
// that is no number is run-time error 13.
QList<CategoriaCocina> LeerCategorias(const QString& respuesta, const QString& categoriasIds);

// Asks the service for the establishment's categories and reads them as above.
QList<CategoriaCocina> PedirCategorias(ModuloPrincipal& m, const QString& categoriasIds);

// The ids of the ticked rows, in list order, joined by ",".
QString IdsMarcadas(const QList<CategoriaCocina>& filas);

// "Hecho": with neither delivery form the box and false, the record untouched. Otherwise
// the delivery forms, the printer name option and the ticked categories go into the record
// (an empty list of ticks too).
bool Aplicar(CajaMensajes& cajas, ClassConfigImpresora& r, bool aDomicilio, bool recogen,
             bool mostrarNombre, const QList<CategoriaCocina>& filas);

} // namespace categorias_cocina
