// The forms of a raw printer's connection text.
#include "printing/ConexionEP.h"

#include <gtest/gtest.h>

namespace {

using T = ConexionEP::Tipo;

struct Caso {
    const char* texto;
    T tipo;
    const char* ruta;
    QStringList alternativas = {};
};

TEST(ConexionEP, CadaFormaVaASuDestino) {
    const Caso casos[] = {
        {"Com1:9600,n,8,1", T::Serie, "/dev/ttyS0"},
        {"COM3:19200,E,7,2", T::Serie, "/dev/ttyS2"},
        {"com2", T::Serie, "/dev/ttyS1"},
        {"COM2:", T::Serie, "/dev/ttyS1"},
        {"/dev/ttyUSB0:38400", T::Serie, "/dev/ttyUSB0"},
        {"/tmp/pty/impresora:9600,n,8,1", T::Serie, "/tmp/pty/impresora"},
        {"LPT1", T::Dispositivo, "/dev/lp0", {"/dev/usb/lp0"}},
        {"lpt2:", T::Dispositivo, "/dev/lp1", {"/dev/usb/lp1"}},
        {"USB001", T::Dispositivo, "/dev/usb/lp0"},
        {"usb003:", T::Dispositivo, "/dev/usb/lp2"},
        {"/dev/usb/lp0", T::Dispositivo, "/dev/usb/lp0"},
        {"192.168.1.50:9100", T::Tcp, "192.168.1.50"},
        {"tcp://cocina.local:9101", T::Tcp, "cocina.local"},
        {"\\\\MOSTRADOR\\TicketsBarra", T::Cola, "TicketsBarra"},
        {"TicketsBarra", T::Cola, "TicketsBarra"},
        {"Epson_TM-T20", T::Cola, "Epson_TM-T20"},
        {"LPT0", T::Cola, "LPT0"},
        {"/var/tmp/ticket:1", T::Fichero, "/var/tmp/ticket:1"},
        {"/home/barra/tickets.bin", T::Fichero, "/home/barra/tickets.bin"},
        {"tickets/barra.bin", T::Ninguna, ""},
        {"Tiques de barra", T::Ninguna, ""},
        {"cola#1", T::Ninguna, ""},
        {"host:99999", T::Ninguna, ""},
        {"impresora:barra", T::Ninguna, ""},
        {"", T::Ninguna, ""},
    };
    for (const Caso& caso : casos) {
        const ConexionEP c = AnalizarConexionEP(QString::fromUtf8(caso.texto));
        EXPECT_EQ(c.tipo, caso.tipo) << caso.texto;
        EXPECT_EQ(c.ruta, QString::fromUtf8(caso.ruta)) << caso.texto;
        EXPECT_EQ(c.alternativas, caso.alternativas) << caso.texto;
    }
}

TEST(ConexionEP, AjustesDeSerie) {
    // Settings read as "baud,parity,data,stop"; empty when they cannot be read.
    const std::pair<const char*, const char*> casos[] = {
        {"Com1:9600,n,8,1", "9600,n,8,1"},
        {"COM3:19200,E,7,2", "19200,e,7,2"},
        {"com2", "9600,n,8,1"},
        {"COM2:", "9600,n,8,1"},
        {"/dev/ttyUSB0:38400", "38400,n,8,1"},
        {"COM1:9600,x,8,1", ""},
        {"COM1:rapido", ""},
        {"COM1:9600,n,9,1", ""},
        {"COM0", ""},
    };
    for (const auto& [texto, ajustes] : casos) {
        const ConexionEP c = AnalizarConexionEP(QString::fromUtf8(texto));
        const QString leidos = c.ajustesValidos ? QStringLiteral("%1,%2,%3,%4")
                                                      .arg(c.baudios)
                                                      .arg(c.paridad)
                                                      .arg(c.bitsDatos)
                                                      .arg(c.bitsParada)
                                                : QString();
        EXPECT_EQ(leidos, QString::fromUtf8(ajustes)) << texto;
    }
}

} // namespace
