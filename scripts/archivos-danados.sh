#!/usr/bin/env bash
# Starts the real desk on broken local files and prints the boxes it shows and what is
# left on disk: a config.txt of random bytes, an empty one, one that is a folder, and a
# config.txt the desk must correct at start on a full disk (a 64 KB tmpfs, filled, mounted
# in a user namespace; skipped where unshare is not allowed). Each desk runs 4 s offscreen
# with its boxes written to a file, against a service that does not answer.
#   scripts/archivos-danados.sh    (uses build/normal as it is)
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
desk="$raiz/build/normal/bin/TarvimentaPedidos"
trabajo="$(mktemp -d)"
trap 'rm -rf "$trabajo"' EXIT

arrancar() { # carpeta
    local rc=0
    QT_QPA_PLATFORM=offscreen timeout 4 "$desk" --carpeta="$1" --servidor=127.0.0.1:1/api/ \
        --cajas="$1.cajas" noactualizar >/dev/null 2>&1 || rc=$?
    # timeout's 124: the desk was still running after 4 s.
    if [ "$rc" = 124 ]; then echo "  el programa sigue en marcha"; else echo "  terminó ($rc)"; fi
    echo "  cajas: $(cut -f3- "$1.cajas" 2>/dev/null || echo ninguna)"
    echo "  quedan: $(cd "$1" && find . -maxdepth 1 -type f ! -name '.*' -printf '%f (%s bytes) ')"
}

echo "config.txt de bytes al azar:"
mkdir "$trabajo/azar" && head -c 200 /dev/urandom >"$trabajo/azar.bin"
cp "$trabajo/azar.bin" "$trabajo/azar/config.txt"
arrancar "$trabajo/azar"
cmp -s "$trabajo/azar.bin" "$trabajo/azar/config.txt.dañado" && echo "  copia igual al original"

echo "config.txt vacío:"
mkdir "$trabajo/vacio" && : >"$trabajo/vacio/config.txt"
arrancar "$trabajo/vacio"

echo "config.txt que es una carpeta:"
mkdir -p "$trabajo/carpeta/config.txt"
arrancar "$trabajo/carpeta"

echo "disco lleno al corregir config.txt:"
if unshare -rm true 2>/dev/null; then
    mkdir "$trabajo/lleno"
    # Id 42, the enciphered "abc", NumConfig 10: the desk writes NumConfig 1 back at start.
    unshare -rm bash -c "
        set -e
        mount -t tmpfs -o size=64k none '$trabajo/lleno'
        printf '\\052\\000\\000\\000\\000\\000\\000\\000\\000\\000\\006\\0005C4BDE\\000\\000\\000\\000\\012\\000' >'$trabajo/lleno/config.txt'
        cp '$trabajo/lleno/config.txt' '$trabajo/antes.bin'
        dd if=/dev/zero of='$trabajo/lleno/relleno' bs=4k 2>/dev/null || true
        $(declare -f arrancar); desk='$desk'; arrancar '$trabajo/lleno'
        cmp -s '$trabajo/antes.bin' '$trabajo/lleno/config.txt' && echo '  config.txt intacto'
    "
else
    echo "  (sin espacios de nombres de usuario: omitido)"
fi
