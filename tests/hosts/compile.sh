#!/bin/bash
# compile.sh csharp|delphi|python FILE FOLDER: declarations that no host here runs with are compiled, and what can tell
# the sizes of their records is asked for them. What is made goes to FOLDER.
set -eu
language=$1 file=$2 folder=$3
here=$(dirname "$0")
mkdir -p "$folder"
case $language in
csharp)
    mcs -unsafe -warnaserror -warn:4 -out:"$folder/sizes.exe" "$here/Sizes.cs" "$file"
    mono "$folder/sizes.exe"
    ;;
delphi)
    # The unit itself refuses records of other sizes. (-Sew: a warning is an error.)
    fpc -Mdelphi -Sew -FE"$folder" "$file"
    ;;
python) PYTHONPYCACHEPREFIX=$folder python3 -W error -m py_compile "$file" ;;
esac
