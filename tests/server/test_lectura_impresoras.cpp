#include "base/ErrorEjecucion.h"
#include "common/DatosEsperados.h"
#include "common/ImprimirQString.h"
#include "common/NumeroDeError.h"
#include "printing/MiembrosImpresora.h"
#include "server/LectorJson.h"
#include "server/LecturaImpresoras.h"
#include "server/ValorJson.h"

#include <gtest/gtest.h>

namespace {

using Ranuras = std::array<ClassConfigImpresora, 10>;

// The common keys of an element, without a type block.
QString Comun(int numero, const char* tipo, const char* nombre, const QString& extra = {}) {
    return QStringLiteral("{numeroimpresora:%1, tipoimpresion:'%2', nombreimpresora:'%3',"
                          " numerocopiasaceptado:2, numerocopiasrechazado:1,"
                          " separadorlineas:'--'%4}")
        .arg(numero)
        .arg(QLatin1String(tipo), QLatin1String(nombre), extra);
}

const QString kBloqueDw = QStringLiteral(
    ", tamannofuenteseparador:4, anchopapel:80, factorfuente:3.8448, fuente:'Lucida Console',"
    " iniciox:5, inicioy:6, margenentrelineas:60, tamannofuentegrande:14,"
    " tamannofuentepequenna:10");
const QString kBloqueEp =
    QStringLiteral(", epconexion:'COM1:9600,n,8,1', epnumcolumnas:48, epcominicializar:'27,64',"
                   " epcomconfigcaracteres:'27,116,19', epcomdoblealtoactivar:'27,33,48',"
                   " epcomdoblealtodesact:'27,33,0', epcomcotarpapel:'29,86,66,0'");

int Leer(Ranuras& r, const QString& lista) {
    return LeerConfigImpresoras(r, JSON_Parse(lista));
}

int NumeroDeError(Ranuras& r, const QString& lista) {
    return numeroDeError([&] { Leer(r, lista); });
}

// Each member of a data file's lines ("slot member value") holds that value after the reading.
void Comprobar(const Ranuras& r, const QString& datos) {
    const QStringList lineas = LineasDatos(datos);
    ASSERT_FALSE(lineas.isEmpty());
    for (const QString& l : lineas) {
        const QStringList p = l.split(u' ');
        const QVariant leido = miembros_impresora::Leer(r.at(p[0].toUInt() - 1), p[1]);
        EXPECT_TRUE(leido.isValid()) << l.toStdString();
        EXPECT_EQ(leido.toString(), p.mid(2).join(u' ')) << l.toStdString();
    }
}

} // namespace

TEST(LecturaImpresoras, CadaTipoLeeSuBloqueYLasOpcionalesTomanSuValor) {
    Ranuras r;
    const int n = Leer(r, QStringLiteral("[") + Comun(1, "DW", "Caja+de+la+barra%E1", kBloqueDw) +
                              QStringLiteral(",") +
                              Comun(3, "EP", "Tique",
                                    kBloqueEp + QStringLiteral(", anchopapel:80,"
                                                               " numerocopiasaceptadorecoger:0,"
                                                               " epcomsubirlineas:'27,100,3'")) +
                              QStringLiteral("]"));
    EXPECT_EQ(n, 2);
    // Missing copies for collection: -1, the same as accepted. The driver block is not read
    // for a raw printer, present or not.
    Comprobar(r, QStringLiteral("impresoras_tipos.txt"));
    for (int i : {1, 3, 4, 5, 6, 7, 8, 9}) {
        EXPECT_TRUE(r[static_cast<size_t>(i)].NombreImpresora.isEmpty()) << i;
    }
}

TEST(LecturaImpresoras, LosCamposDeCocinaSoloSiCocinaYLosBooleanos) {
    Ranuras r;
    const QString cocina = QStringLiteral(
        ", categoriasids:'1,2', productosexcepids:'7', productosids:'9', formaenvio:2,"
        " mostrarnombreimpresora:1, nombreimpresoragrande:1, datosclientecocina:1,"
        " mostrarpreciosprodcocina:1, numpedidoyformaenvfinal:3");
    Leer(r,
         QStringLiteral("[") +
             Comun(2, "EP", "Horno", kBloqueEp + cocina + QStringLiteral(", cocina:2")) +
             QStringLiteral(",") +
             Comun(4, "EP", "Barra", kBloqueEp + cocina + QStringLiteral(", cocina:0")) +
             QStringLiteral(",") +
             Comun(5, "XX", "Rara",
                   QStringLiteral(", reemplazarcaracescpospc858:true, datosclienteyenviogrande:2,"
                                  " productosycomentariosmayus:'no es nada', mostrarhoraentrega:1,"
                                  " saltolineaopciones:null")) +
             QStringLiteral("]"));
    // Kitchen: any non-zero value. Booleans: only 1 and true.
    Comprobar(r, QStringLiteral("impresoras_cocina.txt"));
}

