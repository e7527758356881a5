#!/usr/bin/env bash
# Installs every Debian package the desk, its tests, benchmarks, fuzzers and demo need.
# Idempotent: when everything is there already it only checks and returns.
set -euo pipefail

PAQUETES=(
    build-essential cmake ninja-build ccache pkg-config git
    qt6-base-dev qt6-multimedia-dev qt6-serialport-dev libqt6opengl6-dev libgl-dev
    qt6-qpa-plugins
    gstreamer1.0-plugins-base gstreamer1.0-plugins-good
    libcups2-dev cups-client cups-daemon
    libzip-dev
    libcpp-httplib-dev nlohmann-json3-dev rapidjson-dev
    googletest libgtest-dev libgmock-dev libbenchmark-dev
    clang libclang-rt-14-dev
    xvfb x11-apps x11-utils openbox xdotool imagemagick poppler-utils
    socat sox libsox-fmt-mp3 lame
    python3 procps time bc curl fonts-dejavu-core
    dpkg-dev desktop-file-utils file
)

faltan=()
for p in "${PAQUETES[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        faltan+=("$p")
    fi
done

if [ ${#faltan[@]} -eq 0 ]; then
    echo "dependencias: todo instalado"
    exit 0
fi

echo "dependencias: instalando ${faltan[*]}"
SUDO=""
if [ "$(id -u)" -ne 0 ]; then
    SUDO="sudo"
fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${faltan[@]}"
