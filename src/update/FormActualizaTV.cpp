#include "update/FormActualizaTV.h"

#include "update/Actualizador.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>
#include <limits>

FormActualizaTV::FormActualizaTV(Actualizador& actualizador, QWidget* padre)
    : QWidget(padre, Qt::Window | Qt::WindowStaysOnTopHint | Qt::WindowTitleHint |
                         Qt::CustomizeWindowHint),
      label1_(new QLabel(QStringLiteral("Descargando actualización, por favor espere..."), this)),
      progressBar1_(new QProgressBar(this)) {
    setObjectName(QStringLiteral("FormActualizaTV"));
    setWindowTitle(Titulo);
    label1_->setObjectName(QStringLiteral("Label1"));
    progressBar1_->setObjectName(QStringLiteral("ProgressBar1"));
    progressBar1_->setTextVisible(true);
    auto* capa = new QVBoxLayout(this);
    capa->setContentsMargins(24, 20, 24, 20);
    capa->setSpacing(14);
    capa->addWidget(label1_);
    capa->addWidget(progressBar1_);
    setMinimumWidth(460);
    mostrarProgreso(0, -1);

    connect(&actualizador, &Actualizador::progreso, this, &FormActualizaTV::mostrarProgreso);
    connect(&actualizador, &Actualizador::mostrarVentana, this, [this] {
        show();
        raise();
    });
    connect(&actualizador, &Actualizador::ocultarVentana, this, &QWidget::hide);
}

void FormActualizaTV::mostrarProgreso(qint64 recibidos, qint64 total) {
    if (total <= 0) {
        // Nothing announced yet: the bar only shows that something is on the way.
        progressBar1_->setRange(0, recibidos > 0 ? 0 : 1);
        progressBar1_->setValue(0);
        return;
    }
    const int escala = total > std::numeric_limits<int>::max() ? 1024 : 1;
    progressBar1_->setRange(0, static_cast<int>(total / escala));
    progressBar1_->setValue(static_cast<int>(qMin(recibidos, total) / escala));
}
