#!/bin/bash
# bench/run.sh [SIZES [TOPICS]]: the figures of the editing engine, natively, and those of a live control under Wine, each
# beside its goal or the floor that the same run measured.
#
# SIZES is any of the letters S, M and L: 1, 10 and 100 million characters; all of them when none is given. TOPICS is any
# of l (load, save, memory), v (view), k (keys), c (block comments), d (paste, delete, undo), f (find and replace) and e
# (the engine). The machine should be at rest. The programs run pinned to one processor; SCRIV_BENCH_CPU names it (0 when
# unset).
#
# A row is a median, what it is compared with, the multiple, and the goal with whether it is met. Where the goal counts only
# what any window has to do, the line below tells the calls that a control is bound to make, measured alone in the same run.
set -u
cd "$(dirname "$0")/.." || exit 1
. tools/steps.sh
sizes=${1-SML}
topics=${2-lvkcdfe}
logs=$PWD/build/logs

step "build: benchmarks"
quietly "$logs/configure-bench.log" cmake --preset win || exit 1
quietly "$logs/build-bench.log" cmake --build --preset win --target bench_control || exit 1

if [[ $topics == *e* ]]; then
    quietly "$logs/configure-bench-native.log" cmake --preset native || exit 1
    quietly "$logs/build-bench-native.log" cmake --build --preset native --target bench_engine || exit 1
fi

step "figures: $sizes, a text of 1 (S), 10 (M) and 100 (L) million characters"
if [[ $topics == *e* ]]; then
    taskset -c "${SCRIV_BENCH_CPU-0}" build/native/bench/bench_engine "$sizes" || fail "bench_engine has failed"
fi
if [[ $topics == *[lvkcdf]* ]]; then
    SCRIV_WINE_TIMEOUT=1800 tools/with-wine.sh taskset -c "${SCRIV_BENCH_CPU-0}" \
        wine build/win/bin/bench_control.exe "$sizes" "$topics" || fail "bench_control has failed"
fi
