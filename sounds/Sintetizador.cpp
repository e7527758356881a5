#include "Sintetizador.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <sstream>
#include <stdexcept>

namespace sinte {
namespace {

constexpr double Pi2 = 2.0 * std::numbers::pi;
constexpr double Sr = Muestreo;

// Deterministic noise: each note gets its own seed, so a melody never depends on the
// order in which notes happen to be rendered.
class Ruido {
public:
    explicit Ruido(uint32_t semilla) : estado_(semilla * 2654435761u + 12345u) {}
    double siguiente() {
        estado_ = estado_ * 1664525u + 1013904223u;
        return static_cast<double>(estado_ >> 8) / static_cast<double>(1u << 23) - 1.0;
    }

private:
    uint32_t estado_;
};

// Topology-preserving state-variable filter: stable at any cutoff below Nyquist.
struct Filtro {
    double ic1 = 0, ic2 = 0;
    double lp = 0, bp = 0, hp = 0;
    void paso(double x, double corte, double q) {
        corte = std::clamp(corte, 20.0, Sr * 0.45);
        const double g = std::tan(std::numbers::pi * corte / Sr);
        const double k = 1.0 / q;
        const double a1 = 1.0 / (1.0 + g * (g + k));
        const double a2 = g * a1;
        const double a3 = g * a2;
        const double v3 = x - ic2;
        const double v1 = a1 * ic1 + a2 * v3;
        const double v2 = ic2 + a2 * ic1 + a3 * v3;
        ic1 = 2.0 * v1 - ic1;
        ic2 = 2.0 * v2 - ic2;
        lp = v2;
        bp = v1;
        hp = x - k * v1 - v2;
    }
};

// Band-limited step correction for saw and square oscillators.
double polyblep(double t, double dt) {
    if (t < dt) {
        t /= dt;
        return t + t - t * t - 1.0;
    }
    if (t > 1.0 - dt) {
        t = (t - 1.0) / dt;
        return t * t + t + t + 1.0;
    }
    return 0.0;
}

struct Oscilador {
    double fase = 0;
    double sierra(double f) {
        const double dt = f / Sr;
        const double v = 2.0 * fase - 1.0 - polyblep(fase, dt);
        avanzar(dt);
        return v;
    }
    double cuadrada(double f) { return pulso(f, 0.5); }
    double pulso(double f, double ancho) {
        const double dt = f / Sr;
        double v = fase < ancho ? 1.0 : -1.0;
        v += polyblep(fase, dt);
        v -= polyblep(std::fmod(fase + 1.0 - ancho, 1.0), dt);
        avanzar(dt);
        return v;
    }
    double seno(double f) {
        const double v = std::sin(Pi2 * fase);
        avanzar(f / Sr);
        return v;
    }
    void avanzar(double dt) {
        fase += dt;
        fase -= std::floor(fase);
    }
};

struct Adsr {
    double a, d, s, r;
    double nivelSinSoltar(double t) const {
        if (t < a) {
            return t / a;
        }
        if (t < a + d) {
            return 1.0 - (1.0 - s) * (t - a) / d;
        }
        return s;
    }
    double nivel(double t, double dur) const {
        if (t < dur) {
            return nivelSinSoltar(t);
        }
        return nivelSinSoltar(dur) * std::max(0.0, 1.0 - (t - dur) / r);
    }
};

struct Nota {
    double frecuencia; // Hz, 0 for a hit
    double inicio;     // s
    double duracion;   // s
    double fuerza;     // 0..1
    uint32_t semilla;
};

double decaer(double t, double rapidez) {
    return std::exp(-t * rapidez);
}

// Length of what one note leaves behind after it is released.
double cola(Timbre t) {
    switch (t) {
    case Timbre::Campana:
        return 1.6;
    case Timbre::Celesta:
    case Timbre::Acero:
        return 1.0;
    case Timbre::Marimba:
    case Timbre::Cuerda:
        return 0.8;
    case Timbre::Bombo:
    case Timbre::Conga:
    case Timbre::Caja:
    case Timbre::Palmas:
    case Timbre::Telefono:
    case Timbre::Campanilla:
        return 0.45;
    default:
        return 0.25;
    }
}

// Mixes one note, and what it leaves ringing, into `salida`: each instrument is a small
// loop over the samples of the note plus its tail.
void sonar(Timbre timbre, const Nota& n, double parametro, std::vector<double>& salida) {
    const double f = n.frecuencia;
    const double dur = n.duracion;
    const double largo = dur + cola(timbre);
    const auto inicio = static_cast<size_t>(std::llround(n.inicio * Sr));
    const auto cuenta = static_cast<size_t>(largo * Sr);
    if (salida.size() < inicio + cuenta) {
        salida.resize(inicio + cuenta, 0.0);
    }
    Ruido ruido(n.semilla);
    std::array<Oscilador, 6> osc{};
    if (timbre == Timbre::Arco || timbre == Timbre::Supersierra || timbre == Timbre::Distorsion) {
        // Detuned voices sound fuller from scattered (but fixed) phases; everything else
        // starts at zero so a struck sound begins without a click.
        for (auto& o : osc) {
            o.fase = (ruido.siguiente() + 1.0) * 0.5;
        }
    }
    Filtro fl, fl2;

    // Plucked string: a delay line whose loop keeps averaging (fractional length).
    std::vector<double> cuerda;
    double retardo = 0, perdida = 0;
    if (timbre == Timbre::Cuerda) {
        retardo = std::max(2.0, Sr / f - 0.5);
        perdida = std::pow(0.001, 1.0 / (1.6 * f));
        cuerda.assign(cuenta, 0.0);
    }

    for (size_t i = 0; i < cuenta; ++i) {
        const double t = static_cast<double>(i) / Sr;
        double v = 0;
        switch (timbre) {
        case Timbre::Arco: {
            const double vib = 1.0 + 0.006 * std::min(1.0, t / 0.25) * std::sin(Pi2 * 5.5 * t);
            const double x = osc[0].sierra(f * vib * 1.0017) + osc[1].sierra(f * vib / 1.0017);
            fl.paso(x, std::min(5000.0, f * 6.0), 0.7);
            v = 0.5 * fl.lp * Adsr{0.06, 0.1, 0.85, 0.18}.nivel(t, dur);
            break;
        }
        case Timbre::Flauta: {
            const double vib = 1.0 + 0.004 * std::min(1.0, t / 0.2) * std::sin(Pi2 * 5.0 * t);
            const double e = Adsr{0.03, 0.05, 0.9, 0.08}.nivel(t, dur);
            fl.paso(ruido.siguiente(), f * 2.0, 2.0);
            v = e * (osc[0].seno(f * vib) + 0.15 * osc[1].seno(2 * f * vib) +
                     0.05 * osc[2].seno(3 * f * vib) + 0.08 * fl.bp);
            break;
        }
        case Timbre::Campana: {
            const double indice = 3.5 * decaer(t, 2.0);
            const double m = std::sin(Pi2 * 1.4 * f * t) * indice;
            v = std::sin(Pi2 * f * t + m) * decaer(t, 2.2) * std::min(1.0, t / 0.002);
            break;
        }
        case Timbre::Celesta: {
            const double m = std::sin(Pi2 * 3.0 * f * t) * 1.2 * decaer(t, 5.0);
            v = (std::sin(Pi2 * f * t + m) * decaer(t, 3.5) +
                 0.3 * std::sin(Pi2 * 2 * f * t) * decaer(t, 6.0)) *
                std::min(1.0, t / 0.002);
            break;
        }
        case Timbre::Cuerda: {
            if (static_cast<double>(i) < retardo + 2.0) {
                // A softened burst: a pluck, not a scrape.
                fl.paso(ruido.siguiente(), std::min(6000.0, 2000.0 + 3.0 * f), 0.7);
                cuerda[i] = 1.8 * fl.lp;
            } else {
                const double pos = static_cast<double>(i) - retardo;
                const auto i0 = static_cast<size_t>(pos);
                const double fr = pos - static_cast<double>(i0);
                const double a = cuerda[i0] * (1 - fr) + cuerda[i0 + 1] * fr;
                const double b = cuerda[i0 - 1] * (1 - fr) + cuerda[i0] * fr;
                cuerda[i] = perdida * 0.5 * (a + b);
            }
            const double apagar = t < dur ? 1.0 : std::max(0.0, 1.0 - (t - dur) / 0.6);
            v = 0.7 * cuerda[i] * apagar;
            break;
        }
        case Timbre::Metal: {
            const double e = Adsr{0.03, 0.12, 0.8, 0.1}.nivel(t, dur);
            const double x = osc[0].sierra(f * (1.0 - 0.02 * decaer(t, 40.0)));
            fl.paso(x, f * (1.5 + 6.0 * e), 0.8);
            v = 0.7 * fl.lp * e;
            break;
        }
        case Timbre::Organo: {
            static constexpr std::array<std::array<double, 2>, 7> barras{
                {{0.5, 0.3}, {1, 1}, {2, 0.7}, {3, 0.5}, {4, 0.35}, {6, 0.2}, {8, 0.25}}};
            for (const auto& b : barras) {
                v += b[1] * std::sin(Pi2 * b[0] * f * t);
            }
            const double clic = t < 0.003 ? 0.3 * ruido.siguiente() : 0.0;
            v = 0.3 * (v * (1.0 + 0.1 * std::sin(Pi2 * 6.0 * t)) + clic) *
                Adsr{0.005, 0.05, 0.95, 0.06}.nivel(t, dur);
            break;
        }
        case Timbre::Cuadrada: {
            fl.paso(osc[0].cuadrada(f), f * 8.0, 0.7);
            v = 0.5 * fl.lp * Adsr{0.003, 0.06, 0.55, 0.04}.nivel(t, dur);
            break;
        }
        case Timbre::Pulso: {
            const double ancho = parametro > 0 ? parametro : 0.25;
            v = 0.45 * osc[0].pulso(f, ancho) * Adsr{0.003, 0.1, 0.5, 0.05}.nivel(t, dur);
            break;
        }
        case Timbre::Marimba: {
            v = std::sin(Pi2 * f * t) * decaer(t, 5.0) +
                0.35 * std::sin(Pi2 * 3.93 * f * t) * decaer(t, 14.0) +
                0.12 * std::sin(Pi2 * 9.3 * f * t) * decaer(t, 30.0);
            v *= std::min(1.0, t / 0.002);
            break;
        }
        case Timbre::Acero: {
            v = std::sin(Pi2 * f * t) * decaer(t, 3.0) +
                0.45 * std::sin(Pi2 * 2.0 * f * t) * decaer(t, 4.0) +
                0.25 * std::sin(Pi2 * 3.01 * f * t) * decaer(t, 6.0) +
                0.12 * std::sin(Pi2 * 4.0 * f * t) * decaer(t, 9.0);
            v *= std::min(1.0, t / 0.004) * 0.7;
            break;
        }
        case Timbre::Piano: {
            for (int k = 1; k <= 8; ++k) {
                const double fk = k * f * std::sqrt(1.0 + 0.0004 * k * k);
                if (fk < Sr * 0.45) {
                    v += std::sin(Pi2 * fk * t) / k * decaer(t, 1.2 + 0.9 * k);
                }
            }
            const double martillo = t < 0.005 ? 0.2 * ruido.siguiente() : 0.0;
            const double apagar = t < dur ? 1.0 : std::max(0.0, 1.0 - (t - dur) / 0.12);
            v = 0.6 * (v + martillo) * apagar * std::min(1.0, t / 0.002);
            break;
        }
        case Timbre::Distorsion: {
            const double x =
                osc[0].sierra(f) + osc[1].sierra(f * 1.004) + 0.6 * osc[2].sierra(f * 0.5);
            fl.paso(x, 3000.0, 0.7);
            fl2.paso(std::tanh(fl.lp * 6.0), 4500.0, 0.7);
            v = 0.5 * fl2.lp * Adsr{0.004, 0.08, 0.7, 0.06}.nivel(t, dur);
            break;
        }
        case Timbre::Bajo: {
            fl.paso(osc[0].sierra(f) + osc[1].seno(f), f * (2.0 + 8.0 * decaer(t, 12.0)), 1.0);
            v = 0.8 * fl.lp * Adsr{0.005, 0.2, 0.6, 0.06}.nivel(t, dur);
            break;
        }
        case Timbre::Supersierra: {
            static constexpr std::array<double, 5> cents{-12, -6, 0, 6, 12};
            double x = 0;
            for (size_t k = 0; k < cents.size(); ++k) {
                x += osc[k].sierra(f * std::pow(2.0, cents[k] / 1200.0));
            }
            fl.paso(x * 0.3, 2000.0 + 4000.0 * decaer(t, 6.0), 0.9);
            v = 0.7 * fl.lp * Adsr{0.005, 0.15, 0.6, 0.12}.nivel(t, dur);
            break;
        }
        case Timbre::Acido: {
            fl.paso(osc[0].sierra(f), 300.0 + 2500.0 * decaer(t, 14.0), 6.0);
            v = 0.6 * std::tanh(1.5 * fl.lp) * Adsr{0.002, 0.1, 0.7, 0.03}.nivel(t, dur);
            break;
        }
        case Timbre::Bombo: {
            const double fb = 45.0 + 110.0 * decaer(t, 30.0);
            const double clic = t < 0.002 ? 0.3 * ruido.siguiente() : 0.0;
            v = (osc[0].seno(fb) + clic) * decaer(t, 7.0);
            break;
        }
        case Timbre::Caja: {
            fl.paso(ruido.siguiente(), 1800.0, 0.8);
            v = 0.8 * fl.bp * decaer(t, 16.0) + 0.5 * osc[0].seno(190.0) * decaer(t, 25.0);
            break;
        }
        case Timbre::Charles: {
            fl.paso(ruido.siguiente(), 7000.0, 0.7);
            v = 0.7 * fl.hp * decaer(t, 45.0);
            break;
        }
        case Timbre::Palmas: {
            fl.paso(ruido.siguiente(), 1200.0, 1.5);
            double e = 0;
            for (double golpe : {0.0, 0.011, 0.022}) {
                if (t >= golpe) {
                    e += decaer(t - golpe, 180.0);
                }
            }
            if (t >= 0.022) {
                e += 0.6 * decaer(t - 0.022, 18.0);
            }
            v = 1.5 * fl.bp * e;
            break;
        }
        case Timbre::Clave: {
            v = (std::sin(Pi2 * 2500.0 * t) + 0.3 * std::sin(Pi2 * 5000.0 * t)) * decaer(t, 35.0);
            break;
        }
        case Timbre::Conga: {
            const double fc = (f > 0 ? f : 200.0) * (1.0 + 0.3 * decaer(t, 40.0));
            const double golpe = t < 0.004 ? 0.4 * ruido.siguiente() : 0.0;
            v = (osc[0].seno(fc) + golpe) * decaer(t, 9.0);
            break;
        }
        case Timbre::Maracas: {
            fl.paso(ruido.siguiente(), 5000.0, 0.7);
            v = 0.8 * fl.hp * decaer(t, 35.0) * std::min(1.0, t / 0.005);
            break;
        }
        case Timbre::Telefono:
        case Timbre::Campanilla: {
            // A hammer strikes at a fixed rate while the note lasts; each strike rings a
            // short bell. The two-bell kind alternates between two pitches.
            const bool dos = timbre == Timbre::Telefono;
            const double ritmo = parametro > 0 ? parametro : (dos ? 20.0 : 25.0);
            const double amortigua = dos ? 12.0 : 6.0;
            const int golpes = static_cast<int>(std::ceil(dur * ritmo));
            const int ultimo = std::min(golpes - 1, static_cast<int>(t * ritmo));
            for (int g = std::max(0, ultimo - 12); g <= ultimo; ++g) {
                const double tg = t - g / ritmo;
                const double fg = dos && (g % 2 == 1) ? f * 1.26 : f;
                v += (std::sin(Pi2 * fg * tg) + 0.35 * std::sin(Pi2 * 2.76 * fg * tg) +
                      0.15 * std::sin(Pi2 * 5.4 * fg * tg)) *
                     decaer(tg, amortigua) * std::min(1.0, tg / 0.001);
            }
            v *= 0.3;
            break;
        }
        case Timbre::Trino: {
            const double ritmo = parametro > 0 ? parametro : 16.0;
            const double lado = std::sin(Pi2 * ritmo * t) >= 0 ? 1.0 : 1.25;
            const double x = osc[0].seno(f * lado);
            v = (x + 0.3 * x * x * x) * 0.6 * Adsr{0.005, 0.01, 1.0, 0.02}.nivel(t, dur);
            break;
        }
        case Timbre::Sirena: {
            const double vueltas = parametro > 0 ? parametro : 1.0;
            const double fase = std::min(t, dur) / dur * vueltas;
            const double fs = f * (1.0 + 0.5 * (1.0 - std::cos(Pi2 * fase)));
            const double x = osc[0].seno(fs * (1.0 + 0.003 * std::sin(Pi2 * 6.0 * t)));
            v = (x + 0.2 * osc[1].seno(3.0 * fs)) * 0.6 * Adsr{0.05, 0.01, 1.0, 0.1}.nivel(t, dur);
            break;
        }
        }
        // Whatever still rings when the tail runs out fades instead of stopping dead.
        const double cierre = std::min(1.0, static_cast<double>(cuenta - i) / (0.03 * Sr));
        salida[inicio + i] += v * n.fuerza * cierre;
    }
}

int semitono(char letra) {
    switch (letra) {
    case 'C':
        return 0;
    case 'D':
        return 2;
    case 'E':
        return 4;
    case 'F':
        return 5;
    case 'G':
        return 7;
    case 'A':
        return 9;
    case 'B':
        return 11;
    default:
        throw std::invalid_argument(std::string("nota desconocida: ") + letra);
    }
}

double frecuenciaDe(const std::string& nombre) {
    if (nombre.empty()) {
        throw std::invalid_argument("nota vacía");
    }
    int midi = semitono(nombre[0]);
    size_t i = 1;
    if (i < nombre.size() && (nombre[i] == '#' || nombre[i] == 'b')) {
        midi += nombre[i] == '#' ? 1 : -1;
        ++i;
    }
    const int octava = std::stoi(nombre.substr(i));
    midi += 12 * (octava + 1);
    return 440.0 * std::pow(2.0, (midi - 69) / 12.0);
}

// Reads one voice into timed notes.
std::vector<Nota> leer(const Pista& p, double semicorchea, uint32_t semillaPista) {
    std::vector<Nota> notas;
    std::istringstream entrada(p.notas);
    std::string ficha;
    double posicion = 0;
    double largo = 1;
    uint32_t cuenta = 0;
    while (entrada >> ficha) {
        if (ficha == "|") {
            continue;
        }
        const bool acento = ficha.find('!') != std::string::npos;
        std::erase(ficha, '!');
        const auto punto = ficha.find('.');
        if (punto != std::string::npos) {
            largo = std::stod(ficha.substr(punto + 1));
            ficha.resize(punto);
        }
        if (ficha != "-") {
            std::istringstream acorde(ficha);
            std::string tono;
            while (std::getline(acorde, tono, '+')) {
                const double f = tono == "x" ? 0.0 : frecuenciaDe(tono);
                notas.push_back({f, posicion * semicorchea, largo * semicorchea,
                                 acento ? 1.0 : 0.75, semillaPista * 7919u + cuenta++});
            }
        }
        posicion += largo;
    }
    return notas;
}

// A light room: four damped combs in parallel, two all-passes in series.
std::vector<double> sala(const std::vector<double>& seco) {
    static constexpr std::array<size_t, 4> peines{1116, 1188, 1277, 1356};
    static constexpr std::array<size_t, 2> pasatodos{556, 441};
    std::vector<double> humedo(seco.size(), 0.0);
    for (size_t largo : peines) {
        std::vector<double> linea(largo, 0.0);
        double filtro = 0;
        size_t pos = 0;
        for (size_t i = 0; i < seco.size(); ++i) {
            const double salida = linea[pos];
            filtro = salida * 0.6 + filtro * 0.4;
            linea[pos] = seco[i] + filtro * 0.8;
            humedo[i] += salida * 0.25;
            pos = (pos + 1) % largo;
        }
    }
    for (size_t largo : pasatodos) {
        std::vector<double> linea(largo, 0.0);
        size_t pos = 0;
        for (double& x : humedo) {
            const double guardado = linea[pos];
            const double salida = -x + guardado;
            linea[pos] = x + guardado * 0.5;
            x = salida;
            pos = (pos + 1) % largo;
        }
    }
    return humedo;
}

} // namespace

std::vector<float> Renderizar(const Melodia& m) {
    const double semicorchea = 60.0 / m.pulsosPorMinuto / 4.0;
    std::vector<double> mezcla;
    uint32_t semilla = 1;
    for (const Pista& p : m.pistas) {
        std::vector<double> pista;
        for (const Nota& n : leer(p, semicorchea, semilla++)) {
            sonar(p.timbre, n, p.parametro, pista);
        }
        if (mezcla.size() < pista.size()) {
            mezcla.resize(pista.size(), 0.0);
        }
        for (size_t i = 0; i < pista.size(); ++i) {
            mezcla[i] += pista[i] * p.ganancia;
        }
    }
    mezcla.resize(mezcla.size() + static_cast<size_t>(0.4 * Sr), 0.0);
    const std::vector<double> humedo = sala(mezcla);
    for (size_t i = 0; i < mezcla.size(); ++i) {
        mezcla[i] = mezcla[i] * (1.0 - m.eco) + humedo[i] * m.eco;
    }

    double pico = 0;
    for (double x : mezcla) {
        pico = std::max(pico, std::abs(x));
    }
    const double escala = pico > 0 ? 0.89 / pico : 0.0;
    // Drop the silent end, keep a short fade so the file never ends on a click.
    size_t fin = mezcla.size();
    while (fin > 0 && std::abs(mezcla[fin - 1] * escala) < 0.0005) {
        --fin;
    }
    const size_t fundido = std::min(fin, static_cast<size_t>(0.05 * Sr));
    std::vector<float> muestras(fin);
    for (size_t i = 0; i < fin; ++i) {
        double g = escala;
        if (i + fundido >= fin) {
            g *= static_cast<double>(fin - i) / static_cast<double>(fundido);
        }
        muestras[i] = static_cast<float>(std::clamp(mezcla[i] * g, -1.0, 1.0));
    }
    return muestras;
}

bool EscribirWav(const std::string& ruta, const std::vector<float>& muestras) {
    std::ofstream f(ruta, std::ios::binary | std::ios::trunc);
    if (!f) {
        return false;
    }
    auto u32 = [&f](uint32_t v) {
        const std::array<char, 4> b{static_cast<char>(v & 0xFF), static_cast<char>((v >> 8) & 0xFF),
                                    static_cast<char>((v >> 16) & 0xFF),
                                    static_cast<char>((v >> 24) & 0xFF)};
        f.write(b.data(), 4);
    };
    auto u16 = [&f](uint16_t v) {
        const std::array<char, 2> b{static_cast<char>(v & 0xFF), static_cast<char>(v >> 8)};
        f.write(b.data(), 2);
    };
    const auto datos = static_cast<uint32_t>(muestras.size() * 2);
    f.write("RIFF", 4);
    u32(36 + datos);
    f.write("WAVEfmt ", 8);
    u32(16);
    u16(1); // PCM
    u16(1); // mono
    u32(Muestreo);
    u32(Muestreo * 2);
    u16(2);
    u16(16);
    f.write("data", 4);
    u32(datos);
    for (float x : muestras) {
        const auto s = static_cast<int16_t>(std::lround(x * 32767.0F));
        u16(static_cast<uint16_t>(s));
    }
    return static_cast<bool>(f);
}

} // namespace sinte
