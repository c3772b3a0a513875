"""A WordPress of the test world, from outside over HTTPS and from inside through PHP."""

import base64
import json
import os
import subprocess
from dataclasses import dataclass
from pathlib import Path

import requests

from names import ADDRESS, PUBKEY

WORLD = Path(__file__).parents[1] / "world"
WORLD_DIR = Path(os.environ.get("WORLD_DIR", "/nonexistent"))

# Answers every line of its input, a JSON text with "code" and "value", by a line with what the code returns. The code
# finds the value in $v. Whatever WordPress remembers from the line before is forgotten first. PHP complains in the log
# of the sites.
SHELL = """
    ini_set( 'error_log', getenv( 'WORLD_DIR' ) . '/logs/php.log' );
    $input = fopen( 'php://stdin', 'r' );
    while ( false !== ( $line = fgets( $input ) ) ) {
        $job = json_decode( $line, true );
        wp_cache_flush();
        $run = eval( 'return function ( $v ) { global $wpdb; ' . $job['code'] . ' };' );
        echo json_encode( $run( $job['value'] ) ), "\\n";
        flush();
    }
"""

# Runs the PHP that a test has put beside it, before the plugin is loaded.
HOOK = "<?php eval( file_get_contents( __DIR__ . '/hook.txt' ) );\n"

MAKE_USER = """
    $id = wp_insert_user( array(
        'user_login' => $v['login'], 'user_email' => $v['email'], 'user_pass' => $v['account'], 'role' => $v['role'],
    ) );
    $passwords = array();
    for ( $made = 0; $made < $v['passwords']; $made++ ) {
        $name = array( 'name' => 'password ' . $made );
        $passwords[] = WP_Application_Passwords::create_new_application_password( $id, $name )[0];
    }
    return array( $id, $passwords );
"""


@dataclass
class User:
    login: str
    email: str
    account_password: str
    id: int = 0
    password: str = ""
    second_password: str = ""


class Site:
    def __init__(self, name, address, plugin, surname=""):
        """The site at `address`, a host and perhaps a path. `surname` tells apart the users of a network's sites."""
        self.address = address
        self.host, slash, path = address.partition("/")
        self.path = slash + path
        self.content = WORLD_DIR / "sites" / name / "content"
        self.http = requests.Session()
        self.http.verify = os.environ["WORLD_CA"]
        self.plugin = plugin
        self.install(plugin)
        (self.content / "mu-plugins").mkdir(exist_ok=True)
        self.hook("")
        (self.content / "mu-plugins" / "hook.php").write_text(HOOK)
        self.shell = subprocess.Popen(
            [WORLD / "wp", address, SHELL], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        people = f"{surname}@people.test"
        self.admin = self.make_user("ada" + surname, "ada" + people, "administrator", passwords=2)
        self.editor = self.make_user("edgar" + surname, "edgar" + people, "editor", passwords=1)
        self.bare = self.make_user("barbara" + surname, "barbara" + people, "administrator", passwords=0)
        self.disguised = self.make_user("twin" + people, "other" + people, "editor", passwords=1)
        self.make_user("twin" + surname, "twin" + people, "administrator", passwords=0)

    def install(self, plugin):
        subprocess.run([WORLD / "install_plugin", self.address, plugin], check=True)

    def close(self):
        self.http.close()
        self.shell.stdin.close()
        self.shell.wait()
        self.shell.stdout.close()

    # From inside.

    def php(self, code, value=None):
        """What the body of a PHP function returns; it finds `value` in $v."""
        self.shell.stdin.write(json.dumps({"code": code, "value": value}) + "\n")
        self.shell.stdin.flush()
        return json.loads(self.shell.stdout.readline())

    def make_user(self, login, email, role, passwords):
        # Letters and digits alone, as in an application password.
        user = User(login, email, "AccountOf" + login.split("@")[0])
        user.id, made = self.php(MAKE_USER, {"login": login, "email": email, "account": user.account_password,
                                             "role": role, "passwords": passwords})
        user.password, user.second_password, *_ = made + ["", ""]
        return user

    def hook(self, code):
        """Has PHP run in every request from now on, before the plugin is loaded."""
        (self.content / "mu-plugins" / "hook.txt").write_text(code)

    def reset(self):
        self.hook("")
        self.php("""
            foreach ( array( 'brasslet_record', 'brasslet_payments', 'brasslet_broadcaster_key' ) as $option ) {
                delete_option( $option );
            }
            $wpdb->query( "DELETE FROM $wpdb->options WHERE option_name LIKE 'brasslet\\\\_tx\\\\_%'" );
        """)

    def record(self):
        """The option as WordPress reads it; None when there is none."""
        return self.php("return get_option( 'brasslet_record', null );")

    def set_record(self, record, autoload=False):
        self.php("""
            delete_option( 'brasslet_record' );
            add_option( 'brasslet_record', $v[0], '', $v[1] );
        """, [record, autoload])

    def stored(self):
        """The option's row in the database: its bytes, and whether every page loads it; None when there is none."""
        return self.php("""
            $sql = "SELECT option_value, autoload FROM $wpdb->options WHERE option_name = 'brasslet_record'";
            return $wpdb->get_row( $sql, ARRAY_A );
        """)

    # From outside.

    def request(self, method, path, host=None, **options):
        """Sends the request with its path as it stands; requests alone would tidy it up first."""
        url = f"https://{host or self.host}{path}"
        prepared = self.http.prepare_request(requests.Request(method, url, **options))
        if "params" not in options:
            prepared.url = url
        return self.http.send(prepared, verify=self.http.verify, allow_redirects=False, timeout=30)

    def get(self, path, **options):
        return self.request("GET", self.path + "/wp-json/brasslet/v1" + path, **options)

    def login_members(self):
        return {"login_user": self.admin.login, "login_pass": self.admin.password}

    def login_headers(self):
        """The login as the desktop program sends it beside the body."""
        basic = "Basic " + base64.b64encode(f"{self.admin.login}:{self.admin.password}".encode()).decode()
        return {"Authorization": basic, "X-Brasslet-Auth": basic}

    def name_members(self, without=None, **members):
        body = {"alias": "alice", "pubkey": PUBKEY, "address": ADDRESS, "house": "", **self.login_members(), **members}
        body.pop(without, None)
        return body

    def send(self, method, body, **options):
        return self.request(method, self.path + "/wp-json/brasslet/v1/name", json=body, **options)

    def publish(self, headers=None, **members):
        return self.send("POST", self.name_members(**members), headers=headers)

    def remove(self, alias, headers=None):
        return self.send("DELETE", {"alias": alias, **self.login_members()}, headers=headers)
