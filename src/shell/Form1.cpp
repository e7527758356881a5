#include "shell/Form1.h"

#include "base/ArchivosLocales.h"
#include "base/CaminoPedido.h"
#include "base/Diario.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "history/FormInformes.h"
#include "history/FormPedidoAnterior.h"
#include "history/FormPedidosAnteriores.h"
#include "history/ResumenVentas.h"
#include "messages/Mensajes_ui.h"
#include "orders/AceptacionAutomatica.h"
#include "orders/FormPedidoNuevo.h"
#include "orders/RegistroPedido.h"
#include "orders/RespuestasPedido_ui.h"
#include "orders/Sondeo.h"
#include "orders/SondeoImpresion.h"
#include "orders/VentanaPedido_ui.h"
#include "platform/AccesosSesion.h"
#include "platform/CajaMensajes.h"
#include "platform/Controles_ui.h"
#include "platform/EjecucionProtegida.h"
#include "platform/Reloj.h"
#include "platform/SalidaAudio.h"
#include "platform/Temporizador.h"
#include "platform/Volcado_ui.h"
#include "printing/ColasImpresion.h"
#include "printing/FormTicketsSinImprimir.h"
#include "products/ListaProductos_ui.h"
#include "server/Configuracion.h"
#include "settings/FormAdmin.h"
#include "settings/FormConfig.h"
#include "settings/FormImpresoras.h"
#include "shell/CierreEstablecimiento.h"
#include "shell/LineaInfo_ui.h"
#include "shell/Logotipo_ui.h"
#include "sound/AlertaSonora.h"
#include "sound/ReproductoresQt_ui.h"
#include "sound/VigilanciaSonido.h"
#include "update/Actualizador.h"
#include "update/ComprobarActualizacion.h"
#include "update/FormActualizaTV.h"
#include "update/Procesos.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSessionManager>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

const QString kHayPendiente = cierre::HayPendiente;
const QString kSeguroCerrar = QStringLiteral(
    "¿Está seguro que desea cerrar el programa? Si lo que desea es NO RECIBIR MÁS PEDIDOS POR "
    "UN TIEMPO, por favor, responda No y utilice el botón Cerrar Temporalmente de la pantalla "
    "principal.");

template <typename T> T* crear(QWidget* padre, const char* nombre, const QString& texto = {}) {
    auto* c = new T(padre); // owned by its parent window
    c->setObjectName(QLatin1String(nombre));
    if constexpr (std::is_base_of_v<QLineEdit, T>) {
        c->setText(texto);
        c->setReadOnly(true);
    } else if constexpr (std::is_base_of_v<QGroupBox, T>) {
        c->setTitle(texto);
    } else if constexpr (!std::is_base_of_v<QTreeWidget, T>) {
        c->setText(texto);
    }
    return c;
}

// A window of another part of the desk, found by name among the top-level windows: the
// desk keeps one of each, and some are made only on first use.
QWidget* ventanaPorNombre(const char* nombre) {
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->objectName() == QLatin1String(nombre)) {
            return w;
        }
    }
    return nullptr;
}

bool ventanaVisible(const char* nombre) {
    const QWidget* w = ventanaPorNombre(nombre);
    return w != nullptr && w->isVisible();
}

Temporizador* crearTimer(QObject* padre, const char* nombre) {
    auto* t = new Temporizador(padre);
    t->setObjectName(QLatin1String(nombre));
    return t;
}

} // namespace

