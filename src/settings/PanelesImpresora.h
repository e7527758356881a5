#pragma once

#include "base/ClassConfigImpresora.h"

#include <QString>
#include <array>
#include <functional>

class ModuloPrincipal;

// What one printer panel of the printer settings shows and which of its controls are
// enabled: the window draws it and reads it back, the logic below fills it from a record
// and turns it into the service's requests. Fields hold the texts as typed.
struct PanelImpresora {
    static inline const QString Ninguna = QStringLiteral("-- Ninguna --");

    QString Nombre = Ninguna; // comImpresora
    bool OpcionDW = false;    // OptionDriversWindows
    bool OpcionEP = false;    // OptionESCPOS
    QString CopiasAceptado = QStringLiteral("2");
    QString CopiasAceptadoRecoger;
    QString CopiasRechazado = QStringLiteral("0");
    bool Cocina = false; // CheckCocina, slots 2 to 10

    // Driver printing.
    QString AnchoPapel = QStringLiteral("80");
    QString Fuente = QStringLiteral("Lucida Console");
    QString FactorFuente = QStringLiteral("3,8448");
    QString TamannoFuentePeque = QStringLiteral("10");
    QString TamannoFuenteGrande = QStringLiteral("14");
    QString MargenLineas = QStringLiteral("60");
    QString InicioX = QStringLiteral("0");
    QString InicioY = QStringLiteral("0");

    // Raw ESC/POS printing.
    QString Conexion = QStringLiteral("Com1:9600,n,8,1");
    QString NColumnas = QStringLiteral("48");
    QString Inicializar = QStringLiteral("27,64");
    QString ConfigCaracteres = QStringLiteral("27,116,19");
    QString ActDobleAlto = QStringLiteral("27,33,48");
    QString DesactDobleAlto = QStringLiteral("27,33,0");
    QString CortarPapel = QStringLiteral("29,86,66,0");
    QString SubirLineas = QStringLiteral("27,100,3");
    QString ExtrasFin;
    bool ReempCEsp = false;
    bool PC858 = false;

    // Enabled state: the three copy fields, butExtraConf, butCocina.
    bool CopiasHabilitadas = true;
    bool ExtraHabilitado = true;
    bool CocinaHabilitado = false;
};

using PanelesImpresora = std::array<PanelImpresora, 10>;

namespace paneles_impresora {

inline const QString FaltaTipo =
    QStringLiteral("Debe seleccionar Tipo de impresión para la Impresora ");
inline const QString FaltaImpresora = QStringLiteral("Debe seleccionar una Impresora ");

// Fills panel `slot` (1 to 10) from its record. A slot without a printer shows "-- Ninguna
// --" and disables its copies; the fields the record has no value for keep what they show.
void CargarPanel(PanelImpresora& panel, const ClassConfigImpresora& registro, int slot);

// A choice in comImpresora. A first printer in an empty slot starts with line breaks
// between options, separators between products and the delivery time on.
void ElegirImpresora(PanelImpresora& panel, ClassConfigImpresora& registro, const QString& nombre);

// The shared printer path that the first panel's "<-" starts: "\\" host "\".
QString InicioRutaCompartida(const QString& equipo);

// The raw printer that the panel's "Test" button prints on: the name, the character options,
// the connection and the commands as they stand in the panel. A column count that is empty or
// no number is a run-time error.
ClassConfigImpresora RegistroDePrueba(const PanelImpresora& panel);

// The driver printer that the panel's driver "Test" button prints on: the name and the eight
// driver fields as they stand in the panel, and the separator the save would keep from the
// saved record `guardado`. A field that is no number is a run-time error.
ClassConfigImpresora RegistroDePruebaDW(const PanelImpresora& panel,
                                        const ClassConfigImpresora& guardado);

// The text of the box that stops a save before anything is sent, or empty when all ten
// panels can be saved: a printer without a type, or a type without a printer.
QString ComprobarPaneles(const PanelesImpresora& paneles);

// The requests that remove and write slot `slot` of the module.
QString PeticionEliminar(const ModuloPrincipal& m, int slot);
QString PeticionActualizar(const ModuloPrincipal& m, int slot);

// The save: a refused panel shows its box and nothing is sent (false). Otherwise every slot
// from 1 to 10 is rebuilt from its panel, keeping what the sub-windows edit, and written or
// removed on the service, one request each, their answers dropped. A numeric field that is
// empty or no number in the active mode is a run-time error; the slots before it were sent.
// Reading the configuration again afterwards is the caller's.
bool GuardarImpresoras(ModuloPrincipal& m, const PanelesImpresora& paneles);

} // namespace paneles_impresora
