#pragma once

#include <QDateTime>
#include <QMainWindow>
#include <QStringList>
#include <functional>
#include <memory>

class ModuloPrincipal;
class Temporizador;
class QLineEdit;
class QLabel;
class QPushButton;
class ListaProductos;
class FormCerrarEstablec;
class FormProductosRechazarIngredientes;
class QAction;
class QMenu;
class FormPedidoNuevo;
class FormAdmin;
class FormConfig;
class FormImpresoras;
class FormPedidosAnteriores;
class FormPedidoAnterior;
class FormInformes;
class RespuestasPedido;
class Mensajes;
class Actualizador;
class LineaInfo;
class SalidaAudio;

// The main window: the anchor of the whole desk from start to end. It owns the five
// timers that drive every repeating activity and shows who the desk is, whether the
// service answers, and whether the establishment is open.
class Form1 : public QMainWindow {
    Q_OBJECT
public:
    Form1(ModuloPrincipal& m, QStringList palabras, QWidget* padre = nullptr);
    ~Form1() override;

    // The program's first code. False means the process must end at once, silently
    // (another desk already runs this installation).
    bool Initialize();

    void IniciarPrograma();
    bool RefrescarConfiguracion();
    void AplicarConfiguracion();
    void ComprobarPedidosNuevos();
    // Modes 1 and 2: the poll that prints orders accepted elsewhere (Form1Impresion.cpp).
    void ComprobarPedidosImprimir();
    // The product and closing windows, made on first use.
    FormProductosRechazarIngredientes& formProductos();
    FormCerrarEstablec& formCerrarEstablec();
    // Closing for a while (a button of the closing window) and opening again.
    void CerrarTemporalmente(int indice);
    void CancelarCerrar();
    void ObtenerProductosAgotados();
    ListaProductos& listaAgotados() { return *listaAgotados_; }
    // The login window, made on first use and hidden rather than closed.
    FormAdmin& AbrirAdmin();
    // The general and the printer settings, made on first use and hidden rather than closed.
    FormConfig& AbrirConfig();
    FormImpresoras& AbrirImpresoras();
    // The history (searched at each opening), one past order (on top when a message window
    // asks for it) and the sales summaries; made on first use and hidden rather than closed.
    void AbrirHistorico();
    FormPedidoAnterior& AbrirPedidoAnterior(const QString& numero, bool encima);
    FormPedidoAnterior& formPedidoAnterior();
    FormInformes& AbrirInformes();

    // The new-order window, made on first use and kept to the end.
    FormPedidoNuevo& formPedidoNuevo();
    FormPedidoNuevo* formPedidoNuevoSiExiste() const { return formPedidoNuevo_; }
    // The answer flow of the order on screen (its windows come with the new-order window).
    RespuestasPedido& respuestasPedido();
    // The message flow (its windows are made on first use).
    Mensajes& mensajes();
    // The acceptance of an order without a window (automatic acceptance). While it is not
    // set, every order goes on screen.
    std::function<void()> AceptarPedido;

    // The closing question. `razon` 0 is the user's closing of the window, the only one
    // that asks; any other (code, end of session) closes without a question. True when the
    // desk may close.
    bool QueryUnload(int razon);
    // Stops every timer, closes every other window and ends the program.
    void Unload();

    ModuloPrincipal& modulo() { return m_; }
    Actualizador& actualizador() { return *actualizador_; }
    // Keeps a file with what the window shows, rewritten after every event handled.
    void setVolcado(const QString& fichero) { volcado_ = fichero; }
    void volcar();
    // From now on, and every few minutes, LabelInfo says so while `salida` tells that the
    // alert melody could not be heard.
    void vigilarSonido(std::unique_ptr<SalidaAudio> salida);
    Temporizador& TimerPedidos() { return *timerPedidos_; }
    Temporizador& TimerConfig() { return *timerConfig_; }
    Temporizador& TimerPrimeraConfig() { return *timerPrimeraConfig_; }
    Temporizador& TimerPedActualizado() { return *timerPedActualizado_; }
    Temporizador& TimerMusica() { return *timerMusica_; }

    // Whether the sound was started by hand from the Musica entry.
    bool musicaSonando() const;
    QDateTime UltimaLecturaConfig; // the zero date until the first periodic reading

protected:
    bool event(QEvent* e) override;
    void closeEvent(QCloseEvent* e) override;

private:
    void construirControles();
    void construirMenu();
    void Activate();
    void tickConfig();
    void mostrarApertura(const QString& respuesta);
    void caminoPedido(QString respuesta);
    // The status watch (Form1Vigilancia.cpp).
    void tickPedActualizado();
    void vigilarPedido();
    void vigilarMensaje();
    void instalarSonido();
    void conexionEnLinea();
    void conexionPerdida();
    void protegido(const std::function<void()>& manejador);
    // Connects a timer whose work touches the order road: its turn waits while the road is busy.
    void alTurnoDelCamino(Temporizador* timer, const std::function<void()>& accion);
    void mostrarModo(qint16 modo);
    void AplicarTamannosFuente();
    void PrepararSonido();
    void RellenarMotivosRechazo();
    void AplicarAVentanasDePedido();
    void CargarCarta();
    void conectarProductos();
    void ComprobarActualizacionAutomatica();

    ModuloPrincipal& m_;
    QStringList palabras_;
    QString volcado_;
    bool cierreSinPregunta_ = false;
    bool descargado_ = false;

    Temporizador* timerPedidos_;
    Temporizador* timerConfig_;
    Temporizador* timerPrimeraConfig_;
    Temporizador* timerPedActualizado_;
    Temporizador* timerMusica_;

    QLineEdit* textEstablecimiento_ = nullptr;
    QLineEdit* textEstadoConexion_ = nullptr;
    QLineEdit* textEstadoApertura_ = nullptr;
    QLineEdit* textModo_ = nullptr;
    QLabel* labelInfo_ = nullptr;
    LineaInfo* lineaInfo_ = nullptr;
    QPushButton* butCerrar_ = nullptr;
    QPushButton* butCancelarCerrar_ = nullptr;
    ListaProductos* listaAgotados_ = nullptr;
    FormCerrarEstablec* formCerrar_ = nullptr;
    FormProductosRechazarIngredientes* formProductos_ = nullptr;
    QMenu* menu_ = nullptr;
    QAction* accionMusica_ = nullptr;
    FormPedidoNuevo* formPedidoNuevo_ = nullptr;
    RespuestasPedido* respuestas_ = nullptr;
    Mensajes* mensajes_ = nullptr;
    FormAdmin* formAdmin_ = nullptr;
    Actualizador* actualizador_;
    FormConfig* formConfig_ = nullptr;
    FormImpresoras* formImpresoras_ = nullptr;
    FormPedidosAnteriores* formPedidosAnteriores_ = nullptr;
    FormPedidoAnterior* formPedidoAnterior_ = nullptr;
    FormInformes* formInformes_ = nullptr;
};
