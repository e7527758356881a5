#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <compare>
#include <optional>

// The classic conversions of the desk, with its fixed Spanish regional settings: decimal
// comma, "." as thousands mark, dates "dd/MM/yyyy H:mm:ss". Every part of the program
// converts through these, so that a number or a date reads the same everywhere.
// Failures are run-time errors (ErrorEjecucion): 6 overflow, 13 type mismatch.
namespace clasico {

// An exact decimal number: a 96-bit magnitude, a sign and a scale of 0 to 28 decimal
// places, like the classic Decimal. It keeps the digits that a text gives (12,50 stays
// 1250 with scale 2), and never goes through a binary float.
class Decimal {
public:
    static constexpr int EscalaMaxima = 28;

    Decimal() = default;
    Decimal(qint64 entero); // NOLINT: a whole number is a decimal

    // The Spanish text of a number (see IsNumeric): "1.234,5", " -12 ", "3,5e2", "12 €".
    // nullopt when the text is no number; error 6 when its value is beyond the range.
    static std::optional<Decimal> leer(QStringView texto);
    // As leer, but a text that is no number is error 13 (the classic CDec).
    static Decimal desdeTexto(QStringView texto);

    // "-12,5": decimal comma, no thousands mark, no trailing zeros of the fraction.
    QString aTexto() const;

    bool esCero() const { return bajo_ == 0 && alto_ == 0; }
    bool negativo() const { return negativo_ && !esCero(); }
    int escala() const { return escala_; }

    // The nearest whole number, halves to the even one (2,5 -> 2; 3,5 -> 4).
    Decimal redondeado() const;
    // Whole number rounded half to even; error 6 outside the 16-bit / 32-bit range.
    qint16 aEntero16() const;
    qint32 aEntero32() const;
    double aDouble() const;

    Decimal operator-() const;
    friend Decimal operator+(const Decimal& a, const Decimal& b);
    friend Decimal operator-(const Decimal& a, const Decimal& b) { return a + (-b); }
    Decimal& operator+=(const Decimal& b) { return *this = *this + b; }
    friend bool operator==(const Decimal& a, const Decimal& b);
    friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b);

private:
    __extension__ typedef unsigned __int128 Ancho;
    Decimal(Ancho mantisa, int escala, bool negativo);
    static Decimal normalizado(Ancho mantisa, int escala, bool negativo);

    Ancho mantisa() const { return (Ancho(alto_) << 64) | bajo_; }

    // The 96-bit magnitude in two words, so that a value takes 16 bytes.
    quint64 bajo_ = 0;
    quint32 alto_ = 0;
    quint8 escala_ = 0;
    bool negativo_ = false;
};

// The classic numeric test: blanks around, one sign (before or after), "." thousands marks
// after a digit, one decimal comma, an exponent (e or d), and a "€" at the start or the end.
// It tests the form only: "1e400" passes, and its conversion is then error 6.
bool IsNumeric(QStringView texto);

// The value of a numeric text as a double (CDbl), nothing when the text is no number.
std::optional<double> Valor(QStringView texto);

// A whole number in [minimo, maximo], rounded half to even (the classic CByte, CInt, CLng
// with their own ranges): error 13 for a text that is no number, 6 outside the range.
qint64 EnteroEnIntervalo(QStringView texto, qint64 minimo, qint64 maximo);
qint64 EnteroEnIntervalo(double valor, qint64 minimo, qint64 maximo);

// Text to whole numbers, rounded half to even: error 13 when the text is no number,
// error 6 when the value does not fit.
qint16 CInt(QStringView texto);
qint32 CLng(QStringView texto);
qint16 CInt(const Decimal& valor);
qint32 CLng(const Decimal& valor);
Decimal CDec(QStringView texto);

// Classic Split: an empty text gives no element; "a," at "," gives "a" and "".
// With limite above 0, at most that many pieces, the last one holding the rest.
QStringList Split(const QString& texto, const QString& separador, int limite = -1);

// Blanks (U+0020) only, as the classic functions do.
QString Trim(const QString& texto);
QString LTrim(const QString& texto);
QString RTrim(const QString& texto);

// Upper case letter by letter, Spanish letters included (ñ -> Ñ, á -> Á); a letter whose
// capital has no place in the desk's code page stays as it is (ß, µ).
QString UCase(const QString& texto);

// Boolean as text: "Verdadero" or "Falso".
QString TextoBooleano(bool valor);

// The classic zero date, 30/12/1899 0:00:00; a time alone is a time on that day.
QDateTime FechaCero();

// Default text of a moment: "dd/MM/yyyy H:mm:ss"; at midnight the date alone; on the
// zero date the time alone ("H:mm:ss").
QString TextoFecha(const QDateTime& momento);

// Date text in the Spanish order: "d/M/yyyy", "d-M-yyyy" or "yyyy-M-d", years of two digits
// (00-29 -> 20xx, 30-99 -> 19xx), with an optional time "H:mm[:ss]" after a blank or "T";
// a time alone gives the zero date. nullopt when it is no valid date.
std::optional<QDateTime> LeerFecha(QStringView texto);
bool IsDate(QStringView texto);
// As LeerFecha, but error 13 when the text is no date (the classic CDate).
QDateTime CDate(QStringView texto);

} // namespace clasico
