#pragma once

#include <QString>

// The record of one ticket printer, as the establishment configuration brings it.
// "DW" prints through the system's driver, "EP" sends raw ESC/POS bytes; any other
// TipoImpresion prints nothing, and an empty NombreImpresora marks an empty slot.
struct ClassConfigImpresora {
    QString TipoImpresion;
    QString NombreImpresora;
    qint16 NumeroCopiasAceptado = 0;
    qint16 NumeroCopiasAceptadoRecoger = 0; // -1: same as NumeroCopiasAceptado
    qint16 NumeroCopiasRechazado = 0;
    qint16 AnchoPapel = 0;
    QString Font;
    double FactorFuente = 0.0;
    qint16 TamannoFuentePequenna = 0;
    qint16 TamannoFuenteGrande = 0;
    qint16 TamannoFuenteSeparador = 0;
    QString SeparadorLineas;
    qint16 MargenEntreLineas = 0;
    qint16 InicioX = 0;
    qint16 InicioY = 0;
    QString EPConexion;
    qint16 EPNumColumnas = 0;
    QString EPComInicializar;
    QString EPComDobleAltoActivar;
    QString EPComDobleAltoDesact;
    QString EPComSubirYCotarPapel;
    QString EPComConfigCaracteres;
    QString EPComSubirLineas;
    QString EPComExtrasFin;
    bool Cocina = false;
    QString CategoriasIds;
    QString ProductosExcepIds;
    QString ProductosIds;
    qint16 FormaEnvio = 0;
    bool MostrarNombreImpresora = false;
    bool ReemplazarCaracEsp = false;
    bool ReemplazarCaracEscPosPC858 = false; // untyped holder in the wire: any non-zero is true
    bool SaltoLineaOpciones = false;
    bool NombreImpresoraGrande = false;
    bool ProductosYComentariosGrande = false;
    bool DatosClienteYEnvioGrande = false;   // untyped holder in the wire
    bool ProductosYComentariosMayus = false; // untyped holder in the wire
    bool DatosClienteCocina = false;
    qint16 NumLineasBlancoInicio = 0;
    qint16 NumLineasBlancoFinal = 0;
    qint16 NumPedidoYFormaEnvFinal = 0;
    bool MostrarPreciosProdCocina = false;
    bool MostrarSeparadorProductos = false;
    bool MostrarTotalBruto = false;
    bool MostrarHoraEntrega = false;
};
