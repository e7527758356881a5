#!/usr/bin/env bash
# Builds the Debian package from a finished build and checks what a fresh machine would get:
# the programs and the melodies together, working links in /usr/bin, a valid menu entry whose
# command and icon are installed, the manual, and the dependencies the linker cannot see.
#   comprobar-paquete.sh BUILD_DIR
set -euo pipefail
build="$(cd "$1" && pwd)"
tmp="$(mktemp -d)"
trap 'rm -rf "$tmp"' EXIT

fallos=0
falla() {
    echo "FALLA: $*" >&2
    fallos=$((fallos + 1))
}

cpack --config "$build/CPackConfig.cmake" -B "$tmp/cpack" >"$tmp/cpack.log" 2>&1 ||
    { cat "$tmp/cpack.log" >&2; exit 1; }
deb=("$tmp"/cpack/TarvimentaPedidos_*_amd64.deb)
[ -f "${deb[0]}" ] || { echo "FALLA: no hay TarvimentaPedidos_*_amd64.deb" >&2; exit 1; }
dpkg-deb -x "${deb[0]}" "$tmp/raiz"
raiz="$tmp/raiz"
programa="$raiz/usr/lib/tarvimentapedidos"

# Every melody the build makes lies beside the executable, where the desk looks for it.
n=0
for m in "$build"/bin/*.mp3 "$build"/bin/*.wav; do
    n=$((n + 1))
    cmp -s "$m" "$programa/$(basename "$m")" || falla "melodía $(basename "$m") no está junto al ejecutable"
done
[ "$n" -ge 1 ] || falla "la compilación no tiene melodías"

# The links of /usr/bin reach the programs inside the unpacked tree (relative links), and
# the desk answers through its link.
for p in TarvimentaPedidos visor_tickets; do
    [ -L "$raiz/usr/bin/$p" ] || falla "/usr/bin/$p no es un enlace"
    [ "$(readlink -f "$raiz/usr/bin/$p")" = "$(readlink -f "$programa/$p")" ] ||
        falla "/usr/bin/$p no lleva a /usr/lib/tarvimentapedidos/$p"
done
version="$("$raiz/usr/bin/TarvimentaPedidos" --version 2>&1)" || falla "--version falla: $version"
grep -q "^Version: ${version#TarvimentaPedidos }\$" <(dpkg-deb -f "${deb[0]}") ||
    falla "la versión del paquete no es la del programa ($version)"

# The menu entry: valid, its command installed in /usr/bin, its icon in the theme.
entrada="$raiz/usr/share/applications/tarvimentapedidos.desktop"
if [ ! -f "$entrada" ]; then
    falla "no hay entrada de menú"
else
    if command -v desktop-file-validate >/dev/null; then
        desktop-file-validate "$entrada" || falla "la entrada de menú no es válida"
    fi
    orden="$(sed -n 's/^Exec=\([^ ]*\).*/\1/p' "$entrada")"
    [ -x "$raiz/usr/bin/$orden" ] || falla "Exec=$orden no está instalado en /usr/bin"
    grep -Eq '^Categories=.*(Office|Network);' "$entrada" || falla "la entrada no está en Office ni Network"
    icono="$(sed -n 's/^Icon=//p' "$entrada")"
    for lado in 16 32 48 64 128 256; do
        f="$raiz/usr/share/icons/hicolor/${lado}x${lado}/apps/$icono.png"
        [ -s "$f" ] || { falla "falta el icono de ${lado}x${lado}"; continue; }
        file "$f" | grep -q "PNG image data, $lado x $lado" || falla "el icono de ${lado}x${lado} no mide eso"
    done
fi

zcat "$raiz/usr/share/man/man1/TarvimentaPedidos.1.gz" | grep -q '^\.SH OPCIONES' || falla "no hay página de manual"

depende="$(dpkg-deb -f "${deb[0]}" Depends)"
for d in gstreamer1.0-plugins-good gstreamer1.0-plugins-base libqt6multimedia6 libqt6printsupport6 libcups2 libzip4; do
    grep -q "\b$d\b" <<<"$depende" || falla "no depende de $d"
done

[ "$fallos" -eq 0 ] || exit 1
echo "paquete correcto: $(basename "${deb[0]}")"
