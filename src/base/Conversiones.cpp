#include "base/Conversiones.h"

#include "base/ErrorEjecucion.h"
#include "base/Windows1252.h"

#include <QTimeZone>
#include <array>
#include <cmath>
#include <limits>
#include <string>

namespace clasico {
namespace {

__extension__ typedef unsigned __int128 Ancho;

constexpr Ancho kLimite96 = Ancho(1) << 96;

constexpr std::array<Ancho, 39> potenciasDeDiez() {
    std::array<Ancho, 39> p{};
    p[0] = 1;
    for (size_t i = 1; i < p.size(); ++i) {
        p[i] = p[i - 1] * 10;
    }
    return p;
}
constexpr auto kPot10 = potenciasDeDiez();

constexpr QChar kEuro(0x20AC);

bool esBlanco(QChar c) {
    return c == u' ' || c == u'\t';
}
bool esDigito(QChar c) {
    return c >= u'0' && c <= u'9';
}

// Divides by 10^k rounding half to even (k up to 38).
Ancho dividirRedondeando(Ancho m, int k) {
    if (k <= 0) {
        return m;
    }
    if (k > 38) {
        return 0;
    }
    const Ancho d = kPot10[static_cast<size_t>(k)];
    Ancho q = m / d;
    const Ancho r = m % d;
    const Ancho mitad = d / 2;
    if (r > mitad || (r == mitad && (q & 1) != 0)) {
        ++q;
    }
    return q;
}

// What the lexical test found: the significant digits (no leading zeros) and the power
// of ten they are multiplied by.
struct NumeroLeido {
    bool negativo = false;
    std::string digitos;
    long exponente = 0;
};

std::optional<NumeroLeido> analizar(QStringView t) {
    const qsizetype n = t.size();
    qsizetype i = 0;
    auto saltarBlancos = [&] {
        while (i < n && esBlanco(t[i])) {
            ++i;
        }
    };
    NumeroLeido r;
    bool haySigno = false;
    bool hayEuro = false;
    // Sign and euro sign, each at most once, in either order.
    auto adornos = [&] {
        for (int vuelta = 0; vuelta < 2; ++vuelta) {
            saltarBlancos();
            if (i < n && !haySigno && (t[i] == u'+' || t[i] == u'-')) {
                haySigno = true;
                r.negativo = t[i] == u'-';
                ++i;
            } else if (i < n && !hayEuro && t[i] == kEuro) {
                hayEuro = true;
                ++i;
            }
        }
        saltarBlancos();
    };

    adornos();
    bool hayDigito = false;
    bool enFraccion = false;
    long digitosFraccion = 0;
    bool previoDigito = false;
    for (; i < n; ++i) {
        const QChar c = t[i];
        if (esDigito(c)) {
            hayDigito = true;
            previoDigito = true;
            if (!(r.digitos.empty() && c == u'0')) {
                r.digitos.push_back(static_cast<char>(c.unicode()));
            }
            if (enFraccion) {
                ++digitosFraccion;
            }
        } else if (c == u'.' && !enFraccion && previoDigito) {
            previoDigito = false; // a thousands mark must follow a digit
        } else if (c == u',' && !enFraccion) {
            enFraccion = true;
            previoDigito = false;
        } else {
            break;
        }
    }
    if (!hayDigito) {
        return std::nullopt;
    }
    long exponente = 0;
    if (i < n && (t[i] == u'e' || t[i] == u'E' || t[i] == u'd' || t[i] == u'D')) {
        ++i;
        bool expNegativo = false;
        if (i < n && (t[i] == u'+' || t[i] == u'-')) {
            expNegativo = t[i] == u'-';
            ++i;
        }
        if (i >= n || !esDigito(t[i])) {
            return std::nullopt;
        }
        for (; i < n && esDigito(t[i]); ++i) {
            if (exponente < 1000000) {
                exponente = exponente * 10 + (t[i].unicode() - u'0');
            }
        }
        if (expNegativo) {
            exponente = -exponente;
        }
    }
    adornos();
    if (i != n) {
        return std::nullopt;
    }
    r.exponente = exponente - digitosFraccion;
    return r;
}

} // namespace

Decimal::Decimal(qint64 entero)
    : bajo_(entero < 0 ? quint64(-(entero + 1)) + 1 : quint64(entero)), negativo_(entero < 0) {}

Decimal::Decimal(Ancho mantisa, int escala, bool negativo)
    : bajo_(static_cast<quint64>(mantisa)), alto_(static_cast<quint32>(mantisa >> 64)),
      escala_(static_cast<quint8>(escala)), negativo_(negativo && mantisa != 0) {}

// Brings a magnitude of any size below 2^96 and a scale to 0..28 by dropping digits of
// the fraction (half to even); error 6 when the whole part alone does not fit.
Decimal Decimal::normalizado(Ancho mantisa, int escala, bool negativo) {
    if (escala > EscalaMaxima) {
        mantisa = dividirRedondeando(mantisa, escala - EscalaMaxima);
        escala = EscalaMaxima;
    }
    while (mantisa >= kLimite96) {
        if (escala == 0) {
            throw ErrorEjecucion(ErrorEjecucion::Desbordamiento);
        }
        mantisa = dividirRedondeando(mantisa, 1);
        --escala;
    }
    return Decimal(mantisa, escala, negativo);
}

std::optional<Decimal> Decimal::leer(QStringView texto) {
    const auto leido = analizar(texto);
    if (!leido) {
        return std::nullopt;
    }
    const std::string& d = leido->digitos;
    if (d.empty()) {
        return Decimal();
    }
    const long largo = static_cast<long>(d.size());
    // Whole digits beyond 29 can never fit in 96 bits.
    if (largo + leido->exponente > 29) {
        throw ErrorEjecucion(ErrorEjecucion::Desbordamiento);
    }
    long escala = leido->exponente < 0 ? -leido->exponente : 0;
    // Keep at most 30 significant digits and the scale within reach of the rounding.
    long quitar = 0;
    if (largo > 30) {
        quitar = largo - 30;
    }
    if (escala - quitar > EscalaMaxima + 1) {
        quitar = escala - (EscalaMaxima + 1);
    }
    if (quitar >= largo) {
        // Every digit lies beyond the places kept: the value rounds to 0 or to one unit
        // of the last place kept, which only happens past the 29th place: zero.
        return Decimal();
    }
    Ancho m = 0;
    for (long k = 0; k < largo - quitar; ++k) {
        m = m * 10 + static_cast<unsigned>(d[static_cast<size_t>(k)] - '0');
    }
    if (quitar > 0) {
        // Round on the digits dropped: above half up, exactly half to even.
        const char primero = d[static_cast<size_t>(largo - quitar)];
        bool restoNoCero = false;
        for (long k = largo - quitar + 1; k < largo; ++k) {
            if (d[static_cast<size_t>(k)] != '0') {
                restoNoCero = true;
                break;
            }
        }
        if (primero > '5' || (primero == '5' && (restoNoCero || (m & 1) != 0))) {
            ++m;
        }
    }
    if (leido->exponente > 0) {
        m *= kPot10[static_cast<size_t>(leido->exponente)];
    }
    escala -= quitar;
    return normalizado(m, static_cast<int>(escala), leido->negativo);
}

Decimal Decimal::desdeTexto(QStringView texto) {
    auto v = leer(texto);
    if (!v) {
        throw ErrorEjecucion(ErrorEjecucion::NoCoincidenLosTipos);
    }
    return *v;
}

QString Decimal::aTexto() const {
    Ancho m = mantisa();
    int escala = escala_;
    while (escala > 0 && m % 10 == 0) {
        m /= 10;
        --escala;
    }
    std::string cifras;
    do {
        cifras.insert(cifras.begin(), static_cast<char>('0' + static_cast<int>(m % 10)));
        m /= 10;
    } while (m != 0);
    while (static_cast<int>(cifras.size()) <= escala) {
        cifras.insert(cifras.begin(), '0');
    }
    QString r;
    if (negativo()) {
        r += u'-';
    }
    const size_t enteros = cifras.size() - static_cast<size_t>(escala);
    r += QString::fromLatin1(cifras.data(), static_cast<qsizetype>(enteros));
    if (escala > 0) {
        r += u',';
        r += QString::fromLatin1(cifras.data() + enteros, escala);
    }
    return r;
}

Decimal Decimal::redondeado() const {
    return Decimal(dividirRedondeando(mantisa(), escala_), 0, negativo_);
}

qint32 Decimal::aEntero32() const {
    const Ancho m = dividirRedondeando(mantisa(), escala_);
    if (negativo() ? m > Ancho(2147483648u) : m > Ancho(2147483647)) {
        throw ErrorEjecucion(ErrorEjecucion::Desbordamiento);
    }
    return negativo() ? static_cast<qint32>(-static_cast<qint64>(m))
                      : static_cast<qint32>(static_cast<qint64>(m));
}

qint16 Decimal::aEntero16() const {
    const Ancho m = dividirRedondeando(mantisa(), escala_);
    if (negativo() ? m > Ancho(32768) : m > Ancho(32767)) {
        throw ErrorEjecucion(ErrorEjecucion::Desbordamiento);
    }
    return static_cast<qint16>(negativo() ? -static_cast<int>(m) : static_cast<int>(m));
}

double Decimal::aDouble() const {
    const auto alto = static_cast<quint64>(mantisa() >> 64);
    const auto bajo = static_cast<quint64>(mantisa());
    double v = static_cast<double>(alto) * 18446744073709551616.0 + static_cast<double>(bajo);
    v /= static_cast<double>(kPot10[static_cast<size_t>(escala_)]);
    return negativo() ? -v : v;
}

Decimal Decimal::operator-() const {
    return Decimal(mantisa(), escala_, !negativo_);
}

namespace {

// Both magnitudes on one scale, below 2^100 so that their sum fits.
void alinear(Ancho& ma, int& ea, Ancho& mb, int& eb) {
    if (ea < eb) {
        alinear(mb, eb, ma, ea);
        return;
    }
    const Ancho tope = Ancho(1) << 100;
    while (ea > eb) {
        if (mb < tope / 10) {
            mb *= 10;
            ++eb;
        } else {
            ma = dividirRedondeando(ma, 1);
            --ea;
        }
    }
}

} // namespace

Decimal operator+(const Decimal& a, const Decimal& b) {
    Ancho ma = a.mantisa();
    Ancho mb = b.mantisa();
    int ea = a.escala_;
    int eb = b.escala_;
    alinear(ma, ea, mb, eb);
    if (a.negativo() == b.negativo()) {
        return Decimal::normalizado(ma + mb, ea, a.negativo());
    }
    if (ma >= mb) {
        return Decimal::normalizado(ma - mb, ea, a.negativo());
    }
    return Decimal::normalizado(mb - ma, ea, b.negativo());
}

std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) {
    if (a.negativo() != b.negativo()) {
        return a.negativo() ? std::strong_ordering::less : std::strong_ordering::greater;
    }
    Ancho ma = a.mantisa();
    Ancho mb = b.mantisa();
    int ea = a.escala_;
    int eb = b.escala_;
    // Exact comparison: scale the one with fewer places up while it can, else compare the
    // whole parts first.
    while (ea != eb) {
        Ancho& m = ea < eb ? ma : mb;
        int& e = ea < eb ? ea : eb;
        if (m > (~Ancho(0)) / 10) {
            break;
        }
        m *= 10;
        ++e;
    }
    std::strong_ordering orden = std::strong_ordering::equal;
    if (ea == eb) {
        orden = ma <=> mb;
    } else {
        // The operand with fewer places is so large that it exceeds every value of 96 bits.
        orden = ea < eb ? std::strong_ordering::greater : std::strong_ordering::less;
    }
    if (a.negativo()) {
        return 0 <=> orden;
    }
    return orden;
}

