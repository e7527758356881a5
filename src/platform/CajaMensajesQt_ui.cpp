#include "platform/CajaMensajesQt_ui.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

int CajaMensajesQt::mostrar(const QString& texto, int estilo, const QString& titulo) {
    QMessageBox caja;
    caja.setText(texto);
    caja.setWindowTitle(titulo.isEmpty() ? QApplication::applicationName() : titulo);
    switch (estilo & 0x70) {
    case estilo::Critico:
        caja.setIcon(QMessageBox::Critical);
        break;
    case estilo::Pregunta:
        caja.setIcon(QMessageBox::Question);
        break;
    case estilo::Exclamacion:
        caja.setIcon(QMessageBox::Warning);
        break;
    case estilo::Informacion:
        caja.setIcon(QMessageBox::Information);
        break;
    default:
        break;
    }
    // Boxes stay above the alerting windows, which are top-most themselves.
    caja.setWindowFlag(Qt::WindowStaysOnTopHint, true);
    if ((estilo & 0x7) == estilo::SiNo) {
        caja.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        caja.button(QMessageBox::Yes)->setText(QStringLiteral("Sí"));
        caja.button(QMessageBox::No)->setText(QStringLiteral("No"));
        return caja.exec() == QMessageBox::Yes ? respuesta::Si : respuesta::No;
    }
    caja.setStandardButtons(QMessageBox::Ok);
    caja.button(QMessageBox::Ok)->setText(QStringLiteral("Aceptar"));
    caja.exec();
    return respuesta::Aceptar;
}
