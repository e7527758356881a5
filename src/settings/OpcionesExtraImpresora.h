#pragma once

#include "base/ClassConfigImpresora.h"

#include <QString>
#include <QStringList>

class CajaMensajes;

// The less common options of one printer as the extra options window shows them: the boxes
// ticked or not, the three numbers as typed.
struct OpcionesExtra {
    bool SaltoLineaOpciones = false;
    bool SeparadorProductos = false;
    bool NombreImprGrande = false;
    bool ProdComenGrande = false;
    bool ProdComenMayus = false;
    bool DatosCliCocina = false;
    bool DatosCliYEnvGrande = false;
    bool PreciosProdCocina = false;
    bool MostrarTotalBruto = false;
    bool MostrarHoraEntrega = false;
    QString NPedEnvFin;
    QString NumLinBlanIni;
    QString NumLinBlanFin;
};

namespace opciones_extra {

inline const QString MalNPedEnvFin = QStringLiteral(
    "Mostrar nº pedido y forma envío al final cocina debe ser un número entero entre 0 y 100");
inline const QString MalLinBlanIni =
    QStringLiteral("Nº líneas en blanco inicio ticket debe ser un número entero entre 0 y 100");
inline const QString MalLinBlanFin =
    QStringLiteral("Nº líneas en blanco final ticket debe ser un número entero entre 0 y 100");

// A whole number from 0 to 100, as the three fields take it: "1,5", "" and "101" are not.
bool EnteroHasta100(const QString& texto);

OpcionesExtra DesdeRegistro(const ClassConfigImpresora& r);

// The texts of the boxes for the refused fields, in the window's order; empty when all
// three are good.
QStringList Problemas(const OpcionesExtra& o);

// "Hecho": every refused field shows its box, one after another, and the record stays as
// it was (false). Otherwise every option goes into the record, the hidden ones included.
bool Aplicar(CajaMensajes& cajas, ClassConfigImpresora& r, const OpcionesExtra& o);

} // namespace opciones_extra
