// The local print system over its own client library.
#include "platform/ColasSistema.h"

#include <cups/cups.h>

namespace {

// Gives up a request that waits longer than its time-out.
int noEsperarMas(http_t* /*http*/, void* /*datos*/) {
    return 0;
}

} // namespace

EstadoCola EstadoColaSistema(const QString& cola) {
    const QByteArray nombre = cola.toUtf8();
    if (nombre.isEmpty()) {
        return EstadoCola::NoExiste;
    }
    cups_dest_t* destino = cupsGetNamedDest(CUPS_HTTP_DEFAULT, nombre.constData(), nullptr);
    if (destino == nullptr) {
        return EstadoCola::NoExiste;
    }
    // The server fills these in with the queue; a missing one is taken as the good value.
    const char* estado = cupsGetOption("printer-state", destino->num_options, destino->options);
    const char* acepta =
        cupsGetOption("printer-is-accepting-jobs", destino->num_options, destino->options);
    EstadoCola r = EstadoCola::Lista;
    if (acepta != nullptr && qstrcmp(acepta, "false") == 0) {
        r = EstadoCola::Rechaza;
    } else if (estado != nullptr && qstrcmp(estado, "5") == 0) { // IPP_PSTATE_STOPPED
        r = EstadoCola::Detenida;
    }
    cupsFreeDests(1, destino);
    return r;
}

QString TextoEstadoCola(const QString& cola, EstadoCola estado) {
    switch (estado) {
    case EstadoCola::Lista:
        break;
    case EstadoCola::NoExiste:
        return QStringLiteral("La cola de impresión ") + cola +
               QStringLiteral(" no existe en este equipo");
    case EstadoCola::Detenida:
        return QStringLiteral("La cola de impresión ") + cola + QStringLiteral(" está detenida");
    case EstadoCola::Rechaza:
        return QStringLiteral("La cola de impresión ") + cola +
               QStringLiteral(" no acepta trabajos");
    }
    return {};
}

ResultadoTrabajoCrudo EnviarTrabajoCrudo(const QString& cola, const QByteArray& datos,
                                         const QString& titulo) {
    const QByteArray nombre = cola.toUtf8();
    const QByteArray rotulo = titulo.toUtf8();
    const int trabajo =
        cupsCreateJob(CUPS_HTTP_DEFAULT, nombre.constData(), rotulo.constData(), 0, nullptr);
    if (trabajo <= 0) {
        return ResultadoTrabajoCrudo::SinCola;
    }
    bool ok = cupsStartDocument(CUPS_HTTP_DEFAULT, nombre.constData(), trabajo, rotulo.constData(),
                                CUPS_FORMAT_RAW, 1) == HTTP_STATUS_CONTINUE;
    ok = ok && cupsWriteRequestData(CUPS_HTTP_DEFAULT, datos.constData(),
                                    static_cast<size_t>(datos.size())) == HTTP_STATUS_CONTINUE;
    const bool terminado =
        cupsFinishDocument(CUPS_HTTP_DEFAULT, nombre.constData()) == IPP_STATUS_OK;
    if (!ok || !terminado) {
        cupsCancelJob(nombre.constData(), trabajo);
        return ResultadoTrabajoCrudo::Fallo;
    }
    return ResultadoTrabajoCrudo::Hecho;
}

int CancelarTrabajosPendientes(int limiteMs) {
    int cancelado = 0;
    http_t* http = httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                                limiteMs, nullptr);
    if (http == nullptr) {
        return -1;
    }
    httpSetTimeout(http, limiteMs / 1000.0, noEsperarMas, nullptr);
    cups_job_t* trabajos = nullptr;
    const int n = cupsGetJobs2(http, &trabajos, nullptr, 0, CUPS_WHICHJOBS_ACTIVE);
    if (n < 0) {
        httpClose(http);
        return -1;
    }
    for (int i = 0; i < n; ++i) {
        if (cupsCancelJob2(http, trabajos[i].dest, trabajos[i].id, 0) == IPP_STATUS_OK) {
            ++cancelado;
        }
    }
    cupsFreeJobs(n, trabajos);
    httpClose(http);
    return cancelado;
}