bool operator==(const Decimal& a, const Decimal& b) {
    return (a <=> b) == 0;
}

bool IsNumeric(QStringView texto) {
    return analizar(texto).has_value();
}

std::optional<double> Valor(QStringView texto) {
    if (!IsNumeric(texto)) {
        return std::nullopt;
    }
    try {
        if (const auto d = Decimal::leer(texto)) {
            return d->aDouble();
        }
    } catch (const ErrorEjecucion&) {
        // Beyond the decimal range: still a number, as a double reads it.
        return std::numeric_limits<double>::infinity();
    }
    return std::nullopt;
}

qint64 EnteroEnIntervalo(double valor, qint64 minimo, qint64 maximo) {
    const double r = std::nearbyint(valor); // the default rounding mode: half to even
    if (!std::isfinite(r) || r < static_cast<double>(minimo) || r > static_cast<double>(maximo)) {
        throw ErrorEjecucion(ErrorEjecucion::Desbordamiento);
    }
    return static_cast<qint64>(r);
}

qint64 EnteroEnIntervalo(QStringView texto, qint64 minimo, qint64 maximo) {
    const qint64 v = Decimal::desdeTexto(texto).aEntero32();
    if (v < minimo || v > maximo) {
        throw ErrorEjecucion(ErrorEjecucion::Desbordamiento);
    }
    return v;
}

