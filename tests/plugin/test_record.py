"""The option that holds the names: older and damaged records, and how it is kept."""

import zipfile

import pytest

from names import ADDRESS, HOUSE, OTHER_ADDRESS, PUBKEY, record, row

# As WordPress' list of plugins does it.
DEACTIVATE = """
    require_once ABSPATH . 'wp-admin/includes/plugin.php';
    deactivate_plugins( 'brasslet/brasslet.php' );
"""
DELETE = """
    require_once ABSPATH . 'wp-admin/includes/plugin.php';
    require_once ABSPATH . 'wp-admin/includes/file.php';
    return delete_plugins( array( 'brasslet/brasslet.php' ) );
"""

# As WordPress' page for uploads does it after "Replace current with uploaded": tells whether it went well, and then the
# version that is there and whether it is active.
UPLOAD_OVER = """
    require_once ABSPATH . 'wp-admin/includes/admin.php';
    require_once ABSPATH . 'wp-admin/includes/class-wp-upgrader.php';
    $upgrader = new Plugin_Upgrader( new Automatic_Upgrader_Skin() );
    $done     = $upgrader->install( $v, array( 'overwrite_package' => true ) );
    $plugin   = 'brasslet/brasslet.php';
    return array( $done, get_plugins()[ $plugin ]['Version'], is_plugin_active( $plugin ) );
"""

LEGACY = {"alias": "Alice", "pubkey": PUBKEY, "address": ADDRESS, "house": HOUSE}


def aliases(site):
    return site.get("/status").json()["alias"]


def test_a_legacy_record_is_listed_and_answers_lookups(site):
    site.set_record(LEGACY)
    before = site.stored()
    status = site.get("/status").json()
    assert (status["alias"], status["set"]) == ("alice", True)
    assert site.get("/id/alice").json() == {"bsvalias": "1.0", "handle": f"alice@{site.host}", "pubkey": PUBKEY}
    assert site.get("/address/alice").json() == {"address": ADDRESS}
    assert site.stored() == before


def test_a_legacy_record_becomes_rows_at_the_next_save(site):
    site.set_record(LEGACY)
    assert site.publish(alias="bob").json()["aliases"] == ["alice", "bob"]
    assert site.record() == {"rows": [row("alice", house=HOUSE), row("bob")]}


def test_a_legacy_record_becomes_rows_at_the_next_removal(site):
    site.set_record(LEGACY)
    assert site.remove("carol").json()["aliases"] == ["alice"]
    assert site.record() == {"rows": [row("alice", house=HOUSE)]}


def test_a_legacy_record_can_be_removed(site):
    site.set_record(LEGACY)
    assert site.remove("alice").json()["aliases"] == []
    assert site.record() == {"rows": []}


def test_a_legacy_record_without_its_other_fields_gets_them_empty(site):
    site.set_record({"alias": "alice"})
    site.publish(alias="bob")
    assert site.record() == {"rows": [row("alice", "", "", ""), row("bob")]}


@pytest.mark.parametrize("rows,listed", [([row("bob")], "bob"), ([], "")])
def test_rows_count_before_a_legacy_alias(site, rows, listed):
    site.set_record({"rows": rows, "alias": "alice"})
    assert aliases(site) == listed


@pytest.mark.parametrize("rows", ["text", 5, None])
def test_rows_that_are_no_list_leave_the_legacy_alias(site, rows):
    site.set_record({"rows": rows, **LEGACY})
    assert aliases(site) == "alice"


@pytest.mark.parametrize("alias", ["", None, 5, ["alice"]])
def test_a_legacy_record_without_a_usable_alias_is_none(site, alias):
    site.set_record({**LEGACY, "alias": alias})
    assert site.get("/status").json()["set"] is False


@pytest.mark.parametrize("corrupt", ["text", "", 5, True, False, None])
def test_a_corrupt_record_reads_as_no_names_and_the_next_save_replaces_it(site, corrupt):
    site.set_record(corrupt)
    assert site.get("/status").json()["set"] is False
    assert site.publish(alias="alice").json()["aliases"] == ["alice"]
    assert site.record() == record("alice")


def test_a_corrupt_record_is_replaced_by_a_removal_too(site):
    site.set_record("text")
    assert site.remove("alice").json()["aliases"] == []
    assert site.record() == {"rows": []}


def test_an_object_is_a_corrupt_record_too(site):
    site.php("add_option( 'brasslet_record', (object) array( 'rows' => array( array( 'alias' => 'alice' ) ) ) );")
    assert site.get("/status").json()["set"] is False
    assert site.publish(alias="bob").json()["aliases"] == ["bob"]
    assert site.record() == record("bob")


def test_an_object_is_a_damaged_row_too(site):
    site.php("""
        $rows = array( (object) array( 'alias' => 'eve' ), array( 'alias' => 'bob' ) );
        add_option( 'brasslet_record', array( 'rows' => $rows ) );
    """)
    assert aliases(site) == "bob"


