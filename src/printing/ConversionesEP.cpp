#include "printing/ConversionesEP.h"

#include "platform/ErrorEjecucion.h"
#include "platform/Windows1252.h"

#include <cmath>

namespace conv_ep {
namespace {

bool esBlanco(QChar c) {
    return c == u' ' || c == u'\t';
}

// Normalises a numeric text to the C form ("-1234.5e3") or returns nothing.
std::optional<QString> normalizar(const QString& texto) {
    QString t = texto;
    while (!t.isEmpty() && esBlanco(t.front())) {
        t.remove(0, 1);
    }
    while (!t.isEmpty() && esBlanco(t.back())) {
        t.chop(1);
    }
    if (t.startsWith(u'€')) {
        t.remove(0, 1);
    } else if (t.endsWith(u'€')) {
        t.chop(1);
    }
    t = t.trimmed();
    QString c;
    int i = 0;
    const int n = static_cast<int>(t.size());
    if (i < n && (t[i] == u'+' || t[i] == u'-')) {
        if (t[i] == u'-') {
            c += u'-';
        }
        ++i;
    }
    int digitos = 0;
    bool coma = false;
    for (; i < n; ++i) {
        const QChar ch = t[i];
        if (ch.isDigit() && ch.unicode() < 128) {
            c += ch;
            ++digitos;
        } else if (ch == u'.' && !coma) {
            continue; // thousands separator
        } else if (ch == u',' && !coma) {
            coma = true;
            c += u'.';
        } else {
            break;
        }
    }
    if (digitos == 0) {
        return std::nullopt;
    }
    if (i < n && (t[i] == u'e' || t[i] == u'E')) {
        QString e = QStringLiteral("e");
        ++i;
        if (i < n && (t[i] == u'+' || t[i] == u'-')) {
            e += t[i];
            ++i;
        }
        int de = 0;
        for (; i < n && t[i].isDigit() && t[i].unicode() < 128; ++i) {
            e += t[i];
            ++de;
        }
        if (de == 0) {
            return std::nullopt;
        }
        c += e;
    }
    if (i != n) {
        return std::nullopt;
    }
    return c;
}

// Plain digits, perhaps between blanks: the usual case of ids and command bytes.
std::optional<double> valorDigitos(const QString& texto) {
    qsizetype i = 0, n = texto.size();
    while (i < n && esBlanco(texto[i])) {
        ++i;
    }
    while (n > i && esBlanco(texto[n - 1])) {
        --n;
    }
    if (i == n || n - i > 15) {
        return std::nullopt;
    }
    qint64 v = 0;
    for (; i < n; ++i) {
        const char16_t c = texto[i].unicode();
        if (c < u'0' || c > u'9') {
            return std::nullopt;
        }
        v = v * 10 + (c - u'0');
    }
    return static_cast<double>(v);
}

} // namespace

bool EsNumerico(const QString& texto) {
    return valorDigitos(texto).has_value() || normalizar(texto).has_value();
}

std::optional<double> Valor(const QString& texto) {
    if (const auto v = valorDigitos(texto)) {
        return v;
    }
    const auto c = normalizar(texto);
    if (!c) {
        return std::nullopt;
    }
    bool ok = false;
    const double v = c->toDouble(&ok);
    if (!ok) {
        return std::nullopt;
    }
    return v;
}

qint64 AEntero(double valor, qint64 minimo, qint64 maximo) {
    const double r = std::nearbyint(valor); // the default rounding mode is half-to-even
    if (!std::isfinite(r) || r < static_cast<double>(minimo) || r > static_cast<double>(maximo)) {
        throw ErrorEjecucion(ErrorEjecucion::Desbordamiento);
    }
    return static_cast<qint64>(r);
}

qint64 AEntero(const QString& texto, qint64 minimo, qint64 maximo) {
    const auto v = Valor(texto);
    if (!v) {
        throw ErrorEjecucion(ErrorEjecucion::NoCoincidenLosTipos);
    }
    return AEntero(*v, minimo, maximo);
}

QStringList Partir(const QString& texto, const QString& separador, int limite) {
    if (texto.isEmpty()) {
        return {};
    }
    if (limite < 0) {
        return texto.split(separador, Qt::KeepEmptyParts, Qt::CaseSensitive);
    }
    QStringList piezas;
    qsizetype desde = 0;
    while (piezas.size() < limite - 1) {
        const qsizetype en = texto.indexOf(separador, desde);
        if (en < 0) {
            break;
        }
        piezas << texto.mid(desde, en - desde);
        desde = en + separador.size();
    }
    piezas << texto.mid(desde);
    return piezas;
}

QString Mayusculas(const QString& texto) {
    QString r = texto;
    for (QChar& c : r) {
        const QChar m = c.toUpper();
        if (m != c && cp1252::asc(m) != '?') {
            c = m;
        }
    }
    return r;
}

QString TextoFechaHora(const QDateTime& momento) {
    const QString fecha = momento.date().toString(QStringLiteral("dd/MM/yyyy"));
    if (momento.time() == QTime(0, 0)) {
        return fecha;
    }
    return fecha + u' ' + momento.time().toString(QStringLiteral("H:mm:ss"));
}

QDateTime FechaCero() {
    return QDateTime(QDate(1899, 12, 30), QTime(0, 0));
}

} // namespace conv_ep
