// The shared order generator: its lines must have exactly the field layout the desk parses,
// stay UTF-8, and cover the kinds of order the desk has to handle.
#include "GeneradorPedidos.h"

#include <QRegularExpression>
#include <QString>
#include <QStringDecoder>
#include <gtest/gtest.h>
#include <set>

using namespace simulador;

namespace {

std::vector<std::string> Partir(const std::string& texto, const std::string& separador) {
    std::vector<std::string> piezas;
    std::size_t inicio = 0;
    while (true) {
        const auto pos = texto.find(separador, inicio);
        if (pos == std::string::npos) {
            piezas.push_back(texto.substr(inicio));
            return piezas;
        }
        piezas.push_back(texto.substr(inicio, pos - inicio));
        inicio = pos + separador.size();
    }
}

bool EsImporte(const std::string& texto) {
    static const QRegularExpression importe(QStringLiteral("^\\d+\\.\\d\\d$"));
    return importe.match(QString::fromStdString(texto)).hasMatch();
}

long Centimos(const std::string& importe) {
    return std::lround(std::stod(importe) * 100);
}

bool Utf8Valido(const std::string& bytes) {
    QStringDecoder decodificador(QStringDecoder::Utf8);
    const QString texto = decodificador(QByteArray::fromStdString(bytes));
    return !decodificador.hasError() && texto.toUtf8().toStdString() == bytes;
}

// The line of one order, split the way the desk splits it.
struct Piezas {
    std::vector<std::string> nivel1;
    std::vector<std::string> productos;
    std::vector<std::string> datos;
    std::vector<std::string> tiempos;
    std::string comentario;
};

Piezas Desmontar(const std::string& linea) {
    Piezas p;
    p.nivel1 = Partir(linea.substr(1, linea.size() - 2), "*");
    if (p.nivel1.size() < 7) {
        return p;
    }
    p.productos = Partir(p.nivel1[3], ";");
    p.datos = Partir(p.nivel1[5], ";");
    if (p.datos.size() > 5) {
        p.tiempos = Partir(p.datos[5], "%%");
    }
    for (std::size_t i = 6; i < p.nivel1.size(); ++i) {
        p.comentario += (i == 6 ? "" : "*") + p.nivel1[i];
    }
    return p;
}

PedidoGenerado PedidoEscrito() {
    PedidoGenerado p;
    p.Apertura = "PED";
    p.Origen = "7";
    p.NumPedido = "1234";
    p.Productos = {
        {2, "Pizza Margarita - Masa fina", "19.00", 201, 12, ""},
        {1, "Menú niños - Ñoquis", "8.90", 320, 13,
         "Cocina caliente//1//Ñoquis&&TEXTOLIBRE//Sin queso"},
    };
    p.ImporteEnvio = "2.50";
    p.ImporteDescuento = "1.90";
    p.TotalPedido = "28.50";
    p.IdCliente = "c9";
    p.Cliente = "Begoña Peña";
    p.FormaEntrega = "calle Güell 3";
    p.RealizadoEl = "22/11/2026 20:15";
    p.Para = "Para: 21:30";
    p.Programado = true;
    p.ParaDia = "23/11/2026";
    p.RetenerCocina = true;
    p.PedidosAnteriores = "4";
    p.CodigoPago = "1";
    p.FormaPago = "Efectivo Cambio: 50";
    p.Telefono = "600111222";
    p.Estado = "Pendiente";
    p.CodigoPromocion = "PROMO€";
    p.ComisionPaypal = "0.00";
    p.QuienAsume = "1";
    p.WebParticular = "1";
    p.TotalBruto = "30.40";
    p.Comentarios = "Timbre * roto";
    return p;
}

} // namespace

