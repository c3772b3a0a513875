"""The requests in docs/site-protocol.md get the replies in docs/site-protocol.md, from the first to the last."""

import base64
import re
from dataclasses import dataclass, field

from conftest import PROJECT, SITES

DOCUMENT = PROJECT / "docs/site-protocol.md"
LOGIN, PASSWORD = "owner", "abcdEFGHijklMNOPqrstUVWX"


@dataclass
class Message:
    start: list  # the words of the first line
    headers: dict = field(default_factory=dict)
    body: str = ""


def message(block):
    head, _, body = block.partition("\n\n")
    start, *headers = head.splitlines()
    return Message(start.split(" ", 2), dict(line.split(": ", 1) for line in headers), body.rstrip("\n"))


def as_documented():
    """Pairs of a request and its reply."""
    text = DOCUMENT.read_text(encoding="utf-8")
    messages = [message(block) for block in re.findall(r"^```http\n(.*?)^```$", text, re.M | re.S)]
    return list(zip(messages[::2], messages[1::2], strict=True))


def basic(login, password):
    return base64.b64encode(f"{login}:{password}".encode()).decode()


def on(site, text):
    """The text with this site's host and login in the place of those on the page."""
    for documented, real in ((SITES["stable"], site.host), (basic(LOGIN, PASSWORD), basic(site.admin.login, site.admin.password)),
                             (f'"{PASSWORD}"', f'"{site.admin.password}"'), (f'"{LOGIN}"', f'"{site.admin.login}"')):
        text = text.replace(documented, real)
    return text


def test_every_documented_request_gets_its_documented_reply(site):
    for request, reply in as_documented():
        method, path, _ = request.start
        headers = {name: on(site, value) for name, value in request.headers.items()}
        seen = site.request(method, path, headers=headers, data=on(site, request.body).encode())
        assert (f"HTTP/1.1 {seen.status_code} {seen.reason}", seen.text) == (" ".join(reply.start), on(site, reply.body)), path
        assert {name: seen.headers.get(name) for name in reply.headers} == reply.headers, path


def test_every_route_is_documented(plugin_file):
    routes = re.findall(r"BRASSLET_NAMESPACE,\s*'([/\w-]+)", plugin_file.read_text(encoding="utf-8"))
    assert len(routes) > 3
    paths = [request.start[1] for request, _ in as_documented()]
    assert "/.well-known/bsvalias" in paths
    assert [route for route in routes if not any(path.startswith("/wp-json/brasslet/v1" + route) for path in paths)] == []
