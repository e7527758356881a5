#pragma once

#include <QList>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

// The desk's command line. Options beginning with "--" are taken out first; what is
// left are the words the program reads ("noactualizar", the updater's two words).
//   --servidor=HOST[:PORT]/PATH/   (or TARVIMENTA_SERVIDOR) the service base, no scheme
//   --carpeta=DIR                  (or TARVIMENTA_CARPETA) where config.txt and ultpedim.txt live;
//                                  by default the executable's folder, unless the desk is
//                                  installed for the whole system: then the user's data folder
//   --cajas=FILE                   (or TARVIMENTA_CAJAS) write message boxes to FILE, no screen
//   --respuestas=si,no,...         (or TARVIMENTA_RESPUESTAS) answers to those boxes' questions
//   --volcado=FILE                 (or TARVIMENTA_VOLCADO) keep FILE with what the main window
//   shows
//   --impresora-pdf=NOMBRE         a driver printer that writes PDF files (may be repeated)
//   --carpeta-pdf=DIR              where those files go (the data folder by default)
//   --espera-red=SEGUNDOS          how long a request waits for the service (60 by default)
// What a command line asks for before anything starts: the desk, its help, its version, or
// nothing (a mistake, told in `texto`, ends with exit code 2).
struct PeticionLinea {
    enum Tipo { Arrancar, Ayuda, Version, Error };
    Tipo tipo = Arrancar;
    QString texto;
};

struct LineaComandos {
    QString servidor;
    QString carpetaDatos;
    QString registroCajas;
    QList<int> respuestasCajas;
    QString volcado;
    QStringList impresorasPdf;
    QString carpetaPdf;
    int esperaRedMs = 0; // 0: the channels' own default
    QStringList palabras;
    QStringList opciones; // the "--" options as given, handed on by the self-update

    // Only the "--" options are checked: the words are the program's own, and Qt's options
    // begin with a single "-".
    static PeticionLinea Revisar(const QStringList& argumentos);
    static QString TextoAyuda(const QString& programa);

    static LineaComandos Leer(const QStringList& argumentos, const QProcessEnvironment& entorno,
                              const QString& carpetaEjecutable);
};
