// The reader's quick walk against its tolerant walk: the quick one must take plain JSON,
// give up on every text that needs a tolerance, and never read a text differently.
#include "base/Conversiones.h"
#include "base/ErrorEjecucion.h"
#include "common/ArbolJson.h"
#include "common/ImprimirQString.h"
#include "server/LectorJson.h"

#include <gtest/gtest.h>
#include <string_view>

using namespace std::literals;

namespace {

struct Documento {
    const char* texto;
    bool rapido; // whether the quick walk takes it
};

const Documento kDocumentos[] = {
    {"{}", true},
    {"[]", true},
    {" \r\n\t{ \"a\" : 1 ,\r\n \"b\"\t:[ ] }  ", true},
    {R"({"t":true,"f":false,"n":null,"s":"x","d":-1.5e2,"o":{"p":[1,[2,{}]]}})", true},
    {R"(["\"\\\/\'\b\f\n\r\t", "\u00e9\u20AC", "a\x", "\u12zz!", 'dijo "hola"'])", true},
    {R"({"e:f":1, "a\b":2, "":3, "ñandú€":"camión con blancos"})", true},
    {"{\"crudo\":\"tab\tsalto\nfin\"}", true},
    {R"([0, -0, 007, 12.50, 0.10, -0.0, 1e-3, 1E2, +7, 5-, 123456789012345678,
        1234567890123456789, 79228162514264337593543950335])",
     true},
    {R"({"a":1} resto [sin leer)", true},
    {R"({"k1":1,"k2":2,"k3":3,"k4":4,"k5":5,"k6":6,"k7":7,"k8":8,"k9":9,"k10":10})", true},
    {R"([{"id":1,"nombre":"uno"},{"id":2,"nombre":"dos"},{"nombre":"tres","id":3}])", true},
    // Tolerances.
    {"{a:1}", false},
    {"{'a':1}", false},
    {R"({"a b":1})", false},
    {R"({"it's":1})", false},
    {"// nota\r\n{\"a\":1}", false},
    {R"(({"a":1}))", false},
    {R"({"a":/* c */1})", false},
    {R"({"a":(1)})", false},
    {"[1 2]", false},
    {R"({"a":1 "b":2})", false},
    {R"({"a":1,})", false},
    {R"({,"a":1})", false},
    // Errors.
    {"12", false},
    {"", false},
    {"[1,]", false},
    {"[,1]", false},
    {R"({"a":1,"a":2,"b":3})", false},
    {R"({"k1":1,"k2":2,"k3":3,"k4":4,"k5":5,"k6":6,"k7":7,"k8":8,"k9":9,"k1":10})", false},
    {R"({"a":tru})", false},
    {"[nul, 1]", false},
    {"[1.2.3]", false},
    {"[1e99]", false},
    {"[e5]", false},
    {R"({"a" x:1})", false},
    {R"({"a":1)", false},
    {"[12", false},
    {R"(["sin fin)", false},
    {R"({"sin fin)", false},
    {R"({"a")", false},
};

// Texts the fuzz target found, with raw control characters and NULs kept.
struct DocumentoHallado {
    std::u16string_view texto;
    bool rapido;
};

const DocumentoHallado kHallados[] = {
    {u"{\"š¡ido\":07500,\"y\":true}]}", true},
    {u"[{\"id\":00000000.00000000079}]", true},
    {u"[{\"id\":00000000000000000.0000000000000000000000000000000000412099979}]", true},
    {u"{\"ps?arefactorfuente\":+1.3333333333333333333333333399,\"x\":null,\"y\":true}]}", true},
    {u"[{\"id\":.2,\"pvp\":0.2,\"e\":0.}]", true},
    {u"[{\"id\":1-,\"ªªdo\":\"0/206\"}][{\"'", true},
    {u"[{\"dk\":\"// mteocnied'do\n({a'd!\\u\x04\x01\x1c]0ed'd\\u\0]0ed\\u\0¨/nie'a'd!"
     u"\\u\x04\x01\x1c]0d'd\\u\0]ed\\u\0\0\0\0n\"}]"sv,
     true},
    {u"{\"\":null}\0"sv, true},
    {u"[{\"id\":1,\"no\":\"Pizza\"},{\"\0\0otado\":\"p1/02/d\"}]"sv, true},
    {u"[[[[[]]]]]]]{", true},
    {u"{\"a\".11110000000000000000000000000000000000000000000I", false},
    {u"[{\"ªr\":24464.44E00000000028[{712[21", false},
    {u"{\"a\":1,\"a\":ul,[\x1f\"", false},
    {u"[{\"id\":\",55e555555555[n{\0\"&,"sv, false},
    {u"{\"[onid\":1,\"mo\":((((((((null,\"y\"}]}", false},
    {u"[\"'\\u01ªÿ\x13\0d\\u20ÿ/\"idØ"sv, false},
    {u"[{\"id\":[[[[[[[[[[[[[[[[[]]]]]]]]]]]]]]]]]][[[0[[", false},
};

