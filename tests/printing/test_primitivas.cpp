// Widths, word wrap, the driver line and the estimated delivery time.
#include "base/ErrorEjecucion.h"
#include "base/Pedido.h"
#include "common/ImpresoraDWGrabadora.h"
#include "common/NumeroDeError.h"
#include "printing/PrimitivasTicket.h"

#include <gtest/gtest.h>

namespace {

TEST(Espacios, CuentaYNegativos) {
    EXPECT_EQ(Espacios(3), "   ");
    EXPECT_EQ(Espacios(0), "");
    EXPECT_EQ(Espacios(-3), "");
}

TEST(ColumnasEP, RangosDelUltimoByteDelComando) {
    EXPECT_EQ(ColumnasEP(48, "27,33,48", true), 24);
    EXPECT_EQ(ColumnasEP(48, "27,33,0", true), 48);
    EXPECT_EQ(ColumnasEP(48, "27,33,16", true), 48); // double height only
    EXPECT_EQ(ColumnasEP(48, "27,33,31", true), 48);
    EXPECT_EQ(ColumnasEP(48, "27,33,32", true), 24);
    EXPECT_EQ(ColumnasEP(48, "27,33,63", true), 24);
    EXPECT_EQ(ColumnasEP(48, "27,33,64", true), 48);
    EXPECT_EQ(ColumnasEP(48, "27,33,80", true), 48);
    EXPECT_EQ(ColumnasEP(48, "27,33,95", true), 48);
    EXPECT_EQ(ColumnasEP(48, "27,33,96", true), 24);
    EXPECT_EQ(ColumnasEP(48, "27,33,112", true), 24);
    EXPECT_EQ(ColumnasEP(48, "29,33,128", true), 24) << "ranges, not the bit mask";
    EXPECT_EQ(ColumnasEP(48, "29,33,144", true), 24);
    EXPECT_EQ(ColumnasEP(47, "27,33,48", true), 23) << "cut, not rounded";
    EXPECT_EQ(ColumnasEP(48, "27,33,48", false), 48);
    EXPECT_EQ(ColumnasEP(48, "", true), 48);
}

TEST(PartirLineas, CortesEnBlancosYPerdidasConocidas) {
    EXPECT_EQ(PartirLineas("abc def", 4), "abc \r\ndef");
    EXPECT_EQ(PartirLineas("abcde", 4), "abcd") << "the last lone character is lost";
    EXPECT_EQ(PartirLineas("x", 4), "");
    EXPECT_EQ(PartirLineas("", 4), "");
    EXPECT_EQ(PartirLineas("abcd", 4), "abcd");
    EXPECT_EQ(PartirLineas("abcdefgh", 4), "abcd\r\nefgh");
    EXPECT_EQ(PartirLineas("ab cdefgh ij", 5), "ab \r\ncdefg\r\nh ij");
    EXPECT_EQ(PartirLineas("uno\r\n\r\ndos tres", 4), "uno\r\ndos \r\ntres")
        << "empty paragraphs leave no empty line";
    EXPECT_EQ(PartirLineas("Calle Mayor 5, 2ºB", 48), "Calle Mayor 5, 2ºB");
    // A width with no room is an error, not an endless loop.
    EXPECT_THROW(PartirLineas("abc", 0), ErrorEjecucion);
    EXPECT_THROW(PartirLineasEP("abc", 1, "27,33,48", true), ErrorEjecucion);
}

TEST(PartirLineas, EPyDWUsanSuAncho) {
    EXPECT_EQ(PartirLineasEP("Para: 21:30 del sábado", 32, "27,33,48", true),
              "Para: 21:30 del \r\nsábado");
    EXPECT_EQ(PartirLineasEP("Para: 21:30 del sábado", 32, "27,33,48", false),
              "Para: 21:30 del sábado");
    ImpresoraDWGrabadora impresora;
    impresora.setFontSize(10); // 80 * 3.8448 / 10 = 30.76 -> 31
    EXPECT_EQ(PartirLineasDW(impresora, "Avenida de la Constitución 123 bajo", 80, 3.8448),
              "Avenida de la Constitución 123 \r\nbajo");
}

TEST(CaracteresPorLineaDW, RedondeoAlParYTamannoActual) {
    ImpresoraDWGrabadora impresora;
    impresora.setFontSize(10);
    EXPECT_EQ(CaracteresPorLineaDW(impresora, 80, 3.8448), 31);
    impresora.setFontSize(14);
    EXPECT_EQ(CaracteresPorLineaDW(impresora, 80, 3.8448), 22); // 21.97
    impresora.setFontSize(8);
    EXPECT_EQ(CaracteresPorLineaDW(impresora, 50, 3.6), 22) << "22.5 goes to the even 22";
    EXPECT_EQ(CaracteresPorLineaDW(impresora, 50, 3.76), 24) << "23.5 goes to the even 24";
    impresora.setFontSize(0);
    EXPECT_THROW(CaracteresPorLineaDW(impresora, 80, 3.8448), ErrorEjecucion);
}

TEST(ImprimirLineaDW, BajaElMargenImprimeAlTamannoYLoRestaura) {
    ImpresoraDWGrabadora impresora;
    impresora.setFontSize(10);
    impresora.setCurrentY(100);
    impresora.setCurrentX(250);
    ImprimirLineaDW(impresora, 60, 14, "Total");
    ASSERT_EQ(impresora.lineas.size(), 1);
    EXPECT_EQ(impresora.lineas[0].texto, "Total");
    EXPECT_DOUBLE_EQ(impresora.lineas[0].tamanno, 14);
    EXPECT_DOUBLE_EQ(impresora.lineas[0].y, 160);
    EXPECT_DOUBLE_EQ(impresora.lineas[0].x, 250) << "the left position is not touched";
    EXPECT_DOUBLE_EQ(impresora.FontSize(), 10);
}

Pedido pedidoAceptadoA(QDateTime aceptado, QString minutos) {
    Pedido p;
    p.HoraAceptacion = std::move(aceptado);
    p.TiempoEstimado = std::move(minutos);
    return p;
}

TEST(HoraEntregaEstimada, HorasYMinutosSinCeroDelanteNiSegundos) {
    const QDate dia(2026, 11, 22);
    EXPECT_EQ(HoraEntregaEstimada(pedidoAceptadoA(QDateTime(dia, QTime(13, 5, 40)), "30")),
              "13:35");
    EXPECT_EQ(HoraEntregaEstimada(pedidoAceptadoA(QDateTime(dia, QTime(8, 50)), "15")), "9:05");
    EXPECT_EQ(HoraEntregaEstimada(pedidoAceptadoA(QDateTime(dia, QTime(23, 50)), "20")), "0:10");
    EXPECT_EQ(HoraEntregaEstimada(pedidoAceptadoA(QDateTime(dia, QTime(23, 40)), "20")), "0:00");
    EXPECT_EQ(HoraEntregaEstimada(pedidoAceptadoA(QDateTime(dia, QTime(12, 0)), "45,5")), "12:46")
        << "45.5 minutes round to the even 46";
    // An unset acceptance counts from the zero date; the default text of a moment on that
    // day is its time alone ("0:20:00"), with no blank to split at: the midnight answer.
    EXPECT_EQ(HoraEntregaEstimada(pedidoAceptadoA(QDateTime(), "20")), "0:00");
    // Plain clock arithmetic: the spring change of hour (Madrid, 29/03/2026 at 2:00) is not
    // jumped over.
    EXPECT_EQ(
        HoraEntregaEstimada(pedidoAceptadoA(QDateTime(QDate(2026, 3, 29), QTime(1, 50)), "30")),
        "2:20");
    // Minutes that are no number fail.
    EXPECT_EQ(numeroDeError([] {
                  HoraEntregaEstimada(
                      pedidoAceptadoA(QDateTime(QDate(2026, 1, 1), QTime(1, 0)), "null"));
              }),
              13);
}

} // namespace
