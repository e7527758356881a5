#include "shell/ArchivosLocales.h"

#include "platform/ErrorEjecucion.h"
#include "platform/Windows1252.h"
#include "shell/ModuloPrincipal.h"

#include <QDir>
#include <QFile>
#include <QtEndian>
#include <array>

namespace {

void abrirBinario(QFile& f) {
    // Binary access creates a missing file and never truncates an existing one.
    if (!f.open(QIODevice::ReadWrite)) {
        throw ErrorEjecucion(f.exists() ? ErrorEjecucion::PermisoDenegado
                                        : ErrorEjecucion::ArchivoNoEncontrado);
    }
}

// Reads past the end leave the field as it was (0 or empty).
class Lector {
public:
    explicit Lector(QByteArray datos) : d_(std::move(datos)) {}
    template <typename T> void entero(T& v) {
        if (p_ + static_cast<qsizetype>(sizeof(T)) <= d_.size()) {
            v = qFromLittleEndian<T>(d_.constData() + p_);
        }
        p_ += sizeof(T);
    }
    void texto(QString& v) {
        quint16 n = 0;
        if (p_ + 2 > d_.size()) {
            p_ += 2;
            return;
        }
        entero(n);
        v = cp1252::aTexto(d_.mid(p_, n));
        p_ += n;
    }

private:
    QByteArray d_;
    qsizetype p_ = 0;
};

void escribirTexto(QByteArray& b, const QString& t) {
    const QByteArray bytes = cp1252::aBytes(t);
    if (bytes.size() > 0xFFFF) {
        throw ErrorEjecucion(ErrorEjecucion::Desbordamiento);
    }
    const auto n = qToLittleEndian(static_cast<quint16>(bytes.size()));
    b.append(reinterpret_cast<const char*>(&n), 2);
    b.append(bytes);
}

template <typename T> void escribirEntero(QByteArray& b, T v) {
    const T le = qToLittleEndian(v);
    b.append(reinterpret_cast<const char*>(&le), sizeof(T));
}

void escribirDesdeElPrincipio(const QString& ruta, const QByteArray& datos) {
    QFile f(ruta);
    abrirBinario(f);
    if (f.write(datos) != datos.size()) {
        throw ErrorEjecucion(ErrorEjecucion::DiscoLleno);
    }
}

QString rutaEn(const ModuloPrincipal& m, const char* nombre) {
    return QDir(m.CarpetaDatos).filePath(QLatin1String(nombre));
}

QByteArray TransformarRC4(const QByteArray& texto, const QByteArray& clave) {
    std::array<quint8, 256> s{};
    for (int i = 0; i < 256; ++i) {
        s[i] = static_cast<quint8>(i);
    }
    if (!clave.isEmpty()) {
        int j = 0;
        for (int i = 0; i < 256; ++i) {
            j = (j + s[i] + static_cast<quint8>(clave[i % clave.size()])) % 256;
            std::swap(s[i], s[j]);
        }
    }
    QByteArray r;
    r.reserve(texto.size());
    int i = 0;
    int j = 0;
    for (const char ch : texto) {
        i = (i + 1) % 256;
        j = (j + s[i]) % 256;
        std::swap(s[i], s[j]);
        const quint8 k = s[(s[i] + s[j]) % 256];
        const auto c = static_cast<quint8>(ch);
        // Where the key stream equals the byte the byte stays: no output byte is ever 0.
        r.append(static_cast<char>(k == c ? c : (k ^ c)));
    }
    return r;
}

} // namespace

