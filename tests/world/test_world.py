"""The test world keeps its promises: what it offers inside, and that nothing of it is seen or left outside."""

import hashlib
import json
import os
import pathlib
import signal
import struct
import subprocess
import time
import uuid

import pytest

WORLD = pathlib.Path(__file__).parent
RUN_FOLDER = WORLD.parents[1] / "build" / "world"
BUNDLE = pathlib.Path("/etc/ssl/certs/ca-certificates.crt")
HOSTS = ["brasslet.test", "strip.brasslet.test", "redirect.brasslet.test", "newer.brasslet.test", "net.brasslet.test",
         "two.net.brasslet.test", "folders.brasslet.test", "apart.brasslet.test", "proxied.brasslet.test",
         "unaware.brasslet.test", "oneworker.brasslet.test", "xn--bcher-kva.example"]
IN_FOLDERS = ["folders.brasslet.test/second", "below.brasslet.test/blog", "handed.brasslet.test/blog"]

PROBE = """<?php
/* Plugin Name: Probe */
add_action('rest_api_init', fn() => register_rest_route('probe/v1', '/headers', [
    'permission_callback' => '__return_true',
    'callback' => fn() => array_values(array_intersect(array_keys($_SERVER), [
        'HTTP_AUTHORIZATION', 'PHP_AUTH_USER', 'HTTP_X_BRASSLET_AUTH', 'REDIRECT_HTTP_X_BRASSLET_AUTH'])),
]));
"""


def up(script, *options, **more):
    """Runs a bash script in a world of its own and returns what it wrote, without the last line feed."""
    command = [WORLD / "up", *options, "--", "bash", "-euc", script]
    done = subprocess.run(command, capture_output=True, text=True, timeout=300, check=False, **more)
    assert done.returncode == 0, done.stderr
    return done.stdout.strip()


def start_marked(*options):
    """A world that waits until it is ended. Everything in it carries a mark in its environment."""
    mark = f"WORLD_TEST_MARK={uuid.uuid4()}"
    name, value = mark.split("=")
    # Started in the background, this run itself may ignore SIGINT or SIGHUP, and would hand that down.
    world = subprocess.Popen(
        ["env", "--default-signal=HUP,INT,QUIT,TERM", WORLD / "up", *options, "--",
         "bash", "-c", "echo ready; exec sleep infinity"],
        stdout=subprocess.PIPE, env={**os.environ, name: value})
    assert world.stdout.readline() == b"ready\n"
    return world, mark.encode()


def living(mark):
    found = []
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if mark in (process / "environ").read_bytes():
                found.append(int(process.name))
        except OSError:
            continue  # it ended meanwhile, or is another user's
    return found


def wait_until_gone(mark):
    limit = time.monotonic() + 30
    while living(mark) and time.monotonic() < limit:
        time.sleep(0.02)
    return living(mark)


def test_the_command_s_exit_status_is_returned():
    done = subprocess.run([WORLD / "up", "--no-desktop", "--", "sh", "-c", "exit 37"], check=False)
    assert done.returncode == 37


@pytest.mark.parametrize("name", ["WORLD_WORDPRESS", "WORLD_PHP", "WORLD_WEB"])
def test_a_version_that_the_world_does_not_have_is_refused(name):
    done = subprocess.run([WORLD / "up", "--no-desktop", "--", "true"], capture_output=True, text=True, check=False,
                          env={**os.environ, name: "5.6"})
    assert (done.returncode, done.stderr.split(":")[0]) == (2, name + " is one of")


@pytest.mark.parametrize("arguments", [[], ["--"], ["true"], ["--no-desktop"], ["--desktop", "--", "true"]])
def test_a_wrong_command_line_is_refused(arguments):
    assert subprocess.run([WORLD / "up", *arguments], capture_output=True, check=False).returncode == 2


@pytest.mark.parametrize("web", ["nginx", "apache"])
def test_every_site_answers_over_https_under_its_own_address(web):
    answers = up("".join(f"curl -sS --cacert $WORLD_CA https://{address}/wp-json/; echo\n"
                         for address in HOSTS + IN_FOLDERS), "--no-desktop", env={**os.environ, "WORLD_WEB": web}).split("\n")
    assert [json.loads(answer)["home"] for answer in answers] == [f"https://{address}" for address in HOSTS + IN_FOLDERS]