Form1::Form1(ModuloPrincipal& m, QStringList palabras, QWidget* padre)
    : QMainWindow(padre), m_(m), palabras_(std::move(palabras)),
      timerPedidos_(crearTimer(this, "TimerPedidos")),
      timerConfig_(crearTimer(this, "TimerConfig")),
      timerPrimeraConfig_(crearTimer(this, "TimerPrimeraConfig")),
      timerPedActualizado_(crearTimer(this, "TimerPedActualizado")),
      timerMusica_(crearTimer(this, "TimerMusica")),
      actualizador_(new Actualizador(m_, std::make_unique<ProcesosQt>(), this)) {
    setObjectName(QStringLiteral("Form1"));
    setWindowTitle(QStringLiteral("Tarvimenta"));
    construirControles();
    construirMenu();
    // The quit is also queued: the update may end the process from inside Initialize, before
    // the event loop runs.
    actualizador_->Terminar = [this] {
        Unload();
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    };
    connect(actualizador_, &Actualizador::mostrarPrincipal, this, &QWidget::show);
    connect(actualizador_, &Actualizador::rotulo, this, [this](const QString& texto) {
        findChild<QLabel*>(QStringLiteral("Label1"))->setText(texto);
    });

    connect(&m_, &ModuloPrincipal::conexionEnLinea, this, &Form1::conexionEnLinea);
    connect(&m_, &ModuloPrincipal::conexionPerdida, this, &Form1::conexionPerdida);
    lineaInfo_ = new LineaInfo(labelInfo_);
    connect(&m_, &ModuloPrincipal::textoInfo, lineaInfo_, &LineaInfo::setTexto);
    connect(&m_, &ModuloPrincipal::avisoArchivos, lineaInfo_,
            [this](const QString& t) { lineaInfo_->setAviso(QStringLiteral("archivos"), t); });
    connect(&m_, &ModuloPrincipal::modoCambiado, this, &Form1::mostrarModo);
    conectarProductos();

    alTurnoDelCamino(timerPrimeraConfig_, [this] { RefrescarConfiguracion(); });
    alTurnoDelCamino(timerPedidos_, [this] {
        if (!m_.PedidoNuevoPendiente && !m_.MensajeNuevoPendiente) {
            ComprobarPedidosNuevos();
        }
    });
    alTurnoDelCamino(timerConfig_, [this] { tickConfig(); });
    alTurnoDelCamino(timerPedActualizado_, [this] { tickPedActualizado(); });
    instalarSonido();
    // An order accepted without a window goes through the same answer as one accepted by hand,
    // without its box when the service does not take it.
    AceptarPedido = [this] { respuestasPedido().AceptarAutomaticamente(); };

    // The end of the user's session closes the desk without asking.
    connect(qApp, &QGuiApplication::commitDataRequest, this,
            [this](QSessionManager&) { cierreSinPregunta_ = true; });
}

Form1::~Form1() = default;

