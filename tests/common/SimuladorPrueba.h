// Drives the stand-in service from a test: starts `simulador` on a free port, reads its
// record, queues replies, sets faults, configuration and orders. Every call is bounded in
// time. The simulator stops with this object (and by itself if the test process dies,
// because it watches its standard input).
#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QProcess>
#include <QString>
#include <QStringList>

class SimuladorPrueba {
public:
    struct Entrada {
        int n = 0;
        QString esquema;  // "http" or "https"
        QString ruta;     // path below /api/, "" for an https attempt
        QString consulta; // raw query, not decoded
        qint64 ms = 0;
        bool reenvio = false; // the client resent a request that a rechazar/colgar cut off
        QString fallo;        // the fault it met, if any
        QString pedido;       // the stored order its reply handed out, if any
    };

    struct RespuestaHttp {
        bool respondida = false; // a status line arrived
        int estado = 0;
        QByteArray cuerpo;
        QByteArray cruda; // everything the server sent
    };

    // extra: more command-line options, e.g. "--impresoras-ep=/tmp/x".
    explicit SimuladorPrueba(const QStringList& extra = {}, int msArranque = 10000);
    ~SimuladorPrueba();
    SimuladorPrueba(const SimuladorPrueba&) = delete;
    SimuladorPrueba& operator=(const SimuladorPrueba&) = delete;

    bool enMarcha() const { return puerto_ > 0; }
    int puerto() const { return puerto_; }
    QString base() const; // "127.0.0.1:<port>/api/"
    qint64 pid() const { return proceso_.processId(); }

    QList<Entrada> registro();
    // The queries that went to `ruta`, in order, without the cache stamp and without the
    // client's own resends.
    QStringList consultas(const QString& ruta);
    void limpiarRegistro();
    void encolar(const QString& ruta, const QStringList& cuerpos);
    void vaciarRespuestas();
    // tipo: rechazar, colgar, error, vacio, basura, status500, titulo502, http500 (status 500),
    // cortado (half the reply, then a reset; a queued reply stays queued). veces < 0: until
    // cleared. ruta empty: every path (and, for rechazar/colgar, https attempts). One time
    // of rechazar/colgar is one failure as a Qt client sees it: the resend that Qt makes
    // by itself meets the same fault for free and shows as `reenvio` in the record.
    void fallo(const QString& tipo, double segundos = 0, int veces = -1, const QString& ruta = {});
    void quitarFallos();
    // Faults at random: `proporcion` of the requests fail, each of a kind drawn from `tipos`
    // (empty: every kind), hangs lasting `segundos`. The counts since then: {"peticiones",
    // "fallos":{kind: n}}; pararAzar stops drawing and keeps them.
    QJsonObject azar(double proporcion, quint64 semilla, double segundos = 0,
                     const QStringList& tipos = {});
    QJsonObject estadoAzar();
    QJsonObject pararAzar();
    void configurar(qint64 id, const QString& password, int numconfig,
                    const QJsonObject& documento);
    void configurarTexto(qint64 id, const QString& password, int numconfig,
                         const QByteArray& texto);
    // The configuration document served now (the default establishment until configurar),
    // read without touching the record: a starting point for a test's own document.
    QJsonObject documento();
    // Orders: clase domicilio, recoger, programado, efectivo or mezcla; productos 0 lets the
    // seed choose. Each created order: numero, estado, minutos, motivo, formaEntrega, linea,
    // respuestas.
    QJsonArray generarPedidos(int cantidad, quint64 semilla, const QString& clase = "mezcla",
                              int productos = 0);
    QJsonArray pedidos();
    // A message on the next poll (asunto, mensaje, pedido, tipo, quienenvia), returned with its
    // id; and every message with the answers it got (respuestas: mr, consulta, ms).
    QJsonObject crearMensaje(const QJsonObject& mensaje);
    QJsonArray mensajes();

    // Waits, running the event loop, until the record holds a request for ruta with a
    // number above desdeN. False after msMax.
    bool esperarPeticion(const QString& ruta, int msMax, int desdeN = 0);

    // A plain HTTP/1.1 request on a fresh connection ("Connection: close"), bounded.
    RespuestaHttp peticion(const QByteArray& metodo, const QByteArray& objetivo,
                           const QByteArray& cuerpo = {}, int msMax = 5000);
    // Sends raw bytes and returns everything received until the server closes (or msMax).
    QByteArray enviarCrudo(const QByteArray& bytes, int msMax = 5000, bool* cerrada = nullptr);

private:
    QJsonObject control(const QByteArray& metodo, const QByteArray& recurso,
                        const QJsonObject& cuerpo = {});
    QByteArray controlCrudo(const QByteArray& metodo, const QByteArray& recurso,
                            const QByteArray& cuerpo);

    QProcess proceso_;
    int puerto_ = 0;
};
