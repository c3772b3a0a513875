"""A broadcaster that behaves as ARC does: it takes transactions, refuses them with problem documents, and misbehaves."""

import contextlib
import hashlib
import json
import ssl
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer

from wordpress import WORLD_DIR

HOST, ADDRESS = "arc.brasslet.test", "127.0.0.20"
URL = f"https://{HOST}"

# ARC's titles by status, as its documentation lists them.
TITLES = {
    400: "Bad request", 401: "Unauthorized", 409: "Generic error", 422: "Unprocessable entity", 460: "Not extended format",
    461: "Malformed transaction", 462: "Invalid inputs", 463: "Malformed transaction", 464: "Invalid outputs",
    465: "Fee too low", 466: "Conflicting tx found", 467: "Mined ancestors not found", 471: "Input Frozen",
    472: "Input Frozen", 473: "Cumulative fee too low", 475: "Refused", 500: "Internal error",
}
# What a stranger may write where an owner or a payer could come to see it.
MARKUP = "<script>alert('said by the broadcaster')</script>"

POLICY = {"timestamp": "2026-01-02T03:04:05Z", "policy": {
    "maxscriptsizepolicy": 500000, "maxtxsigopscountspolicy": 4294967295, "maxtxsizepolicy": 10000000,
    "miningFee": {"satoshis": 1, "bytes": 1000}}}


def txid_of(hexadecimal):
    return hashlib.sha256(hashlib.sha256(bytes.fromhex(hexadecimal)).digest()).digest()[::-1].hex()


class Broadcaster:
    """`answer` gets the id of a transaction and returns status, body and headers; None for a connection cut off."""

    def __init__(self):
        self.requests = []
        self.answer = self.accept
        self.key = None
        self.arrived = threading.Event()

    @property
    def transactions(self):
        """What was posted as a transaction, in the order in which it came."""
        return [request["body"]["rawTx"] for request in self.requests if request["method"] == "POST"]

    def accept(self, txid):
        return self.say("SEEN_ON_NETWORK")(txid)

    @staticmethod
    def say(status, http=200, **members):
        """An answer about the transaction with this status."""
        def answer(txid):
            return http, json.dumps({
                "blockHash": "", "blockHeight": 0, "extraInfo": MARKUP, "status": http, "timestamp": "2026-01-02T03:04:05Z",
                "title": "OK", "txStatus": status, "txid": txid, "merklePath": "", **members}), {}
        return answer

    @staticmethod
    def refuse(status, http=None):
        """A problem document (RFC 7807)."""
        def answer(txid):
            return http or status, json.dumps({
                "type": f"https://bitcoin-sv.github.io/arc/#/errors?id=_{status}", "title": TITLES.get(status, "Error"),
                "status": status, "detail": MARKUP, "instance": None, "txid": txid, "extraInfo": MARKUP}), {}
        return answer

    @staticmethod
    def plain(status, body, **headers):
        return lambda txid: (status, body, headers)

    def reply(self, request):
        if self.key is not None and request["headers"].get("Authorization") != f"Bearer {self.key}":
            return self.refuse(401)("")
        if request["path"] == "/v1/policy" and request["method"] == "GET":
            return 200, json.dumps(POLICY), {}
        if request["path"] != "/v1/tx" or request["method"] != "POST":
            return self.refuse(404)("")
        self.arrived.set()
        return self.answer(txid_of(request["body"]["rawTx"]))


def handler_of(broadcaster):
    class Handler(BaseHTTPRequestHandler):
        protocol_version = "HTTP/1.1"

        def take(self):
            body = self.rfile.read(int(self.headers.get("Content-Length") or 0))
            request = {"method": self.command, "path": self.path, "headers": dict(self.headers.items()),
                       "body": json.loads(body) if body else None}
            broadcaster.requests.append(request)
            found = broadcaster.reply(request)
            self.close_connection = True
            if found is None:
                return
            status, body, headers = found
            self.send_response(status)
            for name, value in {"Content-Type": "application/json", **headers}.items():
                self.send_header(name, value)
            self.send_header("Content-Length", str(len(body.encode())))
            self.end_headers()
            with contextlib.suppress(OSError):
                self.wfile.write(body.encode())

        do_GET = do_POST = take

        def log_message(self, *_):
            pass

    return Handler


class Server(ThreadingHTTPServer):
    daemon_threads = True

    def handle_error(self, *_):
        """Whoever asks may be killed, or refuse the certificate."""


@contextlib.contextmanager
def listening(certificate="site"):
    """A broadcaster at HOST, with the certificate of the sites or another one in the world's folder of the authority."""
    broadcaster = Broadcaster()
    server = Server((ADDRESS, 443), handler_of(broadcaster))
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    folder = WORLD_DIR / "authority"
    context.load_cert_chain(folder / f"{certificate}.pem", folder / f"{certificate}.key")
    # Each connection shakes hands in a thread of its own.
    server.socket = context.wrap_socket(server.socket, server_side=True, do_handshake_on_connect=False)
    thread = threading.Thread(target=server.serve_forever, kwargs={"poll_interval": 0.05})
    thread.start()
    try:
        yield broadcaster
    finally:
        server.shutdown()
        server.server_close()
        thread.join()
