#pragma once

#include "platform/CanalHttp.h"

#include <QByteArrayList>
#include <QList>
#include <functional>

// An HTTP channel for tests: answers from a script and records every URL it was given.
// An answer can also run code "during" the transfer, to reproduce re-entry.
class CanalFalso : public CanalHttp {
public:
    struct Guion {
        RespuestaHttp respuesta;
        std::function<void()> durante;
    };

    RespuestaHttp obtener(const QByteArray& url) override {
        urls.append(url);
        if (guion.isEmpty()) {
            return porDefecto;
        }
        Guion g = guion.takeFirst();
        if (g.durante) {
            g.durante();
        }
        return g.respuesta;
    }

    void responder(const QByteArray& cuerpo) { guion.append(Guion{{true, cuerpo}, {}}); }
    void fallar() { guion.append(Guion{{false, {}}, {}}); }

    QByteArrayList urls;
    QList<Guion> guion;
    RespuestaHttp porDefecto{false, {}};
};

// Puts three fake channels into a module and keeps pointers to them for the test.
struct CanalesFalsos {
    CanalFalso* directo = nullptr;
    CanalFalso* inet1 = nullptr;
    CanalFalso* inet2 = nullptr;
};
