#include "base/Conversiones.h"
#include "base/ErrorEjecucion.h"
#include "common/ImprimirQString.h"
#include "common/NumeroDeError.h"

#include <functional>
#include <gtest/gtest.h>

using clasico::Decimal;

TEST(IsNumeric, FormasEspannolasAceptadasYRechazadas) {
    for (const char* t :
         {"0", "  12  ", "-3", "+3", "3-", "1.234", "1.234,5", "1.234.567,25", ",5", "5,", "1e3",
          "1,5E-2", "2d2", "12 €", "€12", "-€ 12", "€-12", "12€-", "\t7\t"}) {
        EXPECT_TRUE(clasico::IsNumeric(QString::fromUtf8(t))) << t;
    }
    for (const char* t : {"", "   ", "-", ",", ".5", "1,2,3", "1..2", "1,5.3", "12a", "1e", "1e+",
                          "--1", "+-1", "-1-", "€", "€12€", "1 2", "abc", "0x10"}) {
        EXPECT_FALSE(clasico::IsNumeric(QString::fromUtf8(t))) << t;
    }
}

TEST(Decimal, ConservaLasCifrasDelTexto) {
    // 0,1 + 0,2 is exactly 0,3 with decimals, unlike binary floats.
    EXPECT_EQ(clasico::CDec(u"0,1") + clasico::CDec(u"0,2"), clasico::CDec(u"0,3"));
    EXPECT_EQ(clasico::CDec(u"12,50").escala(), 2);
    EXPECT_EQ(clasico::CDec(u"12,50").aTexto(), QStringLiteral("12,5"));
    EXPECT_EQ(clasico::CDec(u"1.234,05").aTexto(), QStringLiteral("1234,05"));
    EXPECT_EQ(clasico::CDec(u"-0,000001").aTexto(), QStringLiteral("-0,000001"));
    EXPECT_EQ(clasico::CDec(u"1,5e3").aTexto(), QStringLiteral("1500"));
    EXPECT_EQ(clasico::CDec(u"25e-3").aTexto(), QStringLiteral("0,025"));
    EXPECT_EQ(clasico::CDec(u" 7 €").aTexto(), QStringLiteral("7"));
    EXPECT_EQ(clasico::CDec(u"5-").aTexto(), QStringLiteral("-5"));
    EXPECT_EQ(clasico::CDec(u"-0").aTexto(), QStringLiteral("0"));
    // 28 decimal places and 29 whole digits are the limits of the type.
    EXPECT_EQ(clasico::CDec(u"0,1234567890123456789012345678").aTexto(),
              QStringLiteral("0,1234567890123456789012345678"));
    EXPECT_EQ(clasico::CDec(u"79228162514264337593543950335").aTexto(),
              QStringLiteral("79228162514264337593543950335"));
    // Places beyond 28 are rounded away, halves to even.
    EXPECT_EQ(clasico::CDec(u"0,00000000000000000000000000025").aTexto(),
              QStringLiteral("0,0000000000000000000000000002"));
    EXPECT_EQ(clasico::CDec(u"1e-40").aTexto(), QStringLiteral("0"));
}

TEST(Decimal, DesbordamientoYTiposQueNoCoinciden) {
    EXPECT_EQ(numeroDeError([] { clasico::CDec(u"79228162514264337593543950336"); }), 6);
    EXPECT_EQ(numeroDeError([] { clasico::CDec(u"1e29"); }), 6);
    EXPECT_EQ(numeroDeError([] { clasico::CDec(u"1e400"); }), 6);
    EXPECT_EQ(numeroDeError([] { clasico::CDec(u""); }), 13);
    EXPECT_EQ(numeroDeError([] { clasico::CDec(u"12.50.3,1,1"); }), 13);
    const Decimal maximo = clasico::CDec(u"79228162514264337593543950335");
    EXPECT_EQ(numeroDeError([&] { (void)(maximo + Decimal(1)); }), 6);
}

TEST(Decimal, SumaRestaYOrden) {
    EXPECT_EQ((clasico::CDec(u"10,25") - clasico::CDec(u"0,75")).aTexto(), QStringLiteral("9,5"));
    EXPECT_EQ((clasico::CDec(u"-3") + clasico::CDec(u"1,5")).aTexto(), QStringLiteral("-1,5"));
    EXPECT_LT(clasico::CDec(u"-2"), clasico::CDec(u"-1,5"));
    EXPECT_LT(clasico::CDec(u"0,0000000000000000000000000001"), clasico::CDec(u"1"));
    EXPECT_GT(clasico::CDec(u"79228162514264337593543950335"),
              clasico::CDec(u"7,9228162514264337593543950335"));
    EXPECT_EQ(clasico::CDec(u"1,10"), clasico::CDec(u"1,1"));
    EXPECT_DOUBLE_EQ(clasico::CDec(u"-12,5").aDouble(), -12.5);
}

TEST(ConversionEntera, RedondeoAlPar) {
    EXPECT_EQ(clasico::CInt(u"2,5"), 2);
    EXPECT_EQ(clasico::CInt(u"3,5"), 4);
    EXPECT_EQ(clasico::CInt(u"-2,5"), -2);
    EXPECT_EQ(clasico::CInt(u"-3,5"), -4);
    EXPECT_EQ(clasico::CInt(u"2,5000001"), 3);
    EXPECT_EQ(clasico::CInt(u"2,4999"), 2);
    EXPECT_EQ(clasico::CLng(u"1.000.000"), 1000000);
    EXPECT_EQ(clasico::CInt(clasico::CDec(u"0,5")), 0);
    EXPECT_EQ(clasico::CInt(clasico::CDec(u"1,5")), 2);
}

