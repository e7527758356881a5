#pragma once

class ModuloPrincipal;
class QWidget;

// Paints PedidoActual on an order window: any window that carries the order controls under
// their names (LabNPedido, ListViewProductos, LabTotal, TxtDireccion, ...), the new-order
// window and the past-order window alike. The window is not shown here. A failure on the
// way (a product text that gives no line, an estimated time that is no number) is a
// run-time error; what was painted before it stays.
void RellenarVentanaPedido(ModuloPrincipal& m, QWidget* ventana);

// The font sizes of an order window from TamannoFuentePrincipales (the total four points
// larger). A size of 0 or less, before any configuration, leaves the fonts as they are.
void AplicarTamannosFuente(const ModuloPrincipal& m, QWidget* ventana);
