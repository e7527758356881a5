#pragma once

#include <QPixmap>

// The service's logo for the main window, drawn rather than shipped as a file.
QPixmap Logotipo(int ancho, int alto);
