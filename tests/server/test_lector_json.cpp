#include "base/ErrorEjecucion.h"
#include "common/ImprimirQString.h"
#include "common/NumeroDeError.h"
#include "server/LectorJson.h"

#include <gtest/gtest.h>

namespace {

struct Leido {
    ValorJson valor;
    QString errores;
};

Leido leer(const QString& texto) {
    Leido r;
    r.valor = JSON_Parse(texto, &r.errores);
    return r;
}

QString texto(const ValorJson& v) {
    return v.aTexto();
}

const QString kClaveRepetida =
    QStringLiteral("Esta clave ya está asociada con un elemento de esta colección");

} // namespace

TEST(LectorJson, ToleranciasDeForma) {
    {
        const auto r = leer(QStringLiteral("[1 2]"));
        ASSERT_EQ(r.valor.coleccion().Count(), 2);
        EXPECT_EQ(texto(r.valor.Item(1)), QStringLiteral("1"));
        EXPECT_EQ(texto(r.valor.Item(2)), QStringLiteral("2"));
        EXPECT_EQ(r.errores, QString());
    }
    for (const char* doc : {"{a:1}", "{'a':1}", "{\"a\":1}", "{ a : 1 , }"}) {
        const auto r = leer(QString::fromUtf8(doc));
        ASSERT_EQ(r.valor.TypeName(), QStringLiteral("Dictionary")) << doc;
        EXPECT_EQ(r.valor.diccionario().Keys().first(), QStringLiteral("a")) << doc;
        EXPECT_EQ(r.valor.Item(QStringLiteral("a")).aEntero16(), 1) << doc;
    }
    {
        // Blanks are dropped from keys, even inside quotes; a colon inside quotes stays.
        const auto r = leer(QStringLiteral("{a b:1, \"c d\":2, \"e:f\":3 \"g\":4}"));
        EXPECT_EQ(r.valor.diccionario().Keys(),
                  (QStringList{QStringLiteral("ab"), QStringLiteral("cd"), QStringLiteral("e:f"),
                               QStringLiteral("g")}));
        EXPECT_EQ(r.errores, QString());
    }
    {
        // Comments, round brackets as space, a lone slash between tokens.
        const auto r = leer(QStringLiteral("// respuesta\r\n/* de\n prueba */ ({\"x\" : (7), "
                                           "/* c */ \"y\" / : 8} ) resto ignorado"));
        EXPECT_EQ(r.errores, QString());
        EXPECT_EQ(r.valor.Item(QStringLiteral("x")).aEntero16(), 7);
        EXPECT_EQ(r.valor.Item(QStringLiteral("y")).aEntero16(), 8);
        EXPECT_EQ(r.valor.diccionario().Count(), 2);
    }
    {
        // Keys are case-sensitive and keep their order.
        const auto r = leer(QStringLiteral("{\"z\":1,\"A\":2,\"a\":3}"));
        EXPECT_EQ(r.valor.diccionario().Keys(),
                  (QStringList{QStringLiteral("z"), QStringLiteral("A"), QStringLiteral("a")}));
    }
}

TEST(LectorJson, TextosYEscapes) {
    const auto r = leer(QStringLiteral(R"(["a\x", "\"\\\/\'\b\f\n\r\t", "\u00e9\u20AC", )"
                                       R"('dijo "hola"', "\u12zz!", "sin fin\u41)"));
    EXPECT_EQ(texto(r.valor.Item(1)), QStringLiteral("ax"));
    EXPECT_EQ(texto(r.valor.Item(2)), QStringLiteral("\"\\/'\b\f\n\r\t"));
    EXPECT_EQ(texto(r.valor.Item(3)), QStringLiteral("é€"));
    EXPECT_EQ(texto(r.valor.Item(4)), QStringLiteral("dijo \"hola\""));
    // Hexadecimal digits count up to the first other character: 0x12.
    EXPECT_EQ(texto(r.valor.Item(5)), QString(QChar(0x12)) + u'!');
    // A string that runs to the end of the text is kept; the array then misses its "]".
    EXPECT_EQ(texto(r.valor.Item(6)), QStringLiteral("sin finA"));
    EXPECT_EQ(r.valor.coleccion().Count(), 6);
    EXPECT_EQ(r.errores, QStringLiteral("Missing ']': 12zz!\", \"sin fin\\u41\r\n"));
}

TEST(LectorJson, NumerosComoDecimalesEspannoles) {
    const auto r = leer(QStringLiteral("[12.50, -1.5e2, 0.1, 7, 1e-3]"));
    EXPECT_EQ(r.errores, QString());
    EXPECT_EQ(r.valor.Item(1).TypeName(), QStringLiteral("Decimal"));
    EXPECT_EQ(r.valor.Item(1).aDecimal().escala(), 2);
    EXPECT_EQ(texto(r.valor.Item(1)), QStringLiteral("12,5"));
    EXPECT_EQ(texto(r.valor.Item(2)), QStringLiteral("-150"));
    EXPECT_EQ(texto(r.valor.Item(3)), QStringLiteral("0,1"));
    EXPECT_EQ(r.valor.Item(4).aEntero32(), 7);
    EXPECT_EQ(texto(r.valor.Item(5)), QStringLiteral("0,001"));
    // A number cut by the end of the text is Empty, without an error of its own.
    const auto cortado = leer(QStringLiteral("[12"));
    ASSERT_EQ(cortado.valor.coleccion().Count(), 1);
    EXPECT_TRUE(cortado.valor.Item(1).esEmpty());
    EXPECT_EQ(cortado.errores, QStringLiteral("Missing ']': [12\r\n"));
}

