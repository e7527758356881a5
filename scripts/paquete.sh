#!/usr/bin/env bash
# Builds the Debian package of the desk into build/paquete/:
#   scripts/paquete.sh        ->  build/paquete/TarvimentaPedidos_<version>_amd64.deb
# Install it with `sudo apt-get install ./build/paquete/TarvimentaPedidos_*.deb`.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
cd "$raiz"

bash scripts/instalar-dependencias.sh
bash scripts/compilar.sh normal
cpack --config build/normal/CPackConfig.cmake -B build/paquete
ls -1 build/paquete/TarvimentaPedidos_*.deb
