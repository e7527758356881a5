# Sourced by the scripts that start the simulator, the desk or a screen: stops every process
# whose id is in the array `pids`, politely first (up to 5 s each), then for good.
parar_procesos() {
    local p
    for p in "${pids[@]}"; do kill -TERM "$p" 2>/dev/null || true; done
    for p in "${pids[@]}"; do
        for _ in $(seq 50); do kill -0 "$p" 2>/dev/null || break; sleep 0.1; done
        kill -KILL "$p" 2>/dev/null || true
    done
    pids=()
}
