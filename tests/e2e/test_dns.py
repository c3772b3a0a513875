"""The system's DNS client, asked through the program's own code for SRV records of the world's name server."""
import os
import subprocess

import pytest

import desk
import site_world

NAME = "_bsvalias._tcp.example.test"


def srv_host(domain="example.test", **environment):
    done = subprocess.run(["wine", desk.TOOLS / "find_srv_host.exe", domain], check=True, capture_output=True, timeout=60,
                          env=os.environ | environment)
    return done.stdout.decode().strip()


@pytest.mark.parametrize(
    ("records", "host"),
    [
        (["10 0 443 pay.example.test"], "pay.example.test"),
        (["10 0 443 A.example.test", "10 0 443 b.Example.TEST"], "b.example.test"),
        (["20 0 443 later.example.test", "10 0 443 first.example.test"], "first.example.test"),
        (["1 0 8443 other-port.example.test", "10 0 443 pay.example.test"], "pay.example.test"),
        (["10 0 8443 other-port.example.test"], ""),
        (["10 0 443 single-label"], ""),
        (["10 0 443 ."], ""),
        ([], ""),
    ],
)
def test_the_records_of_a_domain_name_its_host(zone, records, host):
    site_world.set_zone(*zone, *(f"{NAME} SRV {record}" for record in records))
    assert srv_host() == host


def test_a_name_server_that_fails_names_nobody(zone):
    site_world.set_zone(*zone, f"{NAME} FAILS")
    assert srv_host() == ""


def test_a_domain_that_is_no_name_at_all_names_nobody(zone):
    assert srv_host("x" * 300) == ""
    assert srv_host("") == ""


def test_a_system_without_its_dns_library_names_nobody(zone):
    site_world.set_zone(*zone, f"{NAME} SRV 10 0 443 pay.example.test")
    assert srv_host(WINEDLLOVERRIDES=os.environ["WINEDLLOVERRIDES"] + ";dnsapi=") == ""
