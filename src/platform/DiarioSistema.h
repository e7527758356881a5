#pragma once

#include <QString>
#include <QtGlobal>

// The desk's journal lines also go to the session's journal when the desk runs under a
// systemd user session whose standard error is not the journal already.
namespace diario {

// The journal's socket, or empty when lines should go to standard error only.
QString SocketDelDiario(const QString& carpetaEjecucion, bool errorYaEnElDiario,
                        const QString& socket = QStringLiteral("/run/systemd/journal/socket"));

// One entry in the journal's native form; false when it could not be sent.
bool Enviar(const QString& socket, QtMsgType tipo, const char* categoria, const QString& texto);

// Installs the handler: every line still goes where Qt sends it, and those of the desk's
// own categories ("tarvimenta.") also to the journal when there is one.
void Instalar();

} // namespace diario
