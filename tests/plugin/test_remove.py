"""DELETE /wp-json/brasslet/v1/name: removing a name."""

from names import BAD_REMOVAL, record


def removed_body(*aliases):
    listed = ",".join(f'"{alias}"' for alias in aliases)
    return f'{{"ok":true,"aliases":[{listed}]}}'


def test_the_name_goes_and_the_others_stay(site):
    site.set_record(record("zoe", "bob", "alice"))
    reply = site.remove("bob")
    assert (reply.status_code, reply.text) == (200, removed_body("zoe", "alice"))
    assert site.record() == record("zoe", "alice")


def test_the_last_name_leaves_an_empty_list(site):
    site.set_record(record("alice"))
    assert site.remove("alice").text == removed_body()
    assert site.record() == {"rows": []}
    assert site.get("/status").json()["set"] is False


def test_the_alias_is_trimmed_and_lowered(site):
    site.set_record(record("alice", "bob"))
    assert site.remove("  ALICE\n").text == removed_body("bob")


def test_a_name_that_is_not_there_is_as_good_as_removed(site):
    site.set_record(record("alice", "bob"))
    reply = site.remove("carol")
    assert (reply.status_code, reply.text) == (200, removed_body("alice", "bob"))
    assert site.record() == record("alice", "bob")


def test_removing_from_an_empty_site_answers_an_empty_list(site):
    assert site.remove("alice").text == removed_body()


def test_names_of_digits_can_be_removed_and_stay_text(site):
    site.set_record(record("123", "0", "9"))
    assert site.remove("0").text == removed_body("123", "9")
    assert site.remove("123").text == removed_body("9")
    assert site.record() == record("9")


def test_a_bad_alias_is_refused_and_the_record_stays_as_it_is(site):
    site.set_record(record("alice", "array", "1"))
    before = site.stored()
    for alias in ["", " ", "x" * 65, "a b", "alice@x", "al\u00efce", "alice\nbob", "<b>", None, True, 1, [], ["alice"],
                  {"a": "b"}, "a" * 200000]:
        reply = site.remove(alias)
        assert (reply.status_code, reply.text) == (400, BAD_REMOVAL), repr(alias)[:80]
        assert site.stored() == before, repr(alias)[:80]


def test_a_missing_alias_is_refused(site):
    site.set_record(record("alice"))
    before = site.stored()
    reply = site.send("DELETE", site.login_members())
    assert (reply.status_code, reply.text) == (400, BAD_REMOVAL)
    assert site.stored() == before


def test_a_published_name_can_be_removed_and_published_again_at_the_end(site):
    for alias in ("alice", "bob"):
        site.publish(alias=alias)
    site.remove("alice")
    site.publish(alias="alice")
    assert site.record() == record("bob", "alice")
