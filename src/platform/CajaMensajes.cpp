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

std::shared_ptr<CajaMensajes> ModuloPrincipal::cambiarCajas(std::shared_ptr<CajaMensajes> c) {
    cajas();
    std::swap(cajas_, c);
    return c;
}

class AplazarCajas::Recogida : public CajaMensajes {
public:
    int mostrar(const QString& texto, int estilo, const QString& titulo) override {
        if ((estilo & 0x7) != estilo::SoloAceptar) {
            return destino_->mostrar(texto, estilo, titulo);
        }
        guardadas_.append({texto, estilo, titulo});
        return respuesta::Aceptar;
    }
    QList<RegistroCajas::Caja> guardadas_;
    std::shared_ptr<CajaMensajes> destino_;
};

AplazarCajas::AplazarCajas(ModuloPrincipal& m) : m_(m) {
    recogida_ = std::make_shared<Recogida>();
    anteriores_ = m_.cambiarCajas(recogida_);
    recogida_->destino_ = anteriores_;
}

AplazarCajas::~AplazarCajas() {
    m_.cambiarCajas(anteriores_);
    for (const RegistroCajas::Caja& c : recogida_->guardadas_) {
        anteriores_->mostrar(c.texto, c.estilo, c.titulo);
    }
}
