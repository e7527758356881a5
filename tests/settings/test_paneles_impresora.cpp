#include "common/DatosEsperados.h"
#include "common/Entorno.h"
#include "common/NumeroDeError.h"
#include "settings/PanelesImpresora.h"

#include <QUrlQuery>
#include <gtest/gtest.h>

namespace pi = paneles_impresora;

namespace {

const QByteArray kBase = "https://servidor.prueba/api/pedidosgprs/";
const QByteArray kFha = "&fha=2026111490507";

struct PanelesImpresora_ : ::testing::Test {
    Entorno e;
    PanelesImpresora paneles;

    PanelesImpresora_() {
        DarEstablecimiento(e.m, 1);
        e.canales.directo->porDefecto = {true, "OK"};
    }
    PanelImpresora& panel(int slot) { return paneles.at(static_cast<size_t>(slot - 1)); }
    PanelImpresora& ep(int slot, const QString& nombre) {
        PanelImpresora& p = panel(slot);
        p.Nombre = nombre;
        p.OpcionEP = true;
        return p;
    }
    const QByteArrayList& urls() const { return e.canales.directo->urls; }
    // One parameter of the request sent for `slot` (every slot sends exactly one).
    QString parametro(int slot, const QString& nombre) const {
        const QUrlQuery q(QUrl::fromEncoded(urls().at(slot - 1)));
        return q.queryItemValue(nombre, QUrl::FullyDecoded);
    }
};

} // namespace

TEST_F(PanelesImpresora_, DiezPeticionesEnOrdenByteAByte) {
    PanelImpresora& caja = panel(1);
    caja.Nombre = QStringLiteral("Caja Sur");
    caja.OpcionDW = true;
    caja.CopiasAceptado = QStringLiteral("2");
    caja.CopiasRechazado = QStringLiteral("1");
    e.m.Impresora(1).SaltoLineaOpciones = true;
    e.m.Impresora(1).MostrarHoraEntrega = true;
    e.m.Impresora(1).CategoriasIds = QStringLiteral("9"); // slot 1 never keeps kitchen data

    PanelImpresora& barra = ep(4, QStringLiteral("Barra"));
    barra.Cocina = true;
    barra.Conexion = QStringLiteral("192.168.1.50:9100");
    barra.NColumnas = QStringLiteral("32");
    barra.CopiasAceptado = QStringLiteral("1");
    barra.CopiasAceptadoRecoger = QStringLiteral("0");
    barra.PC858 = true;
    ClassConfigImpresora& r4 = e.m.Impresora(4);
    r4.SeparadorLineas = QStringLiteral("=-=");
    r4.MostrarPreciosProdCocina = true;
    r4.CategoriasIds = QStringLiteral("14,15");
    r4.ProductosIds = QStringLiteral("103");
    r4.FormaEnvio = 2;
    r4.MostrarNombreImpresora = true;
    r4.NumLineasBlancoFinal = 3;

    ASSERT_TRUE(pi::GuardarImpresoras(e.m, paneles));
    ASSERT_EQ(urls().size(), 10);
    EXPECT_EQ(
        urls()[0],
        kBase + LineasDatos(QStringLiteral("peticion_impresora_dw.txt")).join(QString()).toUtf8() +
            kFha);
    // The raw kitchen printer keeps what its sub-windows edit; slot 4 loses its prices.
    EXPECT_EQ(parametro(4, "separadorlineas"), QString(32, u'='));
    EXPECT_EQ(parametro(4, "categoriasids"), QStringLiteral("14,15"));
    EXPECT_EQ(parametro(4, "numerocopiasaceptadorecoger"), QStringLiteral("0"));
    EXPECT_EQ(parametro(4, "mostrarpreciosprodcocina"), QStringLiteral("0"));
    for (int slot : {2, 3, 5, 6, 7, 8, 9, 10}) {
        EXPECT_EQ(urls()[slot - 1],
                  kBase +
                      "eliminarConfigImpresora?idEstablecimiento=7&passwordconfig=clave"
                      "&numconfig=1&numeroimpresora=" +
                      QByteArray::number(slot) + kFha);
    }
    // Members no request carries stay in the record for the tickets.
    EXPECT_EQ(e.m.Impresora(4).ProductosIds, QStringLiteral("103"));
    EXPECT_TRUE(e.m.Impresora(4).Cocina);
}

TEST_F(PanelesImpresora_, MiembrosConservadosYSusRarezasPorHueco) {
    // Every slot a kitchen printer with prices on, categories and a separator of its own.
    for (int slot = 1; slot <= 10; ++slot) {
        ep(slot, QStringLiteral("P%1").arg(slot)).Cocina = true;
        ClassConfigImpresora& r = e.m.Impresora(slot);
        r.MostrarPreciosProdCocina = true;
        r.CategoriasIds = QStringLiteral("11");
        r.FormaEnvio = 1;
        r.SeparadorLineas = QStringLiteral("*");
    }
    ASSERT_TRUE(pi::GuardarImpresoras(e.m, paneles));
    ASSERT_EQ(urls().size(), 10);
    for (int slot = 1; slot <= 10; ++slot) {
        SCOPED_TRACE(slot);
        EXPECT_EQ(parametro(slot, "mostrarpreciosprodcocina"), slot == 4 ? "0" : "1");
        EXPECT_EQ(parametro(slot, "cocina"), slot == 1 ? "0" : "1");
        EXPECT_EQ(parametro(slot, "categoriasids"), slot == 1 ? "" : "11");
        EXPECT_EQ(parametro(slot, "formaenvio"), slot == 1 ? "0" : "1");
        EXPECT_EQ(parametro(slot, "separadorlineas"), QString(48, u'*'));
    }
}

