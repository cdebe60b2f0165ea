#!/bin/bash
# bench/run.sh [SIZES [TOPICS]]: the figures of the editing engine, natively, and those of a live control under Wine, each
# beside its goal or the floor that the same run measured.
#
# SIZES is any of the letters S, M and L: 1, 10 and 100 million characters; all of them when none is given. TOPICS is any
# of l (load and save), v (view), s (scan), k (keys), f (find and replace) and e (the engine). The machine should be at
# rest. The programs run pinned to one processor; SCRIV_BENCH_CPU names it (0 when unset).
set -u
cd "$(dirname "$0")/.." || exit 1
. tools/steps.sh
sizes=${1-SML}
topics=${2-lvskfe}
logs=$PWD/build/logs

step "build: benchmarks"
quietly "$logs/configure-bench.log" cmake --preset win || exit 1
quietly "$logs/build-bench.log" cmake --build --preset win --target bench_control bench_find || exit 1

if [[ $topics == *e* ]]; then
    quietly "$logs/configure-bench-native.log" cmake --preset native || exit 1
    quietly "$logs/build-bench-native.log" cmake --build --preset native --target bench_engine || exit 1
    step "figures of the engine: $sizes"
    taskset -c "${SCRIV_BENCH_CPU-0}" build/native/bench/bench_engine "$sizes" || fail "bench_engine has failed"
fi

step "figures: $sizes, a text of 1 (S), 10 (M) and 100 (L) million characters"
for program in bench_control bench_find; do
    SCRIV_WINE_TIMEOUT=1800 tools/with-wine.sh taskset -c "${SCRIV_BENCH_CPU-0}" \
        wine "build/win/bin/$program.exe" "$sizes" "$topics" || fail "$program has failed"
done
