// The print queues' reset against a private print server started here (root only) whose back
// end writes each job to a file. Tickets through the same server are the failure matrix's
// matter.
#include "common/ServidorCupsPrueba.h"
#include "printing/ColasImpresion.h"

#include <QTemporaryDir>
#include <cups/cups.h>
#include <gtest/gtest.h>

namespace {

using S = ServidorCupsPrueba;

TEST(ImpresionCups, ElReinicioCancelaLosTrabajosEnEspera) {
    if (!S::posible()) {
        GTEST_SKIP() << "needs root and cupsd (cups-daemon)";
    }
    S servidor;
    const QString porque = servidor.arrancar();
    ASSERT_TRUE(porque.isEmpty()) << porque.toStdString();
    ASSERT_EQ(S::lp("cupsdisable", {S::Cola}), 0); // jobs wait in the queue
    QTemporaryDir datos;
    const QString documento = datos.path() + "/doc.txt";
    ASSERT_TRUE(S::escribir(documento, "hola\n"));
    ASSERT_EQ(S::lp("lp", {"-d", S::Cola, "-o", "raw", documento}), 0);
    ASSERT_EQ(S::lp("lp", {"-d", S::Cola, "-o", "raw", documento}), 0);

    EXPECT_EQ(CancelarTrabajosPendientes(5000), 2);
    cups_job_t* quedan = nullptr;
    const int n = cupsGetJobs(&quedan, S::Cola.toUtf8().constData(), 0, CUPS_WHICHJOBS_ACTIVE);
    cupsFreeJobs(n, quedan);
    EXPECT_EQ(n, 0);
    EXPECT_EQ(CancelarTrabajosPendientes(5000), 0) << "nothing left to cancel";
    ASSERT_EQ(S::lp("cupsenable", {S::Cola}), 0);
    EsperarHasta([] { return false; }, 300);
    EXPECT_TRUE(servidor.trabajos().isEmpty()) << "cancelled jobs never print";
}

} // namespace
