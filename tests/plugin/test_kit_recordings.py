"""The real WordPress answers what the site of the Windows kit plays."""

from kit_recordings import RECORDINGS, recorded


def test_the_recordings_of_the_windows_kit_are_what_wordpress_answers(site):
    here = {path: text.replace(site.host, "brasslet.test") for path, text in recorded(site)}
    kept = {path.relative_to(RECORDINGS).as_posix(): path.read_text(encoding="utf-8") for path in RECORDINGS.rglob("*.http")}
    assert here == kept
