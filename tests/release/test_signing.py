"""A maker who names a key gets a signed executable: the one that was built, and a signature."""
import datetime
import hashlib
import http.server
import json
import os
import pathlib
import shutil
import subprocess
import threading
import zipfile

import pytest
from executable import EXE, ROOT
from released import NAME

PASSWORD = "the password of the key"
NOT_SIGNED = "The program is not signed."


def openssl(*words, **options):
    return subprocess.run(["openssl", *map(str, words)], check=True, capture_output=True, timeout=60, **options).stdout


def make_certificate(folder, name, usage):
    """A key without a password and a certificate of its own that may be used for this alone."""
    openssl("req", "-x509", "-newkey", "rsa:2048", "-nodes", "-subj", f"/CN={name}", "-days", "2",
            "-addext", "keyUsage=digitalSignature", "-addext", f"extendedKeyUsage={usage}",
            "-keyout", folder / f"{name}.key", "-out", folder / f"{name}.pem")


@pytest.fixture(scope="module")
def keys(tmp_path_factory):
    """The maker's keys in every form, and a time stamp server's."""
    folder = tmp_path_factory.mktemp("keys")
    make_certificate(folder, "maker", "codeSigning")
    make_certificate(folder, "clock", "critical,timeStamping")
    (folder / "password").write_text(PASSWORD)
    openssl("pkcs12", "-export", "-inkey", folder / "maker.key", "-in", folder / "maker.pem",
            "-passout", f"file:{folder}/password", "-out", folder / "maker.p12")
    openssl("pkcs8", "-topk8", "-in", folder / "maker.key", "-passout", f"file:{folder}/password",
            "-out", folder / "locked.key")
    return folder


def package(target, **settings):
    environment = {f"BRASSLET_SIGN_{name}": str(value) for name, value in settings.items()}
    return subprocess.run(["/usr/bin/python3", "-B", ROOT / "release/package.py", ROOT / "build/windows", target],
                          env=os.environ | environment, capture_output=True, text=True, check=False, timeout=120)


def packed(target, file="Brasslet.exe"):
    with zipfile.ZipFile(target / f"{NAME}.zip") as archive:
        return archive.read(file)


def osslsigncode(*words):
    return subprocess.run(["osslsigncode", *map(str, words)], capture_output=True, text=True, check=False, timeout=60)


def is_verified(program, keys, *options):
    return osslsigncode("verify", "-CAfile", keys / "maker.pem", *options, "-in", program).returncode == 0


FORMS = {
    "PKCS #12": {"PKCS12": "maker.p12", "PASSWORD_FILE": "password"},
    "PEM": {"KEY": "maker.key", "CERTIFICATES": "maker.pem"},
    "PEM with a password": {"KEY": "locked.key", "CERTIFICATES": "maker.pem", "PASSWORD_FILE": "password"},
}


