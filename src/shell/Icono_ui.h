#pragma once

#include <QIcon>
#include <QImage>

// The desk's icon: an order ticket on the service's orange, drawn at any size so the
// window, the menu entry and every size the desktop asks for come from one drawing.
QImage DibujarIcono(int lado);
QIcon IconoAplicacion();
