// A real print through the print system: a private print server started here (root only),
// with one raw queue whose back end writes each job to a file. The order goes through the
// routing to the driver printer named like the queue; the job's PDF holds the ticket. The
// queue reset is checked against the same server.
#include "common/EscritorioPruebaEP.h"
#include "common/ServidorCupsPrueba.h"
#include "impresora_dw_prueba.h"
#include "printing/CanalEP.h"
#include "printing/ColasImpresion.h"
#include "printing/ImpresoraDWQt_ui.h"
#include "printing/RutasImpresion.h"
#include "printing/TicketClienteEP.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <cups/cups.h>

namespace {

const QString Cola = ServidorCupsPrueba::Cola;

class ImpresionCups : public EscritorioPrueba {
protected:
    void SetUp() override {
        if (!ServidorCupsPrueba::posible()) {
            GTEST_SKIP() << "needs root and cupsd (cups-daemon)";
        }
        const QString porque = servidor.arrancar();
        ASSERT_TRUE(porque.isEmpty()) << porque.toStdString();
        raiz = servidor.raiz;
    }

    static int lp(const QString& programa, const QStringList& argumentos) {
        return ServidorCupsPrueba::lp(programa, argumentos);
    }
    static bool esperar(const std::function<bool()>& condicion, int ms) {
        return ServidorCupsPrueba::esperar(condicion, ms);
    }
    static bool escribir(const QString& ruta, const QString& texto) {
        return ServidorCupsPrueba::escribir(ruta, texto);
    }
    QStringList trabajos() const { return servidor.trabajos(); }

    static QString textoPdf(const QString& ruta) {
        QProcess p;
        p.start("pdftotext", {"-layout", ruta, "-"});
        if (!p.waitForFinished(30000)) {
            return {};
        }
        return QString::fromUtf8(p.readAllStandardOutput());
    }

    ServidorCupsPrueba servidor;
    QString raiz;
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
