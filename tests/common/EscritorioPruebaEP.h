#pragma once

// Pieces of expected ticket bytes, written from the printer's settings by hand: the default
// commands of a new raw printer and plain lines in Windows-1252.
#include "base/ClassConfigImpresora.h"
#include "base/ModuloPrincipal.h"
#include "base/Pedido.h"
#include "base/Windows1252.h"
#include "common/CapturaEP.h"
#include "common/Esperar.h"
#include "common/ImpresoraEPDeSerie.h"
#include "platform/CajaMensajes.h"
#include "platform/Reloj.h"

#include <QByteArray>
#include <QString>
#include <gtest/gtest.h>

namespace esperado {

inline const QByteArray INI = QByteArray::fromHex("1b40");
inline const QByteArray CP = QByteArray::fromHex("1b7413");
inline const QByteArray GR = QByteArray::fromHex("1b2130");
inline const QByteArray NO = QByteArray::fromHex("1b2100");
inline const QByteArray SUBIR = QByteArray::fromHex("1b6403");
inline const QByteArray CORTE = QByteArray::fromHex("1d564200");

// A line as Windows-1252 bytes and its line feed.
inline QByteArray L(const QString& texto) {
    return cp1252::aBytes(texto) + '\n';
}
inline QByteArray SEP() {
    return L(QString(48, u'-'));
}
inline QString sp(int n) {
    return QString(n, u' ');
}
inline QByteArray blancas(int n) {
    return QByteArray(n, '\n');
}

} // namespace esperado

// A desk with a fixed clock (22/11/2026 13:05:09), its boxes recorded and raw tickets
// captured in memory.
class EscritorioPrueba : public ::testing::Test {
protected:
    EscritorioPrueba() : captura(m) {
        m.setReloj(std::make_unique<RelojFijo>(QDateTime(QDate(2026, 11, 22), QTime(13, 5, 9))));
        auto registro = std::make_unique<RegistroCajas>();
        cajas = registro.get();
        m.setCajas(std::move(registro));
        m.NombreEstablecimiento = "Casa Tarvi";
        m.TextoCabecera = "Gracias por su pedido";
        m.TextoPiePagina = u"¡Buen provecho!"_qs;
    }

    // A raw printer with the settings a new one gets.
    static ClassConfigImpresora impresoraEP(const QString& nombre, const QString& conexion) {
        ClassConfigImpresora i = ImpresoraEPDeSerie(nombre, conexion);
        i.MostrarHoraEntrega = true;
        return i;
    }

    // A delivery order, accepted for as soon as possible, 30 minutes from 13:00.
    void pedidoDomicilio() {
        Pedido& p = m.PedidoActual;
        p = Pedido{};
        p.NumPedido = "1234";
        p.Productos = {
            {2, "Pizza Margarita", "9,50", 10, 3, ""},
            {1, "Hamburguesa - Punto: Poco hecha - Extras: Queso, Bacon", "7,25", 20, 4, ""}};
        p.ImporteEnvio = u"1,50€"_qs;
        p.ComisionPaypal = u"0€"_qs;
        p.ImporteDescuento = u"0€"_qs;
        p.TotalPedido = u"25,75€"_qs;
        p.TotalBruto = u"25,75€"_qs;
        p.Cliente = u"Ana Pérez"_qs;
        p.Telefono = "600111222";
        p.FormaEntrega = u"Calle Mayor 5, 2ºB"_qs;
        p.RealizadoEl = "22/11/2026 12:58";
        p.Para = "Para: Ahora";
        p.PedidosAnteriores = "3";
        p.EstadoPago = "NO Pagado";
        p.FormaPago = "Efectivo";
        p.Cambio = "50";
        p.Comentarios = "Sin cebolla";
        p.Estado = "Aceptado";
        p.TiempoEstimado = "30";
        p.HoraAceptacion = QDateTime(QDate(2026, 11, 22), QTime(13, 0));
    }

    QList<RegistroCajas::Caja> boxes() const { return cajas->cajas(); }

    ModuloPrincipal m;
    CapturaEP captura;
    RegistroCajas* cajas = nullptr;
};
