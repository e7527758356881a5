#pragma once

#include <QLockFile>
#include <QString>
#include <memory>

// One desk per installation: a lock file in the installation's data folder. A lock left by
// a desk that was killed is recognised as stale (its process is gone) and taken over.
class InstanciaUnica {
public:
    explicit InstanciaUnica(const QString& carpeta);
    // True when another live desk already holds this installation.
    bool hayOtra() const { return !propia_; }
    // Waits, at most `msMax`, until no live desk holds the installation. True when free.
    static bool esperarLibre(const QString& carpeta, int msMax);

private:
    std::unique_ptr<QLockFile> cerrojo_;
    bool propia_ = false;
};
