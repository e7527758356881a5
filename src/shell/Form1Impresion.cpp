// The main window's part in print-only mode: the poll that prints accepted orders.
#include "base/ModuloPrincipal.h"
#include "messages/Mensajes_ui.h"
#include "orders/SondeoImpresion.h"
#include "shell/Form1.h"

void Form1::ComprobarPedidosImprimir() {
    namespace si = sondeo_impresion;
    const QString respuesta = m_.ConsultarServidor(si::RutaPedidosAceptadosImprimir(m_));
    switch (si::Clasificar(respuesta, m_.Modo)) {
    case si::Respuesta::Pedido:
        si::ImprimirPedidoAceptado(m_, respuesta);
        break;
    case si::Respuesta::Mensaje:
        // As in the new-order poll: on screen, no polling until it is answered.
        mensajes().RecibirMensaje(respuesta);
        break;
    case si::Respuesta::Nada:
        break;
    }
}
