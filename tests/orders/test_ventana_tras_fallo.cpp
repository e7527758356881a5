// An order whose painting fails part way must not stand on screen beside the previous order's
// customer, address or total, and must still be answerable.
#include "common/MostradorSimulado.h"
#include "orders/FormAceptarPedido.h"
#include "orders/FormPedidoNuevo.h"
#include "orders/RespuestasPedido_ui.h"
#include "orders/VistaPedido.h"

#include <QMap>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

namespace {

// Every control of the window that shows a value of the order.
const char* const kValores[] = {"LabNPedido",    "LabComisionPaypal",  "LabImporteEnvio",
                                "LabDescuento",  "LabPromocion",       "LabTotal",
                                "labTotalBruto", "LabCliente",         "LabTelefono",
                                "LabFormaEnvio", "TxtDireccion",       "LabRealizadoEl",
                                "labPara",       "LabPedAnteriores",   "LabEstadoPago",
                                "LabMetodoPago", "LabCambio",          "TxtComentarios",
                                "LabEstado",     "LabTiempoEstMotivo", "LabOrigen"};

const QString kAnterior = QStringLiteral(
    "#PED*web*5001*2%Pizza Cuatro Quesos - Borde relleno%23.00%101%12;1%Tarta de queso%4.50%150%15;"
    "*2.00*0.00;29.50;88;María Núñez;Calle Mayor 5, 2º B;14/11/2026 21:02%%Para: Ahora;4;6;"
    "Efectivo Cambio: 50;600111222;Pendiente;;BIENVENIDA;0.35;;1;29.85;*Timbre roto#");

// The next order, different in every value; `productos` and `estado` make it fail.
QString siguiente(const QString& productos, const QString& estado) {
    return QStringLiteral("#PED*web*6100*") + productos +
           QStringLiteral(";*3.00*1.00;12.00;91;Luis Gil;Recogen;15/11/2026 20:00%%Para: 21:30%%"
                          "Sábado 15%%n;0;7;Tarjeta;633444555;") +
           estado + QStringLiteral(";;0.00;;0;14.00;*Sin sal#");
}

struct VentanaTrasFallo : MostradorSimulado {
    QString texto(const char* nombre) {
        return TextoControl(f->formPedidoNuevo().findChild<QWidget*>(QLatin1String(nombre)));
    }
    QStringList productos() {
        QStringList r;
        auto* lista =
            f->formPedidoNuevo().findChild<QTreeWidget*>(QStringLiteral("ListViewProductos"));
        for (int i = 0; i < lista->topLevelItemCount(); ++i) {
            r << lista->topLevelItem(i)->text(2);
        }
        return r;
    }
};

} // namespace

TEST_F(VentanaTrasFallo, NingunValorDelPedidoAnteriorQuedaYElNuevoSePuedeResponder) {
    const QString bien = QStringLiteral("1%Ensalada verde%6.00%401%14");
    const struct {
        const char* causa;
        QString linea;
        qint16 tamannoFuente;
        const char* error;
    } casos[] = {
        {"un producto sin líneas", siguiente(QStringLiteral("1%Pizza - X%9.00%1%2"), "Pendiente;"),
         8, "'9'"},
        {"tamaño de letra 0", siguiente(bien, "Pendiente;"), 0, "'11'"},
        {"tiempo estimado que no es un número", siguiente(bien, "Aceptado;veinte"), 8, "'13'"},
    };
    for (const auto& c : casos) {
        SCOPED_TRACE(c.causa);
        cajas->limpiar();
        m.TamannoFuentePrincipales = 8;
        llega(kAnterior);
        ASSERT_TRUE(cajas->cajas().isEmpty());
        QMap<QString, QString> antes;
        for (const char* n : kValores) {
            antes[n] = texto(n);
        }
        const QStringList productosAntes = productos();
        ASSERT_FALSE(productosAntes.isEmpty());

        m.TamannoFuentePrincipales = c.tamannoFuente;
        llega(c.linea);
        ASSERT_EQ(cajas->cajas().size(), 1);
        EXPECT_TRUE(cajas->cajas()[0].texto.startsWith(
            QStringLiteral("Error en tiempo de ejecución ") + QLatin1String(c.error)))
            << cajas->cajas()[0].texto.toStdString();
        for (const char* n : kValores) {
            if (!antes[n].isEmpty()) {
                EXPECT_NE(texto(n), antes[n]) << n << " sigue con el pedido anterior";
            }
        }
        for (const QString& p : productos()) {
            EXPECT_TRUE(p == vista::FinProductos || !productosAntes.contains(p)) << p.toStdString();
        }

        // The order on screen is the one the answer goes to.
        ASSERT_TRUE(f->formPedidoNuevo().isVisible());
        QTest::mouseClick(f->formPedidoNuevo().findChild<QPushButton*>(QStringLiteral("Aceptar")),
                          Qt::LeftButton);
        const int antesRespuesta = static_cast<int>(sim.registro().size());
        if (m.PedidoActual.Para == u"Para: Ahora") {
            QTest::mouseClick(f->respuestasPedido().formAceptarPedido().AceptarMinutos(3),
                              Qt::LeftButton);
        } else {
            f->respuestasPedido().PulsarAceptarProgramado();
        }
        ASSERT_TRUE(sim.esperarPeticion(QStringLiteral("pedidosgprs/respuestapedidos"), 3000,
                                        antesRespuesta));
        const QStringList enviadas = sim.consultas(QStringLiteral("pedidosgprs/respuestapedidos"));
        const QString consulta = enviadas.value(enviadas.size() - 1);
        EXPECT_TRUE(consulta.contains(QStringLiteral("&o=6100&ak=Accepted")))
            << consulta.toStdString();
        EXPECT_FALSE(m.PedidoNuevoPendiente);
    }
}
