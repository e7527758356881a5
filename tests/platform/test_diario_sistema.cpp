// The journal lines of the desk: when they go to the session's journal, and in what form.
#include "platform/DiarioSistema.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstring>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

// A datagram socket standing for the journal's.
struct DiarioFalso {
    QString ruta;
    int fd = -1;
    explicit DiarioFalso(const QString& r) : ruta(r) {
        fd = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        sockaddr_un a{};
        a.sun_family = AF_UNIX;
        const QByteArray b = QFile::encodeName(ruta);
        std::memcpy(a.sun_path, b.constData(), static_cast<size_t>(b.size()));
        ::bind(fd, reinterpret_cast<const sockaddr*>(&a), sizeof(a));
        timeval espera{2, 0}; // bounded: a missing datagram fails the test, not hangs it
        ::setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &espera, sizeof(espera));
    }
    ~DiarioFalso() { ::close(fd); }
    QByteArray recibir() const {
        char buf[4096];
        const ssize_t n = ::recv(fd, buf, sizeof(buf), 0);
        return n < 0 ? QByteArray() : QByteArray(buf, static_cast<qsizetype>(n));
    }
};

} // namespace

TEST(DiarioSistema, SoloBajoUnaSesionDeSystemdCuyoErrorNoEsYaElDiario) {
    QTemporaryDir tmp;
    const QString conSystemd = tmp.filePath(QStringLiteral("con"));
    const QString sinSystemd = tmp.filePath(QStringLiteral("sin"));
    ASSERT_TRUE(QDir().mkpath(conSystemd + QStringLiteral("/systemd")));
    ASSERT_TRUE(QDir().mkpath(sinSystemd));
    const DiarioFalso diario(tmp.filePath(QStringLiteral("socket")));
    const struct {
        const char* nombre;
        QString carpeta;
        bool errorYaEnElDiario;
        QString socket;
        bool esperado;
    } casos[] = {
        {"sesión de systemd", conSystemd, false, diario.ruta, true},
        {"el error ya va al diario", conSystemd, true, diario.ruta, false},
        {"sin gestor de usuario", sinSystemd, false, diario.ruta, false},
        {"sin carpeta de ejecución", QString(), false, diario.ruta, false},
        {"sin diario", conSystemd, false, tmp.filePath(QStringLiteral("no")), false},
    };
    for (const auto& c : casos) {
        SCOPED_TRACE(c.nombre);
        EXPECT_EQ(diario::SocketDelDiario(c.carpeta, c.errorYaEnElDiario, c.socket).isEmpty(),
                  !c.esperado);
    }
}

TEST(DiarioSistema, CadaLineaEsUnaEntradaConPrioridadCategoriaYMensaje) {
    QTemporaryDir tmp;
    const DiarioFalso diario(tmp.filePath(QStringLiteral("socket")));
    const struct {
        QtMsgType tipo;
        QString texto;
        QByteArray esperada;
    } casos[] = {
        {QtInfoMsg, QStringLiteral("pedido 1234 aceptado, 20 minutos"),
         "PRIORITY=6\nSYSLOG_IDENTIFIER=TarvimentaPedidos\nQT_CATEGORY=tarvimenta.pedidos\n"
         "MESSAGE=pedido 1234 aceptado, 20 minutos\n"},
        // A line break would start a field of its own.
        {QtWarningMsg, QStringLiteral("\"Cocina\" ticket NO impreso:\nsin papel"),
         "PRIORITY=4\nSYSLOG_IDENTIFIER=TarvimentaPedidos\nQT_CATEGORY=tarvimenta.pedidos\n"
         "MESSAGE=\"Cocina\" ticket NO impreso: sin papel\n"},
    };
    for (const auto& c : casos) {
        SCOPED_TRACE(c.texto.toStdString());
        ASSERT_TRUE(diario::Enviar(diario.ruta, c.tipo, "tarvimenta.pedidos", c.texto));
        EXPECT_EQ(diario.recibir(), c.esperada);
    }
    EXPECT_FALSE(diario::Enviar(tmp.filePath(QStringLiteral("nadie")), QtInfoMsg,
                                "tarvimenta.pedidos", QStringLiteral("x")));
}
