"""Lists every sentence that the program or its plugin can show, and the test that saw it:

    python3 tests/structure/sentences.py
"""
import ast
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]

CPP_TEXT = r'(?:u8|L)?"(?:[^"\\\n]|\\.)*"'
CPP_TEXTS = re.compile(rf"{CPP_TEXT}(?:\s+{CPP_TEXT})*")
CPP_RAW = re.compile(r'L?R"\((.*?)\)"', re.S)
PHP_TEXT = re.compile(r"'((?:[^'\\]|\\.)*)'")
COMMENT = re.compile(r"^\s*//.*$|(?<=[;{,)\s])//[^\"\n]*$", re.M)
CPP_TEST = re.compile(r"^TEST(?:_[FP])?\(\w+,\s*(\w+)\)", re.M)

# A text that is meant to be read: it begins as a sentence does, has more than a word, and ends as one.
SENTENCE = re.compile(r"^(?:error: \w|[A-Z]).* .*[.?+-]$", re.S)


def unescaped(text: str) -> str:
    """Of a C++ literal in UTF-8, whose escapes are bytes."""
    text = re.sub(r"\\(?:u([0-9a-fA-F]{4})|U([0-9a-fA-F]{8}))", lambda code: chr(int(code[1] or code[2], 16)), text)
    text = "".join(chr(byte) if byte < 0x80 else f"\\x{byte:02x}" for byte in text.encode())
    return ast.literal_eval(f'b"{text}"').decode()


def texts_in_cpp(source: str):
    """(position, text) of every literal; neighbours are one text, as the compiler takes them."""
    source = COMMENT.sub(lambda found: " " * len(found.group()), source)
    for raw in CPP_RAW.finditer(source):
        yield raw.start(), raw.group(1)
    for literal in CPP_TEXTS.finditer(source):
        parts = re.findall(CPP_TEXT, literal.group())
        try:
            yield literal.start(), "".join(unescaped(part[part.index('"') + 1:-1]) for part in parts)
        except ValueError:
            continue  # bytes that are no text


def texts_in_python(source: str):
    """(line, text) of every literal."""
    for node in ast.walk(ast.parse(source)):
        if isinstance(node, ast.Constant) and isinstance(node.value, str):
            yield node.lineno, node.value


def tests_in_python(source: str):
    """(first line, name) of every test, its decorators included."""
    for node in ast.parse(source).body:
        if isinstance(node, ast.FunctionDef) and node.name.startswith("test_"):
            yield min([node.lineno] + [decorator.lineno for decorator in node.decorator_list]), node.name


def sentences() -> dict:
    """Every sentence, and the file that says it."""
    found = {}
    for path in sorted((ROOT / "src").rglob("*")):
        if path.suffix in (".cpp", ".h"):
            texts = [text for _, text in texts_in_cpp(path.read_text(encoding="utf-8"))]
        elif path.parent == ROOT / "src/plugin/php":
            texts = PHP_TEXT.findall(path.read_text(encoding="utf-8"))
        else:
            continue
        for text in texts:
            if SENTENCE.match(text):
                found.setdefault(text, path.relative_to(ROOT).as_posix())
    return found


def places_in_tests():
    """(text, file, test) of every text in the tests; a text above the first test belongs to the whole file."""
    for path in sorted((ROOT / "tests").rglob("*")):
        if path.suffix not in (".cpp", ".h", ".py") or path.parent == pathlib.Path(__file__).parent:
            continue
        source = path.read_text(encoding="utf-8")
        if path.suffix == ".py":
            tests, texts = list(tests_in_python(source)), texts_in_python(source)
        else:
            tests, texts = [(found.start(), found.group(1)) for found in CPP_TEST.finditer(source)], texts_in_cpp(source)
        for position, text in texts:
            test = next((name for start, name in reversed(tests) if start <= position), "")
            yield text, path.relative_to(ROOT).as_posix(), test


def seen() -> dict:
    """Every sentence, and where the first test that has it stands; empty when there is none."""
    places = list(places_in_tests())
    return {
        sentence: next((f"{path} {test}".strip() for text, path, test in places if sentence.strip() in text), "")
        for sentence in sentences()
    }


if __name__ == "__main__":
    for sentence, place in seen().items():
        print(f"{sentence!r}\n    {place or 'NO TEST'}")
