# For tests of a package. The test sets TEST, its name, and SCRATCH, its folder.

# Runs a command and prints the text. Ends the test if the command fails: expect TEXT COMMAND...
expect() {
    local text="$1"
    shift
    "$@" >"$SCRATCH/output" 2>&1 || { cat "$SCRATCH/output" >&2; echo "$TEST: FAILED: $text" >&2; exit 1; }
    echo "$TEST: $text"
}

# True as soon as the command succeeds. Gives up after two minutes.
waitFor() {
    for _ in $(seq 600); do
        ! "$@" >/dev/null 2>&1 || return 0
        sleep 0.2
    done
    return 1
}
