#!/bin/bash
# soak.sh [HOURS|EVENTS]: the long run before a release; the default is one day of a user.
#
#   HOURS   1 to 999: that many hours of a user at ten events a second
#   EVENTS  1,000 and above: that many events
#
# Three runs, one after the other: the events on five controls, 20,000,000 random steps of the engine against its model,
# natively under sanitizers, and 1,000,000 through a live control. Memory that grows, a record in the log and a
# difference from the model are failures. SCRIV_SEED=0 draws other histories than those of every day. Needs no display.
set -u
cd "$(dirname "$0")/.." || exit 1
. tools/steps.sh
. tools/packages.sh

number=${1:-24}
[[ $# -le 1 && $number =~ ^[1-9][0-9]{0,10}$ ]] || { echo "usage: tools/soak.sh [HOURS|EVENTS]" >&2; exit 2; }
events=$number
[ "$number" -lt 1000 ] && events=$((number * 36000))
logs=$PWD/build/logs
failed=no

# run NAME COMMAND...: tells how it ended; the others run whatever it was.
run()
{
    local name=$1
    shift
    step "$name"
    quietly "$logs/soak-${name// /-}.log" "$@" || failed=yes
    grep -E ' events; |steps$| tests ran| PASSED | FAILED ' "$logs/soak-${name// /-}.log" | tr -d '\r'
}

step "packages"
install_packages "$logs/packages.log" "${run_packages[@]}" "${test_packages[@]}" || fail "packages cannot be installed"
install_locale || fail "the Russian locale cannot be made"

# build PRESET TARGET...
build()
{
    local preset=$1
    shift
    step "build: $preset"
    quietly "$logs/configure-$preset.log" cmake --preset "$preset" || exit 1
    quietly "$logs/build-$preset.log" cmake --build --preset "$preset" --target "$@" || exit 1
}

build win soak_tests live_model_tests
build asan model_tests

export SCRIV_WINE_TIMEOUT=0
run "events of a user" env "SCRIV_EVENTS=$events" tools/with-wine.sh wine build/win/bin/soak_tests.exe
run "steps of the engine" env SCRIV_STEPS=20000000 build/asan/tests/model/model_tests --gtest_filter='Random*'
run "steps of a live control" env SCRIV_STEPS=1000000 tools/with-wine.sh \
    wine build/win/bin/live_model_tests.exe --gtest_filter='Live*'
step "done"
[ "$failed" = no ]
