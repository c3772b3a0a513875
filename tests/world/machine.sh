# The machine of the world: the loopback interface, a place for its files, and the names it knows.

# The sites' hosts; README.md says what each of them is. Nothing listens on the address of dead.brasslet.test.
site_hosts="brasslet.test strip.brasslet.test redirect.brasslet.test newer.brasslet.test net.brasslet.test \
two.net.brasslet.test folders.brasslet.test below.brasslet.test handed.brasslet.test apart.brasslet.test \
proxied.brasslet.test unaware.brasslet.test oneworker.brasslet.test xn--bcher-kva.example www.newer.brasslet.test \
moved.brasslet.test"

make_machine() {
    ip link set lo up
    # With loopback addresses alone, programs that ask for what the machine can reach get no name resolved.
    ip address add 198.51.100.1/32 dev lo
    # What is sent to this address comes to the machine itself, which drops it: nothing comes back, not even a refusal.
    ip route add 203.0.113.9/32 dev lo
    mount -t tmpfs -o mode=0700 world "$WORLD_DIR"
    mkdir "$WORLD_DIR/etc" "$WORLD_DIR/logs" "$WORLD_DIR/tmp" "$WORLD_DIR/tmp/"{changes,work}
    keep_tmp_private

    cat >"$WORLD_DIR/etc/hosts" <<END
127.0.0.1 localhost $(uname -n)
127.0.0.1 $site_hosts pay.brasslet.test www.brasslet.test corvane.example
127.0.0.9 dead.brasslet.test inward.brasslet.test
203.0.113.9 silent.brasslet.test
127.0.0.20 arc.brasslet.test
END
    replace_file /etc/hosts "$WORLD_DIR/etc/hosts"

    printf 'nameserver 127.0.0.1\noptions timeout:2 attempts:1\n' >"$WORLD_DIR/etc/resolv.conf"
    replace_file /etc/resolv.conf "$WORLD_DIR/etc/resolv.conf"
}

# Programs leave sockets and files in /tmp: the world's see what is there, and what they change stays in the world. A
# project that lies there itself is put back as it is. An ordinary user may not cover a /tmp below which other file
# systems are mounted; there it stays shared.
keep_tmp_private() {
    local project folder
    project=$(cd "$scripts/../.." && pwd -P)
    exec {folder}<"$project"
    if cover_tmp && [[ $project == /tmp/* ]]; then
        mount --no-canonicalize --rbind "/proc/self/fd/$folder" "$project"
        cd "$project"
    fi
    exec {folder}<&-
}

cover_tmp() {
    local layers="lowerdir=/tmp,upperdir=$WORLD_DIR/tmp/changes,workdir=$WORLD_DIR/tmp/work"
    mount -t overlay -o "$layers" world /tmp 2>/dev/null
}

# replace_file FILE BY: inside the world FILE has the contents of BY; a link is followed to the file it stands for.
replace_file() {
    mount --bind "$2" "$(readlink -f "$1")"
}