TEST(GeneradorPedidos, LineaDesdeUnPedidoEscritoAMano) {
    PedidoGenerado p = PedidoEscrito();
    EXPECT_EQ(LineaPedido(p),
              "#PED*7*1234*2%Pizza Margarita - Masa fina%19.00%201%12;"
              "1%Menú niños - Ñoquis%8.90%320%13%Cocina caliente//1//Ñoquis&&TEXTOLIBRE//Sin queso;"
              "*2.50*1.90;28.50;c9;Begoña Peña;calle Güell 3;"
              "22/11/2026 20:15%%Para: 21:30%%23/11/2026%%n;4;1;Efectivo Cambio: 50;600111222;"
              "Pendiente;;PROMO€;0.00;1;1;30.40;*Timbre * roto#");

    // Two-piece times, no comment: the line ends in "*#".
    p.Programado = false;
    p.Para = "Para: Ahora";
    p.Comentarios.clear();
    const std::string linea = LineaPedido(p);
    EXPECT_NE(linea.find(";22/11/2026 20:15%%Para: Ahora;4;"), std::string::npos) << linea;
    EXPECT_TRUE(linea.ends_with(";30.40;*#")) << linea;

    // Accents leave as UTF-8 bytes, and come back whole.
    EXPECT_NE(linea.find("Begoña Pe\xC3\xB1"
                         "a"),
              std::string::npos);
    EXPECT_NE(linea.find("PROMO\xE2\x82\xAC"), std::string::npos);
    EXPECT_NE(linea.find("G\xC3\xBC"
                         "ell"),
              std::string::npos);
    EXPECT_TRUE(Utf8Valido(linea));
    EXPECT_TRUE(QString::fromStdString(linea).contains(QStringLiteral("Güell")));
}

TEST(GeneradorPedidos, ImportesYClases) {
    EXPECT_EQ(TextoImporte(0), "0.00");
    EXPECT_EQ(TextoImporte(5), "0.05");
    EXPECT_EQ(TextoImporte(1250), "12.50");
    EXPECT_EQ(TextoImporte(100000), "1000.00");
    EXPECT_EQ(TextoImporte(-35), "-0.35");

    ClasePedido clase = ClasePedido::Domicilio;
    EXPECT_TRUE(LeerClasePedido("mezcla", clase));
    EXPECT_EQ(clase, ClasePedido::Mezcla);
    EXPECT_TRUE(LeerClasePedido("programado", clase));
    EXPECT_EQ(clase, ClasePedido::Programado);
    EXPECT_FALSE(LeerClasePedido("Domicilio", clase));
    EXPECT_FALSE(LeerClasePedido("", clase));
    EXPECT_EQ(clase, ClasePedido::Programado);
}

TEST(GeneradorPedidos, MismaSemillaMismoPedido) {
    EXPECT_EQ(LineaPedido(GenerarPedido(42, ClasePedido::Mezcla, 3)),
              LineaPedido(GenerarPedido(42, ClasePedido::Mezcla, 3)));
    EXPECT_NE(LineaPedido(GenerarPedido(42, ClasePedido::Mezcla, 3)),
              LineaPedido(GenerarPedido(43, ClasePedido::Mezcla, 3)));
}

struct CasoClase {
    const char* nombre;
    ClasePedido clase;
};

void PrintTo(const CasoClase& caso, std::ostream* salida) {
    *salida << caso.nombre;
}

class LineasGeneradas : public ::testing::TestWithParam<CasoClase> {};

