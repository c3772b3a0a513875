"""Signs the executable as Windows checks it (Authenticode), with a key that the maker names in the environment:

    BRASSLET_SIGN_PKCS12         a PKCS #12 file with the key and its certificates, or instead of it
    BRASSLET_SIGN_KEY            the key, and
    BRASSLET_SIGN_CERTIFICATES   its certificate followed by those above it, all PEM
    BRASSLET_SIGN_PASSWORD_FILE  a file that holds the password of the key alone, when it has one: on a command line or
                                 in the environment other programs could read it
    BRASSLET_SIGN_TIMESTAMP      the address of an RFC 3161 time stamp server: without its stamp the signature ends with
                                 the certificate

Without a key nothing is signed. The signature is all that is added: `osslsigncode remove-signature` gives back the
unsigned executable byte for byte."""
import pathlib
import subprocess
import tempfile

PREFIX = "BRASSLET_SIGN_"
KNOWN = {"PKCS12", "KEY", "CERTIFICATES", "PASSWORD_FILE", "TIMESTAMP"}


class NotSigned(Exception):
    """The maker wants the executable signed, and it is not."""


def settings_in(environment):
    """What the environment says about signing; an empty value is as good as none."""
    found = {name.removeprefix(PREFIX): value for name, value in environment.items()
             if name.startswith(PREFIX) and value}
    if found.keys() - KNOWN:
        raise NotSigned(f"{PREFIX}{min(found.keys() - KNOWN)} is not known. Known are: {', '.join(sorted(KNOWN))}.")
    with_pair = {"KEY", "CERTIFICATES"} & found.keys()
    if found and (("PKCS12" in found) == bool(with_pair) or len(with_pair) == 1):
        raise NotSigned(f"Name {PREFIX}PKCS12, or both {PREFIX}KEY and {PREFIX}CERTIFICATES.")
    return found


def key_options(settings):
    if "PKCS12" in settings:
        options = ["-pkcs12", settings["PKCS12"]]
    else:
        options = ["-certs", settings["CERTIFICATES"], "-key", settings["KEY"]]
    return options + (["-readpass", settings["PASSWORD_FILE"]] if "PASSWORD_FILE" in settings else [])


def run(*words):
    done = subprocess.run(words, capture_output=True, text=True, stdin=subprocess.DEVNULL, check=False)
    if done.returncode != 0:
        raise NotSigned(f"{words[0]} {words[1]} failed:\n{done.stdout}{done.stderr}")


def signed(program, name, environment):
    """The bytes of the executable with its signature, or as they are when the environment names no key."""
    settings = settings_in(environment)
    if not settings:
        return program
    with tempfile.TemporaryDirectory() as folder:
        before, after, back = (pathlib.Path(folder, file) for file in ("before.exe", "after.exe", "back.exe"))
        before.write_bytes(program)
        stamp = ["-ts", settings["TIMESTAMP"]] if "TIMESTAMP" in settings else []
        run("osslsigncode", "sign", *key_options(settings), "-h", "sha256", "-n", name, *stamp,
            "-in", str(before), "-out", str(after))
        run("osslsigncode", "remove-signature", "-in", str(after), "-out", str(back))
        if back.read_bytes() != program:
            raise NotSigned("Without its signature the executable is not what was built.")
        return after.read_bytes()
