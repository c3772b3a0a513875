# What takes long to make is made once and kept in WORLD_CACHE, under a name that changes with everything it depends on.

# key_of TEXT FILE...: a short name for this text and the contents of these files.
key_of() {
    local text=$1
    shift
    { id -u; echo "$text"; cat "$@"; } | sha256sum | cut -c1-16
}

# version_of PACKAGE...: the versions of installed Debian packages.
version_of() {
    dpkg-query --show --showformat '${Package} ${Version}\n' "$@"
}

# cached NAME KEY FUNCTION: sets cached_folder to a folder that FUNCTION filled, in this run or in an earlier one.
# FUNCTION gets an empty folder. Worlds that come up at the same time wait for the first of them.
cached() {
    local name=$1 key=$2 make=$3
    cached_folder="$WORLD_CACHE/$name-$key"
    (
        flock 9
        if [ ! -d "$cached_folder" ]; then
            rm -rf "$cached_folder.unfinished"
            mkdir "$cached_folder.unfinished"
            "$make" "$cached_folder.unfinished" 9>&-
            mv "$cached_folder.unfinished" "$cached_folder"
        fi
    ) 9>"$WORLD_CACHE/$name.lock"
}
