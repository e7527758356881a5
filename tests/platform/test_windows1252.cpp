#include "base/Windows1252.h"

#include <gtest/gtest.h>

TEST(Windows1252, CadaByteTieneUnCaracterYVuelve) {
    QByteArray todos;
    for (int b = 0; b < 256; ++b) {
        todos.append(static_cast<char>(b));
    }
    const QString texto = cp1252::aTexto(todos);
    ASSERT_EQ(texto.size(), 256);
    EXPECT_EQ(cp1252::aBytes(texto), todos);
}

TEST(Windows1252, LetrasEspannolasYEuro) {
    EXPECT_EQ(cp1252::aTexto(QByteArray("\xF1\xD1\x80\xE1", 4)), QStringLiteral("ñÑ€á"));
    EXPECT_EQ(cp1252::asc(QChar(0x20AC)), 128);
    EXPECT_EQ(cp1252::chr(241), QChar(0xF1));
    // Bytes without a character in the page keep their own value.
    EXPECT_EQ(cp1252::chr(0x81).unicode(), 0x81);
    EXPECT_EQ(cp1252::asc(QChar(0x8D)), 0x8D);
}

TEST(Windows1252, FueraDeLaPaginaEsInterrogacion) {
    EXPECT_EQ(cp1252::aBytes(QStringLiteral("a\u4E2Db")), QByteArray("a?b"));
    EXPECT_EQ(cp1252::asc(QChar(0x4E2D)), '?');
}
