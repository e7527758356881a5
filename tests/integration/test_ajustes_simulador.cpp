// A printer set up in the settings window of the desk in this process, against the stand-in
// service: what the save sends, and the printer printing at once.
#include "common/ControlDeHueco.h"
#include "common/DatosEsperados.h"
#include "common/Entorno.h"
#include "common/ImprimirQString.h"
#include "common/MostradorSimulado.h"
#include "printing/RutasImpresion.h"
#include "settings/FormCategoriasCocina.h"
#include "settings/FormImpresoras.h"

#include <QPushButton>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QTreeWidget>

namespace {

struct AjustesSimulador : MostradorSimulado {
    void configurar() override { DarEstablecimiento(m, 1); }
    void SetUp() override {
        MostradorSimulado::SetUp();
        ASSERT_TRUE(f->RefrescarConfiguracion());
        sim.limpiarRegistro();
    }
};

} // namespace

TEST_F(AjustesSimulador, UnaImpresoraPuestaEnLaVentanaImprimeSinReiniciar) {
    QTcpServer impresora;
    ASSERT_TRUE(impresora.listen(QHostAddress::LocalHost));
    const QString conexion = QStringLiteral("127.0.0.1:%1").arg(impresora.serverPort());

    FormImpresoras& w = f->AbrirImpresoras();
    ControlDeHueco<QLineEdit>(&w, "txtConexion", 2)->setText(conexion);
    // The kitchen categories of slot 3 come from the service, in the menu's order.
    QTest::mouseClick(ControlDeHueco<QPushButton>(&w, "butCocina", 3), Qt::LeftButton);
    auto* lista = w.formCategoriasSiExiste()->findChild<QTreeWidget*>("ListViewCategoriasCocina");
    ASSERT_EQ(lista->topLevelItemCount(), 5);
    EXPECT_EQ(lista->topLevelItem(3)->text(1), QStringLiteral("Bebidas y cafés"));
    lista->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
    lista->topLevelItem(4)->setCheckState(0, Qt::Checked);
    QTest::mouseClick(w.formCategoriasSiExiste()->findChild<QPushButton*>("CommandHecho"),
                      Qt::LeftButton);
    sim.limpiarRegistro();
    QTest::mouseClick(w.findChild<QPushButton*>("butGuardar"), Qt::LeftButton);

    const auto registro = sim.registro();
    // The ten slots, the configuration read again, and the menu that this run had not read.
    ASSERT_EQ(registro.size(), 12);
    EXPECT_EQ(registro[11].ruta, QStringLiteral("establecimiento/carta2"));
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(registro[i].ruta, i < 4 ? QStringLiteral("pedidosgprs/actualizarConfigImpresora")
                                          : QStringLiteral("pedidosgprs/eliminarConfigImpresora"));
        EXPECT_TRUE(
            registro[i].consulta.contains(QStringLiteral("&numeroimpresora=%1").arg(i + 1)));
    }
    EXPECT_EQ(registro[10].ruta, QStringLiteral("pedidosgprs/obtenerConfiguracionV2"));
    EXPECT_EQ(sim.consultas(QStringLiteral("pedidosgprs/actualizarConfigImpresora")).value(1),
              LineasDatos(QStringLiteral("peticion_impresora_ep.txt"))
                  .join(QString())
                  .replace(QStringLiteral("@CONEXION"), conexion));
    EXPECT_TRUE(registro[2].consulta.contains(QStringLiteral("&categoriasids=11,13,15&")));
    // The records are the service's again: the new connection, and slot 4's prices gone.
    EXPECT_EQ(m.Impresora(2).EPConexion, conexion);
    EXPECT_EQ(m.Impresora(3).CategoriasIds, QStringLiteral("11,13,15"));
    EXPECT_FALSE(m.Impresora(4).MostrarPreciosProdCocina);
    EXPECT_FALSE(w.isVisible());

    // An order comes in and goes to the printer on that port.
    const QJsonArray pedidos = sim.generarPedidos(1, 21, QStringLiteral("domicilio"), 2);
    f->ComprobarPedidosNuevos();
    ASSERT_TRUE(m.PedidoNuevoPendiente);
    ImprimirPedido(m, m.Impresora(2), 1);
    ASSERT_TRUE(impresora.waitForNewConnection(5000));
    QTcpSocket* copia = impresora.nextPendingConnection();
    QByteArray bytes = copia->readAll();
    while (copia->state() == QAbstractSocket::ConnectedState && copia->waitForReadyRead(2000)) {
        bytes += copia->readAll();
    }
    bytes += copia->readAll();
    EXPECT_TRUE(bytes.startsWith("\x1b@")) << bytes.left(16).toHex().toStdString();
    EXPECT_TRUE(
        bytes.contains(pedidos[0].toObject()[QStringLiteral("numero")].toString().toLatin1()));
    EXPECT_TRUE(cajas->cajas().isEmpty());
}
