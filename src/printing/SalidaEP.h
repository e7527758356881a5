#pragma once

#include <QByteArray>
#include <QString>

class CanalEP;

// The bytes of a command setting ("27,33,48"): one to six numbers 0..255. No piece or more
// than six pieces give no bytes at all; a piece that isn't a number is error 13, a number
// outside a byte error 6.
QByteArray BytesComandoEP(const QString& comando);

// Writes the command's bytes, without a line end.
void EnviarComandoEP(CanalEP& canal, const QString& comando);

// Writes a text and a line feed. With `reemplazar` the caller's variable itself becomes the
// plain text (a later printer of the same order sees it so); PC858 changes only the bytes.
void EnviarLineaEP(CanalEP& canal, QString& texto, bool reemplazar, bool pc858);

// Writes a text as Windows-1252 bytes, nothing added.
void EscribirTextoEP(CanalEP& canal, const QString& texto);
