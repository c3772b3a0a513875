"""What a WordPress answers to the desktop program and to payers while a name is published and removed: the recordings that
the site of the Windows kit plays. Run in the test world it records them anew:

    tests/world/up --no-desktop -- /usr/bin/python3 tests/plugin/kit_recordings.py

Of the replies' headers the type is kept: the others tell the server, the date and what WordPress links to."""
import json
import pathlib

ROOT = pathlib.Path(__file__).resolve().parents[2]
RECORDINGS = ROOT / "tests/windows_kit/recordings"
HEADERS = ("Content-Type",)

# The wallet and the login of the kit: the first English vector of BIP39, and a password that opens nothing.
PUBKEY = "02ded4e1e697bc768d79dd3f5c95cd56f332fdcf483c2a36933ba6c81d29bcf8b4"
ADDRESS = "18pBoqRpHUYf9udsab5G9LT3vQUPxEyMFf"
LOGIN, PASSWORD = "owner", "abcdEFGHijklMNOPqrstUVWX"

STATUS = ("GET", "/wp-json/brasslet/v1/status", "")
DISCOVERY = ("GET", "/.well-known/bsvalias", "")
KEY = ("GET", "/wp-json/brasslet/v1/id/alice", "")
NAME = "/wp-json/brasslet/v1/name"


def members(**more):
    """As the program writes them: without blanks, in byte-wise order."""
    return json.dumps({**more, "login_user": LOGIN, "login_pass": PASSWORD}, sort_keys=True, separators=(",", ":"))


PUBLISH = ("POST", NAME, members(alias="alice", house="", pubkey=PUBKEY, address=ADDRESS))
REMOVE = ("DELETE", NAME, members(alias="alice"))
PAY = ("POST", "/wp-json/brasslet/v1/address/alice",
       '{"amount":1,"dt":1763000000000,"purpose":"payment","senderHandle":"payname","senderName":"payname"}')

# State of the site, name of the recording, request, and the state that it leads to; in the order of a journey.
ASKED = (
    ("bare", "status", STATUS, ""),
    ("plugin", "status", STATUS, ""),
    ("plugin", "discovery", DISCOVERY, ""),
    ("plugin", "key", KEY, ""),
    ("plugin", "payment-address", PAY, ""),
    ("plugin", "publish", PUBLISH, "published"),
    ("published", "status", STATUS, ""),
    ("published", "discovery", DISCOVERY, ""),
    ("published", "key", KEY, ""),
    ("published", "payment-address", PAY, ""),
    ("published", "publish", PUBLISH, "published"),
    ("published", "remove", REMOVE, "plugin"),
)


def reply_text(reply):
    """Status line, type, and the body, which names no other host and no time."""
    headers = "".join(f"{name}: {reply.headers[name]}\n" for name in HEADERS if name in reply.headers)
    return f"HTTP/1.1 {reply.status_code} {reply.reason}\n{headers}\n{reply.text}\n"


def ask(site, request):
    method, path, body = request
    body = body.replace(f'"{LOGIN}"', f'"{site.admin.login}"').replace(PASSWORD, site.admin.password)
    headers = {"Content-Type": "application/json"} if body else {}
    return site.request(method, path, headers=headers, data=body.encode())


def recorded(site):
    """The path and the text of every recording, from this site, which has no names. It has the plugin again at the end."""
    for state, name, request, next_state in ASKED:
        if state == "bare":
            site.php("require_once ABSPATH . 'wp-admin/includes/plugin.php'; deactivate_plugins( 'brasslet/brasslet.php' );")
        try:
            reply = reply_text(ask(site, request))
        finally:
            if state == "bare":
                site.install(site.plugin)
        then = f"then {next_state}" if next_state else ""
        yield f"{state}/{name}.http", f"{request[0]} {request[1]}\n{request[2]}\n{then}\n\n{reply}"


def main():
    from conftest import PROJECT, SITES  # in the test world only
    from wordpress import Site

    site = Site("stable", SITES["stable"], PROJECT / "build/windows/generated/brasslet.php")
    site.reset()
    for path, text in recorded(site):
        target = RECORDINGS / path
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(text, encoding="utf-8")
    site.close()


if __name__ == "__main__":
    main()
