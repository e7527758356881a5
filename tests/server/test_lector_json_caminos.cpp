// The reader's quick walk against its tolerant walk: the quick one must take plain JSON,
// give up on every text that needs a tolerance, and never read a text differently.
#include "base/Conversiones.h"
#include "base/ErrorEjecucion.h"
#include "common/ArbolJson.h"
#include "common/DatosEsperados.h"
#include "common/ImprimirQString.h"
#include "server/LectorJson.h"

#include <QJsonArray>
#include <gtest/gtest.h>

namespace {

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

// Plain documents the quick walk takes, texts that need a tolerance, errors, and texts the
// fuzz target found (raw control characters and NULs kept), each with whether the quick walk
// takes it.
TEST(LectorJsonCaminos, ElRapidoLeeComoElTolerante) {
    for (const char* datos : {"lector_json_documentos.json", "lector_json_hallados.json"}) {
        const QJsonArray documentos = JsonDatos(QLatin1String(datos)).array();
        ASSERT_GT(documentos.size(), 10) << datos;
        for (const QJsonValue& d : documentos) {
            compararCaminos(d["texto"].toString(), d["rapido"].toBool());
        }
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
