# How libraries for Windows are built from Debian's source packages, with Debian's patches: sourced by the scripts here that
# do it, from the project's folder.

hardening="-fstack-protector-strong -D_FORTIFY_SOURCE=2"
target=x86_64-w64-mingw32
keyring=/usr/share/keyrings/debian-archive-keyring.gpg

# The same bytes, whatever the caller uses for builds of his own: ccache, say, changes the paths that __FILE__ gives.
unset CFLAGS CPPFLAGS CXXFLAGS LDFLAGS CMAKE_C_COMPILER_LAUNCHER CMAKE_GENERATOR

candidate() { apt-cache policy "$1" | awk '/Candidate:/ {print $2}'; }

recipe_of() { cat "$1" scripts/from_source.sh | sha256sum | cut -c1-16; }

# is_made PREFIX STAMP: whether the folder holds what would be built now.
is_made() { [ -f "$1/asked-for" ] && [ "$(cat "$1/asked-for")" = "$2" ]; }

# From now on there is a folder to work in, $work, for the life of the script, and in it one for what is made, $new.
make_work_folder() {
    mkdir -p .deps
    work=$PWD/$(mktemp -d .deps/work.XXXXXX)
    trap 'rm -rf "$work"' EXIT
    new=$work/prefix
    mkdir "$new"
}

# A fresh Debian lists no source packages: take the archives it is set up with, as sources, for this one use.
list_sources() {
    apt_options=(-o "Dir::Etc::sourcelist=$work/apt/sources.list" -o "Dir::Etc::sourceparts=-"
        -o "Dir::State::lists=$work/apt/lists" -o "APT::Sandbox::User=root" -q)
    mkdir -p "$work/apt/lists/partial"
    apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT) $(ORIGIN)' 'Created-By: Packages' | sort -u |
        awk -v keyring="$keyring" '$4 == "Debian" {print "deb-src [signed-by=" keyring "] " $1 " " $2 " " $3}' \
            >"$work/apt/sources.list"
    apt-get "${apt_options[@]}" update >/dev/null
}

# Unpacks the newest version of a source package of which the archives have every file, Debian's patches applied, and
# notes which one it is. Archives can be without a part of what their signed lists name.
fetch_source() {
    local version versions
    versions=$(apt-cache "${apt_options[@]}" showsrc --only-source "$1" | awk '/^Version:/ {print $2}' | sort -Vru)
    for version in $versions; do
        if (cd "$work" && apt-get "${apt_options[@]}" source "$1=$version" >"$work/fetching" 2>&1); then
            echo "$1 $version" >>"$work/made-from"
            return
        fi
        echo "$1 $version is not to be had whole, the next older version is taken." >&2
    done
    tail -30 "$work/fetching" >&2
    return 1
}

# What a step printed, when it failed.
quietly() {
    local log
    log=$(mktemp "$work/log.XXXXXX")
    "$@" >"$log" 2>&1 || { tail -30 "$log" >&2; return 1; }
}

# Files in which a library's makers say what its licence is, for the notices of a release.
keep_licence() {
    mkdir -p "$new/share/licenses/$1"
    cp "${@:2}" "$new/share/licenses/$1/"
}
