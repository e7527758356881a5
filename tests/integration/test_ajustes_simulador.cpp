// The settings windows of the desk in this process against the stand-in service: what a save
// sends, what takes effect at once, and a printer set up in the window printing at once.
#include "common/ImprimirQString.h"
#include "common/MostradorSimulado.h"
#include "orders/FormPedidoNuevo.h"
#include "printing/RutasImpresion.h"
#include "settings/FormCategoriasCocina.h"
#include "settings/FormConfig.h"
#include "settings/FormImpresoras.h"
#include "sound/AlertaSonora.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QTreeWidget>

namespace {

template <typename T> T* de(QWidget* ventana, const char* nombre, int slot) {
    for (T* c : ventana->findChildren<T*>(QLatin1String(nombre))) {
        if (c->property("Index").toInt() == slot - 1) {
            return c;
        }
    }
    ADD_FAILURE() << nombre << " " << slot;
    return nullptr;
}

// The query as the service saw it, without the time stamp that ends every request.
QString sinMarca(const QString& consulta) {
    return consulta.left(consulta.lastIndexOf(QStringLiteral("&fha=")));
}

// Qt's HTTP client sends an escaped unreserved character ("%2E") as the character itself,
// which a server reads as the same value; both sides are compared in that form. Every
// other escape must arrive exactly as the desk wrote it.
QString sinEscapesNoReservados(QString q) {
    for (const char c :
         QByteArrayLiteral("-._~0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz")) {
        if (c != '\0') {
            q.replace(QStringLiteral("%%1").arg(int(uchar(c)), 2, 16, QLatin1Char('0')).toUpper(),
                      QString(QLatin1Char(c)));
        }
    }
    return q;
}

struct AjustesSimulador : MostradorSimulado {
    void configurar() override {
        m.IdEstablecimiento = 7;
        m.PasswordConfig = QStringLiteral("clave");
        m.NumConfig = 1;
    }
    void SetUp() override {
        MostradorSimulado::SetUp();
        ASSERT_TRUE(f->RefrescarConfiguracion());
        sim.limpiarRegistro();
    }
};

} // namespace

TEST_F(AjustesSimulador, GuardarLaConfiguracionGeneralEnviaLaConsultaYRigeAlMomento) {
    FormConfig& c = f->AbrirConfig();
    c.findChild<QLineEdit*>("txtTamannoFuentePrinc")->setText(QStringLiteral("13"));
    c.findChild<QComboBox*>("ComMelodias")->setCurrentText(QStringLiteral("bolero.wav"));
    QTest::mouseClick(c.findChild<QPushButton*>("butAceptarConfig"), Qt::LeftButton);
    const auto registro = sim.registro();
    ASSERT_EQ(registro.size(), 1);
    EXPECT_EQ(registro[0].ruta, QStringLiteral("pedidosgprs/actualizarConfigGeneral"));
    EXPECT_EQ(sinMarca(registro[0].consulta),
              sinEscapesNoReservados(
                  QStringLiteral("idEstablecimiento=7&passwordconfig=clave&numconfig=1"
                                 "&tamannofuenteprincipales=13&tamannofuentelistascheck=10"
                                 "&tiporeproaudio=0&melodiapednuevo=bolero%2Ewav"
                                 "&volumenmelodiawmp=80&minimizartrasresp=0")));
    // At once: the order window's lists and the next alert.
    auto* productos = f->formPedidoNuevo().findChild<QWidget*>("ListViewProductos");
    EXPECT_EQ(productos->font().pointSize(), 13);
    EXPECT_TRUE(m.sonido().RutaMelodia().endsWith(QStringLiteral("bolero.wav")));
    // And the service kept it: the next reading brings the same back.
    ASSERT_TRUE(f->RefrescarConfiguracion());
    EXPECT_EQ(m.TamannoFuentePrincipales, 13);
    EXPECT_EQ(m.MelodiaPedNuevo, QStringLiteral("bolero.wav"));
}

TEST_F(AjustesSimulador, UnaImpresoraPuestaEnLaVentanaImprimeSinReiniciar) {
    QTcpServer impresora;
    ASSERT_TRUE(impresora.listen(QHostAddress::LocalHost));
    const QString conexion = QStringLiteral("127.0.0.1:%1").arg(impresora.serverPort());

    FormImpresoras& w = f->AbrirImpresoras();
    de<QLineEdit>(&w, "txtConexion", 2)->setText(conexion);
    // The kitchen categories of slot 3 come from the service, in the menu's order.
    QTest::mouseClick(de<QPushButton>(&w, "butCocina", 3), Qt::LeftButton);
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
    EXPECT_EQ(sinMarca(registro[1].consulta),
              QStringLiteral("idEstablecimiento=7&passwordconfig=clave&numconfig=1&version=1.6.2"
                             "&numeroimpresora=2&nombreimpresora=Tique+cliente&tipoimpresion=EP"
                             "&numerocopiasaceptado=1&numerocopiasaceptadorecoger=2"
                             "&numerocopiasrechazado=1&epconexion=") +
                  conexion +
                  QStringLiteral("&epnumcolumnas=48&epcominicializar=27,64"
                                 "&epcomconfigcaracteres=27,116,19&epcomdoblealtoactivar=27,33,48"
                                 "&epcomdoblealtodesact=27,33,0&epcomcotarpapel=29,86,66,0"
                                 "&epcomsubirlineas=27,100,3&epcomextrasfin=&separadorlineas=") +
                  QString(48, u'-') +
                  QStringLiteral("&cocina=0&categoriasids=&formaenvio=0&mostrarnombreimpresora=0"
                                 "&saltolineaopciones=0&mostrarseparadorproductos=0"
                                 "&nombreimpresoragrande=0&productosycomentariosgrande=0"
                                 "&productosycomentariosmayus=0&datosclientecocina=0"
                                 "&datosclienteyenviogrande=0&numlineasblancoinicio=0"
                                 "&numlineasblancofinal=2&numpedidoyformaenvfinal=0"
                                 "&mostrarpreciosprodcocina=0&mostrartotalbruto=1"
                                 "&mostrarhoraentrega=1&reemplazarcaracesp=0"
                                 "&reemplazarcaracescpospc858=1"));
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
