#include "printing/EscritorTicketDW.h"

#include "base/ClassConfigImpresora.h"
#include "base/Conversiones.h"
#include "base/ModuloPrincipal.h"
#include "base/Pedido.h"
#include "platform/Reloj.h"
#include "printing/ImpresoraDW.h"
#include "printing/PrimitivasTicket.h"

#include <QRegularExpression>

namespace {
const QString CrLf = QStringLiteral("\r\n");
}

QString ReformatearOpcionesDW(const QString& texto) {
    static const QRegularExpression grupo(QStringLiteral(":((.[^-]*),+(.[^-]*))"));
    QString r = texto;
    r.replace(grupo, QStringLiteral(": \r\n \\1"));
    r.replace(QStringLiteral(", "), CrLf + QStringLiteral("  "));
    r.replace(QStringLiteral(" - "), CrLf + QStringLiteral(" -"));
    return r;
}

void EscritorTicketDW::prepararPagina() {
    p_.setFont(imp_.Font);
    p_.setScaleLeft(-imp_.InicioX);
    p_.setScaleTop(-imp_.InicioY);
    p_.setCurrentX(0);
    p_.setCurrentY(0);
    for (int i = 0; i < imp_.NumLineasBlancoInicio; ++i) {
        p_.Imprimir(QString());
    }
}

void EscritorTicketDW::grande() {
    p_.setFontSize(imp_.TamannoFuenteGrande);
}

void EscritorTicketDW::pequenna() {
    p_.setFontSize(imp_.TamannoFuentePequenna);
}

void EscritorTicketDW::hueco() {
    p_.setCurrentY(p_.CurrentY() + imp_.MargenEntreLineas);
}

void EscritorTicketDW::separador() {
    ImprimirLineaDW(p_, imp_.MargenEntreLineas, imp_.TamannoFuenteSeparador, imp_.SeparadorLineas);
}

int EscritorTicketDW::ancho() const {
    return CaracteresPorLineaDW(p_, imp_.AnchoPapel, imp_.FactorFuente);
}

void EscritorTicketDW::partir(const QString& texto) {
    p_.Imprimir(PartirLineas(texto, ancho()));
}

void EscritorTicketDW::imprimir(const QString& texto) {
    p_.Imprimir(texto);
}

void EscritorTicketDW::fechaYHora() {
    const QDateTime ahora = m_.reloj().ahora();
    p_.Imprimir(ahora.date().toString(QStringLiteral("dd/MM/yyyy")) + u' ' +
                ahora.time().toString(QStringLiteral("H:mm:ss")));
}

void EscritorTicketDW::comentarios(const QString& comentarios) {
    separador();
    p_.setFontSize(imp_.TamannoFuentePequenna + 2);
    partir(QStringLiteral("Comentarios:"));
    grandeSi(imp_.ProductosYComentariosGrande);
    partir(imp_.ProductosYComentariosMayus ? clasico::UCase(comentarios) : comentarios);
}

QString EscritorTicketDW::textoProducto(const ProductoPedido& prod, bool conPrecio) const {
    QString texto = QString::number(prod.Cantidad) + QStringLiteral(" X ") + prod.Nombre;
    if (imp_.SaltoLineaOpciones) {
        texto = ReformatearOpcionesDW(texto);
    }
    const int w = ancho();
    texto = PartirLineas(texto, w);
    if (conPrecio) {
        const QString precio = u' ' + prod.Precio + u'€';
        const qsizetype inicioUltima = texto.lastIndexOf(CrLf);
        const qsizetype largoUltima =
            inicioUltima < 0 ? texto.size() : texto.size() - inicioUltima - CrLf.size();
        const int r = w - static_cast<int>(largoUltima);
        const int largoPrecio = static_cast<int>(precio.size());
        if (largoPrecio <= r) {
            texto += Espacios(r - largoPrecio) + precio;
        } else {
            texto += CrLf + Espacios(w - largoPrecio) + precio;
        }
    }
    return imp_.ProductosYComentariosMayus ? clasico::UCase(texto) : texto;
}

void EscritorTicketDW::lineasFinales() {
    if (imp_.NumLineasBlancoFinal <= 0) {
        return;
    }
    for (int i = 0; i < imp_.NumLineasBlancoFinal; ++i) {
        p_.Imprimir(QString());
    }
    p_.Imprimir(QStringLiteral("."));
}

void EscritorTicketDW::fin() {
    p_.EndDoc();
}
