#pragma once

class QWidget;

// Shrinks a window to the screen it is on when it is larger (frame included) and puts it in
// the middle, so its buttons never fall off a small screen.
void EncajarEnPantalla(QWidget* ventana);
