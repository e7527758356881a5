#include "server/ValorJson.h"

#include "base/ErrorEjecucion.h"

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

qsizetype DiccionarioJson::buscar(const QString& clave) const {
    if (entradas_.size() > kUmbralIndice) {
        return indice_.value(clave, -1);
    }
    for (size_t i = 0; i < entradas_.size(); ++i) {
        if (entradas_[i].first == clave) {
            return static_cast<qsizetype>(i);
        }
    }
    return -1;
}

void DiccionarioJson::annadir(const QString& clave, ValorJson valor) {
    if (entradas_.empty()) {
        entradas_.reserve(4);
    }
    entradas_.emplace_back(clave, std::move(valor));
    if (entradas_.size() == kUmbralIndice + 1) {
        for (size_t i = 0; i < entradas_.size(); ++i) {
            indice_.insert(entradas_[i].first, static_cast<qsizetype>(i));
        }
    } else if (entradas_.size() > kUmbralIndice + 1) {
        indice_.insert(clave, static_cast<qsizetype>(entradas_.size() - 1));
    }
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
    indice_.clear();
    if (entradas_.size() > kUmbralIndice) {
        for (size_t i = 0; i < entradas_.size(); ++i) {
            indice_.insert(entradas_[i].first, static_cast<qsizetype>(i));
        }
    }
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
