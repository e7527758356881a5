#include "common/Entorno.h"
#include "orders/Sondeo.h"
#include "server/TextoServidor.h"

#include <gtest/gtest.h>

using sondeo::Respuesta;

TEST(Sondeo, LaPeticionLlevaLosValoresEnSuOrden) {
    Entorno e;
    e.m.RestId = 42;
    e.m.Pgprs = QStringLiteral("clave");
    e.m.NumConfig = 3;
    EXPECT_EQ(sondeo::RutaPedidosNuevos(e.m),
              QStringLiteral("pedidosgprs/pedidosnuevos?restid=42&password=clave&numconfig=3"
                             "&modeloImpresora=3&version=1.6.2&printresumenauto=Falso"));
    e.m.PrintResumenAuto = true;
    EXPECT_TRUE(
        sondeo::RutaPedidosNuevos(e.m).endsWith(QStringLiteral("&printresumenauto=Verdadero")));
}

TEST(Sondeo, LaLineaDePedidoSigueElPatronClasico) {
    for (const char* t : {"#a#", "#1*2*3#", "###", "#a\rb#"}) {
        EXPECT_TRUE(EsLineaPedido(QString::fromUtf8(t))) << t;
    }
    for (const char* t : {"##", "#", "#a\nb#", " #a#", "#a# ", ""}) {
        EXPECT_FALSE(EsLineaPedido(QString::fromUtf8(t))) << t;
    }
}

TEST(Sondeo, LaPrimeraFilaQueCoincideGana) {
    EXPECT_EQ(sondeo::Clasificar(QStringLiteral("#estadoapertura#")), Respuesta::Pedido);
    EXPECT_EQ(sondeo::Clasificar(QStringLiteral("IMPSESION")), Respuesta::ImprimirSesion);
    EXPECT_EQ(sondeo::Clasificar(QStringLiteral("IMPDIA")), Respuesta::ImprimirDia);
    EXPECT_EQ(sondeo::Clasificar(QStringLiteral("IMPDIA ")), Respuesta::Nada);
    EXPECT_EQ(sondeo::Clasificar(QStringLiteral("x estadoapertura:Abierto mensajeestablec")),
              Respuesta::EstadoApertura);
    EXPECT_EQ(sondeo::Clasificar(QStringLiteral("EstadoApertura:Abierto")), Respuesta::Nada);
    EXPECT_EQ(sondeo::Clasificar(QStringLiteral("{\"mensajeestablec\":1}")), Respuesta::Mensaje);
    EXPECT_EQ(sondeo::Clasificar(QStringLiteral("forzaractualizarahora:si")),
              Respuesta::ForzarActualizacion);
    EXPECT_EQ(sondeo::Clasificar(QStringLiteral("error")), Respuesta::Nada);
    EXPECT_EQ(sondeo::Clasificar(QString()), Respuesta::Nada);
    // (What each opening state shows is the main window's test.) Every occurrence of the
    // marker goes, wherever it stands.
    EXPECT_EQ(sondeo::LeerApertura(QStringLiteral("xestadoapertura:estadoapertura:Abierto")).texto,
              QStringLiteral("xAbierto"));
}
