#pragma once

#include "server/ValorJson.h"

#include <QString>
#include <QStringView>
#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// The desk's tolerant JSON reader. Besides JSON it accepts comments (// and /* */), round
// brackets as space, missing commas, unquoted and single-quoted keys (blanks dropped),
// strings that run to the end of the text, and numbers read as Spanish decimals. It never
// stops on an error: it collects one line per error (each ended by CR LF) and returns
// what it built. Text after the first complete value is ignored.
//
// Replies are nearly always plain JSON, so a quick walk reads them first; at the first
// character that needs one of the tolerances, or at an error, it gives up and the whole
// text is read again by the tolerant walk. Both give the same tree for a text the quick
// walk takes.
class LectorJson {
public:
    // Nesting deeper than this is a run-time error 28 ("Espacio de pila insuficiente")
    // instead of an overflow of the machine's stack.
    static constexpr int ProfundidadMaxima = 1000;

    explicit LectorJson(QStringView texto) : s_(texto) {}

    // The tree: a dictionary or a collection, or Nothing when the text starts with
    // neither "{" nor "[" (ErroresJson "Invalid JSON").
    ValorJson leer();
    // Each walk alone. The quick one gives nothing when the text needs the other; it never
    // reports errors.
    ValorJson leerTolerante();
    std::optional<ValorJson> leerEstricto();

    const QString& ErroresJson() const { return errores_; }

private:
    QChar actual() const { return pos_ < s_.size() ? s_[pos_] : QChar(); }
    bool fin() const { return pos_ >= s_.size(); }

    // The tolerant walk.
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

    // The quick walk: false as soon as the text needs the tolerant one.
    void blancos();
    bool valorEstricto(ValorJson& valor, int profundidad);
    bool objetoEstricto(ValorJson& valor, int profundidad);
    bool coleccionEstricta(ValorJson& valor, int profundidad);

    // Shared by both walks, so that they agree on strings, numbers and keys.
    // A string from its opening quote (double or single) to the matching one or the end.
    QString leerCadena();
    // The characters of a number as the classic decimal conversion reads them, "." being
    // the decimal comma; errors 13 and 6 escape.
    ValorJson convertirNumero(QStringView cifras);
    // A key as a text shared with the last key of the same look (menus repeat theirs).
    QString claveCompartida(QStringView vista);

    QStringView s_;
    qsizetype pos_ = 0;
    QString errores_;
    std::array<QString, 128> claves_;
    // Working space reused from string to string and container to container.
    std::u16string escapado_;
    std::u16string cifras_;
    std::vector<std::pair<QString, ValorJson>> entradasAbiertas_;
    std::vector<ValorJson> itemsAbiertos_;
    std::vector<quint32> trabajoClaves_;
};

// Parses `texto`; when `ErroresJson` is given it receives the error lines of this parse.
// Error 28 escapes when the nesting is deeper than LectorJson::ProfundidadMaxima.
ValorJson JSON_Parse(QStringView texto, QString* ErroresJson = nullptr);
