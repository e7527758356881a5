#!/usr/bin/env bash
# Draws the driver customer and kitchen tickets into PDFs (through the PDF test) and turns
# their pages into the PNGs under docs/tickets/. Usage: scripts/tickets-dw.sh [build folder]
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
build="${1:-$raiz/build/normal}"
salida="$(mktemp -d)"
trap 'rm -rf "$salida"' EXIT
QT_QPA_PLATFORM=offscreen TZ=Europe/Madrid TARVIMENTA_TICKETS_PDF="$salida" \
    timeout 120 "$build/bin/pruebas_printing" --gtest_filter='ImpresionPdf.TicketDe*'
for t in cliente cocina; do
    pdftoppm -png -r 120 -singlefile "$salida/ticket-$t.pdf" "$raiz/docs/tickets/ticket_dw_$t"
done
ls -l "$raiz"/docs/tickets/ticket_dw_*.png
