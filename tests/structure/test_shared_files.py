"""docs/files.md tells of every path in src/wallet_bridge/shared_files.cpp, which is where all of them are spelt."""
import re

from rooms import ROOT, SRC, sources

SPELT = SRC / "wallet_bridge/shared_files.cpp"
PAGE = (ROOT / "docs/files.md").read_text(encoding="utf-8")


def expressions() -> dict:
    """What each function returns."""
    text = SPELT.read_text(encoding="utf-8")
    return dict(re.findall(r"^std::string (\w+)\([^)]*\)\n\{\n    return ([^;]+);\n\}$", text, re.M))


def path_of(expression: str) -> str:
    """The path in the data directory; what an argument gives is "*"."""
    path = ""
    for part in re.split(r" \+ ", expression.split(" : ")[-1]):
        function = re.fullmatch(r"(\w+)\(\)", part)
        if part.startswith('"'):
            path += part.strip('"')
        elif function:
            path += "" if function[1] == "data_directory" else path_of(expressions()[function[1]])
        else:
            path += "*"
    return path.removeprefix("/")


def test_every_path_has_its_place_on_the_page():
    headings = {re.sub(r"\d{13}|c__tools_brasslet", "*", path) for path in re.findall(r"^## `(.+)`$", PAGE, re.M)}
    paths = {path_of(expression) for name, expression in expressions().items()}
    assert {path for path in paths if not path.startswith("*")} == headings


def test_every_ending_that_a_path_is_given_is_told_of():
    endings = [path_of(expression) for expression in expressions().values()]
    assert [ending for ending in endings if ending.startswith("*") and ending.strip("*") not in PAGE] == []


def test_no_other_source_spells_a_path_in_the_data_directory():
    wrong = [
        path.relative_to(SRC).as_posix()
        for path in sources()
        if path != SPELT and re.search(r"(data_directory|settings_folder)\(\) \+|\"/?(payname|connect|binds|wallets|ord_snap)/", path.read_text(encoding="utf-8"))
    ]
    assert wrong == []
