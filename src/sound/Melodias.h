#pragma once

#include <QStringList>

// The melodies a user can choose from, in the order the settings offer them. Each one is
// a file in the application folder, made by the generator in sounds/ at build time.
inline QStringList ListaMelodias() {
    return {QStringLiteral("cuarteto.mp3"), QStringLiteral("neonita.mp3"),
            QStringLiteral("caballer.mp3"), QStringLiteral("trovador.mp3"),
            QStringLiteral("corneta.mp3"),  QStringLiteral("hockey.mp3"),
            QStringLiteral("metalera.mp3"), QStringLiteral("pinzel.mp3"),
            QStringLiteral("bolero.mp3"),   QStringLiteral("arrecifa.mp3"),
            QStringLiteral("ritmo.mp3"),    QStringLiteral("caderas.mp3"),
            QStringLiteral("sirena.mp3"),   QStringLiteral("tecno2.mp3"),
            QStringLiteral("tecno.mp3"),    QStringLiteral("telef1_1.mp3"),
            QStringLiteral("telef1_2.mp3"), QStringLiteral("telef1_3.mp3"),
            QStringLiteral("telef2_1.mp3"), QStringLiteral("telef2_2.mp3"),
            QStringLiteral("telef2_3.mp3"), QStringLiteral("telef3_1.mp3"),
            QStringLiteral("telef3_2.mp3"), QStringLiteral("telef3_3.mp3"),
            QStringLiteral("telefon1.mp3"), QStringLiteral("telefon2.mp3"),
            QStringLiteral("titania.mp3"),  QStringLiteral("corneta.wav"),
            QStringLiteral("bolero.wav"),   QStringLiteral("ritmo.wav"),
            QStringLiteral("telefon1.wav"), QStringLiteral("telefon2.wav")};
}
