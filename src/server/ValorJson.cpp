#include "server/ValorJson.h"

#include "base/ErrorEjecucion.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

constexpr int kUsoNoValidoDeNull = 94;
constexpr int kClaveRepetida = 457;

[[noreturn]] void error(int numero) {
    throw ErrorEjecucion(numero);
}

} // namespace

ValorJson::ValorJson(std::shared_ptr<DiccionarioJson> d) {
    if (d) {
        v_ = std::move(d);
    } else {
        v_ = Nada{};
    }
}

ValorJson::ValorJson(std::shared_ptr<ColeccionJson> c) {
    if (c) {
        v_ = std::move(c);
    } else {
        v_ = Nada{};
    }
}

QString ValorJson::TypeName() const {
    switch (tipo()) {
    case Tipo::Empty:
        return QStringLiteral("Empty");
    case Tipo::Null:
        return QStringLiteral("Null");
    case Tipo::Booleano:
        return QStringLiteral("Boolean");
    case Tipo::Decimal:
        return QStringLiteral("Decimal");
    case Tipo::Texto:
        return QStringLiteral("String");
    case Tipo::Diccionario:
        return QStringLiteral("Dictionary");
    case Tipo::Coleccion:
        return QStringLiteral("Collection");
    case Tipo::Nothing:
        break;
    }
    return QStringLiteral("Nothing");
}

clasico::Decimal ValorJson::aDecimal() const {
    switch (tipo()) {
    case Tipo::Empty:
        return clasico::Decimal();
    case Tipo::Null:
        error(kUsoNoValidoDeNull);
    case Tipo::Booleano:
        return clasico::Decimal(std::get<bool>(v_) ? -1 : 0);
    case Tipo::Decimal:
        return std::get<clasico::Decimal>(v_);
    case Tipo::Texto:
        return clasico::CDec(std::get<QString>(v_));
    default:
        error(ErrorEjecucion::NoCoincidenLosTipos);
    }
}

qint16 ValorJson::aEntero16() const {
    return aDecimal().aEntero16();
}
qint32 ValorJson::aEntero32() const {
    return aDecimal().aEntero32();
}

QString ValorJson::aTexto() const {
    switch (tipo()) {
    case Tipo::Empty:
        return QString();
    case Tipo::Null:
        error(kUsoNoValidoDeNull);
    case Tipo::Booleano:
        return clasico::TextoBooleano(std::get<bool>(v_));
    case Tipo::Decimal:
        return std::get<clasico::Decimal>(v_).aTexto();
    case Tipo::Texto:
        return std::get<QString>(v_);
    default:
        error(ErrorEjecucion::NoCoincidenLosTipos);
    }
}

bool ValorJson::aBooleano() const {
    switch (tipo()) {
    case Tipo::Empty:
        return false;
    case Tipo::Null:
        error(kUsoNoValidoDeNull);
    case Tipo::Booleano:
        return std::get<bool>(v_);
    case Tipo::Decimal:
        return !std::get<clasico::Decimal>(v_).esCero();
    case Tipo::Texto: {
        const QString t = clasico::Trim(std::get<QString>(v_));
        if (t.compare(QStringLiteral("Verdadero"), Qt::CaseInsensitive) == 0 ||
            t.compare(QStringLiteral("True"), Qt::CaseInsensitive) == 0) {
            return true;
        }
        if (t.compare(QStringLiteral("Falso"), Qt::CaseInsensitive) == 0 ||
            t.compare(QStringLiteral("False"), Qt::CaseInsensitive) == 0) {
            return false;
        }
        return !clasico::CDec(t).esCero();
    }
    default:
        error(ErrorEjecucion::NoCoincidenLosTipos);
    }
}

DiccionarioJson& ValorJson::diccionario() const {
    return *diccionarioCompartido();
}
ColeccionJson& ValorJson::coleccion() const {
    return *coleccionCompartida();
}

