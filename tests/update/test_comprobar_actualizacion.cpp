#include "common/DatosEsperados.h"
#include "common/Entorno.h"
#include "update/ComprobarActualizacion.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
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

// Each case of the data file: the replies in order (version, then descriptor; "!" is a failed
// transfer), the buttons pressed, whether the updater is launched, the boxes shown and the
// addresses handed to the transport (the plain http retry of a failed https one included).
TEST(Comprobar, DecideYPreguntaComoSeEspera) {
    const QHash<QString, QPair<int, QString>> kCajas{
        {"pregunta ya tiene", {kPregunta, kYaTiene}},
        {"pregunta nueva", {kPregunta, kNueva}},
        {"critico sin conexion", {estilo::Critico, kSinConexion}}};
    const QJsonArray casos = JsonDatos(QStringLiteral("comprobar_actualizacion.json")).array();
    ASSERT_FALSE(casos.isEmpty());
    for (const QJsonValue& v : casos) {
        const QJsonObject c = v.toObject();
        SCOPED_TRACE(c["nombre"].toString().toStdString());
        Entorno e;
        e.m.CarpetaAplicacion = e.carpeta.path();
        e.m.IdEstablecimiento = 7;
        e.m.PasswordConfig = QStringLiteral("clave");
        e.m.NoActualizar = c["noActualizar"].toBool();
        for (const QJsonValue& r : c["respuestas"].toArray()) {
            r == "!" ? e.canales.directo->fallar()
                     : e.canales.directo->responder(r.toString().toLatin1());
        }
        QList<int> botones;
        for (const QJsonValue& b : c["botones"].toArray()) {
            botones.append(b == "si" ? respuesta::Si : respuesta::No);
        }
        e.cajas->responder(botones);

        EXPECT_EQ(actualizacion::Comprobar(e.m, c["manual"].toBool()),
                  c["lanza"].toBool() ? Decision::Lanzar : Decision::Nada);

        QList<QPair<int, QString>> vistas;
        QList<QPair<int, QString>> esperadas;
        for (const auto& caja : e.cajas->cajas()) {
            vistas.append({caja.estilo, caja.texto});
        }
        for (const QJsonValue& caja : c["cajas"].toArray()) {
            ASSERT_TRUE(kCajas.contains(caja.toString()));
            esperadas.append(kCajas.value(caja.toString()));
        }
        EXPECT_EQ(vistas, esperadas);
        EXPECT_EQ(e.canales.directo->urls.size(), c["urls"].toInt());
    }
}

const QByteArray kForzado = "#0*http://h/d/*TarvimentaPedidos.exe*true*false*false#";

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
