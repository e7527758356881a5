#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

// A document with every key, values chosen to differ from every default.
inline QJsonObject DocumentoConfiguracion() {
    QJsonObject imp{{"numeroimpresora", 1},
                    {"tipoimpresion", "DW"},
                    {"nombreimpresora", "Caja"},
                    {"numerocopiasaceptado", 2},
                    {"numerocopiasrechazado", 1},
                    {"anchopapel", 80},
                    {"fuente", "Lucida Console"},
                    {"factorfuente", 3.8448},
                    {"tamannofuentepequenna", 10},
                    {"tamannofuentegrande", 14},
                    {"tamannofuenteseparador", 4},
                    {"separadorlineas", "----"},
                    {"margenentrelineas", 60},
                    {"iniciox", 0},
                    {"inicioy", 0}};
    return QJsonObject{
        {"pgprs", "pg-7"},
        {"nombre", "Mesón Ñu"},
        {"intervaloescaneopedido", 1500},
        {"intervaloescaneoconfiguracion", 600},
        {"numeropedidoshistorico", 50},
        {"abredialogimpresion", 1},
        {"textocabecera", "Cabecera"},
        {"textopiepagina", "Pie"},
        {"mostrarquiena", 1},
        {"mostrarcpr", 0},
        {"mostrarcprtic", 1},
        {"minimizartrasresp", 0},
        {"cancelarsonido", 1},
        {"parpadeopednuevo", 1},
        {"intensidadparpadeo", 200},
        {"intervaloescaneopedactualizado", 5000},
        {"metcon", 0},
        {"tamannofuenteprincipales", 12},
        {"tamannofuentelistascheck", 11},
        {"tiporeproaudio", 1},
        {"melodiapednuevo", "gong.mp3"},
        {"volumenmelodiawmp", 40},
        {"webparticular", 1},
        {"ocultardatosperson", 1},
        {"printresumenauto", 1},
        {"aceptarautodomicilio", 0},
        {"aceptarautorecoger", 1},
        {"actualizarconfigconpedido", 1},
        {"comprobaractualizar", 0},
        {"mostrarsintiempo", 1},
        {"rechazaraceptado", 2},
        {"imprimirantesaceptar", 1},
        {"comprobarpedidotrasaceptar", 1},
        {"modo", 0},
        {"motivosrechazo", QJsonArray{"Sin ingredientes", "Cerramos"}},
        {"actualizaragotados", 0},
        {"configimpresoras", QJsonArray{imp}},
    };
}

inline QByteArray BytesJson(const QJsonObject& o) {
    return QJsonDocument(o).toJson(QJsonDocument::Compact);
}