std::shared_ptr<DiccionarioJson> ValorJson::diccionarioCompartido() const {
    if (tipo() == Tipo::Nothing) {
        error(ErrorEjecucion::VariableDeObjetoNoEstablecida);
    }
    if (tipo() != Tipo::Diccionario) {
        error(ErrorEjecucion::NoCoincidenLosTipos);
    }
    return std::get<std::shared_ptr<DiccionarioJson>>(v_);
}

std::shared_ptr<ColeccionJson> ValorJson::coleccionCompartida() const {
    if (tipo() == Tipo::Nothing) {
        error(ErrorEjecucion::VariableDeObjetoNoEstablecida);
    }
    if (tipo() != Tipo::Coleccion) {
        error(ErrorEjecucion::NoCoincidenLosTipos);
    }
    return std::get<std::shared_ptr<ColeccionJson>>(v_);
}

ValorJson& ValorJson::Item(const QString& clave) const {
    return diccionario().Item(clave);
}
ValorJson& ValorJson::Item(int indice) const {
    return coleccion().Item(indice);
}

bool ValorJson::operator==(const ValorJson& otro) const {
    return v_ == otro.v_;
}

namespace {

bool mismaClave(const QString& a, QStringView b) {
    // An empty key may come as a null view: no bytes to compare, and memcmp must not see it.
    return a.size() == b.size() &&
           (b.isEmpty() || a.constData() == reinterpret_cast<const QChar*>(b.data()) ||
            std::memcmp(a.constData(), b.data(), static_cast<size_t>(b.size()) * 2) == 0);
}

// A quick hash of the UTF-16 units, four at a time.
quint32 hashDeClave(QStringView clave) {
    const char16_t* d = clave.utf16();
    qsizetype n = clave.size();
    quint64 h = 0x9E3779B97F4A7C15ULL ^ static_cast<quint64>(n);
    auto mezclar = [&h](quint64 w) {
        h = (h ^ w) * 0xBF58476D1CE4E5B9ULL;
        h ^= h >> 31;
    };
    for (; n >= 4; n -= 4, d += 4) {
        quint64 w;
        std::memcpy(&w, d, sizeof w);
        mezclar(w);
    }
    if (n > 0) {
        quint64 w = 0;
        std::memcpy(&w, d, static_cast<size_t>(n) * 2);
        mezclar(w);
    }
    return static_cast<quint32>(h ^ (h >> 32));
}

} // namespace

namespace {

constexpr quint32 kHuecoLibre = 0xFFFFFFFFu;

size_t tamannoDeTabla(size_t entradas) {
    size_t t = 32;
    while (t < entradas * 2) {
        t *= 2;
    }
    return t;
}

// Puts entry `i` in the table; the entry that has the same key, or -1 when it went in.
qsizetype colocar(const std::pair<QString, ValorJson>* entradas, const quint32* hashes,
                  quint32* huecos, size_t mascara, size_t i) {
    for (size_t k = hashes[i] & mascara;; k = (k + 1) & mascara) {
        const quint32 j = huecos[k];
        if (j == kHuecoLibre) {
            huecos[k] = static_cast<quint32>(i);
            return -1;
        }
        if (hashes[j] == hashes[i] && mismaClave(entradas[j].first, entradas[i].first)) {
            return j;
        }
    }
}

} // namespace

void DiccionarioJson::indexar() const {
    hashes_.resize(entradas_.size());
    for (size_t i = 0; i < entradas_.size(); ++i) {
        hashes_[i] = hashDeClave(entradas_[i].first);
    }
    huecos_.assign(tamannoDeTabla(entradas_.size()), kHuecoLibre);
    for (size_t i = 0; i < entradas_.size(); ++i) {
        colocar(entradas_.data(), hashes_.data(), huecos_.data(), huecos_.size() - 1, i);
    }
}

void DiccionarioJson::olvidarIndice() {
    hashes_.clear();
    huecos_.clear();
}

