#include "base/ArchivosLocales.h"

#include "base/CifradoAjustes.h"
#include "base/ErrorEjecucion.h"
#include "base/ModuloPrincipal.h"
#include "base/Windows1252.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
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
    case EFBIG:
        throw ErrorEjecucion(ErrorEjecucion::DiscoLleno);
    default:
        throw ErrorEjecucion(escribiendo ? ErrorEjecucion::ErrorDeEntradaSalida : kErrorAccesoRuta);
    }
}

// A file opened for binary access: created when absent, never truncated, always closed.
class ArchivoBinario {
public:
    // For a reading, a file that may only be read is read all the same.
    ArchivoBinario(const QString& ruta, mode_t permisos, bool paraLeer = false) {
        const QByteArray nombre = QFile::encodeName(ruta);
        fd_ = ::open(nombre.constData(), O_RDWR | O_CREAT | O_CLOEXEC, permisos);
        if (fd_ < 0) {
            const int numero = errno;
            if (paraLeer && (numero == EACCES || numero == EROFS)) {
                fd_ = ::open(nombre.constData(), O_RDONLY | O_CLOEXEC);
            }
            if (fd_ < 0) {
                fallo(numero, false);
            }
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

// Writes `datos` over the start of the file at `ruta` without ever leaving it half
// written: the new contents (with whatever the old file held past them, which the readers
// may rely on) go to a temporary file in the same folder, synced, then renamed over it.
// A device (/dev/full), a link, or a folder where no temporary file can be made is written
// in place, as the file would have been opened before.
void escribirEntero(const QString& ruta, const QByteArray& datos, mode_t permisos,
                    bool conservarCola = true) {
    const QByteArray nombre = QFile::encodeName(ruta);
    struct stat estado {};
    const bool existe = ::lstat(nombre.constData(), &estado) == 0;
    const auto enSuSitio = [&] {
        ArchivoBinario archivo(ruta, permisos);
        archivo.escribirDesdeElPrincipio(datos);
        archivo.cerrar();
    };
    if (existe && !S_ISREG(estado.st_mode)) {
        enSuSitio();
        return;
    }
    QByteArray completo = datos;
    if (existe) {
        const int viejo = ::open(nombre.constData(), O_RDONLY | O_CLOEXEC);
        if (viejo >= 0) {
            char bloque[4096];
            off_t desde = 0;
            QByteArray anterior;
            ssize_t n = 0;
            while ((n = ::pread(viejo, bloque, sizeof bloque, desde)) > 0) {
                anterior.append(bloque, n);
                desde += n;
            }
            ::close(viejo);
            if (conservarCola && anterior.size() > datos.size()) {
                completo.append(anterior.mid(datos.size()));
            }
        }
        permisos = estado.st_mode & 07777;
    } else {
        const mode_t mascara = ::umask(0);
        ::umask(mascara);
        permisos &= ~mascara;
    }
    QByteArray plantilla = nombre + ".XXXXXX";
    const int fd = ::mkstemp(plantilla.data());
    if (fd < 0) {
        if (errno == EACCES || errno == EPERM || errno == EROFS) {
            enSuSitio();
            return;
        }
        fallo(errno, true);
    }
    const auto abandonar = [&](int numeroErrno) {
        ::close(fd);
        ::unlink(plantilla.constData());
        fallo(numeroErrno, true);
    };
    qsizetype hecho = 0;
    while (hecho < completo.size()) {
        const ssize_t n =
            ::write(fd, completo.constData() + hecho, static_cast<size_t>(completo.size() - hecho));
        if (n < 0) {
            if (errno == EINTR) {
                continue;
            }
            abandonar(errno);
        }
        hecho += n;
    }
    if (::fchmod(fd, permisos) != 0 || ::fsync(fd) != 0) {
        abandonar(errno);
    }
    if (::close(fd) != 0) {
        const int e = errno;
        ::unlink(plantilla.constData());
        fallo(e, true);
    }
    if (::rename(plantilla.constData(), nombre.constData()) != 0) {
        const int e = errno;
        ::unlink(plantilla.constData());
        fallo(e, true);
    }
}

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
        if (p_ < d_.size() && p_ + bytes > d_.size()) {
            cortado_ = true;
        }
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
        cortado_ = cortado_ || hay < largo;
        p_ += largo;
        return cp1252::aTexto(d_.constData() + desde, hay);
    }

    // A field that began before the end of the data and did not fit in it: the file was
    // cut short or is not a record at all. A record that ends between two fields is one of
    // an older version, not a damaged one.
    bool cortado() const { return cortado_; }

private:
    const QByteArray& d_;
    qsizetype p_ = 0;
    bool cortado_ = false;
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

bool esHexadecimal(const QString& t) {
    if (t.size() % 2 != 0) {
        return false;
    }
    return std::all_of(t.begin(), t.end(), [](QChar c) {
        return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F') || (c >= u'a' && c <= u'f');
    });
}

bool esNumeroPedido(const QString& campo) {
    return std::all_of(campo.begin(), campo.end(), [](QChar c) {
        return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') ||
               c == u'-' || c == u'_';
    });
}

} // namespace

QString TextoFalloGuardar(const QString& nombre, const ErrorEjecucion& e) {
    QString consejo;
    switch (e.numero()) {
    case ErrorEjecucion::DiscoLleno:
        consejo = QStringLiteral("Por favor, libere espacio en el disco.");
        break;
    case ErrorEjecucion::PermisoDenegado:
        consejo = QStringLiteral("Por favor, compruebe los permisos de la carpeta.");
        break;
    default:
        consejo = QStringLiteral("Por favor, compruebe el disco.");
        break;
    }
    return QStringLiteral("No se ha podido guardar %1 (%2). %3")
        .arg(nombre, e.descripcion(), consejo);
}

QString TextoFalloLeerConfig(const ErrorEjecucion& e) {
    return QStringLiteral("No se ha podido leer el archivo de configuración config.txt (%1). "
                          "Por favor, compruebe sus permisos o introduzca de nuevo los datos del "
                          "establecimiento en Admin.")
        .arg(e.descripcion());
}

bool GuardarAvisando(ModuloPrincipal& m, const QString& nombre,
                     const std::function<void(ModuloPrincipal&)>& guardar) {
    try {
        guardar(m);
    } catch (const ErrorEjecucion& e) {
        Q_EMIT m.avisoArchivos(TextoFalloGuardar(nombre, e));
        return false;
    }
    Q_EMIT m.avisoArchivos(QString());
    return true;
}

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
    escribirEntero(m.RutaConfigTxt, r, 0600);
}

