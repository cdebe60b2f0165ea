#!/bin/bash
# bench/instructions.sh [--renew]: counts the instructions of one run of each case of the editing engine and compares
# them with bench/instructions.golden. Fails when a case costs more than a tenth above its line there, and when the
# cases are not those of the file. --renew writes the file anew: for a change that is meant to cost what it costs.
#
# What callgrind counts does not depend on the machine or on what else runs on it, but for the C library, which picks
# its routines by the processor: only the instructions of the program itself are counted.
set -u
cd "$(dirname "$0")/.." || exit 1
. tools/steps.sh
. tools/packages.sh
case "$#${1-}" in
0|1--renew) ;;
*) echo "usage: bench/instructions.sh [--renew]" >&2; exit 2 ;;
esac
logs=$PWD/build/logs
counts=$PWD/build/native/instructions

install_packages "$logs/packages-instructions.log" valgrind || fail "valgrind cannot be installed"
quietly "$logs/configure-native.log" cmake --preset native || exit 1
quietly "$logs/build-native.log" cmake --build --preset native --target count_engine || exit 1
rm -rf "$counts"
mkdir -p "$counts"
valgrind --tool=callgrind --callgrind-out-file="$counts/counts" --collect-atstart=no --toggle-collect=RunCounted \
    --dump-after=RunCounted build/native/bench/count_engine >"$counts/cases" 2>"$counts/log" ||
    { cat "$counts/log" >&2; fail "count_engine has failed"; }
python3 bench/compare_counts.py "$counts" bench/instructions.golden "$@"
