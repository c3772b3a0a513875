"""Site Health of a test site: runs the plugin's tests as WordPress does, and has others answer in its place."""

import base64
import html

DOCUMENT = "/.well-known/bsvalias"

# Runs a test of the plugin with these filters, and tells what it asked for over the network.
RUN = """
    $asked  = array();
    $answer = function ( $reply, $args, $url ) use ( &$asked, $v ) {
        $asked[] = array(
            $url, $args['timeout'], $args['redirection'], $args['sslverify'],
            $args['method'], $args['headers'], json_decode( $args['body'] ?? 'null' ),
        );
        return $v['failure'] ? new WP_Error( 'http_request_failed', $v['failure'] ) : $reply;
    };
    $structure = function () use ( $v ) { return $v['structure']; };
    $home      = function ( $url ) use ( $v ) { return set_url_scheme( $url, $v['scheme'] ); };
    add_filter( 'pre_http_request', $answer, 10, 3 );
    add_filter( 'pre_option_permalink_structure', $structure );
    add_filter( 'home_url', $home );
    $result = call_user_func( 'brasslet_health_' . $v['test'] );
    remove_filter( 'pre_http_request', $answer );
    remove_filter( 'pre_option_permalink_structure', $structure );
    remove_filter( 'home_url', $home );
    return array( 'result' => $result, 'asked' => $asked );
"""


def run(site, test, structure="/%postname%/", failure="", scheme="https"):
    ran = site.php(RUN, {"test": test, "structure": structure, "failure": failure, "scheme": scheme})
    return ran["result"], ran["asked"]


def addresses(asked):
    return [address for address, *_ in asked]


def look(site, path="/wp-json/brasslet/v1/health", host=None):
    """The answer to Site Health's own request, under another host of the site if one is named."""
    reply = site.request("GET", path, headers={**site.login_headers(), "Host": host or site.host})
    assert reply.status_code == 200, reply.text
    return reply.json()


def shown(result):
    """Status, label and text, as the page shows them."""
    description = result["description"]
    assert description.startswith("<p>") and description.endswith("</p>")
    return result["status"], result["label"], html.unescape(description[3:-4])


def answer(site, path, reply, status=200):
    """Has something in front of WordPress answer one path."""
    site.hook(f"""
        if ( '{path}' === ( $_SERVER['REQUEST_URI'] ?? '' ) ) {{
            http_response_code( {status} );
            header( 'Content-Type: application/json' );
            exit( base64_decode( '{base64.b64encode(reply.encode()).decode()}' ) );
        }}
    """)


def own_document(site):
    return site.request("GET", DOCUMENT).json()


def url(site, path):
    return f"https://{site.host}{path}"
