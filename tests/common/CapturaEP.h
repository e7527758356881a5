#pragma once

#include "base/ModuloPrincipal.h"
#include "printing/CanalEP.h"

#include <QByteArray>
#include <QHash>
#include <memory>

// Sends the raw tickets of a desk to memory: each EPConexion gets its own buffer.
class CapturaEP {
public:
    explicit CapturaEP(ModuloPrincipal& m) {
        m.canalEP().setAbridor([this](const QString& conexion) -> std::unique_ptr<DestinoEP> {
            ++aperturas_[conexion];
            auto& d = datos_[conexion];
            if (!d.bytes) {
                d.bytes = std::make_shared<QByteArray>();
                d.cierres = std::make_shared<int>(0);
            }
            return std::make_unique<DestinoMemoria>(d.bytes, d.cierres);
        });
    }

    QByteArray bytes(const QString& conexion) const {
        const auto it = datos_.find(conexion);
        return it == datos_.end() ? QByteArray() : *it->bytes;
    }
    int cierres(const QString& conexion) const {
        const auto it = datos_.find(conexion);
        return it == datos_.end() ? 0 : *it->cierres;
    }
    int aperturas(const QString& conexion) const { return aperturas_.value(conexion); }
    void limpiar() {
        datos_.clear();
        aperturas_.clear();
    }

private:
    struct Datos {
        std::shared_ptr<QByteArray> bytes;
        std::shared_ptr<int> cierres;
    };
    QHash<QString, Datos> datos_;
    QHash<QString, int> aperturas_;
};