Decimal CDec(QStringView texto) {
    return Decimal::desdeTexto(texto);
}
qint16 CInt(QStringView texto) {
    return Decimal::desdeTexto(texto).aEntero16();
}
qint32 CLng(QStringView texto) {
    return Decimal::desdeTexto(texto).aEntero32();
}
qint16 CInt(const Decimal& valor) {
    return valor.aEntero16();
}
qint32 CLng(const Decimal& valor) {
    return valor.aEntero32();
}

QStringList Split(const QString& texto, const QString& separador, int limite) {
    QStringList r;
    if (texto.isEmpty() || limite == 0) {
        return r;
    }
    if (separador.isEmpty()) {
        r.append(texto);
        return r;
    }
    qsizetype desde = 0;
    while (limite < 0 || r.size() < limite - 1) {
        const qsizetype p = texto.indexOf(separador, desde);
        if (p < 0) {
            break;
        }
        r.append(texto.mid(desde, p - desde));
        desde = p + separador.size();
    }
    r.append(texto.mid(desde));
    return r;
}

QString LTrim(const QString& texto) {
    qsizetype i = 0;
    while (i < texto.size() && texto[i] == u' ') {
        ++i;
    }
    return texto.mid(i);
}

QString RTrim(const QString& texto) {
    qsizetype n = texto.size();
    while (n > 0 && texto[n - 1] == u' ') {
        --n;
    }
    return texto.left(n);
}

