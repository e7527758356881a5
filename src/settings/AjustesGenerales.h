#pragma once

#include <QString>

class ModuloPrincipal;

// What the general settings window holds at the moment it is saved.
struct ValoresGenerales {
    QString TamannoFuentePrinc;       // txtTamannoFuentePrinc, as typed
    QString TamannoFuenteListasCheck; // txtTamannoFuenteListasCheck, as typed
    qint16 TipoReproAudio = 0;        // index of the selected OptModoRepro
    QString Melodia;                  // text of ComMelodias
    qint16 Volumen = 0;               // SliderVolumenWMP
    bool MinimizarTrasResp = false;   // CheckMinimizarTrasResp
};

namespace ajustes_generales {

inline const QString TamannoVacio =
    QStringLiteral("Debe de introducir un tamaño de fuente de datos principales");
inline const QString TamannoFueraDeRango =
    QStringLiteral("Debe de introducir un tamaño de fuente entre 8 y 16");

// The box text that refuses a main font size, or an empty text when it is good (8 to 16).
// A text that is no number (pasted, since the field lets only digits be typed) is run-time
// error 13.
QString ProblemaTamannoFuente(const QString& texto);

// The write of the general settings, parameters in the service's fixed order; only the
// melody's name is encoded.
QString PeticionConfigGeneral(const ModuloPrincipal& m);

// The save. A refused main font size shows its warning box and changes nothing (false).
// Otherwise the variables take the values at once, so the desk behaves as saved from now
// on; the request goes out and its answer is dropped; the melody is prepared again. A list
// font size that is no number is run-time error 13, after the main size was taken over.
bool GuardarConfigGeneral(ModuloPrincipal& m, const ValoresGenerales& v);

} // namespace ajustes_generales

// The melody preview of the general settings: plays the chosen melody in the chosen mode
// through the desk's own alert, and puts the saved mode and melody back at once, so that an
// order arriving meanwhile still rings with the saved ones. Shares the "playing by hand"
// flag with the Musica menu entry: a melody started there is what the preview stops.
class PruebaMelodia {
public:
    static inline const QString Play = QStringLiteral("Play");
    static inline const QString Stop = QStringLiteral("Stop");

    explicit PruebaMelodia(ModuloPrincipal& m) : m_(m) {}

    // butReproducir: stops what plays by hand, or starts the chosen melody in the chosen
    // mode. Returns the button's next caption: "Stop" after "Play", "Play" after anything
    // else, whatever the sound did.
    QString alternar(const QString& rotulo, qint16 tipoElegido, const QString& melodiaElegida);
    // Leaving the window (either way): a melody playing by hand is stopped in the mode and
    // with the melody of the last preview.
    void detenerSiSuena();

private:
    void detener();
    void volverAGuardados();

    ModuloPrincipal& m_;
    // Kept as texts, as the window keeps them: the mode and melody of the last preview,
    // and the saved ones to go back to.
    QString tipoPrueba_;
    QString melodiaPrueba_;
    QString tipoGuardado_;
    QString melodiaGuardada_;
};
