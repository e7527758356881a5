#include "common/NumeroDeError.h"
#include "platform/CajaMensajes.h"
#include "settings/CategoriasCocina.h"
#include "settings/OpcionesExtraImpresora.h"

#include <gtest/gtest.h>

namespace cc = categorias_cocina;
namespace oe = opciones_extra;

TEST(OpcionesExtra, LosTresNumerosSonEnterosDe0A100) {
    const QList<std::pair<QString, bool>> casos = {
        {"0", true}, {"100", true},  {"7", true},   {"101", false}, {"-1", false},
        {"", false}, {"1,5", false}, {"1,0", true}, {"abc", false}, {" 5 ", true},
    };
    for (const auto& [texto, bueno] : casos) {
        EXPECT_EQ(oe::EnteroHasta100(texto), bueno) << texto.toStdString();
    }
}

TEST(OpcionesExtra, CadaCampoMaloTieneSuCajaYElRegistroNoCambia) {
    RegistroCajas cajas;
    ClassConfigImpresora r;
    r.NumLineasBlancoFinal = 4;
    OpcionesExtra o = oe::DesdeRegistro(r);
    EXPECT_EQ(o.NumLinBlanFin, QStringLiteral("4"));
    o.SaltoLineaOpciones = true;
    o.NPedEnvFin = QStringLiteral("101");
    o.NumLinBlanIni.clear();
    o.NumLinBlanFin = QStringLiteral("1,5");
    EXPECT_FALSE(oe::Aplicar(cajas, r, o));
    ASSERT_EQ(cajas.cajas().size(), 3);
    EXPECT_EQ(cajas.cajas()[0].texto, oe::MalNPedEnvFin);
    EXPECT_EQ(cajas.cajas()[1].texto, oe::MalLinBlanIni);
    EXPECT_EQ(cajas.cajas()[2].texto, oe::MalLinBlanFin);
    EXPECT_EQ(cajas.cajas()[0].estilo, 0);
    EXPECT_FALSE(r.SaltoLineaOpciones);
    EXPECT_EQ(r.NumLineasBlancoFinal, 4);

    o.NPedEnvFin = QStringLiteral("2");
    o.NumLinBlanIni = QStringLiteral("0");
    o.NumLinBlanFin = QStringLiteral("100");
    o.PreciosProdCocina = true; // hidden on a customer printer, written all the same
    o.MostrarTotalBruto = true;
    cajas.limpiar();
    EXPECT_TRUE(oe::Aplicar(cajas, r, o));
    EXPECT_TRUE(cajas.cajas().isEmpty());
    EXPECT_TRUE(r.SaltoLineaOpciones && r.MostrarPreciosProdCocina && r.MostrarTotalBruto);
    EXPECT_EQ(r.NumPedidoYFormaEnvFinal, 2);
    EXPECT_EQ(r.NumLineasBlancoFinal, 100);
}

namespace {

const QString kCategorias =
    QStringLiteral("[{\"id\":11,\"nombre\":\"Entrantes\",\"fechabaja\":null},"
                   "{\"id\":16,\"nombre\":\"Menú viejo\",\"fechabaja\":\"2026-03-01\"},"
                   "{\"id\":12,\"nombre\":\"Pizzas\",\"fechabaja\":null},"
                   "{\"id\":13,\"nombre\":\"Sin fecha\"},"
                   "{\"id\":14,\"nombre\":\"Bebidas y cafés\",\"fechabaja\":null}]");

QStringList marcadas(const QList<CategoriaCocina>& filas) {
    QStringList s;
    for (const auto& f : filas) {
        s << f.Id + (f.Marcada ? "+" : "-");
    }
    return s;
}

} // namespace

TEST(CategoriasCocina, FilasVivasEnOrdenYMarcadasSegunElRegistro) {
    const QList<std::pair<QString, QStringList>> casos = {
        {"", {"11+", "12+", "14+"}},      // a new kitchen printer gets everything
        {"14,11", {"11+", "12-", "14+"}}, // ticks follow the ids, rows the service's order
        {"16,99", {"11-", "12-", "14-"}}, // removed or unknown ids tick nothing
        {"012", {"11-", "12+", "14-"}},   // compared as numbers
    };
    for (const auto& [ids, esperado] : casos) {
        EXPECT_EQ(marcadas(cc::LeerCategorias(kCategorias, ids)), esperado) << ids.toStdString();
    }
    const auto filas = cc::LeerCategorias(kCategorias, QString());
    EXPECT_EQ(filas[1].Nombre, QStringLiteral("Pizzas"));
    // Replies that are not a list give no rows; an id that is no number is error 13.
    for (const QString& r : {QStringLiteral("error"), QString(), QStringLiteral("{\"id\":1}")}) {
        EXPECT_TRUE(cc::LeerCategorias(r, QString()).isEmpty());
    }
    EXPECT_EQ(numeroDeError([] { cc::LeerCategorias(kCategorias, QStringLiteral("11,x")); }), 13);
}

TEST(CategoriasCocina, HechoGuardaFormaDeEnvioYLasMarcadasEnOrden) {
    RegistroCajas cajas;
    ClassConfigImpresora r;
    r.CategoriasIds = QStringLiteral("11,14");
    r.FormaEnvio = 1;
    EXPECT_FALSE(cc::Aplicar(cajas, r, false, false, true, {}));
    ASSERT_EQ(cajas.cajas().size(), 1);
    EXPECT_EQ(cajas.cajas()[0].texto, cc::FaltaFormaEnvio);
    EXPECT_EQ(r.FormaEnvio, 1);
    EXPECT_FALSE(r.MostrarNombreImpresora);

    struct Caso {
        bool domicilio, recogen;
        qint16 forma;
    };
    const QList<CategoriaCocina> filas = {
        {"14", "Bebidas", true}, {"11", "Entrantes", false}, {"12", "Pizzas", true}};
    for (const Caso& c : {Caso{true, true, 0}, Caso{true, false, 1}, Caso{false, true, 2}}) {
        ASSERT_TRUE(cc::Aplicar(cajas, r, c.domicilio, c.recogen, true, filas));
        EXPECT_EQ(r.FormaEnvio, c.forma);
        const auto vuelta = cc::DeFormaEnvio(c.forma);
        EXPECT_EQ(vuelta.ADomicilio, c.domicilio);
        EXPECT_EQ(vuelta.Recogen, c.recogen);
    }
    EXPECT_EQ(r.CategoriasIds, QStringLiteral("14,12"));
    EXPECT_TRUE(r.MostrarNombreImpresora);
    // All unticked: the empty text, which the next opening shows as all ticked.
    ASSERT_TRUE(cc::Aplicar(cajas, r, true, true, false, {{"14", "Bebidas", false}}));
    EXPECT_EQ(r.CategoriasIds, QString());
}
