// The main window's part in products out of stock and in closing the establishment for a
// while.
#include "base/ModuloPrincipal.h"
#include "orders/Sondeo.h"
#include "platform/CajaMensajes.h"
#include "platform/Controles_ui.h"
#include "products/Carta.h"
#include "products/FormProductosRechazarIngredientes.h"
#include "products/ListaProductos_ui.h"
#include "shell/CierreEstablecimiento.h"
#include "shell/Form1.h"
#include "shell/FormCerrarEstablec.h"

#include <QLineEdit>
#include <QPushButton>

void Form1::conectarProductos() {
    connect(&m_.carta(), &Carta::agotadosLeidos, listaAgotados_, &ListaProductos::Rellenar);
    connect(&m_, &ModuloPrincipal::actualizarAgotados, this, &Form1::ObtenerProductosAgotados);
    connect(butCerrar_, &QPushButton::clicked, this, [this] {
        protegido([this] {
            FormCerrarEstablec& v = formCerrarEstablec();
            v.show();
            ColocarVentana(&v, true);
        });
    });
    connect(butCancelarCerrar_, &QPushButton::clicked, this,
            [this] { protegido([this] { CancelarCerrar(); }); });
    auto* agotados = findChild<QPushButton*>(QStringLiteral("CommandProductosSinIngredientes"));
    connect(agotados, &QPushButton::clicked, this, [this] {
        protegido([this] {
            FormProductosRechazarIngredientes& v = formProductos();
            v.show();
            v.raise();
            v.activateWindow();
        });
    });
}

void Form1::CargarCarta() {
    m_.carta().CargarCarta();
}

void Form1::ObtenerProductosAgotados() {
    // The rows come back through the menu's signal.
    m_.carta().ObtenerProductosAgotados();
}

FormProductosRechazarIngredientes& Form1::formProductos() {
    if (formProductos_ == nullptr) {
        formProductos_ = new FormProductosRechazarIngredientes(m_, this);
    }
    return *formProductos_;
}

FormCerrarEstablec& Form1::formCerrarEstablec() {
    if (formCerrar_ == nullptr) {
        formCerrar_ = new FormCerrarEstablec(this);
        connect(formCerrar_, &FormCerrarEstablec::tiempoPulsado, this,
                [this](int i) { protegido([this, i] { CerrarTemporalmente(i); }); });
    }
    return *formCerrar_;
}

void Form1::CerrarTemporalmente(int indice) {
    if (m_.PedidoNuevoPendiente || m_.MensajeNuevoPendiente) {
        m_.cajas().mostrar(cierre::HayPendiente);
        return;
    }
    const QString respuesta = m_.ConsultarServidor(cierre::RutaCerrar(m_, indice));
    // Written even when the reply is a failure word: the next poll puts the display right.
    textEstadoApertura_->setText(QStringLiteral("Cerrado hasta ") + cierre::SinComillas(respuesta));
    PonerFondo(textEstadoApertura_, ColorVB(colores::Amarillo));
    butCancelarCerrar_->setVisible(true);
    butCerrar_->setVisible(false);
    formCerrarEstablec().hide();
}

void Form1::CancelarCerrar() {
    const cierre::TrasAbrir a = cierre::LeerApertura(m_.ConsultarServidor(cierre::RutaAbrir(m_)));
    textEstadoApertura_->setText(a.texto);
    if (a.cambiaBotones) {
        PonerFondo(textEstadoApertura_, ColorVB(a.colorFondo));
        butCancelarCerrar_->setVisible(false);
        butCerrar_->setEnabled(true);
        butCerrar_->setVisible(true);
    }
}
