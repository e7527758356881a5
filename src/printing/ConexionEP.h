#pragma once

#include <QString>
#include <QStringList>

// What an EPConexion text names. The forms (names case-insensitive):
//   COMn[:baud,parity,data,stop]  serial port /dev/ttyS(n-1); "COMn:" is "COMn"
//   /dev/...:baud[,parity,data,stop]  another serial device with its settings
//   LPTn[:]                           /dev/lp(n-1), else /dev/usb/lp(n-1)
//   USBnnn[:]                         /dev/usb/lp(nnn-1)
//   host:port or tcp://host:port      raw TCP, one connection per ticket copy
//   \\computer\queue                  raw job to the local print queue
//   a bare name (no path, no blank)   raw job to the local print queue of that name
//   /dev/...                          an existing device, never created
//   any other absolute path           a file, written from scratch
//   anything else                     nothing: the printer's port is missing
struct ConexionEP {
    enum class Tipo { Serie, Tcp, Cola, Dispositivo, Fichero, Ninguna };
    Tipo tipo = Tipo::Ninguna;
    // Device or file path, host name, or queue name. A device may list more paths, tried in
    // order: the first that exists is the one.
    QString ruta;
    QStringList alternativas;
    quint16 puerto = 0;
    // Serial settings; the classic defaults when the text brings none.
    qint32 baudios = 9600;
    QChar paridad = u'n'; // n, e, o, m, s
    int bitsDatos = 8;
    QString bitsParada = QStringLiteral("1"); // 1, 1.5 or 2
    bool ajustesValidos = true;               // false when the settings text can't be read
};

ConexionEP AnalizarConexionEP(const QString& texto);
