# Packages of other Debian releases, from the mirror that this machine's apt already uses, with their signatures
# checked. Nothing is installed.

# open_release SUITE FOLDER: from now on apt-get and apt-cache see that release alone, and no package as installed. What
# they fetch lies in FOLDER.
open_release() {
    local suite=$1 apt=$2 release mirror
    release=$(. /etc/os-release && echo "$VERSION_CODENAME")
    mirror=$(apt-get indextargets --format '$(RELEASE) $(COMPONENT) $(REPO_URI)' 'Created-By: Packages' |
        awk -v release="$release" '$1 == release && $2 == "main" { print $3; exit }')
    if [ -z "$mirror" ]; then
        echo "No source of apt carries $release main, so there is no mirror to take packages of $suite from." >&2
        return 1
    fi

    rm -rf "$apt"
    mkdir -p "$apt/state/lists/partial" "$apt/cache/archives/partial"
    echo "deb [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] $mirror $suite main" >"$apt/sources.list"
    touch "$apt/status"
    cat >"$apt/apt.conf" <<END
Dir::State "$apt/state";
Dir::State::status "$apt/status";
Dir::Cache "$apt/cache";
Dir::Etc::sourcelist "$apt/sources.list";
Dir::Etc::sourceparts "/dev/null";
APT::Sandbox::User "";
END
    # An archived release is signed no more: its index is as old as it says.
    if [ "$suite" = bullseye ]; then echo 'Acquire::Check-Valid-Until "false";' >>"$apt/apt.conf"; fi
    export APT_CONFIG="$apt/apt.conf"
    apt-get --quiet update
}
