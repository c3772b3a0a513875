"""What the plugin answers when the database of the site refuses to write."""

import contextlib

import pytest

from names import record, refusal

NOT_STORED = refusal(
    "brasslet_store",
    "The database of the site did not take the name. Ask the host of the site whether it is full or read-only.", 500)

LOCK = """return $wpdb->get_var( "SELECT option_value FROM $wpdb->options WHERE option_name = 'brasslet_record.lock'" );"""

# WordPress logs in to the database as somebody who has no more rights than were given.
AS_LIMITED_USER = """
    global $wpdb;
    $wpdb->dbuser = 'limited';
    $wpdb->db_connect();
"""


@pytest.fixture
def limited(site):
    """Runs statements as the database's administrator; "limited" is a user of the site's database."""
    database = site.php("return DB_NAME;")

    def run(*statements):
        for statement in statements:
            site.php("$wpdb->query( $v );", statement.replace("OPTIONS", f"{database}.wp_options").replace("ALL_TABLES", f"{database}.*"))
            assert site.php("return $wpdb->last_error;") == "", statement

    run("CREATE USER limited@localhost", "GRANT ALL ON ALL_TABLES TO limited@localhost")
    site.set_record(record("alice", "bob"))
    site.hook(AS_LIMITED_USER)
    yield run
    site.hook("")
    run("DROP USER limited@localhost")


def assert_nothing_is_taken(site):
    before = site.stored()
    for reply in (site.publish(alias="carol"), site.publish(alias="alice", house="ada@corvane.example"), site.remove("bob")):
        assert (reply.status_code, reply.text) == (500, NOT_STORED)
        assert site.stored() == before
    assert site.get("/status").json()["alias"] == "alice bob"


def assert_names_are_taken(site):
    assert site.publish(alias="carol").json()["aliases"] == ["alice", "bob", "carol"]
    assert site.remove("carol").json()["aliases"] == ["alice", "bob"]


def test_a_user_of_the_database_with_all_rights_may_write(site, limited):
    assert_names_are_taken(site)


def test_a_user_of_the_database_who_may_only_read_changes_nothing(site, limited):
    limited("REVOKE ALL ON ALL_TABLES FROM limited@localhost", "GRANT SELECT ON ALL_TABLES TO limited@localhost")
    assert_nothing_is_taken(site)


def test_a_user_of_the_database_who_may_not_update_changes_nothing(site, limited):
    limited("REVOKE UPDATE ON ALL_TABLES FROM limited@localhost")
    assert_nothing_is_taken(site)
    assert site.php(LOCK) is None


def test_a_site_that_shows_the_errors_of_its_database_still_answers_json(site, limited):
    limited("REVOKE UPDATE ON ALL_TABLES FROM limited@localhost")
    site.hook(AS_LIMITED_USER + "$wpdb->show_errors();")
    assert_nothing_is_taken(site)


def test_a_read_only_database_changes_nothing_until_it_may_be_written_again(site, limited):
    limited("SET GLOBAL read_only = 1")
    try:
        assert_nothing_is_taken(site)
    finally:
        limited("SET GLOBAL read_only = 0")
    assert_names_are_taken(site)


def test_a_database_that_is_not_sent_so_much_at_once_changes_nothing(site, limited):
    limited("SET GLOBAL max_allowed_packet = 16384")
    many = [f"name{number}" for number in range(200)]
    site.set_record(record(*many))
    before = site.stored()
    try:
        for reply in (site.publish(alias="carol"), site.remove("name0")):
            assert (reply.status_code, reply.text) == (500, NOT_STORED)
            assert (site.stored(), site.php(LOCK)) == (before, None)
    finally:
        limited("SET GLOBAL max_allowed_packet = 16777216")
    assert site.remove("name0").json()["aliases"] == many[1:]


@contextlib.contextmanager
def table_with_little_room(site):
    """WordPress' table of options can grow to 16 MiB: three bytes say where in it a row begins."""
    site.php("""
        $wpdb->query( 'SET GLOBAL myisam_data_pointer_size = 3' );
        $wpdb->query( "ALTER TABLE $wpdb->options ENGINE = MyISAM" );
        $wpdb->query( 'SET GLOBAL myisam_data_pointer_size = DEFAULT' );
    """)
    try:
        yield
    finally:
        site.php(EMPTY)
        site.php("$wpdb->query( \"ALTER TABLE $wpdb->options ENGINE = InnoDB\" );")


FILL = """
    for ( $size = 65536; $size >= 64; $size /= 2 ) {
        do {
            $name   = uniqid( 'filler', true );
            $filler = array( 'option_name' => $name, 'option_value' => str_repeat( 'x', $size ), 'autoload' => 'no' );
        } while ( $wpdb->insert( $wpdb->options, $filler ) );
    }
    return $wpdb->last_error;
"""

EMPTY = "$wpdb->query( \"DELETE FROM $wpdb->options WHERE option_name LIKE 'filler%'\" );"


def test_a_full_table_changes_nothing_until_there_is_room_again(site):
    many = [f"name{number}" for number in range(800)]
    with table_with_little_room(site):
        site.set_record(record(*many))
        assert "is full" in site.php(FILL)
        before = site.stored()
        reply = site.publish(alias="x" * 64)
        assert (reply.status_code, reply.text) == (500, NOT_STORED)
        assert (site.stored(), site.php(LOCK)) == (before, None)
        site.php(EMPTY)
        assert site.publish(alias="carol").json()["aliases"] == [*many, "carol"]
