#pragma once

#include <QString>

// Hand-made order lines, as the service writes them (UTF-8): delivered now and paid by card,
// scheduled for pick-up, and in cash with change still to pay.
inline const QString kDomicilio = QStringLiteral(
    "#PED*web*5001*2%Pizza Cuatro Quesos - Borde relleno - Sin orégano%23.00%101%12%Cocina "
    "caliente//2//Borde relleno;1%Tarta de queso%4.50%150%15;*2.00*0.00;29.50;88;María Núñez;"
    "Calle Mayor 5, 2º B;14/11/2026 21:02%%Para: Ahora;4;6;Tarjeta;600111222;Pendiente;;;0.35;;0;"
    "29.85;*Timbre roto * llamar al móvil#");
inline const QString kProgramadoRecogen = QStringLiteral(
    "#PED*web*5002*1%Hamburguesa clásica - Sin pepinillos%9.90%201%13;*0.00*0.00;9.90;89;"
    "Jorge Peña;Recogen;14/11/2026 18:40%%Para: 21:30%%Sábado 15%%n;0;6;PayPal;611222333;"
    "Pendiente;;;0.00;;1;9.90;*#");
inline const QString kEfectivo = QStringLiteral(
    "#PED*web*5003*3%Croquetas caseras%7.50%301%11;*1.50*1.00;8.00;90;Ana Ruiz;Avda. Sol 3;"
    "14/11/2026 21:10%%Para: Ahora;0;1;Efectivo Cambio: 50;622333444;Pendiente;;BIENVENIDA;"
    "0.00;0;0;8.50;*#");
