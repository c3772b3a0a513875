# A Windows desktop: Wine on a display of its own, with a prefix whose user has a name outside ASCII and with a space.
# The prefix is made once; a run keeps what it changes to itself.

prepare_desktop() {
    export DISPLAY=:77 USER='Zoë 用户' LC_ALL=C.UTF-8
    export WINEPREFIX="$WORLD_DIR/desktop/prefix"
    export PATH="$scripts/bin:$PATH"
    export WINEDEBUG=-all WINEDLLOVERRIDES="winedbg.exe=d;winemenubuilder.exe=d;mscoree=d;mshtml=d"
    mkdir -p "$WINEPREFIX" "$WORLD_DIR/desktop"/{template,changes,work,home,sockets/x11,sockets/wine,keymaps}

    # Display and Wine keep their sockets, and the display its keymap, where every run on the machine would share them.
    mkdir -p /tmp/.X11-unix
    mkdir -p -m 0700 "/tmp/.wine-$(id -u)"
    mount --bind "$WORLD_DIR/desktop/sockets/x11" /tmp/.X11-unix
    mount --bind "$WORLD_DIR/desktop/sockets/wine" "/tmp/.wine-$(id -u)"
    mount --bind "$WORLD_DIR/desktop/keymaps" /var/lib/xkb

    prepare_wine
    start display Xvfb "$DISPLAY" -nolock -nolisten tcp -screen 0 2400x2000x24
    wait_for display xdpyinfo

    cached desktop "$(key_of "$(wine_version) $(version_of fonts-lato fonts-sil-charis)" "$scripts"/{desktop,wine}.*)" make_prefix
    mount --bind "$cached_folder" "$WORLD_DIR/desktop/template"
    # Relative names, because a folder's name could hold what separates options.
    (cd "$WORLD_DIR/desktop" && mount -t overlay -o lowerdir=template,upperdir=changes,workdir=work world prefix)
    share_with_wine "$WORLD_DIR"
    sed -i "s/^\"LogPixels\"=.*/\"LogPixels\"=dword:$(printf %08x "${WORLD_DPI:-96}")/" "$WINEPREFIX/user.reg"
}

make_prefix() {
    local -x WINEPREFIX="$1"
    # Wine links the user's documents and the like to the home folder, which is the run's own.
    local -x HOME="$WORLD_DIR/desktop/home"
    {
        wine wineboot --init
        # The font that a caption's buttons are drawn with; Debian's Wine looks for it here alone.
        cp "$WORLD_WINE_ROOT/usr/share/wine/fonts/marlett.ttf" "$WINEPREFIX/drive_c/windows/Fonts"
        wine regedit /S "$scripts/desktop.reg"
        wineserver --wait
        # Folders of the prefix itself take their place: it shall mean the same wherever the project lies.
        find "$WINEPREFIX/drive_c/users" -type l -exec rm {} \; -exec mkdir {} \;
    } </dev/null >"$WORLD_DIR/logs/desktop_template.log" 2>&1
}

# The server stays until the world ends, so that no program pays for its start or for Wine's own services.
#
# The desktop stays because two programs do that wait for ever. Wine 8.0's server closes a desktop which nobody but its
# own explorer uses, and takes the last user for explorer at a moment when one of explorer's threads ends
# (remove_desktop_user in server/winstation.c). A window that is open then stays without a desktop, and no other program
# finds it any more. Two, because the server would count the one and no program under test in the same way.
start_desktop() {
    prepare_desktop
    start desktop sh -c 'wineserver --persistent && wine wineboot || exit
        sleep infinity | wine cmd &
        sleep infinity | wine cmd &
        exec wine rundll32 user32.dll,MessageBeep'
}

wait_for_desktop() {
    wait "${service_process[desktop]}"
}
