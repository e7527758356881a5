// The real destinations of raw ticket bytes.
#include "printing/CanalEP.h"

#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "platform/ColasSistema.h"
#include "printing/ConexionEP.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QSerialPort>
#include <QTcpSocket>
#include <QThread>
#include <linux/sockios.h>
#include <sys/ioctl.h>

namespace {

[[noreturn]] void noEncontrado() {
    throw ErrorEjecucion(ErrorEjecucion::ArchivoNoEncontrado);
}
[[noreturn]] void errorES() {
    throw ErrorEjecucion(ErrorEjecucion::ErrorDeEntradaSalida);
}

class DestinoFichero : public DestinoEP {
public:
    // A device is opened only where it exists: writing to a missing one must not leave a
    // plain file in its place.
    DestinoFichero(const QString& ruta, bool soloExistente) : fichero_(ruta) {
        QIODevice::OpenMode modo =
            QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered;
        if (soloExistente) {
            modo |= QIODevice::ExistingOnly;
        }
        if (!fichero_.open(modo)) {
            noEncontrado();
        }
    }
    void escribir(const QByteArray& b) override {
        if (fichero_.write(b) != b.size()) {
            const bool lleno = fichero_.error() == QFileDevice::ResourceError;
            throw ErrorEjecucion(lleno ? ErrorEjecucion::DiscoLleno
                                       : ErrorEjecucion::ErrorDeEntradaSalida);
        }
    }
    void cerrar() override {
        const bool ok = fichero_.flush();
        fichero_.close();
        if (!ok) {
            errorES();
        }
    }
    void abortar() noexcept override { fichero_.close(); }

private:
    QFile fichero_;
};

class DestinoSerie : public DestinoEP {
public:
    DestinoSerie(const ConexionEP& c, PlazosEP plazos) : plazos_(plazos) {
        if (!c.ajustesValidos) {
            noEncontrado();
        }
        puerto_.setPortName(c.ruta);
        if (!puerto_.open(QIODevice::WriteOnly)) {
            noEncontrado();
        }
        const auto paridad = c.paridad == u'e'   ? QSerialPort::EvenParity
                             : c.paridad == u'o' ? QSerialPort::OddParity
                             : c.paridad == u'm' ? QSerialPort::MarkParity
                             : c.paridad == u's' ? QSerialPort::SpaceParity
                                                 : QSerialPort::NoParity;
        const auto parada = c.bitsParada == u"2"     ? QSerialPort::TwoStop
                            : c.bitsParada == u"1.5" ? QSerialPort::OneAndHalfStop
                                                     : QSerialPort::OneStop;
        // A pseudo-terminal or an adapter may refuse some settings; the bytes still go out.
        puerto_.setBaudRate(c.baudios);
        puerto_.setParity(paridad);
        puerto_.setDataBits(static_cast<QSerialPort::DataBits>(c.bitsDatos));
        puerto_.setStopBits(parada);
        puerto_.setFlowControl(QSerialPort::NoFlowControl);
    }
    void escribir(const QByteArray& b) override {
        if (puerto_.write(b) != b.size()) {
            errorES();
        }
    }
    void cerrar() override {
        QDeadlineTimer plazo(plazos_.escrituraMs);
        while (puerto_.bytesToWrite() > 0) {
            if (plazo.hasExpired() ||
                !puerto_.waitForBytesWritten(static_cast<int>(plazo.remainingTime()))) {
                puerto_.close();
                errorES();
            }
        }
        puerto_.close();
    }
    void abortar() noexcept override {
        puerto_.clear();
        puerto_.close();
    }

private:
    PlazosEP plazos_;
    QSerialPort puerto_;
};

class DestinoTcp : public DestinoEP {
public:
    DestinoTcp(const ConexionEP& c, PlazosEP plazos) : plazos_(plazos) {
        socket_.connectToHost(c.ruta, c.puerto, QIODevice::WriteOnly);
        if (!socket_.waitForConnected(plazos_.conexionMs)) {
            socket_.abort();
            noEncontrado();
        }
    }
    void escribir(const QByteArray& b) override {
        if (socket_.write(b) != b.size()) {
            errorES();
        }
    }
    void cerrar() override {
        QDeadlineTimer plazo(plazos_.escrituraMs);
        while (socket_.bytesToWrite() > 0) {
            if (plazo.hasExpired() ||
                !socket_.waitForBytesWritten(static_cast<int>(plazo.remainingTime()))) {
                socket_.abort();
                errorES();
            }
        }
        // Written is not taken: a printer out of paper or stuck keeps its window shut, and the
        // copy sits in our send queue. Only a copy the printer acknowledged counts as printed.
        while (porConfirmar() > 0) {
            if (plazo.hasExpired() || socket_.state() != QAbstractSocket::ConnectedState) {
                socket_.abort();
                errorES();
            }
            QThread::msleep(10);
        }
        socket_.disconnectFromHost();
        if (socket_.state() != QAbstractSocket::UnconnectedState &&
            !socket_.waitForDisconnected(static_cast<int>(
                std::max<qint64>(1, std::min<qint64>(plazo.remainingTime(), 2000))))) {
            socket_.abort();
        }
    }
    void abortar() noexcept override { socket_.abort(); }

private:
    // Bytes the printer has not acknowledged yet (0 when that can't be known).
    int porConfirmar() const {
        int n = 0;
        const auto fd = socket_.socketDescriptor();
        if (fd < 0 || ::ioctl(static_cast<int>(fd), SIOCOUTQ, &n) != 0) {
            return 0;
        }
        return n;
    }

