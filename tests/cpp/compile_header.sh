#!/bin/bash
# compile_header.sh gcc|clang|msvc COMPILER OPTION...: scrivctl3.hpp compiles, alone and twice in one file, with each of
# its templates used. clang has no headers of its own for Windows: SCRIV_GCC names the compiler that lends its.
#
# "msvc" is clang in the dialect, and with the calling conventions, of the Microsoft compiler.
set -eu
family=$1 compiler=$2
shift 2
here=$(cd "$(dirname "$0")" && pwd)
include=$here/../../include

options=()
if [ "$family" != gcc ]; then
    standard=$("$SCRIV_GCC" -print-file-name=include/c++)
    options=(-x c++ -isystem "$standard" -isystem "$standard/x86_64-w64-mingw32")
fi
case $family in
clang) options+=(--target=x86_64-w64-mingw32) ;;
msvc)
    options+=(--target=x86_64-pc-windows-msvc -fms-extensions -fms-compatibility -fdelayed-template-parsing
        -isystem /usr/x86_64-w64-mingw32/include -include "$here/borrowed_headers.h"
        # The borrowed headers are told that they are read by the compiler that they were written for.
        -U_MSC_VER -fgnuc-version=12.2.0 -D__MINGW32__ -D__MINGW64__ -D__STRICT_ANSI__) ;;
esac
"$compiler" "${options[@]}" "$@" -Wall -Wextra -Wpedantic -Werror -fsyntax-only -I"$include" "$here/header_alone.cpp"
