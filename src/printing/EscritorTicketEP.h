#pragma once

#include "base/ClassConfigImpresora.h"

#include <QByteArray>
#include <QString>
#include <optional>

class CanalEP;
class ModuloPrincipal;
struct Pedido;

// What both raw tickets share: the sizes, lines and separator of one printer, and the
// product line with its price at the right edge.
class EscritorTicketEP {
public:
    EscritorTicketEP(ModuloPrincipal& m, CanalEP& canal, ClassConfigImpresora& impresora)
        : m_(m), canal_(canal), imp_(impresora) {}

    void normal();
    void grande();
    void grandeSi(bool grande) { grande ? this->grande() : normal(); }
    void comando(const QString& comando);
    // A line from a variable: with ReemplazarCaracEsp the variable itself becomes plain.
    void linea(QString& texto);
    // A line from a composed text.
    void lineaTexto(const QString& texto);
    void separador();
    void lineasEnBlanco(int n);
    // Text and a line feed written directly, through PC858 when the printer asks for it.
    void escribirLinea(const QString& texto);
    // The head, then the price at the end of its last line, or right-aligned on a line of its
    // own when it doesn't fit. `r` is the room left on the head's last line.
    void cabezaYPrecio(const QString& cabeza, const QString& precio, int r, int w);
    void abrir();
    // The port opened, the printer reset, its characters set and its blank lines on top.
    void principio();
    // The blank lines at the foot, the feed, the cut and the closing extras.
    void pie();
    void fechaYHora();
    QString partir(const QString& texto, bool grande) const;

    CanalEP& canal() { return canal_; }

private:
    ModuloPrincipal& m_;
    CanalEP& canal_;
    ClassConfigImpresora& imp_;
    // The two size commands, read at their first use (a bad one fails there, as it would
    // on every use).
    std::optional<QByteArray> normal_, grande_;
};

// The room left on the last line of a text of `largo` characters at width w.
int HuecoUltimaLinea(qsizetype largo, int w);

// Options on lines of their own: a group with a comma after its colon breaks after the colon,
// each element and each group gets its own line.
QString ReformatearOpciones(const QString& texto);

bool EsParaAhora(const Pedido& p);
