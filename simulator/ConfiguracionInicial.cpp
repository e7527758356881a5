#include "ConfiguracionInicial.h"

#include "GeneradorPedidos.h"

#include <filesystem>

namespace simulador {

namespace {

using json = nlohmann::ordered_json;

// Every key of a printer element, with the values of a freshly set up printer. Each
// printer below changes only what makes it what it is.
json ImpresoraBase() {
    return {
        {"numeroimpresora", 1},
        {"tipoimpresion", "DW"},
        {"nombreimpresora", ""},
        {"numerocopiasaceptado", 1},
        {"numerocopiasaceptadorecoger", -1},
        {"numerocopiasrechazado", 0},
        {"anchopapel", 80},
        {"fuente", "Lucida Console"},
        {"factorfuente", 3.8448},
        {"tamannofuentepequenna", 10},
        {"tamannofuentegrande", 14},
        {"tamannofuenteseparador", 4},
        {"separadorlineas", "------------------------------------------"},
        {"margenentrelineas", 60},
        {"iniciox", 0},
        {"inicioy", 0},
        {"epconexion", ""},
        {"epnumcolumnas", 48},
        {"epcominicializar", "27,64"},
        {"epcomdoblealtoactivar", "27,33,48"},
        {"epcomdoblealtodesact", "27,33,0"},
        {"epcomcotarpapel", "29,86,66,0"},
        {"epcomconfigcaracteres", "27,116,19"},
        {"epcomsubirlineas", "27,100,3"},
        {"epcomextrasfin", ""},
        {"cocina", 0},
        {"categoriasids", ""},
        {"productosexcepids", ""},
        {"productosids", ""},
        {"formaenvio", 0},
        {"mostrarnombreimpresora", 0},
        {"reemplazarcaracesp", 0},
        {"reemplazarcaracescpospc858", 1},
        {"saltolineaopciones", 0},
        {"nombreimpresoragrande", 0},
        {"productosycomentariosgrande", 0},
        {"datosclienteyenviogrande", 0},
        {"productosycomentariosmayus", 0},
        {"datosclientecocina", 0},
        {"numlineasblancoinicio", 0},
        {"numlineasblancofinal", 2},
        {"numpedidoyformaenvfinal", 0},
        {"mostrarpreciosprodcocina", 0},
        {"mostrarseparadorproductos", 0},
        {"mostrartotalbruto", 0},
        {"mostrarhoraentrega", 1},
    };
}

std::string Destino(const DestinosImpresoras& destinos, std::size_t indice, const char* archivo) {
    if (indice < destinos.PuertosTcp.size()) {
        return "127.0.0.1:" + std::to_string(destinos.PuertosTcp[indice]);
    }
    if (!destinos.CarpetaEp.empty()) {
        std::string carpeta = destinos.CarpetaEp;
        if (carpeta.back() != '/') {
            carpeta += '/';
        }
        return carpeta + archivo;
    }
    // The desk takes a bare name for a print queue: a file is named by its whole path.
    return (std::filesystem::current_path() / archivo).string();
}

// Printer names travel URL-encoded, a blank as "+".
std::string NombreEnConfiguracion(std::string nombre) {
    for (auto& c : nombre) {
        if (c == ' ') {
            c = '+';
        }
    }
    return nombre;
}

} // namespace

json ImpresoraNueva(int numero) {
    json impresora = ImpresoraBase();
    impresora["numeroimpresora"] = numero;
    return impresora;
}

json DocumentoPorDefecto(const DestinosImpresoras& destinos) {
    json caja = ImpresoraBase();
    caja["numeroimpresora"] = 1;
    caja["nombreimpresora"] = "Impresora+caja";
    caja["numerocopiasaceptado"] = 2;
    caja["numerocopiasrechazado"] = 1;
    caja["mostrartotalbruto"] = 1;

    json cliente = ImpresoraBase();
    cliente["numeroimpresora"] = 2;
    cliente["tipoimpresion"] = "EP";
    cliente["nombreimpresora"] = "Tique+cliente";
    cliente["epconexion"] = Destino(destinos, 0, "cliente.bin");
    cliente["separadorlineas"] = std::string(48, '-');
    cliente["numerocopiasaceptadorecoger"] = 2;
    cliente["numerocopiasrechazado"] = 1;
    cliente["mostrartotalbruto"] = 1;

    json cocina1 = ImpresoraBase();
    cocina1["numeroimpresora"] = 3;
    cocina1["tipoimpresion"] = "EP";
    cocina1["nombreimpresora"] = NombreEnConfiguracion(kImpresoraCocinaCaliente);
    cocina1["epconexion"] = Destino(destinos, 1, "cocina1.bin");
    cocina1["separadorlineas"] = std::string(48, '=');
    cocina1["cocina"] = 1;
    cocina1["categoriasids"] = std::to_string(kCategoriaEntrantes) + "," +
                               std::to_string(kCategoriaPizzas) + "," +
                               std::to_string(kCategoriaHamburguesas);
    cocina1["productosexcepids"] = "103"; // the salad is made at the bar
    cocina1["mostrarnombreimpresora"] = 1;
    cocina1["nombreimpresoragrande"] = 1;
    cocina1["productosycomentariosgrande"] = 1;
    cocina1["datosclientecocina"] = 1;
    cocina1["numpedidoyformaenvfinal"] = 2;
    cocina1["saltolineaopciones"] = 1;

    json cocina2 = ImpresoraBase();
    cocina2["numeroimpresora"] = 4;
    cocina2["tipoimpresion"] = "EP";
    cocina2["nombreimpresora"] = NombreEnConfiguracion(kImpresoraBarra);
    cocina2["epconexion"] = Destino(destinos, 2, "cocina2.bin");
    cocina2["separadorlineas"] = std::string(48, '-');
    cocina2["cocina"] = 1;
    cocina2["categoriasids"] =
        std::to_string(kCategoriaBebidas) + "," + std::to_string(kCategoriaPostres);
    cocina2["productosids"] = "103";
    cocina2["mostrarnombreimpresora"] = 1;
    cocina2["mostrarpreciosprodcocina"] = 1;
    cocina2["mostrarseparadorproductos"] = 1;
    cocina2["productosycomentariosmayus"] = 1;

    return {
        {"pgprs", "pgprs-7"},
        {"nombre", "Mesón La Española"},
        {"intervaloescaneopedido", 1000},
        {"intervaloescaneoconfiguracion", 600},
        {"numeropedidoshistorico", 50},
        {"abredialogimpresion", 0},
        {"textocabecera", "Mesón La Española - Plaza de España 3, León - Tel. 987 654 321"},
        {"textopiepagina", "¡Gracias por su pedido! Síguenos en la web."},
        {"mostrarquiena", 1},
        {"mostrarcpr", 1},
        {"mostrarcprtic", 1},
        {"minimizartrasresp", 0},
        {"cancelarsonido", 0},
        {"parpadeopednuevo", 1},
        {"intensidadparpadeo", 160},
        {"intervaloescaneopedactualizado", 5000},
        {"metcon", 0},
        {"tamannofuenteprincipales", 10},
        {"tamannofuentelistascheck", 10},
        {"tiporeproaudio", 0},
        {"melodiapednuevo", "corneta.mp3"},
        {"volumenmelodiawmp", 80},
        {"webparticular", 1},
        {"ocultardatosperson", 0},
        {"printresumenauto", 0},
        {"aceptarautodomicilio", 0},
        {"aceptarautorecoger", 0},
        {"actualizarconfigconpedido", 0},
        {"comprobaractualizar", 0},
        {"mostrarsintiempo", 1},
        {"rechazaraceptado", 1},
        {"imprimirantesaceptar", 0},
        {"comprobarpedidotrasaceptar", 1},
        {"modo", 0},
        {"motivosrechazo",
         {"No hay ingredientes.", "Cerramos en breve.", "Dirección fuera de la zona de reparto.",
          "Demasiados pedidos en este momento.", "Problema técnico en la cocina."}},
        {"actualizaragotados", 0},
        {"configimpresoras", {caja, cliente, cocina1, cocina2}},
    };
}

} // namespace simulador
