#!/bin/bash
# tools/make-pictures.sh: makes the pictures of the documents anew, from the sample host as it is built now.
# tools/make-pictures.sh --check FOLDER: makes them in FOLDER, from what was built last, and says whether those in
# docs/pictures are still what the program shows. The tests do this.
set -u
cd "$(dirname "$0")/.." || exit 1
. tools/steps.sh
logs=$PWD/build/logs
shown=docs/pictures
case "$#${1-}" in
0) check=no folder=$PWD/$shown ;;
2--check) check=yes folder=$2 ;;
*) echo "usage: tools/make-pictures.sh [--check FOLDER]" >&2; exit 2 ;;
esac

# picture NAME OPTION...: one picture of the sample host's window.
picture()
{
    local file=$folder/$1.png same=()
    made+=("$1.png")
    step "picture: $1"
    rm -f "$file"
    wine build/win/bin/scrivpad.exe "${@:2}" --screenshot "Z:${file//\//\\}" --exit ||
        fail "the sample host left no picture"
    [ "$check" = yes ] && same=("$shown/$1.png")
    python3 tools/check_picture.py "$file" "${same[@]}" || fail "run tools/make-pictures.sh and look at $shown/$1.png"
}

if [ "$check" = no ] && [ -z "${SCRIV_INSIDE_WINE-}" ]; then
    step "build: the control and the sample host"
    quietly "$logs/configure-pictures.log" cmake --preset win || exit 1
    quietly "$logs/build-pictures.log" cmake --build --preset win --target scrivctl3 scrivpad || exit 1
    exec tools/with-wine.sh tools/make-pictures.sh
fi

mkdir -p "$folder"
made=()
picture classic --theme 1 examples/samples/demo.cpp
picture ocean --theme 3 --goto 30:1 examples/samples/demo.cpp
picture ssl --theme 4 examples/samples/demo.ssl
picture selection --theme 2 --goto 31:5 --select-to 36:6 examples/samples/demo.cpp
picture find --theme 1 --goto 56:19 --select-to 56:23 --find examples/samples/demo.cpp
picture marks --theme 3 --break-point 33 --break-point 43 --exec-point 34 --goto 34:13 examples/samples/demo.cpp
picture tuning-font --tune 1 examples/samples/demo.cpp
picture tuning-colours --tune 2 examples/samples/demo.cpp
picture beside --theme 1 --beside examples/samples/demo.ssl --goto 19:1 --select-to 21:1 examples/samples/demo.cpp
picture preview --preview examples/samples/demo.cpp

for file in "$shown"/*; do
    name=${file##*/}
    [[ " ${made[*]} " == *" $name "* ]] || fail "$file is made by no line of this script"
    grep -qF "pictures/$name" README*.md docs/*.md || fail "$file is shown by no document"
done
