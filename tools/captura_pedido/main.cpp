// Paints three typical orders on the new-order window and saves each as a PNG:
//   captura_pedido <folder>
// Meant to run on a real or virtual screen (xvfb-run), so the pictures show the
// platform's own look.
#include "base/ModuloPrincipal.h"
#include "base/Windows1252.h"
#include "orders/FormPedidoNuevo.h"
#include "orders/RegistroPedido.h"
#include "orders/VentanaPedido_ui.h"
#include "platform/Temporizador.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QTextStream>

namespace {

struct Muestra {
    const char* fichero;
    QString linea; // as the service writes it
    bool ocultarDatos;
    bool destello; // one tick of the flashing painted
};

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc < 2) {
        QTextStream(stderr) << "uso: captura_pedido <carpeta>\n";
        return 2;
    }
    const QDir carpeta(QString::fromLocal8Bit(argv[1]));
    if (!carpeta.exists() && !QDir().mkpath(carpeta.path())) {
        QTextStream(stderr) << "captura_pedido: no se puede crear " << carpeta.path() << "\n";
        return 1;
    }

    ModuloPrincipal m;
    m.NombreEstablecimiento = QStringLiteral("Pizzería Sol");
    m.TamannoFuentePrincipales = 10;
    m.ParpadeoPedNuevo = true;
    m.IntensidadParpadeo = 60;
    m.MostrarCpr = true;
    m.MostrarQuienA = true;

    const Muestra muestras[] = {
        {"pedido_domicilio.png",
         QStringLiteral(
             "#PED*web*5001*2%Pizza Cuatro Quesos - Borde relleno - Sin orégano%23.00%101%12%"
             "Cocina caliente//2//Borde relleno;1%Ensalada César con pollo y picatostes caseros "
             "con salsa de la casa - Sin picatostes%8.90%103%11;2%Agua mineral 50 cl%3.00%140%14;"
             "1%Tarta de queso%4.50%150%15;*2.00*3.00;36.40;88;María Núñez Peña;Calle Mayor 5, 2º"
             " B (timbre roto);22/11/2026 21:02%%Para: Ahora;4;6;Tarjeta;600111222;Pendiente;;"
             "OTOÑO3;0.35;1;0;39.75;*Timbre roto * llamar al móvil al llegar, por favor#"),
         false, true},
        {"pedido_programado.png",
         QStringLiteral(
             "#PED*web*5002*1%Hamburguesa clásica - Sin pepinillos - Punto de la carne: al "
             "punto%9.90%201%13;2%Patatas bravas%7.00%202%11;1%Cerveza sin alcohol%2.20%141%14;*"
             "0.00*0.00;19.10;89;Jorge Peña;Recogen;22/11/2026 18:40%%Para: 21:30%%Sábado 28%%n;"
             "12;1;Efectivo Cambio: 50;611222333;Pendiente;;;0.00;;1;19.10;*Sin prisa#"),
         false, false},
        {"pedido_datos_cubiertos.png",
         QStringLiteral(
             "#PED*web*5003*3%Croquetas caseras de jamón%7.50%301%11;1%Pizza Margarita - Extra de "
             "albahaca%10.50%102%12;*1.50*0.00;19.50;90;Ana Ruiz;Avenida del Sol 3, 4º izquierda"
             ";22/11/2026 21:10%%Para: Ahora;0;6;Bizum;622333444;Pendiente;;;0.00;;0;19.50;*#"),
         true, false},
    };

    FormPedidoNuevo ventana(m);
    AplicarTamannosFuente(m, &ventana);
    ventana.setWindowTitle(FormPedidoNuevo::Titulo + QLatin1Char(' ') + m.NombreEstablecimiento);
    ventana.show();
    for (const Muestra& mu : muestras) {
        QString respuesta = cp1252::aTexto(mu.linea.toUtf8());
        ParsearPedido(m, respuesta);
        RellenarVentanaPedido(m, &ventana);
        if (mu.ocultarDatos) {
            ventana.CubrirDatosPersonales();
        }
        ventana.TimerColorFondo().setEnabled(false);
        ventana.IniciarParpadeo();
        ventana.TimerColorFondo().setEnabled(false);
        if (mu.destello) {
            ventana.TimerColorFondo().disparar();
        }
        for (int i = 0; i < 20; ++i) {
            QApplication::processEvents();
        }
        const QString ruta = carpeta.filePath(QLatin1String(mu.fichero));
        if (!ventana.grab().save(ruta)) {
            QTextStream(stderr) << "captura_pedido: no se puede escribir " << ruta << "\n";
            return 1;
        }
        // Back to white for the next one.
        if (mu.destello) {
            ventana.TimerColorFondo().disparar();
        }
        QTextStream(stdout) << ruta << "\n";
    }
    return 0;
}
