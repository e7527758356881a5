// The shared order generator: its lines must have exactly the field layout the desk parses
// and stay UTF-8.
#include "GeneradorPedidos.h"

#include <QString>
#include <QStringDecoder>
#include <gtest/gtest.h>

using namespace simulador;

namespace {

std::vector<std::string> Partir(const std::string& texto, const std::string& separador) {
    std::vector<std::string> piezas;
    std::size_t inicio = 0;
    for (auto pos = texto.find(separador); pos != std::string::npos;
         pos = texto.find(separador, inicio)) {
        piezas.push_back(texto.substr(inicio, pos - inicio));
        inicio = pos + separador.size();
    }
    piezas.push_back(texto.substr(inicio));
    return piezas;
}

long Centimos(const std::string& importe) {
    return std::lround(std::stod(importe) * 100);
}

bool Utf8Valido(const std::string& bytes) {
    QStringDecoder decodificador(QStringDecoder::Utf8);
    const QString texto = decodificador(QByteArray::fromStdString(bytes));
    return !decodificador.hasError() && texto.toUtf8().toStdString() == bytes;
}

} // namespace

TEST(GeneradorPedidos, LineaDesdeUnPedidoEscritoAMano) {
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
    const std::string linea = LineaPedido(p);
    EXPECT_EQ(linea,
              "#PED*7*1234*2%Pizza Margarita - Masa fina%19.00%201%12;"
              "1%Menú niños - Ñoquis%8.90%320%13%Cocina caliente//1//Ñoquis&&TEXTOLIBRE//Sin queso;"
              "*2.50*1.90;28.50;c9;Begoña Peña;calle Güell 3;"
              "22/11/2026 20:15%%Para: 21:30%%23/11/2026%%n;4;1;Efectivo Cambio: 50;600111222;"
              "Pendiente;;PROMO€;0.00;1;1;30.40;*Timbre * roto#");
    EXPECT_TRUE(Utf8Valido(linea));

    // Two-piece times, no comment: the line ends in "*#".
    p.Programado = false;
    p.Para = "Para: Ahora";
    p.Comentarios.clear();
    const std::string corta = LineaPedido(p);
    EXPECT_NE(corta.find(";22/11/2026 20:15%%Para: Ahora;4;"), std::string::npos) << corta;
    EXPECT_TRUE(corta.ends_with(";30.40;*#")) << corta;
}

TEST(GeneradorPedidos, CadaClaseDaLosCamposQueElMostradorParte) {
    for (const auto clase : {ClasePedido::Domicilio, ClasePedido::Recoger, ClasePedido::Programado,
                             ClasePedido::Efectivo, ClasePedido::Mezcla}) {
        for (std::uint64_t semilla = 1; semilla <= 40; ++semilla) {
            const int productos = int(semilla % 4); // 0 lets the seed choose
            const PedidoGenerado pedido = GenerarPedido(semilla, clase, productos);
            const std::string linea = LineaPedido(pedido);
            SCOPED_TRACE(linea);
            ASSERT_TRUE(linea.size() > 2 && linea.front() == '#' && linea.back() == '#');
            EXPECT_EQ(linea.find_first_of("\r\n"), std::string::npos);
            EXPECT_TRUE(Utf8Valido(linea));

            const auto nivel1 = Partir(linea.substr(1, linea.size() - 2), "*");
            ASSERT_GE(nivel1.size(), 7u);
            EXPECT_EQ(nivel1[2], pedido.NumPedido);
            const auto lista = Partir(nivel1[3], ";");
            ASSERT_GE(lista.size(), 2u);
            EXPECT_EQ(lista.back(), ""); // the list ends in its separator
            if (productos > 0) {
                EXPECT_EQ(lista.size() - 1, std::size_t(productos));
            }
            long suma = 0;
            for (std::size_t i = 0; i + 1 < lista.size(); ++i) {
                const auto campos = Partir(lista[i], "%");
                ASSERT_TRUE(campos.size() == 5 || campos.size() == 6) << lista[i];
                suma += Centimos(campos[2]);
            }
            const auto datos = Partir(nivel1[5], ";");
            ASSERT_EQ(datos.size(), 18u);
            const auto tiempos = Partir(datos[5], "%%");
            if (clase == ClasePedido::Programado) {
                EXPECT_EQ(tiempos.size(), 4u);
            } else if (clase == ClasePedido::Domicilio || clase == ClasePedido::Recoger) {
                EXPECT_EQ(tiempos.size(), 2u);
            } else {
                EXPECT_TRUE(tiempos.size() == 2 || tiempos.size() == 4);
            }
            // gross = products + delivery; total = gross - discount + fee.
            EXPECT_EQ(Centimos(datos[16]), suma + Centimos(nivel1[4]));
            EXPECT_EQ(Centimos(datos[1]),
                      Centimos(datos[16]) - Centimos(datos[0]) + Centimos(datos[13]));
        }
    }
}
