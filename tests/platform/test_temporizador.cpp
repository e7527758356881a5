#include "platform/Temporizador.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

TEST(Temporizador, IntervaloCeroNuncaDispara) {
    Temporizador t;
    QSignalSpy ticks(&t, &Temporizador::tick);
    t.setEnabled(true);
    EXPECT_TRUE(t.enabled());
    QTest::qWait(60);
    EXPECT_EQ(ticks.size(), 0);
    t.setInterval(10);
    EXPECT_TRUE(ticks.wait(1000));
}

TEST(Temporizador, ApagadoNoDisparaYEncenderEmpiezaLaCuenta) {
    Temporizador t;
    QSignalSpy ticks(&t, &Temporizador::tick);
    t.setInterval(20);
    QTest::qWait(60);
    EXPECT_EQ(ticks.size(), 0);
    QElapsedTimer reloj;
    reloj.start();
    t.setEnabled(true);
    ASSERT_TRUE(ticks.wait(1000));
    EXPECT_GE(reloj.elapsed(), 15);
}

TEST(Temporizador, CambiarElIntervaloReiniciaYEncenderDosVecesNo) {
    Temporizador t;
    QSignalSpy ticks(&t, &Temporizador::tick);
    t.setInterval(150);
    t.setEnabled(true);
    QTest::qWait(100);
    // Switching on again changes nothing: the tick still comes at 150 ms from the start.
    t.setEnabled(true);
    QElapsedTimer reloj;
    reloj.start();
    ASSERT_TRUE(ticks.wait(1000));
    EXPECT_LT(reloj.elapsed(), 120);

    // Setting the interval restarts the count.
    QTest::qWait(100);
    reloj.restart();
    t.setInterval(150);
    ASSERT_TRUE(ticks.wait(1000));
    EXPECT_GE(reloj.elapsed(), 130);

    t.setEnabled(false);
    const auto antes = ticks.size();
    QTest::qWait(250);
    EXPECT_EQ(ticks.size(), antes);
}