def test_the_commands_reach_every_site_under_its_own_address():
    homes = up("".join(f"{WORLD}/wp {address} 'echo home_url(), PHP_EOL;'\n" for address in HOSTS + IN_FOLDERS),
               "--no-desktop").split("\n")
    assert homes == [f"https://{address}" for address in HOSTS + IN_FOLDERS]


def test_every_wordpress_has_its_permalinks_in_the_database():
    # The structures of a network are those that WordPress gives its sites.
    dated = "/%year%/%monthnum%/%day%/%postname%/"
    wanted = {"brasslet.test": "/%postname%/", "newer.brasslet.test": "/%postname%/", "apart.brasslet.test": "/%postname%/",
              "below.brasslet.test/blog": "/%postname%/", "net.brasslet.test": dated, "two.net.brasslet.test": dated,
              "folders.brasslet.test": "/blog" + dated, "folders.brasslet.test/second": dated}
    assert up("".join(f"""{WORLD}/wp {address} 'echo $wpdb->get_var(
        "SELECT option_value FROM $wpdb->options WHERE option_name = \\"permalink_structure\\""), PHP_EOL;'\n"""
                      for address in wanted), "--no-desktop").split("\n") == list(wanted.values())


def test_a_network_has_two_sites_and_a_super_admin_and_the_other_sites_are_none():
    tell = """echo json_encode([is_multisite(), is_multisite() ? is_subdomain_install() : null, is_multisite()
        ? array_map(fn($site) => $site->domain . $site->path, get_sites()) : [], is_super_admin(1)]), PHP_EOL;"""
    told = up("".join(f"{WORLD}/wp {host} '{tell}'\n" for host in (
        "net.brasslet.test", "folders.brasslet.test", "below.brasslet.test/blog")), "--no-desktop").split("\n")
    assert [json.loads(line) for line in told] == [
        [True, True, ["net.brasslet.test/", "two.net.brasslet.test/"], True],
        [True, False, ["folders.brasslet.test/", "folders.brasslet.test/second/"], True],
        [False, None, [], True]]


@pytest.mark.parametrize("web", ["nginx", "apache"])
def test_a_wordpress_lies_below_the_root_of_its_host_in_two_ways(web):
    pages = ["below.brasslet.test/blog/wp-login.php", "apart.brasslet.test/wp/wp-login.php",
             "folders.brasslet.test/second/wp-login.php", "below.brasslet.test/wp-admin/install.php",
             "apart.brasslet.test/wp-admin/install.php", "below.brasslet.test/no-page"]
    seen = up("".join(f"curl -sS -o /dev/null -w '%{{http_code}} ' https://{page}\n" for page in pages), "--no-desktop",
              env={**os.environ, "WORLD_WEB": web})
    assert seen.split() == ["200", "200", "200", "404", "404", "404"]


@pytest.mark.parametrize("web", ["nginx", "apache"])
def test_only_one_host_hands_the_document_at_its_root_to_the_wordpress_in_its_folder(web, tmp_path):
    (tmp_path / "probe.php").write_text(
        "<?php\n/* Plugin Name: Probe */\nif (!defined('ABSPATH')) exit;\nheader('X-Probe: ' . $_SERVER['REQUEST_URI']);\n")
    asked = up(f"""{WORLD}/install_plugin handed.brasslet.test/blog {tmp_path}/probe.php
        for host in handed below; do
            curl -sSI https://$host.brasslet.test/.well-known/bsvalias | tr -d '\\r' | grep '^X-Probe' || echo none
        done""", "--no-desktop", env={**os.environ, "WORLD_WEB": web})
    assert asked.split("\n") == ["X-Probe: /.well-known/bsvalias", "none"]


def test_the_two_wordpress_stand_on_both_sides_of_the_change_of_password_hashes():
    versions = up(f"for host in brasslet.test newer.brasslet.test; do {WORLD}/wp $host 'echo $wp_version, PHP_EOL;'; "
                  "done", "--no-desktop").split()
    old, new = ([int(part) for part in version.split(".")[:2]] for version in versions)
    assert old < [6, 8] <= new


@pytest.mark.parametrize("host", ["brasslet.test", "newer.brasslet.test", "two.net.brasslet.test",
                                  "folders.brasslet.test/second", "below.brasslet.test/blog", "apart.brasslet.test"])
