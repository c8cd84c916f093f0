# Kills and fails a whole errand at every call that touches the store, the photos, the log or a wire, on both kinds of
# store: ./dev prove [STEP]. STEP 20 takes every twentieth call.

prove() {
    buildPreset dev prove
    local step="${1:-1}" store status=0
    local -a running=()
    for store in file server; do
        proveStore "$store" "$step" &
        running+=($!)
    done
    wait "${running[0]}" || status=1
    wait "${running[1]}" || status=1
    awk '{ points += $1; faults += $3 } END { print points " points, " faults " faults" }' \
        <(tail -qn1 build/prove-file.log build/prove-server.log)
    return "$status"
}

proveStore() { tools/prove/prove.sh build/dev/tools/prove/prove "$1" "$2" | tee "build/prove-$1.log"; }