TEST_F(PanelesImpresora_, UnPanelRechazadoParaAntesDeEnviarNada) {
    struct Caso {
        int slot;
        QString nombre;
        bool dw, ep;
        QString caja;
    };
    const QList<Caso> casos = {
        {3, "Cocina fría", false, false,
         "Debe seleccionar Tipo de impresión para la Impresora Cocina fría"},
        {7, PanelImpresora::Ninguna, false, true, "Debe seleccionar una Impresora 7"},
        {10, PanelImpresora::Ninguna, true, false, "Debe seleccionar una Impresora 10"},
    };
    for (const Caso& c : casos) {
        PanelesImpresora p;
        p[0].Nombre = QStringLiteral("Buena"); // a good slot before the bad one
        p[0].OpcionDW = true;
        PanelImpresora& malo = p.at(static_cast<size_t>(c.slot - 1));
        malo.Nombre = c.nombre;
        malo.OpcionDW = c.dw;
        malo.OpcionEP = c.ep;
        e.cajas->limpiar();
        EXPECT_FALSE(pi::GuardarImpresoras(e.m, p));
        ASSERT_EQ(e.cajas->cajas().size(), 1);
        EXPECT_EQ(e.cajas->cajas()[0].texto, c.caja);
        EXPECT_EQ(e.cajas->cajas()[0].estilo, 0);
        EXPECT_TRUE(urls().isEmpty());
        EXPECT_TRUE(e.m.Impresora(1).NombreImpresora.isEmpty());
    }
}

TEST_F(PanelesImpresora_, UnNumeroVacioEnElModoActivoEsErrorTrasEnviarLosAnteriores) {
    ep(1, QStringLiteral("Uno"));
    ep(3, QStringLiteral("Tres")).NColumnas.clear();
    // An empty driver field does not matter to a raw printer.
    panel(1).AnchoPapel.clear();
    EXPECT_EQ(numeroDeError([&] { pi::GuardarImpresoras(e.m, paneles); }), 13);
    EXPECT_EQ(urls().size(), 2);
}

TEST_F(PanelesImpresora_, CargaDeUnPanelDesdeSuRegistro) {
    ClassConfigImpresora dw;
    dw.TipoImpresion = QStringLiteral("DW");
    dw.NombreImpresora = QStringLiteral("Caja");
    dw.NumeroCopiasAceptado = 3;
    dw.NumeroCopiasAceptadoRecoger = -1;
    dw.FactorFuente = 4.25;
    dw.Font = QStringLiteral("Arial");
    dw.Cocina = true;
    PanelImpresora p;
    p.Conexion = QStringLiteral("COM3"); // left over from an earlier raw printer
    pi::CargarPanel(p, dw, 5);
    EXPECT_EQ(p.Nombre, QStringLiteral("Caja"));
    EXPECT_TRUE(p.OpcionDW);
    EXPECT_FALSE(p.OpcionEP);
    EXPECT_EQ(p.CopiasAceptado, QStringLiteral("3"));
    EXPECT_EQ(p.CopiasAceptadoRecoger, QString());
    EXPECT_EQ(p.FactorFuente, QStringLiteral("4,25"));
    EXPECT_EQ(p.Fuente, QStringLiteral("Arial"));
    EXPECT_TRUE(p.Cocina && p.CocinaHabilitado && p.ExtraHabilitado && p.CopiasHabilitadas);
    EXPECT_EQ(p.Conexion, QStringLiteral("COM3"));

    // The first slot never shows the kitchen, and a record of a slot without printer
    // clears the choice but keeps the texts behind the hidden frames.
    PanelImpresora q;
    pi::CargarPanel(q, dw, 1);
    EXPECT_FALSE(q.Cocina);
    pi::CargarPanel(q, ClassConfigImpresora{}, 1);
    EXPECT_EQ(q.Nombre, PanelImpresora::Ninguna);
    EXPECT_FALSE(q.OpcionDW || q.OpcionEP || q.CopiasHabilitadas || q.ExtraHabilitado);
    EXPECT_EQ(q.Fuente, QStringLiteral("Arial"));

    // Only the service's three-hyphen name marks an empty slot; the list's own is a printer.
    ClassConfigImpresora raro;
    raro.NombreImpresora = PanelImpresora::Ninguna;
    raro.TipoImpresion = QStringLiteral("EP");
    raro.NumeroCopiasAceptadoRecoger = 0;
    pi::CargarPanel(q, raro, 2);
    EXPECT_TRUE(q.OpcionEP);
    EXPECT_EQ(q.CopiasAceptadoRecoger, QStringLiteral("0"));
    raro.NombreImpresora = QStringLiteral("-- Ninguna ---");
    pi::CargarPanel(q, raro, 2);
    EXPECT_FALSE(q.OpcionEP);

    // A first printer chosen for an empty slot starts with its three usual options on.
    ClassConfigImpresora vacio;
    pi::ElegirImpresora(q, vacio, QStringLiteral("Cocina"));
    EXPECT_TRUE(vacio.SaltoLineaOpciones && vacio.MostrarSeparadorProductos &&
                vacio.MostrarHoraEntrega && q.CopiasHabilitadas);
    pi::ElegirImpresora(q, raro, QStringLiteral("Cocina"));
    EXPECT_FALSE(raro.SaltoLineaOpciones);
}
