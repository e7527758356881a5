#include "base/Windows1252.h"
#include "common/DatosEsperados.h"
#include "common/Entorno.h"
#include "orders/RegistroPedido.h"

#include <gtest/gtest.h>

namespace {

// The order data list of a paid card order for delivery, ordered now, in state
// "Pendiente"; tests change single items.
QStringList datosBase() {
    return {
        QStringLiteral("0.00"),                         // 0 discount
        QStringLiteral("23.80"),                        // 1 total
        QStringLiteral("77"),                           // 2 not read
        QStringLiteral("Luis Gil"),                     // 3 customer
        QStringLiteral("Calle Mayor 5"),                // 4 delivery
        QStringLiteral("14/11/2026 9:02%%Para: Ahora"), // 5 times
        QStringLiteral("3"),                            // 6 earlier orders
        QStringLiteral("6"),                            // 7 paid
        QStringLiteral("Tarjeta"),                      // 8 payment
        QStringLiteral("600123456"),                    // 9 telephone
        QStringLiteral("Pendiente"),                    // 10 state
        QString(),                                      // 11 minutes / reason
        QString(),                                      // 12 promotion
        QStringLiteral("0.35"),                         // 13 commission
        QString(),                                      // 14 who bears it
        QStringLiteral("0"),                            // 15 own web
        QStringLiteral("24.90"),                        // 16 gross
        QString(),                                      // 17 accepted at
    };
}

const QString kProductos =
    QStringLiteral("2%Pizza Margarita - Extra de queso%19.80%101%12%Cocina caliente//2//Extra de "
                   "queso;1%Coca-Cola%2.50%140%14;");

QString linea(const QStringList& datos, const QString& comentario = QStringLiteral("Sin cebolla"),
              const QString& productos = kProductos) {
    return QStringLiteral("#PED*web*4521*") + productos + QStringLiteral("*1.50*") +
           datos.join(QLatin1Char(';')) + QLatin1Char('*') + comentario + QLatin1Char('#');
}

// The reply as the transports deliver it: the service's UTF-8, one character per byte.
QString parsear(Entorno& e, const QString& texto) {
    QString respuesta = cp1252::aTexto(texto.toUtf8());
    return ParsearPedido(e.m, respuesta);
}

QString textoError(int numero, const QString& descripcion) {
    return QStringLiteral("Se ha producido un error. Tipo de error = ") + QString::number(numero) +
           QStringLiteral(". Descripción: ") + descripcion;
}

} // namespace

TEST(ParsearPedido, UnPedidoADomicilioLlenaCadaCampoYElResumen) {
    Entorno e;
    e.m.TextoEstablecimiento = QStringLiteral("Pizzería Sol");
    const QString resumen = parsear(e, linea(datosBase()));
    const Pedido& p = e.m.PedidoActual;

    EXPECT_EQ(resumen, SinMarcas(LineasDatos("resumen_pedido_domicilio.txt").join("\r\n")));

    // What the summary does not show: each product's pieces and the unshown items.
    QStringList productos;
    for (const auto& pr : p.Productos) {
        productos << QStringLiteral("%1|%2|%3|%4|%5|%6")
                         .arg(pr.Cantidad)
                         .arg(pr.Nombre, pr.Precio)
                         .arg(pr.IdProducto)
                         .arg(pr.IdCategoria)
                         .arg(pr.Opciones);
    }
    EXPECT_EQ(
        productos,
        (QStringList{
            "2|Pizza Margarita - Extra de queso|19.80|101|12|Cocina caliente//2//Extra de queso",
            "1|Coca-Cola|2.50|140|14|"}));
    EXPECT_EQ(p.Establecimiento, QStringLiteral("Pizzería Sol"));
    EXPECT_EQ(p.TextoProductos, QStringLiteral("\r\n2 X Pizza Margarita - Extra de queso 19.80€"
                                               "\r\n1 X Coca-Cola 2.50€"));
    EXPECT_EQ(p.FormaEntrega + '|' + p.Para + '|' + p.ParaDia,
              QStringLiteral("Calle Mayor 5|Para: Ahora|"));
    EXPECT_EQ(p.Estado + '|' + p.TiempoEstimado + '|' + p.MotivoRechazo + '|' + p.CodigoPromocion,
              QStringLiteral("Pendiente|||"));
    EXPECT_FALSE(p.ImprimirEnCocina || p.WebParticular || p.HoraAceptacion.isValid());
    EXPECT_EQ(p.QuienAsume, 0);
    EXPECT_TRUE(e.cajas->cajas().isEmpty());
}

