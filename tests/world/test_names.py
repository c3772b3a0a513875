"""The names of the world, and its name server."""

import struct

import pytest

from worlds import up


def test_the_zone_file_is_read_afresh_for_every_query():
    question = "dig +noall +comments +answer _bsvalias._tcp.brasslet.test SRV"
    answers = up(f"""{question}
        echo '_bsvalias._tcp.brasslet.test SRV 10 5 443 pay.brasslet.test' >>$WORLD_ZONE
        {question}
        echo '_bsvalias._tcp.brasslet.test FAILS' >>$WORLD_ZONE
        {question}""", "--no-desktop", "--no-sites")
    assert [line.split("status: ")[1].split(",")[0] for line in answers.split("\n") if "status: " in line] == [
        "NXDOMAIN", "NOERROR", "SERVFAIL"]
    assert "10 5 443 pay.brasslet.test." in answers


@pytest.mark.parametrize("target, end", [("pay.brasslet.test", "brasslet.test"), ("pay.elsewhere.example", "")])
def test_a_target_ends_in_a_compression_pointer(target, end):
    question = b"\x09_bsvalias\x04_tcp\x08brasslet\x04test\x00"
    query = b"\x12\x34\x01\x00\x00\x01\x00\x00\x00\x00\x00\x00" + question + b"\x00\x21\x00\x01"
    reply = bytes.fromhex(up(f"""echo '_bsvalias._tcp.brasslet.test SRV 1 2 443 {target}' >>$WORLD_ZONE
        exec 3<>/dev/udp/127.0.0.1/53
        printf '{"".join(f"{chr(92)}x{byte:02x}" for byte in query)}' >&3
        dd bs=512 count=1 <&3 2>/dev/null | od -An -v -tx1""", "--no-desktop", "--no-sites"))
    (pointer,) = struct.unpack("!H", reply[-2:])
    assert pointer & 0xC000 == 0xC000
    suffix = b"".join(bytes([len(label)]) + label.encode() for label in end.split(".") if label) + b"\x00"
    assert (query[:12] + question)[pointer & 0x3FFF:] == suffix


def test_a_long_answer_is_cut_and_comes_whole_over_tcp():
    counts = up("""for i in $(seq 40); do echo "many.test SRV $i 0 443 server$i.a-long-name.example" >>$WORLD_ZONE; done
        dig +noedns +ignore +short many.test SRV | wc -l
        dig +noedns +short many.test SRV | wc -l""", "--no-desktop", "--no-sites")
    assert counts.split() == ["0", "40"]


def test_names_lead_to_the_machine_itself_and_one_leads_nowhere():
    assert up("getent ahostsv4 anything.brasslet.test | head -1 | cut -d' ' -f1; "
              "curl -s https://dead.brasslet.test/ || echo refused $?; "
              "curl -s --connect-timeout 5 http://192.0.2.10/ || echo no road $?",
              "--no-desktop", "--no-sites") == "127.0.0.1\nrefused 7\nno road 7"
