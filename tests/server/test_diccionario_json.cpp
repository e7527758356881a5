// Dictionaries search small objects in order and larger ones through a table made at the
// first search; both must answer alike through additions, absent keys and removals.
#include "base/ErrorEjecucion.h"
#include "common/ImprimirQString.h"
#include "common/NumeroDeError.h"
#include "server/ValorJson.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

QString clave(int i) {
    // Keys of one length differ only inside, where a careless hash would not look.
    return QStringLiteral("clave%1x").arg(i, 3, 10, QChar(u'0'));
}

class DiccionarioPorTamanno : public testing::TestWithParam<int> {};

} // namespace

TEST_P(DiccionarioPorTamanno, BuscaAnnadeYQuita) {
    const int n = GetParam();
    DiccionarioJson d;
    for (int i = 0; i < n; ++i) {
        d.Add(clave(i), ValorJson(clasico::Decimal(i)));
    }
    for (int i = 0; i < n; ++i) {
        ASSERT_TRUE(d.Exists(clave(i))) << i;
        EXPECT_EQ(d.Item(clave(i)).aEntero32(), i);
    }
    EXPECT_FALSE(d.Exists(QStringLiteral("clave999y")));
    // A repeated key keeps the first value.
    EXPECT_EQ(numeroDeError([&] { d.Add(clave(n - 1), ValorJson(true)); }), 457);
    EXPECT_EQ(d.Item(clave(n - 1)).aEntero32(), n - 1);
    // Reading an absent key adds it; after it, the table must still find the rest.
    EXPECT_TRUE(d.Item(QStringLiteral("nueva")).esEmpty());
    EXPECT_EQ(d.Count(), n + 1);
    for (int i = n; i < 3 * n; ++i) {
        d.Add(clave(i), ValorJson(clasico::Decimal(i)));
    }
    for (int i = 0; i < 3 * n; ++i) {
        ASSERT_EQ(d.Item(clave(i)).aEntero32(), i) << i;
    }
    // A removal closes the gap; every other key keeps its value and place.
    d.Remove(clave(1));
    EXPECT_FALSE(d.Exists(clave(1)));
    EXPECT_EQ(numeroDeError([&] { d.Remove(clave(1)); }), 5);
    EXPECT_EQ(d.Count(), 3 * n);
    EXPECT_EQ(d.Keys().at(1), n > 2 ? clave(2) : QStringLiteral("nueva"));
    for (int i = 0; i < 3 * n; ++i) {
        if (i != 1) {
            ASSERT_EQ(d.Item(clave(i)).aEntero32(), i) << i;
        }
    }
    EXPECT_EQ(d.Count(), 3 * n);
}

INSTANTIATE_TEST_SUITE_P(Tamannos, DiccionarioPorTamanno, testing::Values(2, 8, 9, 40));
