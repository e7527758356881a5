#pragma once

#include "platform/CajaMensajes.h"

// Message boxes on screen, with the standard buttons and icons.
class CajaMensajesQt : public CajaMensajes {
public:
    int mostrar(const QString& texto, int estilo, const QString& titulo) override;
};