TEST_P(LineasGeneradas, SeDesmontanEnLosCamposDocumentados) {
    const ClasePedido clase = GetParam().clase;
    const std::set<std::string> impresoras = {kImpresoraCocinaCaliente, kImpresoraBarra};
    for (std::uint64_t semilla = 1; semilla <= 60; ++semilla) {
        for (const int pedidos : {0, 1, 3, 7}) {
            const PedidoGenerado pedido = GenerarPedido(semilla, clase, pedidos);
            const std::string linea = LineaPedido(pedido);
            SCOPED_TRACE(linea);
            ASSERT_GE(linea.size(), 3u);
            EXPECT_EQ(linea.front(), '#');
            EXPECT_EQ(linea.back(), '#');
            EXPECT_EQ(linea.find_first_of("\r\n"), std::string::npos);
            EXPECT_TRUE(Utf8Valido(linea));

            const Piezas p = Desmontar(linea);
            ASSERT_GE(p.nivel1.size(), 7u);
            EXPECT_EQ(p.nivel1[2], pedido.NumPedido);
            EXPECT_EQ(p.comentario, pedido.Comentarios);

            // Products: the list ends in its separator.
            ASSERT_GE(p.productos.size(), 2u);
            EXPECT_EQ(p.productos.back(), "");
            const std::size_t n = p.productos.size() - 1;
            if (pedidos > 0) {
                EXPECT_EQ(n, std::size_t(pedidos));
            } else {
                EXPECT_TRUE(n >= 1 && n <= 4) << n;
            }
            long suma = 0;
            for (std::size_t i = 0; i < n; ++i) {
                const auto campos = Partir(p.productos[i], "%");
                ASSERT_TRUE(campos.size() == 5 || campos.size() == 6) << p.productos[i];
                EXPECT_GE(std::stoi(campos[0]), 1);
                EXPECT_TRUE(EsImporte(campos[2])) << campos[2];
                suma += Centimos(campos[2]);
                EXPECT_GT(std::stol(campos[3]), 0);
                const long categoria = std::stol(campos[4]);
                EXPECT_TRUE(categoria >= kCategoriaEntrantes && categoria <= kCategoriaPostres);
                if (campos.size() == 6) {
                    // Kitchen option groups: free text, or printer, units and text.
                    for (const auto& item : Partir(campos[5], "&&")) {
                        const auto trozos = Partir(item, "//");
                        if (trozos[0] == "TEXTOLIBRE") {
                            EXPECT_EQ(trozos.size(), 2u) << item;
                        } else {
                            ASSERT_EQ(trozos.size(), 3u) << item;
                            EXPECT_TRUE(impresoras.contains(trozos[0])) << item;
                            EXPECT_GE(std::stoi(trozos[1]), 1);
                            EXPECT_FALSE(trozos[2].empty());
                        }
                    }
                }
            }

            ASSERT_EQ(p.datos.size(), 18u);
            const bool cuatro = p.tiempos.size() == 4;
            EXPECT_TRUE(cuatro || p.tiempos.size() == 2);
            EXPECT_TRUE(p.tiempos[1].starts_with("Para: ")) << p.tiempos[1];

            // Amounts add up: gross = products + delivery; total = gross - discount + fee.
            for (const std::size_t i : {0u, 1u, 13u, 16u}) {
                EXPECT_TRUE(EsImporte(p.datos[i])) << i << ": " << p.datos[i];
            }
            ASSERT_TRUE(EsImporte(p.nivel1[4]));
            EXPECT_EQ(Centimos(p.datos[16]), suma + Centimos(p.nivel1[4]));
            EXPECT_EQ(Centimos(p.datos[1]),
                      Centimos(p.datos[16]) - Centimos(p.datos[0]) + Centimos(p.datos[13]));
            EXPECT_EQ(p.datos[12].empty(), p.datos[14].empty());

            const std::string& entrega = p.datos[4];
            const std::string& pago = p.datos[8];
            switch (clase) {
            case ClasePedido::Domicilio:
                EXPECT_TRUE(entrega.starts_with("calle ")) << entrega;
                EXPECT_EQ(p.datos[7], "6");
                EXPECT_FALSE(cuatro);
                break;
            case ClasePedido::Recoger:
                EXPECT_EQ(entrega, "Recogen");
                EXPECT_EQ(p.nivel1[4], "0.00");
                EXPECT_FALSE(cuatro);
                break;
            case ClasePedido::Programado:
                EXPECT_TRUE(cuatro);
                EXPECT_TRUE(p.tiempos[3].empty() || p.tiempos[3] == "n");
                break;
            case ClasePedido::Efectivo:
                EXPECT_TRUE(entrega.starts_with("calle ")) << entrega;
                EXPECT_NE(p.datos[7], "6");
                EXPECT_TRUE(QRegularExpression(QStringLiteral("^Efectivo Cambio: \\d+$"))
                                .match(QString::fromStdString(pago))
                                .hasMatch())
                    << pago;
                break;
            case ClasePedido::Mezcla:
                break;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Clases, LineasGeneradas,
                         ::testing::Values(CasoClase{"domicilio", ClasePedido::Domicilio},
                                           CasoClase{"recoger", ClasePedido::Recoger},
                                           CasoClase{"programado", ClasePedido::Programado},
                                           CasoClase{"efectivo", ClasePedido::Efectivo},
                                           CasoClase{"mezcla", ClasePedido::Mezcla}),
                         [](const auto& info) { return std::string(info.param.nombre); });

TEST(GeneradorPedidos, LaMezclaCubreLoQueElMostradorDebeTratar) {
    std::set<std::string> vistos;
    std::string todo;
    for (std::uint64_t semilla = 1; semilla <= 300; ++semilla) {
        const std::string linea = LineaPedido(GenerarPedido(semilla, ClasePedido::Mezcla, 0));
        todo += linea;
        const Piezas p = Desmontar(linea);
        ASSERT_EQ(p.datos.size(), 18u) << linea;
        if (p.comentario.find('*') != std::string::npos) {
            vistos.insert("comentario con asterisco");
        }
        if (p.comentario.empty()) {
            vistos.insert("sin comentario");
        }
        if (p.datos[4] == "Recogen") {
            vistos.insert("recogen");
        } else if (p.datos[4].starts_with("calle ")) {
            vistos.insert("domicilio");
        }
        if (p.tiempos.size() == 4 && p.tiempos[3] == "n") {
            vistos.insert("programado sin cocina");
        }
        if (p.tiempos.size() == 4 && p.tiempos[2].empty()) {
            vistos.insert("programado sin día");
        }
        if (p.tiempos.size() == 2 && p.tiempos[1] != "Para: Ahora") {
            vistos.insert("hora sin día");
        }
        if (p.datos[8].find(" Cambio: ") != std::string::npos) {
            vistos.insert("efectivo con cambio");
        }
        if (p.datos[8] == "Efectivo") {
            vistos.insert("efectivo sin cambio");
        }
        if (p.datos[7] == "6") {
            vistos.insert("pagado");
        }
        if (p.datos[13] != "0.00") {
            vistos.insert("comisión paypal");
        }
        if (!p.datos[12].empty()) {
            vistos.insert("promoción");
        }
        if (p.datos[15] == "1") {
            vistos.insert("web propia");
        }
        if (linea.find("TEXTOLIBRE//") != std::string::npos) {
            vistos.insert("texto libre");
        }
        if (linea.find(" - ") != std::string::npos) {
            vistos.insert("opciones");
        }
    }
    const std::set<std::string> esperados = {"comentario con asterisco",
                                             "sin comentario",
                                             "recogen",
                                             "domicilio",
                                             "programado sin cocina",
                                             "programado sin día",
                                             "hora sin día",
                                             "efectivo con cambio",
                                             "efectivo sin cambio",
                                             "pagado",
                                             "comisión paypal",
                                             "promoción",
                                             "web propia",
                                             "texto libre",
                                             "opciones"};
    for (const auto& e : esperados) {
        EXPECT_TRUE(vistos.contains(e)) << "ningún pedido con " << e;
    }
    for (const char* letra : {"ñ", "á", "é", "ü", "€", "Ñ", "º"}) {
        EXPECT_NE(todo.find(letra), std::string::npos) << letra;
    }
}
