#!/bin/bash
# tools/make-pictures.sh: makes the pictures of the documents anew, from the sample host as it is built now.
set -u
cd "$(dirname "$0")/.." || exit 1
. tools/steps.sh
logs=$PWD/build/logs

# picture NAME OPTION...: one picture of the sample host's window.
picture()
{
    local name=$1
    shift
    step "picture: docs/pictures/$name.png"
    tools/with-wine.sh wine build/win/bin/scrivpad.exe "$@" --screenshot "docs\\pictures\\$name.png" --exit ||
        fail "the sample host left no picture"
    python3 tools/check_picture.py "docs/pictures/$name.png" || fail "the picture is not that of a window with text"
}

step "build: the control and the sample host"
quietly "$logs/configure-pictures.log" cmake --preset win || exit 1
quietly "$logs/build-pictures.log" cmake --build --preset win --target scrivctl3 scrivpad || exit 1
mkdir -p docs/pictures
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
