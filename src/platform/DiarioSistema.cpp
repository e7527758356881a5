#include "platform/DiarioSistema.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace diario {

namespace {

// Qt's message handler is one for the process and takes no context: this is its state, set
// once by Instalar before the desk writes its first line.
QString g_socket;
QtMessageHandler g_anterior = nullptr;

int prioridad(QtMsgType tipo) {
    switch (tipo) {
    case QtDebugMsg:
        return 7;
    case QtInfoMsg:
        return 6;
    case QtWarningMsg:
        return 4;
    case QtCriticalMsg:
        return 3;
    case QtFatalMsg:
        return 2;
    }
    return 6;
}

void manejador(QtMsgType tipo, const QMessageLogContext& contexto, const QString& texto) {
    if (!g_socket.isEmpty() && contexto.category != nullptr &&
        std::strncmp(contexto.category, "tarvimenta.", 11) == 0) {
        Enviar(g_socket, tipo, contexto.category, texto);
    }
    if (g_anterior != nullptr) {
        g_anterior(tipo, contexto, texto);
    }
}

} // namespace

QString SocketDelDiario(const QString& carpetaEjecucion, bool errorYaEnElDiario,
                        const QString& socket) {
    // A user session of systemd keeps its manager's folder in the runtime folder.
    if (errorYaEnElDiario || carpetaEjecucion.isEmpty() ||
        !QFileInfo(carpetaEjecucion + QStringLiteral("/systemd")).isDir() ||
        !QFileInfo::exists(socket)) {
        return QString();
    }
    return socket;
}

bool Enviar(const QString& socket, QtMsgType tipo, const char* categoria, const QString& texto) {
    // Fields one a line; a message is one line, so the simple form of a field will do.
    QByteArray entrada = "PRIORITY=" + QByteArray::number(prioridad(tipo)) +
                         "\nSYSLOG_IDENTIFIER=TarvimentaPedidos\nQT_CATEGORY=" + categoria +
                         "\nMESSAGE=" + texto.toUtf8().replace('\n', ' ') + '\n';
    const QByteArray ruta = QFile::encodeName(socket);
    sockaddr_un destino{};
    destino.sun_family = AF_UNIX;
    if (ruta.size() >= static_cast<qsizetype>(sizeof(destino.sun_path))) {
        return false;
    }
    std::memcpy(destino.sun_path, ruta.constData(), static_cast<size_t>(ruta.size()));
    const int fd = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (fd < 0) {
        return false;
    }
    const ssize_t n = ::sendto(fd, entrada.constData(), static_cast<size_t>(entrada.size()),
                               MSG_DONTWAIT | MSG_NOSIGNAL,
                               reinterpret_cast<const sockaddr*>(&destino), sizeof(destino));
    ::close(fd);
    return n == entrada.size();
}

void Instalar() {
    const QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    g_socket = SocketDelDiario(entorno.value(QStringLiteral("XDG_RUNTIME_DIR")),
                               entorno.contains(QStringLiteral("JOURNAL_STREAM")));
    g_anterior = qInstallMessageHandler(manejador);
}

} // namespace diario
