#include "printing/TablasCaracteresEP.h"

#include "base/Windows1252.h"

#include <QHash>

namespace {

// Every key of both tables is one character outside ASCII, and no replacement yields a key
// that a later pair would replace, so one pass over the text with a character map gives what
// the pairs in table order give.
using MapaCaracteres = QHash<char16_t, QString>;

MapaCaracteres mapaDe(const TablaReemplazos& tabla) {
    MapaCaracteres mapa;
    for (const auto& [de, a] : tabla) {
        if (!mapa.contains(de.front().unicode())) {
            mapa.insert(de.front().unicode(), a);
        }
    }
    return mapa;
}

QString reemplazarCaracteres(const QString& texto, const MapaCaracteres& mapa) {
    qsizetype i = 0;
    const qsizetype n = texto.size();
    while (i < n && texto[i].unicode() < 0x80) {
        ++i;
    }
    if (i == n) {
        return texto;
    }
    QString r = texto.left(i);
    r.reserve(n);
    for (; i < n; ++i) {
        const char16_t c = texto[i].unicode();
        const auto it = c < 0x80 ? mapa.cend() : mapa.constFind(c);
        if (it == mapa.cend()) {
            r += QChar(c);
        } else {
            r += *it;
        }
    }
    return r;
}

QPair<QString, QString> aByte(const char16_t* caracter, int byte) {
    return {QString::fromUtf16(caracter), QString(cp1252::chr(byte))};
}

} // namespace

QString ReemplazarLista(const QString& texto, const TablaReemplazos& tabla) {
    QString r = texto;
    for (const auto& [de, a] : tabla) {
        if (r.contains(de, Qt::CaseSensitive)) {
            r.replace(de, a, Qt::CaseSensitive);
        }
    }
    return r;
}

const TablaReemplazos& TablaPC858() {
    static const TablaReemplazos tabla = {
        aByte(u"€", 213), aByte(u"ç", 135), aByte(u"Ç", 128), aByte(u"¡", 173), aByte(u"¿", 168),
        aByte(u"º", 248), aByte(u"°", 248), aByte(u"á", 160), aByte(u"é", 130), aByte(u"í", 161),
        aByte(u"ó", 162), aByte(u"ú", 163), aByte(u"Á", 181), aByte(u"É", 144), aByte(u"Í", 214),
        aByte(u"Ó", 224), aByte(u"Ú", 233), aByte(u"ñ", 164), aByte(u"Ñ", 165), aByte(u"ü", 129),
        aByte(u"Ü", 154)};
    return tabla;
}

const TablaReemplazos& TablaCaracEsp() {
    static const TablaReemplazos tabla = {
        {u"ç"_qs, u"c"_qs}, {u"Ç"_qs, u"C"_qs},   {u"€"_qs, QString()}, {u"á"_qs, u"a"_qs},
        {u"é"_qs, u"e"_qs}, {u"í"_qs, u"i"_qs},   {u"ó"_qs, u"o"_qs},   {u"ú"_qs, u"u"_qs},
        {u"Á"_qs, u"A"_qs}, {u"É"_qs, u"E"_qs},   {u"Í"_qs, u"I"_qs},   {u"Ó"_qs, u"O"_qs},
        {u"Ú"_qs, u"U"_qs}, {u"ñ"_qs, u"n"_qs},   {u"Ñ"_qs, u"N"_qs},   {u"ü"_qs, u"u"_qs},
        {u"Ü"_qs, u"U"_qs}, {u"º"_qs, QString()}, {u"°"_qs, QString()}, {u"¡"_qs, u"!"_qs},
        {u"¿"_qs, u"?"_qs}, {u"´"_qs, u" "_qs}};
    return tabla;
}

QString ConvertirPC858(const QString& texto) {
    static const MapaCaracteres mapa = mapaDe(TablaPC858());
    return reemplazarCaracteres(texto, mapa);
}

QString QuitarCaracEsp(const QString& texto) {
    static const MapaCaracteres mapa = mapaDe(TablaCaracEsp());
    return reemplazarCaracteres(texto, mapa);
}
