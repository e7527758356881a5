#include "server/LectorJson.h"

#include "base/ErrorEjecucion.h"

#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

const QString kFinLinea = QStringLiteral("\r\n");

bool esCifraDeNumero(QChar c) {
    switch (c.unicode()) {
    case u'+':
    case u'-':
    case u'.':
    case u'e':
    case u'E':
        return true;
    default:
        return c >= u'0' && c <= u'9';
    }
}

// The classic Val of "&h" and up to four characters: hexadecimal digits until the first
// other character (blanks, tabs and line feeds are passed over), as a 16-bit unit.
char16_t valorHexadecimal(QStringView cuatro) {
    unsigned v = 0;
    for (QChar c : cuatro) {
        const char16_t u = c.unicode();
        if (u == u' ' || u == u'\t' || u == u'\n') {
            continue;
        }
        unsigned d = 0;
        if (u >= u'0' && u <= u'9') {
            d = u - u'0';
        } else if (u >= u'a' && u <= u'f') {
            d = u - u'a' + 10;
        } else if (u >= u'A' && u <= u'F') {
            d = u - u'A' + 10;
        } else {
            break;
        }
        v = v * 16 + d;
    }
    return static_cast<char16_t>(v & 0xFFFF);
}

// The first closing quote or backslash from `p`, or `fin`; eight units at a time where
// the machine can.
const char16_t* hastaComillaOBarra(const char16_t* p, const char16_t* fin, char16_t comilla) {
#if defined(__SSE2__)
    const __m128i comillas = _mm_set1_epi16(static_cast<short>(comilla));
    const __m128i barras = _mm_set1_epi16(static_cast<short>(u'\\'));
    while (fin - p >= 8) {
        const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        const int bits = _mm_movemask_epi8(
            _mm_or_si128(_mm_cmpeq_epi16(x, comillas), _mm_cmpeq_epi16(x, barras)));
        if (bits != 0) {
            return p + __builtin_ctz(static_cast<unsigned>(bits)) / 2;
        }
        p += 8;
    }
#endif
    while (p < fin && *p != comilla && *p != u'\\') {
        ++p;
    }
    return p;
}

} // namespace

ValorJson JSON_Parse(QStringView texto, QString* ErroresJson) {
    LectorJson lector(texto);
    ValorJson r = lector.leer();
    if (ErroresJson != nullptr) {
        *ErroresJson = lector.ErroresJson();
    }
    return r;
}

ValorJson LectorJson::leer() {
    if (auto r = leerEstricto()) {
        return std::move(*r);
    }
    return leerTolerante();
}

ValorJson LectorJson::leerTolerante() {
    errores_.clear();
    pos_ = 0;
    saltar();
    if (actual() == u'{') {
        return leerObjeto(1);
    }
    if (actual() == u'[') {
        return leerColeccion(1);
    }
    errores_ = QStringLiteral("Invalid JSON");
    return ValorJson::nada();
}

void LectorJson::saltar() {
    bool enLinea = false;
    bool enBloque = false;
    bool barra = false;
    bool asterisco = false;
    const QChar* d = s_.data();
    const qsizetype n = s_.size();
    while (pos_ < n) {
        switch (d[pos_].unicode()) {
        case u'\r':
        case u'\n':
            if (!enBloque) {
                enLinea = false;
                barra = false;
                asterisco = false;
            }
            break;
        case u'\t':
        case u' ':
        case u'(':
        case u')':
            break;
        case u'/':
            if (!enBloque) {
                if (barra) {
                    enLinea = true;
                    barra = false;
                } else {
                    barra = true;
                }
            } else if (asterisco) {
                enBloque = false;
                asterisco = false;
            }
            break;
        case u'*':
            if (barra) {
                enBloque = true;
                barra = false;
            } else {
                asterisco = true;
            }
            break;
        default:
            if (!enLinea && !enBloque) {
                return;
            }
            break;
        }
        ++pos_;
    }
}

QString LectorJson::posicionYResto() const {
    return QString::number(pos_ + 1) + QStringLiteral(" : ") +
           s_.mid(qMin(pos_, s_.size())).toString();
}

ValorJson LectorJson::leerValor(int profundidad) {
    saltar();
    switch (actual().unicode()) {
    case u'{':
        return leerObjeto(profundidad + 1);
    case u'[':
        return leerColeccion(profundidad + 1);
    case u'"':
    case u'\'':
        return leerTexto();
    case u't':
    case u'f':
        return leerBooleano();
    case u'n':
        return leerNulo();
    default:
        return leerNumero();
    }
}

