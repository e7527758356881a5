#include "base/Diario.h"

// Info and above are written by default; debug is not.
Q_LOGGING_CATEGORY(diarioPedidos, "tarvimenta.pedidos", QtInfoMsg)
Q_LOGGING_CATEGORY(diarioImpresion, "tarvimenta.impresion", QtInfoMsg)
