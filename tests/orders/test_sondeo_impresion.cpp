#include "orders/SondeoImpresion.h"
#include "orders/VigilanciaEstado.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <optional>

namespace si = sondeo_impresion;

namespace {

// "1020,1019,...,desde": `n` numbers counting down.
QString Lista(int desde, int n) {
    QStringList l;
    for (int i = n - 1; i >= 0; --i) {
        l << QString::number(desde + i);
    }
    return l.join(u',');
}

} // namespace

TEST(SondeoImpresion, LaListaVaDelMasNuevoAlMasAntiguoYGuardaVeinte) {
    const struct {
        QString antes, numero, despues;
    } casos[] = {
        {QString(), QStringLiteral("1001"), QStringLiteral("1001")},
        {QStringLiteral("1002,1001"), QStringLiteral("1003"), QStringLiteral("1003,1002,1001")},
        {Lista(1001, 19), QStringLiteral("1020"), Lista(1001, 20)},
        {Lista(1001, 20), QStringLiteral("1021"), Lista(1002, 20)},
        // A list that came longer from the file loses one number per order, no more.
        {Lista(1001, 25), QStringLiteral("1026"), Lista(1002, 25)},
    };
    for (const auto& c : casos) {
        EXPECT_EQ(si::AnadirImpreso(c.antes, c.numero), c.despues) << c.antes.toStdString();
    }
}

TEST(VigilanciaEstado, DosOMasEsRespondidoYLoDemasSigueEsperando) {
    const struct {
        const char* respuesta;
        bool resuelto;
    } pedidos[] = {
        {"#2#", true},
        {"#7#", true},
        {"# 2 #", true},
        {"#1,5#", true}, // rounds to 2
        {"#1#", false},
        {"#0#", false},
        {"#-3#", false},
        {"#x#", false},
        {"##", false},
        {"2", false},
        {"", false},
        {"error", false},
        {"#99999999999999999999999999999999#", false}, // no status: no failure either
    };
    for (const auto& c : pedidos) {
        EXPECT_EQ(vigilancia::PedidoResuelto(QString::fromUtf8(c.respuesta)), c.resuelto)
            << c.respuesta;
    }
    const struct {
        const char* respuesta;
        std::optional<QString> contestado;
    } mensajes[] = {
        {"#2;Ya va en camino#", QStringLiteral("Ya va en camino")},
        {"#3;#", QString()},
        {"#2#", QString()},                  // no answer piece: settled all the same
        {"#2;Ã±am#", QStringLiteral("ñam")}, // repaired as any reply
        {"#1;#", std::nullopt},
        {"#x;hola#", std::nullopt},
        {"2;hola", std::nullopt},
    };
    for (const auto& c : mensajes) {
        EXPECT_EQ(vigilancia::MensajeResuelto(QString::fromUtf8(c.respuesta)), c.contestado)
            << c.respuesta;
    }
}
