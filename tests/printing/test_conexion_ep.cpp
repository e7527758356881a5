// The forms of a raw printer's connection text.
#include "printing/ConexionEP.h"

#include <gtest/gtest.h>

namespace {

using T = ConexionEP::Tipo;

TEST(ConexionEP, PuertosSerieConYSinAjustes) {
    auto c = AnalizarConexionEP("Com1:9600,n,8,1");
    EXPECT_EQ(c.tipo, T::Serie);
    EXPECT_EQ(c.ruta, "/dev/ttyS0");
    EXPECT_EQ(c.baudios, 9600);
    EXPECT_EQ(c.paridad, u'n');
    EXPECT_EQ(c.bitsDatos, 8);
    EXPECT_EQ(c.bitsParada, "1");
    EXPECT_TRUE(c.ajustesValidos);

    c = AnalizarConexionEP("COM3:19200,E,7,2");
    EXPECT_EQ(c.ruta, "/dev/ttyS2");
    EXPECT_EQ(c.baudios, 19200);
    EXPECT_EQ(c.paridad, u'e');
    EXPECT_EQ(c.bitsDatos, 7);
    EXPECT_EQ(c.bitsParada, "2");

    c = AnalizarConexionEP("com2");
    EXPECT_EQ(c.tipo, T::Serie);
    EXPECT_EQ(c.ruta, "/dev/ttyS1");
    EXPECT_EQ(c.baudios, 9600) << "classic defaults";

    c = AnalizarConexionEP("/dev/ttyUSB0:38400");
    EXPECT_EQ(c.tipo, T::Serie);
    EXPECT_EQ(c.ruta, "/dev/ttyUSB0");
    EXPECT_EQ(c.baudios, 38400);

    c = AnalizarConexionEP("/tmp/pty/impresora:9600,n,8,1");
    EXPECT_EQ(c.tipo, T::Serie);
    EXPECT_EQ(c.ruta, "/tmp/pty/impresora");
}

TEST(ConexionEP, AjustesIlegiblesSeMarcan) {
    EXPECT_FALSE(AnalizarConexionEP("COM1:9600,x,8,1").ajustesValidos);
    EXPECT_FALSE(AnalizarConexionEP("COM1:rapido").ajustesValidos);
    EXPECT_FALSE(AnalizarConexionEP("COM1:9600,n,9,1").ajustesValidos);
    EXPECT_FALSE(AnalizarConexionEP("COM0").ajustesValidos);
}

TEST(ConexionEP, TcpColaYFichero) {
    auto c = AnalizarConexionEP("192.168.1.50:9100");
    EXPECT_EQ(c.tipo, T::Tcp);
    EXPECT_EQ(c.ruta, "192.168.1.50");
    EXPECT_EQ(c.puerto, 9100);

    c = AnalizarConexionEP("tcp://cocina.local:9101");
    EXPECT_EQ(c.tipo, T::Tcp);
    EXPECT_EQ(c.ruta, "cocina.local");
    EXPECT_EQ(c.puerto, 9101);

    EXPECT_EQ(AnalizarConexionEP("host:99999").tipo, T::Fichero) << "no such port number";

    c = AnalizarConexionEP("\\\\MOSTRADOR\\TicketsBarra");
    EXPECT_EQ(c.tipo, T::Cola);
    EXPECT_EQ(c.ruta, "TicketsBarra");

    c = AnalizarConexionEP("/dev/usb/lp0");
    EXPECT_EQ(c.tipo, T::Fichero);
    EXPECT_EQ(c.ruta, "/dev/usb/lp0");

    c = AnalizarConexionEP("/var/tmp/ticket:1");
    EXPECT_EQ(c.tipo, T::Fichero) << "a bare number after a path outside /dev is a file name";
    EXPECT_EQ(c.ruta, "/var/tmp/ticket:1");
}

} // namespace