TEST(LecturaImpresoras, NumeroFueraDeRangoYRanurasQueDesaparecen) {
    Ranuras r;
    r[6].NombreImpresora = QStringLiteral("Ya no está");
    // 11 writes over the slot that the element before it chose.
    const int n =
        Leer(r, QStringLiteral("[") + Comun(2, "DW", "Primera", kBloqueDw) + QStringLiteral(",") +
                    Comun(11, "EP", "Encima", kBloqueEp) + QStringLiteral("]"));
    EXPECT_EQ(n, 2);
    EXPECT_EQ(r[1].NombreImpresora, QStringLiteral("Encima"));
    EXPECT_EQ(r[1].TipoImpresion, QStringLiteral("EP"));
    // Members of the first element's other block stay where the second did not write.
    EXPECT_EQ(r[1].AnchoPapel, 80);
    EXPECT_TRUE(r[6].NombreImpresora.isEmpty());
    EXPECT_TRUE(Leer(r, QStringLiteral("[]")) == 0 && r[1].NombreImpresora.isEmpty());

    // A missing number reads as 0, which also keeps the slot before it.
    QString sinNumero = Comun(0, "EP", "Sin numero", kBloqueEp);
    sinNumero.remove(QStringLiteral("numeroimpresora:0, "));
    EXPECT_EQ(Leer(r, QStringLiteral("[") + Comun(4, "DW", "Cuarta", kBloqueDw) +
                          QStringLiteral(",") + sinNumero + QStringLiteral("]")),
              2);
    EXPECT_EQ(r[3].NombreImpresora, QStringLiteral("Sin numero"));

    // As the first element, 11 has no slot at all.
    EXPECT_EQ(NumeroDeError(r, QStringLiteral("[") + Comun(11, "DW", "X", kBloqueDw) +
                                   QStringLiteral("]")),
              ErrorEjecucion::VariableDeObjetoNoEstablecida);
    // A required key missing, a null, or an integer out of range stop the reading.
    EXPECT_EQ(NumeroDeError(r, QStringLiteral("[{numeroimpresora:1, tipoimpresion:'EP'}]")),
              ErrorEjecucion::ArgumentoNoValido);
    constexpr int kUsoNoValidoDeNull = 94;
    QString nulo = kBloqueDw;
    nulo.replace(QLatin1String("anchopapel:80"), QLatin1String("anchopapel:null"));
    EXPECT_EQ(
        NumeroDeError(r, QStringLiteral("[") + Comun(1, "DW", "X", nulo) + QStringLiteral("]")),
        kUsoNoValidoDeNull);
    EXPECT_EQ(
        NumeroDeError(
            r, QStringLiteral("[") +
                   Comun(1, "EP", "X", kBloqueEp + QStringLiteral(", numlineasblancofinal:70000")) +
                   QStringLiteral("]")),
        ErrorEjecucion::Desbordamiento);
    EXPECT_EQ(NumeroDeError(r, QStringLiteral("{}")), ErrorEjecucion::NoCoincidenLosTipos);
}

TEST(MiembrosImpresora, CadaMiembroSeLeeYSePonePorSuNombre) {
    ClassConfigImpresora i;
    const QStringList nombres = miembros_impresora::Nombres();
    EXPECT_TRUE(
        miembros_impresora::Poner(i, QStringLiteral("NombreImpresora"), QStringLiteral("Horno")));
    EXPECT_TRUE(
        miembros_impresora::Poner(i, QStringLiteral("EPNumColumnas"), QStringLiteral("42")));
    EXPECT_TRUE(miembros_impresora::Poner(i, QStringLiteral("FactorFuente"), 3.8448));
    EXPECT_TRUE(miembros_impresora::Poner(i, QStringLiteral("Cocina"), -1));
    EXPECT_TRUE(miembros_impresora::Poner(i, QStringLiteral("MostrarTotalBruto"), true));
    EXPECT_EQ(i.NombreImpresora, QStringLiteral("Horno"));
    EXPECT_EQ(i.EPNumColumnas, 42);
    EXPECT_DOUBLE_EQ(i.FactorFuente, 3.8448);
    EXPECT_TRUE(i.Cocina);
    EXPECT_TRUE(i.MostrarTotalBruto);
    EXPECT_EQ(miembros_impresora::Leer(i, QStringLiteral("EPNumColumnas")), QVariant(42));
    EXPECT_EQ(miembros_impresora::Leer(i, QStringLiteral("Cocina")), QVariant(true));
    EXPECT_EQ(miembros_impresora::Leer(i, QStringLiteral("NombreImpresora")),
              QVariant(QStringLiteral("Horno")));

    // Unknown names and values that do not fit leave the record as it was.
    EXPECT_FALSE(miembros_impresora::Leer(i, QStringLiteral("nombreimpresora")).isValid());
    EXPECT_FALSE(miembros_impresora::Poner(i, QStringLiteral("Nada"), 1));
    EXPECT_FALSE(miembros_impresora::Poner(i, QStringLiteral("EPNumColumnas"), 40000));
    EXPECT_FALSE(
        miembros_impresora::Poner(i, QStringLiteral("EPNumColumnas"), QStringLiteral("x")));
    EXPECT_EQ(i.EPNumColumnas, 42);

    // Every name reaches a distinct member: setting each to a mark shows it on read.
    ClassConfigImpresora j;
    for (const QString& n : nombres) {
        const QVariant antes = miembros_impresora::Leer(j, n);
        ASSERT_TRUE(antes.isValid()) << n.toStdString();
        const QVariant marca = antes.typeId() == QMetaType::QString ? QVariant(n)
                               : antes.typeId() == QMetaType::Bool  ? QVariant(true)
                                                                    : QVariant(7);
        ASSERT_TRUE(miembros_impresora::Poner(j, n, marca)) << n.toStdString();
    }
    EXPECT_EQ(j.EPComSubirYCotarPapel, QStringLiteral("EPComSubirYCotarPapel"));
    EXPECT_EQ(j.SeparadorLineas, QStringLiteral("SeparadorLineas"));
    EXPECT_EQ(j.InicioY, 7);
    EXPECT_TRUE(j.DatosClienteYEnvioGrande);
}
