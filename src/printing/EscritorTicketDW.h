#pragma once

#include <QString>

class ImpresoraDW;
class ModuloPrincipal;
struct ClassConfigImpresora;
struct ProductoPedido;

// What both driver tickets share: the two sizes, the gap, the separator, the wrap at the
// current size and the product line with its price at the right edge.
class EscritorTicketDW {
public:
    EscritorTicketDW(ModuloPrincipal& m, ImpresoraDW& impresora, const ClassConfigImpresora& imp)
        : m_(m), p_(impresora), imp_(imp) {}

    // Font, origin moved by the configured offsets, pen at the origin, blank head lines.
    void prepararPagina();
    void grande();
    void pequenna();
    void grandeSi(bool grande) { grande ? this->grande() : pequenna(); }
    void hueco();
    void separador();
    // The text wrapped at the width of the current size.
    void partir(const QString& texto);
    void imprimir(const QString& texto);
    void fechaYHora();
    // "Comentarios:" one step above the small size, then the comments.
    void comentarios(const QString& comentarios);
    // Quantity, name and, when `conPrecio`, the price at the end of the last wrapped line or
    // right-aligned on a line of its own.
    QString textoProducto(const ProductoPedido& prod, bool conPrecio) const;
    // Blank lines and a dot that keeps the driver from trimming them.
    void lineasFinales();
    void fin();

private:
    int ancho() const;

    ModuloPrincipal& m_;
    ImpresoraDW& p_;
    const ClassConfigImpresora& imp_;
};

// Each option on a line of its own, with CR LF (the driver's line end).
QString ReformatearOpcionesDW(const QString& texto);
