// The forms of a raw printer's connection text, one per line of the data files.
#include "common/DatosEsperados.h"
#include "common/ImprimirQString.h"
#include "printing/ConexionEP.h"

#include <QHash>
#include <gtest/gtest.h>

namespace {

using T = ConexionEP::Tipo;

// The fields of each line of a data file, "|" between them and blanks around them dropped.
QList<QStringList> Filas(const QString& datos) {
    QList<QStringList> filas;
    for (const QString& l : LineasDatos(datos)) {
        QStringList campos = l.split(u'|');
        for (QString& c : campos) {
            c = c.trimmed();
        }
        filas.append(campos);
    }
    EXPECT_FALSE(filas.isEmpty()) << datos.toStdString();
    return filas;
}

TEST(ConexionEP, CadaFormaVaASuDestino) {
    const QHash<QString, T> tipos{{"Serie", T::Serie},     {"Dispositivo", T::Dispositivo},
                                  {"Tcp", T::Tcp},         {"Cola", T::Cola},
                                  {"Fichero", T::Fichero}, {"Ninguna", T::Ninguna}};
    for (const QStringList& f : Filas(QStringLiteral("conexiones_ep.txt"))) {
        ASSERT_EQ(f.size(), 4) << f.join(u'|').toStdString();
        const ConexionEP c = AnalizarConexionEP(f[0]);
        ASSERT_TRUE(tipos.contains(f[1])) << f[1].toStdString();
        EXPECT_EQ(c.tipo, tipos.value(f[1])) << f[0].toStdString();
        EXPECT_EQ(c.ruta, f[2]) << f[0].toStdString();
        EXPECT_EQ(c.alternativas, f[3].isEmpty() ? QStringList() : f[3].split(u','))
            << f[0].toStdString();
    }
}

TEST(ConexionEP, AjustesDeSerie) {
    for (const QStringList& f : Filas(QStringLiteral("conexiones_ep_serie.txt"))) {
        ASSERT_EQ(f.size(), 2) << f.join(u'|').toStdString();
        const ConexionEP c = AnalizarConexionEP(f[0]);
        const QString leidos = c.ajustesValidos ? QStringLiteral("%1,%2,%3,%4")
                                                      .arg(c.baudios)
                                                      .arg(c.paridad)
                                                      .arg(c.bitsDatos)
                                                      .arg(c.bitsParada)
                                                : QString();
        EXPECT_EQ(leidos, f[1]) << f[0].toStdString();
    }
}

} // namespace
