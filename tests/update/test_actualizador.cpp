#include "common/DatosEsperados.h"
#include "common/Entorno.h"
#include "common/EscritorioPrueba.h"
#include "shell/Form1.h"
#include "update/Actualizador.h"
#include "update/Procesos.h"
#include "update/ServicioActualizacion.h"
#include "update/ZipPrueba.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace {

const QString kFinalizada =
    QStringLiteral("La actualización ha finalizado. Pulse aceptar para abrir el programa ahora.");
const QString kVaya = QStringLiteral(
    "Vaya, ha ocurrido algo inesperado durante la instalación, póngase en contacto con "
    "Tarvimenta, por favor. Pulse aceptar para abrir el programa sin actualizar ahora.");

// Installers really run; programs started on their own are only recorded.
struct ProcesosPrueba : ProcesosQt {
    struct Inicio {
        QString programa;
        QStringList argumentos;
    };
    QList<Inicio>* inicios;
    QList<QStringList>* instaladores;

    bool iniciar(const QString& programa, const QStringList& argumentos) override {
        inicios->append({programa, argumentos});
        return true;
    }
    int ejecutarYEsperar(const QString& programa, const QStringList& argumentos,
                         const QString& carpeta, int msMax) override {
        instaladores->append(QStringList{programa} + argumentos);
        return ProcesosQt::ejecutarYEsperar(programa, argumentos, carpeta, msMax);
    }
};

bool Escribir(const QString& ruta, const QByteArray& bytes) {
    QFile f(ruta);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size();
}

// The updater process in a temporary installation: the descriptor comes through the
// gateway, the files from the stand-in service over loopback.
struct Actualizador_ : ::testing::Test {
    Entorno e;
    SimuladorPrueba sim;
    QTemporaryDir servidos;
    QTemporaryDir instalacion;
    QList<ProcesosPrueba::Inicio> inicios;
    QList<QStringList> instaladores;
    int terminado = 0;
    std::unique_ptr<Actualizador> act;
    const QByteArray viejo = BytesDePrueba(64 * 1024, 5);

    void SetUp() override {
        ASSERT_TRUE(sim.enMarcha());
        e.m.CarpetaAplicacion = instalacion.path();
        e.m.CarpetaDatos = instalacion.path();
        ASSERT_TRUE(Escribir(Ruta(QStringLiteral("TarvimentaPedidos")), viejo));
        auto procesos = std::make_unique<ProcesosPrueba>();
        procesos->inicios = &inicios;
        procesos->instaladores = &instaladores;
        act = std::make_unique<Actualizador>(e.m, std::move(procesos));
        act->OpcionesPasadas = {QStringLiteral("--carpeta=/datos")};
        act->Terminar = [this] { ++terminado; };
    }

    QString Ruta(const QString& nombre) const { return QDir(instalacion.path()).filePath(nombre); }

    QString Descriptor(const QString& archivo, const QString& silenciosa,
                       const QString& instalacionSilenciosa) const {
        return QStringLiteral("#0*%1*%2*false*%3*%4#")
            .arg(UrlDescargas(sim), archivo, silenciosa, instalacionSilenciosa);
    }

    // Runs the updater with this descriptor until it ends (bounded).
    void Actualizar(const QString& descriptor) {
        e.canales.directo->responder(descriptor.toLatin1());
        act->IniciarActualizacion({QStringLiteral("7"), QStringLiteral("clave")});
        ASSERT_TRUE(EsperarHasta([this] { return terminado > 0; }, 60000));
        EXPECT_EQ(terminado, 1);
    }

    QList<QPair<int, QString>> Cajas() const {
        QList<QPair<int, QString>> r;
        for (const auto& c : e.cajas->cajas()) {
            r.append({c.estilo, c.texto});
        }
        return r;
    }

    // The one restart of the desk, with the words it was given.
    QStringList Reinicio() const {
        if (inicios.size() != 1) {
            ADD_FAILURE() << inicios.size() << " programas iniciados";
            return {QStringLiteral("?")};
        }
        EXPECT_EQ(inicios[0].programa, Ruta(QStringLiteral("TarvimentaPedidos")));
        return inicios[0].argumentos;
    }
};

const QStringList kNormal{QStringLiteral("--carpeta=/datos")};
const QStringList kSinActualizar{QStringLiteral("noactualizar"),
                                 QStringLiteral("--carpeta=/datos")};

TEST_F(Actualizador_, DescriptoresQueNoSePuedenSeguirDevuelvenElEscritorio) {
    const struct {
        QString descriptor;
        int estilo;
        const char* contiene;
    } casos[] = {
        {QStringLiteral("no es un descriptor"), -1, ""}, // nothing to install: quietly back
        {QStringLiteral("#0*http://h/*x.msi*false*false*false#"), estilo::Exclamacion, "x.msi"},
        {QStringLiteral("#0*http://h/*../x.zip*false*false*false#"), estilo::Exclamacion,
         "../x.zip"},
        {QStringLiteral("#0*http://h/*x.exe#"), estilo::Critico, "'9'"},
    };
    for (const auto& c : casos) {
        SCOPED_TRACE(c.descriptor.toStdString());
        inicios.clear();
        e.cajas->limpiar();
        terminado = 0;
        Actualizar(c.descriptor);
        ASSERT_EQ(Cajas().size(), c.estilo < 0 ? 0 : 1);
        if (c.estilo < 0) {
            EXPECT_TRUE(e.canales.directo->urls.last().contains(
                "/pedidosGPRS/"
                "obtenerDatosActualizacionVB?idEstablecimiento=7&passwordconfig=clave&"));
            EXPECT_EQ(Reinicio(), kSinActualizar);
            continue;
        }
        EXPECT_EQ(Cajas()[0].first, c.estilo);
        EXPECT_TRUE(Cajas()[0].second.contains(QLatin1String(c.contiene)))
            << Cajas()[0].second.toStdString();
        EXPECT_EQ(Reinicio(), kSinActualizar);
        EXPECT_TRUE(LeerFichero(Ruta(QStringLiteral("TarvimentaPedidos"))) == viejo);
    }
}

