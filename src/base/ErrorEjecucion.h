#pragma once

#include <QString>
#include <exception>
#include <string>

// A run-time error of the classic kind: a number and its Spanish text. Thrown where the
// original would have raised one; caught where the desk sets a trap, or at the top of
// every event handler, which shows the run-time error box and lets the desk go on.
class ErrorEjecucion : public std::exception {
public:
    static constexpr int ArgumentoNoValido = 5;
    static constexpr int Desbordamiento = 6;
    static constexpr int SubindiceFueraDeIntervalo = 9;
    static constexpr int NoCoincidenLosTipos = 13;
    static constexpr int ArchivoNoEncontrado = 53;
    static constexpr int ArchivoYaAbierto = 55;
    static constexpr int PermisoDenegado = 70;
    static constexpr int VariableDeObjetoNoEstablecida = 91;
    static constexpr int EspacioDePilaInsuficiente = 28;
    static constexpr int ErrorDeEntradaSalida = 57;
    static constexpr int DiscoLleno = 61;
    static constexpr int ErrorDeImpresora = 482;

    explicit ErrorEjecucion(int numero);
    ErrorEjecucion(int numero, QString descripcion);

    int numero() const noexcept { return numero_; }
    const QString& descripcion() const noexcept { return descripcion_; }
    const char* what() const noexcept override { return what_.c_str(); }

    // The standard text of a number ("Error definido por la aplicación o por el objeto" when
    // unknown).
    static QString textoDe(int numero);

    // "Error en tiempo de ejecución 'n': texto", the platform's report.
    QString textoInforme() const;

private:
    int numero_;
    QString descripcion_;
    std::string what_;
};
