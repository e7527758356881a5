#include "printing/ConexionEP.h"

#include <QRegularExpression>

namespace {

// "9600,n,8,1", "19200" or "9600,E,7,2": fills the settings, false when unreadable.
bool leerAjustes(const QString& texto, ConexionEP& c) {
    const QStringList partes = texto.split(u',');
    if (partes.isEmpty() || partes.size() > 4) {
        return false;
    }
    bool ok = false;
    const qint32 baudios = partes[0].trimmed().toInt(&ok);
    if (!ok || baudios <= 0) {
        return false;
    }
    c.baudios = baudios;
    if (partes.size() > 1) {
        const QString p = partes[1].trimmed().toLower();
        if (p.size() != 1 || !QStringLiteral("neoms").contains(p)) {
            return false;
        }
        c.paridad = p[0];
    }
    if (partes.size() > 2) {
        const int datos = partes[2].trimmed().toInt(&ok);
        if (!ok || datos < 5 || datos > 8) {
            return false;
        }
        c.bitsDatos = datos;
    }
    if (partes.size() > 3) {
        const QString s = partes[3].trimmed().replace(u',', u'.');
        if (s != u"1" && s != u"1.5" && s != u"2") {
            return false;
        }
        c.bitsParada = s;
    }
    return true;
}

} // namespace

ConexionEP AnalizarConexionEP(const QString& texto) {
    ConexionEP c;
    const QString t = texto.trimmed();

    static const QRegularExpression com(QStringLiteral("^com(\\d+)(?::(.*))?$"),
                                        QRegularExpression::CaseInsensitiveOption);
    if (const auto m = com.match(t); m.hasMatch()) {
        c.tipo = ConexionEP::Tipo::Serie;
        const int n = m.captured(1).toInt();
        c.ruta = QStringLiteral("/dev/ttyS%1").arg(n - 1);
        if (n < 1) {
            c.ajustesValidos = false;
        } else if (!m.captured(2).isEmpty()) {
            c.ajustesValidos = leerAjustes(m.captured(2), c);
        }
        return c;
    }

    // Parallel and USB line printers, as the other system names them.
    static const QRegularExpression lpt(QStringLiteral("^lpt(\\d+):?$"),
                                        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression usb(QStringLiteral("^usb(\\d+):?$"),
                                        QRegularExpression::CaseInsensitiveOption);
    if (const auto m = lpt.match(t); m.hasMatch() && m.captured(1).toInt() >= 1) {
        const int n = m.captured(1).toInt() - 1;
        c.tipo = ConexionEP::Tipo::Dispositivo;
        c.ruta = QStringLiteral("/dev/lp%1").arg(n);
        c.alternativas = {QStringLiteral("/dev/usb/lp%1").arg(n)};
        return c;
    }
    if (const auto m = usb.match(t); m.hasMatch() && m.captured(1).toInt() >= 1) {
        c.tipo = ConexionEP::Tipo::Dispositivo;
        c.ruta = QStringLiteral("/dev/usb/lp%1").arg(m.captured(1).toInt() - 1);
        return c;
    }

    static const QRegularExpression tcp(QStringLiteral("^(?:tcp://)?([^/\\\\:\\s]+):(\\d{1,5})$"),
                                        QRegularExpression::CaseInsensitiveOption);
    if (const auto m = tcp.match(t);
        m.hasMatch() && m.captured(2).toUInt() <= 65535 && !m.captured(1).startsWith(u'.')) {
        c.tipo = ConexionEP::Tipo::Tcp;
        c.ruta = m.captured(1);
        c.puerto = static_cast<quint16>(m.captured(2).toUInt());
        return c;
    }

    static const QRegularExpression cola(QStringLiteral("^\\\\\\\\[^\\\\]+\\\\(.+)$"));
    if (const auto m = cola.match(t); m.hasMatch()) {
        c.tipo = ConexionEP::Tipo::Cola;
        c.ruta = m.captured(1);
        return c;
    }

    // A device with settings: the full four-part form anywhere, a bare speed only under /dev.
    static const QRegularExpression dispositivo(
        QStringLiteral("^(/[^:]+):(\\d+(?:,[^,]*,[^,]*,[^,]*)?)$"));
    if (const auto m = dispositivo.match(t); m.hasMatch()) {
        const bool completo = m.captured(2).contains(u',');
        if (completo || m.captured(1).startsWith(QStringLiteral("/dev/"))) {
            c.tipo = ConexionEP::Tipo::Serie;
            c.ruta = m.captured(1);
            c.ajustesValidos = leerAjustes(m.captured(2), c);
            return c;
        }
    }

    if (t.startsWith(QStringLiteral("/dev/"))) {
        c.tipo = ConexionEP::Tipo::Dispositivo;
        c.ruta = t;
        return c;
    }
    if (texto.startsWith(u'/')) {
        c.tipo = ConexionEP::Tipo::Fichero;
        c.ruta = texto;
        return c;
    }
    // A queue name as the print system takes it: printable, no blank, slash or "#"; a colon
    // belongs to the port forms above.
    static const QRegularExpression nombreCola(QStringLiteral("^[!-~]{1,127}$"));
    if (nombreCola.match(t).hasMatch() && !t.contains(u'/') && !t.contains(u'\\') &&
        !t.contains(u'#') && !t.contains(u':')) {
        c.tipo = ConexionEP::Tipo::Cola;
        c.ruta = t;
        return c;
    }
    c.tipo = ConexionEP::Tipo::Ninguna;
    return c;
}
