#include "platform/InstanciaUnica.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

namespace {
QString RutaCerrojo(const QString& carpeta) {
    QString ruta = QDir(carpeta).filePath(QStringLiteral(".TarvimentaPedidos.lock"));
    if (!QFileInfo(carpeta).isWritable()) {
        // A read-only installation still gets one lock of its own, named after its folder.
        const QByteArray clave = QCryptographicHash::hash(QDir(carpeta).absolutePath().toUtf8(),
                                                          QCryptographicHash::Sha1)
                                     .toHex()
                                     .left(16);
        ruta = QDir::temp().filePath(QStringLiteral("TarvimentaPedidos-") +
                                     QString::fromLatin1(clave) + QStringLiteral(".lock"));
    }
    return ruta;
}
} // namespace

bool InstanciaUnica::esperarLibre(const QString& carpeta, int msMax) {
    QLockFile cerrojo(RutaCerrojo(carpeta));
    cerrojo.setStaleLockTime(0);
    if (!cerrojo.tryLock(msMax)) {
        return false;
    }
    cerrojo.unlock();
    return true;
}

InstanciaUnica::InstanciaUnica(const QString& carpeta) {
    cerrojo_ = std::make_unique<QLockFile>(RutaCerrojo(carpeta));
    // Never stale by age: only a dead owner frees the lock (tryLock checks the owner's
    // process and takes over a lock whose desk is gone).
    cerrojo_->setStaleLockTime(0);
    // Only a lock held by another desk keeps this one from starting: a lock that cannot be
    // written (a full disk) must not leave the counter without a desk.
    propia_ = cerrojo_->tryLock(0) || cerrojo_->error() != QLockFile::LockFailedError;
}
