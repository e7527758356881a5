#include "server/LectorJson.h"

#include "base/ErrorEjecucion.h"
#include "server/cStringBuilder.h"

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
    const size_t h = (static_cast<size_t>(vista.size()) * 31 + vista.front().unicode() * 7 +
                      vista.back().unicode() * 3) %
                     claves_.size();
    QString& guardada = claves_[h];
    if (guardada != vista) {
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
    const QChar comilla = actual();
    ++pos_;
    cStringBuilder sb;
    const QChar* d = s_.data();
    const qsizetype n = s_.size();
    while (pos_ < n) {
        // A run of ordinary characters goes in at once.
        qsizetype fin = pos_;
        while (fin < n && d[fin] != u'\\' && d[fin] != comilla) {
            ++fin;
        }
        if (fin > pos_) {
            if (sb.Length() == 0 && fin < n && d[fin] == comilla) {
                // A string without escapes: one copy, no buffer.
                const QString r = s_.sliced(pos_, fin - pos_).toString();
                pos_ = fin + 1;
                return r;
            }
            sb.Append(s_.sliced(pos_, fin - pos_));
            pos_ = fin;
            continue;
        }
        if (d[pos_] == comilla) {
            ++pos_;
            return sb.toString();
        }
        // A backslash.
        ++pos_;
        const char16_t e = pos_ < n ? d[pos_].unicode() : 0;
        switch (e) {
        case u'"':
        case u'\\':
        case u'/':
        case u'\'':
            sb.Append(QStringView(&d[pos_], 1));
            ++pos_;
            break;
        case u'b':
            sb.Append(u"\b");
            ++pos_;
            break;
        case u'f':
            sb.Append(u"\f");
            ++pos_;
            break;
        case u'n':
            sb.Append(u"\n");
            ++pos_;
            break;
        case u'r':
            sb.Append(u"\r");
            ++pos_;
            break;
        case u't':
            sb.Append(u"\t");
            ++pos_;
            break;
        case u'u': {
            ++pos_;
            const qsizetype cuantos = qMin<qsizetype>(4, n - pos_);
            const QChar unidad(valorHexadecimal(s_.sliced(pos_, cuantos)));
            sb.Append(QStringView(&unidad, 1));
            pos_ += 4;
            break;
        }
        default:
            // The backslash is dropped; the character comes through as an ordinary one.
            break;
        }
    }
    pos_ = qMin(pos_, n);
    return sb.toString();
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
    // "." becomes the decimal comma; short numbers are converted from a buffer on the stack.
    const qsizetype largo = pos_ - inicio;
    char16_t local[64];
    char16_t* cifras = local;
    if (largo > 64) {
        cifras_.resize(largo);
        cifras = reinterpret_cast<char16_t*>(cifras_.data());
    }
    for (qsizetype k = 0; k < largo; ++k) {
        const char16_t u = s_[inicio + k].unicode();
        cifras[k] = u == u'.' ? u',' : u;
    }
    return ValorJson(clasico::CDec(QStringView(cifras, largo)));
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
