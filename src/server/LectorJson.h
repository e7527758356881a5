#pragma once

#include "server/ValorJson.h"

#include <QString>
#include <QStringView>
#include <array>

// The desk's tolerant JSON reader. Besides JSON it accepts comments (// and /* */), round
// brackets as space, missing commas, unquoted and single-quoted keys (blanks dropped),
// strings that run to the end of the text, and numbers read as Spanish decimals. It never
// stops on an error: it collects one line per error (each ended by CR LF) and returns
// what it built. Text after the first complete value is ignored.
class LectorJson {
public:
    // Nesting deeper than this is a run-time error 28 ("Espacio de pila insuficiente")
    // instead of an overflow of the machine's stack.
    static constexpr int ProfundidadMaxima = 1000;

    explicit LectorJson(QStringView texto) : s_(texto) {}

    // The tree: a dictionary or a collection, or Nothing when the text starts with
    // neither "{" nor "[" (ErroresJson "Invalid JSON").
    ValorJson leer();
    const QString& ErroresJson() const { return errores_; }

private:
    QChar actual() const { return pos_ < s_.size() ? s_[pos_] : QChar(); }
    bool fin() const { return pos_ >= s_.size(); }
    void saltar();
    ValorJson leerValor(int profundidad);
    ValorJson leerObjeto(int profundidad);
    ValorJson leerColeccion(int profundidad);
    QString leerClave();
    QString leerTexto();
    ValorJson leerNumero();
    ValorJson leerBooleano();
    ValorJson leerNulo();
    QString posicionYResto() const;
    // A key as a text shared with the last key of the same look (menus repeat theirs).
    QString claveCompartida(QStringView vista);

    QStringView s_;
    qsizetype pos_ = 0;
    QString errores_;
    QString cifras_;
    std::array<QString, 64> claves_;
};

// Parses `texto`; when `ErroresJson` is given it receives the error lines of this parse.
// Error 28 escapes when the nesting is deeper than LectorJson::ProfundidadMaxima.
ValorJson JSON_Parse(QStringView texto, QString* ErroresJson = nullptr);
