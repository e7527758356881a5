// The quick walk of the JSON reader: plain JSON only, read over the UTF-16 units with no
// error texts. Whatever would take the tolerant walk down another road (a comment, a round
// bracket, a key without double quotes or with blanks, a missing comma, a repeated key,
// a number that does not convert, the end of the text before the last bracket) makes it
// give up, and the tolerant walk reads the whole text again.
#include "base/ErrorEjecucion.h"
#include "server/LectorJson.h"

#include <memory>

std::optional<ValorJson> LectorJson::leerEstricto() {
    errores_.clear();
    pos_ = 0;
    entradasAbiertas_.clear();
    itemsAbiertos_.clear();
    // Room for the open containers of a usual reply, so the stacks seldom grow.
    entradasAbiertas_.reserve(64);
    itemsAbiertos_.reserve(64);
    blancos();
    ValorJson valor;
    bool leido = false;
    if (actual() == u'{') {
        leido = objetoEstricto(valor, 1);
    } else if (actual() == u'[') {
        leido = coleccionEstricta(valor, 1);
    }
    if (!leido) {
        entradasAbiertas_.clear();
        itemsAbiertos_.clear();
        return std::nullopt;
    }
    return valor;
}

void LectorJson::blancos() {
    const char16_t* d = s_.utf16();
    const qsizetype n = s_.size();
    while (pos_ < n) {
        const char16_t u = d[pos_];
        if (u != u' ' && u != u'\n' && u != u'\r' && u != u'\t') {
            return;
        }
        ++pos_;
    }
}

bool LectorJson::valorEstricto(ValorJson& valor, int profundidad) {
    blancos();
    const char16_t* d = s_.utf16();
    const qsizetype n = s_.size();
    if (pos_ >= n) {
        return false;
    }
    switch (d[pos_]) {
    case u'{':
        return objetoEstricto(valor, profundidad + 1);
    case u'[':
        return coleccionEstricta(valor, profundidad + 1);
    case u'"':
    case u'\'':
        valor = leerCadena();
        return true;
    case u't':
        if (s_.sliced(pos_).startsWith(u"true")) {
            pos_ += 4;
            valor = ValorJson(true);
            return true;
        }
        return false;
    case u'f':
        if (s_.sliced(pos_).startsWith(u"false")) {
            pos_ += 5;
            valor = ValorJson(false);
            return true;
        }
        return false;
    case u'n':
        if (s_.sliced(pos_).startsWith(u"null")) {
            pos_ += 4;
            valor = ValorJson::nulo();
            return true;
        }
        return false;
    default:
        break;
    }
    const qsizetype inicio = pos_;
    for (; pos_ < n; ++pos_) {
        const char16_t u = d[pos_];
        if (!((u >= u'0' && u <= u'9') || u == u'-' || u == u'.' || u == u'+' || u == u'e' ||
              u == u'E')) {
            break;
        }
    }
    // Cut by the end of the text, the tolerant walk gives Empty and then misses a bracket.
    if (pos_ == inicio || pos_ >= n) {
        return false;
    }
    try {
        valor = convertirNumero(s_.sliced(inicio, pos_ - inicio));
    } catch (const ErrorEjecucion&) {
        return false;
    }
    return true;
}

bool LectorJson::objetoEstricto(ValorJson& valor, int profundidad) {
    if (profundidad > ProfundidadMaxima) {
        return false;
    }
    const char16_t* d = s_.utf16();
    const qsizetype n = s_.size();
    const size_t base = entradasAbiertas_.size();
    ++pos_;
    blancos();
    if (pos_ < n && d[pos_] == u'}') {
        ++pos_;
    } else {
        for (;;) {
            if (pos_ >= n || d[pos_] != u'"') {
                return false;
            }
            const qsizetype inicio = ++pos_;
            for (;; ++pos_) {
                if (pos_ >= n) {
                    return false;
                }
                const char16_t u = d[pos_];
                if (u == u'"') {
                    break;
                }
                // The tolerant walk drops blanks from keys and takes a single quote as one.
                if (u == u'\'' || u == u' ' || u == u'\t' || u == u'\r' || u == u'\n') {
                    return false;
                }
            }
            const QStringView clave(d + inicio, pos_ - inicio);
            ++pos_;
            blancos();
            if (pos_ >= n || d[pos_] != u':') {
                return false;
            }
            ++pos_;
            ValorJson item;
            if (!valorEstricto(item, profundidad)) {
                return false;
            }
            entradasAbiertas_.emplace_back(claveCompartida(clave), std::move(item));
            blancos();
            if (pos_ < n && d[pos_] == u',') {
                ++pos_;
                blancos();
                continue;
            }
            if (pos_ < n && d[pos_] == u'}') {
                ++pos_;
                break;
            }
            return false;
        }
    }
    auto dic = std::make_shared<DiccionarioJson>();
    if (!dic->tomarEntradas(entradasAbiertas_.data() + base, entradasAbiertas_.size() - base,
                            trabajoClaves_)) {
        return false;
    }
    entradasAbiertas_.resize(base);
    valor = ValorJson(std::move(dic));
    return true;
}

bool LectorJson::coleccionEstricta(ValorJson& valor, int profundidad) {
    if (profundidad > ProfundidadMaxima) {
        return false;
    }
    const char16_t* d = s_.utf16();
    const qsizetype n = s_.size();
    const size_t base = itemsAbiertos_.size();
    ++pos_;
    blancos();
    if (pos_ < n && d[pos_] == u']') {
        ++pos_;
    } else {
        for (;;) {
            ValorJson item;
            if (!valorEstricto(item, profundidad)) {
                return false;
            }
            itemsAbiertos_.push_back(std::move(item));
            blancos();
            if (pos_ < n && d[pos_] == u',') {
                ++pos_;
                continue;
            }
            if (pos_ < n && d[pos_] == u']') {
                ++pos_;
                break;
            }
            return false;
        }
    }
    auto col = std::make_shared<ColeccionJson>();
    col->tomarItems(itemsAbiertos_.data() + base, itemsAbiertos_.size() - base);
    itemsAbiertos_.resize(base);
    valor = ValorJson(std::move(col));
    return true;
}