TEST(LectorJson, ConstantesNulasYBooleanas) {
    const auto r = leer(QStringLiteral("{\"t\":true,\"f\":false,\"n\":null}"));
    EXPECT_EQ(r.errores, QString());
    EXPECT_TRUE(r.valor.Item(QStringLiteral("t")).aBooleano());
    EXPECT_EQ(r.valor.Item(QStringLiteral("t")).TypeName(), QStringLiteral("Boolean"));
    EXPECT_FALSE(r.valor.Item(QStringLiteral("f")).aBooleano());
    EXPECT_TRUE(r.valor.Item(QStringLiteral("n")).esNull());
    EXPECT_EQ(r.valor.Item(QStringLiteral("n")).TypeName(), QStringLiteral("Null"));
}

TEST(LectorJson, TextosDeError) {
    {
        const auto r = leer(QStringLiteral("12"));
        EXPECT_EQ(r.errores, QStringLiteral("Invalid JSON"));
        EXPECT_TRUE(r.valor.esNothing());
        EXPECT_EQ(r.valor.TypeName(), QStringLiteral("Nothing"));
    }
    {
        const auto r = leer(QStringLiteral("{\"a\":1,\"a\":2,\"b\":3}"));
        EXPECT_EQ(r.errores, kClaveRepetida + QStringLiteral(": a\r\n"));
        EXPECT_EQ(r.valor.diccionario().Count(), 1);
        EXPECT_EQ(r.valor.Item(QStringLiteral("a")).aEntero16(), 1);
    }
    {
        // The failed constant leaves the position; the object then reads it as a key.
        const auto r = leer(QStringLiteral("{\"a\":tru}"));
        EXPECT_EQ(r.errores, QStringLiteral("Invalid Boolean at position 6 : tru}\r\n"
                                            "Missing '}': {\"a\":tru}\r\n"));
        EXPECT_FALSE(r.valor.Item(QStringLiteral("a")).aBooleano());
        EXPECT_TRUE(r.valor.diccionario().Exists(QStringLiteral("tru}")));
    }
    {
        const auto r = leer(QStringLiteral("[nul, 1]"));
        EXPECT_EQ(r.errores, QStringLiteral("Invalid null value at position 2 : nul, 1]\r\n"));
        ASSERT_EQ(r.valor.coleccion().Count(), 1);
        EXPECT_TRUE(r.valor.Item(1).esEmpty());
    }
    {
        const auto r = leer(QStringLiteral("{\"a\" x:1}"));
        EXPECT_EQ(r.errores, QStringLiteral("Invalid Key at position 6 : a\r\n"
                                            "No coinciden los tipos: a\r\n"));
        EXPECT_EQ(r.valor.diccionario().Count(), 0);
    }
    {
        const auto r = leer(QStringLiteral("{\"p\":1.2.3,\"q\":1}"));
        EXPECT_EQ(r.errores, QStringLiteral("No coinciden los tipos: p\r\n"));
        EXPECT_EQ(r.valor.diccionario().Count(), 0);
    }
    {
        const auto r = leer(QStringLiteral("[1, x2] [3]"));
        EXPECT_EQ(r.errores, QStringLiteral("No coinciden los tipos: x2] [3]\r\n"));
        EXPECT_EQ(r.valor.coleccion().Count(), 1);
    }
    {
        const auto r = leer(QStringLiteral("[1e99]"));
        EXPECT_EQ(r.errores, QStringLiteral("Desbordamiento: ]\r\n"));
    }
    {
        // An error deep inside ends the inner object before its "}", which then ends the
        // outer one too.
        const auto r = leer(QStringLiteral("{\"a\":{\"b\":1.2.3},\"c\":2}"));
        EXPECT_EQ(r.errores, QStringLiteral("No coinciden los tipos: b\r\n"));
        EXPECT_EQ(r.valor.diccionario().Keys(), QStringList{QStringLiteral("a")});
        EXPECT_EQ(r.valor.Item(QStringLiteral("a")).diccionario().Count(), 0);
    }
    {
        const auto r = leer(QStringLiteral("{\"a\":1"));
        EXPECT_EQ(r.errores, QStringLiteral("Missing '}': {\"a\":1\r\n"));
        // Only the last 20 characters are quoted.
        const auto largo = leer(QStringLiteral("{\"clave\":\"un texto bastante largo\""));
        EXPECT_EQ(largo.errores, QStringLiteral("Missing '}': exto bastante largo\"\r\n"));
    }
    {
        // The errors are those of the last parse only.
        // A comma before "]" leaves a value to read there, which is no number.
        LectorJson lector(u"[1,]");
        lector.leer();
        EXPECT_EQ(lector.ErroresJson(), QStringLiteral("No coinciden los tipos: ]\r\n"));
        lector.leer();
        EXPECT_EQ(lector.ErroresJson(), QStringLiteral("No coinciden los tipos: ]\r\n"));
        QString errores = QStringLiteral("viejo");
        JSON_Parse(u"{}", &errores);
        EXPECT_EQ(errores, QString());
    }
}

