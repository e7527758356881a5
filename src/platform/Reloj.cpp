#include "platform/Reloj.h"

#include "base/ModuloPrincipal.h"

Reloj& ModuloPrincipal::reloj() const {
    if (!reloj_) {
        reloj_ = std::make_shared<RelojSistema>();
    }
    return *reloj_;
}

void ModuloPrincipal::setReloj(std::unique_ptr<Reloj> r) {
    reloj_ = std::move(r);
}
