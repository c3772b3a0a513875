"""The requests in docs/site-protocol.md get the replies in docs/site-protocol.md, from the first to the last."""

import base64
import contextlib
import re
from dataclasses import dataclass, field

from broadcaster import listening
from conftest import PROJECT, SITES
from payments import switch_on

DOCUMENT = PROJECT / "docs/site-protocol.md"
PAYMENTS = "Payments handed over"
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
    """Titles of the page's sections, each with its pairs of a request and its reply."""
    for section in DOCUMENT.read_text(encoding="utf-8").split("\n## "):
        messages = [message(block) for block in re.findall(r"^```http\n(.*?)^```$", section, re.M | re.S)]
        yield section.partition("\n")[0], list(zip(messages[::2], messages[1::2], strict=True))


def basic(login, password):
    return base64.b64encode(f"{login}:{password}".encode()).decode()


def on(site, text):
    """The text with this site's host and login in the place of those on the page."""
    for documented, real in ((SITES["stable"], site.host), (basic(LOGIN, PASSWORD), basic(site.admin.login, site.admin.password)),
                             (f'"{PASSWORD}"', f'"{site.admin.password}"'), (f'"{LOGIN}"', f'"{site.admin.login}"')):
        text = text.replace(documented, real)
    return text


def reference_in(body):
    found = re.search(r'"reference":"([^"]+)"', body)
    return found[1] if found else ""


@contextlib.contextmanager
def switched_on(site):
    """The state of the site that the section about payments begins with."""
    with listening():
        switch_on(site)
        yield
        switch_on(site, on=False)


def compare(site, pairs):
    reference = {}
    for request, reply in pairs:
        method, path, _ = request.start
        headers = {name: on(site, value) for name, value in request.headers.items()}
        body = on(site, request.body)
        for documented, real in reference.items():
            body = body.replace(documented, real)
        seen = site.request(method, path, headers=headers, data=body.encode())
        expected = on(site, reply.body)
        if reference_in(expected):
            reference[reference_in(expected)] = reference_in(seen.text)
            expected = expected.replace(reference_in(expected), reference_in(seen.text))
        assert (f"HTTP/1.1 {seen.status_code} {seen.reason}", seen.text) == (" ".join(reply.start), expected), path
        assert {name: seen.headers.get(name) for name in reply.headers} == reply.headers, path


def test_every_documented_request_gets_its_documented_reply(site):
    for title, pairs in as_documented():
        with switched_on(site) if title == PAYMENTS else contextlib.nullcontext():
            compare(site, pairs)


def test_every_route_is_documented(plugin_file):
    routes = re.findall(r"BRASSLET_NAMESPACE,\s*'([/\w-]+)", plugin_file.read_text(encoding="utf-8"))
    assert len(routes) > 3
    paths = [request.start[1] for _, pairs in as_documented() for request, _ in pairs]
    assert "/.well-known/bsvalias" in paths
    assert [route for route in routes if not any(path.startswith("/wp-json/brasslet/v1" + route) for path in paths)] == []


def test_every_refusal_of_a_payment_is_documented():
    names = ("destination", "delivery", "claim", "broadcast", "payment_size")
    parts = [PROJECT / "src/plugin/php" / f"{name}.php" for name in names]
    text = "".join(part.read_text(encoding="utf-8") for part in parts)
    codes = set(re.findall(r"brasslet_(?:error|unsent)\(\s*'(\w+)'", text)) | set(re.findall(r"'code' +=> '(\w+)'", text))
    assert {"brasslet_expired", "brasslet_fee", "brasslet_too_long"} <= codes
    page = DOCUMENT.read_text(encoding="utf-8")
    assert [code for code in sorted(codes) if f"`{code}`" not in page and f'"code":"{code}"' not in page] == []
