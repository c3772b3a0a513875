"""The world's name server: answers A and SRV on 127.0.0.1, port 53, UDP and TCP, from a zone file (see `zone`)."""

import socketserver
import struct
import sys
import threading

A, SRV, ANY = 1, 33, 255
NO_ERROR, SERVER_FAILURE, NO_SUCH_NAME = 0, 2, 3
HEADER_SIZE = 12
UDP_LIMIT = 512  # RFC 1035: a longer answer is cut, and the asker comes back over TCP


def read_zone(path):
    """The records of the zone file: lower-case name to a list of [type, field...]."""
    records = {}
    with open(path, encoding="utf-8") as zone:
        for line in zone:
            name, *record = line.partition("#")[0].split() or [None]
            if name:
                records.setdefault(name.lower().rstrip("."), []).append(record)
    return records


def find(records, labels):
    """The records of a name, given as its labels; none when it does not exist."""
    name = ".".join(labels).lower()
    if name in records:
        return records[name]
    if any(label.startswith("_") for label in labels):
        return []
    parents = (".".join(labels[i:]).lower() for i in range(1, len(labels)))
    return next((records["*." + parent] for parent in parents if "*." + parent in records), [])


def read_question(query):
    """The labels, the type and the end of the one question in a query."""
    labels, at = [], HEADER_SIZE
    while query[at]:
        labels.append(query[at + 1:at + 1 + query[at]].decode("ascii"))
        at += 1 + query[at]
    (kind,) = struct.unpack_from("!H", query, at + 1)
    return labels, kind, at + 5


def compressed(name, question):
    """A name that ends in a pointer to what it shares with the question's name, if only to its root.

    Wine's parser refuses a target without a pointer.
    """
    labels = name.rstrip(".").split(".") if name.rstrip(".") else []
    shared = 0
    while (shared < min(len(labels), len(question))
           and labels[-1 - shared].lower() == question[-1 - shared].lower()):
        shared += 1
    written = b"".join(bytes([len(label)]) + label.encode("ascii") for label in labels[:len(labels) - shared])
    offset = HEADER_SIZE + sum(1 + len(label) for label in question[:len(question) - shared])
    return written + struct.pack("!H", 0xC000 | offset)


def resource(record, question):
    """The type and the data of a record, as they stand in an answer."""
    if record[0] == "A":
        return A, bytes(int(part) for part in record[1].split("."))
    priority, weight, port, target = record[1:]
    return SRV, struct.pack("!3H", int(priority), int(weight), int(port)) + compressed(target, question)


def answer(query, path, limit):
    """The reply to a query, at most `limit` bytes long."""
    labels, kind, end = read_question(query)
    found = find(read_zone(path), labels)
    code, data = NO_ERROR, []
    if not found:
        code = NO_SUCH_NAME
    elif ["FAILS"] in found:
        code = SERVER_FAILURE
    else:
        data = [resource(record, labels) for record in found]
    data = [(each, content) for each, content in data if kind in (each, ANY)]
    body = b"".join(struct.pack("!HHHLH", 0xC000 | HEADER_SIZE, each, 1, 0, len(content)) + content
                    for each, content in data)

    def reply(count, cut, records):
        flags = 0x8580 | (0x0200 if cut else 0) | code  # an answer, authoritative, recursion asked for and available
        return query[:2] + struct.pack("!5H", flags, 1, count, 0, 0) + query[HEADER_SIZE:end] + records

    whole = reply(len(data), False, body)
    return whole if len(whole) <= limit else reply(0, True, b"")


class Datagram(socketserver.BaseRequestHandler):
    def handle(self):
        query, connection = self.request
        connection.sendto(answer(query, self.server.zone, UDP_LIMIT), self.client_address)


class Stream(socketserver.StreamRequestHandler):
    def handle(self):
        while size := self.rfile.read(2):
            reply = answer(self.rfile.read(struct.unpack("!H", size)[0]), self.server.zone, 0xFFFF)
            self.wfile.write(struct.pack("!H", len(reply)) + reply)


def main():
    servers = [socketserver.ThreadingUDPServer(("127.0.0.1", 53), Datagram),
               socketserver.ThreadingTCPServer(("127.0.0.1", 53), Stream)]
    for server in servers:
        server.zone = sys.argv[1]
        server.daemon_threads = True
    for server in servers[1:]:
        threading.Thread(target=server.serve_forever, daemon=True).start()
    servers[0].serve_forever()


if __name__ == "__main__":
    main()
