#include "platform/CajaMensajes.h"

#include "base/ModuloPrincipal.h"

#include <QFile>

RegistroCajas::RegistroCajas(QString ficheroRegistro) : fichero_(std::move(ficheroRegistro)) {}

int RegistroCajas::mostrar(const QString& texto, int estilo, const QString& titulo) {
    cajas_.append({texto, estilo, titulo});
    if (!fichero_.isEmpty()) {
        QFile f(fichero_);
        if (f.open(QIODevice::Append)) {
            QString linea = QString::number(estilo) + '\t' + titulo + '\t' + texto;
            linea.replace(QLatin1String("\r"), QLatin1String("\\r"));
            linea.replace(QLatin1String("\n"), QLatin1String("\\n"));
            f.write(linea.toUtf8() + '\n');
        }
    }
    const bool esPregunta = (estilo & 0x7) == estilo::SiNo;
    if (!esPregunta) {
        return respuesta::Aceptar;
    }
    if (!respuestas_.isEmpty()) {
        return respuestas_.takeFirst();
    }
    return porDefecto_;
}

CajaMensajes& ModuloPrincipal::cajas() const {
    if (!cajas_) {
        cajas_ = std::make_shared<RegistroCajas>();
    }
    return *cajas_;
}

void ModuloPrincipal::setCajas(std::unique_ptr<CajaMensajes> c) {
    cajas_ = std::move(c);
}
