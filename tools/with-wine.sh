#!/bin/bash
# with-wine.sh [--display | --lanes N] COMMAND...: gives a command a Wine of the project's own and a screen.
#
# One virtual screen, one window manager (without one every dialog costs two seconds) and one Wine server serve all
# that the command starts. Nothing of it is left behind. With --display the screen is the one of DISPLAY. With --lanes
# there are N such sets, so that N programs can have a screen, a focus and a clipboard for themselves at the same time:
# tools/in-lane.sh gives a program one of them.
# SCRIV_WINE_TIMEOUT is the number of seconds after which the command is ended with status 124; 0 is no limit.
set -u
root=$(cd "$(dirname "$0")/.." && pwd)
own_screen=yes
lanes=1
case "${1-}" in
--display) own_screen=no; shift ;;
--lanes) lanes=${2-}; shift 2 ;;
esac
[ $# -gt 0 ] && [ "$lanes" -gt 0 ] || { echo "usage: ${0##*/} [--display | --lanes N] COMMAND..." >&2; exit 2; }
[ -n "${SCRIV_INSIDE_WINE-}" ] && exec "$@"

first_prefix=$root/build/wineprefix
export WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'
export LC_ALL=ru_RU.UTF-8 LANG=ru_RU.UTF-8
export SCRIV_INSIDE_WINE=1
mkdir -p "$root/build"
# Two programs in one prefix take each other's focus and clipboard.
exec 9>"$root/build/wineprefix.lock"
flock -n 9 || { echo "${0##*/}: waiting for another run to end" >&2; flock 9; }

scratch=$(mktemp -d)
children=()

clean_up()
{
    trap '' INT TERM HUP
    [ -n "${command_pid-}" ] && kill "$command_pid" 2>/dev/null && wait "$command_pid" 2>/dev/null
    local i
    for ((i = 0; i < lanes; i++)); do
        WINEPREFIX=$(prefix_of "$i") stop_server
    done
    for ((i = ${#children[@]} - 1; i >= 0; i--)); do
        kill "${children[i]}" 2>/dev/null
        wait "${children[i]}" 2>/dev/null
    done
    rm -rf "$scratch"
}

prefix_of()
{
    echo "$first_prefix${1#0}"
}

stop_server()
{
    [ -d "$WINEPREFIX" ] || return 0
    timeout 20 wineserver -k 9>&- >/dev/null 2>&1
    timeout 20 wineserver -w 9>&- >/dev/null 2>&1
}

# wait_until SECONDS COMMAND...: asks ten times a second.
wait_until()
{
    local tries=$(($1 * 10))
    shift
    until "$@"; do
        tries=$((tries - 1))
        [ "$tries" -gt 0 ] || return 1
        sleep 0.1
    done
}

fail()
{
    echo "${0##*/}: $*" >&2
    exit 1
}

# start_screen FOLDER: its files lie there.
start_screen()
{
    # The server picks a free number itself and tells it.
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$1/display" 9>&- >"$1/xvfb" 2>&1 </dev/null &
    children+=($!)
    wait_until 20 grep -sq . "$1/display" || { cat "$1/xvfb" >&2; fail "the virtual screen does not start"; }
    DISPLAY=:$(cat "$1/display")
    export DISPLAY
    unset XAUTHORITY WAYLAND_DISPLAY
    openbox --sm-disable --startup "touch $1/managed" 9>&- >"$1/openbox" 2>&1 </dev/null &
    children+=($!)
    wait_until 20 test -e "$1/managed" || { cat "$1/openbox" >&2; fail "the window manager does not start"; }
}

# Made once; made again when its settings or Wine itself have changed.
make_prefix()
{
    local stamp
    stamp=$(wine --version 2>/dev/null; cat "$root/tools/test.reg")
    [ "$(cat "$WINEPREFIX/made-of" 2>/dev/null)" = "$stamp" ] && return 0
    rm -rf "$WINEPREFIX"
    timeout 300 wine wineboot -i 9>&- >"$scratch/wineboot" 2>&1 </dev/null ||
        { cat "$scratch/wineboot" >&2; fail "Wine's folder cannot be made"; }
    cp "$root/tools/test.reg" "$WINEPREFIX/drive_c/"
    timeout 60 wine regedit /S 'C:\test.reg' 9>&- >"$scratch/regedit" 2>&1 </dev/null ||
        { cat "$scratch/regedit" >&2; fail "Wine's settings cannot be written"; }
    timeout 60 wineserver -w 9>&-
    printf '%s\n' "$stamp" >"$WINEPREFIX/made-of"
}

# The prefix of a further lane is that of the first: its files are links, what Wine writes is its own.
copy_prefix()
{
    [ "$(cat "$WINEPREFIX/made-of" 2>/dev/null)" = "$(cat "$first_prefix/made-of")" ] && return 0
    rm -rf "$WINEPREFIX"
    cp -al "$first_prefix" "$WINEPREFIX" || fail "Wine's folder cannot be copied"
    rm "$WINEPREFIX"/*.reg
    cp "$first_prefix"/*.reg "$WINEPREFIX/"
}

# start_lane NUMBER: from here on WINEPREFIX and DISPLAY are those of this lane, and its folder tells them to others.
start_lane()
{
    local folder=$scratch/$1
    mkdir "$folder"
    export WINEPREFIX
    WINEPREFIX=$(prefix_of "$1")
    [ "$own_screen" = yes ] && start_screen "$folder"
    stop_server  # one that was left without a screen would go on to make windows without one
    if [ "$1" = 0 ]; then make_prefix; else copy_prefix; fi
    # The service processes are started here with their output thrown away: started by the first program of the command
    # they would keep its pipe open, and its reader would wait for ever.
    timeout 20 wineserver -p 9>&- >/dev/null 2>&1 </dev/null
    timeout 60 wine wineboot 9>&- >/dev/null 2>&1 </dev/null
    printf 'export WINEPREFIX=%q DISPLAY=%q\n' "$WINEPREFIX" "${DISPLAY-}" >"$folder/environment"
}

trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP
for ((lane = 0; lane < lanes; lane++)); do
    start_lane "$lane"
done
[ "$lanes" -gt 1 ] && export SCRIV_LANES=$scratch

# In the background, so that a signal is answered at once.
timeout -k 10 "${SCRIV_WINE_TIMEOUT:-3600}" "$@" 9>&- </dev/null &
command_pid=$!
wait "$command_pid"
status=$?
command_pid=
exit "$status"