QString Trim(const QString& texto) {
    return LTrim(RTrim(texto));
}

QString UCase(const QString& texto) {
    QString r = texto;
    for (QChar& c : r) {
        const QChar mayuscula = c.toUpper();
        if (mayuscula != c && cp1252::asc(mayuscula) != u'?') {
            c = mayuscula;
        }
    }
    return r;
}

QString TextoBooleano(bool valor) {
    return valor ? QStringLiteral("Verdadero") : QStringLiteral("Falso");
}

QDateTime FechaCero() {
    return QDateTime(QDate(1899, 12, 30), QTime(0, 0));
}

QString TextoFecha(const QDateTime& momento) {
    const QTime hora = momento.time();
    if (momento.date() == QDate(1899, 12, 30)) {
        return hora.toString(QStringLiteral("H:mm:ss"));
    }
    if (hora == QTime(0, 0)) {
        return momento.date().toString(QStringLiteral("dd/MM/yyyy"));
    }
    return momento.toString(QStringLiteral("dd/MM/yyyy H:mm:ss"));
}

namespace {

// Reads up to `maximo` digits as a number; -1 when there is none.
int leerCifras(QStringView t, qsizetype& i, int maximo, int* cuantas = nullptr) {
    int v = 0;
    int n = 0;
    while (i < t.size() && n < maximo && esDigito(t[i])) {
        v = v * 10 + (t[i].unicode() - u'0');
        ++i;
        ++n;
    }
    if (cuantas != nullptr) {
        *cuantas = n;
    }
    return n == 0 ? -1 : v;
}

std::optional<QTime> leerHora(QStringView t, qsizetype& i) {
    const int h = leerCifras(t, i, 2);
    if (h < 0 || i >= t.size() || t[i] != u':') {
        return std::nullopt;
    }
    ++i;
    const int m = leerCifras(t, i, 2);
    if (m < 0) {
        return std::nullopt;
    }
    int s = 0;
    if (i < t.size() && t[i] == u':') {
        ++i;
        s = leerCifras(t, i, 2);
        if (s < 0) {
            return std::nullopt;
        }
    }
    QTime hora(h, m, s);
    if (!hora.isValid()) {
        return std::nullopt;
    }
    return hora;
}

} // namespace

