#!/bin/bash
# Builds the DLL twice, from copies of the sources at two places and without any cache, and compares.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export CCACHE_DISABLE=1
cd "$root"
for copy in one another; do
    mkdir "$scratch/$copy"
    git ls-files -z --cached --others --exclude-standard | xargs -0 cp --parents -t "$scratch/$copy"
    cmake -S "$scratch/$copy" --preset win -DSCRIV_TESTS=OFF -DSCRIV_BENCH=OFF
    cmake --build "$scratch/$copy/build/win" --target scrivctl3 scrivctl3_msvc_lib
done
for file in bin/scrivctl3.dll bin/scrivctl3.dll.debug lib/libscrivctl3.dll.a lib/scrivctl3.lib; do
    cmp "$scratch"/{one,another}/build/win/"$file"
    echo "the same: $file"
done
