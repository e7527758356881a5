#include "printing/MiembrosImpresora.h"

#include <limits>
#include <variant>

namespace miembros_impresora {

namespace {

using C = ClassConfigImpresora;
using Puntero = std::variant<QString C::*, qint16 C::*, double C::*, bool C::*>;

struct Miembro {
    const char* nombre;
    Puntero puntero;
};

#define MIEMBRO(m)                                                                                 \
    Miembro {                                                                                      \
#m, &C::m                                                                                  \
    }

const Miembro kMiembros[] = {
    MIEMBRO(TipoImpresion),
    MIEMBRO(NombreImpresora),
    MIEMBRO(NumeroCopiasAceptado),
    MIEMBRO(NumeroCopiasAceptadoRecoger),
    MIEMBRO(NumeroCopiasRechazado),
    MIEMBRO(AnchoPapel),
    MIEMBRO(Font),
    MIEMBRO(FactorFuente),
    MIEMBRO(TamannoFuentePequenna),
    MIEMBRO(TamannoFuenteGrande),
    MIEMBRO(TamannoFuenteSeparador),
    MIEMBRO(SeparadorLineas),
    MIEMBRO(MargenEntreLineas),
    MIEMBRO(InicioX),
    MIEMBRO(InicioY),
    MIEMBRO(EPConexion),
    MIEMBRO(EPNumColumnas),
    MIEMBRO(EPComInicializar),
    MIEMBRO(EPComDobleAltoActivar),
    MIEMBRO(EPComDobleAltoDesact),
    MIEMBRO(EPComSubirYCotarPapel),
    MIEMBRO(EPComConfigCaracteres),
    MIEMBRO(EPComSubirLineas),
    MIEMBRO(EPComExtrasFin),
    MIEMBRO(Cocina),
    MIEMBRO(CategoriasIds),
    MIEMBRO(ProductosExcepIds),
    MIEMBRO(ProductosIds),
    MIEMBRO(FormaEnvio),
    MIEMBRO(MostrarNombreImpresora),
    MIEMBRO(ReemplazarCaracEsp),
    MIEMBRO(ReemplazarCaracEscPosPC858),
    MIEMBRO(SaltoLineaOpciones),
    MIEMBRO(NombreImpresoraGrande),
    MIEMBRO(ProductosYComentariosGrande),
    MIEMBRO(DatosClienteYEnvioGrande),
    MIEMBRO(ProductosYComentariosMayus),
    MIEMBRO(DatosClienteCocina),
    MIEMBRO(NumLineasBlancoInicio),
    MIEMBRO(NumLineasBlancoFinal),
    MIEMBRO(NumPedidoYFormaEnvFinal),
    MIEMBRO(MostrarPreciosProdCocina),
    MIEMBRO(MostrarSeparadorProductos),
    MIEMBRO(MostrarTotalBruto),
    MIEMBRO(MostrarHoraEntrega),
};

#undef MIEMBRO

const Miembro* buscar(const QString& nombre) {
    for (const Miembro& m : kMiembros) {
        if (nombre == QLatin1String(m.nombre)) {
            return &m;
        }
    }
    return nullptr;
}

} // namespace

QStringList Nombres() {
    QStringList r;
    for (const Miembro& m : kMiembros) {
        r << QLatin1String(m.nombre);
    }
    return r;
}

QVariant Leer(const ClassConfigImpresora& impresora, const QString& nombre) {
    const Miembro* m = buscar(nombre);
    if (m == nullptr) {
        return {};
    }
    return std::visit(
        [&](auto puntero) -> QVariant {
            const auto& v = impresora.*puntero;
            if constexpr (std::is_same_v<std::decay_t<decltype(v)>, qint16>) {
                return QVariant(static_cast<int>(v));
            } else {
                return QVariant(v);
            }
        },
        m->puntero);
}

bool Poner(ClassConfigImpresora& impresora, const QString& nombre, const QVariant& valor) {
    const Miembro* m = buscar(nombre);
    if (m == nullptr || !valor.isValid()) {
        return false;
    }
    return std::visit(
        [&](auto puntero) -> bool {
            auto& destino = impresora.*puntero;
            using T = std::decay_t<decltype(destino)>;
            bool ok = false;
            if constexpr (std::is_same_v<T, QString>) {
                destino = valor.toString();
                return true;
            } else if constexpr (std::is_same_v<T, qint16>) {
                const qlonglong v = valor.toLongLong(&ok);
                if (!ok || v < std::numeric_limits<qint16>::min() ||
                    v > std::numeric_limits<qint16>::max()) {
                    return false;
                }
                destino = static_cast<qint16>(v);
                return true;
            } else if constexpr (std::is_same_v<T, double>) {
                const double v = valor.toDouble(&ok);
                if (!ok) {
                    return false;
                }
                destino = v;
                return true;
            } else {
                if (valor.typeId() == QMetaType::Bool) {
                    destino = valor.toBool();
                    return true;
                }
                const double v = valor.toDouble(&ok);
                if (!ok) {
                    return false;
                }
                destino = v != 0.0;
                return true;
            }
        },
        m->puntero);
}

} // namespace miembros_impresora
