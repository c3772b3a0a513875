# The world's name server.

start_names() {
    export WORLD_ZONE="$WORLD_DIR/zone"
    cp "$scripts/zone" "$WORLD_ZONE"
    start names /usr/bin/python3 "$scripts/name_server.py" "$WORLD_ZONE"
}

wait_for_names() {
    wait_for names answers 53
}
