# site_folder HOST: the folder, in the world, of the site that answers to this host.
site_folder() {
    case $1 in
        brasslet.test | strip.brasslet.test | redirect.brasslet.test) echo "$WORLD_DIR/sites/stable" ;;
        newer.brasslet.test) echo "$WORLD_DIR/sites/newer" ;;
        *) echo "There is no site $1." >&2; return 2 ;;
    esac
}
