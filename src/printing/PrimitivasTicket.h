#pragma once

#include <QString>

class ImpresoraDW;
struct Pedido;

// n blanks; "" when n is 0 or negative.
QString Espacios(int n);

// Characters a line holds at this size. Large print halves the columns when the last byte of
// the emphasis command has the double-width bit by value range (32-63, 96 and up).
int ColumnasEP(int columnas, const QString& comandoResaltado, bool grande);

// Characters a line holds at the driver's current font size (round-half-to-even).
int CaracteresPorLineaDW(const ImpresoraDW& impresora, int anchoPapel, double factorFuente);

// Word wrap at w characters, lines joined by CR LF. It keeps the known losses: a paragraph of
// one character yields nothing and a single character left after a cut is dropped.
QString PartirLineas(const QString& texto, int w);
QString PartirLineasEP(const QString& texto, int columnas, const QString& comandoResaltado,
                       bool grande);
QString PartirLineasDW(const ImpresoraDW& impresora, const QString& texto, int anchoPapel,
                       double factorFuente);

// One line on the driver at `tamanno` points, `margen` twips below the pen; the font size
// stays as it was.
void ImprimirLineaDW(ImpresoraDW& impresora, int margen, double tamanno, const QString& texto);

// Acceptance time plus the estimated minutes, as "H:mm".
QString HoraEntregaEstimada(const Pedido& pedido);
