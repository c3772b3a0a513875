"""The plugin as a file: what PHP, a reviewer and WordPress' list of plugins see of it."""

import re
import subprocess
from pathlib import Path

import pytest

HERE = Path(__file__).parent

# One piece of PHP for everything that came after 7.4, and what the check calls it.
NEWER = {
    "match": "$a = match ( $b ) { 1 => 2 };",
    "enum": "enum A { case B; }",
    "readonly": "class A { public readonly int $b; }",
    "attribute": "#[A]\nfunction b() {}",
    "?->": "$a = $b?->c;",
    "named argument": "a( b: 1 );",
    "str_contains()": "str_contains( 'a', 'b' );",
    "type mixed": "function a( mixed $b ) {}",
    "type static": "class A { function b(): static {} }",
    "union type": "function a( int|string $b ) {}",
    "promoted property": "class A { function __construct( private $b ) {} }",
    "comma after the last parameter": "function a( $b, ) {}",
    "new as a default": "function a( $b = new C ) {}",
    "throw as an expression": "$a = $b ?? throw new C();",
    "catch without a variable": "try { a(); } catch ( B ) { c(); }",
    "first-class callable": "$a = b( ... );",
    "::class of an object": "$a = $b::class;",
    "octal number with 0o": "$a = 0o17;",
}

OLDER = """
function a( ?array &$b, int ...$c ): ?string {
	$d = fn ( $e ) => $e ?? null;
	try {
		return $b ? C::class : $d( ...$c );
	} catch ( A | B $f ) {
		throw $f;
	}
	switch ( $b ) {
		case null:
			return static::a( $b, );
	}
}
"""


def run(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)


def newer_syntax(path):
    # With Debian's own PHP: an older one would not know what to look for.
    return run("/usr/bin/php", str(HERE / "newer_than_php74.php"), str(path))


def test_php_reads_it_without_a_complaint(plugin_file):
    result = run("php", "-d", "error_reporting=-1", "-d", "display_errors=1", "-l", str(plugin_file))
    assert result.stdout.strip() == f"No syntax errors detected in {plugin_file}"


def test_it_follows_the_style_of_wordpress(plugin_file):
    result = run("phpcs", "--standard=" + str(HERE / "phpcs.xml"), str(plugin_file))
    assert result.returncode == 0, result.stdout


def test_php_7_4_knows_all_of_its_syntax(plugin_file):
    assert newer_syntax(plugin_file).stdout == ""


@pytest.mark.parametrize("what", NEWER)
def test_newer_syntax_would_be_found(tmp_path, what):
    sample = tmp_path / "sample.php"
    sample.write_text("<?php\n" + NEWER[what] + "\n")
    result = newer_syntax(sample)
    assert result.returncode == 1
    assert [line.split(": ", 1)[1] for line in result.stdout.splitlines()] == [what]


def test_syntax_of_php_7_4_is_left_alone(tmp_path):
    sample = tmp_path / "sample.php"
    sample.write_text("<?php\n" + OLDER)
    assert newer_syntax(sample).stdout == ""


def test_the_header_has_its_fields_in_order(plugin_file):
    comment = plugin_file.read_text().split("*/")[0]
    assert re.findall(r"^ \* (.*)$", comment, re.MULTILINE) == [
        "Plugin Name: Brasslet",
        "Description: Publishes a paymail payment name for this site. Vaultry holds the keys.",
        "Version: 0.001",
        "Author: Corvane",
        "Requires at least: 5.6",
        "Requires PHP: 7.4",
    ]
    assert comment.startswith("<?php\n/**\n")


def test_every_value_of_the_build_is_filled_in(plugin_file):
    text = plugin_file.read_text()
    assert "BRASSLET_HOUSE_DOMAIN" not in text
    assert "BRASSLET_PLUGIN_AUTHOR" not in text
    assert r"@corvane\.example$" in text


def test_it_is_plain_text_with_unix_line_ends(plugin_file):
    data = plugin_file.read_bytes()
    assert data.isascii()
    assert b"\r" not in data
    assert data.endswith(b"}\n")


def test_it_stops_at_once_outside_wordpress(plugin_file):
    result = run("php", "-r", f"require '{plugin_file}'; echo 'went on';")
    assert (result.returncode, result.stdout) == (0, "")


def test_every_global_name_carries_the_prefix(plugin_file):
    text = plugin_file.read_text()
    functions = re.findall(r"^function (\w+)", text, re.MULTILINE)
    constants = re.findall(r"define\( '(\w+)'", text)
    assert {"brasslet_rows", "brasslet_put_rows", "brasslet_host", "brasslet_send_json", "brasslet_allow",
            "brasslet_save", "brasslet_remove", "brasslet_pki", "brasslet_pay", "brasslet_row_for"} <= set(functions)
    assert "BRASSLET_OPTION" in constants
    assert all(name.startswith("brasslet_") for name in functions)
    # The other one is the word by which page caches are told to keep nothing.
    assert all(name.startswith("BRASSLET_") for name in constants if name != "DONOTCACHEPAGE")
