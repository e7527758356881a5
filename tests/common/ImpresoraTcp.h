#pragma once

// A raw printer for the tests, listening in a thread of its own so that the desk's event loop
// is never what moves the bytes.
#include <QByteArray>
#include <QList>
#include <QTest>
#include <arpa/inet.h>
#include <atomic>
#include <chrono>
#include <mutex>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

using Cronometro = std::chrono::steady_clock;

// A raw printer on a loopback port: every connection is one ticket copy, kept with the time
// its first and last bytes arrived.
class ImpresoraTcp {
public:
    struct Trabajo {
        QByteArray bytes;
        Cronometro::time_point primero;
        Cronometro::time_point ultimo;
    };

    // On `puerto`, or on a free one with 0; puerto() is 0 when it could not listen.
    explicit ImpresoraTcp(quint16 puerto = 0) {
        fd_ = ::socket(AF_INET, SOCK_STREAM, 0);
        const int si = 1;
        ::setsockopt(fd_, SOL_SOCKET, SO_REUSEADDR, &si, sizeof si); // a printer that comes back
        sockaddr_in dir{};
        dir.sin_family = AF_INET;
        dir.sin_port = htons(puerto);
        dir.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t largo = sizeof dir;
        if (fd_ < 0 || ::bind(fd_, reinterpret_cast<sockaddr*>(&dir), sizeof dir) != 0 ||
            ::listen(fd_, 16) != 0 ||
            ::getsockname(fd_, reinterpret_cast<sockaddr*>(&dir), &largo) != 0) {
            return;
        }
        puerto_ = ntohs(dir.sin_port);
        hilo_ = std::thread([this] { atender(); });
    }
    ~ImpresoraTcp() {
        parar_ = true;
        if (hilo_.joinable()) {
            hilo_.join();
        }
        if (fd_ >= 0) {
            ::close(fd_);
        }
    }
    quint16 puerto() const { return puerto_; }
    QList<Trabajo> trabajos() {
        std::lock_guard<std::mutex> l(mutex_);
        return trabajos_;
    }
    void limpiar() {
        std::lock_guard<std::mutex> l(mutex_);
        trabajos_.clear();
    }
    // Waits, bounded, until `n` copies have arrived in full.
    bool esperar(int n, int msMax) {
        return QTest::qWaitFor([&] { return trabajos().size() >= n; }, msMax);
    }

private:
    void atender() {
        while (!parar_) {
            pollfd p{fd_, POLLIN, 0};
            if (::poll(&p, 1, 20) <= 0) {
                continue;
            }
            const int c = ::accept(fd_, nullptr, nullptr);
            if (c < 0) {
                continue;
            }
            Trabajo t;
            char bufer[8192];
            // A copy ends when the desk closes; a stuck one is cut after two seconds.
            const auto limite = Cronometro::now() + std::chrono::seconds(2);
            while (Cronometro::now() < limite) {
                pollfd q{c, POLLIN, 0};
                if (::poll(&q, 1, 50) <= 0) {
                    continue;
                }
                const ssize_t n = ::read(c, bufer, sizeof bufer);
                if (n <= 0) {
                    break;
                }
                const auto ahora = Cronometro::now();
                if (t.bytes.isEmpty()) {
                    t.primero = ahora;
                }
                t.ultimo = ahora;
                t.bytes.append(bufer, static_cast<int>(n));
            }
            ::close(c);
            std::lock_guard<std::mutex> l(mutex_);
            trabajos_.append(t);
        }
    }

    int fd_ = -1;
    quint16 puerto_ = 0;
    std::atomic<bool> parar_{false};
    std::thread hilo_;
    std::mutex mutex_;
    QList<Trabajo> trabajos_;
};
