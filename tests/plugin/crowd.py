"""Many clients that publish and remove at the same time."""

import threading
from concurrent.futures import ThreadPoolExecutor

import requests

from names import ADDRESS, OTHER_ADDRESS, PUBKEY

CLIENTS = 8
ORDERS = 50


class Client:
    """Publishes and removes names of its own, and knows what the replies have promised so far."""

    def __init__(self, site, name):
        self._site = site
        self._http = requests.Session()
        self._http.verify = site.http.verify
        self._name = name
        self.promised = {}
        self.complaints = []

    def work(self):
        with self._http:
            for order in range(ORDERS):
                # Five names: each is published, gets another address, and is removed, over and over.
                alias, step = f"{self._name}-{order % 5}", order // 5 % 3
                if step == 2:
                    self._remove(alias)
                else:
                    self._publish(alias, (ADDRESS, OTHER_ADDRESS)[step])

    def _publish(self, alias, address):
        reply = self._send("POST", {"alias": alias, "pubkey": PUBKEY, "address": address, "house": ""})
        if reply:
            self.promised[alias] = address
            self._compare(reply["aliases"])

    def _remove(self, alias):
        reply = self._send("DELETE", {"alias": alias})
        if reply:
            self.promised.pop(alias, None)
            self._compare(reply["aliases"])

    def _send(self, method, body):
        url = f"https://{self._site.host}/wp-json/brasslet/v1/name"
        reply = self._http.request(method, url, json={**body, **self._site.login_members()}, timeout=60)
        if reply.status_code == 200:
            return reply.json()
        self.complaints.append(reply.text)
        return None

    def _compare(self, aliases):
        """Nobody else changes this client's names, so every list has to hold what this client was promised."""
        own = {alias for alias in aliases if alias.startswith(self._name + "-")}
        if own != set(self.promised):
            self.complaints.append(f"{sorted(own)} listed, {sorted(self.promised)} promised")


def work_at_once(site):
    """Lets all clients work; returns what the replies promised in the end, by alias, and what went wrong."""
    clients = [Client(site, f"client{number}") for number in range(CLIENTS)]
    together = threading.Barrier(CLIENTS)

    def work(client):
        together.wait(60)
        client.work()

    with ThreadPoolExecutor(CLIENTS) as pool:
        for done in [pool.submit(work, client) for client in clients]:
            done.result()
    promised = {alias: address for client in clients for alias, address in client.promised.items()}
    return promised, [complaint for client in clients for complaint in client.complaints]


def addresses(record):
    return {row["alias"]: row["address"] for row in record["rows"]}
