#!/bin/bash
# tools/lint.sh [FILE...]: reads the product's sources with cppcheck and, the engine, with clang-tidy. No finding is let
# pass: what is left out stands in .clang-tidy and tools/cppcheck.suppressions, each with its reason. Takes some four
# minutes; with files named clang-tidy reads only these.
set -eu
cd "$(dirname "$0")/.."
. tools/steps.sh
. tools/packages.sh
logs=$PWD/build/logs

step "packages"
install_packages "$logs/packages.log" cmake ninja-build clang clang-tidy cppcheck

step "cppcheck: the product"
quietly "$logs/cppcheck.log" cppcheck --std=c++20 --platform=win64 --enable=warning,performance,portability --quiet \
    --error-exitcode=1 --suppressions-list=tools/cppcheck.suppressions -j "$(nproc)" -I. \
    zsl store diagnostics editing appearance framework api

step "clang-tidy: the engine"
quietly "$logs/configure-lint.log" cmake --preset fuzz -DCMAKE_EXPORT_COMPILE_COMMANDS=ON
if [ $# -gt 0 ]; then
    files=("$@")
else
    mapfile -t files < <(sed -n 's|^build CMakeFiles/scriv_engine.dir/\(\S*\)\.o:.*|\1|p' build/fuzz/build.ninja)
fi
printf '%s\n' "${files[@]}" >build/lint.files
quietly "$logs/clang-tidy.log" xargs -a build/lint.files -P "$(nproc)" -n 4 clang-tidy -p build/fuzz --quiet
echo "no finding in ${#files[@]} files of the engine"