void Form1::construirControles() {
    auto* central = new QWidget(this);
    setCentralWidget(central);

    textEstablecimiento_ =
        crear<QLineEdit>(central, "TextEstablecimiento", QStringLiteral("No configurado"));
    textEstadoConexion_ =
        crear<QLineEdit>(central, "TextEstadoConexion", QStringLiteral("Sin conexión"));
    textEstadoApertura_ = crear<QLineEdit>(central, "TextEstadoApertura");
    textModo_ = crear<QLineEdit>(central, "TextModo", QStringLiteral("Modo impresión"));
    textModo_->hide();
    for (QLineEdit* t :
         {textEstablecimiento_, textEstadoConexion_, textEstadoApertura_, textModo_}) {
        t->setAlignment(Qt::AlignCenter);
        QFont f = t->font();
        f.setBold(true);
        f.setPointSize(f.pointSize() + 2);
        t->setFont(f);
    }
    labelInfo_ = crear<QLabel>(central, "LabelInfo");
    labelInfo_->setWordWrap(true);
    PonerColorTexto(labelInfo_, Qt::darkRed);

    butCerrar_ = crear<QPushButton>(central, "butCerrar", QStringLiteral("Cerrar Temporalmente"));
    butCerrar_->setEnabled(false);
    butCancelarCerrar_ =
        crear<QPushButton>(central, "butCancelarCerrar", QStringLiteral("Cancelar Cerrar"));
    butCancelarCerrar_->hide();
    auto* butHistorico =
        crear<QPushButton>(central, "butHistoricoPedidos", QStringLiteral("Últimos Pedidos"));
    auto* butUltimoMensaje =
        crear<QPushButton>(central, "butUltimoMensaje", QStringLiteral("Último Mensaje"));
    auto* butInformes = crear<QPushButton>(central, "butInformes", QStringLiteral("Informes"));
    connect(butHistorico, &QPushButton::clicked, this,
            [this] { protegido([this] { AbrirHistorico(); }); });
    connect(butInformes, &QPushButton::clicked, this,
            [this] { protegido([this] { AbrirInformes(); }); });
    auto* butAgotados = crear<QPushButton>(central, "CommandProductosSinIngredientes",
                                           QStringLiteral("Marcar Prod. Agotados"));
    auto* label1 = crear<QLabel>(central, "Label1", QStringLiteral("Productos Agotados:"));
    listaAgotados_ = new ListaProductos(m_, QStringLiteral("Precio"), central);
    listaAgotados_->setMinimumHeight(140);

    auto* picture1 = crear<QLabel>(central, "Picture1");
    picture1->setPixmap(Logotipo(320, 64));
    picture1->setAlignment(Qt::AlignCenter);

    // Carried by the window but never shown. The button empties the print queues; the
    // text box's Windows pattern has no use here.
    auto* resetPrinters =
        crear<QPushButton>(central, "ResetPrinters", QStringLiteral("Resetear Impresoras"));
    resetPrinters->hide();
    connect(resetPrinters, &QPushButton::clicked, this, [this] {
        protegido([this] { ReiniciarImpresoras(m_, [] { return CancelarTrabajosPendientes(); }); });
    });
    auto* textKill = crear<QLineEdit>(
        central, "TextKill", QStringLiteral("C:\\WINDOWS\\system32\\spool\\PRINTERS\\*.*"));
    textKill->hide();
    crear<QPushButton>(central, "Command3", QStringLiteral("Abre Pedido Nuevo"))->hide();
    auto* frame1 = crear<QGroupBox>(central, "Frame1", QStringLiteral("Abierto:"));
    auto* frame2 = crear<QGroupBox>(central, "Frame2", QStringLiteral("Envío:"));
    frame1->hide();
    frame2->hide();
    const char* opciones[] = {"Option1", "Option2", "Option3", "Option4", "Option5", "Option6"};
    const QString textosOpcion[] = {QStringLiteral("Sí"),         QStringLiteral("No"),
                                    QStringLiteral("Automático"), QStringLiteral("Abrir"),
                                    QStringLiteral("Cerrar"),     QStringLiteral("Activar")};
    for (int i = 0; i < 6; ++i) {
        crear<QRadioButton>(i < 3 ? frame1 : frame2, opciones[i], textosOpcion[i]);
    }
    const char* etiquetas[] = {"Label2", "Label3", "Label4", "Label5"};
    for (int i = 0; i < 4; ++i) {
        crear<QLabel>(central, etiquetas[i], i == 0 ? QStringLiteral("Desactivar") : QString())
            ->hide();
    }

    auto* rejilla = new QGridLayout(central);
    rejilla->addWidget(picture1, 0, 0, 1, 2);
    rejilla->addWidget(textEstablecimiento_, 1, 0, 1, 2);
    rejilla->addWidget(textEstadoConexion_, 2, 0);
    rejilla->addWidget(textEstadoApertura_, 2, 1);
    rejilla->addWidget(textModo_, 2, 1);
    rejilla->addWidget(butCerrar_, 3, 0);
    rejilla->addWidget(butCancelarCerrar_, 3, 1);
    rejilla->addWidget(butHistorico, 4, 0);
    rejilla->addWidget(butUltimoMensaje, 4, 1);
    connect(butUltimoMensaje, &QPushButton::clicked, this,
            [this] { protegido([this] { mensajes().PulsarUltimoMensaje(); }); });
    rejilla->addWidget(butInformes, 5, 0);
    rejilla->addWidget(butAgotados, 5, 1);
    rejilla->addWidget(label1, 6, 0, 1, 2);
    rejilla->addWidget(listaAgotados_, 7, 0, 1, 2);
    rejilla->addWidget(labelInfo_, 8, 0, 1, 2);
    auto* butSinImprimir = crear<QPushButton>(central, "butTicketsSinImprimir", QString());
    FormTicketsSinImprimir::PrepararBoton(m_, butSinImprimir);
    rejilla->addWidget(butSinImprimir, 9, 0, 1, 2);
    resize(420, 520);
}

