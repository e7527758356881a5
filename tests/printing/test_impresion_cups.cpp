// A real print through the print system: a private print server started here (root only),
// with one raw queue whose back end writes each job to a file. The order goes through the
// routing to the driver printer named like the queue; the job's PDF holds the ticket. The
// queue reset is checked against the same server.
#include "common/EscritorioPruebaEP.h"
#include "impresora_dw_prueba.h"
#include "printing/CanalEP.h"
#include "printing/ColasImpresion.h"
#include "printing/ImpresoraDWQt_ui.h"
#include "printing/RutasImpresion.h"
#include "printing/TicketClienteEP.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <cups/cups.h>
#include <unistd.h>

namespace {

const QString Cola = QStringLiteral("TicketsPDF");

bool esperar(const std::function<bool()>& condicion, int ms) {
    QElapsedTimer reloj;
    reloj.start();
    while (!condicion() && reloj.elapsed() < ms) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(20);
    }
    return condicion();
}

bool escribir(const QString& ruta, const QString& texto) {
    QFile f(ruta);
    return f.open(QIODevice::WriteOnly) && f.write(texto.toUtf8()) >= 0;
}

class ImpresionCups : public EscritorioPrueba {
protected:
    void SetUp() override {
        if (geteuid() != 0 || !QFile::exists("/usr/sbin/cupsd")) {
            GTEST_SKIP() << "needs root and cupsd (cups-daemon)";
        }
        raiz = dir.path();
        QFile::setPermissions(raiz, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                        QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther |
                                        QFile::ExeOther);
        for (const char* d : {"spool", "cache", "state", "tmp", "log", "ppd", "bin/backend"}) {
            ASSERT_TRUE(QDir(raiz).mkpath(d));
        }
        ASSERT_TRUE(QDir(raiz).mkpath("out"));
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
        ASSERT_TRUE(escribir(
            backend, "#!/bin/sh\n"
                     "[ $# -eq 0 ] && { echo 'file archivo \"Unknown\" \"Archivo\"'; exit 0; }\n"
                     "cat \"${6:-/dev/stdin}\" > \"" +
                         raiz + "/out/trabajo-$1.pdf\"\n"));
        QFile::setPermissions(backend, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        socket = raiz + "/cups.sock";
        ASSERT_TRUE(escribir(raiz + "/cupsd.conf",
                             "Listen " + socket +
                                 "\nLogLevel warn\nWebInterface No\n"
                                 "<Location />\n Order allow,deny\n Allow all\n</Location>\n"
                                 "<Location /admin>\n Order allow,deny\n Allow all\n</Location>\n"
                                 "<Policy default>\n <Limit All>\n  Order deny,allow\n </Limit>\n"
                                 "</Policy>\n"));
        ASSERT_TRUE(escribir(raiz + "/cups-files.conf",
                             "ServerRoot " + raiz + "\nServerBin " + raiz + "/bin\nRequestRoot " +
                                 raiz + "/spool\nCacheDir " + raiz + "/cache\nStateDir " + raiz +
                                 "/state\nTempDir " + raiz + "/tmp\nErrorLog " + raiz +
                                 "/log/error_log\nAccessLog " + raiz +
                                 "/log/access_log\n"
                                 "PageLog " +
                                 raiz + "/log/page_log\nPrintcap\n"));
        cupsd.start("/usr/sbin/cupsd",
                    {"-f", "-c", raiz + "/cupsd.conf", "-s", raiz + "/cups-files.conf"});
        ASSERT_TRUE(cupsd.waitForStarted(5000));
        ASSERT_TRUE(esperar([this] { return QFile::exists(socket); }, 10000))
            << "cupsd didn't open its socket";
        qputenv("CUPS_SERVER", socket.toLocal8Bit());
        cupsSetServer(socket.toLocal8Bit().constData());
        ASSERT_EQ(lp("lpadmin", {"-p", Cola, "-E", "-v", "archivo:/"}), 0);
    }

    void TearDown() override {
        if (cupsd.state() != QProcess::NotRunning) {
            cupsd.terminate();
            if (!cupsd.waitForFinished(5000)) {
                cupsd.kill();
                cupsd.waitForFinished(5000);
            }
        }
        cupsSetServer(nullptr);
        qunsetenv("CUPS_SERVER");
    }

    // Runs one of the print system's commands against our server, bounded.
    int lp(const QString& programa, const QStringList& argumentos) {
        QProcess p;
        p.start(programa, argumentos);
        if (!p.waitForFinished(15000)) {
            p.kill();
            p.waitForFinished(2000);
            return -1;
        }
        return p.exitCode();
    }

    QStringList trabajos() const {
        return QDir(raiz + "/out").entryList({"trabajo-*.pdf"}, QDir::Files, QDir::Name);
    }

    static QString textoPdf(const QString& ruta) {
        QProcess p;
        p.start("pdftotext", {"-layout", ruta, "-"});
        if (!p.waitForFinished(30000)) {
            return {};
        }
        return QString::fromUtf8(p.readAllStandardOutput());
    }

    QTemporaryDir dir;
    QString raiz;
    QString socket;
    QProcess cupsd;
};

TEST_F(ImpresionCups, UnPedidoAceptadoLlegaALaColaComoPdf) {
    m.setImpresorasDW(std::make_unique<ImpresorasDWQt>());
    ASSERT_TRUE(m.impresorasDW().Printers().contains(Cola));
    ClassConfigImpresora i = impresoraDW(Cola);
    i.Font = "DejaVu Sans Mono";
    m.Impresora(1) = i;
    pedidoDomicilio();

    ImprimirPedidoSegunEstado(m, "Aceptado", m.PedidoActual.FormaEntrega, true, false);
    EXPECT_TRUE(boxes().isEmpty());
    ASSERT_TRUE(esperar([this] { return trabajos().size() == 1; }, 30000))
        << "no job reached the back end";
    const QString ruta = raiz + "/out/" + trabajos()[0];
    ASSERT_TRUE(esperar([&ruta] { return QFile(ruta).size() > 0; }, 10000));
    const QString texto = textoPdf(ruta);
    const QStringList enOrden = {"Casa Tarvi", u"Ped. Nº: 1234"_qs,    "2 X Pizza Margarita",
                                 "Total:",     "Aceptado: 30 Minutos", u"¡Buen provecho!"_qs};
    qsizetype desde = 0;
    for (const QString& pieza : enOrden) {
        const qsizetype en = texto.indexOf(pieza, desde);
        EXPECT_GE(en, 0) << pieza.toStdString() << "\n" << texto.toStdString();
        desde = std::max(desde, en);
    }
}

TEST_F(ImpresionCups, UnTicketEPPorNombreDeColaLlegaCrudo) {
    pedidoDomicilio();
    ImprimirTicketEP(m, impresoraEP("Barra", "referencia"));
    const QByteArray referencia = captura.bytes("referencia");
    ASSERT_FALSE(referencia.isEmpty());
    m.canalEP().setAbridor([](const QString& c) { return AbrirDestinoEP(c); });

    // The bare name as people write it, and the shared-printer form of the other system.
    ImprimirTicketEP(m, impresoraEP("Barra", Cola));
    ImprimirTicketEP(m, impresoraEP("Barra", "\\\\MOSTRADOR\\" + Cola));
    EXPECT_TRUE(boxes().isEmpty()) << boxes().value(0).texto.toStdString();
    ASSERT_TRUE(esperar([this] { return trabajos().size() == 2; }, 30000));
    for (const QString& t : trabajos()) {
        QFile f(raiz + "/out/" + t);
        ASSERT_TRUE(esperar([&f] { return f.size() > 0; }, 10000));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        EXPECT_EQ(f.readAll(), referencia) << "no filter touched the bytes";
    }
}

TEST_F(ImpresionCups, ElReinicioCancelaLosTrabajosEnEspera) {
    ASSERT_EQ(lp("cupsdisable", {Cola}), 0); // jobs wait in the queue
    QTemporaryDir datos;
    const QString documento = datos.path() + "/doc.txt";
    ASSERT_TRUE(escribir(documento, "hola\n"));
    ASSERT_EQ(lp("lp", {"-d", Cola, "-o", "raw", documento}), 0);
    ASSERT_EQ(lp("lp", {"-d", Cola, "-o", "raw", documento}), 0);

    EXPECT_EQ(CancelarTrabajosPendientes(5000), 2);
    cups_job_t* quedan = nullptr;
    const int n = cupsGetJobs(&quedan, Cola.toUtf8().constData(), 0, CUPS_WHICHJOBS_ACTIVE);
    cupsFreeJobs(n, quedan);
    EXPECT_EQ(n, 0);
    EXPECT_EQ(CancelarTrabajosPendientes(5000), 0) << "nothing left to cancel";
    ASSERT_EQ(lp("cupsenable", {Cola}), 0);
    esperar([] { return false; }, 300);
    EXPECT_TRUE(trabajos().isEmpty()) << "cancelled jobs never print";
}

} // namespace
