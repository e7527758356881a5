#pragma once

#include <QObject>
#include <QString>
#include <memory>

class ModuloPrincipal;
class SalidaAudio;
class Temporizador;
struct EstadoSalidaAudio;

// Why the alert melody would not be heard, for LabelInfo; empty when it would be (or when
// the sound is switched off on purpose by the configuration).
QString AvisoSonido(const EstadoSalidaAudio& e, const ModuloPrincipal& m);

// Staff who never hear the alert miss orders: at start and every few minutes the desk asks
// the system whether its melody can be heard, and says so while it cannot.
class VigilanciaSonido : public QObject {
    Q_OBJECT
public:
    static constexpr int IntervaloMs = 3 * 60 * 1000;

    VigilanciaSonido(ModuloPrincipal& m, std::unique_ptr<SalidaAudio> salida,
                     QObject* padre = nullptr);
    ~VigilanciaSonido() override;

    // Checks now, then every IntervaloMs.
    void iniciar();
    void comprobar();
    const QString& aviso() const { return aviso_; }

Q_SIGNALS:
    void avisoCambiado(const QString& aviso);

private:
    ModuloPrincipal& m_;
    std::unique_ptr<SalidaAudio> salida_;
    Temporizador* timer_;
    QString aviso_;
};
