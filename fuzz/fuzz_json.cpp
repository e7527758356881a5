// Arbitrary bytes, read as the transports deliver a reply (one character per byte), then
// repaired and parsed. The reader must neither crash nor hang; the nesting limit is an
// ordinary run-time error. Whenever the quick walk takes a text, the tolerant walk must
// read it without an error into the same tree.
#include "base/ErrorEjecucion.h"
#include "base/Windows1252.h"
#include "common/ArbolJson.h"
#include "server/LectorJson.h"
#include "server/TextoServidor.h"

#include <cstddef>
#include <cstdint>

namespace {

// Walks the tree and converts every value, as the configuration reader would.
void recorrer(const ValorJson& v, int profundidad) {
    if (profundidad > LectorJson::ProfundidadMaxima + 1) {
        __builtin_trap();
    }
    switch (v.tipo()) {
    case ValorJson::Tipo::Diccionario:
        for (const auto& [clave, valor] : v.diccionario().entradas()) {
            (void)clave;
            recorrer(valor, profundidad + 1);
        }
        break;
    case ValorJson::Tipo::Coleccion:
        for (const auto& item : v.coleccion().items()) {
            recorrer(item, profundidad + 1);
        }
        break;
    default:
        try {
            (void)v.aTexto();
            (void)v.aEntero32();
        } catch (const ErrorEjecucion&) {
        }
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamanno) {
    QString texto =
        cp1252::aTexto(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(tamanno));
    if (!texto.isEmpty() && texto[0] == u'~') {
        ArreglarUtf8(texto);
    }
    try {
        QString errores;
        const ValorJson v = JSON_Parse(texto, &errores);
        LectorJson lector(texto);
        if (const auto rapido = lector.leerEstricto()) {
            const ValorJson tolerante = lector.leerTolerante();
            if (!lector.ErroresJson().isEmpty() || volcarArbol(*rapido) != volcarArbol(tolerante) ||
                volcarArbol(v) != volcarArbol(tolerante)) {
                __builtin_trap();
            }
        }
        recorrer(v, 0);
    } catch (const ErrorEjecucion& e) {
        if (e.numero() != ErrorEjecucion::EspacioDePilaInsuficiente) {
            __builtin_trap();
        }
    }
    return 0;
}
