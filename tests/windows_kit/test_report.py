"""What check.exe says in the end, and its two files."""
import re
import shutil
import subprocess

import unpacked

UNTRUSTED = "Certificates.OneForAnotherNameIsRefusedBeforeAnythingIsSent"
STARTS = "Start.ShowsItsWindowAndEndsWhenItIsClosed"


def test_a_run_in_which_all_passes_ends_with_0(kit):
    outcome = unpacked.run(kit, "--yes", f"--gtest_filter={STARTS}")
    assert outcome.lines[-2:] == ["0 not shown here", "1 passed, 0 failed"]
    assert outcome.status == 0


def test_the_report_names_the_machine_and_the_bytes_that_were_checked(kit):
    outcome = unpacked.run(kit, "--no-questions", f"--gtest_filter={STARTS}")
    program = kit / "files/src/Brasslet.exe"
    digest = subprocess.run(["sha256sum", program], capture_output=True, text=True, check=True).stdout.split()[0]
    facts = outcome.report["facts"]
    assert facts["SHA-256 of Brasslet.exe"] == digest
    assert facts["System"].startswith("Wine ")
    assert facts["May trust the kit's authority"] == facts["May switch high contrast"] == "no"
    assert all(value in outcome.page for value in facts.values())


def test_pictures_are_inside_the_page(kit):
    outcome = unpacked.run(kit, "--yes", "--gtest_filter=Journey.SettingsAreKept*")
    assert len(re.findall(r'<img alt="[^"]+" width="\d+" height="\d+" src="data:image/png;base64,iVBOR', outcome.page)) == 2
    assert not re.search(r"(?:src|href)=.(?!data:)", outcome.page)


def test_a_certificate_that_is_accepted_is_told_by_the_name_of_its_fault(kit):
    """Wine accepts every certificate: here the checks of certificates can be seen to fail."""
    outcome = unpacked.run(kit, "--yes", "--as-windows", "--gtest_filter=Certificates.*")
    failed = {entry["check"] for entry in outcome.report["checks"] if entry["result"] == "failed"}
    assert failed == {name for name in unpacked.not_shown_under_wine() if name.startswith("Certificates.")}
    assert outcome.lines[-1] == "1 passed, 5 failed"
    assert outcome.status == 1
    assert "wrong-name.test" not in outcome.page and "GET /wp-json/brasslet/v1/status" in outcome.result(UNTRUSTED)["text"]


def test_what_is_not_shown_is_counted_apart_and_with_its_reason(kit):
    outcome = unpacked.run(kit, "--yes", f"--gtest_filter={UNTRUSTED}:{STARTS}")
    assert outcome.lines[-2:] == ["1 not shown here", "1 passed, 0 failed"]
    assert outcome.result(UNTRUSTED)["text"] == "Wine's TLS accepts every certificate."
    assert "Wine&#39;s" in outcome.page or "Wine's TLS accepts every certificate." in outcome.page


def test_a_failing_test_of_a_program_is_told_and_its_words_are_escaped(kit, tmp_path):
    copy = tmp_path / "kit"
    shutil.copytree(kit, copy)
    shutil.copy(kit / "files/tests/unruly_tests.exe", copy / "files/tests/unit_tests.exe")
    outcome = unpacked.run(copy, "--no-questions", "--programs=Unruly.Fails:Unruly.Passes",
                           "--gtest_filter=Programs.TheTestsOfThePortableSourcesPass")
    assert outcome.lines[-1] == "0 passed, 1 failed"
    assert "Unruly.Fails" in outcome.page and "&lt;b&gt;on purpose&lt;/b&gt;" in outcome.page
    assert "<b>" not in outcome.page
    assert outcome.report["checks"][0]["notes"] == ["1 tests passed, 1 failed, 0 left out:"]


def test_tests_that_are_left_out_are_listed_with_their_reason(kit):
    outcome = unpacked.run(kit, "--no-questions", unpacked.SOME_TESTS,
                           "--gtest_filter=Programs.TheTestsOfTheWindowsSourcesPass")
    notes = outcome.result("Programs.TheTestsOfTheWindowsSourcesPass")["notes"]
    reason = "the pages that programs open are recorded by the browser of the test world"
    assert f"OpenPage.OpensNothingButHttps: {reason}" in notes
    assert notes[0].endswith(" 0 failed, 3 left out:")


def test_nothing_that_ran_is_no_success(kit):
    assert unpacked.run(kit, "--no-questions", "--gtest_filter=Nothing.*").status == 1


def test_a_word_that_is_not_known_is_refused(kit):
    outcome = unpacked.run(kit, "--everything")
    assert outcome.status == 2
    assert outcome.lines[0].startswith("check.exe does not know --everything. It knows --yes,")


def test_the_search_after_the_last_login_finds_what_wine_leaves(kit):
    check = "Journey.LeavesNothingOfALoginThatWasTheLastToBeSent"
    found = unpacked.run(kit, "--yes", "--as-windows", f"--gtest_filter={check}").result(check)
    assert found["result"] == "failed"
    assert "the password's letters from" in found["text"] and found["text"].count("Expected equality") == 1
