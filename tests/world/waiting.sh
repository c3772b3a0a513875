# Starting services and waiting until they answer.

# start NAME COMMAND...: runs a service in the background, with its output in logs/NAME.log.
declare -A service_process
start() {
    local name=$1
    shift
    setsid "$@" </dev/null >"$WORLD_DIR/logs/$name.log" 2>&1 &
    service_process[$name]=$!
}

# wait_for NAME COMMAND...: returns once the command succeeds; ends the world when the service dies or stays silent.
wait_for() {
    local name=$1 limit=$((SECONDS + 60))
    shift
    until "$@" >/dev/null 2>&1; do
        if ! kill -0 "${service_process[$name]}" 2>/dev/null || [ "$SECONDS" -ge "$limit" ]; then
            echo "The test world's $name does not answer." >&2
            exit 70
        fi
        sleep 0.02
    done
}

# answers PORT: whether something accepts connections on this port of 127.0.0.1.
answers() {
    (exec 3<>"/dev/tcp/127.0.0.1/$1") 2>/dev/null
}
