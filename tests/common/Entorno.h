#pragma once

#include "base/ModuloPrincipal.h"
#include "common/CanalFalso.h"
#include "platform/CajaMensajes.h"
#include "platform/Reloj.h"

#include <QTemporaryDir>
#include <memory>

// A fresh desk state for one test: its own data folder, a fixed clock, recorded message
// boxes and fake HTTP channels, service base "servidor.prueba/api/".
struct Entorno {
    Entorno();

    QTemporaryDir carpeta;
    ModuloPrincipal m;
    RelojFijo* reloj = nullptr;
    RegistroCajas* cajas = nullptr;
    CanalesFalsos canales;
};

// The establishment the tests' services know: id 7, password "clave", configuration
// `numConfig`.
inline void DarEstablecimiento(ModuloPrincipal& m, int numConfig) {
    m.IdEstablecimiento = 7;
    m.PasswordConfig = QStringLiteral("clave");
    m.NumConfig = numConfig;
}
