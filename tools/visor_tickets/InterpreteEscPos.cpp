#include "InterpreteEscPos.h"

#include "PaginasCodigos.h"

#include <QSet>

namespace {

class Lector {
public:
    explicit Lector(const QByteArray& b) : b_(b) {}

    TicketLeido leer() {
        while (i_ < b_.size()) {
            const auto c = static_cast<unsigned char>(b_[i_++]);
            if (c == 0x0A) {
                terminarLinea();
            } else if (c == 0x1B) {
                esc();
            } else if (c == 0x1D) {
                gs();
            } else if (c >= 0x20) {
                texto(c);
            }
            // Other control bytes (CR among them) move nothing on paper.
        }
        if (!actual_.tramos.isEmpty()) {
            terminarLinea();
        }
        return std::move(t_);
    }

private:
    int param() { return i_ < b_.size() ? static_cast<unsigned char>(b_[i_++]) : -1; }
    void saltar(int n) { i_ = std::min<qsizetype>(b_.size(), i_ + n); }

    void esc() {
        const int cmd = param();
        switch (cmd) {
        case '@':
            // This printer's own page is PC858.
            pagina_ = kCodigoPC858;
            ancho_ = alto_ = negrita_ = false;
            break;
        case 't': {
            const int n = param();
            if (PaginaConocida(n)) {
                pagina_ = n;
            } else if (!desconocidas_.contains(n)) {
                // Once per code: the code page test tries dozens of them.
                desconocidas_.insert(n);
                t_.avisos << QStringLiteral("página de códigos %1 desconocida: sigue la %2")
                                 .arg(n)
                                 .arg(NombrePagina(pagina_));
            }
            break;
        }
        case '!': {
            const int n = param();
            negrita_ = (n & 0x08) != 0;
            alto_ = (n & 0x10) != 0;
            ancho_ = (n & 0x20) != 0;
            break;
        }
        case 'E':
            negrita_ = (param() & 1) != 0;
            break;
        case 'd': {
            const int n = param();
            terminarLinea();
            for (int k = 1; k < n; ++k) {
                terminarLinea();
            }
            break;
        }
        case 'p':
            saltar(3); // cash drawer pulse
            break;
        case 'a':
        case '-':
        case 'M':
        case 'G':
        case '3':
        case 'J':
        case 'R':
            saltar(1);
            break;
        case '2':
            break;
        default:
            t_.avisos << QStringLiteral("orden ESC %1 no reconocida").arg(cmd);
        }
    }

    void gs() {
        const int cmd = param();
        if (cmd == 'V') {
            const int m = param();
            if (m == 65 || m == 66 || m == 97 || m == 98 || m == 103 || m == 104) {
                saltar(1);
            }
            if (!actual_.tramos.isEmpty()) {
                terminarLinea();
            }
            LineaTicket corte;
            corte.corte = true;
            t_.lineas << corte;
        } else if (cmd == '!') {
            const int n = param();
            ancho_ = ((n >> 4) & 0x07) != 0;
            alto_ = (n & 0x07) != 0;
        } else {
            saltar(1);
            t_.avisos << QStringLiteral("orden GS %1 no reconocida").arg(cmd);
        }
    }

    void texto(unsigned char c) {
        const QChar ch = CaracterDe(c, pagina_);
        if (actual_.tramos.isEmpty() || actual_.tramos.back().dobleAncho != ancho_ ||
            actual_.tramos.back().dobleAlto != alto_ || actual_.tramos.back().negrita != negrita_) {
            actual_.tramos.append({QString(), ancho_, alto_, negrita_});
        }
        actual_.tramos.back().texto += ch;
    }

    void terminarLinea() {
        t_.lineas << actual_;
        actual_ = LineaTicket{};
    }

    const QByteArray& b_;
    qsizetype i_ = 0;
    TicketLeido t_;
    LineaTicket actual_;
    int pagina_ = kCodigoPC858;
    QSet<int> desconocidas_;
    bool ancho_ = false, alto_ = false, negrita_ = false;
};

} // namespace

TicketLeido InterpretarEscPos(const QByteArray& bytes) {
    return Lector(bytes).leer();
}

QList<QList<Tramo>> FilasDeLinea(const LineaTicket& linea, int columnas) {
    QList<QList<Tramo>> filas(1);
    int usadas = 0;
    for (const Tramo& t : linea.tramos) {
        const int paso = t.dobleAncho ? 2 : 1;
        for (const QChar c : t.texto) {
            if (usadas + paso > columnas && usadas > 0) {
                filas.append(QList<Tramo>{});
                usadas = 0;
            }
            auto& fila = filas.back();
            if (fila.isEmpty() || fila.back().dobleAncho != t.dobleAncho ||
                fila.back().dobleAlto != t.dobleAlto || fila.back().negrita != t.negrita) {
                fila.append({QString(), t.dobleAncho, t.dobleAlto, t.negrita});
            }
            fila.back().texto += c;
            usadas += paso;
        }
    }
    return filas;
}
