#!/bin/bash
# made_twice.sh FOLDER: makes the packages in FOLDER, and once more to see that the second time gives the same bytes.
set -eu
package=$(cd "$(dirname "$0")/../.." && pwd)/tools/package.sh
rm -rf "$1"
"$package" --built "$1"
sleep 1.1  # a time of day in a zip would differ
"$package" --built "$1/again" >/dev/null
count=0
for file in "$1"/scrivctl3*; do
    cmp "$file" "$1/again/${file##*/}"
    count=$((count + 1))
done
[ "$count" = 4 ] || { echo "$count packages instead of 4"; exit 1; }