void Form1::instalarSonido() {
    AlertaSonora& sonido = m_.sonido();
    InstalarReproductoresQt(sonido);
    AlertaSonora::Silenciadores s;
    s.TimerSilenciarActivo = [this] {
        return formPedidoNuevo_ != nullptr && formPedidoNuevo_->TimerSilenciar().enabled();
    };
    s.ProductosRechazarIngredientesPedidoVisible = [] {
        return ventanaVisible("FormProductosRechazarIngredientesPedido");
    };
    s.RechazarPedidoVisible = [] { return ventanaVisible("FormRechazarPedido"); };
    s.AceptarPedidoVisible = [] { return ventanaVisible("FormAceptarPedido"); };
    s.TimerSilenciarMensajeActivo = [] {
        const QWidget* w = ventanaPorNombre("FormMensajeNuevo");
        const auto* t =
            w ? w->findChild<Temporizador*>(QStringLiteral("TimerSilenciarMensaje")) : nullptr;
        return t != nullptr && t->enabled();
    };
    sonido.setSilenciadores(std::move(s));
    connect(&sonido, &AlertaSonora::textoMusica, this,
            [this](const QString& texto) { accionMusica_->setText(texto); });
    connect(timerMusica_, &Temporizador::tick, this,
            [this] { protegido([this] { m_.sonido().tickMusica(); }); });
    connect(accionMusica_, &QAction::triggered, this,
            [this] { protegido([this] { m_.sonido().alternarMusica(); }); });
}

bool Form1::musicaSonando() const {
    return m_.sonido().musicaSonando();
}

FormPedidoNuevo& Form1::formPedidoNuevo() {
    if (formPedidoNuevo_ == nullptr) {
        // A window of its own, owned by the main window.
        formPedidoNuevo_ = new FormPedidoNuevo(m_, this);
        RespuestasPedido::Escritorio escritorio;
        escritorio.reanudarSondeo = [this] { timerPedidos_->setEnabled(true); };
        escritorio.minimizar = [this] { showMinimized(); };
        respuestas_ = new RespuestasPedido(m_, *formPedidoNuevo_, std::move(escritorio), this);
    }
    return *formPedidoNuevo_;
}

RespuestasPedido& Form1::respuestasPedido() {
    formPedidoNuevo();
    return *respuestas_;
}

Mensajes& Form1::mensajes() {
    if (mensajes_ == nullptr) {
        Mensajes::Escritorio e;
        e.detenerSondeo = [this] { timerPedidos_->setEnabled(false); };
        e.reanudarSondeo = [this] { timerPedidos_->setEnabled(true); };
        e.vigilar = [this] {
            if (m_.IntervaloEscaneoPedActualizado >= 1) {
                timerPedActualizado_->setInterval(m_.IntervaloEscaneoPedActualizado);
                timerPedActualizado_->setEnabled(true);
            }
        };
        e.minimizar = [this] { showMinimized(); };
        mensajes_ = new Mensajes(m_, respuestasPedido(), std::move(e), this);
        // A cancellation asked for in a message answers that message.
        respuestas_->ResponderMensaje = [this](const QString& t) {
            mensajes_->ResponderMensaje(t);
        };
        // "Ver Pedido" shows the message's order, just read, in the past-order window.
        mensajes_->MostrarPedidoAnterior = [this](const QString& resumen) {
            formPedidoAnterior().Mostrar(resumen, true);
        };
    }
    return *mensajes_;
}

void Form1::construirMenu() {
    menu_ = menuBar()->addMenu(QStringLiteral("Menú"));
    menu_->setObjectName(QStringLiteral("Menu"));
    auto entrada = [this](const char* nombre, const QString& texto) {
        QAction* a = menu_->addAction(texto);
        a->setObjectName(QLatin1String(nombre));
        return a;
    };
    QAction* config = entrada("Configuracion", QStringLiteral("Configuración General"));
    QAction* impresora = entrada("Impresora", QStringLiteral("Configurarión de Impresoras"));
    connect(config, &QAction::triggered, this, [this] { protegido([this] { AbrirConfig(); }); });
    connect(impresora, &QAction::triggered, this,
            [this] { protegido([this] { AbrirImpresoras(); }); });
    QAction* actualizar = entrada("Actualizar", QStringLiteral("Actualizar Configuración"));
    accionMusica_ = entrada("Musica", QStringLiteral("Reproducir Música"));
    QAction* actualizaciones =
        entrada("Actualizaciones", QStringLiteral("Comprobar Actualizaciones"));
    connect(actualizaciones, &QAction::triggered, this,
            [this] { protegido([this] { actualizador_->ComprobarActualizacion(true); }); });
    QAction* admin = entrada("Admin", QStringLiteral("Admin"));
    connect(admin, &QAction::triggered, this, [this] { protegido([this] { AbrirAdmin(); }); });

    connect(actualizar, &QAction::triggered, this, [this] {
        protegido([this] {
            if (RefrescarConfiguracion()) {
                m_.cajas().informacion(
                    QStringLiteral("Se ha actualizado la configuración correctamente"));
            } else {
                m_.cajas().critico(QStringLiteral(
                    "No se ha podido actualizar la configuración. Por favor, compruebe su "
                    "conexión a Internet."));
            }
        });
    });
}

