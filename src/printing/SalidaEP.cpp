#include "printing/SalidaEP.h"

#include "base/Conversiones.h"
#include "base/Windows1252.h"
#include "printing/CanalEP.h"
#include "printing/TablasCaracteresEP.h"

QByteArray BytesComandoEP(const QString& comando) {
    QByteArray bytes;
    const qsizetype piezas = comando.isEmpty() ? 0 : comando.count(u',') + 1;
    if (piezas == 0 || piezas > 6) {
        return bytes;
    }
    qsizetype desde = 0;
    for (qsizetype k = 0; k < piezas; ++k) {
        qsizetype fin = comando.indexOf(u',', desde);
        if (fin < 0) {
            fin = comando.size();
        }
        bytes.append(
            static_cast<char>(clasico::EnteroEnIntervalo(comando.mid(desde, fin - desde), 0, 255)));
        desde = fin + 1;
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
