#include "server/TextoServidor.h"

#include "base/ErrorEjecucion.h"
#include "base/Windows1252.h"
#include "server/ValorJson.h"

namespace {

constexpr char kHex[] = "0123456789ABCDEF";

int valorCifraHexMayuscula(QChar c) {
    const char16_t u = c.unicode();
    if (u >= u'0' && u <= u'9') {
        return u - u'0';
    }
    if (u >= u'A' && u <= u'F') {
        return u - u'A' + 10;
    }
    return -1;
}

} // namespace

QString ArreglarUtf8(QString& texto) {
    const qsizetype n = texto.size();
    QString r;
    r.reserve(n);
    const QChar* d = texto.constData();
    qsizetype i = 0;
    // The last character is never taken as the start of a sequence: it stays as it is.
    while (i < n - 1) {
        const int c = cp1252::asc(d[i]);
        if ((c & 128) == 0) {
            r.append(d[i]);
            ++i;
            continue;
        }
        // Lead byte and the continuation bytes after it; the last character of the text
        // is never taken as one.
        qsizetype j = 1;
        while (i + j < n - 1 && (cp1252::asc(d[i + j]) & 192) == 128) {
            ++j;
        }
        int codigo = 128;
        if (j == 2 && (c & 224) == 192) {
            codigo = (c & 1) * 64 + cp1252::asc(d[i + 1]);
        }
        r.append(cp1252::chr(codigo));
        i += j;
    }
    if (i < n) {
        r.append(d[i]);
    }
    texto = r;
    return r;
}

QString UrlCodificar(const QString& texto) {
    QString r;
    r.reserve(texto.size() * 3);
    for (QChar c : texto) {
        const char16_t u = c.unicode();
        if ((u >= u'a' && u <= u'z') || (u >= u'A' && u <= u'Z') || (u >= u'0' && u <= u'9')) {
            r.append(c);
        } else if (u == u' ') {
            r.append(u'+');
        } else {
            const int codigo = cp1252::asc(c);
            r.append(u'%');
            r.append(QLatin1Char(kHex[(codigo >> 4) & 15]));
            r.append(QLatin1Char(kHex[codigo & 15]));
        }
    }
    return r;
}

QString UrlDecodificar(const QString& texto) {
    QString r;
    r.reserve(texto.size());
    const qsizetype n = texto.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = texto[i];
        if (c == u'+') {
            r.append(u' ');
        } else if (c == u'%' && i + 2 < n && valorCifraHexMayuscula(texto[i + 1]) >= 0 &&
                   valorCifraHexMayuscula(texto[i + 2]) >= 0) {
            r.append(cp1252::chr(valorCifraHexMayuscula(texto[i + 1]) * 16 +
                                 valorCifraHexMayuscula(texto[i + 2])));
            i += 2;
        } else {
            r.append(c);
        }
    }
    return r;
}

QStringList ColeccionAVector(const ColeccionJson& coleccion) {
    if (coleccion.Count() == 0) {
        throw ErrorEjecucion(ErrorEjecucion::SubindiceFueraDeIntervalo);
    }
    QStringList r;
    r.reserve(coleccion.Count());
    for (const ValorJson& v : coleccion.items()) {
        r.append(v.aTexto());
    }
    return r;
}

bool UnoAVerdadero(qint16 valor) {
    return valor == 1;
}

qint16 VerdaderoAUno(qint16 valor) {
    return valor == -1 ? 1 : 0;
}

int SoloDigitos(int tecla) {
    return (tecla >= 48 && tecla <= 57) || tecla == 8 ? tecla : 0;
}

int SoloDecimal(int tecla, const QString& texto) {
    const bool hayComa = texto.contains(u',');
    if (tecla == 46 || tecla == 44) {
        return hayComa ? 0 : 44;
    }
    return SoloDigitos(tecla);
}

bool EsLineaPedido(const QString& texto) {
    return texto.size() >= 3 && texto.front() == QLatin1Char('#') &&
           texto.back() == QLatin1Char('#') && !texto.contains(QLatin1Char('\n'));
}
