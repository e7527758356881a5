#include "common/DatosEsperados.h"
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
    const QStringList filas = LineasDatos(QStringLiteral("vigilancia_estado.txt"));
    ASSERT_EQ(filas.size(), 20);
    for (const QString& fila : filas) {
        const QStringList c = fila.split(u'|');
        ASSERT_EQ(c.size(), 3) << fila.toStdString();
        const QString respuesta = c[1].trimmed();
        const QString esperado = c[2].trimmed();
        if (c[0].trimmed() == u"pedido") {
            EXPECT_EQ(vigilancia::PedidoResuelto(respuesta), esperado == u"1")
                << fila.toStdString();
        } else {
            EXPECT_EQ(vigilancia::MensajeResuelto(respuesta),
                      esperado == u"-" ? std::nullopt : std::optional<QString>(esperado))
                << fila.toStdString();
        }
    }
}