std::optional<QDateTime> LeerFecha(QStringView texto) {
    const QStringView t = texto.trimmed();
    qsizetype i = 0;
    if (t.isEmpty()) {
        return std::nullopt;
    }
    // A time alone: digits then ":".
    {
        qsizetype j = 0;
        leerCifras(t, j, 2);
        if (j > 0 && j < t.size() && t[j] == u':') {
            auto hora = leerHora(t, i);
            if (!hora || i != t.size()) {
                return std::nullopt;
            }
            return QDateTime(FechaCero().date(), *hora);
        }
    }
    int c1 = 0;
    const int a = leerCifras(t, i, 4, &c1);
    if (a < 0 || i >= t.size() || (t[i] != u'/' && t[i] != u'-')) {
        return std::nullopt;
    }
    const QChar sep = t[i++];
    const int b = leerCifras(t, i, 2);
    if (b < 0 || i >= t.size() || t[i] != sep) {
        return std::nullopt;
    }
    ++i;
    int c3 = 0;
    const int c = leerCifras(t, i, 4, &c3);
    if (c < 0) {
        return std::nullopt;
    }
    int dia = 0;
    int mes = 0;
    int anno = 0;
    if (c1 == 4) {
        anno = a;
        mes = b;
        dia = c;
        if (c3 > 2) {
            return std::nullopt;
        }
    } else {
        if (c1 > 2 || c3 == 3) {
            return std::nullopt;
        }
        dia = a;
        mes = b;
        anno = c3 <= 2 ? (c < 30 ? 2000 + c : 1900 + c) : c;
    }
    const QDate fecha(anno, mes, dia);
    if (!fecha.isValid()) {
        return std::nullopt;
    }
    QTime hora(0, 0);
    if (i < t.size()) {
        if (t[i] != u' ' && t[i] != u'T') {
            return std::nullopt;
        }
        while (i < t.size() && (t[i] == u' ' || t[i] == u'T')) {
            ++i;
        }
        auto h = leerHora(t, i);
        if (!h || i != t.size()) {
            return std::nullopt;
        }
        hora = *h;
    }
    return QDateTime(fecha, hora);
}

bool IsDate(QStringView texto) {
    return LeerFecha(texto).has_value();
}

QDateTime CDate(QStringView texto) {
    auto f = LeerFecha(texto);
    if (!f) {
        throw ErrorEjecucion(ErrorEjecucion::NoCoincidenLosTipos);
    }
    return *f;
}

} // namespace clasico
