#pragma once

#include "base/ModuloPrincipal.h"
#include "common/ReproductorGrabador.h"
#include "common/SimuladorPrueba.h"
#include "platform/CajaMensajes.h"
#include "platform/Temporizador.h"
#include "shell/Form1.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

// The text a label or a text field of an order window shows.
inline QString TextoControl(QWidget* w) {
    if (auto* l = qobject_cast<QLabel*>(w)) {
        return l->text();
    }
    if (auto* e = qobject_cast<QLineEdit*>(w)) {
        return e->text();
    }
    if (auto* t = qobject_cast<QPlainTextEdit*>(w)) {
        return t->toPlainText();
    }
    ADD_FAILURE() << (w ? w->objectName().toStdString() : "no control");
    return {};
}

// The desk in this process against the stand-in service over loopback: boxes recorded, sound
// going to a recorder, polls and the melody's repeat driven by hand.
struct MostradorSimulado : ::testing::Test {
    QTemporaryDir carpeta;
    SimuladorPrueba sim;
    ModuloPrincipal m;
    RegistroCajas* cajas = nullptr;
    std::shared_ptr<ReproductorGrabador::Registro> sonido =
        std::make_shared<ReproductorGrabador::Registro>();
    std::unique_ptr<Form1> f;

    // What else a configuration reading would have brought, before the main window exists.
    virtual void configurar() {}

    void SetUp() override {
        ASSERT_TRUE(sim.enMarcha());
        auto c = std::make_unique<RegistroCajas>();
        cajas = c.get();
        m.setCajas(std::move(c));
        m.setServidor(sim.base());
        m.CarpetaDatos = carpeta.path();
        m.CarpetaAplicacion = QStringLiteral(CARPETA_BIN);
        m.NombreEstablecimiento = QStringLiteral("Pizzería Sol");
        m.IntervaloEscaneoPedido = 600000;
        m.TamannoFuentePrincipales = 8;
        m.MelodiaPedNuevo = QStringLiteral("telefon1.wav");
        configurar();
        f = std::make_unique<Form1>(m, QStringList{});
        InstalarGrabadores(m.sonido(), sonido);
        f->AplicarConfiguracion();
        f->TimerMusica().setEnabled(false);
    }

    // How many times the melody started and stopped.
    int reproducciones() const { return cuantas(QStringLiteral("reproducir ")); }
    int detenciones() const { return cuantas(QStringLiteral("detener ")); }
    int cuantas(const QString& llamada) const {
        return static_cast<int>(sonido->llamadas.filter(llamada).size());
    }

    // An order line on the next poll, and the poll.
    void llega(const QString& linea) {
        sim.encolar(QStringLiteral("pedidosgprs/pedidosnuevos"), {linea});
        f->ComprobarPedidosNuevos();
    }
};
