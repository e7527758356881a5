// The desk in this process against the stand-in service over loopback: an order arrives
// on a poll and goes on screen.
#include "common/DatosEsperados.h"
#include "common/Entorno.h"
#include "common/EscritorioPrueba.h"
#include "common/ImprimirQString.h"
#include "common/MostradorSimulado.h"
#include "common/PedidosDeMuestra.h"
#include "orders/FormPedidoNuevo.h"
#include "orders/RegistroPedido.h"
#include "orders/VentanaPedido_ui.h"
#include "platform/Controles_ui.h"
#include "sound/AlertaSonora.h"

#include <QAction>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

namespace {

const QColor kVerde(0x00, 0x64, 0x00);
const QColor kAzul(0x28, 0x8E, 0xDF);
const QString kPoll = QStringLiteral("pedidosgprs/pedidosnuevos");

struct Escritorio : MostradorSimulado {
    void configurar() override {
        m.ParpadeoPedNuevo = true;
        m.IntensidadParpadeo = 100;
    }

    FormPedidoNuevo& ventana() { return f->formPedidoNuevo(); }

    QWidget* control(const char* nombre, QWidget* en = nullptr) {
        QWidget* w = (en ? en : &ventana())->findChild<QWidget*>(QLatin1String(nombre));
        EXPECT_NE(w, nullptr) << nombre;
        return w;
    }
    QString texto(const char* nombre, QWidget* en = nullptr) {
        return TextoControl(control(nombre, en));
    }
    // Each control named shows its text; a row per control.
    void textos(std::initializer_list<std::pair<const char*, const char*>> esperados,
                QWidget* en = nullptr) {
        for (const auto& [nombre, valor] : esperados) {
            EXPECT_EQ(texto(nombre, en), QString::fromUtf8(valor)) << nombre;
        }
    }
    // The same from a data file's lines "control | text".
    void textos(const QString& datos) {
        const QStringList filas = LineasDatos(datos);
        ASSERT_FALSE(filas.isEmpty());
        for (const QString& fila : filas) {
            const qsizetype barra = fila.indexOf(QStringLiteral(" | "));
            EXPECT_EQ(texto(fila.left(barra).toLatin1().constData()), fila.mid(barra + 3))
                << fila.toStdString();
        }
    }
    bool visible(const char* nombre, QWidget* en = nullptr) {
        return !control(nombre, en)->isHidden();
    }
    void vistos(std::initializer_list<const char*> nombres, bool esperado, QWidget* en = nullptr) {
        for (const char* n : nombres) {
            EXPECT_EQ(visible(n, en), esperado) << n;
        }
    }
    QColor tinta(const char* nombre) { return ColorTexto(control(nombre)).toRgb(); }

    QList<QStringList> filas() {
        QList<QStringList> r;
        auto* lista = qobject_cast<QTreeWidget*>(control("ListViewProductos"));
        for (int i = 0; i < lista->topLevelItemCount(); ++i) {
            auto* it = lista->topLevelItem(i);
            r.append({it->text(1), it->text(2), it->text(3)});
        }
        return r;
    }
    void pulsar(const char* boton) {
        QTest::mouseClick(qobject_cast<QPushButton*>(control(boton)), Qt::LeftButton);
    }
};

} // namespace