def test_bytes_that_php_cannot_read_are_no_names(site):
    site.set_record(record("alice"))
    site.php("""
        $cut = array( 'option_value' => 'a:1:{s:4:' );
        $wpdb->update( $wpdb->options, $cut, array( 'option_name' => 'brasslet_record' ) );
    """)
    assert site.get("/status").json()["set"] is False
    site.publish(alias="bob")
    assert site.record() == record("bob")


def test_a_later_row_with_the_same_alias_wins_in_the_place_of_the_first(site):
    site.set_record({"rows": [row("alice"), row("bob"), row("ALICE", address=OTHER_ADDRESS)]})
    assert aliases(site) == "alice bob"
    assert site.get("/address/alice").json() == {"address": OTHER_ADDRESS}
    site.remove("carol")
    assert site.record() == {"rows": [row("alice", address=OTHER_ADDRESS), row("bob")]}


def test_damaged_rows_are_dropped_and_damaged_fields_emptied_by_the_next_write(site):
    damaged = row("alice", pubkey=["x"], address=5, house=None)
    site.set_record({"rows": ["text", row(""), damaged, {"alias": "bob", "more": "x"}]})
    assert site.get("/id/alice").json()["pubkey"] == ""
    site.publish(alias="carol")
    assert site.record() == {"rows": [row("alice", "", "", ""), row("bob", "", "", ""), row("carol")]}


def test_a_row_counts_whatever_text_its_alias_is(site):
    site.set_record({"rows": [row("a b"), row("x" * 65)]})
    assert aliases(site) == "a b " + "x" * 65
    site.publish(alias="carol")
    assert site.record() == record("a b", "x" * 65, "carol")


def test_a_new_record_is_not_loaded_with_every_page(site):
    site.publish(alias="alice")
    assert site.stored()["autoload"] in ("no", "off")


def test_a_record_that_was_loaded_with_every_page_no_longer_is(site):
    site.set_record(record("alice"), autoload=True)
    assert site.stored()["autoload"] in ("yes", "on")
    site.publish(alias="bob")
    assert site.stored()["autoload"] in ("no", "off")


def answers(site):
    """What anyone finds about the names."""
    return [site.get("/status").json()["alias"], site.get("/id/alice").json(), site.get("/address/alice").json()]


@pytest.fixture
def published(site):
    """A site with two names; it has the plugin again in the end."""
    site.set_record(record("alice", "bob"))
    yield site, site.stored(), answers(site)
    site.install(site.plugin)


def test_deactivating_and_activating_keep_the_record(published):
    site, before, answered = published
    site.php(DEACTIVATE)
    assert site.get("/status").json()["code"] == "rest_no_route"
    assert site.stored() == before
    site.php("activate_plugin( 'brasslet/brasslet.php' );")
    assert (site.stored(), answers(site)) == (before, answered)


def test_deleting_the_plugin_and_installing_it_again_keep_the_record(published):
    site, before, answered = published
    site.php(DEACTIVATE)
    assert site.php(DELETE) is True
    assert not (site.content / "plugins" / "brasslet").exists()
    assert site.stored() == before
    site.install(site.plugin)
    assert (site.stored(), answers(site)) == (before, answered)


@pytest.mark.parametrize("version", ["0.000", "0.002"])
def test_uploading_another_version_over_it_keeps_the_record(published, tmp_path, version):
    site, before, answered = published
    other = tmp_path / "brasslet.zip"
    with zipfile.ZipFile(other, "w") as package:
        text = site.plugin.read_text().replace("Version: 0.001", f"Version: {version}")
        package.writestr("brasslet/brasslet.php", text)
    assert site.php(UPLOAD_OVER, str(other)) == [True, version, True]
    assert (site.stored(), answers(site)) == (before, answered)


def test_deleting_the_plugin_would_run_nothing(site):
    assert site.php("""
        require_once ABSPATH . 'wp-admin/includes/plugin.php';
        $plugin = 'brasslet/brasslet.php';
        return array( is_uninstallable_plugin( $plugin ), has_action( 'deactivate_' . $plugin ) );
    """) == [False, False]


def test_writing_takes_the_rows_in_their_order_and_skips_one_without_an_alias(site):
    site.php("""
        brasslet_put_rows( array(
            'zoe' => array( 'alias' => 'zoe' ),
            'x'   => array( 'alias' => '', 'pubkey' => 'k' ),
            'y'   => array( 'pubkey' => 'k' ),
            'abe' => array( 'house' => 'h', 'address' => 'a', 'pubkey' => 'k', 'alias' => 'abe', 'more' => 'm' ),
        ), null );
    """)
    assert site.record() == {"rows": [row("zoe", "", "", ""), row("abe", "k", "a", "h")]}
    assert list(site.record()["rows"][1]) == ["alias", "pubkey", "address", "house"]


def test_reading_gives_a_map_by_lower_case_alias(site):
    site.set_record({"rows": [row("Zoe"), row("abe", house=HOUSE)]})
    rows = site.php("return brasslet_rows();")
    assert rows == {"zoe": row("zoe"), "abe": row("abe", house=HOUSE)}
    assert list(rows) == ["zoe", "abe"]
