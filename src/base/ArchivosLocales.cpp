#include "base/ArchivosLocales.h"

#include "base/CifradoAjustes.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "base/Windows1252.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int kErrorAccesoRuta = 75;
constexpr int kRutaNoEncontrada = 76;

[[noreturn]] void fallo(int numeroErrno, bool escribiendo) {
    switch (numeroErrno) {
    case EACCES:
    case EPERM:
    case EROFS:
        throw ErrorEjecucion(ErrorEjecucion::PermisoDenegado);
    case ENOENT:
    case ENOTDIR:
        throw ErrorEjecucion(kRutaNoEncontrada);
    case ENOSPC:
    case EDQUOT:
        throw ErrorEjecucion(ErrorEjecucion::DiscoLleno);
    default:
        throw ErrorEjecucion(escribiendo ? ErrorEjecucion::ErrorDeEntradaSalida : kErrorAccesoRuta);
    }
}

// A file opened for binary access: created when absent, never truncated, always closed.
class ArchivoBinario {
public:
    ArchivoBinario(const QString& ruta, mode_t permisos) {
        const QByteArray nombre = QFile::encodeName(ruta);
        fd_ = ::open(nombre.constData(), O_RDWR | O_CREAT | O_CLOEXEC, permisos);
        if (fd_ < 0) {
            fallo(errno, false);
        }
    }
    ~ArchivoBinario() {
        if (fd_ >= 0) {
            ::close(fd_);
        }
    }
    ArchivoBinario(const ArchivoBinario&) = delete;
    ArchivoBinario& operator=(const ArchivoBinario&) = delete;

    QByteArray leerTodo() const {
        QByteArray r;
        char bloque[4096];
        off_t desde = 0;
        for (;;) {
            const ssize_t n = ::pread(fd_, bloque, sizeof bloque, desde);
            if (n < 0) {
                if (errno == EINTR) {
                    continue;
                }
                fallo(errno, false);
            }
            if (n == 0) {
                return r;
            }
            r.append(bloque, n);
            desde += n;
        }
    }

    void escribirDesdeElPrincipio(const QByteArray& datos) const {
        qsizetype hecho = 0;
        while (hecho < datos.size()) {
            const ssize_t n = ::pwrite(fd_, datos.constData() + hecho,
                                       static_cast<size_t>(datos.size() - hecho), hecho);
            if (n < 0) {
                if (errno == EINTR) {
                    continue;
                }
                fallo(errno, true);
            }
            hecho += n;
        }
    }

    // Close reports the errors a delayed write may still have (a full disk over NFS).
    void cerrar() {
        const int fd = fd_;
        fd_ = -1;
        if (::close(fd) != 0 && errno != EINTR) {
            fallo(errno, true);
        }
    }

private:
    int fd_ = -1;
};

QString rutaEn(const QString& carpeta, const QString& nombre) {
    return carpeta.isEmpty() ? nombre : QDir(carpeta).filePath(nombre);
}

// Reads the record's fields in order; past the end of the data a field is 0 or empty
// (an integer cut short keeps the bytes that are there).
class LectorRegistro {
public:
    explicit LectorRegistro(const QByteArray& d) : d_(d) {}
    quint32 entero(int bytes) {
        quint32 v = 0;
        for (int k = 0; k < bytes; ++k) {
            if (p_ < d_.size()) {
                v |= static_cast<quint32>(static_cast<unsigned char>(d_[p_])) << (8 * k);
            }
            ++p_;
        }
        return v;
    }
    QString texto() {
        if (p_ >= d_.size()) {
            return QString();
        }
        const auto largo = static_cast<qsizetype>(entero(2));
        const qsizetype desde = qMin(p_, d_.size());
        const qsizetype hay = qMin(largo, d_.size() - desde);
        p_ += largo;
        return cp1252::aTexto(d_.constData() + desde, hay);
    }

private:
    const QByteArray& d_;
    qsizetype p_ = 0;
};

void anadirEntero(QByteArray& r, quint32 v, int bytes) {
    for (int k = 0; k < bytes; ++k) {
        r.append(static_cast<char>((v >> (8 * k)) & 0xFF));
    }
}

void anadirTexto(QByteArray& r, const QString& t) {
    const QByteArray b = cp1252::aBytes(t).left(0xFFFF);
    anadirEntero(r, static_cast<quint32>(b.size()), 2);
    r.append(b);
}

} // namespace