    PlazosEP plazos_;
    QTcpSocket socket_;
};

// A raw job on the local print queue; the bytes are gathered and handed over at the close,
// so that a ticket that failed half-way never reaches the queue.
class DestinoCola : public DestinoEP {
public:
    explicit DestinoCola(const QString& cola) : cola_(cola) {
        // A stopped queue would take the job and keep it: the ticket would never come out
        // and nobody would know.
        const EstadoCola estado = EstadoColaSistema(cola_);
        if (estado == EstadoCola::NoExiste) {
            noEncontrado();
        }
        if (estado != EstadoCola::Lista) {
            throw ErrorEjecucion(ErrorEjecucion::ErrorDeImpresora, TextoEstadoCola(cola_, estado));
        }
    }
    void escribir(const QByteArray& b) override { datos_.append(b); }
    void cerrar() override {
        switch (EnviarTrabajoCrudo(cola_, datos_, QStringLiteral("Ticket"))) {
        case ResultadoTrabajoCrudo::Hecho:
            return;
        case ResultadoTrabajoCrudo::SinCola:
            noEncontrado();
        case ResultadoTrabajoCrudo::Fallo:
            break;
        }
        errorES();
    }
    void abortar() noexcept override { datos_.clear(); }

private:
    QString cola_;
    QByteArray datos_;
};

} // namespace

std::unique_ptr<DestinoEP> AbrirDestinoEP(const QString& conexion, PlazosEP plazos) {
    const ConexionEP c = AnalizarConexionEP(conexion);
    switch (c.tipo) {
    case ConexionEP::Tipo::Serie:
        return std::make_unique<DestinoSerie>(c, plazos);
    case ConexionEP::Tipo::Tcp:
        return std::make_unique<DestinoTcp>(c, plazos);
    case ConexionEP::Tipo::Cola:
        return std::make_unique<DestinoCola>(c.ruta);
    case ConexionEP::Tipo::Dispositivo:
        for (const QString& ruta : c.alternativas) {
            if (!QFileInfo::exists(c.ruta) && QFileInfo::exists(ruta)) {
                return std::make_unique<DestinoFichero>(ruta, true);
            }
        }
        return std::make_unique<DestinoFichero>(c.ruta, true);
    case ConexionEP::Tipo::Fichero:
        return std::make_unique<DestinoFichero>(c.ruta, false);
    case ConexionEP::Tipo::Ninguna:
        break;
    }
    noEncontrado();
}

CanalEP::CanalEP() : abridor_([](const QString& c) { return AbrirDestinoEP(c); }) {}

CanalEP::~CanalEP() {
    Abortar();
}

void CanalEP::Abrir(const QString& conexion) {
    if (destino_) {
        throw ErrorEjecucion(ErrorEjecucion::ArchivoYaAbierto);
    }
    destino_ = abridor_(conexion);
    if (!destino_) {
        noEncontrado();
    }
}

void CanalEP::Escribir(const QByteArray& bytes) {
    if (!destino_) {
        throw ErrorEjecucion(52); // bad file number: nothing is open
    }
    destino_->escribir(bytes);
}

void CanalEP::Cerrar() {
    if (!destino_) {
        return;
    }
    auto d = std::move(destino_);
    d->cerrar();
}

void CanalEP::Abortar() noexcept {
    if (destino_) {
        auto d = std::move(destino_);
        d->abortar();
    }
}

CanalEP& ModuloPrincipal::canalEP() const {
    if (!canalEP_) {
        canalEP_ = std::make_shared<CanalEP>();
    }
    return *canalEP_;
}
