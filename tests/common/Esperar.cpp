// Kept apart from the real desk's driver: a test program that only waits must not pull that
// driver in (its fixture shares the name with the raw-printer fixture).
#include "common/Esperar.h"

#include <QDeadlineTimer>
#include <QTest>

bool EsperarHasta(const std::function<bool()>& condicion, int msMax) {
    QDeadlineTimer limite(msMax);
    while (!condicion()) {
        if (limite.hasExpired()) {
            return false;
        }
        QTest::qWait(20);
    }
    return true;
}
