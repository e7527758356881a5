#include "common/Entorno.h"

Entorno::Entorno() {
    auto r = std::make_unique<RelojFijo>(QDateTime(QDate(2026, 11, 14), QTime(9, 5, 7)));
    reloj = r.get();
    m.setReloj(std::move(r));
    auto c = std::make_unique<RegistroCajas>();
    cajas = c.get();
    m.setCajas(std::move(c));
    auto d = std::make_unique<CanalFalso>();
    auto i1 = std::make_unique<CanalFalso>();
    auto i2 = std::make_unique<CanalFalso>();
    canales = {d.get(), i1.get(), i2.get()};
    m.setCanales(std::move(d), std::move(i1), std::move(i2));
    m.setServidor(QStringLiteral("servidor.prueba/api/"));
    m.CarpetaDatos = carpeta.path();
    m.CarpetaAplicacion = carpeta.path();
}
