#include "base/ErrorEjecucion.h"
#include "common/ImprimirQString.h"
#include "common/NumeroDeError.h"
#include "server/cStringBuilder.h"

#include <functional>
#include <gtest/gtest.h>

TEST(cStringBuilder, CapacidadPorTrozos) {
    cStringBuilder sb;
    EXPECT_EQ(sb.Length(), 0);
    EXPECT_EQ(sb.Capacity(), 0);
    EXPECT_EQ(sb.ChunkSize(), 8192);
    EXPECT_EQ(sb.toString(), QString());
    sb.Append(u"abc");
    EXPECT_EQ(sb.Length(), 3);
    EXPECT_EQ(sb.Capacity(), 8192);
    sb.Append(QString(8190, u'x'));
    EXPECT_EQ(sb.Length(), 8193);
    EXPECT_EQ(sb.Capacity(), 16384);

    sb.Clear();
    EXPECT_EQ(sb.Capacity(), 0);
    sb.setChunkSize(10);
    EXPECT_EQ(sb.ChunkSize(), 10);
    sb.Append(QString(25, u'a'));
    EXPECT_EQ(sb.Capacity(), 30);
    // Unused whole chunks go back: 25 free characters of chunk 10 leave one chunk.
    sb.Remove(0, 20);
    sb.HeapMinimize();
    EXPECT_EQ(sb.Length(), 5);
    EXPECT_EQ(sb.Capacity(), 10);

    sb.setTheString(QStringLiteral("hola"));
    EXPECT_EQ(sb.toString(), QStringLiteral("hola"));
    EXPECT_EQ(sb.Capacity(), 10);
    sb.setTheString(QString());
    EXPECT_EQ(sb.Capacity(), 0);
    EXPECT_EQ(sb.Length(), 0);
}

TEST(cStringBuilder, EdicionYErrores) {
    cStringBuilder sb;
    sb.AppendNL(u"uno");
    sb.AppendByVal(QStringLiteral("dos"));
    EXPECT_EQ(sb.toString(), QStringLiteral("uno\r\ndos"));
    sb.Insert(0, u"[");
    sb.InsertByVal(sb.Length(), QStringLiteral("]"));
    sb.Insert(4, u"-");
    EXPECT_EQ(sb.toString(), QStringLiteral("[uno-\r\ndos]"));
    sb.Remove(4, 3);
    EXPECT_EQ(sb.toString(), QStringLiteral("[unodos]"));
    EXPECT_EQ(sb.Length(), 8);
    EXPECT_EQ(numeroDeError([&] { sb.Insert(9, u"x"); }), 9);
    EXPECT_EQ(numeroDeError([&] { sb.Remove(9, 0); }), 9);
    EXPECT_EQ(numeroDeError([&] { sb.Remove(5, 4); }), 9);
    EXPECT_EQ(sb.toString(), QStringLiteral("[unodos]"));
}

TEST(cStringBuilder, Buscar) {
    cStringBuilder sb;
    sb.Append(u"abcABC");
    EXPECT_EQ(sb.Find(QStringLiteral("c")), 3);
    EXPECT_EQ(sb.Find(QStringLiteral("c"), 4), 0);
    EXPECT_EQ(sb.Find(QStringLiteral("C"), 4), 6);
    EXPECT_EQ(sb.Find(QStringLiteral("C"), 1, 1), 3);
    EXPECT_EQ(sb.Find(QStringLiteral("x")), 0);
    // The blanks of the unused capacity are no hit.
    EXPECT_EQ(sb.Find(QStringLiteral(" ")), 0);
    EXPECT_EQ(sb.Find(QString(), 2), 2);
    EXPECT_EQ(numeroDeError([&] { sb.Find(QStringLiteral("a"), 0); }), 5);
    EXPECT_EQ(numeroDeError([&] { sb.Find(QStringLiteral("a"), 1, 2); }), 5);
}

TEST(cStringBuilder, AnnadirEsLineal) {
    // A million single characters: quadratic copying would take minutes here.
    cStringBuilder sb;
    const QChar c(u'z');
    for (int i = 0; i < 1000000; ++i) {
        sb.Append(QStringView(&c, 1));
    }
    EXPECT_EQ(sb.Length(), 1000000);
    EXPECT_EQ(sb.Capacity(), 123 * 8192);
    EXPECT_EQ(sb.toString().count(u'z'), 1000000);
}
