// The classic conversions the tickets rely on (numeric test, values, rounding, split).
#include "platform/ErrorEjecucion.h"
#include "printing/ConversionesEP.h"

#include <gtest/gtest.h>

namespace {

using namespace conv_ep;

TEST(ConversionesEP, TextoNumericoAlModoEspannol) {
    EXPECT_TRUE(EsNumerico(" 12 "));
    EXPECT_TRUE(EsNumerico(u"0,35€"_qs));
    EXPECT_TRUE(EsNumerico(u"€3"_qs));
    EXPECT_TRUE(EsNumerico("-7"));
    EXPECT_TRUE(EsNumerico("1e3"));
    EXPECT_FALSE(EsNumerico(""));
    EXPECT_FALSE(EsNumerico("null"));
    EXPECT_FALSE(EsNumerico("7-"));
    EXPECT_FALSE(EsNumerico("e5"));
    EXPECT_DOUBLE_EQ(Valor("1.234,5").value_or(0), 1234.5) << "dot for thousands, comma decimal";
    EXPECT_DOUBLE_EQ(Valor("1e3").value_or(0), 1000);
    EXPECT_DOUBLE_EQ(Valor(u"0,35€"_qs).value_or(0), 0.35);
    EXPECT_DOUBLE_EQ(Valor(" 42 ").value_or(0), 42);
}

TEST(ConversionesEP, EnteroRedondeaAlParYDesborda) {
    EXPECT_EQ(AEntero("2,5", 0, 255), 2);
    EXPECT_EQ(AEntero("3,5", 0, 255), 4);
    EXPECT_EQ(AEntero("-2,5", -10, 10), -2);
    EXPECT_EQ(AEntero("255", 0, 255), 255);
    try {
        AEntero("256", 0, 255);
        FAIL();
    } catch (const ErrorEjecucion& e) {
        EXPECT_EQ(e.numero(), 6);
    }
    try {
        AEntero("x", 0, 255);
        FAIL();
    } catch (const ErrorEjecucion& e) {
        EXPECT_EQ(e.numero(), 13);
    }
}

TEST(ConversionesEP, PartirYMayusculas) {
    EXPECT_TRUE(Partir("", ",").isEmpty());
    EXPECT_EQ(Partir("a,", ","), QStringList({"a", ""}));
    EXPECT_EQ(Partir("a - b - c", " - ", 2), QStringList({"a", "b - c"}));
    EXPECT_EQ(Mayusculas(u"año ñoño éxito µ"_qs), u"AÑO ÑOÑO ÉXITO µ"_qs)
        << "a letter whose capital has no Windows-1252 byte stays";
    EXPECT_EQ(TextoFechaHora(QDateTime(QDate(2026, 1, 5), QTime(9, 3, 7))), "05/01/2026 9:03:07");
    EXPECT_EQ(TextoFechaHora(QDateTime(QDate(2026, 1, 5), QTime(0, 0))), "05/01/2026");
}

} // namespace
