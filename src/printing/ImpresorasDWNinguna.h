#pragma once

#include "printing/ImpresoraDW.h"

// The driver printers of a desk that has no printing system: an empty list, and a printer
// error for whoever tries to print.
class ImpresorasDWNinguna : public ImpresorasDW {
public:
    QStringList Printers() const override { return {}; }
    void HacerActual(qsizetype) override {}
    ImpresoraDW& Printer() override;
};
