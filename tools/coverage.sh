#!/bin/bash
# tools/coverage.sh [FOLDER...]: how much of the engine the native tests reach (default: store editing).
#
# Prints for each folder the share of lines and of branches that engine_tests and the tests against the model run, and the
# lines that they never do. Branches that only an exception takes do not count: the compiler puts one behind nearly every call.
set -eu
cd "$(dirname "$0")/.."
. tools/steps.sh
. tools/packages.sh
[ $# -gt 0 ] || set -- store editing
objects=$PWD/build/coverage/CMakeFiles/scriv_engine.dir
logs=$PWD/build/logs
programs=(engine/engine_tests model/model_tests model/short_history_tests)

step "packages"
install_packages "$logs/packages.log" cmake ninja-build g++ googletest gcovr python3

step "build: coverage"
quietly "$logs/configure-coverage.log" cmake --preset coverage
quietly "$logs/build-coverage.log" cmake --build --preset coverage --target "${programs[@]##*/}"

find build/coverage -name '*.gcda' -delete  # what earlier runs counted
for tests in "${programs[@]}"; do
    step "tests: ${tests##*/}"
    quietly "$logs/coverage-${tests##*/}.log" env -C build/coverage "tests/$tests" --gtest_brief=1
done

step "coverage: $*"
filters=("$@")
filters=("${filters[@]/#/--filter=}")
quietly "$logs/gcovr.log" gcovr --root . --exclude-throw-branches --json build/coverage/coverage.json "${filters[@]}" \
    "$objects"
python3 tools/print_coverage.py build/coverage/coverage.json "$@"