QString LeerConfigTxt(ModuloPrincipal& m) {
    m.RutaConfigTxt = rutaEn(m.CarpetaDatos, QStringLiteral("config.txt"));
    const bool existia = QFileInfo::exists(m.RutaConfigTxt);
    QByteArray datos;
    {
        ArchivoBinario archivo(m.RutaConfigTxt, 0600, true);
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

    QString aviso;
    bool reescribir = true;
    if (existia && datos.isEmpty()) {
        aviso = AvisoConfigVacio;
    } else if (r.cortado() || m.IdEstablecimiento < 0 || !esHexadecimal(m.PasswordConfigCifrada)) {
        // What can be read is used; the file as it was is kept aside before anything is
        // written over it, and if that copy cannot be made it is not written over at all.
        aviso = AvisoConfigDanado;
        try {
            escribirEntero(rutaEn(m.CarpetaDatos, NombreCopiaConfigDanado), datos, 0600);
        } catch (const ErrorEjecucion& e) {
            reescribir = false;
            aviso = AvisoConfigDanadoSinCopia.arg(e.descripcion());
        }
        if (!esHexadecimal(m.PasswordConfigCifrada)) {
            m.PasswordConfigCifrada.clear();
        }
    }

    // A rewrite that fails (a full disk) is told and the reading goes on: what was read is
    // in memory and the file on disk is still whole.
    const auto reescribirSiSePuede = [&] {
        if (!reescribir) {
            return;
        }
        try {
            GuardarConfigTxt(m);
        } catch (const ErrorEjecucion& e) {
            reescribir = false;
            const QString fallo = TextoFalloGuardar(QStringLiteral("config.txt"), e);
            aviso = aviso.isEmpty() ? fallo : aviso + QLatin1Char(' ') + fallo;
        }
    };
    // Old versions kept the password in the clear: encipher it once.
    if (!m.PasswordConfig.isEmpty() && m.PasswordConfigCifrada.isEmpty()) {
        m.PasswordConfigCifrada = CifrarAjuste(m.PasswordConfig, ModuloPrincipal::ClaveAjustes);
        reescribirSiSePuede();
    }
    if (m.NumConfig == 0 || m.NumConfig > 9) {
        m.NumConfig = 1;
        reescribirSiSePuede();
    }
    m.Metcon = m.MetconGuardado;
    m.PasswordConfig = DescifrarAjuste(m.PasswordConfigCifrada, ModuloPrincipal::ClaveAjustes);
    return aviso;
}

QString LeerUltPedIm(ModuloPrincipal& m) {
    m.RutaUltPedIm = rutaEn(m.CarpetaDatos, QStringLiteral("ultpedim.txt"));
    QByteArray datos;
    {
        ArchivoBinario archivo(m.RutaUltPedIm, 0666, true);
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
    bool descartados = false;
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
        // The list goes raw into a request: a field that is no order number is dropped.
        if (!esNumeroPedido(campo)) {
            descartados = true;
            continue;
        }
        lista = lista.isEmpty() ? campo : lista + u',' + campo;
    }
    m.UltPedIm = lista;
    if (!descartados) {
        return QString();
    }
    // The damaged file is kept aside and replaced by the numbers that could be read, whole:
    // its tail would bring the same garbage back at every reading.
    try {
        escribirEntero(rutaEn(m.CarpetaDatos, NombreCopiaUltPedImDanado), datos, 0600);
        escribirEntero(m.RutaUltPedIm, cp1252::aBytes(lista), 0666, false);
    } catch (const ErrorEjecucion& e) {
        return AvisoUltPedImDanado + QLatin1Char(' ') +
               TextoFalloGuardar(QStringLiteral("ultpedim.txt"), e);
    }
    return AvisoUltPedImDanado;
}

void GuardarUltPedIm(ModuloPrincipal& m) {
    m.RutaUltPedIm = rutaEn(m.CarpetaDatos, QStringLiteral("ultpedim.txt"));
    escribirEntero(m.RutaUltPedIm, cp1252::aBytes(m.UltPedIm), 0666);
}
