// The desk in this process answers orders against the stand-in service and prints on three
// raw printers that listen on TCP in a thread of their own, as network printers would.
#include "base/ModuloPrincipal.h"
#include "base/Windows1252.h"
#include "common/ImpresoraEPDeSerie.h"
#include "common/ImpresoraTcp.h"
#include "common/SimuladorPrueba.h"
#include "orders/FormAceptarPedido.h"
#include "orders/FormPedidoNuevo.h"
#include "orders/RespuestasPedido_ui.h"
#include "platform/CajaMensajes.h"
#include "platform/CanalHttp.h"
#include "platform/Temporizador.h"
#include "shell/Form1.h"

#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

// The real HTTP channel, with a hook that runs before each request leaves.
class CanalVigilado : public CanalHttp {
public:
    std::function<void(const QByteArray& url)> antes;

    RespuestaHttp obtener(const QByteArray& url) override {
        if (antes) {
            antes(url);
        }
        return real_.obtener(url);
    }

private:
    CanalHttpQt real_;
};

ClassConfigImpresora impresoraTcp(const QString& nombre, quint16 puerto) {
    return ImpresoraEPDeSerie(nombre, QStringLiteral("127.0.0.1:%1").arg(puerto));
}

// An order for now, delivered, with `n` products: pizzas (category 12) and desserts (15).
QString lineaPedido(int numero, int n) {
    QStringList productos;
    for (int k = 0; k < n; ++k) {
        productos << (k % 2 == 0 ? QStringLiteral("1%Pizza %1%9.00%%2%12").arg(k).arg(1000 + k)
                                 : QStringLiteral("1%Postre %1%4.00%%2%15").arg(k).arg(1000 + k));
    }
    return QStringLiteral("#PED*web*%1*").arg(numero) + productos.join(u';') +
           QStringLiteral(";*2.00*0.00;29.50;88;María Núñez;Calle Mayor 5;14/11/2026 21:02%%"
                          "Para: Ahora;4;6;Tarjeta;600111222;Pendiente;;;0.35;;0;29.85;*#");
}

const QString kPoll = QStringLiteral("pedidosgprs/pedidosnuevos");

struct RespuestasTcp : ::testing::Test {
    QTemporaryDir carpeta;
    SimuladorPrueba sim;
    ImpresoraTcp cliente, cocina1, cocina2;
    ModuloPrincipal m;
    RegistroCajas* cajas = nullptr;
    std::unique_ptr<Form1> f;
    std::vector<CanalVigilado*> canales;

    void SetUp() override {
        ASSERT_TRUE(sim.enMarcha());
        ASSERT_NE(cliente.puerto(), 0);
        ASSERT_NE(cocina1.puerto(), 0);
        ASSERT_NE(cocina2.puerto(), 0);
        auto c = std::make_unique<RegistroCajas>();
        cajas = c.get();
        m.setCajas(std::move(c));
        auto d = std::make_unique<CanalVigilado>();
        auto i1 = std::make_unique<CanalVigilado>();
        auto i2 = std::make_unique<CanalVigilado>();
        canales = {d.get(), i1.get(), i2.get()};
        m.setCanales(std::move(d), std::move(i1), std::move(i2));
        m.setServidor(sim.base());
        m.CarpetaDatos = carpeta.path();
        m.CarpetaAplicacion = QStringLiteral(CARPETA_BIN);
        m.RestId = 41;
        m.Pgprs = QStringLiteral("pg7");
        m.IntervaloEscaneoPedido = 600000;
        m.TamannoFuentePrincipales = 8; // as a configuration reading brings it
        m.Impresora(1) = impresoraTcp(QStringLiteral("Mostrador"), cliente.puerto());
        m.Impresora(1).NumeroCopiasAceptado = 2;
        m.Impresora(2) = impresoraTcp(QStringLiteral("Horno"), cocina1.puerto());
        m.Impresora(2).Cocina = true;
        m.Impresora(2).CategoriasIds = QStringLiteral("12");
        m.Impresora(3) = impresoraTcp(QStringLiteral("Postres"), cocina2.puerto());
        m.Impresora(3).Cocina = true;
        m.Impresora(3).CategoriasIds = QStringLiteral("15");
        f = std::make_unique<Form1>(m, QStringList{});
        f->AplicarConfiguracion();
        f->TimerMusica().setEnabled(false);
        // The first failed https attempt moves the run to http before anything is measured.
        f->ComprobarPedidosNuevos();
    }

    QStringList respuestas() {
        QStringList r;
        for (const auto& e : sim.registro()) {
            if (e.ruta == QLatin1String("pedidosgprs/respuestapedidos") && !e.reenvio) {
                r << e.consulta;
            }
        }
        return r;
    }
    void aceptarCon20() {
        QTest::mouseClick(f->formPedidoNuevo().findChild<QPushButton*>(QStringLiteral("Aceptar")),
                          Qt::LeftButton);
        QTest::mouseClick(f->respuestasPedido().formAceptarPedido().AceptarMinutos(3),
                          Qt::LeftButton);
    }
};

} // namespace

TEST_F(RespuestasTcp, ConImprimirAntesAceptarLosTicketsSalenAntesDelEnvio) {
    m.ImprimirAntesAceptar = true;
    // When the answer is about to leave, every copy must already be on its way: the
    // printers get it in full without the desk doing anything more.
    bool todoAntes = false;
    int envios = 0;
    for (CanalVigilado* c : canales) {
        c->antes = [&](const QByteArray& url) {
            if (url.contains("respuestapedidos")) {
                ++envios;
                todoAntes = QTest::qWaitFor(
                    [&] {
                        return cliente.trabajos().size() >= 2 && cocina1.trabajos().size() >= 1 &&
                               cocina2.trabajos().size() >= 1;
                    },
                    3000);
            }
        };
    }
    sim.encolar(kPoll, {lineaPedido(5003, 4)});
    f->ComprobarPedidosNuevos();
    aceptarCon20();
    EXPECT_EQ(envios, 1);
    EXPECT_TRUE(todoAntes);
    EXPECT_EQ(cliente.trabajos().size(), 2);
    EXPECT_EQ(respuestas().size(), 1);
}

TEST_F(RespuestasTcp, AceptacionAutomaticaDeTreintaProductosHastaElUltimoByte) {
    // Every byte of a long order reaches each printer, with no window on the way.
    m.AceptarAutoDomicilio = 30;
    sim.encolar(kPoll, {lineaPedido(7000, 30)});
    f->ComprobarPedidosNuevos();
    ASSERT_TRUE(cliente.esperar(2, 5000));
    ASSERT_TRUE(cocina1.esperar(1, 5000));
    ASSERT_TRUE(cocina2.esperar(1, 5000));
    EXPECT_FALSE(f->formPedidoNuevo().isVisible());
    EXPECT_TRUE(cliente.trabajos()[0].bytes.contains("Postre 29"));
    EXPECT_TRUE(cocina1.trabajos()[0].bytes.contains("Pizza 28"));
    EXPECT_EQ(respuestas().size(), 1);
}
