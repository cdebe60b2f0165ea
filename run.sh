#!/bin/bash
# ./run.sh [FILE]: builds the control and its sample host, and shows FILE in it (a sample text when none is named).
#
# With a display the program stays open until it is closed. Without one it runs on a virtual screen, leaves a picture of
# its window in build/run/screenshot.png and ends by itself. Runs on a bare Debian 12, as root or with sudo.
set -u
here=$PWD
cd "$(dirname "$0")" || exit 1
. tools/steps.sh
. tools/packages.sh
[ $# -le 1 ] || { echo "usage: ./run.sh [FILE]" >&2; exit 2; }
file=${1-$PWD/examples/samples/demo.cpp}
case $file in
/*) ;;
*) file=$here/$file ;;
esac
[ -f "$file" ] && [ -r "$file" ] || fail "no such file: $file"
logs=$PWD/build/logs
picture=$PWD/build/run/screenshot.png

step "packages"
install_packages "$logs/packages.log" "${run_packages[@]}" || fail "packages cannot be installed"
install_locale || fail "the Russian locale cannot be made"

step "build: the control and the sample host"
export CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}
if command -v ccache >/dev/null; then
    export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
# A folder that was configured for the tests keeps them; otherwise their packages are not even installed.
options=(-DSCRIV_TESTS=OFF -DSCRIV_BENCH=OFF)
grep -qs '^SCRIV_TESTS:BOOL=ON' build/win/CMakeCache.txt && options=()
quietly "$logs/configure-run.log" cmake --preset win "${options[@]}" || exit 1
quietly "$logs/build-run.log" cmake --build --preset win --target scrivctl3 scrivpad || exit 1

program=$PWD/build/win/bin/scrivpad.exe
# winepath keeps blanks and turns the slashes; it needs no screen.
show='exec wine "$1" "${@:3}" "$(winepath -w "$2" 2>/dev/null)"'
if [ -n "${DISPLAY-}" ] && xdpyinfo >/dev/null 2>&1; then
    step "show: ${file##*/}"
    SCRIV_WINE_TIMEOUT=0 tools/with-wine.sh --display bash -c "$show" show "$program" "$file"
    exit
fi

step "show: ${file##*/}, on a virtual screen"
mkdir -p "${picture%/*}"
rm -f "$picture"
SCRIV_WINE_TIMEOUT=120 tools/with-wine.sh bash -c "$show" show "$program" "$file" \
    --screenshot "Z:${picture//\//\\}" --exit || fail "the sample host failed with status $?"
[ -e "$picture" ] || fail "the sample host left no picture"
python3 tools/check_picture.py "$picture" || fail "the picture is not that of a window with text: $picture"
step "done; the picture of the window: $picture"