TEST_F(Escritorio, UnPedidoADomicilioSaleEncimaConSonidoYSinMasSondeos) {
    llega(kDomicilio);
    FormPedidoNuevo& v = ventana();

    EXPECT_TRUE(v.isVisible());
    EXPECT_TRUE(v.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(m.PedidoNuevoPendiente);
    EXPECT_EQ(m.UltimoIdPedido, QStringLiteral("5001"));
    EXPECT_FALSE(f->TimerPedidos().enabled());
    EXPECT_TRUE(v.TimerColorFondo().enabled());
    ASSERT_EQ(reproducciones(), 1);
    EXPECT_TRUE(sonido->llamadas.last().endsWith(QStringLiteral("/telefon1.wav")));
    EXPECT_EQ(filas(), (QList<QStringList>{{"2", "Pizza Cuatro Quesos", "23.00"},
                                           {"", "Borde relleno", ""},
                                           {"", "Sin orégano", ""},
                                           {"1", "Tarta de queso", "4.50"},
                                           {"", "==== FIN DE LOS PRODUCTOS ==== ", ""}}));
    textos(QStringLiteral("ventana_pedido_domicilio.txt"));
    vistos({"LabComisionPaypal", "TxtDireccion"}, true);
    vistos({"LabPromocion", "LabCambio", "LabEstado", "LabTiempoEstMotivo", "LabOrigen"}, false);
    EXPECT_EQ(tinta("LabFormaEnvio"), kAzul);
    EXPECT_EQ(tinta("LabEstadoPago"), kVerde);
    EXPECT_FALSE(control("labPara")->autoFillBackground());

    // Nothing more leaves while the order waits, whatever the poll timer does.
    const int antes = static_cast<int>(sim.registro().size());
    f->TimerPedidos().disparar();
    f->TimerPedidos().disparar();
    EXPECT_EQ(static_cast<int>(sim.registro().size()), antes);
    EXPECT_TRUE(cajas->cajas().isEmpty());
}

TEST_F(Escritorio, UnPedidoProgramadoParaRecogerSeDestacaEnBlancoSobreAzul) {
    m.WebParticular = true;
    llega(kProgramadoRecogen);
    textos({{"LabFormaEnvio", "Recogen"},
            {"labPara", "21:30 sábado 15"},
            {"TxtComentarios", ""},
            {"LabMetodoPago", "PayPal"},
            {"LabOrigen", "Web particular"}});
    EXPECT_EQ(tinta("LabFormaEnvio"), kVerde);
    vistos({"TxtDireccion", "LabComisionPaypal"}, false);
    vistos({"LabOrigen"}, true);
    EXPECT_EQ(tinta("labPara"), QColor(Qt::white));
    EXPECT_EQ(Fondo(control("labPara")).toRgb(), kAzul);
    EXPECT_TRUE(control("labPara")->autoFillBackground());
    EXPECT_EQ(filas(), (QList<QStringList>{{"1", "Hamburguesa clásica", "9.90"},
                                           {"", "Sin pepinillos", ""},
                                           {"", "==== FIN DE LOS PRODUCTOS ==== ", ""}}));

    // The next order, delivered now, takes the block back to plain text.
    ventana().hide();
    m.PedidoNuevoPendiente = false;
    llega(kDomicilio);
    textos({{"labPara", "Ahora"}, {"LabOrigen", "Tarvimenta"}});
    EXPECT_FALSE(control("labPara")->autoFillBackground());
    vistos({"TxtDireccion"}, true);
}

TEST_F(Escritorio, UnPedidoEnEfectivoSinPagarMuestraElCambio) {
    m.MostrarCpr = true;
    llega(kEfectivo);
    textos({{"LabEstadoPago", "NO Pagado"},
            {"LabMetodoPago", "Efectivo"},
            {"LabCambio", "50"},
            {"LabPromocion", "BIENVENIDA"},
            {"LabDescuento", "1.00€"}});
    EXPECT_EQ(tinta("LabEstadoPago"), kAzul);
    EXPECT_EQ(tinta("LabMetodoPago"), kAzul);
    vistos({"LabCambio", "LabPromocion"}, true);
}

TEST_F(Escritorio, UnPedidoYaRespondidoSePintaConSuEstado) {
    // As the past-order window paints one fetched by number: same controls, same fill.
    FormPedidoNuevo anterior(m);
    sim.encolar(QStringLiteral("pedidosgprs/obtenerPedido"),
                {QString(kDomicilio)
                     .replace(QStringLiteral(";Pendiente;;"),
                              QStringLiteral(";Rechazado;Sin repartidores;"))});
    QString resumen;
    ASSERT_TRUE(ObtenerPedido(m, QStringLiteral("5001"), &resumen));
    RellenarVentanaPedido(m, &anterior);
    vistos({"LabEstado", "LabTiempoEstMotivo"}, true, &anterior);
    textos({{"LabEstado", "Rechazado"},
            {"LabCabTiempoEstMotivo", "Motivo:"},
            {"LabTiempoEstMotivo", "Sin repartidores"}},
           &anterior);
    EXPECT_TRUE(resumen.contains(QStringLiteral("Motivo Rechazo: Sin repartidores")));

    m.PedidoActual.Estado = QStringLiteral("En reparto");
    m.PedidoActual.TiempoEstimado = QStringLiteral("null");
    RellenarVentanaPedido(m, &anterior);
    textos({{"LabCabTiempoEstMotivo", "Tiempo est.:"}, {"LabTiempoEstMotivo", "No especificado"}},
           &anterior);
    m.PedidoActual.TiempoEstimado = QStringLiteral("40");
    RellenarVentanaPedido(m, &anterior);
    EXPECT_EQ(texto("LabTiempoEstMotivo", &anterior), QStringLiteral("40 Minutos"));
    m.PedidoActual.Estado = QStringLiteral("Pendiente");
    RellenarVentanaPedido(m, &anterior);
    vistos({"LabEstado", "LabTiempoEstMotivo"}, false, &anterior);
}

TEST_F(Escritorio, SilenciarCallaYApagaElParpadeoUnMinutoYLuegoVuelve) {
    llega(kDomicilio);
    FormPedidoNuevo& v = ventana();

    v.TimerColorFondo().disparar();
    EXPECT_EQ(Fondo(&v).toRgb(), QColor(255, 179, 100));
    EXPECT_FALSE(v.faseParpadeo());
    v.TimerColorFondo().disparar();
    EXPECT_EQ(Fondo(&v).toRgb(), QColor(Qt::white));

    // The repeat keeps the melody going while nobody silences it.
    f->TimerMusica().disparar();
    EXPECT_EQ(reproducciones(), 2);

    pulsar("Silenciar");
    EXPECT_EQ(detenciones(), 1);
    EXPECT_FALSE(v.TimerColorFondo().enabled());
    EXPECT_EQ(Fondo(&v).toRgb(), QColor(Qt::white));
    EXPECT_TRUE(v.TimerSilenciar().enabled());
    f->TimerMusica().disparar();
    EXPECT_EQ(reproducciones(), 2);

    // A short minute through the timer itself.
    v.TimerSilenciar().setInterval(40);
    ASSERT_TRUE(EsperarHasta([&] { return !v.TimerSilenciar().enabled(); }, 3000));
    EXPECT_EQ(reproducciones(), 3);
    EXPECT_TRUE(v.TimerColorFondo().enabled());
    EXPECT_TRUE(v.faseParpadeo());
    EXPECT_FALSE(v.windowState() & Qt::WindowMinimized);

    // Once answered, the end of the minute does nothing.
    pulsar("Silenciar");
    m.PedidoNuevoPendiente = false;
    v.TimerSilenciar().setInterval(40);
    ASSERT_TRUE(EsperarHasta([&] { return !v.TimerSilenciar().enabled(); }, 3000));
    EXPECT_EQ(reproducciones(), 3);
    EXPECT_FALSE(v.TimerColorFondo().enabled());
}

TEST_F(Escritorio, LaCajaDeCierreYMinimizarSoloSilencian) {
    llega(kDomicilio);
    FormPedidoNuevo& v = ventana();
    EXPECT_FALSE(v.close());
    EXPECT_TRUE(v.windowState() & Qt::WindowMinimized);
    EXPECT_GE(detenciones(), 1);
    EXPECT_TRUE(v.TimerSilenciar().enabled());
    EXPECT_FALSE(v.TimerColorFondo().enabled());

    v.TimerSilenciar().setInterval(30);
    ASSERT_TRUE(EsperarHasta([&] { return !(v.windowState() & Qt::WindowMinimized); }, 3000));
    EXPECT_TRUE(v.TimerColorFondo().enabled());

    const int detenidas = detenciones();
    v.showMinimized();
    EXPECT_GT(detenciones(), detenidas);
    EXPECT_TRUE(v.TimerSilenciar().enabled());

    // Closing the desk stops the window's timers too.
    f->Unload();
    EXPECT_FALSE(v.TimerSilenciar().enabled());
    EXPECT_FALSE(v.TimerColorFondo().enabled());
}

TEST_F(Escritorio, LosDatosPersonalesCubiertosSeVenAlSilenciar) {
    m.OcultarDatosPerson = true;
    llega(kDomicilio);
    const QString cubierto = QStringLiteral("Pulse Silenciar 1 min. para ver");
    for (const char* n : {"LabCliente", "TxtDireccion", "LabTelefono"}) {
        EXPECT_EQ(texto(n), cubierto) << n;
    }
    EXPECT_EQ(texto("LabTotal"), QStringLiteral("29.50€"));
    pulsar("Silenciar");
    textos({{"LabCliente", "María Núñez"},
            {"TxtDireccion", "Calle Mayor 5, 2º B"},
            {"LabTelefono", "600111222"}});
}

TEST_F(Escritorio, ElOrdenDelCaminoDelPedido) {
    // A past-order window open is put away (the status watch it arms has its own test).
    QWidget anterior;
    anterior.setObjectName(QStringLiteral("FormPedidoAnterior"));
    anterior.show();
    llega(kDomicilio);
    EXPECT_FALSE(anterior.isVisible());

    // Without flashing the background stays as it is.
    ventana().hide();
    m.PedidoNuevoPendiente = false;
    m.ParpadeoPedNuevo = false;
    ventana().TimerColorFondo().setEnabled(false);
    llega(kEfectivo);
    EXPECT_FALSE(ventana().TimerColorFondo().enabled());
}

TEST_F(Escritorio, ImprimirDesdeLaVentanaVaPorLaRutaDelPedidoNuevo) {
    // Which slot prints is the route's matter; the button only has to reach it.
    llega(kDomicilio);
    pulsar("Imprimir");
    ASSERT_EQ(cajas->cajas().size(), 1);
    EXPECT_EQ(cajas->cajas()[0].texto,
              QStringLiteral("Debe seleccionar una impresora en configuración de impresoras"));
}

TEST_F(Escritorio, LaEntradaMusicaToca) {
    f->findChild<QAction*>(QStringLiteral("Musica"))->trigger();
    EXPECT_EQ(reproducciones(), 1);
}

TEST_F(Escritorio, ConActualizarConfigConPedidoLaConfiguracionSeLeeAntesDelPedido) {
    DarEstablecimiento(m, 1);
    m.ActualizarConfigConPedido = true;
    m.IntervaloEscaneoPedido = 0; // what the service sends back is seen below
    sim.limpiarRegistro();
    llega(kDomicilio);
    QStringList rutas;
    for (const auto& entrada : sim.registro()) {
        if (!entrada.ruta.isEmpty()) {
            rutas << entrada.ruta;
        }
    }
    ASSERT_GE(rutas.size(), 2);
    EXPECT_EQ(rutas.mid(0, 2), (QStringList{kPoll, "pedidosgprs/obtenerConfiguracionV2"}));
    EXPECT_GT(m.IntervaloEscaneoPedido, 0);
    // Only the variables: the main window keeps what it was showing.
    EXPECT_EQ(f->findChild<QLineEdit*>(QStringLiteral("TextEstablecimiento"))->text(),
              QStringLiteral("Pizzería Sol"));
    EXPECT_TRUE(ventana().isVisible());
    EXPECT_EQ(texto("LabNPedido"), QStringLiteral("5001"));
}
