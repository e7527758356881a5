#pragma once

#include "base/Conversiones.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <memory>
#include <utility>
#include <variant>
#include <vector>

class DiccionarioJson;
class ColeccionJson;

// A value of a JSON document as the desk reads it: Empty (nothing there; an absent key),
// Null, Boolean, an exact decimal, a text, a dictionary (object) or a collection (array),
// or Nothing (no object at all: what a failed parse gives). Dictionaries and collections
// are shared by reference, as objects are: a copy of the value names the same container.
class ValorJson {
public:
    enum class Tipo { Empty, Null, Booleano, Decimal, Texto, Diccionario, Coleccion, Nothing };
    struct Nulo {
        friend bool operator==(Nulo, Nulo) { return true; }
    };
    struct Nada {
        friend bool operator==(Nada, Nada) { return true; }
    };

    ValorJson() = default;
    static ValorJson nulo() { return ValorJson(Nulo{}); }
    static ValorJson nada() { return ValorJson(Nada{}); }
    ValorJson(bool b) : v_(b) {}                    // NOLINT
    ValorJson(const clasico::Decimal& d) : v_(d) {} // NOLINT
    ValorJson(const QString& t) : v_(t) {}          // NOLINT
    ValorJson(std::shared_ptr<DiccionarioJson> d);  // NOLINT
    ValorJson(std::shared_ptr<ColeccionJson> c);    // NOLINT
    ValorJson(int) = delete;                        // a number is a Decimal: say which
    ValorJson(const char*) = delete;                // would read as a Boolean

    Tipo tipo() const { return static_cast<Tipo>(v_.index()); }
    // The classic type names: "Empty", "Null", "Boolean", "Decimal", "String",
    // "Dictionary", "Collection", "Nothing".
    QString TypeName() const;

    bool esEmpty() const { return tipo() == Tipo::Empty; }
    bool esNull() const { return tipo() == Tipo::Null; }
    bool esNothing() const { return tipo() == Tipo::Nothing; }
    bool esObjeto() const { return tipo() == Tipo::Diccionario || tipo() == Tipo::Coleccion; }

    // The classic conversions: Empty is 0, "" or false; Null is error 94 ("Uso no válido
    // de Null"); a decimal rounds half to even and overflows with error 6; a text must be a
    // Spanish number (else error 13); true is -1. Objects and Nothing are error 13.
    qint16 aEntero16() const;
    qint32 aEntero32() const;
    clasico::Decimal aDecimal() const;
    // Text: a decimal with "," ("12,5"), a Boolean as "Verdadero"/"Falso".
    QString aTexto() const;
    // Boolean: a number is true when not 0; a text "Verdadero"/"Falso" (also "True"/"False",
    // any case) or a number.
    bool aBooleano() const;

    // The containers; error 91 ("Variable de objeto...") on Nothing, 13 on any other kind.
    DiccionarioJson& diccionario() const;
    ColeccionJson& coleccion() const;
    std::shared_ptr<DiccionarioJson> diccionarioCompartido() const;
    std::shared_ptr<ColeccionJson> coleccionCompartida() const;

    // Item of a dictionary by key (adds an absent key as Empty) or of a collection by
    // one-based index; with the errors of diccionario()/coleccion().
    ValorJson& Item(const QString& clave) const;
    ValorJson& Item(int indice) const;

    // Identity of objects, equality of plain values (Empty == Empty, Null == Null).
    bool operator==(const ValorJson& otro) const;

private:
    explicit ValorJson(Nulo n) : v_(n) {}
    explicit ValorJson(Nada n) : v_(n) {}

    std::variant<std::monostate, Nulo, bool, clasico::Decimal, QString,
                 std::shared_ptr<DiccionarioJson>, std::shared_ptr<ColeccionJson>, Nada>
        v_;
};

// An object: text keys, compared exactly (case-sensitive), in the order they were added.
class DiccionarioJson {
public:
    int Count() const { return static_cast<int>(entradas_.size()); }
    bool Exists(const QString& clave) const { return buscar(clave) >= 0; }
    // The value of a key; an absent key is added with the Empty value, as the classic
    // dictionary's default property does. The reference stays valid until the next key
    // is added to this dictionary.
    ValorJson& Item(const QString& clave);
    // Adds a key; error 457 when the key is there already (the first value stays).
    void Add(const QString& clave, ValorJson valor);
    // Removes a key; error 5 when absent.
    void Remove(const QString& clave);
    QStringList Keys() const;
    QList<ValorJson> Items() const;
    // The entries in order.
    const std::vector<std::pair<QString, ValorJson>>& entradas() const { return entradas_; }

    // Moves `n` entries, in order, into an empty dictionary at one go; false, taking none,
    // when two of them share a key. `trabajo` is working space the caller may keep from one
    // call to the next.
    bool tomarEntradas(std::pair<QString, ValorJson>* entradas, size_t n,
                       std::vector<quint32>& trabajo);

private:
    qsizetype buscar(QStringView clave) const;
    void annadir(const QString& clave, ValorJson valor);
    void indexar() const;
    void olvidarIndice();

    // Small objects are searched in order. Past a few keys, the first search makes a hash
    // of each key and an open-addressed table of positions (a power of two, at most half
    // full), kept up to date as keys are added; a removal drops it. A tree is read by one
    // thread at a time.
    static constexpr size_t kUmbralIndice = 8;
    std::vector<std::pair<QString, ValorJson>> entradas_;
    mutable std::vector<quint32> hashes_;
    mutable std::vector<quint32> huecos_;
};

// An array: items numbered from 1.
class ColeccionJson {
public:
    int Count() const { return static_cast<int>(items_.size()); }
    void Add(ValorJson valor) { items_.push_back(std::move(valor)); }
    // Moves `n` items, in order, into an empty collection at one go.
    void tomarItems(ValorJson* items, size_t n);
    // Item number `indice`, 1 to Count; error 9 otherwise.
    ValorJson& Item(int indice);
    const std::vector<ValorJson>& items() const { return items_; }

private:
    std::vector<ValorJson> items_;
};