// Each case of tests/data/actualizador_zip.json: the archive served, the installer's last
// line, the descriptor's silent flags; then the box, the restart's words, whether the
// download is cleaned and the installer's words.
TEST_F(Actualizador_, ZipEjecutaElInstaladorYSuCodigoDecide) {
    const QHash<QString, QList<QPair<int, QString>>> kCajas{
        {QString(), {}},
        {QStringLiteral("finalizada"), {{estilo::Informacion, kFinalizada}}},
        {QStringLiteral("vaya"), {{estilo::Informacion, kVaya}}}};
    for (const QJsonValue& v : JsonDatos(QStringLiteral("actualizador_zip.json")).array()) {
        const QJsonObject c = v.toObject();
        SCOPED_TRACE(c["nombre"].toString().toStdString());
        inicios.clear();
        instaladores.clear();
        e.cajas->limpiar();
        terminado = 0;
        const QString archivo = c["archivo"].toString();
        const QString carpeta = Ruta(QString(archivo).remove(QStringLiteral(".zip")));
        const QString registro = Ruta(QStringLiteral("INSTALLTV.LOG"));
        QFile::remove(registro);
        if (c["conRegistro"].toBool()) {
            ASSERT_TRUE(Escribir(registro, "antes\n"));
        }
        QList<EntradaZip> entradas{{QStringLiteral("datos/leeme.txt"), "hola", 0644}};
        if (c["setup"].isString()) {
            // Written without its run bit: the installer is run through the shell anyway.
            entradas.append({QStringLiteral("setup.sh"),
                             QByteArray("echo \"$@\" > ../instalado.txt\n") +
                                 c["setup"].toString().toUtf8() + "\n",
                             0644});
        }
        const QString zip = servidos.filePath(QStringLiteral("a.zip"));
        ASSERT_TRUE(CrearZip(zip, entradas));
        ASSERT_TRUE(ServirFichero(sim, servidos, archivo, LeerFichero(zip)));

        Actualizar(
            Descriptor(archivo, c["silenciosa"].toString(), c["instalacionSilenciosa"].toString()));

        EXPECT_EQ(Cajas(), kCajas.value(c["caja"].toString()));
        EXPECT_EQ(Reinicio(), c["reinicio"] == "normal" ? kNormal : kSinActualizar);
        EXPECT_TRUE(LeerFichero(Ruta(QStringLiteral("TarvimentaPedidos"))) == viejo);
        EXPECT_EQ(QFileInfo::exists(Ruta(archivo)), !c["limpia"].toBool());
        EXPECT_EQ(QFileInfo::exists(carpeta), !c["limpia"].toBool());
        ASSERT_EQ(instaladores.size(), 1);
        QStringList esperadas{QStringLiteral("/bin/sh"), carpeta + QStringLiteral("/setup.sh")};
        for (const QJsonValue& p : c["palabras"].toArray()) {
            esperadas.append(p == "@REGISTRO" ? registro : p.toString());
        }
        EXPECT_EQ(instaladores[0], esperadas);
        if (c["setup"].isString()) {
            EXPECT_EQ(
                QString::fromUtf8(LeerFichero(Ruta(QStringLiteral("instalado.txt")))).trimmed(),
                QStringList(esperadas.mid(2)).join(QLatin1Char(' ')));
        }
        QFile::remove(Ruta(QStringLiteral("instalado.txt")));
    }
}

TEST(MenuActualizaciones, ComprobarDesdeElMenuPreguntaAunqueNoHayaVersionNueva) {
    Entorno e;
    e.m.CarpetaAplicacion = e.carpeta.path();
    e.m.IdEstablecimiento = 7;
    e.m.NoActualizar = true; // the menu entry works all the same
    e.canales.directo->responder("1.6.2");
    e.cajas->responder({respuesta::No});
    Form1 f{e.m, {}};

    f.findChild<QAction*>(QStringLiteral("Actualizaciones"))->trigger();

    ASSERT_EQ(e.canales.directo->urls.size(), 1);
    EXPECT_TRUE(e.canales.directo->urls[0].contains("pedidosgprs/obtenerUltimaVersionVB?"));
    ASSERT_EQ(e.cajas->cajas().size(), 1);
    EXPECT_TRUE(e.cajas->cajas()[0].texto.startsWith(QStringLiteral("Ya tiene la última versión")));
}

TEST(Form1Actualizacion, LaOrdenDelSondeoLanzaSinPreguntarYSiNoPuedeLoDice) {
    Entorno e;
    e.m.CarpetaAplicacion = e.carpeta.path();
    e.m.NombreEjecutable = QStringLiteral("NoExiste"); // nothing to copy to the updater
    e.canales.directo->responder("forzaractualizarahora:si");
    Form1 f{e.m, {}};

    f.ComprobarPedidosNuevos();

    ASSERT_EQ(e.cajas->cajas().size(), 1);
    EXPECT_EQ(e.cajas->cajas()[0].estilo, estilo::Exclamacion);
    EXPECT_TRUE(e.cajas->cajas()[0].texto.startsWith(
        QStringLiteral("No se ha podido iniciar la actualización")));
    EXPECT_FALSE(QFileInfo::exists(e.carpeta.filePath(QStringLiteral("TVU"))));
    // The desk goes on: the next poll still leaves.
    f.ComprobarPedidosNuevos();
    EXPECT_GT(e.canales.directo->urls.size(), 1);
}

} // namespace