ValorJson LectorJson::leerObjeto(int profundidad) {
    if (profundidad > ProfundidadMaxima) {
        throw ErrorEjecucion(ErrorEjecucion::EspacioDePilaInsuficiente);
    }
    auto dic = std::make_shared<DiccionarioJson>();
    saltar();
    if (actual() != u'{') {
        errores_ += QStringLiteral("Invalid Object at position ") + posicionYResto() + kFinLinea;
        return dic;
    }
    ++pos_;
    for (;;) {
        saltar();
        if (actual() == u'}') {
            ++pos_;
            break;
        }
        if (actual() == u',') {
            ++pos_;
            saltar();
        } else if (fin()) {
            errores_ += QStringLiteral("Missing '}': ") + s_.right(20).toString() + kFinLinea;
            break;
        }
        const QString clave = leerClave();
        try {
            ValorJson valor = leerValor(profundidad);
            dic->Add(clave, std::move(valor));
        } catch (const ErrorEjecucion& e) {
            if (e.numero() == ErrorEjecucion::EspacioDePilaInsuficiente) {
                throw;
            }
            errores_ += e.descripcion() + QStringLiteral(": ") + clave + kFinLinea;
            break;
        }
    }
    return dic;
}

ValorJson LectorJson::leerColeccion(int profundidad) {
    if (profundidad > ProfundidadMaxima) {
        throw ErrorEjecucion(ErrorEjecucion::EspacioDePilaInsuficiente);
    }
    auto col = std::make_shared<ColeccionJson>();
    saltar();
    if (actual() != u'[') {
        errores_ += QStringLiteral("Invalid Array at position ") + QString::number(pos_ + 1) +
                    QStringLiteral(" : ") + s_.mid(qMin(pos_, s_.size()), 20).toString() +
                    kFinLinea;
        return col;
    }
    ++pos_;
    for (;;) {
        saltar();
        if (actual() == u']') {
            ++pos_;
            break;
        }
        if (actual() == u',') {
            ++pos_;
            saltar();
        } else if (fin()) {
            errores_ += QStringLiteral("Missing ']': ") + s_.right(20).toString() + kFinLinea;
            break;
        }
        const qsizetype antes = pos_;
        try {
            col->Add(leerValor(profundidad));
            // A constant that cannot be read takes no character; reading it again would
            // never end, so the array ends here.
            if (pos_ == antes) {
                break;
            }
        } catch (const ErrorEjecucion& e) {
            if (e.numero() == ErrorEjecucion::EspacioDePilaInsuficiente) {
                throw;
            }
            errores_ += e.descripcion() + QStringLiteral(": ") +
                        s_.mid(qMin(pos_, s_.size()), 20).toString() + kFinLinea;
            break;
        }
    }
    return col;
}

namespace {

// The characters of a key, gathered as one view of the text while they are contiguous
// (the usual case), so that a repeated key costs no new text.
class ClaveEnCurso {
public:
    void annadir(QStringView trozo) {
        if (!copia_ && (vista_.isEmpty() || vista_.data() + vista_.size() == trozo.data())) {
            vista_ =
                vista_.isEmpty() ? trozo : QStringView(vista_.data(), vista_.size() + trozo.size());
            return;
        }
        if (!copia_) {
            texto_ = vista_.toString();
            copia_ = true;
        }
        texto_.append(trozo);
    }
    QString texto() const { return copia_ ? texto_ : vista_.toString(); }
    bool esVista() const { return !copia_; }
    QStringView vista() const { return vista_; }

private:
    QStringView vista_;
    QString texto_;
    bool copia_ = false;
};

} // namespace

QString LectorJson::claveCompartida(QStringView vista) {
    if (vista.isEmpty()) {
        return QString();
    }
    const size_t n = static_cast<size_t>(vista.size());
    const char16_t* d = vista.utf16();
    const size_t h =
        (n * 0x9E3779B1u ^ d[0] * 0x85EBCA77u ^ d[n / 2] * 0xC2B2AE3Du ^ d[n - 1] * 0x27D4EB2Fu) >>
        7;
    QString& guardada = claves_[h % claves_.size()];
    if (static_cast<size_t>(guardada.size()) != n ||
        std::memcmp(guardada.constData(), d, n * sizeof(char16_t)) != 0) {
        guardada = vista.toString();
    }
    return guardada;
}

QString LectorJson::leerClave() {
    saltar();
    ClaveEnCurso clave;
    auto resultado = [&] {
        return clave.esVista() ? claveCompartida(clave.vista()) : clave.texto();
    };
    bool dobles = false;
    bool simples = false;
    while (!fin()) {
        const QChar c = s_[pos_];
        if (c == u'"' || c == u'\'') {
            bool& estado = c == u'"' ? dobles : simples;
            estado = !estado;
            ++pos_;
            if (!estado) {
                saltar();
                if (actual() != u':') {
                    errores_ += QStringLiteral("Invalid Key at position ") +
                                QString::number(pos_ + 1) + QStringLiteral(" : ") + clave.texto() +
                                kFinLinea;
                    return resultado();
                }
            }
        } else if (c == u':') {
            ++pos_;
            if (!dobles && !simples) {
                return resultado();
            }
            clave.annadir(s_.sliced(pos_ - 1, 1));
        } else if (c == u'\r' || c == u'\n' || c == u'\t' || c == u' ') {
            ++pos_;
        } else {
            // A run of ordinary characters joins the key at once.
            const qsizetype desde = pos_;
            while (!fin()) {
                const char16_t u = s_[pos_].unicode();
                if (u == u'"' || u == u'\'' || u == u':' || u == u'\r' || u == u'\n' ||
                    u == u'\t' || u == u' ') {
                    break;
                }
                ++pos_;
            }
            clave.annadir(s_.sliced(desde, pos_ - desde));
        }
    }
    return resultado();
}

