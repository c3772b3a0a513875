"""The plugin's page in WordPress, Settings, Brasslet, as the owner of a test site reads and presses it."""

import html
import re

from admin_pages import Admin

PATH = "/wp-admin/options-general.php?page=brasslet"

SAID = re.compile(r"<div id='setting-error-brasslet_said' class='notice notice-(\w+) settings-error[^']*'>(.*?)</div>", re.S)
CHECKED = re.compile(r'<div id="brasslet-checked" class="notice notice-(\w+) inline"[^>]*>(.*?)</div>', re.S)


class OwnerPage(Admin):
    def read(self, query=""):
        self.page = self.open(PATH + query)
        return self

    def post(self, fields, query=""):
        """Posts to the page as it stands, without following a redirect."""
        return self.http.post(self.start + PATH + query, fields, allow_redirects=False, timeout=120)

    def press(self, nonce, query="", **fields):
        """Posts these fields with the nonce of that name, which the page has to hold."""
        self.read(query)
        reply = self.post({f"{nonce}_nonce": self.value(f"{nonce}_nonce"), **fields}, query)
        assert reply.status_code == 200, reply.text
        self.page = reply.text
        return self

    def check(self, alias, query=""):
        return self.press("brasslet_check", query, brasslet_check=alias)

    def save(self, **fields):
        return self.press("brasslet_payments", brasslet_payments="save", **fields)

    def press_try(self):
        return self.press("brasslet_payments", brasslet_payments="try")

    # What stands on the page.

    def value(self, name):
        found = re.findall(rf'name="{name}" value="([^"]*)"', self.page)
        assert len(found) == 1, found
        return html.unescape(found[0])

    def field(self, name):
        """The tag of the field."""
        [tag] = re.findall(rf'<input [^>]*name="{name}"[^>]*>', self.page)
        return tag

    def names(self):
        """The cells of each row, as text; buttons as their accessible name."""
        body = self.page.split('id="the-list"', 1)[1].split("</tbody>", 1)[0]
        return [[cell(text) for text in re.findall(r"<t[dh][^>]*>(.*?)</t[dh]>", row, re.S)] for row in body.split("<tr")[1:]]

    def total(self):
        return int(re.search(r'<span class="displaying-num">([\d,]+) items?</span>', self.page)[1])

    def said(self):
        """What the page says about what was pressed: kind and text."""
        return [(kind, text(said)) for kind, said in SAID.findall(self.page)]

    def checked(self):
        """The result of a check: kind and lines."""
        [(kind, lines)] = CHECKED.findall(self.page)
        return kind, [text(line) for line in re.findall(r"<p[^>]*>(.*?)</p>", lines, re.S)]


def text(markup):
    return html.unescape(re.sub(r"<[^>]*>", "", markup)).strip()


def cell(markup):
    markup = re.sub(r'<button type="button" class="toggle-row">.*?</button>', "", markup, flags=re.S)
    markup = re.sub(r'<button [^>]*aria-label="([^"]*)"[^>]*>.*?</button>', r"[\1]", markup, flags=re.S)
    return re.sub(r"\s+", " ", text(markup))
