// The list of copies to print again survives a restart whole, and a file that can't be read
// is put aside instead of being taken for a list or overwritten.
#include "common/EscritorioPruebaEP.h"
#include "printing/FormTicketsSinImprimir.h"
#include "printing/TicketsSinImprimir.h"

#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>

namespace {

class ListaSinImprimir : public EscritorioPrueba {};

TEST_F(ListaSinImprimir, SobreviveAlReinicioYApartaUnFicheroIlegible) {
    pedidoDomicilio();
    m.PedidoActual.Productos[1].Opciones = "Punto: Poco hecha";
    const struct {
        const char* caso;
        QByteArray contenido; // empty: written by a first list
        qsizetype quedan;
    } casos[] = {{"lista guardada", {}, 2},
                 {"bytes sueltos", "\x01\xff{[", 0},
                 {"un objeto", R"({"hueco":1})", 0},
                 {"hueco fuera", R"([{"hueco":11,"pedido":{}}])", 0}};
    for (const auto& c : casos) {
        SCOPED_TRACE(c.caso);
        QTemporaryDir dir;
        const QString ruta = RutaTicketsSinImprimir(dir.path());
        if (c.contenido.isEmpty()) {
            TicketsSinImprimir primera(ruta);
            primera.anotar({m.PedidoActual, 3, "Horno", m.reloj().ahora(), "sin papel"});
            primera.anotar({m.PedidoActual, 1, "Barra", m.reloj().ahora().addSecs(5), "apagada"});
        } else {
            QFile f(ruta);
            ASSERT_TRUE(f.open(QIODevice::WriteOnly));
            f.write(c.contenido);
        }
        const TicketsSinImprimir leida(ruta);
        ASSERT_EQ(leida.cantidad(), c.quedan);
        EXPECT_EQ(QFile::exists(ruta + ".ilegible"), c.quedan == 0);
        if (c.quedan == 0) {
            continue;
        }
        const TicketSinImprimir& t = leida.lista()[1];
        EXPECT_EQ(t.hora, m.reloj().ahora().addSecs(5));
        // The order as it was, to the last field a ticket prints.
        EXPECT_EQ(TicketsSinImprimirAJson({t}),
                  TicketsSinImprimirAJson({{m.PedidoActual, 1, "Barra", t.hora, "apagada"}}));
        EXPECT_EQ(t.pedido.Productos[1].Opciones, "Punto: Poco hecha");
        EXPECT_EQ(t.pedido.HoraAceptacion, m.PedidoActual.HoraAceptacion);
        EXPECT_EQ(t.pedido.Cliente, m.PedidoActual.Cliente);
    }
}

// The main window's button counts the copies and stays red while there are any.
TEST_F(ListaSinImprimir, ElBotonCuentaLasCopiasEnRojoYVuelveAlColorNormal) {
    QPushButton boton;
    FormTicketsSinImprimir::PrepararBoton(m, &boton);
    const QColor normal = boton.palette().color(QPalette::ButtonText);
    ASSERT_NE(normal, QColor(Qt::red));
    pedidoDomicilio();
    for (const qsizetype n : {1, 2}) {
        m.ticketsSinImprimir().anotar({m.PedidoActual, 1, "Barra", m.reloj().ahora(), "apagada"});
        EXPECT_EQ(boton.text(), QStringLiteral("Tickets sin imprimir (%1)").arg(n));
        EXPECT_EQ(boton.palette().color(QPalette::ButtonText), QColor(Qt::red));
    }
    m.ticketsSinImprimir().quitar(1);
    m.ticketsSinImprimir().quitar(0);
    EXPECT_EQ(boton.text(), QStringLiteral("Tickets sin imprimir"));
    EXPECT_EQ(boton.palette().color(QPalette::ButtonText), normal);
}

} // namespace