struct Lectura {
    QString arbol;
    QString errores;
    int error = 0; // a run-time error that escaped
};

Lectura tolerante(const QString& texto) {
    Lectura r;
    try {
        LectorJson lector(texto);
        r.arbol = volcarArbol(lector.leerTolerante());
        r.errores = lector.ErroresJson();
    } catch (const ErrorEjecucion& e) {
        r.error = e.numero();
    }
    return r;
}

Lectura completa(const QString& texto) {
    Lectura r;
    try {
        r.arbol = volcarArbol(JSON_Parse(texto, &r.errores));
    } catch (const ErrorEjecucion& e) {
        r.error = e.numero();
    }
    return r;
}

void compararCaminos(const QString& texto, bool rapido) {
    SCOPED_TRACE(texto.toStdString());
    LectorJson lector(texto);
    const auto r = lector.leerEstricto();
    EXPECT_EQ(r.has_value(), rapido);
    const Lectura t = tolerante(texto);
    if (r) {
        EXPECT_EQ(t.errores, QString());
        EXPECT_EQ(volcarArbol(*r), t.arbol);
    }
    const Lectura c = completa(texto);
    EXPECT_EQ(c.arbol, t.arbol);
    EXPECT_EQ(c.errores, t.errores);
    EXPECT_EQ(c.error, t.error);
}

} // namespace

TEST(LectorJsonCaminos, ElRapidoLeeComoElTolerante) {
    for (const Documento& d : kDocumentos) {
        compararCaminos(QString::fromUtf8(d.texto), d.rapido);
    }
}

TEST(LectorJsonCaminos, TextosHalladosPorElFuzzer) {
    for (const DocumentoHallado& d : kHallados) {
        compararCaminos(QString(reinterpret_cast<const QChar*>(d.texto.data()),
                                static_cast<qsizetype>(d.texto.size())),
                        d.rapido);
    }
}

TEST(LectorJsonCaminos, AnidamientoEnElLimite) {
    const int limite = LectorJson::ProfundidadMaxima;
    compararCaminos(QString(limite, u'[') + QString(limite, u']'), true);
    compararCaminos(
        QString(limite - 1, u'[') + QStringLiteral("{\"a\":1}") + QString(limite - 1, u']'), true);
    // One level more: the quick walk gives up and the tolerant one raises error 28.
    const QString hondo = QString(limite + 1, u'[') + QString(limite + 1, u']');
    compararCaminos(hondo, false);
    EXPECT_EQ(completa(hondo).error, 28);
}

TEST(LectorJsonCaminos, EscapesEnCadaPosicionDelBloque) {
    // Strings are scanned eight units at a time: a quote or a backslash in each place of
    // a block, and at the end of the text.
    for (int antes = 0; antes <= 18; ++antes) {
        const QString relleno(antes, u'a');
        const QString doc = QStringLiteral("[\"") + relleno + QStringLiteral("\\n") + relleno +
                            QStringLiteral("\",\"") + relleno + QStringLiteral("\"]");
        const ValorJson v = JSON_Parse(doc);
        ASSERT_EQ(v.coleccion().Count(), 2) << antes;
        EXPECT_EQ(v.Item(1).aTexto(), relleno + u'\n' + relleno) << antes;
        EXPECT_EQ(v.Item(2).aTexto(), relleno) << antes;
        compararCaminos(doc, true);
        // Cut before the closing quote: the tolerant walk keeps the string.
        const QString cortado = QStringLiteral("[\"") + relleno + QStringLiteral("\\\"");
        compararCaminos(cortado, false);
        EXPECT_EQ(JSON_Parse(cortado).Item(1).aTexto(), relleno + u'"') << antes;
    }
}

TEST(LectorJsonCaminos, NumerosComoLaConversionClasica) {
    // Whole numbers take a short road; every number must still read as the classic
    // conversion of its text with the decimal comma.
    for (const char* cifras :
         {"0", "-0", "007", "-5", "+7", "5-", "123456789012345678", "-123456789012345678",
          "999999999999999999", "1234567890123456789", "12.50", "0.10", "-0.0", "1E2", "1e-3",
          "79228162514264337593543950335"}) {
        const QString texto = QString::fromLatin1(cifras);
        QString errores;
        const ValorJson v = JSON_Parse(QStringLiteral("[") + texto + QStringLiteral("]"), &errores);
        ASSERT_EQ(errores, QString()) << cifras;
        const clasico::Decimal esperado = clasico::CDec(QString(texto).replace(u'.', u','));
        const clasico::Decimal leido = v.Item(1).aDecimal();
        EXPECT_EQ(leido.aTexto(), esperado.aTexto()) << cifras;
        EXPECT_EQ(leido.escala(), esperado.escala()) << cifras;
        EXPECT_EQ(leido.negativo(), esperado.negativo()) << cifras;
    }
}
