#!/bin/bash
# Builds the DLL a second time, from a copy of the sources at another place and without any cache, and compares.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
export CCACHE_DISABLE=1
cd "$root"
git ls-files -z --cached --others --exclude-standard | xargs -0 cp --parents -t "$copy"
cmake -S "$copy" --preset win >/dev/null
cmake --build "$copy/build/win" --target scrivctl3
for file in bin/scrivctl3.dll lib/libscrivctl3.dll.a; do
    cmp "$root/build/win/$file" "$copy/build/win/$file"
    echo "the same: $file"
done
