#pragma once

#include "base/ClassConfigImpresora.h"
#include "base/Pedido.h"

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QStringList>
#include <array>
#include <memory>
#include <optional>

class Reloj;
class CajaMensajes;
class Pasarela;
class CanalHttp;
class AlertaSonora;
class CanalEP;
class ImpresorasDW;
class TicketsSinImprimir;
class Carta;
class DiccionarioJson;

// The program's one piece of global state: identification, configuration variables,
// the order record, the printer slots and the flags. The program makes one; each test
// makes its own. The services every part uses (clock, message boxes, the gateway, the
// sound, the printing channels) are owned here and can be replaced before use.
class ModuloPrincipal : public QObject {
    Q_OBJECT
public:
    static inline const QString Version = QStringLiteral("1.6.2");
    static inline const QString ClaveAjustes = QStringLiteral("tarbelunde73");
    // The service's base, without scheme; "https://" or "http://" is put in front.
    static inline const QString ServidorPorDefecto = QStringLiteral("pedidos.tarvimenta.com/api/");

    explicit ModuloPrincipal(QObject* padre = nullptr);

    // --- services ----------------------------------------------------------------------
    // Each service is made on first use by the subsystem that provides it: its accessor is
    // defined beside the service (platform/, server/, sound/, printing/), so the program's
    // state needs none of their definitions and stays at the bottom of the house. Tests and
    // the window side replace them before use.
    Reloj& reloj() const;
    CajaMensajes& cajas() const;
    Pasarela& pasarela();
    // The alert melody (its players are set by the window side).
    AlertaSonora& sonido();
    // The one channel of raw ticket printing (tests replace its opener).
    CanalEP& canalEP() const;
    // The system's driver printers (none until the window side installs its own).
    ImpresorasDW& impresorasDW() const;
    void setImpresorasDW(std::unique_ptr<ImpresorasDW> i);
    // The copies that could not be printed, kept beside config.txt (read on first use).
    TicketsSinImprimir& ticketsSinImprimir() const;
    void setReloj(std::unique_ptr<Reloj> r);
    void setCajas(std::unique_ptr<CajaMensajes> c);
    // Puts `c` in place of the message boxes and returns the ones it replaced.
    std::shared_ptr<CajaMensajes> cambiarCajas(std::shared_ptr<CajaMensajes> c);
    // Replaces the gateway's three channels (direct, first and second control).
    void setCanales(std::unique_ptr<CanalHttp> directo, std::unique_ptr<CanalHttp> inet1,
                    std::unique_ptr<CanalHttp> inet2);

    // The one road to the service (see Pasarela).
    QString ConsultarServidor(const QString& ruta);

    // --- where things are ----------------------------------------------------------
    QString CarpetaDatos;      // config.txt and ultpedim.txt
    QString CarpetaAplicacion; // App.Path: the executable's folder (melodies, updater)
    QString NombreEjecutable = QStringLiteral("TarvimentaPedidos"); // App.EXEName

    // Sets both base forms from "host[:port]/path/" and starts on https.
    void setServidor(const QString& baseSinEsquema);
    QString UrlBase;
    QString UrlBaseHttps;
    QString UrlBaseHttp;
    bool enHttps() const { return UrlBase == UrlBaseHttps; }

    // --- identification (config.txt) -----------------------------------------------
    qint32 IdEstablecimiento = 0;
    QString PasswordConfig;
    QString ImpresoraAntigua;
    QString Reservado;
    QString PasswordConfigCifrada;
    qint16 AccesosCreados = 0;
    qint16 MetconGuardado = 0;
    qint16 NumConfig = 0;
    QString RutaConfigTxt;
    QString RutaUltPedIm;
    QString UltPedIm;
    // Start-up entries: the desktop entry and the session autostart entry.
    QString RutaAccesoEscritorio;
    QString RutaAccesoInicio;

    // After a first configuration reading.
    qint32 RestId = 0;
    QString Pgprs;

    // --- flags and run state --------------------------------------------------------
    bool InicioHecho = false;
    bool PedidoNuevoPendiente = false;
    bool MensajeNuevoPendiente = false;
    bool NoActualizar = false;
    bool ModoActualizador = false;
    bool ActualizacionComprobada = false;
    // Holders of the order road (see CaminoPedido.h): while above 0 no timer takes an order.
    int CaminoOcupado = 0;
    qint16 Modo = 0;
    qint16 Metcon = 0;