TEST(ConversionEntera, LimitesYErrores) {
    EXPECT_EQ(clasico::CInt(u"32767"), 32767);
    EXPECT_EQ(clasico::CInt(u"-32768"), -32768);
    EXPECT_EQ(clasico::CInt(u"32767,4"), 32767);
    EXPECT_EQ(numeroDeError([] { clasico::CInt(u"32767,5"); }), 6);
    EXPECT_EQ(numeroDeError([] { clasico::CInt(u"32768"); }), 6);
    EXPECT_EQ(numeroDeError([] { clasico::CInt(u"-32769"); }), 6);
    EXPECT_EQ(clasico::CLng(u"2147483647"), 2147483647);
    EXPECT_EQ(clasico::CLng(u"-2147483648"), -2147483647 - 1);
    EXPECT_EQ(numeroDeError([] { clasico::CLng(u"2147483648"); }), 6);
    EXPECT_EQ(numeroDeError([] { clasico::CInt(u"doce"); }), 13);
    EXPECT_EQ(numeroDeError([] { clasico::CLng(u""); }), 13);
}

TEST(Split, ComoElClasico) {
    EXPECT_TRUE(clasico::Split(QString(), QStringLiteral(",")).isEmpty());
    EXPECT_EQ(clasico::Split(QStringLiteral("a,"), QStringLiteral(",")),
              (QStringList{QStringLiteral("a"), QString()}));
    EXPECT_EQ(clasico::Split(QStringLiteral(",,"), QStringLiteral(",")),
              (QStringList{QString(), QString(), QString()}));
    EXPECT_EQ(clasico::Split(QStringLiteral("1%%2%%3"), QStringLiteral("%%")),
              (QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}));
    EXPECT_EQ(
        clasico::Split(QStringLiteral("Pizza - grande - sin queso"), QStringLiteral(" - "), 2),
        (QStringList{QStringLiteral("Pizza"), QStringLiteral("grande - sin queso")}));
    EXPECT_EQ(clasico::Split(QStringLiteral("abc"), QStringLiteral(";")),
              QStringList{QStringLiteral("abc")});
}

TEST(Texto, TrimSoloBlancosYMayusculas) {
    EXPECT_EQ(clasico::Trim(QStringLiteral("  a b \t ")), QStringLiteral("a b \t"));
    EXPECT_EQ(clasico::LTrim(QStringLiteral("  x  ")), QStringLiteral("x  "));
    EXPECT_EQ(clasico::RTrim(QStringLiteral("  x  ")), QStringLiteral("  x"));
    EXPECT_EQ(clasico::Trim(QStringLiteral("\r\nx\r\n")), QStringLiteral("\r\nx\r\n"));
    EXPECT_EQ(clasico::UCase(QStringLiteral("año pingüino camión ç")),
              QStringLiteral("AÑO PINGÜINO CAMIÓN Ç"));
    // No change of length and no letters from outside the code page.
    EXPECT_EQ(clasico::UCase(QStringLiteral("straße µ")), QStringLiteral("STRAßE µ"));
    EXPECT_EQ(clasico::TextoBooleano(true), QStringLiteral("Verdadero"));
    EXPECT_EQ(clasico::TextoBooleano(false), QStringLiteral("Falso"));
}

TEST(Fechas, TextoPorDefecto) {
    EXPECT_EQ(clasico::TextoFecha(QDateTime(QDate(2026, 3, 7), QTime(9, 5, 3))),
              QStringLiteral("07/03/2026 9:05:03"));
    EXPECT_EQ(clasico::TextoFecha(QDateTime(QDate(2026, 12, 31), QTime(23, 59, 59))),
              QStringLiteral("31/12/2026 23:59:59"));
    EXPECT_EQ(clasico::TextoFecha(QDateTime(QDate(2026, 3, 7), QTime(0, 0))),
              QStringLiteral("07/03/2026"));
    EXPECT_EQ(clasico::TextoFecha(QDateTime(QDate(1899, 12, 30), QTime(14, 5))),
              QStringLiteral("14:05:00"));
}

TEST(Fechas, LecturaEnOrdenEspannol) {
    EXPECT_EQ(clasico::CDate(u"7/3/2026 9:05"), QDateTime(QDate(2026, 3, 7), QTime(9, 5)));
    EXPECT_EQ(clasico::CDate(u"07/03/2026 21:05:09"),
              QDateTime(QDate(2026, 3, 7), QTime(21, 5, 9)));
    EXPECT_EQ(clasico::CDate(u"2026-03-07 21:05:09"),
              QDateTime(QDate(2026, 3, 7), QTime(21, 5, 9)));
    EXPECT_EQ(clasico::CDate(u"2026-03-07T21:05"), QDateTime(QDate(2026, 3, 7), QTime(21, 5)));
    EXPECT_EQ(clasico::CDate(u"1/2/29"), QDateTime(QDate(2029, 2, 1), QTime(0, 0)));
    EXPECT_EQ(clasico::CDate(u"1/2/30"), QDateTime(QDate(1930, 2, 1), QTime(0, 0)));
    EXPECT_EQ(clasico::CDate(u"13:30"), QDateTime(QDate(1899, 12, 30), QTime(13, 30)));
    for (const char16_t* malo : {u"", u"31/02/2026", u"13/13/2026", u"7/3/2026 25:00", u"hoy",
                                 u"7/3", u"7/3/2026 9", u"7.3.2026"}) {
        EXPECT_FALSE(clasico::IsDate(malo)) << QString::fromUtf16(malo).toStdString();
    }
    EXPECT_EQ(numeroDeError([] { clasico::CDate(u"32/01/2026"); }), 13);
}
