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
#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <iostream>

namespace {

// The real HTTP channel, noting when each request left and when its reply was in hand.
class CanalCronometrado : public CanalHttp {
public:
    struct Marca {
        QByteArray url;
        Cronometro::time_point salida;
        Cronometro::time_point llegada;
    };
    explicit CanalCronometrado(std::shared_ptr<QList<Marca>> marcas) : marcas_(std::move(marcas)) {}
    // Runs before each request leaves.
    std::function<void(const QByteArray& url)> antes;

    RespuestaHttp obtener(const QByteArray& url) override {
        if (antes) {
            antes(url);
        }
        const auto salida = Cronometro::now();
        RespuestaHttp r = real_.obtener(url);
        marcas_->append({url, salida, Cronometro::now()});
        return r;
    }

private:
    CanalHttpQt real_;
    std::shared_ptr<QList<Marca>> marcas_;
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
    std::shared_ptr<QList<CanalCronometrado::Marca>> marcas =
        std::make_shared<QList<CanalCronometrado::Marca>>();
    std::unique_ptr<Form1> f;
    std::vector<CanalCronometrado*> canales;

    void SetUp() override {
        ASSERT_TRUE(sim.enMarcha());
        ASSERT_NE(cliente.puerto(), 0);
        ASSERT_NE(cocina1.puerto(), 0);
        ASSERT_NE(cocina2.puerto(), 0);
        auto c = std::make_unique<RegistroCajas>();
        cajas = c.get();
        m.setCajas(std::move(c));
        auto d = std::make_unique<CanalCronometrado>(marcas);
        auto i1 = std::make_unique<CanalCronometrado>(marcas);
        auto i2 = std::make_unique<CanalCronometrado>(marcas);
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

    const CanalCronometrado::Marca* ultima(const char* ruta) const {
        for (auto it = marcas->crbegin(); it != marcas->crend(); ++it) {
            if (it->url.contains(ruta)) {
                return &*it;
            }
        }
        return nullptr;
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

TEST_F(RespuestasTcp, AceptadoAManoLlegaACadaImpresoraTrasElEnvio) {
    sim.encolar(kPoll, {lineaPedido(5001, 4)});
    f->ComprobarPedidosNuevos();
    ASSERT_TRUE(f->formPedidoNuevo().isVisible());
    aceptarCon20();

    const QStringList r = respuestas();
    ASSERT_EQ(r.size(), 1);
    EXPECT_TRUE(r[0].startsWith(QStringLiteral("a=41&o=5001&ak=Accepted&m=20_Minutos&dt=nousado"
                                               "&u=nousado&p=pg7&fha=")))
        << r[0].toStdString();
    ASSERT_TRUE(cliente.esperar(2, 5000));
    ASSERT_TRUE(cocina1.esperar(1, 5000));
    ASSERT_TRUE(cocina2.esperar(1, 5000));
    QTest::qWait(100); // nothing more may come
    ASSERT_EQ(cliente.trabajos().size(), 2);
    ASSERT_EQ(cocina1.trabajos().size(), 1);
    ASSERT_EQ(cocina2.trabajos().size(), 1);
    EXPECT_EQ(cliente.trabajos()[0].bytes, cliente.trabajos()[1].bytes);
    const QByteArray horno = cocina1.trabajos()[0].bytes;
    const QByteArray postres = cocina2.trabajos()[0].bytes;
    EXPECT_TRUE(horno.contains("Pizza 0") && horno.contains("Pizza 2"));
    EXPECT_FALSE(horno.contains("Postre"));
    EXPECT_TRUE(postres.contains("Postre 1") && postres.contains("Postre 3"));
    EXPECT_FALSE(postres.contains("Pizza"));
    EXPECT_TRUE(cliente.trabajos()[0].bytes.contains("Postre 3"));

    const auto* envio = ultima("respuestapedidos");
    ASSERT_NE(envio, nullptr);
    for (ImpresoraTcp* i : {&cliente, &cocina1, &cocina2}) {
        for (const auto& t : i->trabajos()) {
            EXPECT_GT(t.primero, envio->llegada);
        }
    }

    // The next order comes up with the poll timer alone.
    sim.encolar(kPoll, {lineaPedido(5002, 2)});
    f->TimerPedidos().setInterval(20);
    EXPECT_TRUE(QTest::qWaitFor([&] { return f->formPedidoNuevo().isVisible(); }, 5000));
    EXPECT_EQ(m.UltimoIdPedido, QStringLiteral("5002"));
    for (const auto& c : cajas->cajas()) {
        ADD_FAILURE() << c.texto.toStdString();
    }
}

TEST_F(RespuestasTcp, ConImprimirAntesAceptarLosTicketsSalenAntesDelEnvio) {
    m.ImprimirAntesAceptar = true;
    // When the answer is about to leave, every copy must already be on its way: the
    // printers get it in full without the desk doing anything more.
    bool todoAntes = false;
    int envios = 0;
    for (CanalCronometrado* c : canales) {
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
    m.AceptarAutoDomicilio = 30;
    std::vector<double> ms;
    for (int run = 0; run < 20; ++run) {
        for (ImpresoraTcp* i : {&cliente, &cocina1, &cocina2}) {
            i->limpiar();
        }
        sim.encolar(kPoll, {lineaPedido(7000 + run, 30)});
        f->ComprobarPedidosNuevos();
        ASSERT_TRUE(cliente.esperar(2, 5000));
        ASSERT_TRUE(cocina1.esperar(1, 5000));
        ASSERT_TRUE(cocina2.esperar(1, 5000));
        EXPECT_FALSE(f->formPedidoNuevo().isVisible());
        const auto* poll = ultima("pedidosnuevos");
        ASSERT_NE(poll, nullptr);
        Cronometro::time_point fin = poll->llegada;
        for (ImpresoraTcp* i : {&cliente, &cocina1, &cocina2}) {
            for (const auto& t : i->trabajos()) {
                fin = std::max(fin, t.ultimo);
            }
        }
        ms.push_back(std::chrono::duration<double, std::milli>(fin - poll->llegada).count());
    }
    EXPECT_EQ(respuestas().size(), 20);
    std::sort(ms.begin(), ms.end());
    const double mediana = (ms[9] + ms[10]) / 2;
    std::cout << "respuesta->ultimo byte (3 impresoras TCP, 30 productos): mediana " << mediana
              << " ms, min " << ms.front() << " ms, max " << ms.back() << " ms\n";
    RecordProperty("mediana_ms", std::to_string(mediana));
    // Far above the aim, so that only a real regression fails on a loaded machine.
    EXPECT_LT(mediana, 500.0);
}
