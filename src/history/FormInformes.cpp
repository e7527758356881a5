#include "history/FormInformes.h"

#include "base/ModuloPrincipal.h"
#include "history/ResumenVentas.h"
#include "platform/EjecucionProtegida.h"
#include "platform/Reloj.h"

#include <QDateEdit>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

FormInformes::FormInformes(ModuloPrincipal& m, QWidget* padre) : QWidget(padre, Qt::Window), m_(m) {
    setObjectName(QStringLiteral("FormInformes"));
    setWindowTitle(QStringLiteral("Informes"));
    const QDate hoy = m_.reloj().ahora().date();

    auto* rejilla = new QGridLayout(this);
    struct Boton {
        const char* nombre;
        QString texto;
        qint16 opcion;
    };
    const Boton periodos[] = {
        {"butHoy", QStringLiteral("Ventas Hoy"), resumen::Hoy},
        {"butAyer", QStringLiteral("Ventas Ayer"), resumen::Ayer},
        {"butUltimaSesion", QStringLiteral("Ventas Última Sesión Hoy"), resumen::UltimaSesionHoy},
        {"Command1", QStringLiteral("Ventas Última Sesión Ayer"), resumen::UltimaSesionAyer},
    };
    int fila = 0;
    for (const Boton& b : periodos) {
        auto* boton = new QPushButton(b.texto, this);
        boton->setObjectName(QLatin1String(b.nombre));
        boton->setMinimumHeight(40);
        rejilla->addWidget(boton, fila++, 0, 1, 3);
        const qint16 opcion = b.opcion;
        connect(boton, &QPushButton::clicked, this, [this, opcion] { imprimir(opcion); });
    }
    auto* cab = new QLabel(QStringLiteral("Por fechas:"), this);
    cab->setObjectName(QStringLiteral("labcabporfechas"));
    desde_ = new QDateEdit(hoy.addDays(-7), this);
    desde_->setObjectName(QStringLiteral("DTDesdeInf"));
    hasta_ = new QDateEdit(hoy, this);
    hasta_->setObjectName(QStringLiteral("DTHastaInf"));
    for (QDateEdit* d : {desde_, hasta_}) {
        d->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
        d->setCalendarPopup(true);
    }
    auto* porFechas = new QPushButton(QStringLiteral("Imprimir"), this);
    porFechas->setObjectName(QStringLiteral("Command2"));
    rejilla->addWidget(cab, fila++, 0, 1, 3);
    rejilla->addWidget(desde_, fila, 0);
    rejilla->addWidget(hasta_, fila, 1);
    rejilla->addWidget(porFechas, fila++, 2);
    auto* cerrar = new QPushButton(QStringLiteral("Cerrar"), this);
    cerrar->setObjectName(QStringLiteral("butCerrar"));
    rejilla->addWidget(cerrar, fila, 2);
    resize(340, 300);
    connect(porFechas, &QPushButton::clicked, this, [this] { imprimir(resumen::PorFechas); });
    connect(cerrar, &QPushButton::clicked, this, &QWidget::hide);
}

void FormInformes::imprimir(qint16 opcion) {
    EjecutarProtegido(m_.cajas(), [&] {
        ImprimirResumenVentas(m_, opcion, resumen::Fechas{desde_->date(), hasta_->date()});
    });
}
