#pragma once

#include <QString>

// The settings cipher: RC4 whose output step never gives a 0 byte (when the key stream
// byte equals the text byte the text byte goes out as it is), so that the result can live
// in a text field; the step is its own inverse. Codes are those of the desk's code page.
// The key is ModuloPrincipal::ClaveAjustes; an empty key is error 11 (division by zero).
QString TransformarRC4(const QString& texto, const QString& clave);

// The enciphered text as two upper-case hexadecimal digits per character.
QString CifrarAjuste(const QString& texto, const QString& clave);

// Digits two by two (a last single one alone) back to characters, then the cipher. An
// empty text gives an empty text; a pair that is not hexadecimal is error 13.
QString DescifrarAjuste(const QString& texto, const QString& clave);
