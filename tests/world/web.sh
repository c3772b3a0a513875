# The web server on port 443, HTTP/1.1, with a host for every site: nginx, or Apache with WORLD_WEB=apache. The part of
# its name says how it writes a host down.

. "$scripts/web_${WORLD_WEB:-nginx}.sh"

start_web() {
    mkdir "$WORLD_DIR/web" "$WORLD_DIR/web/hosts" "$WORLD_DIR/makers_page"
    configure_web
    # Credentials travel in the Authorization header; some hosts lose it on the way to PHP, some rename the custom one.
    wordpress_host "brasslet.test pay.brasslet.test www.brasslet.test" stable
    wordpress_host strip.brasslet.test stable lost
    wordpress_host redirect.brasslet.test stable renamed
    [ -n "${WORLD_WORDPRESS-}" ] || wordpress_host newer.brasslet.test newer
    wordpress_host "net.brasslet.test *.net.brasslet.test" domains
    wordpress_host folders.brasslet.test folders
    wordpress_host below.brasslet.test below
    wordpress_host handed.brasslet.test below handed
    wordpress_host apart.brasslet.test apart
    wordpress_host proxied.brasslet.test stable proxied
    wordpress_host unaware.brasslet.test stable unaware
    wordpress_host "inward.brasslet.test silent.brasslet.test" stable resolved
    wordpress_host oneworker.brasslet.test stable oneworker
    wordpress_host xn--bcher-kva.example stable
    redirect_host www.newer.brasslet.test newer.brasslet.test
    redirect_host moved.brasslet.test brasslet.test
    file_host corvane.example "$WORLD_DIR/makers_page"
    start web "${web_server[@]}"
}

# Each part has three functions:
#
# wordpress_host "HOST..." SITE [HABIT]: these hosts answer with the WordPress of SITE, which takes the first of them for
# its own name, or that of its network's site. A server's HABIT:
#   lost      it loses the Authorization header on the way to PHP
#   renamed   that too, and X-Brasslet-Auth arrives under another name
#   handed    it hands the discovery document at its root to the WordPress in a folder
#   proxied   it speaks http behind a proxy that ends TLS and says so in X-Forwarded-Proto
#   unaware   the same, with a proxy that says nothing
#   resolved  WordPress takes the host that was asked for its own name
#   oneworker has a single process for PHP
#
# redirect_host HOST OTHER: HOST sends every request on to the same path of OTHER, for good (301).
#
# file_host HOST FOLDER: HOST answers with the files of FOLDER, which are pages whatever their names.

# root_of SITE: the folder that the server looks for files in.
root_of() {
    case $1 in
        below | apart) echo "$WORLD_DIR/sites/$1/web" ;;
        *) echo "$WORLD_DIR/sites/$1/core" ;;
    esac
}

wait_for_web() {
    wait_for web answers 443
}
