#!/bin/bash
# msvc_host.sh CLANG LLD_LINK LIB BIN EMULATOR...: a program linked with scrivctl3.lib as the Microsoft linker would finds the
# DLL and its exports.
set -eu
clang=$1 lld_link=$2 lib=$3 bin=$4
shift 4
here=$(dirname "$0")
"$clang" --target=x86_64-pc-windows-msvc -Wall -Werror -c "$here/msvc_host.c" -o "$bin/msvc_host.obj"
"$lld_link" /nologo /nodefaultlib /entry:start /subsystem:console /out:"$bin/msvc_host.exe" "$bin/msvc_host.obj" "$lib"
status=0
timeout 60 "$@" "$bin/msvc_host.exe" </dev/null || status=$?
[ "$status" = 23 ] || { echo "the program ended with status $status instead of 23"; exit 1; }
