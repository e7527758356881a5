// The UTF-8 repair and the URL decoding over arbitrary bytes. Besides not crashing, each
// keeps its promises: the repair never lengthens a text and keeps plain ASCII as it is,
// and the decoding of an encoded text gives the text back.
#include "base/Windows1252.h"
#include "server/TextoServidor.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamanno) {
    const QString original =
        cp1252::aTexto(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(tamanno));
    QString reparado = original;
    const QString devuelto = ArreglarUtf8(reparado);
    if (devuelto != reparado || reparado.size() > original.size()) {
        __builtin_trap();
    }
    bool ascii = true;
    for (QChar c : original) {
        ascii = ascii && c.unicode() < 128;
    }
    if (ascii && reparado != original) {
        __builtin_trap();
    }

    const QString decodificado = UrlDecodificar(original);
    if (decodificado.size() > original.size()) {
        __builtin_trap();
    }
    if (UrlDecodificar(UrlCodificar(original)) != original) {
        __builtin_trap();
    }
    (void)UrlCodificar(reparado);
    return 0;
}
