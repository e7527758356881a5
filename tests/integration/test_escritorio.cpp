// The real desk executable against the stand-in service over loopback.
#include "common/EscritorioPrueba.h"
#include "common/SimuladorPrueba.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <gtest/gtest.h>

TEST(Escritorio, PrimerArranqueConCarpetaVaciaSondeaUnaVezYEspera) {
    SimuladorPrueba sim;
    ASSERT_TRUE(sim.enMarcha());
    EscritorioPrueba desk;
    ASSERT_TRUE(desk.iniciar(sim.base()));

    ASSERT_TRUE(sim.esperarPeticion(QStringLiteral("pedidosgprs/pedidosnuevos"), 20000));
    ASSERT_TRUE(desk.esperarVentana(
        [](const auto& v) {
            return v.value(QStringLiteral("TextEstadoApertura")).texto == QLatin1String("Abierto");
        },
        10000));
    // Nothing else leaves: no timer polls before the establishment is configured.
    QTest::qWait(4000);
    // The activation reads what is out of stock first (the https attempt moves the run to
    // http), then polls once.
    const auto registro = sim.registro();
    ASSERT_EQ(registro.size(), 3);
    EXPECT_EQ(registro[0].esquema, QStringLiteral("https"));
    EXPECT_EQ(registro[1].esquema, QStringLiteral("http"));
    EXPECT_EQ(registro[1].ruta, QStringLiteral("pedidosgprs/obtenerProductosAgotados"));
    EXPECT_EQ(registro[2].ruta, QStringLiteral("pedidosgprs/pedidosnuevos"));
    EXPECT_EQ(sim.consultas(registro[1].ruta), QStringList{"idEstablecimiento=0"});
    EXPECT_EQ(sim.consultas(registro[2].ruta),
              QStringList{"restid=0&password=&numconfig=1&modeloImpresora=3&version=1.6.2"
                          "&printresumenauto=Falso"});

    const auto v = desk.ventana();
    EXPECT_EQ(v.value(QStringLiteral("TextEstablecimiento")).texto,
              QStringLiteral("No configurado"));
    EXPECT_EQ(v.value(QStringLiteral("TextEstadoConexion")).texto, QStringLiteral("En línea"));
    EXPECT_TRUE(desk.cajas().isEmpty());
    // The first start leaves a fresh config.txt of 18 bytes in the empty folder.
    EXPECT_EQ(QFileInfo(QDir(desk.carpeta()).filePath(QStringLiteral("config.txt"))).size(), 18);

    // A second start of the same installation ends in silence.
    const int antes = static_cast<int>(sim.registro().size());
    EscritorioPrueba segundo(desk.carpeta());
    ASSERT_TRUE(segundo.iniciar(sim.base()));
    int codigo = -1;
    ASSERT_TRUE(segundo.esperarFin(15000, &codigo));
    EXPECT_EQ(codigo, 0);
    EXPECT_TRUE(segundo.cajas().isEmpty());
    QTest::qWait(500);
    EXPECT_EQ(sim.registro().size(), antes) << "the second desk must not talk to the service";
    EXPECT_TRUE(desk.enMarcha());

    // A desk that was killed leaves its lock behind; the next start still runs.
    ::kill(static_cast<pid_t>(desk.pid()), SIGKILL);
    ASSERT_TRUE(desk.esperarFin(5000));
    EscritorioPrueba tercero(desk.carpeta());
    sim.limpiarRegistro();
    ASSERT_TRUE(tercero.iniciar(sim.base()));
    ASSERT_TRUE(sim.esperarPeticion(QStringLiteral("pedidosgprs/pedidosnuevos"), 20000));

    // The end of a session (the terminate signal) closes cleanly and asks nothing.
    ASSERT_TRUE(tercero.enMarcha());
    ::kill(static_cast<pid_t>(tercero.pid()), SIGTERM);
    ASSERT_TRUE(tercero.esperarFin(10000, &codigo));
    EXPECT_EQ(codigo, 0);
    EXPECT_TRUE(tercero.cajas().isEmpty());
    EXPECT_FALSE(
        QFile::exists(QDir(desk.carpeta()).filePath(QStringLiteral(".TarvimentaPedidos.lock"))));
    // The closing request goes only after the user's own closing and its Yes.
    EXPECT_TRUE(
        sim.consultas(QStringLiteral("establecimiento/cerrarAbrirEstablecHasta")).isEmpty());
}