QString LectorJson::leerTexto() {
    saltar();
    return leerCadena();
}

QString LectorJson::leerCadena() {
    const char16_t* d = s_.utf16();
    const char16_t* const fin = d + s_.size();
    const char16_t comilla = d[pos_];
    const char16_t* p = d + pos_ + 1;
    const char16_t* q = hastaComillaOBarra(p, fin, comilla);
    if (q < fin && *q == comilla) {
        // A string without escapes: one copy, no buffer.
        pos_ = q + 1 - d;
        return q == p ? QString() : QString(reinterpret_cast<const QChar*>(p), q - p);
    }
    escapado_.clear();
    for (;;) {
        escapado_.append(p, q);
        if (q == fin) {
            p = fin;
            break;
        }
        if (*q == comilla) {
            p = q + 1;
            break;
        }
        // A backslash.
        p = q + 1;
        const char16_t e = p < fin ? *p : 0;
        switch (e) {
        case u'"':
        case u'\\':
        case u'/':
        case u'\'':
            escapado_.push_back(e);
            ++p;
            break;
        case u'b':
            escapado_.push_back(u'\b');
            ++p;
            break;
        case u'f':
            escapado_.push_back(u'\f');
            ++p;
            break;
        case u'n':
            escapado_.push_back(u'\n');
            ++p;
            break;
        case u'r':
            escapado_.push_back(u'\r');
            ++p;
            break;
        case u't':
            escapado_.push_back(u'\t');
            ++p;
            break;
        case u'u': {
            ++p;
            // Four characters are passed over, or as many as the text still has.
            const qsizetype cuantos = qMin<qsizetype>(4, fin - p);
            escapado_.push_back(valorHexadecimal(QStringView(p, cuantos)));
            p += cuantos;
            break;
        }
        default:
            // The backslash is dropped; the character comes through as an ordinary one.
            break;
        }
        q = hastaComillaOBarra(p, fin, comilla);
    }
    pos_ = p - d;
    return escapado_.empty() ? QString()
                             : QString(reinterpret_cast<const QChar*>(escapado_.data()),
                                       static_cast<qsizetype>(escapado_.size()));
}

ValorJson LectorJson::leerNumero() {
    saltar();
    const qsizetype inicio = pos_;
    while (!fin() && esCifraDeNumero(s_[pos_])) {
        ++pos_;
    }
    if (fin()) {
        return ValorJson();
    }
    return convertirNumero(s_.sliced(inicio, pos_ - inicio));
}

ValorJson LectorJson::convertirNumero(QStringView cifras) {
    // Whole numbers of up to 18 digits, the usual case, need no text.
    const char16_t* c = cifras.utf16();
    const qsizetype n = cifras.size();
    const bool negativo = n > 0 && c[0] == u'-';
    const qsizetype desde = negativo ? 1 : 0;
    if (n - desde >= 1 && n - desde <= 18) {
        qint64 v = 0;
        qsizetype k = desde;
        for (; k < n; ++k) {
            const unsigned cifra = static_cast<unsigned>(c[k]) - u'0';
            if (cifra > 9) {
                break;
            }
            v = v * 10 + cifra;
        }
        if (k == n) {
            return ValorJson(clasico::Decimal(negativo ? -v : v));
        }
    }
    // "." becomes the decimal comma.
    cifras_.assign(c, c + n);
    for (char16_t& u : cifras_) {
        if (u == u'.') {
            u = u',';
        }
    }
    return ValorJson(clasico::CDec(QStringView(cifras_.data(), n)));
}

ValorJson LectorJson::leerBooleano() {
    if (s_.sliced(pos_).startsWith(u"true")) {
        pos_ += 4;
        return ValorJson(true);
    }
    if (s_.sliced(pos_).startsWith(u"false")) {
        pos_ += 5;
        return ValorJson(false);
    }
    errores_ += QStringLiteral("Invalid Boolean at position ") + posicionYResto() + kFinLinea;
    return ValorJson(false);
}

ValorJson LectorJson::leerNulo() {
    if (s_.sliced(pos_).startsWith(u"null")) {
        pos_ += 4;
        return ValorJson::nulo();
    }
    errores_ += QStringLiteral("Invalid null value at position ") + posicionYResto() + kFinLinea;
    return ValorJson();
}
