#include "printing/EscritorTicketEP.h"

#include "base/ModuloPrincipal.h"
#include "base/Pedido.h"
#include "platform/Reloj.h"
#include "printing/CanalEP.h"
#include "printing/PrimitivasTicket.h"
#include "printing/SalidaEP.h"
#include "printing/TablasCaracteresEP.h"

#include <QRegularExpression>

void EscritorTicketEP::normal() {
    EnviarComandoEP(canal_, imp_.EPComDobleAltoDesact);
}

void EscritorTicketEP::grande() {
    EnviarComandoEP(canal_, imp_.EPComDobleAltoActivar);
}

void EscritorTicketEP::comando(const QString& c) {
    EnviarComandoEP(canal_, c);
}

void EscritorTicketEP::linea(QString& texto) {
    EnviarLineaEP(canal_, texto, imp_.ReemplazarCaracEsp, imp_.ReemplazarCaracEscPosPC858);
}

void EscritorTicketEP::lineaTexto(const QString& texto) {
    QString copia = texto;
    linea(copia);
}

void EscritorTicketEP::separador() {
    linea(imp_.SeparadorLineas);
}

void EscritorTicketEP::lineasEnBlanco(int n) {
    if (n > 0) {
        canal_.Escribir(QByteArray(n, '\n'));
    }
}

void EscritorTicketEP::escribirLinea(const QString& texto) {
    EscribirTextoEP(canal_,
                    (imp_.ReemplazarCaracEscPosPC858 ? ConvertirPC858(texto) : texto) + u'\n');
}

void EscritorTicketEP::cabezaYPrecio(const QString& cabeza, const QString& precio, int r, int w) {
    const bool pc858 = imp_.ReemplazarCaracEscPosPC858;
    const QString c = pc858 ? ConvertirPC858(cabeza) : cabeza;
    const QString p = pc858 ? ConvertirPC858(precio) : precio;
    const int largoPrecio = static_cast<int>(precio.size());
    if (largoPrecio > r) {
        EscribirTextoEP(canal_, c + u'\n' + Espacios(w - largoPrecio) + p + u'\n');
    } else {
        EscribirTextoEP(canal_, c + Espacios(r - largoPrecio) + p + u'\n');
    }
}

void EscritorTicketEP::abrir() {
    canal_.Abrir(imp_.EPConexion);
}

void EscritorTicketEP::principio() {
    abrir();
    comando(imp_.EPComInicializar);
    comando(imp_.EPComConfigCaracteres);
    if (imp_.NumLineasBlancoInicio > 0) {
        normal();
        lineasEnBlanco(imp_.NumLineasBlancoInicio);
    }
}

void EscritorTicketEP::pie() {
    lineasEnBlanco(imp_.NumLineasBlancoFinal);
    comando(imp_.EPComSubirLineas);
    comando(imp_.EPComSubirYCotarPapel);
    comando(imp_.EPComExtrasFin);
}

void EscritorTicketEP::fechaYHora() {
    const QDateTime ahora = m_.reloj().ahora();
    lineaTexto(ahora.date().toString(QStringLiteral("dd/MM/yyyy")) + u' ' +
               ahora.time().toString(QStringLiteral("H:mm:ss")));
}

QString EscritorTicketEP::partir(const QString& texto, bool grande) const {
    return PartirLineasEP(texto, imp_.EPNumColumnas, imp_.EPComDobleAltoActivar, grande);
}

int HuecoUltimaLinea(qsizetype largo, int w) {
    if (w <= 0) {
        return 0;
    }
    const auto resto = static_cast<int>(largo % w);
    return resto == 0 ? 0 : w - resto;
}

QString ReformatearOpciones(const QString& texto) {
    static const QRegularExpression grupo(QStringLiteral(":((.[^-]*),+(.[^-]*))"));
    QString r = texto;
    r.replace(grupo, QStringLiteral(": \n \\1"));
    r.replace(QStringLiteral(", "), QStringLiteral("\n  "));
    r.replace(QStringLiteral(" - "), QStringLiteral("\n -"));
    return r;
}

bool EsParaAhora(const Pedido& p) {
    return p.Para == u"Para: Ahora";
}
