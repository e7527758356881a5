#include "printing/SalidaEP.h"

#include "platform/Windows1252.h"
#include "printing/CanalEP.h"
#include "printing/ConversionesEP.h"
#include "printing/TablasCaracteresEP.h"

QByteArray BytesComandoEP(const QString& comando) {
    const QStringList piezas = conv_ep::Partir(comando, QStringLiteral(","));
    QByteArray bytes;
    if (piezas.isEmpty() || piezas.size() > 6) {
        return bytes;
    }
    for (const QString& p : piezas) {
        bytes.append(static_cast<char>(conv_ep::AEntero(p, 0, 255)));
    }
    return bytes;
}

void EnviarComandoEP(CanalEP& canal, const QString& comando) {
    const QByteArray bytes = BytesComandoEP(comando);
    if (!bytes.isEmpty()) {
        canal.Escribir(bytes);
    }
}

void EnviarLineaEP(CanalEP& canal, QString& texto, bool reemplazar, bool pc858) {
    if (reemplazar) {
        texto = QuitarCaracEsp(texto);
    }
    QByteArray bytes = cp1252::aBytes(pc858 ? ConvertirPC858(texto) : texto);
    bytes.append('\n');
    canal.Escribir(bytes);
}

void EscribirTextoEP(CanalEP& canal, const QString& texto) {
    canal.Escribir(cp1252::aBytes(texto));
}
