#pragma once

#include <QList>
#include <QString>
#include <memory>

class ModuloPrincipal;

// Message boxes, in the classic style: a prompt, a style made of buttons plus icon, a title;
// the answer is the button pressed. Everything the desk asks or reports goes through here,
// so that tests can record and answer the boxes without a screen.
namespace estilo {
constexpr int SoloAceptar = 0;  // OK only
constexpr int SiNo = 4;         // Yes, No
constexpr int Critico = 16;     // red cross
constexpr int Pregunta = 32;    // question mark
constexpr int Exclamacion = 48; // exclamation mark
constexpr int Informacion = 64; // information sign
} // namespace estilo

namespace respuesta {
constexpr int Aceptar = 1;
constexpr int Si = 6;
constexpr int No = 7;
} // namespace respuesta

class CajaMensajes {
public:
    virtual ~CajaMensajes() = default;

    // Shows a box and returns the button pressed. An empty title means the program's name.
    virtual int mostrar(const QString& texto, int estilo = estilo::SoloAceptar,
                        const QString& titulo = QString()) = 0;

    void informacion(const QString& texto, const QString& titulo = QString()) {
        mostrar(texto, estilo::Informacion, titulo);
    }
    void exclamacion(const QString& texto, const QString& titulo = QString()) {
        mostrar(texto, estilo::Exclamacion, titulo);
    }
    void critico(const QString& texto, const QString& titulo = QString()) {
        mostrar(texto, estilo::Critico, titulo);
    }
    bool preguntarSiNo(const QString& texto, const QString& titulo = QString()) {
        return mostrar(texto, estilo::SiNo + estilo::Pregunta, titulo) == respuesta::Si;
    }
};

// Records every box and answers from a script; the tests' and the headless desk's boxes.
// With a log file, each box is also appended to it as one line: style, tab, title, tab,
// text (line breaks written as \n), so that a test driving the real program can read them.
class RegistroCajas : public CajaMensajes {
public:
    struct Caja {
        QString texto;
        int estilo = 0;
        QString titulo;
    };

    explicit RegistroCajas(QString ficheroRegistro = QString());

    int mostrar(const QString& texto, int estilo, const QString& titulo) override;

    // Answers for the next question boxes, in order; once used up, questions get
    // `respuestaPorDefecto` and other boxes respuesta::Aceptar.
    void responder(QList<int> respuestas) { respuestas_ = std::move(respuestas); }
    void setRespuestaPorDefecto(int r) { porDefecto_ = r; }

    const QList<Caja>& cajas() const { return cajas_; }
    void limpiar() { cajas_.clear(); }

private:
    QString fichero_;
    QList<Caja> cajas_;
    QList<int> respuestas_;
    int porDefecto_ = respuesta::Si;
};

// Holds back the boxes of one stretch of work and shows them, in order, when it ends: the
// printers of an order each get their turn before any printer's box stops the desk.
// Questions are not held back: they need their answer at once.
class AplazarCajas {
public:
    explicit AplazarCajas(ModuloPrincipal& m);
    ~AplazarCajas();
    AplazarCajas(const AplazarCajas&) = delete;
    AplazarCajas& operator=(const AplazarCajas&) = delete;

private:
    class Recogida;
    ModuloPrincipal& m_;
    std::shared_ptr<Recogida> recogida_;
    std::shared_ptr<CajaMensajes> anteriores_;
};