void GuardarConfigTxt(ModuloPrincipal& m) {
    m.RutaConfigTxt = rutaEn(m.CarpetaDatos, QStringLiteral("config.txt"));
    QByteArray r;
    anadirEntero(r, static_cast<quint32>(m.IdEstablecimiento), 4);
    anadirTexto(r, QString()); // the plain password never reaches the disk
    anadirTexto(r, m.ImpresoraAntigua);
    anadirTexto(r, m.Reservado);
    anadirTexto(r, m.PasswordConfigCifrada);
    anadirEntero(r, static_cast<quint16>(m.AccesosCreados), 2);
    anadirEntero(r, static_cast<quint16>(m.MetconGuardado), 2);
    anadirEntero(r, static_cast<quint16>(m.NumConfig), 2);
    ArchivoBinario archivo(m.RutaConfigTxt, 0600);
    archivo.escribirDesdeElPrincipio(r);
    archivo.cerrar();
}

void LeerConfigTxt(ModuloPrincipal& m) {
    m.RutaConfigTxt = rutaEn(m.CarpetaDatos, QStringLiteral("config.txt"));
    QByteArray datos;
    {
        ArchivoBinario archivo(m.RutaConfigTxt, 0600);
        datos = archivo.leerTodo();
        archivo.cerrar();
    }
    LectorRegistro r(datos);
    m.IdEstablecimiento = static_cast<qint32>(r.entero(4));
    m.PasswordConfig = r.texto();
    m.ImpresoraAntigua = r.texto();
    m.Reservado = r.texto();
    m.PasswordConfigCifrada = r.texto();
    m.AccesosCreados = static_cast<qint16>(r.entero(2));
    m.MetconGuardado = static_cast<qint16>(r.entero(2));
    m.NumConfig = static_cast<qint16>(r.entero(2));

    // Old versions kept the password in the clear: encipher it once.
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

void LeerUltPedIm(ModuloPrincipal& m) {
    m.RutaUltPedIm = rutaEn(m.CarpetaDatos, QStringLiteral("ultpedim.txt"));
    QByteArray datos;
    {
        ArchivoBinario archivo(m.RutaUltPedIm, 0666);
        datos = archivo.leerTodo();
        archivo.cerrar();
    }
    // Comma-delimited fields as the classic Input # reads them: leading blanks skipped, a
    // quoted field up to its closing quote, a plain one up to a comma or a line end and
    // trimmed at the right; empty fields at the start do not count.
    const QString t = cp1252::aTexto(datos);
    const qsizetype n = t.size();
    qsizetype p = 0;
    QString lista;
    auto esFinDeLinea = [&](qsizetype i) { return t[i] == u'\r' || t[i] == u'\n'; };
    while (p < n) {
        while (p < n && (t[p] == u' ' || t[p] == u'\t')) {
            ++p;
        }
        QString campo;
        if (p < n && t[p] == u'"') {
            const qsizetype cierre = t.indexOf(u'"', p + 1);
            const qsizetype fin = cierre < 0 ? n : cierre;
            campo = t.mid(p + 1, fin - p - 1);
            p = cierre < 0 ? n : cierre + 1;
            while (p < n && t[p] != u',' && !esFinDeLinea(p)) {
                ++p;
            }
        } else {
            const qsizetype desde = p;
            while (p < n && t[p] != u',' && !esFinDeLinea(p)) {
                ++p;
            }
            campo = t.mid(desde, p - desde);
            while (campo.endsWith(u' ') || campo.endsWith(u'\t')) {
                campo.chop(1);
            }
        }
        if (p < n && t[p] == u',') {
            ++p;
        } else if (p < n && t[p] == u'\r') {
            ++p;
            if (p < n && t[p] == u'\n') {
                ++p;
            }
        } else if (p < n) {
            ++p;
        }
        lista = lista.isEmpty() ? campo : lista + u',' + campo;
    }
    m.UltPedIm = lista;
}

void GuardarUltPedIm(ModuloPrincipal& m) {
    m.RutaUltPedIm = rutaEn(m.CarpetaDatos, QStringLiteral("ultpedim.txt"));
    ArchivoBinario archivo(m.RutaUltPedIm, 0666);
    archivo.escribirDesdeElPrincipio(cp1252::aBytes(m.UltPedIm));
    archivo.cerrar();
}