TEST(ParsearPedido, ElTextoSeReparaEnSuSitioUnaVez) {
    Entorno e;
    QStringList d = datosBase();
    d[3] = QStringLiteral("María Núñez");
    d[4] = QStringLiteral("Plaza de España 2, 3º");
    // The transports deliver one character per byte of the reply.
    QString respuesta = cp1252::aTexto(linea(d, QStringLiteral("Poco hecho, por favor")).toUtf8());
    ASSERT_NE(respuesta, linea(d, QStringLiteral("Poco hecho, por favor")));

    const QString resumen = ParsearPedido(e.m, respuesta);
    EXPECT_EQ(respuesta, linea(d, QStringLiteral("Poco hecho, por favor")));
    EXPECT_EQ(e.m.PedidoActual.Cliente, QStringLiteral("María Núñez"));
    EXPECT_EQ(e.m.PedidoActual.FormaEntrega, QStringLiteral("Plaza de España 2, 3º"));
    EXPECT_TRUE(resumen.contains(QStringLiteral("\r\n\r\nCliente: María Núñez\r\n\r\n")));
}

TEST(ParsearPedido, ElComentarioSeReuneEnSusAsteriscosYPierdeLaAlmohadillaFinal) {
    Entorno e;
    // A comment holding "*" arrives cut at each one; the blanks stay where they were.
    QString resumen = parsear(e, linea(datosBase(), QStringLiteral("Timbre 2º * no funciona **")));
    EXPECT_EQ(e.m.PedidoActual.Comentarios, QStringLiteral("Timbre 2º * no funciona **"));
    EXPECT_TRUE(
        resumen.endsWith(QStringLiteral("\r\n\r\nComentarios: Timbre 2º * no funciona **")));

    resumen = parsear(e, linea(datosBase(), QString()));
    EXPECT_EQ(e.m.PedidoActual.Comentarios, QString());
    EXPECT_TRUE(resumen.endsWith(QStringLiteral("\r\n\r\nComentarios: ")));
    EXPECT_TRUE(e.cajas->cajas().isEmpty());
}

TEST(ParsearPedido, LasHorasDeDosYDeCuatroPiezas) {
    Entorno e;
    QStringList d = datosBase();

    d[5] = QStringLiteral("14/11/2026 9:02%%Para: 21:30%%Sábado 15%%n");
    QString resumen = parsear(e, linea(d));
    EXPECT_EQ(e.m.PedidoActual.Para, QStringLiteral("Para: 21:30"));
    EXPECT_EQ(e.m.PedidoActual.ParaDia, QStringLiteral("Sábado 15"));
    EXPECT_FALSE(e.m.PedidoActual.ImprimirEnCocina);
    // The scheduled time shows only on screen and tickets.
    EXPECT_FALSE(resumen.contains(QStringLiteral("21:30")));
    EXPECT_TRUE(resumen.contains(QStringLiteral("Realizado el: 14/11/2026 9:02\r\n\r\nPedidos "
                                                "anteriores: 3")));

    d[5] = QStringLiteral("14/11/2026 9:02%%Para: 21:30%%%%s");
    parsear(e, linea(d));
    EXPECT_EQ(e.m.PedidoActual.ParaDia, QString());
    EXPECT_TRUE(e.m.PedidoActual.ImprimirEnCocina);

    // Three pieces are not the scheduled form: the time goes into the summary.
    d[5] = QStringLiteral("14/11/2026 9:02%%Para: 21:30%%Sábado 15");
    resumen = parsear(e, linea(d));
    EXPECT_EQ(e.m.PedidoActual.ParaDia, QString());
    EXPECT_FALSE(e.m.PedidoActual.ImprimirEnCocina);
    EXPECT_TRUE(resumen.contains(QStringLiteral("\r\n\r\nPara: 21:30\r\n\r\n")));
}

