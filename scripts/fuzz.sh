#!/usr/bin/env bash
# Runs every fuzz target of build/fuzz for a fixed time on its seeds (fuzz/corpus/<target>),
# two at a time. What a run finds goes to a scratch corpus, never into the seeds; a crash, a
# sanitizer report or a target that outlives its time fails the script and leaves the input
# in build/fuzz/hallazgos/.
#   scripts/fuzz.sh [seconds per target=60]
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
segundos="${1:-60}"
bin="$raiz/build/fuzz/bin"
hallazgos="$raiz/build/fuzz/hallazgos"
trabajo="$(mktemp -d)"
trap 'rm -rf "$trabajo"' EXIT
mkdir -p "$hallazgos"
# Undefined behaviour counts as a crash, not a line in the log.
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
export ASAN_OPTIONS=detect_leaks=1

ejecutar() {
    local objetivo="$1" nombre
    nombre="$(basename "$objetivo")"
    mkdir -p "$trabajo/$nombre"
    # libFuzzer stops itself at -max_total_time; the outer limit is for a target that hangs
    # in a way libFuzzer cannot see.
    if timeout --kill-after=10 $((segundos + 60)) "$objetivo" \
        -max_total_time="$segundos" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="$hallazgos/$nombre-" \
        "$trabajo/$nombre" "$raiz/fuzz/corpus/$nombre" >"$trabajo/$nombre.log" 2>&1; then
        echo "$nombre: $(grep -m1 -o 'stat::number_of_executed_units: *[0-9]*' "$trabajo/$nombre.log" |
            grep -o '[0-9]*$') entradas en ${segundos} s, sin fallos"
    else
        echo "$nombre: FALLO" >&2
        tail -n 60 "$trabajo/$nombre.log" >&2
        return 1
    fi
}

objetivos=("$bin"/fuzz_*)
[ -x "${objetivos[0]}" ] || { echo "no hay objetivos en $bin" >&2; exit 1; }
fallos=0
for ((i = 0; i < ${#objetivos[@]}; i += 2)); do
    pids=()
    for objetivo in "${objetivos[@]:i:2}"; do
        ejecutar "$objetivo" &
        pids+=($!)
    done
    for p in "${pids[@]}"; do wait "$p" || fallos=$((fallos + 1)); done
done
[ "$fallos" -eq 0 ] || { echo "$fallos objetivos de fuzzing fallaron" >&2; exit 1; }
