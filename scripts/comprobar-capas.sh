#!/usr/bin/env bash
# The floors of the house: a folder of src/ may include its own headers and those of the
# folders listed for it, all of them below it. An include that goes up (printing/ reaching
# into shell/, say) or a folder missing from the table fails, with the line that does it.
#   scripts/comprobar-capas.sh [src folder]
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
src="${1:-$raiz/src}"

declare -A debajo=(
    [base]=""
    [platform]="base"
    [server]="base platform"
    [sound]="base platform"
    [printing]="base platform server"
    [products]="base platform server printing"
    [orders]="base platform server sound printing products"
    [history]="base platform server sound printing products orders"
    [messages]="base platform server sound printing products orders history"
    [update]="base platform server"
    [settings]="base platform server sound printing"
    [shell]="base platform server sound printing products orders history messages update settings"
)

fallos=0
for dir in "$src"/*/; do
    carpeta="$(basename "$dir")"
    if [ -z "${debajo[$carpeta]+x}" ]; then
        echo "capas: src/$carpeta no tiene piso en scripts/comprobar-capas.sh" >&2
        fallos=1
        continue
    fi
    permitidas=" $carpeta ${debajo[$carpeta]} "
    while IFS=: read -r fichero linea texto; do
        destino="${texto#*\"}"
        destino="${destino%%/*}"
        if [[ "$permitidas" != *" $destino "* ]]; then
            echo "capas: ${fichero#"$src"/}:$linea sube a $destino/: $texto" >&2
            fallos=1
        fi
    done < <(grep -rnE '^\s*#\s*include\s+"[a-z]+/' "$dir" --include='*.h' --include='*.cpp' || true)
done
if [ "$fallos" -ne 0 ]; then
    exit 1
fi
echo "capas: ningún include sube de piso"
