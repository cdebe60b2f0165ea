#!/bin/bash
# in-lane.sh COMMAND...: runs a command in a lane that is free: a screen, a Wine and a folder of programs for itself.
#
# Under tools/with-wine.sh --lanes; anywhere else the command is run as it is. The control's log stands beside the
# program that runs it, so a lane has a folder of links to the built programs, and arguments that name them are turned.
set -u
[ -n "${SCRIV_LANES-}" ] && [ -z "${SCRIV_LANE-}" ] || exec "$@"

programs=$(cd "$(dirname "$0")/.." && pwd)/build/win/bin
while :; do
    for SCRIV_LANE in "$SCRIV_LANES"/*/; do
        exec 7>"$SCRIV_LANE/taken"
        flock -n 7 && break 2
    done
    sleep 0.1
done
export SCRIV_LANE
. "$SCRIV_LANE/environment"

own=${SCRIV_LANE}bin
mkdir -p "$own"
ln -sf "$programs"/* "$own/" 2>/dev/null
[ "$PWD" = "$programs" ] && cd "$own"
# The lane is taken as long as this script lives: what Wine leaves running must not hold it.
"${@/#"$programs"\//$own/}" 7>&-
