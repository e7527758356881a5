#include "VentanaTickets.h"

#include "DibujoTicket.h"
#include "InterpreteEscPos.h"

#include <QFile>
#include <QFileSystemWatcher>
#include <QLabel>
#include <QProcess>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int kAnchoTicket = 300; // pixels of paper on screen
constexpr int kColumnas = 48;
constexpr qsizetype kMaximo = 40; // a long demo keeps only the newest on screen

} // namespace

VentanaTickets::VentanaTickets(const QString& carpeta, QWidget* padre)
    : QWidget(padre), carpeta_(carpeta), estado_(new QLabel(this)), lista_(nullptr),
      vigia_(new QFileSystemWatcher(this)), espera_(new QTimer(this)) {
    setObjectName(QStringLiteral("VentanaTickets"));
    setWindowTitle(QStringLiteral("Tickets impresos"));
    auto* raiz = new QVBoxLayout(this);
    raiz->setContentsMargins(6, 6, 6, 6);
    estado_->setWordWrap(true);
    raiz->addWidget(estado_);
    auto* desplazable = new QScrollArea(this);
    desplazable->setWidgetResizable(true);
    desplazable->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* contenido = new QWidget(desplazable);
    contenido->setObjectName(QStringLiteral("ListaTickets"));
    contenido->setStyleSheet(QStringLiteral("#ListaTickets { background: #6b6b6b; }"));
    lista_ = new QVBoxLayout(contenido);
    lista_->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    desplazable->setWidget(contenido);
    raiz->addWidget(desplazable, 1);
    setMinimumWidth(kAnchoTicket + 50);

    // A printer writes a file in several steps: wait for the folder to settle a little.
    espera_->setSingleShot(true);
    espera_->setInterval(300);
    connect(espera_, &QTimer::timeout, this, &VentanaTickets::refrescar);
    vigia_->addPath(carpeta_);
    connect(vigia_, &QFileSystemWatcher::directoryChanged, espera_, qOverload<>(&QTimer::start));
    // A copy rewritten in place changes no entry of the folder; look now and then as well.
    auto* ronda = new QTimer(this);
    connect(ronda, &QTimer::timeout, this, &VentanaTickets::refrescar);
    ronda->start(2000);
    refrescar();
}

QImage VentanaTickets::imagenDe(const TicketEnCarpeta& t) {
    auto it = dibujos_.find(t.archivo);
    if (it != dibujos_.end() && it->first == t.cuando) {
        return it->second;
    }
    QImage imagen;
    if (t.pdf) {
        if (t.imagen.isEmpty()) {
            dibujarPdf(t.archivo);
            return imagen; // not kept: the picture comes with a later look at the folder
        }
        imagen.load(t.imagen);
    } else {
        QFile f(t.archivo);
        if (f.open(QIODevice::ReadOnly)) {
            imagen = DibujarTicket(InterpretarEscPos(f.readAll()), kColumnas);
        }
    }
    if (!imagen.isNull()) {
        imagen = imagen.scaledToWidth(kAnchoTicket, Qt::SmoothTransformation);
    }
    dibujos_.insert(t.archivo, {t.cuando, imagen});
    return imagen;
}

void VentanaTickets::dibujarPdf(const QString& archivo) {
    if (pdfPedidos_.contains(archivo)) {
        return;
    }
    pdfPedidos_.insert(archivo);
    // Its first page as a picture beside it, by poppler's tool when there is one.
    auto* proceso = new QProcess(this);
    connect(proceso, &QProcess::finished, proceso, &QObject::deleteLater);
    connect(proceso, &QProcess::errorOccurred, proceso, &QObject::deleteLater);
    const QString base = archivo.left(archivo.size() - 4);
    proceso->start(QStringLiteral("pdftoppm"),
                   {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("110"),
                    QStringLiteral("-singlefile"), archivo, base});
    QTimer::singleShot(20000, proceso, &QProcess::kill);
}

void VentanaTickets::refrescar() {
    const QList<TicketEnCarpeta> todos = ListarTickets(carpeta_);
    const QList<TicketEnCarpeta> tickets = todos.mid(0, kMaximo);
    QList<std::pair<QString, QDateTime>> ahora;
    for (const TicketEnCarpeta& t : tickets) {
        // A PDF whose picture comes later counts as changed when it comes.
        ahora.append({t.archivo + t.imagen, t.cuando});
    }
    if (ahora == mostrados_ && !mostrados_.isEmpty()) {
        return;
    }
    mostrados_ = ahora;
    estado_->setText(tickets.isEmpty() ? QStringLiteral("Esperando tickets en %1").arg(carpeta_)
                                       : QStringLiteral("%1 tickets en %2; el más nuevo arriba.")
                                             .arg(todos.size())
                                             .arg(carpeta_));
    QHash<QString, std::pair<QDateTime, QImage>> usados;
    for (const TicketEnCarpeta& t : tickets) {
        if (auto it = dibujos_.constFind(t.archivo); it != dibujos_.cend()) {
            usados.insert(t.archivo, *it);
        }
    }
    dibujos_ = std::move(usados);
    while (QLayoutItem* item = lista_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (const TicketEnCarpeta& t : tickets) {
        QWidget* contenido = lista_->parentWidget();
        auto* titulo = new QLabel(QStringLiteral("<b>%1</b> · %2%3")
                                      .arg(t.impresora.toHtmlEscaped(),
                                           t.cuando.toString(QStringLiteral("HH:mm:ss")),
                                           t.pdf ? QStringLiteral(" · PDF") : QString()),
                                  contenido);
        titulo->setStyleSheet(QStringLiteral("color: white;"));
        lista_->addWidget(titulo);
        auto* papel = new QLabel(contenido);
        const QImage imagen = imagenDe(t);
        if (imagen.isNull()) {
            papel->setText(t.pdf ? QStringLiteral("(imagen del PDF en preparación)")
                                 : QStringLiteral("(no se puede leer)"));
            papel->setStyleSheet(QStringLiteral("color: white;"));
        } else {
            papel->setPixmap(QPixmap::fromImage(imagen));
        }
        lista_->addWidget(papel);
    }
}
