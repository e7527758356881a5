// Raw tickets through the print system and the queue reset, against a private print server
// started here (root only) whose back end writes each job to a file. A driver printer's
// copies through the same server are the failure matrix's matter.
#include "common/EscritorioPruebaEP.h"
#include "common/ServidorCupsPrueba.h"
#include "printing/CanalEP.h"
#include "printing/ColasImpresion.h"
#include "printing/TicketClienteEP.h"

#include <QFile>
#include <QTemporaryDir>
#include <cups/cups.h>

namespace {

using S = ServidorCupsPrueba;
const QString Cola = S::Cola;

class ImpresionCups : public EscritorioPrueba {
protected:
    void SetUp() override {
        if (!S::posible()) {
            GTEST_SKIP() << "needs root and cupsd (cups-daemon)";
        }
        const QString porque = servidor.arrancar();
        ASSERT_TRUE(porque.isEmpty()) << porque.toStdString();
    }

    ServidorCupsPrueba servidor;
};

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
    ASSERT_TRUE(EsperarHasta([this] { return servidor.trabajos().size() == 2; }, 30000));
    for (const QString& t : servidor.trabajos()) {
        QFile f(servidor.raiz + "/out/" + t);
        ASSERT_TRUE(EsperarHasta([&f] { return f.size() > 0; }, 10000));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        EXPECT_EQ(f.readAll(), referencia) << "no filter touched the bytes";
    }
}

TEST_F(ImpresionCups, ElReinicioCancelaLosTrabajosEnEspera) {
    ASSERT_EQ(S::lp("cupsdisable", {Cola}), 0); // jobs wait in the queue
    QTemporaryDir datos;
    const QString documento = datos.path() + "/doc.txt";
    ASSERT_TRUE(S::escribir(documento, "hola\n"));
    ASSERT_EQ(S::lp("lp", {"-d", Cola, "-o", "raw", documento}), 0);
    ASSERT_EQ(S::lp("lp", {"-d", Cola, "-o", "raw", documento}), 0);

    EXPECT_EQ(CancelarTrabajosPendientes(5000), 2);
    cups_job_t* quedan = nullptr;
    const int n = cupsGetJobs(&quedan, Cola.toUtf8().constData(), 0, CUPS_WHICHJOBS_ACTIVE);
    cupsFreeJobs(n, quedan);
    EXPECT_EQ(n, 0);
    EXPECT_EQ(CancelarTrabajosPendientes(5000), 0) << "nothing left to cancel";
    ASSERT_EQ(S::lp("cupsenable", {Cola}), 0);
    EsperarHasta([] { return false; }, 300);
    EXPECT_TRUE(servidor.trabajos().isEmpty()) << "cancelled jobs never print";
}

} // namespace