def test_an_application_password_logs_the_owner_in_and_the_editor_is_no_administrator(host):
    roles = up(f"""for user in owner editor; do
        curl -sSg -u $user:$({WORLD}/app_password {host} $user) \\
            'https://{host}/wp-json/wp/v2/users/me?context=edit&_fields=roles'; echo
        done""", "--no-desktop").split("\n")
    assert roles == ['{"roles":["administrator"]}', '{"roles":["editor"]}']


@pytest.mark.parametrize("web, host, seen", [
    (web, host, seen) for web in ("nginx", "apache") for host, seen in (
        ("brasslet.test", {"HTTP_AUTHORIZATION", "PHP_AUTH_USER", "HTTP_X_BRASSLET_AUTH"}),
        ("strip.brasslet.test", {"HTTP_X_BRASSLET_AUTH"}),
        ("redirect.brasslet.test", {"REDIRECT_HTTP_X_BRASSLET_AUTH"}),
        ("newer.brasslet.test", {"HTTP_AUTHORIZATION", "PHP_AUTH_USER", "HTTP_X_BRASSLET_AUTH"}),
    )])
def test_php_sees_the_credentials_that_the_host_lets_through(web, host, seen, tmp_path):
    (tmp_path / "probe.php").write_text(PROBE)
    answer = up(f"""{WORLD}/install_plugin {host} {tmp_path}/probe.php
        secret=$({WORLD}/app_password {host} owner)
        curl -sS -u owner:$secret -H "X-Brasslet-Auth: Basic $(echo -n owner:$secret | base64 -w0)" \\
            https://{host}/wp-json/probe/v1/headers""", "--no-desktop", env={**os.environ, "WORLD_WEB": web})
    assert set(json.loads(answer)) == seen


@pytest.mark.parametrize("host, seen", [
    ("brasslet.test", "yes https"), ("proxied.brasslet.test", "yes http"), ("unaware.brasslet.test", "no http"),
])
def test_wordpress_knows_of_the_tls_that_a_proxy_ended_only_where_the_proxy_says_so(host, seen, tmp_path):
    (tmp_path / "probe.php").write_text("""<?php
        /* Plugin Name: Probe */
        header('X-Probe: ' . (is_ssl() ? 'yes' : 'no') . ' ' . $_SERVER['REQUEST_SCHEME']);""")
    assert up(f"""{WORLD}/install_plugin {host} {tmp_path}/probe.php
        curl -sSI https://{host}/wp-json/ | tr -d '\r' | sed -n 's/^X-Probe: //p'""", "--no-desktop") == seen


@pytest.mark.parametrize("web", ["nginx", "apache"])
def test_two_hosts_send_every_request_on(web):
    ask = "curl -sS -o /dev/null -w '%{http_code} %{redirect_url}\\n' "
    seen = up(f"{ask} https://www.newer.brasslet.test/a/b?c=d\n{ask} -d x=y https://moved.brasslet.test/", "--no-desktop",
              env={**os.environ, "WORLD_WEB": web})
    assert seen.split("\n") == ["301 https://newer.brasslet.test/a/b?c=d", "301 https://brasslet.test/"]


def test_a_site_with_one_process_cannot_ask_itself(tmp_path):
    (tmp_path / "probe.php").write_text("""<?php
        /* Plugin Name: Probe */
        if ($_SERVER['REQUEST_URI'] === '/probe') {
            $reply = wp_remote_get(home_url('/wp-json/'), ['timeout' => 2]);
            exit(is_wp_error($reply) ? substr($reply->get_error_message(), 0, 13) : 'answered');
        }""")
    assert up(f"""{WORLD}/install_plugin brasslet.test {tmp_path}/probe.php
        for host in brasslet.test oneworker.brasslet.test; do curl -sS https://$host/probe; echo; done""",
              "--no-desktop") == "answered\ncURL error 28"


def test_a_plugin_that_is_installed_again_counts_at_once(tmp_path):
    for name in ("first", "second"):
        text = f"<?php\n/* Plugin Name: Probe */\nif (!defined('ABSPATH')) exit;\nheader('X-Probe: {name}');\n"
        (tmp_path / f"{name}.php").write_text(text)
    # PHP caches no file that is only just written.
    answer = up(f"""for name in first second; do
        {WORLD}/install_plugin brasslet.test {tmp_path}/$name.php
        [ $name = second ] || touch -d '1 minute ago' $WORLD_DIR/sites/stable/content/plugins/brasslet/brasslet.php
        curl -sSI https://brasslet.test/wp-json/ | tr -d '\\r' | grep '^X-Probe'
        done""", "--no-desktop")
    assert answer.split("\n") == ["X-Probe: first", "X-Probe: second"]


