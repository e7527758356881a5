#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <memory>

class ModuloPrincipal;
class ReproductorAudio;

// The alert melody: which file, through which player, started and stopped by the order
// and message flows, repeated by the main window's TimerMusica, toggled by the Musica
// menu entry. Reads its settings from ModuloPrincipal (CancelarSonido, TipoReproAudio,
// MelodiaPedNuevo, VolumenMelodiaWmp, the two pending flags) and reports through
// ModuloPrincipal::textoInfo and its own textoMusica.
class AlertaSonora : public QObject {
    Q_OBJECT
public:
    static inline const QString MelodiaPorDefecto = QStringLiteral("corneta.mp3");
    static inline const QString TextoReproducir = QStringLiteral("Reproducir Música");
    static inline const QString TextoParar = QStringLiteral("Parar Música");
    static inline const QString TextoAviso = QStringLiteral("Avi 001: ");
    static inline const QString TextoProblemaDetener =
        QStringLiteral("Problema al detener sonido. Por favor, compruebe los conectores.");

    // What keeps the repeat quiet while a person is dealing with the alert. A question
    // that is not set answers false.
    struct Silenciadores {
        std::function<bool()> TimerSilenciarActivo; // on the new-order window
        std::function<bool()> ProductosRechazarIngredientesPedidoVisible;
        std::function<bool()> RechazarPedidoVisible;
        std::function<bool()> AceptarPedidoVisible;
        std::function<bool()> TimerSilenciarMensajeActivo; // on the new-message window
    };

    explicit AlertaSonora(ModuloPrincipal& modulo, QObject* padre = nullptr);
    ~AlertaSonora() override;

    // The player of mode 0 (and of any mode other than 1) and the media player of mode 1.
    void setReproductores(std::unique_ptr<ReproductorAudio> comandos,
                          std::unique_ptr<ReproductorAudio> medios);
    void setSilenciadores(Silenciadores s) { silenciadores_ = std::move(s); }

    // Chooses RutaMelodia from the settings; a missing or unknown melody falls back to
    // corneta.mp3 without a word.
    void PrepararMelodia();
    // PrepararMelodia, then in mode 1 the player's volume from VolumenMelodiaWmp: what
    // start-up and every application of the configuration do.
    void PrepararMelodiaYVolumen();
    void ReproducirSonido();
    void DetenerSonido();
    // TimerMusica's tick: starts the melody again while an order or a message waits.
    void tickMusica();
    // The Musica menu entry.
    void alternarMusica();
    // The settings' volume slider: straight to the media player, in any mode. Throws
    // ErrorEjecucion 91 when no media player has been set.
    void setVolumenReproductor(int volumen);

    // Whether the sound was started by hand (menu entry or settings preview).
    bool musicaSonando() const { return musicaSonando_; }
    void setMusicaSonando(bool sonando) { musicaSonando_ = sonando; }
    // The Musica menu entry is offered only while the sound is not switched off.
    bool musicaOfrecida() const;

    const QString& RutaMelodia() const { return rutaMelodia_; }

Q_SIGNALS:
    // New caption for the Musica menu entry.
    void textoMusica(const QString& texto);

private:
    QString rutaFallback() const;
    ReproductorAudio& comandos() const;
    ReproductorAudio& medios() const;
    void informar(const QString& texto);

    ModuloPrincipal& m_;
    std::unique_ptr<ReproductorAudio> comandos_;
    std::unique_ptr<ReproductorAudio> medios_;
    Silenciadores silenciadores_;
    QString rutaMelodia_;
    bool musicaSonando_ = false;
};
