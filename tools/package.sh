#!/bin/bash
# tools/package.sh [--built] [FOLDER]: makes the packages of a release in FOLDER, build/packages when none is named.
#
#   scrivctl3-VERSION-win64.zip        what `cmake --install` installs, without the debug information
#   scrivctl3-VERSION-win64-debug.zip  the debug information
#   scrivctl3-VERSION-vcpkg.zip        an overlay port with the first zip inside
#   scrivctl3.VERSION.nupkg            the same for NuGet
#
# The same sources give the same bytes. With --built the preset win is taken as it was built last.
set -eu
cd "$(dirname "$0")/.."
. tools/steps.sh
logs=$PWD/build/logs
built=no
if [ "${1-}" = --built ]; then
    built=yes
    shift
fi
[ $# -le 1 ] || { echo "usage: tools/package.sh [--built] [FOLDER]" >&2; exit 2; }
mkdir -p "${1-build/packages}"
out=$(cd "${1-build/packages}" && pwd)

if [ "$built" = no ]; then
    step "build: the control"
    quietly "$logs/configure-package.log" cmake --preset win
    quietly "$logs/build-package.log" cmake --build --preset win --target scrivctl3 scrivctl3_msvc_lib
fi
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' build/win/CMakeCache.txt)
# The day of the release is the day of all its files.
date=$(sed -n "s/^## \[$version\] - //p" CHANGELOG.md)
[ -n "$date" ] || fail "CHANGELOG.md does not tell the day of version $version"

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
name=scrivctl3-$version-win64
step "install: $name"
for component in runtime development documentation; do
    quietly "$logs/install.log" cmake --install build/win --prefix "$scratch/tree" --component "$component"
done
quietly "$logs/install.log" cmake --install build/win --prefix "$scratch/debug" --component debug
[ -e "$scratch/tree/lib/scrivctl3.lib" ] || fail "without llvm-dlltool there is no library for Microsoft's linker"
cp packaging/README.md "$scratch/tree/"

step "pack: $out"
rm -f "$out/$name.zip" "$out/$name-debug.zip" "$out/scrivctl3-$version-vcpkg.zip" "$out/scrivctl3.$version.nupkg"
python3 -B tools/make_zip.py "$out/$name.zip" "$date" "$scratch/tree" "$name/"
python3 -B tools/make_zip.py "$out/$name-debug.zip" "$date" "$scratch/debug" "$name/"
mkdir "$scratch/port"
cp packaging/vcpkg/* "$out/$name.zip" "$scratch/port/"
python3 -B tools/make_zip.py "$out/scrivctl3-$version-vcpkg.zip" "$date" "$scratch/port" scrivctl3/
python3 -B tools/make_nupkg.py "$out/scrivctl3.$version.nupkg" "$date" packaging/nuget/scrivctl3.nuspec "$scratch/tree"