    // --- configuration variables (server keys in lower case) --------------------------
    QString NombreEstablecimiento;
    qint32 IntervaloEscaneoPedido = 0;
    qint32 IntervaloEscaneoConfiguracion = 0;
    qint32 NumeroPedidosHistorico = 0;
    bool AbreDialogImpresion = false;
    QString TextoCabecera;
    QString TextoPiePagina;
    bool MostrarQuienA = false;
    bool MostrarCpr = false;
    bool MostrarCprTic = false;
    bool MinimizarTrasResp = false;
    bool CancelarSonido = false;
    bool ParpadeoPedNuevo = false;
    qint16 IntensidadParpadeo = 0;
    qint32 IntervaloEscaneoPedActualizado = 0;
    qint16 TamannoFuentePrincipales = 0;
    qint16 TamannoFuenteListasCheck = 0;
    qint16 TipoReproAudio = 0;
    QString MelodiaPedNuevo;
    qint16 VolumenMelodiaWmp = 0;
    bool WebParticular = false;
    bool OcultarDatosPerson = false;
    bool PrintResumenAuto = false;
    qint16 AceptarAutoDomicilio = 0;
    qint16 AceptarAutoRecoger = 0;
    bool ActualizarConfigConPedido = false;
    bool ComprobarActualizar = false;
    bool MostrarSinTiempo = false;
    qint16 RechazarAceptado = 0;
    bool ImprimirAntesAceptar = false;
    bool ComprobarPedidoTrasAceptar = false;
    QStringList MotivosRechazo;

    // --- printers --------------------------------------------------------------------
    std::array<ClassConfigImpresora, 10> Impresoras{};
    // Slot n, 1 to 10 (Impresora1 .. Impresora10).
    ClassConfigImpresora& Impresora(int n) { return Impresoras.at(static_cast<size_t>(n - 1)); }
    int ImpresoraActual = 1; // slot being edited in the printer settings

    // The menu, kept for the run with its out-of-stock marks (made on first use).
    Carta& carta();

    // --- the order ---------------------------------------------------------------------
    Pedido PedidoActual;
    QString UltimoIdPedido;
    // An automatic acceptance that the service did not take: the order, its number and
    // whether its tickets are already out. It is sent again before the next poll.
    struct AceptacionSinTomar {
        Pedido pedido;
        QString id;
        bool impreso = false;
    };
    std::optional<AceptacionSinTomar> AceptacionPendiente;

    // --- the last message of the service (none until the first one arrives) ------------
    std::shared_ptr<DiccionarioJson> MensajeActual;

    // Text shown in the main window's establishment box (orders copy it at parse time).
    QString TextoEstablecimiento = QStringLiteral("No configurado");

Q_SIGNALS:
    // The gateway's connection display: "En línea" green, or "Sin conexión" red with "??".
    void conexionEnLinea();
    void conexionPerdida();
    // A one-line problem text for the main window's LabelInfo.
    void textoInfo(const QString& texto);
    // A lasting problem with the local files (a write that failed), shown in LabelInfo
    // beside whatever else it says; an empty text once the files are written again.
    void avisoArchivos(const QString& texto);
    // A configuration reading brought the operating mode (0 normal, 1 print only, 2 print
    // and messages; anything else behaves as 0): the main window switches its display.
    void modoCambiado(qint16 modo);
    // The configuration asks for the list of products out of stock to be read now.
    void actualizarAgotados();

private:
    // shared_ptr: each keeps the deleter of the type it was made with, so this class is
    // destroyed without their definitions.
    mutable std::shared_ptr<Reloj> reloj_;
    mutable std::shared_ptr<CajaMensajes> cajas_;
    std::shared_ptr<Pasarela> pasarela_;
    std::shared_ptr<AlertaSonora> sonido_;
    mutable std::shared_ptr<CanalEP> canalEP_;
    mutable std::shared_ptr<ImpresorasDW> impresorasDW_;
    mutable std::shared_ptr<TicketsSinImprimir> ticketsSinImprimir_;
    std::shared_ptr<Carta> carta_;
};
