"""The secrets of a wallet, computed apart from the program (hashlib and plain integers), and every form in which a
copy of one could lie in a process's memory."""
import base64
import hashlib
import hmac

# The curve secp256k1 (SEC 2).
P = 2**256 - 2**32 - 977
N = 0xFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFEBAAEDCE6AF48A03BBFD25E8CD0364141
G = (0x79BE667EF9DCBBAC55A06295CE870B07029BFCDB2DCE28D959F2815B16F81798,
     0x483ADA7726A3C4655DA4FBFC0E1108A8FD17B448A68554199C47D08FFB10D4B8)
HARDENED = 2**31


def _sum(a, b):
    if a is None or b is None:
        return a or b
    if a[0] == b[0] and (a[1] + b[1]) % P == 0:
        return None
    if a == b:
        slope = 3 * a[0] * a[0] * pow(2 * a[1], -1, P)
    else:
        slope = (b[1] - a[1]) * pow(b[0] - a[0], -1, P)
    x = (slope * slope - a[0] - b[0]) % P
    return x, (slope * (a[0] - x) - a[1]) % P


def public_key(private: bytes) -> bytes:
    """Compressed."""
    number, point, doubled = int.from_bytes(private, "big"), None, G
    while number:
        if number & 1:
            point = _sum(point, doubled)
        doubled, number = _sum(doubled, doubled), number >> 1
    return bytes([2 + point[1] % 2]) + point[0].to_bytes(32, "big")


def seed_of(phrase: str) -> bytes:
    return hashlib.pbkdf2_hmac("sha512", phrase.encode(), b"mnemonic", 2048)


def master_of(seed: bytes) -> tuple[bytes, bytes]:
    """Private key and chain code."""
    code = hmac.digest(b"Bitcoin seed", seed, "sha512")
    return code[:32], code[32:]


def child_of(parent: tuple[bytes, bytes], index: int) -> tuple[bytes, bytes]:
    private, chain = parent
    data = b"\0" + private if index >= HARDENED else public_key(private)
    code = hmac.digest(chain, data + index.to_bytes(4, "big"), "sha512")
    number = (int.from_bytes(code[:32], "big") + int.from_bytes(private, "big")) % N
    return number.to_bytes(32, "big"), code[32:]


def keys_on_the_way(phrase: str, shown: int = 0, ordinal: int = 0) -> dict[str, tuple[bytes, bytes]]:
    """Every private key and chain code that stands on the way to the wallet's keys, by its path."""
    keys = {"m": master_of(seed_of(phrase))}
    for account, index in ((1, shown), (100, 0), (5, ordinal)):
        path = "m"
        for step in (HARDENED + 44, HARDENED + 236, HARDENED + account, 0, index):
            parent, path = path, f"{path}/{step % HARDENED}" + ("'" if step >= HARDENED else "")
            if path not in keys:
                keys[path] = child_of(keys[parent], step)
    return keys


def _as_text(text: str) -> list[bytes]:
    return [text.encode(), text.encode("utf-16-le")]


def _as_hash_words(data: bytes) -> bytes:
    """As SHA-512 lays its input out in words: every eight bytes turned round."""
    return b"".join(data[i:i + 8][::-1] for i in range(0, len(data) - len(data) % 8, 8))


def forms_of_text(text: str) -> list[bytes]:
    """As it is, wide, and as HMAC mixes it into its key blocks."""
    mixed = [bytes(byte ^ pad for byte in text.encode()) for pad in (0x36, 0x5C)]
    return _as_text(text) + mixed


def forms_of_bytes(data: bytes) -> list[bytes]:
    """Raw, from its last byte to its first (as libcrypto keeps numbers), as input of a hash, and as hex text."""
    shifted = _as_hash_words(b"\0" + data)[8:]  # behind the zero byte of a hardened child, without its first word
    return [data, data[::-1], _as_hash_words(data), shifted, *_as_text(data.hex()), *_as_text(data.hex().upper())]


def forms_of_login(user: str, password: str) -> dict[str, list[bytes]]:
    """Every third of the password, and of what is sent of it: user and password in base64, as it is and wide."""
    login = base64.b64encode(f"{user}:{password}".encode()).decode()
    thirds = {"the password": password, "the login": login[len(login) // 4:]}
    return {f"{name}'s letters from {start}": _as_text(text[start:start + 8])
            for name, text in thirds.items() for start in range(0, len(text) - 7, 8)}


def runs_of_words(phrase: str, length: int = 4) -> list[str]:
    words = phrase.split()
    return [" ".join(words[i:i + length]) for i in range(len(words) - length + 1)]


def forms_of_wallet(phrase: str, entropy: bytes, **indexes) -> dict[str, list[bytes]]:
    """What must not be found, by its name."""
    forms = {f"the words {run!r}": forms_of_text(run) for run in runs_of_words(phrase)}
    key_block = phrase.encode().ljust(128, b"\0")
    forms["the phrase as HMAC's key"] = [
        _as_hash_words(bytes(byte ^ pad for byte in key_block))[:64] for pad in (0x36, 0x5C)]
    forms["the entropy"] = forms_of_bytes(entropy)
    forms["the seed"] = forms_of_bytes(seed_of(phrase))
    for path, (private, chain) in keys_on_the_way(phrase, **indexes).items():
        forms[f"the private key {path}"] = forms_of_bytes(private)
        forms[f"the chain code {path}"] = forms_of_bytes(chain)
    return forms
