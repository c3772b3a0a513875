"""WordPress' own pages, as a logged-in user of a test site gets them."""

import html
import re

import requests

NOTICE = re.compile(r'<div class="notice notice-warning"><p><strong>Brasslet: (.*?)</strong></p>(.*?)</div>', re.S)
LINK = re.compile(r'<a href="([^"]*)">([^<]*)</a>')


class Admin:
    """A user who has logged in with name and password, as in a browser. `start` names the site by another address."""

    def __init__(self, site, user, start=""):
        self.start = start or f"https://{site.address}"
        self.http = requests.Session()
        self.http.verify = site.http.verify
        self.open("/wp-login.php")
        form = {"log": user.login, "pwd": user.account_password, "testcookie": "1"}
        entered = self.http.post(self.start + "/wp-login.php", form, allow_redirects=False, timeout=30)
        assert entered.status_code == 302, entered.text

    def open(self, path):
        """The page at the end of all redirects."""
        reply = self.http.get(self.start + path, timeout=60)
        assert reply.status_code == 200, reply.text
        return reply.text

    def plugins(self):
        return self.open("/wp-admin/plugins.php")

    def plugins_of_network(self):
        return self.open("/wp-admin/network/plugins.php")

    def nonce(self):
        """What a request of a WordPress page to its own REST routes carries beside the cookies."""
        return self.open("/wp-admin/admin-ajax.php?action=rest-nonce")

    def look(self):
        """The answer to Site Health's own request, as its page sends it."""
        reply = self.http.get(self.start + "/wp-json/brasslet/v1/health", headers={"X-WP-Nonce": self.nonce()}, timeout=30)
        assert reply.status_code == 200, reply.text
        return reply.json()


def notices(page):
    """The plugin's notices: each a list of its first line and of the text and the links of its paragraphs."""
    return [[title, *map(paragraph, re.findall(r"<p>(.*?)</p>", rest, re.S))] for title, rest in NOTICE.findall(page)]


def paragraph(markup):
    links = [(html.unescape(address), html.unescape(text)) for address, text in LINK.findall(markup)]
    text = LINK.sub("", markup)
    assert "<" not in text
    return html.unescape(text).strip(), links
