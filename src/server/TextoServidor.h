#pragma once

#include <QString>
#include <QStringList>

class ColeccionJson;

// Small pure text and value helpers shared by the readers of the service's replies and
// by the settings windows. Texts hold one character per byte of the desk's code page
// (Windows-1252), as the transports deliver them.

// Folds the UTF-8 sequences of a reply back into single characters, in place, and returns
// the result. Two-byte sequences from the leads C2/C3 give their Latin-1 letter; any other
// sequence (three bytes or more, a lone byte, other leads) becomes the one character of
// code 128, the euro sign. The very last character of the text is never looked at, so a
// text ending in a two-byte letter keeps it broken (lead byte 128, last byte as it was).
// Apply once per
// reply: repairing a repaired text damages every character above 127.
QString ArreglarUtf8(QString& texto);

// The record test "^#.+#$" with the classic defaults: '#' at both ends, at least one
// character between them, and no line feed anywhere (the dot does not cross it). Orders,
// status codes and old configurations come in this form.
bool EsLineaPedido(const QString& texto);

// A query value: ASCII letters and digits stay, a blank becomes "+", anything else "%"
// and two upper-case hexadecimal digits of its code in the code page.
QString UrlCodificar(const QString& texto);

// The inverse: "+" is a blank, "%" and two upper-case hexadecimal digits the character of
// that code; any other "%" stays as it is.
QString UrlDecodificar(const QString& texto);

// The items of a collection as texts, in order (index 0 is item 1). An empty collection
// is error 9; an item that has no text (Null, an object) is the conversion's error.
QStringList ColeccionAVector(const ColeccionJson& coleccion);

// True exactly for 1 (the service's way of saying yes).
bool UnoAVerdadero(qint16 valor);
// 1 for a classic true (-1), else 0 (the way requests say yes).
qint16 VerdaderoAUno(qint16 valor);

// KeyPress filters of numeric fields: the key code passes, or 0 refuses it.
// Digits and backspace (8) pass.
int SoloDigitos(int tecla);
// Digits and backspace pass; "." becomes the decimal "," and either is refused when the
// field's text holds a comma already.
int SoloDecimal(int tecla, const QString& texto);
