# Numbered steps with the time they took. Sourced by the commands at the project's root.

steps_begun=$SECONDS
step_number=0

# step TEXT: says what comes next, and how long everything took so far.
step()
{
    step_number=$((step_number + 1))
    printf '[%d] %3d s  %s\n' "$step_number" "$((SECONDS - steps_begun))" "$*"
}

fail()
{
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# quietly LOG COMMAND...: the output goes to the log file and is shown only when the command fails.
quietly()
{
    local log=$1 status=0
    shift
    mkdir -p "${log%/*}"
    "$@" >"$log" 2>&1 </dev/null || status=$?
    [ "$status" = 0 ] && return 0
    tail -n "${STEP_LOG_LINES:-60}" "$log" >&2
    printf 'failed with status %d: %s\nthe whole output: %s\n' "$status" "$*" "$log" >&2
    return "$status"
}
