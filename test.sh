#!/bin/bash
# ./test.sh [--full]: builds everything from what a bare Debian 12 offers and runs all tests.
#
#   native   the engine under address, undefined-behaviour and leak sanitizers
#   wine     the engine, the control through its exports, the sample hosts and the build itself, under Wine
#   fuzz     each fuzz target for a few seconds
#   cost     the instructions of each case of the engine's benchmarks, against their golden file
#
# --full adds the long runs: tests see SCRIV_FULL=1, fuzz targets get a minute each, the sources are read by cppcheck and
# clang-tidy, the DLL is built twice and compared, and the benchmarks print their figures. Needs no display. The last lines
# give the numbers of tests and the time.
set -u
cd "$(dirname "$0")" || exit 1
. tools/steps.sh
. tools/packages.sh

full=no
case "$#${1-}" in
0) ;;
1--full) full=yes ;;
*) echo "usage: ./test.sh [--full]" >&2; exit 2 ;;
esac
if [ "$full" = yes ]; then
    export SCRIV_FULL=1
    fuzz_seconds=60
else
    fuzz_seconds=5
fi
logs=$PWD/build/logs
# Tests under Wine wait more than they compute: one more at a time than there are processors.
lanes=$(($(nproc) + 1))
export CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}
if command -v ccache >/dev/null; then
    export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
summary=()
failed=no

# build PRESET [OPTION...]: a build that fails ends everything, since nothing behind it would mean much.
build()
{
    local preset=$1
    shift
    step "build: $preset"
    quietly "$logs/configure-$preset.log" cmake --preset "$preset" "$@" || exit 1
    quietly "$logs/build-$preset.log" cmake --build --preset "$preset" || exit 1
}

# build_ahead: builds what comes after the tests under Wine, which wait for a good part of their time, with what they leave
# of the processors. What fails there fails once more in its turn, and says so.
build_ahead()
{
    {
        nice -n 19 cmake --preset fuzz -DSCRIV_FUZZ_SECONDS=$fuzz_seconds && nice -n 19 cmake --build --preset fuzz
        nice -n 19 cmake --preset native && nice -n 19 cmake --build --preset native --target count_engine
    } >"$logs/build-ahead.log" 2>&1 </dev/null &
}

# run_tests NAME PRESET PARALLEL [COMMAND...]: runs the tests of a preset, so many at a time, in the environment that the
# command gives, and counts.
run_tests()
{
    local name=$1 preset=$2 parallel=$3 reports=$PWD/build/$2/reports status=0 line begun=$SECONDS
    shift 3
    step "tests: $name"
    rm -rf "$reports"
    mkdir -p "$reports"
    # Wine knows the system's own folders as drive Z.
    local prefix=
    [ "$preset" = win ] && prefix=Z:
    GTEST_OUTPUT=xml:$prefix$reports/ "$@" ctest --preset "$preset" --parallel "$parallel" --no-tests=error \
        --timeout 600 --output-junit "$reports/ctest.junit" >"$logs/tests-$name.log" 2>&1 </dev/null || status=$?
    line=$(python3 tools/count_tests.py "$name" "$reports/ctest.junit" "$reports" 2>&1) || status=1
    if [ "$status" != 0 ]; then
        failed=yes
        tail -n 200 "$logs/tests-$name.log" >&2
        echo "    the whole output: $logs/tests-$name.log" >&2
    fi
    printf '    %s (%d s)\n' "$line" "$((SECONDS - begun))"
    summary+=("$line")
}

# check NAME COMMAND...: one more test, counted as one.
check()
{
    local name=$1
    shift
    step "check: $name"
    if quietly "$logs/check-$name.log" "$@"; then
        summary+=("$name: 1 passed, 0 failed")
    else
        failed=yes
        summary+=("$name: 0 passed, 1 failed")
    fi
}

step "packages"
install_packages "$logs/packages.log" "${run_packages[@]}" "${test_packages[@]}" || fail "packages cannot be installed"
install_locale || fail "the Russian locale cannot be made"

build asan
run_tests native asan "$(nproc)"
build win
build_ahead
run_tests wine win "$lanes" tools/with-wine.sh --lanes "$lanes"
wait
build fuzz -DSCRIV_FUZZ_SECONDS=$fuzz_seconds
run_tests fuzz fuzz "$(nproc)"
check instructions bench/instructions.sh
if [ "$full" = yes ]; then
    python3 tools/fuzz_runs.py build/fuzz/reports/ctest.junit build/win/reports/ctest.junit
    check lint tools/lint.sh
    check reproducible tools/build-twice.sh
    if [ -e bench/run.sh ]; then
        step "benchmarks"
        bash bench/run.sh </dev/null || { failed=yes; summary+=("benchmarks: 0 passed, 1 failed"); }
    fi
fi

echo
printf '%s\n' "${summary[@]}"
printf '%s\n' "${summary[@]}" | awk '
    { for (i = 2; i <= NF; i++) {
          if ($i ~ /^passed/) passed += $(i - 1)
          if ($i ~ /^failed/) failed += $(i - 1)
          if ($i ~ /^skipped/) skipped += $(i - 1) } }
    END { printf "total: %d passed, %d failed", passed, failed
          if (skipped) printf ", %d skipped", skipped
          printf "\n" }'
printf 'time: %d min %d s\n' $(((SECONDS - steps_begun) / 60)) $(((SECONDS - steps_begun) % 60))
[ "$failed" = no ]
