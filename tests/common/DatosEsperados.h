#pragma once

// Long expected outputs live as text files under tests/data/, written for a person to read:
// a line starting with "#" is a note, and "{...}" stands for what plain text cannot show.
#include <QByteArray>
#include <QJsonDocument>
#include <QStringList>

// The lines of a data file (UTF-8), notes left out.
QStringList LineasDatos(const QString& nombre);

// A JSON data file; a file that does not read is a failure of the test.
QJsonDocument JsonDatos(const QString& nombre);

// A line with every "{xx}" (hex) turned into that character.
QString SinMarcas(const QString& linea);

// A raw ticket: every line is Windows-1252 text and its line feed; {INI} {CP} {GR} {NO}
// {SUBIR} {CORTE} are the printer's commands and {xx} a byte in hex. A line of commands
// alone has no line feed of its own.
QByteArray TicketEPDatos(const QString& nombre);
