#pragma once

#include "base/Pedido.h"

#include <QDateTime>
#include <QList>
#include <QObject>
#include <QString>

class ModuloPrincipal;

// One ticket copy that did not come out: the order as it was to be printed, the printer slot
// it was for, when and why it failed.
struct TicketSinImprimir {
    Pedido pedido;
    int hueco = 0;     // printer slot 1 to 10
    QString impresora; // the slot's printer name at the time
    QDateTime hora;
    QString error; // what the printer's box said
};

// The copies that could not be printed, in the order they failed. A printer that fails loses
// no ticket: each copy stays here until it is printed again or the staff drop it. The list is
// kept in a file (written whole and atomically at each change) so that it survives a restart.
class TicketsSinImprimir : public QObject {
    Q_OBJECT
public:
    // `ruta` is the file that keeps the list; empty keeps it in memory only. A file that
    // can't be read is put aside (".ilegible") and the list starts empty.
    explicit TicketsSinImprimir(QString ruta = {});

    const QList<TicketSinImprimir>& lista() const { return lista_; }
    qsizetype cantidad() const { return lista_.size(); }

    void anotar(TicketSinImprimir t);
    // Takes copy `i` out of the list and gives it back.
    TicketSinImprimir quitar(qsizetype i);

    // Why the list could not be written last time; empty when it was.
    const QString& errorGuardado() const { return errorGuardado_; }
    const QString& ruta() const { return ruta_; }

signals:
    void cambiada();

private:
    void cargar();
    void guardar();

    QString ruta_;
    QList<TicketSinImprimir> lista_;
    QString errorGuardado_;
};

// The file of the list in the data folder.
QString RutaTicketsSinImprimir(const QString& carpetaDatos);

// The list's file form, one object per copy; a text that is no such list gives false.
QByteArray TicketsSinImprimirAJson(const QList<TicketSinImprimir>& lista);
bool TicketsSinImprimirDeJson(const QByteArray& json, QList<TicketSinImprimir>& lista);

// Prints copy `i` again, one copy on its slot as the slot is configured now. The copy leaves
// the list first; if it fails again, the failure puts it back with the new time and error.
// A slot that has no printer any more keeps it in the list and says so in a box. Holds the
// order road meanwhile and leaves PedidoActual as it found it. Returns whether it printed.
bool ReimprimirTicket(ModuloPrincipal& m, qsizetype i);

// Every copy of the list, oldest first, each as ReimprimirTicket; the boxes of the failures
// come after the last. Returns how many printed.
int ReimprimirTodos(ModuloPrincipal& m);