def test_the_machine_s_certificates_and_names_stay_as_they_are():
    kept = [BUNDLE, pathlib.Path("/etc/hosts"), pathlib.Path("/etc/resolv.conf")]
    before = [hashlib.sha256(path.read_bytes()).digest() for path in kept]
    world, _ = start_marked("--no-desktop")
    during = [hashlib.sha256(path.read_bytes()).digest() for path in kept]
    world.kill()
    world.wait()
    assert before == during


def test_no_certificate_of_the_world_is_trusted_without_its_authority():
    assert up(f"curl -sS -o /dev/null --cacert {BUNDLE} https://brasslet.test/wp-json/ && echo trusted; "
              "head -c -$(stat -c %s $WORLD_CA) /etc/ssl/certs/ca-certificates.crt >$WORLD_DIR/without.crt; "
              "curl -s --cacert $WORLD_DIR/without.crt https://brasslet.test/wp-json/ || echo refused $?",
              "--no-desktop") == "trusted\nrefused 60"


def test_the_zone_file_is_read_afresh_for_every_query():
    question = "dig +noall +comments +answer _bsvalias._tcp.brasslet.test SRV"
    answers = up(f"""{question}
        echo '_bsvalias._tcp.brasslet.test SRV 10 5 443 pay.brasslet.test' >>$WORLD_ZONE
        {question}
        echo '_bsvalias._tcp.brasslet.test FAILS' >>$WORLD_ZONE
        {question}""", "--no-desktop")
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
        dd bs=512 count=1 <&3 2>/dev/null | od -An -v -tx1""", "--no-desktop"))
    (pointer,) = struct.unpack("!H", reply[-2:])
    assert pointer & 0xC000 == 0xC000
    suffix = b"".join(bytes([len(label)]) + label.encode() for label in end.split(".") if label) + b"\x00"
    assert (query[:12] + question)[pointer & 0x3FFF:] == suffix


def test_a_long_answer_is_cut_and_comes_whole_over_tcp():
    counts = up("""for i in $(seq 40); do echo "many.test SRV $i 0 443 server$i.a-long-name.example" >>$WORLD_ZONE; done
        dig +noedns +ignore +short many.test SRV | wc -l
        dig +noedns +short many.test SRV | wc -l""", "--no-desktop")
    assert counts.split() == ["0", "40"]


def test_names_lead_to_the_machine_itself_and_one_leads_nowhere():
    assert up("getent ahostsv4 anything.brasslet.test | head -1 | cut -d' ' -f1; "
              "curl -s https://dead.brasslet.test/ || echo refused $?; "
              "curl -s --connect-timeout 5 http://192.0.2.10/ || echo no road $?",
              "--no-desktop") == "127.0.0.1\nrefused 7\nno road 7"


def test_a_site_can_have_a_name_that_leads_its_own_server_elsewhere():
    assert up("""for host in inward silent; do
            curl -s --max-time 2 https://$host.brasslet.test/ || echo none $?
            curl -sSH "Host: $host.brasslet.test" https://brasslet.test/wp-json/?_fields=home | cut -d, -f1
        done""", "--no-desktop").split("\n") == [
        "none 7", '{"home":"https:\\/\\/inward.brasslet.test"', "none 28", '{"home":"https:\\/\\/silent.brasslet.test"']


@pytest.mark.parametrize(
    ("ending", "status"),
    [(signal.SIGKILL, -signal.SIGKILL), (signal.SIGTERM, 143), (signal.SIGINT, 130), (signal.SIGHUP, 129)],
)
@pytest.mark.parametrize("options", [["--no-desktop"], []])
def test_nothing_survives_the_end_of_up(ending, status, options):
    world, mark = start_marked(*options)
    assert len(living(mark)) > 4
    world.send_signal(ending)
    assert world.wait(timeout=60) == status
    assert wait_until_gone(mark) == []
    assert list(RUN_FOLDER.iterdir()) == []


def test_what_the_command_leaves_running_ends_with_it():
    mark = f"WORLD_TEST_MARK={uuid.uuid4()}"
    up(f"export {mark}; setsid sleep infinity </dev/null >/dev/null 2>&1 &", "--no-desktop")
    assert wait_until_gone(mark.encode()) == []


def test_what_lies_in_tmp_is_seen_and_what_is_left_there_goes(tmp_path):
    (tmp_path / "seen").write_text("from outside")
    left = pathlib.Path("/tmp") / f"left-by-a-world-{uuid.uuid4()}"
    assert up(f"touch {left}; cat '{tmp_path}/seen'", "--no-desktop") == "from outside"
    assert not left.exists()


def test_displays_do_not_share_the_keymaps_that_they_make():
    mark = pathlib.Path("/var/lib/xkb") / f"made-in-a-world-{uuid.uuid4()}"
    up(f"touch {mark}")
    assert not mark.exists()


def test_a_world_whose_display_ends_does_not_come_up(tmp_path):
    # Without a keymap it ends when its socket is there already.
    (tmp_path / "nothing").write_text("")
    as_root = [] if os.geteuid() == 0 else ["--map-root-user"]
    world = subprocess.run(
        ["unshare", "--mount", *as_root, "bash", "-euc",
         f"mount --bind '{tmp_path}/nothing' /usr/bin/xkbcomp; exec '{WORLD}/up' -- true"],
        capture_output=True, text=True, timeout=120, check=False)
    assert world.returncode == 70
    assert "The test world's display does not answer." in world.stderr


def test_two_worlds_at_once_do_not_meet():
    first, _ = start_marked()
    assert up("echo 'corvane.example A 127.0.0.1' >$WORLD_ZONE; wine cmd /c 'exit 0'; "
              "curl -sS https://brasslet.test/wp-json/ -o /dev/null -w '%{http_code}'") == "200"
    assert first.poll() is None
    first.kill()
    first.wait()


def test_the_desktop_is_up_before_the_command():
    assert "explorer.exe /desktop" in up("ps -eo args")


def test_the_desktop_stays_while_threads_of_its_own_end():
    # A folder that is opened gives the desktop's own process some threads more; closed, they end one after the other.
    seen = up("""
        desktop=$(pgrep -f '[e]xplorer.exe /desktop')
        threads() { ls "/proc/$desktop/task" 2>/dev/null | wc -l; }
        wine explorer 'C:\\windows' &
        until [ "$(threads)" -gt 5 ]; do sleep 0.1; done
        pkill -KILL -f '[e]xplorer.exe C:'
        until [ "$(threads)" -lt 5 ]; do sleep 0.1; done
        sleep 5
        kill -0 "$desktop" && echo stayed""")
    assert seen == "stayed"


def test_windows_programs_find_their_places_in_memory_free_every_time():
    personality = "cat /proc/self/personality"
    fixed = up(f"setarch --addr-no-randomize {personality} || {personality}", "--no-desktop")
    seen = up("for program in $(pgrep -f '[.]exe'); do cat /proc/$program/personality; done").split()
    assert len(seen) > 4 and set(seen) == {fixed}


def test_the_windows_user_has_a_name_outside_ascii():
    assert up("wine cmd /u /c 'echo %LOCALAPPDATA%' | iconv -f utf-16le -t utf-8 | tr -d '\\r'") == (
        "C:\\users\\Zoë 用户\\AppData\\Local")


def test_the_windows_user_s_folders_lie_in_the_desktop_itself():
    assert up("ls \"$WINEPREFIX/drive_c/users/$USER\"").split()
    assert up("find \"$WINEPREFIX/drive_c\" -type l") == ""


@pytest.mark.parametrize("dpi", ["96", "144", "192"])
def test_the_resolution_is_the_one_asked_for(dpi):
    seen = up("wine reg query 'HKCU\\Control Panel\\Desktop' /v LogPixels", env={**os.environ, "WORLD_DPI": dpi})
    assert int(seen.split()[-1], 16) == int(dpi)


def test_the_pages_that_programs_open_are_recorded():
    assert up("""for page in first 'second?a=1&b=%20c'; do
            wine start "https://corvane.example/$page"
        done
        until [ "$(wc -l <$WORLD_DIR/opened_pages)" = 2 ]; do sleep 0.02; done 2>/dev/null
        cat $WORLD_DIR/opened_pages""").split() == [
        "https://corvane.example/first", "https://corvane.example/second?a=1&b=%20c"]
