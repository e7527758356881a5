#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <memory>

class QNetworkAccessManager;
class QNetworkReply;
class QTemporaryFile;
class QTimer;

// One download of an update file that can never leave a half-written file behind: the
// body goes to a temporary file beside the target, is checked against the announced
// length, gets its run bit when asked, and only then replaces the target by an atomic
// rename. Until that rename the target keeps what it had. No overall time limit cuts a
// long transfer; only a silence of `esperaSinDatosMs` does.
class Descarga : public QObject {
    Q_OBJECT
public:
    enum class Resultado {
        Completa,   // the target now holds the whole body
        Incompleta, // fewer bytes than announced: the connection ended early
        Fallida,    // no answer, an HTTP error status, an empty body, a silence
        SinEscribir // the temporary file or the rename failed (disk full, no permission)
    };
    Q_ENUM(Resultado)

    static constexpr int EsperaSinDatosPorDefectoMs = 60000;

    explicit Descarga(QObject* padre = nullptr);
    ~Descarga() override;

    void setEjecutable(bool ejecutable) { ejecutable_ = ejecutable; }
    void setEsperaSinDatos(int ms) { esperaSinDatosMs_ = ms; }

    // Starts the GET; the end comes through `terminada`. A download already running is
    // abandoned first.
    void iniciar(const QUrl& url, const QString& destino);
    bool enCurso() const { return respuesta_ != nullptr; }

Q_SIGNALS:
    // `total` is the announced "Content-Length", -1 when none came.
    void progreso(qint64 recibidos, qint64 total);
    void terminada(Descarga::Resultado resultado, const QString& detalle);

private:
    void leer();
    void acabar();
    void fallar(Resultado r, const QString& detalle);
    void soltar();

    std::unique_ptr<QNetworkAccessManager> red_;
    QNetworkReply* respuesta_ = nullptr;
    std::unique_ptr<QTemporaryFile> temporal_;
    QTimer* silencio_;
    QString destino_;
    qint64 recibidos_ = 0;
    qint64 total_ = -1;
    bool ejecutable_ = false;
    bool errorEscritura_ = false;
    int esperaSinDatosMs_ = EsperaSinDatosPorDefectoMs;
};