void Form1::alTurnoDelCamino(Temporizador* timer, const std::function<void()>& accion) {
    connect(timer, &Temporizador::tick, this, [this, accion] {
        // While an answer is on its way (a printer's box may be up), this turn is skipped.
        if (CaminoLibre(m_)) {
            protegido(accion);
        }
    });
}

void Form1::protegido(const std::function<void()>& manejador) {
    EjecutarProtegido(m_.cajas(), manejador);
    volcar();
}

void Form1::vigilarSonido(std::unique_ptr<SalidaAudio> salida) {
    auto* vigilancia = new VigilanciaSonido(m_, std::move(salida), this);
    connect(vigilancia, &VigilanciaSonido::avisoCambiado, this, [this](const QString& t) {
        lineaInfo_->setAviso(QStringLiteral("sonido"), t);
        volcar();
    });
    vigilancia->iniciar();
}

void Form1::volcar() {
    if (!volcado_.isEmpty()) {
        VolcarVentana(this, volcado_);
    }
}

bool Form1::Initialize() {
    m_.UrlBase = m_.UrlBaseHttps;
    // A folder where config.txt cannot be read or made is reported, and the desk goes on
    // as a desk without an establishment.
    protegido([this] {
        try {
            const QString aviso = LeerConfigTxt(m_);
            if (!aviso.isEmpty()) {
                m_.cajas().exclamacion(aviso);
            }
        } catch (const ErrorEjecucion& e) {
            m_.cajas().exclamacion(TextoFalloLeerConfig(e));
        }
    });
    m_.ModoActualizador = false;
    if (m_.NombreEjecutable == actualizacion::NombreActualizador) {
        m_.ModoActualizador = true;
        new FormActualizaTV(*actualizador_, this);
        actualizador_->IniciarActualizacion(palabras_);
    } else {
        m_.NoActualizar =
            !palabras_.isEmpty() && palabras_.first() == QLatin1String("noactualizar");
        setWindowState(Qt::WindowNoState);
    }
    return true;
}

bool Form1::event(QEvent* e) {
    if (e->type() == QEvent::WindowActivate) {
        protegido([this] { Activate(); });
    }
    return QMainWindow::event(e);
}

void Form1::Activate() {
    if (m_.ModoActualizador) {
        return;
    }
    const bool yaIniciado = m_.InicioHecho;
    if (!yaIniciado) {
        IniciarPrograma();
        m_.sonido().setMusicaSonando(false);
        if (m_.MinimizarTrasResp) {
            showMinimized();
        }
    }
    if (!m_.PedidoNuevoPendiente) {
        ObtenerProductosAgotados();
        // Read again: the calls above may have yielded to the event queue.
        if (!m_.PedidoNuevoPendiente && !m_.MensajeNuevoPendiente && CaminoLibre(m_) &&
            (!yaIniciado || m_.ComprobarPedidoTrasAceptar)) {
            ComprobarPedidosNuevos();
        }
    }
    listaAgotados_->MarcandoProducto = false;
}

void Form1::IniciarPrograma() {
    m_.PedidoNuevoPendiente = false;
    m_.MensajeNuevoPendiente = false;
    m_.ActualizacionComprobada = false;
    if (m_.IdEstablecimiento >= 1) {
        timerPrimeraConfig_->setInterval(3000);
        timerPrimeraConfig_->setEnabled(true);
        RefrescarConfiguracion();
    }
    PrepararSonido();
    const QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    accesos::PrepararRutas(m_, entorno);
    // Unless the user has refused it, the start-up entry comes back on every start.
    if (m_.AccesosCreados != 1) {
        AgregarInicioWindows(m_, entorno);
    }
    m_.InicioHecho = true;
}