TEST(ParsearPedido, PagoYCambio) {
    Entorno e;
    QStringList d = datosBase();
    d[7] = QStringLiteral("1");
    d[8] = QStringLiteral("Efectivo  Cambio: 50");
    QString resumen = parsear(e, linea(d));
    EXPECT_EQ(e.m.PedidoActual.EstadoPago, QStringLiteral("NO Pagado"));
    EXPECT_EQ(e.m.PedidoActual.FormaPago, QStringLiteral("Efectivo"));
    EXPECT_EQ(e.m.PedidoActual.Cambio, QStringLiteral("50"));
    EXPECT_TRUE(resumen.contains(QStringLiteral("\r\n\r\nNo Pagado\r\n\r\nForma de Pago: Efectivo "
                                                "\r\n\r\nCambio: 50\r\n\r\nTeléfono: ")));

    // "6" only is paid.
    d[7] = QStringLiteral("06");
    d[8] = QStringLiteral("Bizum");
    resumen = parsear(e, linea(d));
    EXPECT_EQ(e.m.PedidoActual.EstadoPago, QStringLiteral("NO Pagado"));
    EXPECT_EQ(e.m.PedidoActual.FormaPago, QStringLiteral("Bizum"));
    EXPECT_EQ(e.m.PedidoActual.Cambio, QString());
    EXPECT_TRUE(e.cajas->cajas().isEmpty());

    // A method whose own name holds "Cambio" but not " Cambio: " has no second piece.
    d[8] = QStringLiteral("CambioExacto");
    resumen = parsear(e, linea(d));
    EXPECT_EQ(resumen, QString());
    ASSERT_EQ(e.cajas->cajas().size(), 1);
    EXPECT_EQ(e.cajas->cajas()[0].texto,
              textoError(9, QStringLiteral("El subíndice está fuera del intervalo")));
    EXPECT_EQ(e.cajas->cajas()[0].estilo, estilo::SoloAceptar);
    // Filled as far as it got: the first piece is in, the change and what follows are not.
    EXPECT_EQ(e.m.PedidoActual.EstadoPago, QStringLiteral("NO Pagado"));
    EXPECT_EQ(e.m.PedidoActual.FormaPago, QStringLiteral("CambioExacto"));
    EXPECT_EQ(e.m.PedidoActual.Cambio, QString());
    EXPECT_EQ(e.m.PedidoActual.Telefono, QString());
}

TEST(ParsearPedido, PromocionYQuienLaAsume) {
    Entorno e;
    QStringList d = datosBase();
    d[12] = QStringLiteral("VERANO10");
    d[14] = QStringLiteral("1");

    QString resumen = parsear(e, linea(d));
    EXPECT_EQ(e.m.PedidoActual.CodigoPromocion, QStringLiteral("VERANO10"));
    EXPECT_EQ(e.m.PedidoActual.QuienAsume, 1);
    EXPECT_FALSE(resumen.contains(QStringLiteral("Promoción")));
    EXPECT_FALSE(resumen.contains(QStringLiteral("Asume")));

    e.m.MostrarCpr = true;
    e.m.MostrarQuienA = true;
    resumen = parsear(e, linea(d));
    EXPECT_TRUE(resumen.contains(
        QStringLiteral("Importe descuento: 0.00€\r\n\r\nCódigo de Promoción: VERANO10 (Asume "
                       "Establecimiento)\r\n\r\nTOTAL PEDIDO: 23.80€")));

    // Only the code is hidden: the bearer still follows the discount with no line break.
    e.m.MostrarCpr = false;
    d[14] = QStringLiteral("2");
    resumen = parsear(e, linea(d));
    EXPECT_TRUE(resumen.contains(QStringLiteral(
        "Importe descuento: 0.00€ (Asume Establecimiento y Tarvimenta)\r\n\r\nTOTAL")));

    // A number the summary has no text for is still kept.
    e.m.MostrarCpr = true;
    d[14] = QStringLiteral("7");
    resumen = parsear(e, linea(d));
    EXPECT_EQ(e.m.PedidoActual.QuienAsume, 7);
    EXPECT_TRUE(resumen.contains(QStringLiteral("Código de Promoción: VERANO10\r\n\r\nTOTAL")));

    // Without a code the bearer is not read at all.
    d[12] = QString();
    d[14] = QStringLiteral("x");
    resumen = parsear(e, linea(d));
    EXPECT_EQ(e.m.PedidoActual.QuienAsume, 0);
    EXPECT_TRUE(e.cajas->cajas().isEmpty());

    // With one, a bearer that is no number is a type mismatch.
    d[12] = QStringLiteral("X");
    EXPECT_EQ(parsear(e, linea(d)), QString());
    ASSERT_EQ(e.cajas->cajas().size(), 1);
    EXPECT_EQ(e.cajas->cajas()[0].texto, textoError(13, QStringLiteral("No coinciden los tipos")));
}

