# site_folder HOST[/PATH]: the folder, in the world, of the WordPress that answers to this host.
site_folder() {
    case ${1%%/*} in
        brasslet.test | strip.brasslet.test | redirect.brasslet.test) ;&
        proxied.brasslet.test | unaware.brasslet.test | oneworker.brasslet.test | xn--bcher-kva.example) ;&
        inward.brasslet.test | silent.brasslet.test) echo "$WORLD_DIR/sites/stable" ;;
        newer.brasslet.test) echo "$WORLD_DIR/sites/newer" ;;
        net.brasslet.test | *.net.brasslet.test) echo "$WORLD_DIR/sites/domains" ;;
        folders.brasslet.test) echo "$WORLD_DIR/sites/folders" ;;
        below.brasslet.test | handed.brasslet.test) echo "$WORLD_DIR/sites/below" ;;
        apart.brasslet.test) echo "$WORLD_DIR/sites/apart" ;;
        *) echo "There is no site $1." >&2; return 2 ;;
    esac
}
