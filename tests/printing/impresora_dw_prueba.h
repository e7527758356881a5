#pragma once
// A driver printer as a new one is set up, with a short separator so that ticket lines stay
// readable in the expectations.
#include "base/ClassConfigImpresora.h"

inline ClassConfigImpresora impresoraDW(const QString& nombre, bool cocina = false) {
    ClassConfigImpresora i;
    i.TipoImpresion = "DW";
    i.NombreImpresora = nombre;
    i.NumeroCopiasAceptado = 1;
    i.NumeroCopiasAceptadoRecoger = -1;
    i.AnchoPapel = 80;
    i.Font = "Lucida Console";
    i.FactorFuente = 3.8448; // 31 characters at 10 points, 22 at 14, 26 at 12
    i.TamannoFuentePequenna = 10;
    i.TamannoFuenteGrande = 14;
    i.TamannoFuenteSeparador = 4;
    i.SeparadorLineas = "----";
    i.MargenEntreLineas = 60;
    i.InicioX = 100;
    i.InicioY = 50;
    i.MostrarHoraEntrega = true;
    i.Cocina = cocina;
    return i;
}
