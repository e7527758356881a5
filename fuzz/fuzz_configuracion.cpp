// The whole reading of an establishment's configuration from arbitrary reply bytes: the
// gateway's post-processing, the validation, the repair, the tolerant JSON reader and the
// reading of every key and printer, with the http retry and the old-printer migration.
#include "base/ModuloPrincipal.h"
#include "platform/CanalHttp.h"
#include "server/Configuracion.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <cstddef>
#include <cstdint>

namespace {

// Answers every request with the fuzzer's bytes; the migration's second and third
// requests get the tail after the first NUL, when there is one.
class CanalFijo : public CanalHttp {
public:
    QByteArray cuerpo;
    QByteArray resto;
    int llamadas = 0;
    RespuestaHttp obtener(const QByteArray&) override {
        ++llamadas;
        return RespuestaHttp{true, llamadas <= 2 ? cuerpo : resto};
    }
};

struct Banco {
    int argc = 1;
    char nombre[8] = "fuzz";
    char* argv[2] = {nombre, nullptr};
    QCoreApplication app{argc, argv};
    QTemporaryDir carpeta;
    ModuloPrincipal m;
    CanalFijo* directo = nullptr;
    CanalFijo* inet1 = nullptr;

    Banco() {
        auto d = std::make_unique<CanalFijo>();
        auto i1 = std::make_unique<CanalFijo>();
        directo = d.get();
        inet1 = i1.get();
        m.setCanales(std::move(d), std::move(i1), std::make_unique<CanalFijo>());
        m.setServidor(QStringLiteral("servidor.fuzz/api/"));
        m.CarpetaDatos = carpeta.path();
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamanno) {
    static Banco* banco = new Banco; // lives for the whole run
    ModuloPrincipal& m = banco->m;
    const QByteArray todo(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(tamanno));
    const qsizetype nul = todo.indexOf('\0');
    for (CanalFijo* c : {banco->directo, banco->inet1}) {
        c->cuerpo = nul < 0 ? todo : todo.left(nul);
        c->resto = nul < 0 ? QByteArray() : todo.mid(nul + 1);
        c->llamadas = 0;
    }
    m.UrlBase = m.UrlBaseHttps;
    m.IdEstablecimiento = 7;
    m.PasswordConfig = QStringLiteral("clave");
    m.NumConfig = 1;
    m.Metcon = 0;
    m.MetconGuardado = 0;
    m.ImpresoraAntigua = (tamanno % 2 == 0) ? QStringLiteral("Antigua") : QString();
    // Every run-time error is the reader's own to catch: anything escaping is a finding.
    bool parametro = false;
    ObtenerConfiguracion(m, parametro);
    return 0;
}