TEST(ParsearPedido, LasPalabrasDeEstadoSeComparanExactas) {
    Entorno e;
    QStringList d = datosBase();
    d[11] = QStringLiteral("30");
    for (const QString& palabra : {QStringLiteral("Aceptado"), QStringLiteral("Preparado"),
                                   QStringLiteral("En reparto"), QStringLiteral("Entregado")}) {
        d[10] = palabra;
        const QString resumen = parsear(e, linea(d));
        EXPECT_EQ(e.m.PedidoActual.TiempoEstimado, QStringLiteral("30")) << palabra.toStdString();
        EXPECT_EQ(e.m.PedidoActual.MotivoRechazo, QString());
        EXPECT_TRUE(resumen.endsWith(QStringLiteral("Comentarios: Sin cebolla\r\n\r\nEstado: ") +
                                     palabra +
                                     QStringLiteral("\r\n\r\nTiempo Estimado: 30 Minutos")));
    }

    d[10] = QStringLiteral("Rechazado");
    d[11] = QStringLiteral("Cocina cerrada");
    QString resumen = parsear(e, linea(d));
    EXPECT_EQ(e.m.PedidoActual.MotivoRechazo, QStringLiteral("Cocina cerrada"));
    EXPECT_EQ(e.m.PedidoActual.TiempoEstimado, QString());
    EXPECT_TRUE(resumen.endsWith(
        QStringLiteral("\r\n\r\nEstado: Rechazado\r\n\r\nMotivo Rechazo: Cocina cerrada")));

    for (const QString& otra : {QStringLiteral("aceptado"), QStringLiteral("Enreparto")}) {
        d[10] = otra;
        d[11] = QStringLiteral("30");
        resumen = parsear(e, linea(d));
        EXPECT_EQ(e.m.PedidoActual.Estado, otra);
        EXPECT_EQ(e.m.PedidoActual.TiempoEstimado, QString());
        EXPECT_TRUE(resumen.endsWith(QStringLiteral("Comentarios: Sin cebolla")));
    }
}

TEST(ParsearPedido, WebPropiaYHoraDeAceptacion) {
    Entorno e;
    QStringList d = datosBase();
    d[15] = QStringLiteral("1");
    d[17] = QStringLiteral("14/11/2026 21:05:09");
    parsear(e, linea(d));
    EXPECT_TRUE(e.m.PedidoActual.WebParticular);
    EXPECT_EQ(e.m.PedidoActual.HoraAceptacion, QDateTime(QDate(2026, 11, 14), QTime(21, 5, 9)));

    d[15] = QStringLiteral("01");
    d[17] = QStringLiteral("31/02/2026 10:00");
    parsear(e, linea(d));
    EXPECT_FALSE(e.m.PedidoActual.WebParticular);
    EXPECT_FALSE(e.m.PedidoActual.HoraAceptacion.isValid());
    EXPECT_TRUE(e.cajas->cajas().isEmpty());
}