@pytest.mark.parametrize("form", FORMS)
def test_the_signature_is_the_makers_and_all_that_was_added(keys, tmp_path, form):
    done = package(tmp_path / "out", **{name: keys / file for name, file in FORMS[form].items()})
    assert done.returncode == 0, done.stderr
    program, without, changed = tmp_path / "signed.exe", tmp_path / "without.exe", tmp_path / "changed.exe"
    program.write_bytes(packed(tmp_path / "out"))
    assert is_verified(program, keys)
    assert osslsigncode("remove-signature", "-in", program, "-out", without).returncode == 0
    assert without.read_bytes() == EXE.read_bytes()
    data = bytearray(program.read_bytes())
    data[len(data) // 2] ^= 1
    changed.write_bytes(data)
    assert not is_verified(changed, keys)


def test_what_lies_around_the_signed_program_tells_of_it(keys, tmp_path):
    package(tmp_path, KEY=keys / "maker.key", CERTIFICATES=keys / "maker.pem")
    read_me = packed(tmp_path, "READ ME.txt").decode()
    assert NOT_SIGNED not in read_me
    assert "The program is signed:" in read_me
    bill = json.loads((tmp_path / f"{NAME}.cdx.json").read_text())["metadata"]["component"]
    assert bill["hashes"][0]["content"] == hashlib.sha256(packed(tmp_path)).hexdigest()
    assert bill["properties"] == [
        {"name": "brasslet:sha256-without-signature", "value": hashlib.sha256(EXE.read_bytes()).hexdigest()}]


def test_without_a_key_nothing_is_signed(tmp_path):
    assert package(tmp_path, PKCS12="", KEY="").returncode == 0
    assert packed(tmp_path) == EXE.read_bytes()
    assert NOT_SIGNED in packed(tmp_path, "READ ME.txt").decode()


@pytest.mark.parametrize("settings, told", [
    ({"KEY": "maker.key"}, "both BRASSLET_SIGN_KEY and BRASSLET_SIGN_CERTIFICATES"),
    ({"PKCS12": "maker.p12", "KEY": "maker.key", "CERTIFICATES": "maker.pem"}, "Name BRASSLET_SIGN_PKCS12, or both"),
    ({"PASSWORD_FILE": "password"}, "Name BRASSLET_SIGN_PKCS12, or both"),
    ({"PKCS12": "absent.p12"}, "osslsigncode sign failed"),
    ({"KEY": "locked.key", "CERTIFICATES": "maker.pem", "PASSWORD_FILE": "maker.pem"}, "osslsigncode sign failed"),
    ({"KEY": "clock.key", "CERTIFICATES": "maker.pem"}, "osslsigncode sign failed"),
    ({"PFX": "maker.p12"}, "BRASSLET_SIGN_PFX is not known"),
], ids=lambda value: None if isinstance(value, str) else "+".join(value))
def test_a_key_that_cannot_be_used_stops_the_packaging(keys, tmp_path, settings, told):
    done = package(tmp_path / "out", **{name: keys / file for name, file in settings.items()})
    assert done.returncode != 0
    assert done.stderr.startswith("Nothing was packaged. ") and told in done.stderr
    assert not (tmp_path / "out").exists()


def test_the_password_is_never_on_a_command_line(keys, tmp_path, monkeypatch):
    spy = tmp_path / "bin/osslsigncode"
    spy.parent.mkdir()
    seen = tmp_path / "seen"
    spy.write_text(f'#!/bin/sh\n{{ printf "%s\\n" "$@"; env; }} >>"{seen}"\nexec {shutil.which("osslsigncode")} "$@"\n')
    spy.chmod(0o755)
    monkeypatch.setenv("PATH", f"{spy.parent}:{os.environ['PATH']}")
    done = package(tmp_path / "out", PKCS12=keys / "maker.p12", PASSWORD_FILE=keys / "password")
    assert done.returncode == 0
    assert "-pkcs12" in seen.read_text() and PASSWORD not in seen.read_text() + done.stdout + done.stderr


@pytest.fixture
def clock(keys, tmp_path):
    """A time stamp server (RFC 3161) on the loopback; its address."""
    settings = tmp_path / "tsa.cnf"
    settings.write_text(f"[tsa]\nserial = {tmp_path}/serial\ndefault_policy = 1.2.3.4\ndigests = sha256, sha384, sha512\n"
                        "signer_digest = sha256\n")

    class Stamper(http.server.BaseHTTPRequestHandler):
        def do_POST(self):
            query = tmp_path / "query"
            query.write_bytes(self.rfile.read(int(self.headers["Content-Length"])))
            reply = openssl("ts", "-reply", "-config", settings, "-section", "tsa", "-queryfile", query,
                            "-signer", keys / "clock.pem", "-inkey", keys / "clock.key")
            self.send_response(200)
            self.send_header("Content-Type", "application/timestamp-reply")
            self.send_header("Content-Length", str(len(reply)))
            self.end_headers()
            self.wfile.write(reply)

        def log_message(self, *_):
            pass

    with http.server.HTTPServer(("127.0.0.1", 0), Stamper) as server:
        thread = threading.Thread(target=server.serve_forever)
        thread.start()
        yield f"http://127.0.0.1:{server.server_port}/"
        server.shutdown()
        thread.join()


def test_a_time_stamp_is_fetched_when_a_server_is_named(keys, clock, tmp_path):
    done = package(tmp_path / "out", KEY=keys / "maker.key", CERTIFICATES=keys / "maker.pem", TIMESTAMP=clock)
    assert done.returncode == 0, done.stderr
    program = tmp_path / "signed.exe"
    program.write_bytes(packed(tmp_path / "out"))
    told = osslsigncode("verify", "-CAfile", keys / "maker.pem", "-TSA-CAfile", keys / "clock.pem", "-in", program)
    assert told.returncode == 0
    assert f"{datetime.datetime.now(datetime.timezone.utc):%Y}" in told.stdout and "imestamp" in told.stdout


def test_a_server_that_gives_no_stamp_stops_the_packaging(keys, tmp_path):
    done = package(tmp_path / "out", KEY=keys / "maker.key", CERTIFICATES=keys / "maker.pem",
                   TIMESTAMP="http://127.0.0.1:9/")
    assert done.stderr.startswith("Nothing was packaged. osslsigncode sign failed")
    assert not pathlib.Path(tmp_path / "out").exists()