qsizetype DiccionarioJson::buscar(QStringView clave) const {
    if (entradas_.size() <= kUmbralIndice) {
        for (size_t i = 0; i < entradas_.size(); ++i) {
            if (mismaClave(entradas_[i].first, clave)) {
                return static_cast<qsizetype>(i);
            }
        }
        return -1;
    }
    if (huecos_.empty()) {
        indexar();
    }
    const quint32 h = hashDeClave(clave);
    const size_t mascara = huecos_.size() - 1;
    for (size_t k = h & mascara;; k = (k + 1) & mascara) {
        const quint32 i = huecos_[k];
        if (i == kHuecoLibre) {
            return -1;
        }
        if (hashes_[i] == h && mismaClave(entradas_[i].first, clave)) {
            return i;
        }
    }
}

void DiccionarioJson::annadir(const QString& clave, ValorJson valor) {
    if (entradas_.empty()) {
        entradas_.reserve(4);
    }
    entradas_.emplace_back(clave, std::move(valor));
    if (huecos_.empty()) {
        return;
    }
    if (entradas_.size() * 2 > huecos_.size()) {
        olvidarIndice();
        return;
    }
    hashes_.push_back(hashDeClave(clave));
    colocar(entradas_.data(), hashes_.data(), huecos_.data(), huecos_.size() - 1,
            entradas_.size() - 1);
}

bool DiccionarioJson::tomarEntradas(std::pair<QString, ValorJson>* entradas, size_t n,
                                    std::vector<quint32>& trabajo) {
    if (n <= kUmbralIndice) {
        for (size_t i = 1; i < n; ++i) {
            for (size_t j = 0; j < i; ++j) {
                if (mismaClave(entradas[j].first, entradas[i].first)) {
                    return false;
                }
            }
        }
    } else {
        // The hashes first, then the table, in the caller's working space.
        const size_t tamanno = tamannoDeTabla(n);
        trabajo.resize(n + tamanno);
        std::fill(trabajo.begin() + static_cast<std::ptrdiff_t>(n), trabajo.end(), kHuecoLibre);
        for (size_t i = 0; i < n; ++i) {
            trabajo[i] = hashDeClave(entradas[i].first);
        }
        for (size_t i = 0; i < n; ++i) {
            if (colocar(entradas, trabajo.data(), trabajo.data() + n, tamanno - 1, i) >= 0) {
                return false;
            }
        }
    }
    entradas_.assign(std::make_move_iterator(entradas), std::make_move_iterator(entradas + n));
    return true;
}

ValorJson& DiccionarioJson::Item(const QString& clave) {
    const qsizetype i = buscar(clave);
    if (i >= 0) {
        return entradas_[static_cast<size_t>(i)].second;
    }
    annadir(clave, ValorJson());
    return entradas_.back().second;
}

void DiccionarioJson::Add(const QString& clave, ValorJson valor) {
    if (buscar(clave) >= 0) {
        error(kClaveRepetida);
    }
    annadir(clave, std::move(valor));
}

void DiccionarioJson::Remove(const QString& clave) {
    const qsizetype posicion = buscar(clave);
    if (posicion < 0) {
        error(ErrorEjecucion::ArgumentoNoValido);
    }
    entradas_.erase(entradas_.begin() + static_cast<std::ptrdiff_t>(posicion));
    olvidarIndice();
}

QStringList DiccionarioJson::Keys() const {
    QStringList r;
    r.reserve(static_cast<qsizetype>(entradas_.size()));
    for (const auto& e : entradas_) {
        r.append(e.first);
    }
    return r;
}

QList<ValorJson> DiccionarioJson::Items() const {
    QList<ValorJson> r;
    r.reserve(static_cast<qsizetype>(entradas_.size()));
    for (const auto& e : entradas_) {
        r.append(e.second);
    }
    return r;
}

ValorJson& ColeccionJson::Item(int indice) {
    if (indice < 1 || indice > Count()) {
        error(ErrorEjecucion::SubindiceFueraDeIntervalo);
    }
    return items_[static_cast<size_t>(indice - 1)];
}

void ColeccionJson::tomarItems(ValorJson* items, size_t n) {
    items_.assign(std::make_move_iterator(items), std::make_move_iterator(items + n));
}
