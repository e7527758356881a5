#!/usr/bin/env bash
# Sets up and runs every test: installs what is missing, builds, runs the whole suite,
# then runs it again built with AddressSanitizer and UndefinedBehaviorSanitizer, builds the
# fuzz targets and runs each on its seeds for a minute.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
cd "$raiz"

bash scripts/instalar-dependencias.sh

export QT_QPA_PLATFORM=offscreen
export TZ=Europe/Madrid
# Tests run two at a time on this size of machine; each has its own time limit.
paralelo="${TARVIMENTA_PARALELO:-2}"

echo "== capas de src/"
bash scripts/comprobar-capas.sh
echo "== compilación normal"
bash scripts/compilar.sh normal
echo "== pruebas"
ctest --test-dir build/normal --output-on-failure -j "$paralelo" --timeout 300

if [ "${TARVIMENTA_SIN_SANITIZADORES:-}" != "1" ]; then
    echo "== compilación con sanitizadores"
    bash scripts/compilar.sh sanitizadores
    echo "== pruebas con sanitizadores"
    ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1 \
        ctest --test-dir build/sanitizadores --output-on-failure -j "$paralelo" --timeout 600
fi

if ls fuzz/fuzz_*.cpp >/dev/null 2>&1; then
    echo "== objetivos de fuzzing"
    bash scripts/compilar.sh fuzz
    # Each target on its seeds for a fixed time (TARVIMENTA_FUZZ_SEGUNDOS, 0 skips); a crash
    # fails the run.
    segundos_fuzz="${TARVIMENTA_FUZZ_SEGUNDOS:-60}"
    if [ "$segundos_fuzz" != "0" ]; then
        echo "== fuzzing (${segundos_fuzz} s por objetivo)"
        bash scripts/fuzz.sh "$segundos_fuzz"
    fi
fi
echo "== todo correcto"