bool Form1::RefrescarConfiguracion() {
    bool parametro = false;
    if (!ObtenerConfiguracion(m_, parametro)) {
        return false;
    }
    AplicarConfiguracion();
    timerPrimeraConfig_->setEnabled(false);
    if (m_.ComprobarActualizar && !m_.NoActualizar && !m_.ActualizacionComprobada) {
        m_.ActualizacionComprobada = true;
        ComprobarActualizacionAutomatica();
    }
    return true;
}

void Form1::AplicarConfiguracion() {
    textEstablecimiento_->setText(m_.NombreEstablecimiento);
    m_.TextoEstablecimiento = m_.NombreEstablecimiento;
    PonerFondo(textEstablecimiento_, ColorVB(colores::Verde));
    textEstadoConexion_->setText(QStringLiteral("En línea"));
    PonerFondo(textEstadoConexion_, ColorVB(colores::Verde));
    timerPedidos_->setInterval(m_.IntervaloEscaneoPedido);
    timerPedidos_->setEnabled(true);
    if (m_.IntervaloEscaneoConfiguracion > 0) {
        timerConfig_->setInterval(m_.IntervaloEscaneoConfiguracion);
        timerConfig_->setEnabled(true);
    }
    timerMusica_->setInterval(5000);
    timerMusica_->setEnabled(true);
    RellenarMotivosRechazo();
    accionMusica_->setVisible(!m_.CancelarSonido);
    PrepararSonido();
    AplicarTamannosFuente();
    AplicarAVentanasDePedido();
    CargarCarta();
}

void Form1::AplicarTamannosFuente() {
    QFont f = listaAgotados_->font();
    f.setPointSize(qMax<int>(1, m_.TamannoFuenteListasCheck));
    listaAgotados_->setFont(f);
    ::AplicarTamannosFuente(m_, &formPedidoNuevo());
    if (formConfig_ != nullptr) {
        formConfig_->AplicarTamannoListas();
    }
    // The other check lists take their sizes when their windows exist.
}

void Form1::PrepararSonido() {
    m_.sonido().PrepararMelodiaYVolumen();
}

void Form1::AplicarAVentanasDePedido() {
    formPedidoNuevo().setWindowTitle(FormPedidoNuevo::Titulo + QLatin1Char(' ') +
                                     m_.NombreEstablecimiento);
}

void Form1::RellenarMotivosRechazo() {
    respuestasPedido().RellenarMotivosRechazo();
}

// Where later windows and modules plug in; nothing of theirs exists yet.
void Form1::ComprobarActualizacionAutomatica() {
    actualizador_->ComprobarActualizacion(false);
}

void Form1::mostrarModo(qint16 modo) {
    const bool impresion = modo == 1 || modo == 2;
    textModo_->setVisible(impresion);
    textEstadoApertura_->setVisible(!impresion);
    butCerrar_->setEnabled(false);
    butCancelarCerrar_->setEnabled(!impresion);
    if (impresion) {
        textModo_->setText(modo == 1 ? QStringLiteral("Modo impresión")
                                     : QStringLiteral("Modo impresión y mensajes"));
    }
}

FormAdmin& Form1::AbrirAdmin() {
    if (formAdmin_ == nullptr) {
        formAdmin_ = new FormAdmin(
            m_, [this] { AplicarConfiguracion(); }, this);
    }
    formAdmin_->show();
    formAdmin_->raise();
    return *formAdmin_;
}

FormConfig& Form1::AbrirConfig() {
    if (formConfig_ == nullptr) {
        formConfig_ = new FormConfig(
            m_, [this] { AplicarTamannosFuente(); }, this);
    }
    formConfig_->show();
    formConfig_->raise();
    formConfig_->IniciarValores();
    return *formConfig_;
}

FormImpresoras& Form1::AbrirImpresoras() {
    if (formImpresoras_ == nullptr) {
        formImpresoras_ = new FormImpresoras(
            m_, [this] { return RefrescarConfiguracion(); }, this);
    }
    formImpresoras_->CargarDatosImpresora();
    formImpresoras_->show();
    formImpresoras_->raise();
    return *formImpresoras_;
}

