#include "platform/SenalesTerminacion.h"

#include <QSocketNotifier>
#include <csignal>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// The write end of the self-pipe: the one thing a signal handler may touch. Set once, by
// the single SenalesTerminacion of the process, before any handler is installed.
int extremoEscritura = -1;

extern "C" void alRecibirSenal(int) {
    const char c = 1;
    if (extremoEscritura >= 0) {
        [[maybe_unused]] const auto n = ::write(extremoEscritura, &c, 1);
    }
}

} // namespace

SenalesTerminacion::SenalesTerminacion(QObject* padre) : QObject(padre) {
    int par[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, par) != 0) {
        return;
    }
    ::fcntl(par[0], F_SETFL, O_NONBLOCK);
    ::fcntl(par[1], F_SETFL, O_NONBLOCK);
    extremoEscritura = par[1];
    notificador_ = new QSocketNotifier(par[0], QSocketNotifier::Read, this);
    connect(notificador_, &QSocketNotifier::activated, this, [this, lectura = par[0]] {
        char c;
        while (::read(lectura, &c, 1) > 0) {
        }
        Q_EMIT terminar();
    });
    struct sigaction accion = {};
    accion.sa_handler = alRecibirSenal;
    sigemptyset(&accion.sa_mask);
    accion.sa_flags = SA_RESTART;
    for (int s : {SIGTERM, SIGINT, SIGHUP}) {
        ::sigaction(s, &accion, nullptr);
    }
}

SenalesTerminacion::~SenalesTerminacion() {
    for (int s : {SIGTERM, SIGINT, SIGHUP}) {
        ::signal(s, SIG_DFL);
    }
}
