#include "server/Pasarela.h"

#include "base/ModuloPrincipal.h"
#include "base/Windows1252.h"
#include "platform/CanalHttp.h"
#include "platform/Reloj.h"

namespace {

const QString kError = QStringLiteral("error");

// Marks a channel busy for the length of one transfer, whatever way the call ends.
class Ocupacion {
public:
    explicit Ocupacion(bool& bandera) : bandera_(bandera) { bandera_ = true; }
    ~Ocupacion() { bandera_ = false; }
    Ocupacion(const Ocupacion&) = delete;
    Ocupacion& operator=(const Ocupacion&) = delete;

private:
    bool& bandera_;
};

} // namespace

Pasarela::Pasarela(ModuloPrincipal& m) : m_(m) {
    setEsperaRed(CanalHttpQt::EsperaPorDefectoMs);
}

void Pasarela::setEsperaRed(int ms) {
    setCanales(std::make_unique<CanalHttpQt>("API-Guide test program", ms),
               std::make_unique<CanalHttpQt>(QByteArray(), ms),
               std::make_unique<CanalHttpQt>(QByteArray(), ms));
}

Pasarela::~Pasarela() = default;

void Pasarela::setCanales(std::unique_ptr<CanalHttp> directo, std::unique_ptr<CanalHttp> inet1,
                          std::unique_ptr<CanalHttp> inet2) {
    directo_ = std::move(directo);
    inet1_ = std::move(inet1);
    inet2_ = std::move(inet2);
}

QString Pasarela::ConsultarServidor(const QString& ruta) {
    QString url = m_.UrlBase + ruta;
    QString respuesta = ConsultarUrl(url);
    if ((respuesta.isEmpty() || respuesta == kError) && m_.enHttps()) {
        m_.UrlBase = m_.UrlBaseHttp;
        url = m_.UrlBase + ruta;
        respuesta = ConsultarUrl(url);
    }
    return respuesta;
}

QString Pasarela::ConsultarUrl(QString& url) {
    // "h": the hour without its leading zero; the stamp only has to change every second.
    url += QStringLiteral("&fha=") + m_.reloj().ahora().toString(QStringLiteral("yyyyMMddhmmss"));
    if (m_.Metcon == 1) {
        return LeerUrlInet1(url);
    }
    return LeerUrlDirecto(url);
}

QString Pasarela::pasoFallo() {
    Q_EMIT m_.conexionPerdida();
    return kError;
}

QString Pasarela::LeerUrlDirecto(const QString& url) {
    if (url.isEmpty()) {
        return pasoFallo();
    }
    const RespuestaHttp r = directo_->obtener(codificarUrl(url.trimmed()));
    if (!r.conectado) {
        return pasoFallo();
    }
    Q_EMIT m_.conexionEnLinea();
    return depurarDirecto(r.cuerpo);
}

QString Pasarela::depurarDirecto(const QByteArray& cuerpo) {
    // The first read fills a 128-byte buffer whole: a short body comes with a NUL tail,
    // which shields its trailing blanks from the trim before the NULs go.
    QString texto = cp1252::aTexto(cuerpo);
    if (texto.size() < 128) {
        texto.append(QString(128 - texto.size(), QChar(0)));
    }
    qsizetype ini = 0;
    qsizetype fin = texto.size();
    while (ini < fin && texto.at(ini) == QLatin1Char(' ')) {
        ++ini;
    }
    while (fin > ini && texto.at(fin - 1) == QLatin1Char(' ')) {
        --fin;
    }
    texto = texto.mid(ini, fin - ini);
    texto.remove(QChar(0));
    return texto;
}

QString Pasarela::leerInet(CanalHttp& canal, bool& ocupado, bool esPrimero, const QString& url) {
    if (ocupado) {
        // The control is still busy with an earlier transfer (a poll re-entered while
        // waiting): the first passes the request to the second, the second gives up.
        if (esPrimero) {
            return LeerUrlInet2(url);
        }
        return pasoFallo();
    }
    RespuestaHttp r;
    {
        Ocupacion o(ocupado);
        r = canal.obtener(codificarUrl(url));
    }
    if (!r.conectado || r.cuerpo.isEmpty()) {
        return pasoFallo();
    }
    Q_EMIT m_.conexionEnLinea();
    return cp1252::aTexto(r.cuerpo);
}

QString Pasarela::LeerUrlInet1(const QString& url) {
    return leerInet(*inet1_, inet1Ocupado_, true, url);
}

QString Pasarela::LeerUrlInet2(const QString& url) {
    return leerInet(*inet2_, inet2Ocupado_, false, url);
}

QByteArray Pasarela::codificarUrl(const QString& url) {
    static const char kHex[] = "0123456789ABCDEF";
    const auto esHex = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
    };
    const QByteArray bytes = cp1252::aBytes(url);
    QByteArray r;
    r.reserve(bytes.size() + 16);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const char ch = bytes[i];
        const auto b = static_cast<unsigned char>(ch);
        // "#" would end the request at a fragment; a "%" that starts no escape would be read
        // as one or rewritten. An escape already made by the query's builder goes as it is.
        const bool escapeHecho =
            b == '%' && i + 2 < bytes.size() && esHex(bytes[i + 1]) && esHex(bytes[i + 2]);
        const bool crudo = b > 0x20 && b < 0x7F && b != '"' && b != '<' && b != '>' && b != '\\' &&
                           b != '^' && b != '`' && b != '{' && b != '|' && b != '}' && b != '#' &&
                           (b != '%' || escapeHecho);
        if (crudo) {
            r.append(ch);
        } else {
            r.append('%');
            r.append(kHex[b >> 4]);
            r.append(kHex[b & 0x0F]);
        }
    }
    return r;
}

Pasarela& ModuloPrincipal::pasarela() {
    if (!pasarela_) {
        pasarela_ = std::make_shared<Pasarela>(*this);
    }
    return *pasarela_;
}

void ModuloPrincipal::setCanales(std::unique_ptr<CanalHttp> directo,
                                 std::unique_ptr<CanalHttp> inet1,
                                 std::unique_ptr<CanalHttp> inet2) {
    pasarela().setCanales(std::move(directo), std::move(inet1), std::move(inet2));
}

QString ModuloPrincipal::ConsultarServidor(const QString& ruta) {
    return pasarela().ConsultarServidor(ruta);
}