TEST(ParsearPedido, UnaLineaRotaDejaElRegistroHastaDondeLlegoYAvisa) {
    Entorno e;
    // No product at all: the list cannot be sized.
    EXPECT_EQ(parsear(e, linea(datosBase(), QStringLiteral("x"), QString())), QString());
    EXPECT_EQ(e.m.PedidoActual.NumPedido, QStringLiteral("4521"));
    EXPECT_TRUE(e.m.PedidoActual.Productos.isEmpty());
    EXPECT_EQ(e.m.PedidoActual.ImporteEnvio, QString());

    // A list without its closing ";" has no product either.
    parsear(e, linea(datosBase(), QStringLiteral("x"), QStringLiteral("1%Agua%1.00%3%4")));
    // Units that are no number stop at the first product; the entries stay empty.
    parsear(e, linea(datosBase(), QStringLiteral("x"),
                     QStringLiteral("1%Agua%1.00%3%4;dos%Pan%1.00%5%6;")));
    ASSERT_EQ(e.m.PedidoActual.Productos.size(), 2);
    EXPECT_EQ(e.m.PedidoActual.Productos[0].Nombre, QStringLiteral("Agua"));
    EXPECT_EQ(e.m.PedidoActual.Productos[1].Nombre, QString());
    EXPECT_EQ(e.m.PedidoActual.TextoProductos, QStringLiteral("\r\n1 X Agua 1.00€"));

    // A data list cut short fails at the first item it lacks.
    QStringList corta = datosBase().mid(0, 13);
    parsear(e, linea(corta));
    EXPECT_EQ(e.m.PedidoActual.ImporteEnvio, QStringLiteral("1.50€"));
    EXPECT_EQ(e.m.PedidoActual.ComisionPaypal, QString());

    // Only the acceptance moment missing: everything else is in.
    QStringList sinHora = datosBase().mid(0, 17);
    parsear(e, linea(sinHora));
    EXPECT_EQ(e.m.PedidoActual.Comentarios, QStringLiteral("Sin cebolla"));
    EXPECT_EQ(e.m.PedidoActual.Estado, QStringLiteral("Pendiente"));

    const QString fuera = textoError(9, QStringLiteral("El subíndice está fuera del intervalo"));
    const QString tipos = textoError(13, QStringLiteral("No coinciden los tipos"));
    QStringList textos;
    for (const auto& c : e.cajas->cajas()) {
        textos << c.texto;
    }
    EXPECT_EQ(textos, (QStringList{fuera, fuera, tipos, fuera, fuera}));

    // A record is replaced as a whole by the next parse.
    parsear(e, linea(datosBase()));
    EXPECT_EQ(e.m.PedidoActual.Productos.size(), 2);
    LimpiarPedido(e.m);
    EXPECT_TRUE(e.m.PedidoActual.NumPedido.isEmpty());
    EXPECT_TRUE(e.m.PedidoActual.Productos.isEmpty());
    EXPECT_TRUE(e.m.PedidoActual.TotalPedido.isEmpty());
}

TEST(ParsearPedido, SeparadoresDeMasDesplazanLosCamposSinAdivinar) {
    Entorno e;
    QStringList d = datosBase();
    d[3] = QStringLiteral("Gil; Luis");
    // Every later item moves one place: the address lands in the times field, which then
    // lacks its second piece.
    EXPECT_EQ(parsear(e, linea(d)), QString());
    EXPECT_EQ(e.m.PedidoActual.Cliente, QStringLiteral("Gil"));
    EXPECT_EQ(e.m.PedidoActual.FormaEntrega, QStringLiteral(" Luis"));
    EXPECT_EQ(e.m.PedidoActual.RealizadoEl, QStringLiteral("Calle Mayor 5"));
    EXPECT_EQ(e.m.PedidoActual.Telefono, QString());
    EXPECT_EQ(e.cajas->cajas().size(), 1);
}

TEST(ObtenerPedido, PideElPedidoYSoloUnaLineaDePedidoCambiaElRegistro) {
    Entorno e;
    DarEstablecimiento(e.m, 2);
    e.canales.directo->responder(cp1252::aBytes(linea(datosBase())));
    QString resumen;
    EXPECT_TRUE(ObtenerPedido(e.m, QStringLiteral("4521"), &resumen));
    ASSERT_EQ(e.canales.directo->urls.size(), 1);
    EXPECT_EQ(e.canales.directo->urls[0],
              "https://servidor.prueba/api/pedidosgprs/obtenerPedido?idEstablecimiento=7"
              "&passwordconfig=clave&numconfig=2&idPedidoEst=4521&modeloImpresora=3"
              "&version=1.6.2&fha=2026111490507");
    EXPECT_EQ(e.m.PedidoActual.NumPedido, QStringLiteral("4521"));
    EXPECT_TRUE(resumen.startsWith(QStringLiteral("4521\r\n\r\nProductos: ")));

    for (const QByteArray& otra :
         {QByteArray("error"), QByteArray(""), QByteArray("##"), QByteArray("#PED*a*9*x\n#")}) {
        e.canales.directo->responder(otra);
        QString sinTocar = QStringLiteral("previo");
        EXPECT_TRUE(ObtenerPedido(e.m, QStringLiteral("9"), &sinTocar));
        EXPECT_EQ(sinTocar, QStringLiteral("previo"));
        EXPECT_EQ(e.m.PedidoActual.NumPedido, QStringLiteral("4521"));
    }
    EXPECT_TRUE(e.cajas->cajas().isEmpty());
}
