#pragma once

#include <QString>

// What an EPConexion text names. The forms:
//   COMn[:baud,parity,data,stop]  serial port /dev/ttyS(n-1) (case-insensitive)
//   /dev/...:baud[,parity,data,stop]  another serial device with its settings
//   host:port or tcp://host:port      raw TCP, one connection per ticket copy
//   \\computer\queue                  raw job to the local print queue
//   anything else                     a file or device path, written from scratch
struct ConexionEP {
    enum class Tipo { Serie, Tcp, Cola, Fichero };
    Tipo tipo = Tipo::Fichero;
    QString ruta; // device or file path, host name, or queue name
    quint16 puerto = 0;
    // Serial settings; the classic defaults when the text brings none.
    qint32 baudios = 9600;
    QChar paridad = u'n'; // n, e, o, m, s
    int bitsDatos = 8;
    QString bitsParada = QStringLiteral("1"); // 1, 1.5 or 2
    bool ajustesValidos = true;               // false when the settings text can't be read
};

ConexionEP AnalizarConexionEP(const QString& texto);
