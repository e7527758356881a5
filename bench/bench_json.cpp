// JSON_Parse against nlohmann::json and RapidJSON's DOM on the same three documents: a
// configuration (~5 KB), a menu of 2,000 products (~400 KB) and 1 MB of long strings.
// Each reader gets the text in the form it takes: the desk's reader a QString (what the
// transports deliver), the others UTF-8 bytes. Throughput is reported per byte of UTF-8.
#include "server/LectorJson.h"

#include <QString>
#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include <rapidjson/document.h>
#include <string>

namespace {

std::string documentoConfiguracion() {
    std::string s = "{\"pgprs\":\"a8f5f167f44f4964e6c998dee827110c\",\"nombre\":\"Pizzería "
                    "La Esquina\",\"intervaloescaneopedido\":15000,"
                    "\"intervaloescaneoconfiguracion\":300000,\"numeropedidoshistorico\":50,"
                    "\"abredialogimpresion\":0,\"textocabecera\":\"Pizzería La Esquina\\r\\nC/ "
                    "Mayor 12\\r\\nTel. 900 000 000\",\"textopiepagina\":\"¡Gracias por su "
                    "pedido!\",\"mostrarquiena\":1,\"mostrarcpr\":0,\"mostrarcprtic\":1,"
                    "\"minimizartrasresp\":0,\"cancelarsonido\":0,\"parpadeopednuevo\":1,"
                    "\"intensidadparpadeo\":160,\"intervaloescaneopedactualizado\":20000,"
                    "\"metcon\":0,\"tamannofuenteprincipales\":9,\"tamannofuentelistascheck\":"
                    "10,\"tiporeproaudio\":0,\"melodiapednuevo\":\"corneta.mp3\","
                    "\"volumenmelodiawmp\":100,\"webparticular\":0,\"ocultardatosperson\":0,"
                    "\"printresumenauto\":0,\"aceptarautodomicilio\":-1,\"aceptarautorecoger\":"
                    "-1,\"actualizarconfigconpedido\":0,\"comprobaractualizar\":1,"
                    "\"mostrarsintiempo\":0,\"rechazaraceptado\":0,\"imprimirantesaceptar\":0,"
                    "\"comprobarpedidotrasaceptar\":1,\"modo\":0,\"motivosrechazo\":[\"Cerrado\","
                    "\"Sin repartidores\",\"Fuera de zona\",\"Producto agotado\"],"
                    "\"actualizaragotados\":0,\"configimpresoras\":[";
    for (int i = 1; i <= 10; ++i) {
        if (i > 1) {
            s += ",";
        }
        s += "{\"numeroimpresora\":" + std::to_string(i) +
             ",\"nombreimpresora\":\"Impresora+de+cocina+" + std::to_string(i) +
             "\",\"tipoimpresion\":\"EP\",\"numerocopiasaceptado\":1,"
             "\"numerocopiasrechazado\":0,\"anchopapel\":80,\"fuente\":\"Courier New\","
             "\"factorfuente\":1.25,\"tamannofuentepequenna\":8,\"tamannofuentegrande\":12,"
             "\"margenentrelineas\":0,\"iniciox\":0,\"inicioy\":0,\"separadorlineas\":\"-\","
             "\"tamannofuenteseparador\":8,\"epconexion\":\"192.168.1.50:9100\","
             "\"epnumcolumnas\":48,\"categoriasids\":\"1,2,3\",\"productosids\":null}";
    }
    s += "]}";
    return s;
}

std::string documentoCarta() {
    std::string s = "[";
    for (int i = 1; i <= 2000; ++i) {
        if (i > 1) {
            s += ",";
        }
        s += "{\"id\":" + std::to_string(1000 + i) + ",\"nombre\":\"Producto número " +
             std::to_string(i) + " con nombre largo\",\"pvp\":" + std::to_string(i % 40) + "." +
             std::to_string(10 + i % 90) +
             ",\"fechahoraagotado\":null,\"categoria\":{\"id\":" + std::to_string(i % 25) +
             ",\"nombre\":\"Categoría " + std::to_string(i % 25) +
             "\"},\"opciones\":[\"Sin cebolla\",\"Extra de queso\",\"Masa fina\"],"
             "\"activo\":true}";
    }
    s += "]";
    return s;
}

std::string documentoTextosLargos() {
    std::string s = "{\"textos\":[";
    const std::string frase = "Texto largo de la respuesta con acentos: camión, ñandú; y "
                              "escapes \\\"citas\\\" \\n saltos \\u00e9. ";
    bool primero = true;
    while (s.size() < 1000000) {
        if (!primero) {
            s += ",";
        }
        primero = false;
        s += "\"";
        for (int k = 0; k < 100; ++k) {
            s += frase;
        }
        s += "\"";
    }
    s += "]}";
    return s;
}

const std::string& documento(int cual) {
    static const std::string docs[] = {documentoConfiguracion(), documentoCarta(),
                                       documentoTextosLargos()};
    return docs[cual];
}

void JSON_Parse_desk(benchmark::State& estado) {
    const std::string& utf8 = documento(static_cast<int>(estado.range(0)));
    const QString texto = QString::fromStdString(utf8);
    for (auto _ : estado) {
        ValorJson v = JSON_Parse(texto);
        benchmark::DoNotOptimize(v);
    }
    estado.SetBytesProcessed(static_cast<int64_t>(estado.iterations()) *
                             static_cast<int64_t>(utf8.size()));
}

void nlohmann_json(benchmark::State& estado) {
    const std::string& utf8 = documento(static_cast<int>(estado.range(0)));
    for (auto _ : estado) {
        auto v = nlohmann::json::parse(utf8);
        benchmark::DoNotOptimize(v);
    }
    estado.SetBytesProcessed(static_cast<int64_t>(estado.iterations()) *
                             static_cast<int64_t>(utf8.size()));
}

void rapidjson_dom(benchmark::State& estado) {
    const std::string& utf8 = documento(static_cast<int>(estado.range(0)));
    for (auto _ : estado) {
        rapidjson::Document d;
        d.Parse(utf8.c_str(), utf8.size());
        benchmark::DoNotOptimize(d);
    }
    estado.SetBytesProcessed(static_cast<int64_t>(estado.iterations()) *
                             static_cast<int64_t>(utf8.size()));
}

// 0: configuration, 1: menu, 2: long strings.
BENCHMARK(JSON_Parse_desk)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK(nlohmann_json)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK(rapidjson_dom)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    for (int i = 0; i < 3; ++i) {
        std::printf("documento %d: %zu bytes\n", i, documento(i).size());
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
