#include "common/Entorno.h"
#include "update/ComprobarActualizacion.h"

#include <gtest/gtest.h>

namespace {

using actualizacion::Decision;

const QString kYaTiene = QStringLiteral(
    "Ya tiene la última versión, no es necesario actualizar ¿desea en cualquier caso "
    "actualizar el programa?");
const QString kNueva = QStringLiteral(
    "Hay una nueva actualización disponible, le recomendamos actualizar el programa ahora, "
    "pulse Sí para iniciar la actualización.");
const QString kSinConexion = QStringLiteral(
    "No se ha podido comprobar si hay actualizaciones. Por favor, compruebe su conexión a "
    "Internet.");
constexpr int kPregunta = estilo::SiNo + estilo::Pregunta;

struct Caso {
    const char* nombre;
    bool manual;
    bool noActualizar;
    QList<QByteArray> replies; // version, then descriptor; a "!" entry is a failed transfer
    QList<int> answers;
    Decision esperada;
    QList<QPair<int, QString>> cajas; // style and text, in order
    int urls; // handed to the transport, the plain http retry of a failed https one included
};

class Comprobar : public ::testing::TestWithParam<Caso> {};

TEST_P(Comprobar, DecideYPreguntaComoSeEspera) {
    const Caso& c = GetParam();
    Entorno e;
    e.m.CarpetaAplicacion = e.carpeta.path();
    e.m.IdEstablecimiento = 7;
    e.m.PasswordConfig = QStringLiteral("clave");
    e.m.NoActualizar = c.noActualizar;
    for (const QByteArray& r : c.replies) {
        r == "!" ? e.canales.directo->fallar() : e.canales.directo->responder(r);
    }
    e.cajas->responder(c.answers);

    EXPECT_EQ(actualizacion::Comprobar(e.m, c.manual), c.esperada);

    QList<QPair<int, QString>> vistas;
    for (const auto& caja : e.cajas->cajas()) {
        vistas.append({caja.estilo, caja.texto});
    }
    EXPECT_EQ(vistas, c.cajas);
    EXPECT_EQ(e.canales.directo->urls.size(), c.urls);
}

const QByteArray kDescriptor = "#0*http://h/d/*TarvimentaPedidos.exe*false*false*false#";
const QByteArray kForzado = "#0*http://h/d/*TarvimentaPedidos.exe*true*false*false#";

INSTANTIATE_TEST_SUITE_P(
    Casos, Comprobar,
    ::testing::Values(
        Caso{"automatica_con_noactualizar_no_pregunta_nada",
             false,
             true,
             {},
             {},
             Decision::Nada,
             {},
             0},
        Caso{"automatica_misma_version_calla", false, false, {"1.6.2"}, {}, Decision::Nada, {}, 1},
        Caso{"manual_misma_version_ofrece_reinstalar",
             true,
             false,
             {"1.6.2"},
             {respuesta::Si},
             Decision::Lanzar,
             {{kPregunta, kYaTiene}},
             1},
        Caso{"manual_con_noactualizar_sigue_funcionando",
             true,
             true,
             {"1.6.2"},
             {respuesta::No},
             Decision::Nada,
             {{kPregunta, kYaTiene}},
             1},
        Caso{"tres_caracteres_no_es_version", false, false, {"1.6"}, {}, Decision::Nada, {}, 1},
        Caso{"version_mas_vieja_tambien_actualiza",
             false,
             false,
             {"1.5.9", kDescriptor},
             {respuesta::Si},
             Decision::Lanzar,
             {{kPregunta, kNueva}},
             2},
        Caso{"nueva_rechazada",
             false,
             false,
             {"1.7.0", kDescriptor},
             {respuesta::No},
             Decision::Nada,
             {{kPregunta, kNueva}},
             2},
        Caso{"campo_tres_true_sin_pregunta",
             false,
             false,
             {"1.7.0", kForzado},
             {},
             Decision::Lanzar,
             {},
             2},
        Caso{"descriptor_con_salto_final_se_ignora",
             false,
             false,
             {"1.7.0", kForzado + "\n"},
             {},
             Decision::Nada,
             {},
             2},
        Caso{"manual_sin_conexion_avisa_y_ofrece",
             true,
             false,
             {"!", "!"},
             {respuesta::No},
             Decision::Nada,
             {{estilo::Critico, kSinConexion}, {kPregunta, kYaTiene}},
             2},
        Caso{"automatica_sin_conexion_calla", false, false, {"!", "!"}, {}, Decision::Nada, {}, 2}),
    [](const auto& info) { return std::string(info.param.nombre); });

TEST(ComprobarActualizacion, InstalacionDelSistemaNoOfreceYLoDiceSiSePide) {
    const QTemporaryDir propia;
    EXPECT_FALSE(actualizacion::InstalacionDelSistema(QStringLiteral("/usrx/..") + propia.path()));
    EXPECT_TRUE(actualizacion::InstalacionDelSistema(QStringLiteral("/usr/lib/x/../tarvimenta")));
    for (const bool manual : {false, true}) {
        Entorno e;
        e.m.CarpetaAplicacion = QStringLiteral("/usr/lib/tarvimenta-pedidos");
        e.m.IdEstablecimiento = 7;
        e.canales.directo->responder("1.7.0");
        e.canales.directo->responder(kForzado);
        EXPECT_EQ(actualizacion::Comprobar(e.m, manual), Decision::Nada);
        EXPECT_TRUE(e.canales.directo->urls.isEmpty());
        ASSERT_EQ(e.cajas->cajas().size(), manual ? 1 : 0);
        if (manual) {
            EXPECT_EQ(e.cajas->cajas()[0].estilo, estilo::Informacion);
            EXPECT_TRUE(e.cajas->cajas()[0].texto.contains(QStringLiteral("gestor de paquetes")));
        }
    }
}

} // namespace