TEST(LectorJson, AnidamientoProfundoEsErrorDePila) {
    const int limite = LectorJson::ProfundidadMaxima;
    const QString bien = QString(limite, u'[') + QString(limite, u']');
    EXPECT_EQ(JSON_Parse(bien).TypeName(), QStringLiteral("Collection"));
    for (const QString& demasiado :
         {QString(limite + 1, u'['), QString(200000, u'{').replace(u'{', QStringLiteral("{a:"))}) {
        try {
            JSON_Parse(demasiado);
            ADD_FAILURE() << "too deep a document must fail";
        } catch (const ErrorEjecucion& e) {
            EXPECT_EQ(e.numero(), 28);
            EXPECT_EQ(e.descripcion(), QStringLiteral("Espacio de pila insuficiente"));
        }
    }
}

TEST(ValorJson, EmptyFrenteANull) {
    const ValorJson doc = JSON_Parse(u"{\"nulo\":null,\"medio\":2.5,\"grande\":40000,"
                                     "\"texto\":\"12\",\"letras\":\"doce\",\"si\":true}");
    DiccionarioJson& d = doc.diccionario();
    // Reading an absent key adds it, as Empty.
    EXPECT_FALSE(d.Exists(QStringLiteral("falta")));
    const ValorJson falta = d.Item(QStringLiteral("falta"));
    EXPECT_TRUE(d.Exists(QStringLiteral("falta")));
    EXPECT_EQ(d.Count(), 7);
    EXPECT_EQ(falta.TypeName(), QStringLiteral("Empty"));
    EXPECT_EQ(falta.aEntero16(), 0);
    EXPECT_EQ(falta.aTexto(), QString());
    EXPECT_FALSE(falta.aBooleano());
    EXPECT_FALSE(falta == d.Item(QStringLiteral("nulo")));

    const ValorJson nulo = d.Item(QStringLiteral("nulo"));
    EXPECT_EQ(numeroDeError([&] { nulo.aEntero16(); }), 94);
    EXPECT_EQ(numeroDeError([&] { nulo.aTexto(); }), 94);
    EXPECT_EQ(numeroDeError([&] { nulo.aBooleano(); }), 94);
    EXPECT_EQ(d.Item(QStringLiteral("medio")).aEntero16(), 2);
    EXPECT_EQ(numeroDeError([&] { d.Item(QStringLiteral("grande")).aEntero16(); }), 6);
    EXPECT_EQ(d.Item(QStringLiteral("grande")).aEntero32(), 40000);
    EXPECT_EQ(d.Item(QStringLiteral("texto")).aEntero16(), 12);
    EXPECT_EQ(numeroDeError([&] { d.Item(QStringLiteral("letras")).aEntero16(); }), 13);
    EXPECT_EQ(d.Item(QStringLiteral("si")).aEntero16(), -1);
    EXPECT_EQ(d.Item(QStringLiteral("si")).aTexto(), QStringLiteral("Verdadero"));
    EXPECT_EQ(numeroDeError([&] { doc.aTexto(); }), 13);
    // Nothing, what a failed parse gives, has no items.
    EXPECT_EQ(numeroDeError([] { JSON_Parse(u"roto").Item(QStringLiteral("pgprs")); }), 91);
    EXPECT_EQ(numeroDeError([&] { d.Item(QStringLiteral("si")).Item(1); }), 13);
}

TEST(ValorJson, ContenedoresCompartidosYErrores) {
    const ValorJson doc = JSON_Parse(u"{\"lista\":[\"a\",\"b\"]}");
    ValorJson copia = doc.Item(QStringLiteral("lista"));
    copia.coleccion().Add(ValorJson(QStringLiteral("c")));
    // A copy of an object names the same object.
    EXPECT_EQ(doc.Item(QStringLiteral("lista")).coleccion().Count(), 3);
    EXPECT_EQ(numeroDeError([&] { copia.Item(0); }), 9);
    EXPECT_EQ(numeroDeError([&] { copia.Item(4); }), 9);
    EXPECT_EQ(numeroDeError([&] { doc.diccionario().Add(QStringLiteral("lista"), ValorJson()); }),
              457);
    EXPECT_EQ(numeroDeError([&] { doc.diccionario().Remove(QStringLiteral("otra")); }), 5);
    doc.diccionario().Add(QStringLiteral("b"), ValorJson(true));
    doc.diccionario().Remove(QStringLiteral("lista"));
    EXPECT_EQ(doc.diccionario().Keys(), QStringList{QStringLiteral("b")});
    EXPECT_TRUE(doc.Item(QStringLiteral("b")).aBooleano());
}