void Form1::AbrirHistorico() {
    if (m_.PedidoNuevoPendiente) {
        return;
    }
    if (formPedidosAnteriores_ == nullptr) {
        formPedidosAnteriores_ = new FormPedidosAnteriores(
            m_, [this](const QString& numero) { AbrirPedidoAnterior(numero, false); }, this);
    }
    formPedidosAnteriores_->BuscarPedidos();
    formPedidosAnteriores_->show();
    formPedidosAnteriores_->raise();
}

FormPedidoAnterior& Form1::formPedidoAnterior() {
    if (formPedidoAnterior_ == nullptr) {
        formPedidoAnterior_ = new FormPedidoAnterior(m_, respuestasPedido(), this);
    }
    return *formPedidoAnterior_;
}

FormPedidoAnterior& Form1::AbrirPedidoAnterior(const QString& numero, bool encima) {
    formPedidoAnterior().Abrir(numero, encima);
    return *formPedidoAnterior_;
}

FormInformes& Form1::AbrirInformes() {
    if (formInformes_ == nullptr) {
        formInformes_ = new FormInformes(m_, this);
    }
    formInformes_->show();
    formInformes_->raise();
    return *formInformes_;
}

void Form1::tickConfig() {
    if (m_.PedidoNuevoPendiente || m_.MensajeNuevoPendiente) {
        return;
    }
    const QDateTime ahora = m_.reloj().ahora();
    // The zero date: the first tick always reads.
    const qint64 segundos = UltimaLecturaConfig.isValid() ? UltimaLecturaConfig.secsTo(ahora)
                                                          : std::numeric_limits<qint64>::max();
    if (segundos >= m_.IntervaloEscaneoConfiguracion) {
        UltimaLecturaConfig = ahora;
        RefrescarConfiguracion();
    }
}

void Form1::ComprobarPedidosNuevos() {
    if (descargado_) {
        return; // ending (handed over to the updater): no order is taken any more
    }
    // An automatic acceptance that the service did not take goes again before anything new
    // is asked for; this turn is its.
    if (m_.AceptacionPendiente && AceptarPedido) {
        AceptarPedido();
        return;
    }
    // A poll holds the road from its request to the end of what its reply brings: a tick that
    // polled again while this one waits (or reads the configuration for its order) could take
    // another order, leave its answer pending, and this order would then send that one's.
    const OcupacionCamino ocupado(m_);
    if (sondeo_impresion::EsModoImpresion(m_.Modo)) {
        ComprobarPedidosImprimir();
        return;
    }
    const QString respuesta = m_.ConsultarServidor(sondeo::RutaPedidosNuevos(m_));
    const sondeo::Respuesta clase = sondeo::Clasificar(respuesta);
    switch (clase) {
    case sondeo::Respuesta::EstadoApertura:
        mostrarApertura(respuesta);
        break;
    case sondeo::Respuesta::Pedido:
        caminoPedido(respuesta);
        break;
    case sondeo::Respuesta::Mensaje:
        mensajes().RecibirMensaje(respuesta);
        break;
    case sondeo::Respuesta::ImprimirSesion:
    case sondeo::Respuesta::ImprimirDia: {
        // No window: the ticket goes to slot 1 and no order is taken while it prints.
        const OcupacionCamino ocupado(m_);
        ImprimirResumenVentas(
            m_, clase == sondeo::Respuesta::ImprimirDia ? resumen::Hoy : resumen::UltimaSesionHoy);
        break;
    }
    case sondeo::Respuesta::ForzarActualizacion:
        actualizador_->LanzarActualizador();
        break;
    case sondeo::Respuesta::Nada:
        break;
    }
}

