#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

class ModuloPrincipal;
class CanalHttp;

// The one road to the service. Every request is a GET of UrlBase + a path with its query;
// the body comes back as text with one character per byte, or a failure word ("error",
// or the empty text of the direct transport). The first failure over https moves the
// whole run to plain http.
class Pasarela {
public:
    explicit Pasarela(ModuloPrincipal& m);
    ~Pasarela();

    void setCanales(std::unique_ptr<CanalHttp> directo, std::unique_ptr<CanalHttp> inet1,
                    std::unique_ptr<CanalHttp> inet2);
    // The real channels again, each waiting at most `ms` for an answer.
    void setEsperaRed(int ms);

    QString ConsultarServidor(const QString& ruta);
    // Adds the cache buster to `url` (in place) and calls the transport chosen by Metcon.
    QString ConsultarUrl(QString& url);

    QString LeerUrlDirecto(const QString& url);
    QString LeerUrlInet1(const QString& url);
    QString LeerUrlInet2(const QString& url);

    // The request line form of a composed URL: Windows-1252 bytes, with only what a
    // request line cannot carry raw percent-encoded; existing "%XX" stay as written.
    static QByteArray codificarUrl(const QString& url);

    // The direct transport's post-processing of a body (fixed 128-byte first read,
    // blanks trimmed, every NUL removed).
    static QString depurarDirecto(const QByteArray& cuerpo);

private:
    QString pasoFallo();
    QString leerInet(CanalHttp& canal, bool& ocupado, bool esPrimero, const QString& url);

    ModuloPrincipal& m_;
    std::unique_ptr<CanalHttp> directo_;
    std::unique_ptr<CanalHttp> inet1_;
    std::unique_ptr<CanalHttp> inet2_;
    bool inet1Ocupado_ = false;
    bool inet2Ocupado_ = false;
};
