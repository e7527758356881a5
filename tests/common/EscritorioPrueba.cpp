#include "common/EscritorioPrueba.h"

#include "base/ArchivosLocales.h"
#include "base/CifradoAjustes.h"
#include "base/ModuloPrincipal.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcessEnvironment>
#include <QTest>

EscritorioPrueba::EscritorioPrueba(QString carpeta) : carpeta_(std::move(carpeta)) {
    if (carpeta_.isEmpty()) {
        carpeta_ = propia_.path();
    }
    volcado_ = QDir(home_.path()).filePath(QStringLiteral("ventana.txt"));
    registroCajas_ = QDir(home_.path()).filePath(QStringLiteral("cajas.txt"));
    proceso_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

EscritorioPrueba::~EscritorioPrueba() {
    terminar();
}

bool EscritorioPrueba::iniciar(const QString& servidor, const QStringList& argumentos,
                               const QStringList& respuestas) {
    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    entorno.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    // Quiet, unless whoever runs the test asks for the journal on stderr.
    if (!entorno.contains(QStringLiteral("QT_LOGGING_RULES"))) {
        entorno.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("tarvimenta.*=false"));
    }
    entorno.insert(QStringLiteral("HOME"), home_.path());
    entorno.insert(QStringLiteral("XDG_CONFIG_HOME"),
                   QDir(home_.path()).filePath(QStringLiteral(".config")));
    entorno.insert(QStringLiteral("XDG_DATA_HOME"),
                   QDir(home_.path()).filePath(QStringLiteral(".local/share")));
    entorno.remove(QStringLiteral("TARVIMENTA_SERVIDOR"));
    entorno.remove(QStringLiteral("TARVIMENTA_CARPETA"));
    proceso_.setProcessEnvironment(entorno);
    QStringList args{
        QStringLiteral("--servidor=") + servidor, QStringLiteral("--carpeta=") + carpeta_,
        QStringLiteral("--cajas=") + registroCajas_, QStringLiteral("--volcado=") + volcado_};
    if (!respuestas.isEmpty()) {
        args << QStringLiteral("--respuestas=") + respuestas.join(QLatin1Char(','));
    }
    args << argumentos;
    proceso_.start(QStringLiteral(TARVIMENTA_EXE), args);
    return proceso_.waitForStarted(10000);
}

bool EscritorioPrueba::esperarFin(int msMax, int* codigo) {
    if (proceso_.state() != QProcess::NotRunning && !proceso_.waitForFinished(msMax)) {
        return false;
    }
    if (codigo != nullptr) {
        *codigo = proceso_.exitCode();
    }
    return true;
}

void EscritorioPrueba::terminar() {
    if (proceso_.state() == QProcess::NotRunning) {
        return;
    }
    proceso_.terminate();
    if (!proceso_.waitForFinished(5000)) {
        proceso_.kill();
        proceso_.waitForFinished(5000);
    }
}

QMap<QString, EscritorioPrueba::Control> EscritorioPrueba::ventana() const {
    QMap<QString, Control> r;
    QFile f(volcado_);
    if (!f.open(QIODevice::ReadOnly)) {
        return r;
    }
    const QStringList lineas =
        QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& l : lineas) {
        const QStringList c = l.split(QLatin1Char('\t'));
        if (c.size() == 5) {
            r.insert(c[0], Control{c[1], c[2] == QLatin1String("1"), c[3] == QLatin1String("1"),
                                   QColor(c[4])});
        }
    }
    return r;
}

QList<EscritorioPrueba::Caja> EscritorioPrueba::cajas() const {
    QList<Caja> r;
    QFile f(registroCajas_);
    if (!f.open(QIODevice::ReadOnly)) {
        return r;
    }
    for (const QString& l :
         QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QStringList c = l.split(QLatin1Char('\t'));
        if (c.size() >= 3) {
            QString texto = c.mid(2).join(QLatin1Char('\t'));
            texto.replace(QLatin1String("\\n"), QLatin1String("\n"))
                .replace(QLatin1String("\\r"), QLatin1String("\r"));
            r.append(Caja{c[0].toInt(), c[1], texto});
        }
    }
    return r;
}

bool EscritorioPrueba::esperarVentana(
    const std::function<bool(const QMap<QString, Control>&)>& condicion, int msMax) const {
    return EsperarHasta([&] { return condicion(ventana()); }, msMax);
}

void PrepararEstablecimiento(const QString& carpeta, int id, const QString& clave, int numConfig) {
    ModuloPrincipal m;
    m.CarpetaDatos = carpeta;
    m.IdEstablecimiento = id;
    m.PasswordConfigCifrada = CifrarAjuste(clave, ModuloPrincipal::ClaveAjustes);
    m.NumConfig = numConfig;
    m.AccesosCreados = 1;
    GuardarConfigTxt(m);
}
