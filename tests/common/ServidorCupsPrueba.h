#pragma once

// A private print server for the tests (root only): its own folders and socket, the system's
// filters, and one raw queue whose back end writes each job to a file of out/.
#include "common/Esperar.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <cups/cups.h>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>

class ServidorCupsPrueba {
public:
    inline static const QString Cola = QStringLiteral("TicketsPDF");

    ~ServidorCupsPrueba() { parar(); }

    // Whether this machine can run one: it needs root and cupsd (cups-daemon).
    static bool posible() { return geteuid() == 0 && QFile::exists("/usr/sbin/cupsd"); }

    // Empty when the server runs with its queue; otherwise what went wrong.
    QString arrancar() {
        if (!posible()) {
            return QStringLiteral("needs root and cupsd (cups-daemon)");
        }
        raiz = dir_.path();
        QFile::setPermissions(raiz, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                        QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther |
                                        QFile::ExeOther);
        for (const char* d :
             {"spool", "cache", "state", "tmp", "log", "ppd", "bin/backend", "out"}) {
            if (!QDir(raiz).mkpath(d)) {
                return QStringLiteral("no folders");
            }
        }
        ::chmod(QFile::encodeName(raiz + "/out").constData(), 01777);
        ::chmod(QFile::encodeName(raiz + "/tmp").constData(), 01777);
        // The system's filters and helpers, with a back end of our own.
        for (const QString& x :
             QDir("/usr/lib/cups").entryList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
            if (x != "backend") {
                QFile::link("/usr/lib/cups/" + x, raiz + "/bin/" + x);
            }
        }
        const QString backend = raiz + "/bin/backend/archivo";
        escribir(backend,
                 "#!/bin/sh\n"
                 "[ $# -eq 0 ] && { echo 'file archivo \"Unknown\" \"Archivo\"'; exit 0; }\n"
                 "cat \"${6:-/dev/stdin}\" > \"" +
                     raiz + "/out/trabajo-$1.pdf\"\n");
        QFile::setPermissions(backend, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        socket = raiz + "/cups.sock";
        escribir(raiz + "/cupsd.conf",
                 "Listen " + socket +
                     "\nLogLevel warn\nWebInterface No\n"
                     "<Location />\n Order allow,deny\n Allow all\n</Location>\n"
                     "<Location /admin>\n Order allow,deny\n Allow all\n</Location>\n"
                     "<Policy default>\n <Limit All>\n  Order deny,allow\n </Limit>\n"
                     "</Policy>\n");
        escribir(raiz + "/cups-files.conf",
                 "ServerRoot " + raiz + "\nServerBin " + raiz + "/bin\nRequestRoot " + raiz +
                     "/spool\nCacheDir " + raiz + "/cache\nStateDir " + raiz + "/state\nTempDir " +
                     raiz + "/tmp\nErrorLog " + raiz + "/log/error_log\nAccessLog " + raiz +
                     "/log/access_log\nPageLog " + raiz + "/log/page_log\nPrintcap\n");
        cupsd_.start("/usr/sbin/cupsd",
                     {"-f", "-c", raiz + "/cupsd.conf", "-s", raiz + "/cups-files.conf"});
        if (!cupsd_.waitForStarted(5000) ||
            !EsperarHasta([this] { return QFile::exists(socket); }, 10000)) {
            return QStringLiteral("cupsd didn't open its socket");
        }
        qputenv("CUPS_SERVER", socket.toLocal8Bit());
        cupsSetServer(socket.toLocal8Bit().constData());
        if (lp("lpadmin", {"-p", Cola, "-E", "-v", "archivo:/"}) != 0) {
            return QStringLiteral("lpadmin could not make the queue");
        }
        return {};
    }

    void parar() {
        if (cupsd_.state() != QProcess::NotRunning) {
            cupsd_.terminate();
            if (!cupsd_.waitForFinished(5000)) {
                cupsd_.kill();
                cupsd_.waitForFinished(5000);
            }
            cupsSetServer(nullptr);
            qunsetenv("CUPS_SERVER");
        }
    }

    // Runs one of the print system's commands against this server, bounded.
    static int lp(const QString& programa, const QStringList& argumentos) {
        QProcess p;
        p.start(programa, argumentos);
        if (!p.waitForFinished(15000)) {
            p.kill();
            p.waitForFinished(2000);
            return -1;
        }
        return p.exitCode();
    }

    // The jobs the back end has written, in order.
    QStringList trabajos() const {
        return QDir(raiz + "/out").entryList({"trabajo-*.pdf"}, QDir::Files, QDir::Name);
    }

    static bool escribir(const QString& ruta, const QString& texto) {
        QFile f(ruta);
        return f.open(QIODevice::WriteOnly) && f.write(texto.toUtf8()) >= 0;
    }

    QString raiz;
    QString socket;

private:
    QTemporaryDir dir_;
    QProcess cupsd_;
};
