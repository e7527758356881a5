#!/usr/bin/env bash
# Installs the desk's package on a fresh Debian 12 (a minimal debootstrap chroot), the way a
# counter gets it, and starts it from its menu entry: what apt-get had to pull in, whether a
# library is still missing, and a picture of the first start against the stand-in service.
# By hand, as root, with the network reaching deb.debian.org (not part of CI):
#   scripts/probar-paquete-debian.sh [PAQUETE.deb]
#     PAQUETE_RAIZ=/tmp/deb12       the chroot, made again with debootstrap each run
#                                   (PAQUETE_RAIZ_REUSAR=1 keeps one already there)
#     PAQUETE_PANTALLA=:95          the host's screen the desk shows on (Xvfb + openbox are
#                                   started there when none answers)
# Leaves docs/paquete/instalado.png and docs/paquete/apt-get.txt (the packages apt-get chose).
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
cd "$raiz"
[ "$(id -u)" = 0 ] || { echo "probar-paquete-debian: hace falta ser root (chroot, mount)" >&2; exit 1; }

deb="${1:-}"
if [ -z "$deb" ]; then
    bash scripts/paquete.sh
    deb="$(ls -1 build/paquete/TarvimentaPedidos_*_amd64.deb | tail -1)"
fi
deb="$(readlink -f "$deb")"
chroot_="${PAQUETE_RAIZ:-/tmp/deb12}"
pantalla="${PAQUETE_PANTALLA:-:95}"
salida="$raiz/docs/paquete"
bin="$raiz/build/normal/bin"
mkdir -p "$salida"

# The machine: Debian 12 at its smallest, nothing of the build machine in it.
command -v debootstrap >/dev/null || apt-get install -y debootstrap
if [ "${PAQUETE_RAIZ_REUSAR:-}" != 1 ]; then
    rm -rf --one-file-system "$chroot_"
fi
if [ ! -x "$chroot_/usr/bin/apt-get" ]; then
    debootstrap --variant=minbase bookworm "$chroot_" http://deb.debian.org/debian
fi

pids=()
montados=()
source "$raiz/scripts/procesos.sh"
desmontar() {
    local i
    for ((i = ${#montados[@]} - 1; i >= 0; i--)); do umount -l "${montados[$i]}" 2>/dev/null || true; done
    montados=()
}
trap 'parar_procesos; desmontar' EXIT
montar() { # montar [mount options...] SOURCE DIR-IN-CHROOT
    local destino="$chroot_${*: -1}"
    mkdir -p "$destino"
    mount "${@:1:$#-1}" "$destino"
    montados+=("$destino")
}
montar -t proc proc /proc
montar -t sysfs sys /sys
montar --bind /dev /dev
montar --bind /dev/pts /dev/pts
# The X server's socket, so the desk inside shows on the host's screen.
montar --bind /tmp/.X11-unix /tmp/.X11-unix
cp /etc/resolv.conf "$chroot_/etc/resolv.conf"

dentro() { chroot "$chroot_" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 "$@"; }

# The package, installed by apt-get as the README says: everything it needs must come with it.
cp "$deb" "$chroot_/tmp/"
paquete="/tmp/$(basename "$deb")"
dentro apt-get update -q
# Recommends are left out: what the package Depends on alone must start the desk.
dentro env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "$paquete" |
    tee "$chroot_/tmp/apt-get.txt"
# What apt-get resolved, kept beside the picture (nothing new on a chroot kept from before).
plan="$(sed -n '/^The following NEW packages/,/additional disk space/p' "$chroot_/tmp/apt-get.txt")"
[ -z "$plan" ] || echo "$plan" >"$salida/apt-get.txt"

# Nothing the loader or Qt's plugins ask for may be missing.
faltan="$(dentro sh -c 'for f in /usr/lib/tarvimentapedidos/TarvimentaPedidos /usr/lib/tarvimentapedidos/visor_tickets \
    $(find /usr/lib/x86_64-linux-gnu/qt6/plugins -name "*.so"); do ldd "$f" | grep "not found" | sed "s|^|$f: |"; done')"
if [ -n "$faltan" ]; then
    echo "probar-paquete-debian: faltan bibliotecas:" >&2
    echo "$faltan" >&2
    exit 1
fi
dentro TarvimentaPedidos --version

# The menu entry's command, read from the installed file and run as it stands.
entrada="$chroot_/usr/share/applications/tarvimentapedidos.desktop"
orden="$(sed -n 's/^Exec=//p' "$entrada" | head -1)"
[ -n "$orden" ] || { echo "probar-paquete-debian: la entrada de menú no tiene Exec" >&2; exit 1; }
echo "probar-paquete-debian: Exec=$orden"

export DISPLAY="$pantalla"
if ! xdpyinfo >/dev/null 2>&1; then
    Xvfb "$pantalla" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
    pids+=("$!")
    for _ in $(seq 50); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.1; done
    openbox >/dev/null 2>&1 &
    pids+=("$!")
fi

# The stand-in service runs on the host (the chroot shares its network): the desk is pointed
# at it through the environment, as a counter's would be through its command line.
coproc SIM { exec "$bin/simulador" --puerto=0; }
pids+=("$SIM_PID")
read -r -t 10 linea <&"${SIM[0]}"
puerto="${linea#PUERTO }"

# A user with nothing of the desk yet: a fresh HOME inside the chroot.
rm -rf "$chroot_/tmp/inicio"
SECONDS=0
mkdir -p "$chroot_/tmp/inicio"
# Started without the shell function, so the id kept is the desk's own and the exit stops it.
chroot "$chroot_" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 HOME=/tmp/inicio \
    DISPLAY="$pantalla" TARVIMENTA_SERVIDOR="127.0.0.1:$puerto/api/" sh -c "exec $orden" >"$chroot_/tmp/arranque.txt" 2>&1 &
pids+=("$!")
id_ventana=""
# The first start on a fresh machine builds the font cache first: up to two minutes.
for _ in $(seq 600); do
    id_ventana="$(xdotool search --onlyvisible --name '^Tarvimenta$' 2>/dev/null | tail -1)" &&
        [ -n "$id_ventana" ] && break
    sleep 0.2
done
if [ -z "$id_ventana" ]; then
    import -window root "$salida/fallo.png"
    cat "$chroot_/tmp/arranque.txt" >&2
    echo "probar-paquete-debian: la ventana no aparece (pantalla en $salida/fallo.png)" >&2
    exit 1
fi
echo "probar-paquete-debian: la ventana, a los $SECONDS s del arranque"
sleep 3 # the first call to the service and the window manager's frame
import -window root "$salida/instalado.png"
echo "probar-paquete-debian: $salida/instalado.png"