void LeerConfigTxt(ModuloPrincipal& m) {
    m.RutaConfigTxt = rutaEn(m, "config.txt");
    QByteArray datos;
    {
        QFile f(m.RutaConfigTxt);
        abrirBinario(f);
        datos = f.readAll();
    }
    Lector l(datos);
    l.entero(m.IdEstablecimiento);
    l.texto(m.PasswordConfig);
    l.texto(m.ImpresoraAntigua);
    l.texto(m.Reservado);
    l.texto(m.PasswordConfigCifrada);
    l.entero(m.AccesosCreados);
    l.entero(m.MetconGuardado);
    l.entero(m.NumConfig);

    if (!m.PasswordConfig.isEmpty() && m.PasswordConfigCifrada.isEmpty()) {
        m.PasswordConfigCifrada = CifrarAjuste(m.PasswordConfig, ModuloPrincipal::ClaveAjustes);
        GuardarConfigTxt(m);
    }
    if (m.NumConfig == 0 || m.NumConfig > 9) {
        m.NumConfig = 1;
        GuardarConfigTxt(m);
    }
    m.Metcon = m.MetconGuardado;
    m.PasswordConfig = DescifrarAjuste(m.PasswordConfigCifrada, ModuloPrincipal::ClaveAjustes);
}

void GuardarConfigTxt(ModuloPrincipal& m) {
    if (m.RutaConfigTxt.isEmpty()) {
        m.RutaConfigTxt = rutaEn(m, "config.txt");
    }
    QByteArray b;
    escribirEntero<qint32>(b, m.IdEstablecimiento);
    escribirTexto(b, QString()); // the plain password never reaches the disk
    escribirTexto(b, m.ImpresoraAntigua);
    escribirTexto(b, m.Reservado);
    escribirTexto(b, m.PasswordConfigCifrada);
    escribirEntero<qint16>(b, m.AccesosCreados);
    escribirEntero<qint16>(b, m.MetconGuardado);
    escribirEntero<qint16>(b, m.NumConfig);
    escribirDesdeElPrincipio(m.RutaConfigTxt, b);
}

void LeerUltPedIm(ModuloPrincipal& m) {
    m.RutaUltPedIm = rutaEn(m, "ultpedim.txt");
    QByteArray datos;
    {
        QFile f(m.RutaUltPedIm);
        abrirBinario(f);
        datos = f.readAll();
    }
    m.UltPedIm.clear();
    // Comma-delimited fields, read one at a time; line ends separate fields too.
    QString texto = cp1252::aTexto(datos);
    texto.replace(QLatin1String("\r\n"), QLatin1String(","));
    texto.replace(QLatin1Char('\n'), QLatin1Char(','));
    if (texto.endsWith(QLatin1Char(','))) {
        texto.chop(1);
    }
    if (texto.isEmpty()) {
        return;
    }
    for (const QString& campo : texto.split(QLatin1Char(','))) {
        QString c = campo.trimmed();
        if (c.size() >= 2 && c.startsWith(QLatin1Char('"')) && c.endsWith(QLatin1Char('"'))) {
            c = c.mid(1, c.size() - 2);
        }
        m.UltPedIm = m.UltPedIm.isEmpty() ? c : m.UltPedIm + QLatin1Char(',') + c;
    }
}

void GuardarUltPedIm(ModuloPrincipal& m) {
    if (m.RutaUltPedIm.isEmpty()) {
        m.RutaUltPedIm = rutaEn(m, "ultpedim.txt");
    }
    escribirDesdeElPrincipio(m.RutaUltPedIm, cp1252::aBytes(m.UltPedIm));
}

QString CifrarAjuste(const QString& texto, const QString& clave) {
    return QString::fromLatin1(
        TransformarRC4(cp1252::aBytes(texto), cp1252::aBytes(clave)).toHex().toUpper());
}

QString DescifrarAjuste(const QString& texto, const QString& clave) {
    QByteArray bytes;
    for (qsizetype i = 0; i < texto.size(); i += 2) {
        bool ok = false;
        const int v = texto.mid(i, 2).toInt(&ok, 16);
        if (!ok) {
            throw ErrorEjecucion(ErrorEjecucion::NoCoincidenLosTipos);
        }
        bytes.append(static_cast<char>(v));
    }
    return cp1252::aTexto(TransformarRC4(bytes, cp1252::aBytes(clave)));
}