void Form1::caminoPedido(QString respuesta) {
    if (m_.ActualizarConfigConPedido) {
        // Only the variables change: nothing is applied to the windows here.
        bool parametro = true;
        ObtenerConfiguracion(m_, parametro);
    }
    ParsearPedido(m_, respuesta);
    m_.UltimoIdPedido = m_.PedidoActual.NumPedido;
    qCInfo(diarioPedidos).noquote() << "pedido" << m_.PedidoActual.NumPedido << "recibido, total"
                                    << m_.PedidoActual.TotalPedido;
    if (AceptarPedido && DecidirAceptacionAutomatica(m_)) {
        // Accepted without a window: no sound, no screen.
        AceptarPedido();
        return;
    }

    m_.PedidoNuevoPendiente = true;
    timerPedidos_->setEnabled(false);
    m_.sonido().ReproducirSonido();
    for (const char* nombre : {"FormPedidosAnteriores", "FormPedidoAnterior"}) {
        if (QWidget* w = ventanaPorNombre(nombre); w != nullptr && w->isVisible()) {
            w->hide();
        }
    }
    FormPedidoNuevo& ventana = formPedidoNuevo();
    // A failure while painting is reported, and the window still comes up: the order is
    // pending now and only an answer to it starts the polling again.
    EjecutarProtegido(m_.cajas(), [&] { RellenarVentanaPedido(m_, &ventana); });
    if (m_.OcultarDatosPerson) {
        ventana.CubrirDatosPersonales();
    }
    ventana.setWindowState(ventana.windowState() & ~Qt::WindowMinimized);
    ventana.show();
    ColocarVentana(&ventana, true);
    qCInfo(diarioPedidos).noquote() << "pedido" << m_.PedidoActual.NumPedido << "en pantalla";
    ventana.IniciarParpadeo();
    if (m_.IntervaloEscaneoPedActualizado >= 1) {
        timerPedActualizado_->setInterval(m_.IntervaloEscaneoPedActualizado);
        timerPedActualizado_->setEnabled(true);
    }
}

void Form1::mostrarApertura(const QString& respuesta) {
    const sondeo::Apertura a = sondeo::LeerApertura(respuesta);
    textEstadoApertura_->setText(a.texto);
    PonerFondo(textEstadoApertura_, ColorVB(a.colorFondo));
    butCancelarCerrar_->setVisible(a.cancelarCerrarVisible);
    butCerrar_->setVisible(a.cerrarVisible);
    if (a.habilitarCerrar) {
        butCerrar_->setEnabled(true);
    }
}

void Form1::conexionEnLinea() {
    textEstadoConexion_->setText(QStringLiteral("En línea"));
    PonerFondo(textEstadoConexion_, ColorVB(colores::Verde));
}

void Form1::conexionPerdida() {
    textEstadoConexion_->setText(QStringLiteral("Sin conexión"));
    PonerFondo(textEstadoConexion_, ColorVB(colores::Rojo));
    textEstadoApertura_->setText(QStringLiteral("??"));
    PonerFondo(textEstadoApertura_, ColorVB(colores::Blanco));
}

bool Form1::QueryUnload(int razon) {
    if (razon != 0) {
        return true;
    }
    if (m_.PedidoNuevoPendiente || m_.MensajeNuevoPendiente) {
        m_.cajas().mostrar(kHayPendiente);
        return false;
    }
    if (m_.cajas().mostrar(kSeguroCerrar, estilo::SiNo + estilo::Pregunta) != respuesta::Si) {
        return false;
    }
    if (m_.RestId != 3) {
        // Closing the program closes the establishment on the service; 3 is exempt.
        m_.ConsultarServidor(QStringLiteral("establecimiento/cerrarAbrirEstablecHasta?id=") +
                             QString::number(m_.RestId) + QStringLiteral("&accion=C"));
    }
    return true;
}

void Form1::closeEvent(QCloseEvent* e) {
    if (descargado_) {
        e->accept();
        return;
    }
    bool cerrar = true;
    const int razon = (!cierreSinPregunta_ && e->spontaneous()) ? 0 : 1;
    protegido([&] { cerrar = QueryUnload(razon); });
    if (!cerrar) {
        e->ignore();
        return;
    }
    e->accept();
    Unload();
}

void Form1::Unload() {
    if (descargado_) {
        return;
    }
    descargado_ = true;
    for (Temporizador* t :
         {timerConfig_, timerMusica_, timerPedActualizado_, timerPedidos_, timerPrimeraConfig_}) {
        t->setEnabled(false);
    }
    if (formPedidoNuevo_ != nullptr) {
        formPedidoNuevo_->TimerColorFondo().setEnabled(false);
        formPedidoNuevo_->TimerSilenciar().setEnabled(false);
    }
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w != this) {
            w->hide();
        }
    }
    hide();
    QApplication::quit();
}
