"""Names, keys and addresses for the tests, and what the plugin answers about them."""

# The public keys of the secrets 1 and 2 on secp256k1 (SEC 2), their addresses, and the scripts that pay those.
PUBKEY = "0279be667ef9dcbbac55a06295ce870b07029bfcdb2dce28d959f2815b16f81798"
ADDRESS = "1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMH"
SCRIPT = "76a914751e76e8199196d454941c45d1b3a323f1433bd688ac"
OTHER_PUBKEY = "02c6047f9441ed7d6d3045406e95c07cd85c778e4b8cef3ca7abac09b95c709ee5"
OTHER_ADDRESS = "1cMh228HTCiwS8ZsaakH8A8wze1JR5ZsP"
OTHER_SCRIPT = "76a91406afd46bcdfd22ef94ac122aa11f241244a37ecc88ac"

HOUSE = "ada@corvane.example"


def row(alias, pubkey=PUBKEY, address=ADDRESS, house=""):
    return {"alias": alias, "pubkey": pubkey, "address": address, "house": house}


def record(*aliases):
    """The option as it stands in WordPress with these names published."""
    return {"rows": [row(alias) for alias in aliases]}


def refusal(code, message, status):
    """The bytes of a WordPress error."""
    return f'{{"code":"{code}","message":"{message}","data":{{"status":{status}}}}}'


BAD_NAME = refusal("brasslet_bad", "That name is not usable.", 400)
BAD_REMOVAL = refusal("brasslet_bad", "Type the name to remove.", 400)
NO_PAYMAIL = refusal("brasslet_miss", "No paymail.", 404)
NO_LOGIN = refusal("brasslet_login", "Add the WordPress user and application password.", 401)
NO_APPLICATION_PASSWORDS = "This WordPress cannot use application passwords."
UNKNOWN_USER = refusal(
    "invalid_username", "WordPress does not know that user. Use the username from the profile page.", 401)
NO_ADMINISTRATOR = refusal("brasslet_admin", "That user is not an Administrator.", 403)
WRONG_PASSWORD = refusal("incorrect_password", "WordPress refused that application password.", 401)
