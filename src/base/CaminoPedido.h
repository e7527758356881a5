#pragma once

#include "base/ModuloPrincipal.h"

// The order road is busy from the press of an answer (an automatic acceptance, a reprint)
// until its last ticket is out and its boxes are answered. A box runs its own event loop,
// so without this the poll could take the next order in the middle of an answer and
// overwrite PedidoActual, the printer slots or the order window under it. The ticks that
// would take an order, read the configuration or watch an order ask `CaminoLibre` and, while
// a holder lives, skip their turn and come again at the next one. Holders nest (a
// cancellation that rejects): the road is free again when the outermost one ends.
class OcupacionCamino {
public:
    explicit OcupacionCamino(ModuloPrincipal& m) : m_(m) { ++m_.CaminoOcupado; }
    ~OcupacionCamino() { --m_.CaminoOcupado; }
    OcupacionCamino(const OcupacionCamino&) = delete;
    OcupacionCamino& operator=(const OcupacionCamino&) = delete;

private:
    ModuloPrincipal& m_;
};

inline bool CaminoLibre(const ModuloPrincipal& m) {
    return m.CaminoOcupado == 0;
}
